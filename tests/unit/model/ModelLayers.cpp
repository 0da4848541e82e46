// Layers and the reference in the model.

#include "Model.h"

#include "LayerStateMask.h"
#include "VornStatus.h"
#include "model/LayerColumns.h"

#include <algorithm>

namespace model {
namespace {

constexpr std::uint32_t kNewFlags = zdr::kLayerOn | zdr::kLayerPlot;

Look look(std::uint32_t color = 7, const char* linetype = "Continuous", const char* plotStyle = "Normal") {
    return {kNewFlags, KelCmColor::fromPacked(color), linetype, -3, plotStyle};
}

KelCmColor leafGreen() {
    KelCmColor color;
    color.setRGB(30, 120, 40);
    color.setNames(L"Leaf Green", L"House Paints");
    return color;
}

constexpr int kBaseId = 1, kDoorsId = 3;

} // namespace

// Doors, the last layer, has entities.
Drawing Model::start(bool colorDependent) {
    Drawing drawing;
    drawing.colorDependent = colorDependent;
    drawing.layers = {{kBaseId, "Base", "", look(), false},
                      {2, "Walls", "", look(), false},
                      {kDoorsId, "Doors", "", look(3, "Dashed"), false}};
    drawing.current = kBaseId;
    drawing.linetypes = {"Continuous", "Dashed"};
    drawing.plotStyles = {"Normal", "Fine"};
    return drawing;
}

// Both have the layers Base and Trees and a state "Plan". The first brings styles of its own and a state of all layers
// but one; the second a further layer, and a state that was saved with a viewport and holds a layer that is gone.
Drawing Model::site(std::uint32_t variant) {
    Drawing drawing = start(false);
    const bool first = variant % 2 == 0;
    drawing.layers = {{kBaseId, "Base", "", look(), false},
                      {2, "Trees", "green", look(3, first ? "Wavy" : "Dashed", first ? "Bold" : "Normal"), false}};
    if (!first) {
        drawing.layers.push_back({3, "Pond", "", look(5), false});
        drawing.layers.back().look.color = leafGreen();
    }
    if (first) {
        drawing.linetypes.emplace_back("Wavy");
        drawing.plotStyles.emplace_back("Bold");
    }
    State plan;
    plan.id = 4;
    plan.name = "Plan";
    plan.mask = MaskAllProperties;
    plan.layers = {{"Trees", {zdr::kLayerOn | zdr::kLayerFrozen, leafGreen(), "Dashed", 25, "Fine"}}};
    State summer = plan;
    summer.id = 5;
    summer.name = "Summer";
    summer.current = "Base";
    summer.layers.push_back({"Base", look(2, first ? "Wavy" : "Ghost")});
    if (!first) {
        summer.withViewport = true;
        summer.layers[0].look.flags |= zdr::kLayerViewportFrozen;
        summer.layers.push_back({"Gone", look(4)});
    }
    drawing.states = {plan, summer};
    return drawing;
}

int Model::setLayer(Layer& layer, std::uint32_t property, const Look& to) {
    const auto setFlag = [&](std::uint32_t flag) { layer.look.flags = (layer.look.flags & ~flag) | (to.flags & flag); };
    m_changed = true;
    switch (property) {
    case kOff:
        setFlag(zdr::kLayerOn);
        break;
    case kFrozen:
        if (layer.id == m_now.current && (to.flags & ~layer.look.flags & zdr::kLayerFrozen)) {
            m_changed = false;
            return Vorn::eCannotFreezeCurrentLayer;
        }
        setFlag(zdr::kLayerFrozen);
        break;
    case kLocked:
        setFlag(zdr::kLayerLocked);
        break;
    case kPlot:
        setFlag(zdr::kLayerPlot);
        break;
    case kNewViewport:
        setFlag(zdr::kLayerNewViewportFrozen);
        break;
    case kColor:
        layer.look.color = to.color;
        break;
    case kLinetype:
        m_changed = has(m_now.linetypes, to.linetype);
        if (m_changed)
            layer.look.linetype = to.linetype;
        break;
    case kWeight:
        layer.look.weight = to.weight;
        break;
    default:
        m_changed = !m_now.colorDependent && has(m_now.plotStyles, to.plotStyle);
        if (!m_changed)
            return m_now.colorDependent ? Vorn::eNotNamedPlotStyles : Vorn::eKeyNotFound;
        layer.look.plotStyle = to.plotStyle;
    }
    return Vorn::eOk;
}

int Model::addLayer(std::string_view name, const Look& values) {
    if (const int status = checkName(name))
        return status;
    if (findLayer(name))
        return Vorn::eDuplicateRecordName;
    Layer layer{m_nextId++, std::string(name), "", values, false};
    if (!has(m_now.linetypes, layer.look.linetype)) // there is no id to give
        layer.look.linetype.clear();
    m_now.layers.push_back(std::move(layer));
    m_changed = true;
    return Vorn::eOk;
}

int Model::renameLayer(Layer& layer, std::string_view name) {
    if (layer.dependent)
        return Vorn::eDependentRecord;
    if (same(layer.name, "Base"))
        return Vorn::eReservedName;
    if (const int status = checkName(name))
        return status;
    const Layer* bearer = findLayer(name);
    if (bearer && bearer != &layer)
        return Vorn::eDuplicateRecordName;
    m_changed = layer.name != name;
    if (!m_changed)
        return Vorn::eOk;
    const std::string from = layer.name;
    layer.name = name;
    if (same(from, name))
        return Vorn::eOk;
    // The drawing's own states get the new name, too. If a state has a row under the new name already, that row is of a
    // layer that is gone.
    for (State& state : m_now.states) {
        const bool holds = std::ranges::any_of(state.layers, [&](const StateLayer& l) { return same(l.name, from); });
        if (state.dependent || !holds)
            continue;
        std::erase_if(state.layers, [&](const StateLayer& held) { return same(held.name, name); });
        if (state.current && same(*state.current, name))
            state.current.reset();
        for (StateLayer& held : state.layers)
            if (same(held.name, from))
                held.name = name;
        if (state.current && same(*state.current, from))
            state.current = std::string(name);
    }
    return Vorn::eOk;
}

int Model::eraseLayer(Layer& layer) {
    if (layer.dependent)
        return Vorn::eDependentRecord;
    if (same(layer.name, "Base"))
        return Vorn::eReservedName;
    if (layer.id == m_now.current || layer.id == kDoorsId)
        return Vorn::eRecordInUse;
    for (Viewport& viewport : m_now.viewports) {
        viewport.frozen.erase(layer.id);
        viewport.overrides.erase(layer.id);
    }
    m_now.layers.erase(m_now.layers.begin() + (&layer - m_now.layers.data()));
    m_changed = true;
    return Vorn::eOk;
}

int Model::setCurrent(const Layer* layer) {
    if (!layer)
        return Vorn::eInvalidInput;
    if (layer->dependent)
        return Vorn::eDependentRecord;
    if (layer->look.flags & zdr::kLayerFrozen)
        return Vorn::eCannotFreezeCurrentLayer;
    m_changed = m_now.current != layer->id;
    m_now.current = layer->id;
    return Vorn::eOk;
}

int Model::setData(const Layer& layer, std::string_view application, std::uint32_t number) {
    if (!has(m_now.applications, application))
        return Vorn::eKeyNotFound;
    const std::pair key(layer.id, std::string(application));
    // Data that is there already is no change.
    if (number == 0) {
        m_changed = m_now.data.erase(key) > 0;
    } else {
        const auto [place, isNew] = m_now.data.try_emplace(key);
        m_changed = isNew || place->second != static_cast<int>(number);
        place->second = static_cast<int>(number);
    }
    return Vorn::eOk;
}

void Model::dropDependentStates() {
    std::erase_if(m_now.states, [](const State& state) { return state.dependent; });
}

// Whatever brings layers in lists the styles that layers name.
void Model::listStylesOfLayers() {
    const auto list = [](std::vector<std::string>& styles, const std::string& name) {
        if (!name.empty() && !has(styles, name))
            styles.push_back(name);
    };
    for (const Layer& layer : m_now.layers) {
        list(m_now.linetypes, layer.look.linetype);
        list(m_now.plotStyles, layer.look.plotStyle);
    }
}

// A style that the drawing has under the same name is used for the reference's; the others come in under the
// reference's name. A layer that the drawing has from an earlier attachment keeps the drawing's values, and goes when
// the reference no longer has it.
void Model::attach(const Drawing& site) {
    dropDependentStates();
    m_now.resolved = true;
    const auto prefixed = [](const std::string& name) { return "site!" + name; };
    std::map<std::string, std::string> styles;
    const auto enter = [&](std::vector<std::string>& own, const std::vector<std::string>& theirs) {
        for (const std::string& name : theirs) {
            styles[name] = has(own, name) ? name : prefixed(name);
            if (!has(own, styles[name]))
                own.push_back(styles[name]);
        }
    };
    enter(m_now.linetypes, site.linetypes);
    enter(m_now.plotStyles, site.plotStyles);
    const auto translated = [&](Look values) {
        values.linetype = styles.contains(values.linetype) ? styles[values.linetype] : prefixed(values.linetype);
        values.plotStyle = styles.contains(values.plotStyle) ? styles[values.plotStyle] : prefixed(values.plotStyle);
        return values;
    };
    std::erase_if(m_now.layers, [&](const Layer& layer) {
        return layer.dependent && std::ranges::none_of(site.layers, [&](const Layer& theirs) {
                   return same(prefixed(theirs.name), layer.name);
               });
    });
    for (const Layer& theirs : site.layers)
        if (Layer* known = findLayer(prefixed(theirs.name)))
            known->description = theirs.description;
        else
            m_now.layers.push_back(
                {m_nextId++, prefixed(theirs.name), theirs.description, translated(theirs.look), true});
    listStylesOfLayers();
    for (State state : site.states) {
        state.id = m_nextId++;
        state.name = prefixed(state.name);
        state.dependent = true;
        if (state.current)
            state.current = prefixed(*state.current);
        for (StateLayer& layer : state.layers)
            layer = {prefixed(layer.name), translated(layer.look)};
        m_now.states.push_back(std::move(state));
    }
    forgetSteps();
}

} // namespace model
