#include "DrawingCheck.h"

#include "ResultBuffer.h"
#include "TextCoding.h"

#include <algorithm>
#include <cmath>

namespace zdr {
namespace {

void checkName(std::wstring_view name, const Place& place, std::size_t longest = engine::kMaxNameLength) {
    if (const auto fault = nameFault(name, longest))
        refuse(place, *fault);
}

void checkNumber(double number, const Place& place) {
    if (!std::isfinite(number))
        refuse(place, L"has a coordinate or size that isn't a number");
}

void checkPoint(const Point& point, const Place& place) {
    checkNumber(point.x, place);
    checkNumber(point.y, place);
}

/// Refuses a name by the status that the rules for names give it.
void requireAllowed(Vorn::ErrorStatus status, const Place& place) {
    if (status == Vorn::eNameTooLong)
        refuse(place,
               L"has a part of its name with more than " + std::to_wstring(engine::kMaxNameLength) + L" characters");
    if (status != Vorn::eOk)
        refuse(place, L"has a character in its name that isn't allowed there");
}

/// Names of one kind, which must differ without regard to case. In a table of names, because a file can have millions
/// of them: a map's nodes would lie all over the memory.
class UniqueTexts {
  public:
    void add(std::wstring_view name, const Place& place) {
        checkName(name, place);
        const NameId id = m_names.intern(name);
        if (id < m_first.size())
            refuse(place, L"has the name of " + Place{place.kind, m_first[id]}.text());
        m_first.push_back(place.index);
    }

  private:
    NameTable m_names;
    std::vector<std::size_t> m_first{kNone}; ///< the index of each name's bearer; the empty name has none
};

/// The same for names of the drawing's table, for one list of them after the other.
class UniqueNames {
  public:
    explicit UniqueNames(const NameTable& names) : m_names(names), m_first(names.size()) {}
    /// What was added so far counts no longer. Takes no time: a file can have very many lists.
    void startList() { ++m_list; }
    void add(NameId name, Place place, std::size_t longest = engine::kMaxNameLength) {
        if (name >= m_names.size())
            refuseIndex(place, L"name", name, m_names.size());
        place.name = m_names.text(name);
        checkName(place.name, place, longest);
        Bearer& first = m_first[name];
        if (first.list == m_list)
            refuse(place, L"has the name of " + Place{place.kind, first.index}.text());
        first = {m_list, place.index};
    }

  private:
    struct Bearer {
        std::size_t list = 0; ///< in which the name was met last
        std::size_t index = 0;
    };

    const NameTable& m_names;
    std::vector<Bearer> m_first;
    std::size_t m_list = 1;
};

class DrawingCheck {
  public:
    explicit DrawingCheck(const Drawing& drawing) : m_drawing(drawing), m_layersOfSet(drawing.names) {}
    void run();

  private:
    template <class Action> void forEachHandle(Action action) const;
    void checkHandles() const;
    template <class Style> void checkStyleNames(const std::vector<Style>& styles, const wchar_t* kind) const;
    void checkStyles() const;
    void checkLayers();
    void checkLayerSet(const LayerSet& set, const Place& place);
    void checkStates();
    void checkLayer(std::size_t layer, const Place& place);
    void checkStyle(NameId style, const Place& place);
    void checkLook(ColorId color, std::int16_t lineWeight, const Place& place);
    void checkEntity(const Entity& entity, const Place& place);
    void checkEntities(const std::vector<Entity>& entities, const Place* owner);
    void checkViewport(const Viewport& viewport, const Place& place);
    void checkLayouts();
    void checkReferences();
    void checkApplications();
    void checkExtendedData();

