#include "Difference.h"

#include "engine/DatabaseAccess.h"
#include "instruments/HostCalls.h"

#include <sstream>

namespace model {
namespace {

bool equal(std::string_view a, std::wstring_view b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, wchar_t y) {
               return static_cast<wchar_t>(static_cast<unsigned char>(x)) == y;
           });
}

std::string shown(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}
std::string shown(std::wstring_view text) {
    return shown(narrow(text));
}

class Comparison {
  public:
    Comparison(const Model& model, Subject& subject, std::map<int, zdr::Handle>& handles)
        : m_model(model), m_expected(model.drawing()), m_database(subject.database()),
          m_actual(engine::drawingOf(m_database)), m_names(m_actual.names), m_handles(handles) {}

    std::string run() {
        layers();
        states();
        viewports();
        styles();
        data();
        rest();
        return m_difference;
    }

  private:
    bool fine() const { return m_difference.empty(); }
    void note(const std::string& what, const std::string& expected, const std::string& actual) {
        if (fine())
            m_difference = what + ": the model has " + expected + ", the engine " + actual;
    }
    template <class T> void number(const std::string& what, T expected, T actual) {
        if (expected != actual)
            note(what, std::to_string(expected), std::to_string(actual));
    }
    void text(const char* what, std::string_view owner, std::string_view expected, std::wstring_view actual) {
        if (!equal(expected, actual))
            note(std::string(what) + " of " + std::string(owner), shown(expected), shown(actual));
    }
    // Names of the table have one spelling, whatever they name, so that case may differ from the model's.
    void name(const char* what, std::string_view owner, std::string_view expected, zdr::NameId actual) {
        if (!equal(expected, m_names.text(actual)) && !same(expected, narrow(m_names.text(actual))))
            note(std::string(what) + " of " + std::string(owner), shown(expected), shown(m_names.text(actual)));
    }
    template <class T> void value(const char* what, std::string_view owner, T expected, T actual) {
        if (expected != actual)
            number(std::string(what) + " of " + std::string(owner), expected, actual);
    }
    void color(const char* what, std::string_view owner, const KelCmColor& expected, zdr::ColorId actual) {
        if (const KelCmColor found = m_actual.namedColors.color(actual); !(found == expected))
            note(std::string(what) + " of " + std::string(owner), instruments::describe(expected),
                 instruments::describe(found));
    }
    void handle(std::string_view owner, int id, zdr::Handle actual) {
        const auto known = m_handles.try_emplace(id, actual).first;
        value("handle", owner, known->second, actual);
        const KelDbObjectId object = engine::objectId(m_database, actual);
        if (object.isNull() || object.isErased())
            note("object of " + std::string(owner), "one", "none");
    }

    void look(std::string_view owner, const Look& expected, const engine::LayerValues& actual) {
        value("flags", owner, expected.flags, std::uint32_t{actual.flags});
        color("color", owner, expected.color, actual.color);
        value("weight", owner, expected.weight, int{actual.lineWeight});
        name("linetype", owner, expected.linetype, actual.linetype);
        name("plot style", owner, expected.plotStyle, actual.plotStyle);
    }

    void layers();
    void states();
    void state(const State& expected, const zdr::LayerState& actual);
    void viewports();
    void viewport(const Viewport& expected, const zdr::Viewport& actual);
    void styles();
    void data();
    void rest();
    void lastRestored();
    const Layer& layerOf(int id) const { return *std::ranges::find(m_expected.layers, id, &Layer::id); }

    const Model& m_model;
    const Drawing& m_expected;
    KelDbDatabase& m_database;
    const zdr::Drawing& m_actual;
    const zdr::NameTable& m_names;
    std::map<int, zdr::Handle>& m_handles;
    std::string m_difference;
};

void Comparison::layers() {
    number("number of layers", m_expected.layers.size(), m_actual.layers.size());
    for (std::size_t i = 0; fine() && i < m_expected.layers.size(); ++i) {
        const Layer& expected = m_expected.layers[i];
        const zdr::Layer& actual = m_actual.layers[i];
        text("name", "layer " + std::to_string(i), expected.name, m_names.text(actual.name));
        text("description", expected.name, expected.description, actual.description);
        value("reference", expected.name, int{expected.dependent}, int{actual.reference != zdr::kNone});
        handle(expected.name, expected.id, actual.handle);
        if (fine())
            look(expected.name, expected.look, engine::valuesAt(m_actual.columns, i));
    }
    const bool there = m_actual.currentLayer < m_actual.layers.size();
    if (!there)
        note("current layer", layerOf(m_expected.current).name, "none");
    if (fine())
        name("name", "the current layer", layerOf(m_expected.current).name,
             m_actual.layers[m_actual.currentLayer].name);
    const std::size_t used = m_actual.entities[0].layer;
    if (fine() && (used >= m_actual.layers.size() || m_actual.layers[used].handle != m_handles[3]))
        note("layer of the circle", "the one that was Doors", "another");
}

void Comparison::states() {
    number("number of states", m_expected.states.size(), m_actual.states.size());
    for (std::size_t i = 0; fine() && i < m_expected.states.size(); ++i)
        state(m_expected.states[i], m_actual.states[i]);
}

