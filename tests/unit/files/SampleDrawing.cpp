#include "SampleDrawing.h"

#include "LayerStateMask.h"

using namespace zdr;

namespace {

constexpr std::uint32_t kOrange = 0xC2FF8000;

template <class T> Column<T> column(std::initializer_list<T> values) {
    return Column<T>(std::vector<T>(values));
}

void addStyles(Drawing& drawing) {
    NameTable& names = drawing.names;
    drawing.linetypes = {{names.intern(L"Continuous"), 1, L"", {}},
                         {names.intern(L"Dashed"), 2, L"__ __ \x2014", {5, -2.5, 0, -2.5}}};
    drawing.plotStyles = {{names.intern(L"Normal"), 3}, {names.intern(L"Grey"), 4}};
}

void addLayers(Drawing& drawing) {
    NameTable& names = drawing.names;
    drawing.references = {{L"plan", L"sub\\plan.zdr", {10, -20.5}, 2, 0.25, nullptr},
                          {L"grid", L"grid.zdr", {}, 1, 0, nullptr}};
    drawing.layers = {{names.intern(L"Base"), 5, L"", kNone},
                      {names.intern(L"A-WALL"), 6, L"W\x00E4nde", kNone},
                      {names.intern(L"A-DOOR"), 7, L"", kNone},
                      {names.intern(L"plan!A-WALL"), 8, L"", 0}};
    auto set = std::make_shared<LayerSet>();
    for (const Layer& layer : drawing.layers)
        set->names.push_back(layer.name);
    drawing.layerSet = set;
    const NameId continuous = names.find(L"Continuous"), dashed = names.find(L"Dashed"), grey = names.find(L"Grey");
    drawing.columns = {column<std::uint8_t>({9, 11, 0, 31}), column<std::uint32_t>({7, 1, kOrange, 255}),
                       column<NameId>({continuous, dashed, continuous, dashed}),
                       column<std::int16_t>({-3, 25, -2, 211}), column<NameId>({grey, kNoName, grey, grey})};
    drawing.currentLayer = 1;
}

LayerState state(const wchar_t* name, Handle handle, std::shared_ptr<const LayerSet> layers, LayerColumns columns) {
    LayerState state;
    state.name = name;
    state.handle = handle;
    state.mask = MaskAllProperties;
    state.layers = std::move(layers);
    state.columns = std::move(columns);
    return state;
}

void addStates(Drawing& drawing) {
    NameTable& names = drawing.names;
    const NameId lost = names.intern(L"Lost linetype"); // a style that the drawing doesn't have any more
    drawing.states.push_back(state(L"As drawn", 9, drawing.layerSet, drawing.columns));
    drawing.states.back().currentLayer = names.find(L"A-DOOR");

    LayerColumns other = drawing.columns;
    other.flags = column<std::uint8_t>({41, 63, 0, 8});
    other.linetypes = column<NameId>({lost, lost, names.find(L"Dashed"), lost});
    drawing.states.push_back(state(L"Gro\x00DF", 10, drawing.layerSet, other));
    drawing.states.back().description = L"line one\nline two";
    drawing.states.back().hasViewportData = true;
    drawing.states.back().mask = MaskOn | MaskColor;

    auto few = std::make_shared<LayerSet>();
    few->names = {names.intern(L"Gone layer"), names.find(L"Base")};
    drawing.states.push_back(
        state(L"Older", 11, few,
              {column<std::uint8_t>({1, 2}), column<std::uint32_t>({0, 256}), column<NameId>({kNoName, lost}),
               column<std::int16_t>({-1, 0}), column<NameId>({kNoName, kNoName})}));
    drawing.states.back().currentLayer = names.find(L"A-WALL"); // not one of the state's own layers

    auto none = std::make_shared<LayerSet>();
    drawing.states.push_back(state(L"Empty", 12, none, {}));
    drawing.lastRestored = L"Gro\x00DF";
}

void addEntities(Drawing& drawing) {
    const NameId dashed = drawing.names.find(L"Dashed");
    drawing.entities = {{0, std::nullopt, kNoName, -1, Line{{0, 0}, {100, 50.5}}},
                        {1, 3u, dashed, 50, Polyline{{{0, 0}, {10, 0}, {10, 10}}, true}},
                        {1, kOrange, kNoName, -1, Polyline{}},
                        {2, std::nullopt, kNoName, -1, Circle{{5, 5}, 2.5}},
                        {2, 0u, kNoName, -1, Arc{{5, 5}, 2.5, 0.5, 3.25}},
                        {3, std::nullopt, dashed, 0, Text{{1, 2}, 3.5, 0.125, L"K\x00FC\x0063he \U0001F600"}}};
}

void addLayouts(Drawing& drawing) {
    Viewport first;
    first.handle = 13;
    first.number = 2;
    first.corner = {10, 10};
    first.width = 190;
    first.height = 277;
    first.viewCenter = {50, 25};
    first.scale = 0.02;
    first.frozen = {false, false, true};
    first.overrides = {
        {1, MaskColor, 5, kNoName, -3, kNoName},
        {3, MaskLinetype | MaskPlotStyle, 7, drawing.names.find(L"Dashed"), 18, drawing.names.find(L"Grey")}};
    Viewport off;
    off.handle = 14;
    drawing.layouts = {{L"A3", 420, 297, {first, off}, {{0, std::nullopt, kNoName, -1, Line{{0, 0}, {420, 297}}}}},
                       {L"Leer", 0, 0, {}, {}}};
    drawing.activeLayout = 0;
    drawing.currentViewport = 13;
}

} // namespace