    const Drawing& m_drawing;
    UniqueNames m_layersOfSet;
    std::set<const LayerSet*> m_sets;
};

void DrawingCheck::run() {
    // The engine gives the highest handles to its tables, and a drawing must be able to grow.
    if (constexpr Handle kEnough = Handle{1} << 62; m_drawing.nextHandle > kEnough)
        refuse({L"the next handle to give"},
               L"is " + std::to_wstring(m_drawing.nextHandle) + L", and there are none so high");
    checkStyles();
    checkLayers();
    checkStates();
    checkEntities(m_drawing.entities, nullptr);
    checkLayouts();
    checkHandles();
    checkReferences();
    checkApplications();
    checkExtendedData();
    if (!isLinetypeScale(m_drawing.linetypeScale))
        refuse({L"the linetype scale"}, std::wstring(L"isn't ") + kLinetypeScaleText);
}

/// Calls `action` with each handle and the place that has it.
template <class Action> void DrawingCheck::forEachHandle(Action action) const {
    for (std::size_t i = 0; i < m_drawing.linetypes.size(); ++i)
        action(m_drawing.linetypes[i].handle, Place{L"linetype", i});
    for (std::size_t i = 0; i < m_drawing.plotStyles.size(); ++i)
        action(m_drawing.plotStyles[i].handle, Place{L"plot style", i});
    for (std::size_t i = 0; i < m_drawing.layers.size(); ++i)
        action(m_drawing.layers[i].handle, Place{L"layer", i, m_drawing.names.text(m_drawing.layers[i].name)});
    for (std::size_t i = 0; i < m_drawing.states.size(); ++i)
        if (m_drawing.states[i].reference == kNone)
            action(m_drawing.states[i].handle, Place{L"layer state", i, m_drawing.states[i].name});
    for (std::size_t i = 0; i < m_drawing.layouts.size(); ++i) {
        const Layout& layout = m_drawing.layouts[i];
        const Place outer{L"layout", i, layout.name};
        for (std::size_t j = 0; j < layout.viewports.size(); ++j)
            action(layout.viewports[j].handle, Place{L"viewport", j, {}, &outer});
    }
}

// Sorted and not hashed: most files have their handles in order. Only one that is refused needs the places once more.
void DrawingCheck::checkHandles() const {
    std::vector<std::pair<Handle, std::size_t>> bearers; // each with its number in the order of the walk
    forEachHandle([&](Handle handle, const Place& place) {
        if (handle == 0)
            refuse(place, L"has no handle");
        if (handle >= m_drawing.nextHandle)
            refuse(place, L"has the handle " + std::to_wstring(handle) + L", but the next handle to give is " +
                              std::to_wstring(m_drawing.nextHandle));
        bearers.emplace_back(handle, bearers.size());
    });
    if (!std::ranges::is_sorted(bearers))
        std::ranges::sort(bearers);
    const auto same = [](const auto& a, const auto& b) { return a.first == b.first; };
    const auto twice = std::ranges::adjacent_find(bearers, same);
    if (twice == bearers.end())
        return;
    std::size_t number = 0;
    std::wstring first;
    forEachHandle([&](Handle handle, const Place& place) {
        if (number == twice->second)
            first = place.text();
        if (number++ == (twice + 1)->second)
            refuse(place, L"has the handle " + std::to_wstring(handle) + L", which is the handle of " + first);
    });
}

/// Linetypes or plot styles, which are named by the same rules.
template <class Style> void DrawingCheck::checkStyleNames(const std::vector<Style>& styles, const wchar_t* kind) const {
    UniqueNames names(m_drawing.names);
    for (std::size_t i = 0; i < styles.size(); ++i) {
        const Place place{kind, i};
        names.add(styles[i].name, place, kLongestReferenceName);
        requireAllowed(engine::checkQualifiedName(m_drawing.names.text(styles[i].name)), place);
    }
}

void DrawingCheck::checkStyles() const {
    checkStyleNames(m_drawing.linetypes, L"linetype");
    for (std::size_t i = 0; i < m_drawing.linetypes.size(); ++i)
        for (const double length : m_drawing.linetypes[i].pattern)
            checkNumber(length, {L"linetype", i});
    checkStyleNames(m_drawing.plotStyles, L"plot style");
}

void DrawingCheck::checkLayers() {
    UniqueNames names(m_drawing.names);
    for (std::size_t i = 0; i < m_drawing.layers.size(); ++i) {
        const Layer& layer = m_drawing.layers[i];
        Place place{L"layer", i};
        names.add(layer.name, place, layer.reference == kNone ? engine::kMaxNameLength : kLongestReferenceName);
        place.name = m_drawing.names.text(layer.name);
        requireAllowed(
            layer.reference == kNone ? engine::checkName(place.name) : engine::checkQualifiedName(place.name), place);
        if (layer.reference == kNone)
            continue;
        if (layer.reference >= m_drawing.references.size())
            refuseIndex(place, L"reference", layer.reference, m_drawing.references.size());
        const std::wstring prefix = m_drawing.references[layer.reference].name + engine::kReferenceSeparator;
        if (!equalFolded(place.name.substr(0, prefix.size()), prefix))
            refuse(place, L"doesn't bear the name of its reference, \"" + prefix + L"\"");
    }
    if (m_drawing.currentLayer >= m_drawing.layers.size())
        refuseIndex({L"the current layer"}, L"layer", m_drawing.currentLayer, m_drawing.layers.size());
}

void DrawingCheck::checkLayerSet(const LayerSet& set, const Place& place) {
    if (!m_sets.insert(&set).second)
        return;
    m_layersOfSet.startList();
    for (std::size_t i = 0; i < set.names.size(); ++i)
        m_layersOfSet.add(set.names[i], {L"layer", i, {}, &place}, kLongestReferenceName);
}

void DrawingCheck::checkStates() {
    UniqueTexts names;
    for (std::size_t i = 0; i < m_drawing.states.size(); ++i) {
        const LayerState& state = m_drawing.states[i];
        if (state.reference != kNone)
            continue; // belongs to another file
        const Place place{L"layer state", i, state.name};
        names.add(state.name, place);
        requireAllowed(engine::checkStateName(state.name), place);
        if (!state.layers)
            refuse(place, L"has no layers");
        checkLayerSet(*state.layers, place);
        if (state.currentLayer >= m_drawing.names.size())
            refuseIndex(place, L"name", state.currentLayer, m_drawing.names.size());
    }
}

void DrawingCheck::checkLayer(std::size_t layer, const Place& place) {
    if (layer >= m_drawing.layers.size())
        refuseIndex(place, L"layer", layer, m_drawing.layers.size());
}

void DrawingCheck::checkStyle(NameId style, const Place& place) {
    if (style >= m_drawing.names.size())
        refuseIndex(place, L"style name", style, m_drawing.names.size());
}

void DrawingCheck::checkLook(ColorId color, std::int16_t lineWeight, const Place& place) {
    if (!isColor(color, static_cast<std::uint32_t>(m_drawing.namedColors.size())))
        refuse(place, L"has the colour " + std::to_wstring(color) + L", which isn't one");
    if (!isLineWeight(lineWeight))
        refuse(place, L"has the lineweight " + std::to_wstring(lineWeight) + L", which isn't one");
}

struct GeometryCheck {
    const Place& place;
    void operator()(const Line& line) const {
        checkPoint(line.from, place);
        checkPoint(line.to, place);
    }
    void operator()(const Polyline& polyline) const {
        for (const Point& point : polyline.points)
            checkPoint(point, place);
    }
    void operator()(const Circle& circle) const {
        checkPoint(circle.center, place);
        checkNumber(circle.radius, place);
    }
    void operator()(const Arc& arc) const {
        checkPoint(arc.center, place);
        for (const double number : {arc.radius, arc.startAngle, arc.endAngle})
            checkNumber(number, place);
    }
    void operator()(const Text& text) const {
        checkPoint(text.position, place);
        checkNumber(text.height, place);
        checkNumber(text.rotation, place);
    }
};

void DrawingCheck::checkEntity(const Entity& entity, const Place& place) {
    checkLayer(entity.layer, place);
    checkStyle(entity.linetype, place);
    checkLook(entity.color.value_or(kColorByLayer), entity.lineWeight, place);
    std::visit(GeometryCheck{place}, entity.geometry);
}

void DrawingCheck::checkEntities(const std::vector<Entity>& entities, const Place* owner) {
    for (std::size_t i = 0; i < entities.size(); ++i)
        checkEntity(entities[i], {L"entity", i, {}, owner});
}

void DrawingCheck::checkViewport(const Viewport& viewport, const Place& place) {
    checkPoint(viewport.corner, place);
    checkPoint(viewport.viewCenter, place);
    for (const double number : {viewport.width, viewport.height, viewport.scale})
        checkNumber(number, place);
    if (viewport.frozen.size() > m_drawing.layers.size())
        refuseIndex(place, L"layer", viewport.frozen.size() - 1, m_drawing.layers.size());
    std::size_t previous = kNone;
    for (std::size_t i = 0; i < viewport.overrides.size(); ++i) {
        const ViewportOverride& values = viewport.overrides[i];
        const Place overridePlace{L"override", i, {}, &place};
        checkLayer(values.layer, overridePlace);
        if (previous != kNone && values.layer <= previous)
            refuse(overridePlace, L"isn't behind the one before it in the order of layers");
        previous = values.layer;
        checkStyle(values.linetype, overridePlace);
        checkStyle(values.plotStyle, overridePlace);
        checkLook(values.color, values.lineWeight, overridePlace);
    }
}

void DrawingCheck::checkLayouts() {
    UniqueTexts names;
    for (std::size_t i = 0; i < m_drawing.layouts.size(); ++i) {
        const Layout& layout = m_drawing.layouts[i];
        const Place place{L"layout", i, layout.name};
        names.add(layout.name, place);
        checkNumber(layout.paperWidth, place);
        checkNumber(layout.paperHeight, place);
        for (std::size_t j = 0; j < layout.viewports.size(); ++j)
            checkViewport(layout.viewports[j], {L"viewport", j, {}, &place});
        checkEntities(layout.entities, &place);
    }
    if (m_drawing.activeLayout && *m_drawing.activeLayout >= m_drawing.layouts.size())
        refuseIndex({L"the active tab"}, L"layout", *m_drawing.activeLayout, m_drawing.layouts.size());
}

void DrawingCheck::checkReferences() {
    UniqueTexts names;
    for (std::size_t i = 0; i < m_drawing.references.size(); ++i) {
        const Reference& reference = m_drawing.references[i];
        const Place place{L"reference", i, reference.name};
        names.add(reference.name, place);
        requireAllowed(engine::checkName(reference.name), place);
        if (reference.path.empty())
            refuse(place, L"has no path");
        checkPoint(reference.insertion, place);
        checkNumber(reference.scale, place);
        checkNumber(reference.rotation, place);
    }
}

void DrawingCheck::checkApplications() {
    UniqueTexts names;
    for (std::size_t i = 0; i < m_drawing.applications.size(); ++i)
        names.add(m_drawing.applications[i], {L"registered application", i, m_drawing.applications[i]});
}

/// The value must be of the kind that its code asks for: whoever walks a chain tells strings by the code alone.
void checkExtendedValue(const ExtendedValue& value, const Place& place) {
    const auto* number = std::get_if<std::int32_t>(&value.value);
    const auto* text = std::get_if<std::wstring_view>(&value.value);
    const bool isText = value.code == kExtendedString || value.code == kExtendedHandle;
    if (!isText && value.code != kExtendedInt16 && value.code != kExtendedInt32)
        refuse(place, L"has the code " + std::to_wstring(value.code) + L", which isn't one of extended data");
    if (isText != (text != nullptr))
        refuse(place, L"has the code " + std::to_wstring(value.code) + (isText ? L", but no text" : L", but a text"));
    if (text && text->find(L'\0') != std::wstring_view::npos)
        refuse(place, L"has a text with the character 0 in it");
    if (value.code == kExtendedInt16 && (*number < INT16_MIN || *number > INT16_MAX))
        refuse(place, L"has the number " + std::to_wstring(*number) + L", which needs more than its 16 bits");
}

void DrawingCheck::checkExtendedData() {
    struct Block {
        Handle object;
        NameId application;
        std::size_t index;
        auto operator<=>(const Block&) const = default;
    };
    NameTable applications;
    std::vector<Block> blocks;
    for (std::size_t i = 0; i < m_drawing.extendedData.size(); ++i) {
        const ExtendedData& data = m_drawing.extendedData[i];
        const Place place{L"extended data", i, data.application};
        checkName(data.application, place);
        blocks.push_back({data.object, applications.intern(data.application), i});
        std::size_t number = 0;
        for (const ExtendedValue& value : data.values)
            checkExtendedValue(value, {L"value", number++, {}, &place});
    }
    if (!std::ranges::is_sorted(blocks))
        std::ranges::sort(blocks);
    const auto twice = std::ranges::adjacent_find(
        blocks, [](const Block& a, const Block& b) { return a.object == b.object && a.application == b.application; });
    if (twice != blocks.end())
        refuse({L"extended data", (twice + 1)->index, m_drawing.extendedData[(twice + 1)->index].application},
               L"is the second of its application for the object " + std::to_wstring(twice->object));
}

} // namespace

std::optional<std::wstring> nameFault(std::wstring_view name, std::size_t longest) {
    if (name.empty())
        return L"has no name";
    if (const std::size_t length = lengthInUnits(name); length > longest)
        return L"has a name of " + std::to_wstring(length) + L" characters; names have at most " +
               std::to_wstring(longest);
    for (const wchar_t c : name)
        if (static_cast<std::uint32_t>(c) < 0x20)
            return L"has a control character in its name";
    return std::nullopt;
}

void checkDrawing(const Drawing& drawing) {
    DrawingCheck(drawing).run();
}

} // namespace zdr