void Comparison::state(const State& expected, const zdr::LayerState& actual) {
    text("name", "state", expected.name, actual.name);
    text("description", expected.name, expected.description, actual.description);
    value("mask", expected.name, expected.mask, actual.mask);
    value("viewport data", expected.name, int{expected.withViewport}, int{actual.hasViewportData});
    value("reference", expected.name, int{expected.dependent}, int{actual.reference != zdr::kNone});
    handle(expected.name, expected.id, actual.handle);
    name("current layer", expected.name, expected.current.value_or(""), actual.currentLayer);
    number("number of layers of " + expected.name, expected.layers.size(), actual.layers->names.size());
    for (std::size_t i = 0; fine() && i < expected.layers.size(); ++i) {
        name("layer", expected.name, expected.layers[i].name, actual.layers->names[i]);
        look(expected.name, expected.layers[i].look, engine::valuesAt(actual.columns, i));
    }
}

void Comparison::viewports() {
    if (m_actual.layouts.size() != 2 || m_actual.layouts[0].viewports.size() != kViewportCount - 1)
        return note("viewports", "4", "others");
    for (std::size_t i = 0; fine() && i < kViewportCount; ++i)
        viewport(m_expected.viewports[i],
                 i + 1 < kViewportCount ? m_actual.layouts[0].viewports[i] : m_actual.layouts[1].viewports[0]);
}

void Comparison::viewport(const Viewport& expected, const zdr::Viewport& actual) {
    std::size_t overrides = 0;
    for (std::size_t i = 0; fine() && i < m_expected.layers.size(); ++i) {
        const Layer& layer = m_expected.layers[i];
        const bool frozen = i < actual.frozen.size() && actual.frozen[i];
        value("freezing in a viewport", layer.name, int{expected.frozen.contains(layer.id)}, int{frozen});
        const auto found = expected.overrides.find(layer.id);
        if (found == expected.overrides.end())
            continue;
        if (overrides >= actual.overrides.size() || actual.overrides[overrides].layer != i)
            return note("override of " + layer.name, "one", "none");
        const zdr::ViewportOverride& own = actual.overrides[overrides++];
        const auto& [mask, values] = found->second;
        value("mask of the override", layer.name, mask, own.mask);
        if (mask & MaskColor)
            color("color of the override", layer.name, values.color, own.color);
        if (mask & MaskLinetype)
            name("linetype of the override", layer.name, values.linetype, own.linetype);
        if (mask & MaskLineWeight)
            value("weight of the override", layer.name, values.weight, int{own.lineWeight});
        if (mask & MaskPlotStyle)
            name("plot style of the override", layer.name, values.plotStyle, own.plotStyle);
    }
    if (fine())
        number("number of overrides", overrides, actual.overrides.size());
}

void Comparison::styles() {
    number("number of linetypes", m_expected.linetypes.size(), m_actual.linetypes.size());
    for (std::size_t i = 0; fine() && i < m_expected.linetypes.size(); ++i)
        name("linetype", "the drawing", m_expected.linetypes[i], m_actual.linetypes[i].name);
    number("number of plot styles", m_expected.plotStyles.size(), m_actual.plotStyles.size());
    for (std::size_t i = 0; fine() && i < m_expected.plotStyles.size(); ++i)
        name("plot style", "the drawing", m_expected.plotStyles[i], m_actual.plotStyles[i].name);
}

void Comparison::data() {
    number("number of applications", m_expected.applications.size(), m_actual.applications.size());
    for (std::size_t i = 0; fine() && i < m_expected.applications.size(); ++i)
        text("application", "the drawing", m_expected.applications[i], m_actual.applications[i]);
    // Data of layers that are gone may stay: nobody can ask for it.
    std::map<std::pair<int, std::string>, int> actual;
    for (const zdr::ExtendedData& item : m_actual.extendedData)
        for (const Layer& layer : m_expected.layers)
            if (fine() && m_handles[layer.id] == item.object)
                actual[{layer.id, narrow(item.application)}] = std::get<std::int32_t>((*item.values.begin()).value);
    auto expected = m_expected.data;
    std::erase_if(expected, [this](const auto& item) {
        return std::ranges::find(m_expected.layers, item.first.first, &Layer::id) == m_expected.layers.end();
    });
    if (expected != actual)
        note("extended data", std::to_string(expected.size()) + " items", "others");
}

void Comparison::rest() {
    const auto orNone = [](const auto& value) { return value ? static_cast<int>(*value) : -1; };
    const Sight& sight = m_model.sight();
    number("layout", orNone(sight.layout), orNone(m_actual.activeLayout));
    std::optional<zdr::Handle> viewport;
    if (fine() && sight.viewport)
        viewport = *sight.viewport + 1 < kViewportCount ? m_actual.layouts[0].viewports[*sight.viewport].handle
                                                        : m_actual.layouts[1].viewports[0].handle;
    number("viewport", orNone(viewport), orNone(m_actual.currentViewport));
    lastRestored();
    number("can undo", int{m_model.canUndo()}, int{engine::canUndo(m_database)});
    number("can redo", int{m_model.canRedo()}, int{engine::canRedo(m_database)});
}

// As the service answers it: a state that isn't there at the moment is none.
void Comparison::lastRestored() {
    std::string expected = "none";
    for (const State& state : m_expected.states)
        if (m_expected.lastRestored && same(state.name, *m_expected.lastRestored))
            expected = state.name;
    KelString name;
    KelDbObjectId id;
    const bool there = m_database.getLayerStateManager()->getLastRestoredLayerState(name, id) == Vorn::eOk;
    text("last restored state", "the drawing", expected, there ? name.kwszPtr() : L"none");
}

} // namespace

std::string Observer::difference(const Model& model, Subject& subject) {
    return Comparison(model, subject, m_handles).run();
}

} // namespace model