Drawing sampleDrawing() {
    Drawing drawing;
    addStyles(drawing);
    addLayers(drawing);
    addStates(drawing);
    addEntities(drawing);
    addLayouts(drawing);
    drawing.applications = {L"KELLAYERS", L"Other"};
    drawing.extendedData = {{6, L"KELLAYERS", {{1070, -5}, {1000, L"text"}, {1000, L""}, {1071, 0}}},
                            {6, L"Other", {}}};
    drawing.defaultLineWeight = 35;
    drawing.colorDependentPlotStyles = true;
    drawing.nextHandle = 40;
    return drawing;
}

std::vector<KelCmColor> sampleNamedColors() {
    const auto named = [](std::uint32_t packed, const wchar_t* name, const wchar_t* book) {
        KelCmColor color = KelCmColor::fromPacked(packed);
        color.setNames(name, book);
        return color;
    };
    return {named(0xC2003C8C, L"Signal Blue", L"House Paints"), named(0xC2C08020, L"Amber", nullptr),
            named(0xC2C08020, L"Slate", nullptr), named(0xC2C08020, nullptr, L"K\x00FCstenfarben")};
}

Drawing namedColorsDrawing() {
    Drawing drawing = sampleDrawing();
    KelCmColor unused = KelCmColor::fromPacked(kOrange);
    unused.setNames(L"Unused", L"House Paints");
    drawing.namedColors.intern(unused);
    std::vector<ColorId> ids;
    for (const KelCmColor& color : sampleNamedColors())
        ids.push_back(drawing.namedColors.intern(color));
    drawing.columns.colors.set(1, ids[0]);
    drawing.states[1].columns.colors.set(2, ids[1]);
    drawing.entities[1].color = ids[2];
    drawing.layouts[0].entities[0].color = ids[0];
    drawing.layouts[0].viewports[0].overrides[0].color = ids[3];
    return drawing;
}

Drawing linetypeScaleDrawing() {
    Drawing drawing = sampleDrawing();
    drawing.linetypeScale = 2.5;
    return drawing;
}

Drawing unloadedDrawing() {
    Drawing drawing = sampleDrawing();
    drawing.references[0].unloaded = true;
    return drawing;
}

Drawing plainDrawing() {
    Drawing drawing;
    const NameId continuous = drawing.names.intern(L"Continuous");
    drawing.linetypes = {{continuous, 1, L"", {}}};
    drawing.layers = {{drawing.names.intern(L"Base"), 2, L"", kNone}};
    drawing.layerSet = std::make_shared<LayerSet>(LayerSet{{drawing.layers[0].name}});
    drawing.columns = {column<std::uint8_t>({9}), column<std::uint32_t>({7}), column<NameId>({continuous}),
                       column<std::int16_t>({-3}), column<NameId>({kNoName})};
    drawing.nextHandle = 3;
    return drawing;
}
