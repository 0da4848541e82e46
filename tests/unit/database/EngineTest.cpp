#include "EngineTest.h"

zdr::Drawing makeDrawing(const std::vector<TestLayer>& layers) {
    zdr::Drawing drawing = engine::makeNewDrawing();
    for (const wchar_t* linetype : {L"Dashed", L"Dotted"})
        drawing.linetypes.push_back({drawing.names.intern(linetype), drawing.nextHandle++, L"", {1, -1}});
    drawing.plotStyles.push_back({drawing.names.intern(L"Fine"), drawing.nextHandle++});
    zdr::Viewport off = drawing.layouts[0].viewports[0];
    off.handle = drawing.nextHandle++;
    off.number = -1;
    drawing.layouts[0].viewports.push_back(off);
    for (const TestLayer& layer : layers) {
        drawing.layers.push_back({drawing.names.intern(layer.name), drawing.nextHandle++, L"", zdr::kNone});
        engine::appendValues(drawing.columns, {layer.flags, layer.color, drawing.names.intern(layer.linetype),
                                               layer.lineWeight, drawing.names.intern(layer.plotStyle)});
    }
    return drawing;
}

EngineTest::EngineTest() {
    use(makeDrawing({{L"Walls"}, {L"Doors"}, {L"Furniture"}}));
    instruments::watch(true);
}

EngineTest::~EngineTest() {
    EXPECT_THAT(instruments::ledger(), testing::IsEmpty());
    instruments::watch(false);
}

std::vector<std::wstring> toVector(const KelArray<KelString>& names) {
    std::vector<std::wstring> texts;
    for (const KelString& name : names)
        texts.emplace_back(name.kwszPtr());
    return texts;
}

std::vector<std::wstring> EngineTest::stateNames(bool includeDependent) {
    KelArray<KelString> names;
    EXPECT_EQ(states().getLayerStateNames(names, true, includeDependent), Vorn::eOk);
    return toVector(names);
}

std::vector<std::wstring> EngineTest::layersOf(const wchar_t* state, bool invert) {
    KelArray<KelString> names;
    EXPECT_EQ(states().getLayerStateLayers(names, state, invert), Vorn::eOk);
    return toVector(names);
}
