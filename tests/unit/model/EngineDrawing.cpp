// A drawing of the engine made from the model's.

#include "Subject.h"

#include "engine/DatabaseAccess.h"

namespace model {
namespace {

engine::LayerValues valuesOf(const Look& look, zdr::ColumnTables& tables) {
    zdr::NameTable& names = tables.names;
    return {static_cast<std::uint8_t>(look.flags), tables.namedColors.intern(look.color),
            names.intern(wide(look.linetype)), static_cast<std::int16_t>(look.weight),
            names.intern(wide(look.plotStyle))};
}

zdr::LayerState engineState(const State& state, zdr::ColumnTables& tables) {
    zdr::NameTable& names = tables.names;
    zdr::LayerState result;
    result.name = wide(state.name);
    result.description = wide(state.description);
    result.mask = state.mask;
    result.hasViewportData = state.withViewport;
    if (state.current)
        result.currentLayer = names.intern(wide(*state.current));
    auto set = std::make_shared<zdr::LayerSet>();
    for (const StateLayer& layer : state.layers) {
        set->names.push_back(names.intern(wide(layer.name)));
        engine::appendValues(result.columns, valuesOf(layer.look, tables));
    }
    result.layers = std::move(set);
    return result;
}

// Viewports 2, 3 and one that is off on the first sheet, and one on the second.
void addLayouts(zdr::Drawing& drawing) {
    zdr::Layout& first = drawing.layouts[0];
    zdr::Viewport viewport = first.viewports[0];
    viewport.handle = 0;
    zdr::Layout second = first;
    second.name = L"Layout2";
    second.viewports = {viewport};
    viewport.number = 3;
    first.viewports.push_back(viewport);
    viewport.number = -1;
    first.viewports.push_back(viewport);
    drawing.layouts.push_back(second);
}

} // namespace

std::wstring wide(std::string_view text) {
    return {text.begin(), text.end()};
}

std::string narrow(std::wstring_view text) {
    std::string result;
    for (const wchar_t c : text)
        result += static_cast<char>(c);
    return result;
}

zdr::Drawing engineDrawing(const Drawing& drawing) {
    zdr::Drawing result = engine::makeNewDrawing();
    zdr::NameTable& names = result.names;
    result.colorDependentPlotStyles = drawing.colorDependent;
    result.linetypes.clear(), result.plotStyles.clear(), result.layers.clear();
    result.columns = {};
    for (const std::string& linetype : drawing.linetypes)
        result.linetypes.push_back({names.intern(wide(linetype)), 0, L"", {1, -1}});
    for (const std::string& style : drawing.plotStyles)
        result.plotStyles.push_back({names.intern(wide(style)), 0});
    for (const Layer& layer : drawing.layers) {
        result.layers.push_back({names.intern(wide(layer.name)), 0, wide(layer.description), zdr::kNone});
        engine::appendValues(result.columns, valuesOf(layer.look, result));
    }
    for (const State& state : drawing.states)
        result.states.push_back(engineState(state, result));
    addLayouts(result);
    result.entities.push_back({.layer = result.layers.size() - 1, .color = {}, .geometry = zdr::Circle{{1, 2}, 3}});
    result.references.push_back({.name = L"site", .path = L"site.zdr", .insertion = {}, .drawing = nullptr});
    // Handles are given, and sets of layers made, as for any drawing that comes in.
    KelDbDatabase database(false, true);
    engine::replaceDrawing(database, std::move(result));
    return engine::drawingOf(database);
}

} // namespace model
