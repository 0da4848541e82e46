// Taking a reference out of a drawing: every layer index that is left still names the same layer.

#include "CommandFixture.h"
#include "ReferenceEditing.h"
#include "HandmadeDrawing.h"

#include "engine/DatabaseAccess.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::vector<std::wstring> layerNames(const zdr::Drawing& drawing) {
    std::vector<std::wstring> names;
    for (const zdr::Layer& layer : drawing.layers)
        names.push_back(drawing.names.text(layer.name));
    return names;
}

/// Layers "one", "r1!x", "two", "r2!x", of two references.
zdr::Drawing withTwoReferences() {
    zdr::Drawing drawing = handmade::emptyDrawing();
    for (const wchar_t* name : {L"r1", L"r2"})
        drawing.references.push_back({name, L"x.zdr", {}, 1, 0, nullptr});
    handmade::addLayer(drawing, L"one", {zdr::kLayerOn, 1});
    drawing.layers[handmade::addLayer(drawing, L"r1!x", {zdr::kLayerOn, 2})].reference = 0;
    handmade::addLayer(drawing, L"two", {zdr::kLayerOn, 3});
    drawing.layers[handmade::addLayer(drawing, L"r2!x", {zdr::kLayerOn, 4})].reference = 1;
    drawing.currentLayer = 2;
    return drawing;
}

} // namespace

TEST(ReferenceEditing, TakesTheLayersOutOfTheTable) {
    const zdr::Drawing drawing = workbench::withoutReference(withTwoReferences(), 0);
    EXPECT_THAT(layerNames(drawing), ElementsAre(L"one", L"two", L"r2!x"));
    EXPECT_EQ(drawing.columns.colors[1], 3u);
    EXPECT_EQ(drawing.columns.colors[2], 4u);
    EXPECT_EQ(drawing.columns.linetypes.size(), 3u);
    EXPECT_EQ(drawing.currentLayer, 1u);
    ASSERT_EQ(drawing.references.size(), 1u);
    EXPECT_EQ(drawing.layers[2].reference, 0u);
    EXPECT_EQ(drawing.layers[0].reference, zdr::kNone);
}

TEST(ReferenceEditing, KeepsEntitiesOnTheirLayersAndMovesThoseWithoutOne) {
    zdr::Drawing drawing = withTwoReferences();
    for (std::size_t layer = 0; layer < 4; ++layer)
        handmade::addLine(drawing, layer);
    drawing = workbench::withoutReference(drawing, 0);
    EXPECT_EQ(drawing.entities[0].layer, 0u);
    EXPECT_EQ(drawing.entities[1].layer, 1u) << "the current layer";
    EXPECT_EQ(drawing.entities[2].layer, 1u);
    EXPECT_EQ(drawing.entities[3].layer, 2u);
}

TEST(ReferenceEditing, KeepsWhatViewportsSayAboutTheOtherLayers) {
    zdr::Drawing drawing = withTwoReferences();
    zdr::Viewport viewport;
    viewport.frozen = {false, true, true};
    viewport.overrides = {{1, 32, 5, 0, 0, 0}, {3, 32, 6, 0, 0, 0}};
    drawing.layouts.push_back({L"Sheet", 100, 100, {viewport}, {}});
    drawing = workbench::withoutReference(drawing, 0);
    const zdr::Viewport& kept = drawing.layouts[0].viewports[0];
    EXPECT_EQ(kept.frozen, (std::vector<bool>{false, true, false}));
    ASSERT_EQ(kept.overrides.size(), 1u);
    EXPECT_EQ(kept.overrides[0].layer, 2u);
    EXPECT_EQ(kept.overrides[0].color, 6u);
}

TEST(ReferenceEditing, TakesItsStatesAndExtendedDataOut) {
    zdr::Drawing drawing = withTwoReferences();
    for (const std::size_t reference : {zdr::kNone, std::size_t{0}, std::size_t{1}}) {
        zdr::LayerState state;
        state.name = L"state " + std::to_wstring(reference == zdr::kNone ? 9 : reference);
        state.reference = reference;
        drawing.states.push_back(state);
    }
    drawing.lastRestored = L"State 0";
    drawing.extendedData.push_back({drawing.layers[1].handle, L"APP", {}});
    drawing.extendedData.push_back({drawing.layers[2].handle, L"APP", {}});
    drawing = workbench::withoutReference(drawing, 0);
    ASSERT_EQ(drawing.states.size(), 2u);
    EXPECT_EQ(drawing.states[0].name, L"state 9");
    EXPECT_EQ(drawing.states[1].reference, 0u);
    EXPECT_FALSE(drawing.lastRestored);
    ASSERT_EQ(drawing.extendedData.size(), 1u);
    EXPECT_EQ(drawing.extendedData[0].object, drawing.layers[1].handle);
}

TEST(ReferenceEditing, TakesStylesOutThatNothingUsesAnyMore) {
    zdr::Drawing drawing = withTwoReferences();
    for (const wchar_t* name : {L"r1!Used", L"r1!Unused", L"r2!Unused"})
        drawing.linetypes.push_back({drawing.names.intern(name), 0, L"", {}});
    drawing.columns.linetypes.set(0, drawing.names.find(L"r1!Used"));
    drawing = workbench::withoutReference(drawing, 0);
    std::vector<std::wstring> names;
    for (const zdr::Linetype& linetype : drawing.linetypes)
        names.push_back(drawing.names.text(linetype.name));
    EXPECT_THAT(names, ElementsAre(L"Continuous", L"Dashed", L"r1!Used", L"r2!Unused"));
}
