// Drawings that were written as text and built by flatc.
#include "files/DrawingFile.h"
#include "files/TextCoding.h"

#include <gtest/gtest.h>

#include <set>

using namespace zdr;

namespace {

class FromText : public testing::Test {
  protected:
    void SetUp() override {
        std::wstring reason;
        const std::wstring path = widePath(BUILT_DRAWINGS) + L"/test_from_text.zdr";
        ASSERT_EQ(readDrawingFile(path, drawing, reason), Vorn::eOk) << toUtf8(reason);
    }
    Drawing drawing;
};

} // namespace

TEST_F(FromText, theDrawingHoldsWhatTheTextSays) {
    ASSERT_EQ(drawing.layers.size(), 3u);
    EXPECT_EQ(drawing.names.text(drawing.layers[2].name), L"T\x00FCren");
    EXPECT_EQ(drawing.names.text(drawing.columns.linetypes[1]), L"Dashed");
    ASSERT_EQ(drawing.states.size(), 2u);
    EXPECT_EQ(drawing.states[0].layers, drawing.layerSet);
    EXPECT_EQ(drawing.names.text(drawing.states[0].currentLayer), L"Base");
    EXPECT_EQ(drawing.states[1].currentLayer, kNoName);
    ASSERT_EQ(drawing.entities.size(), 2u);
    EXPECT_EQ(std::get<Text>(drawing.entities[1].geometry).text, L"Haus");
    EXPECT_EQ(drawing.defaultLineWeight, 25);
    EXPECT_EQ(drawing.activeLayout, std::nullopt);
}

TEST_F(FromText, whatTheTextLeavesOutIsEmpty) {
    ASSERT_EQ(drawing.layouts.size(), 2u);
    EXPECT_TRUE(drawing.layouts[0].viewports.empty());
    EXPECT_TRUE(drawing.layouts[0].entities.empty());
    ASSERT_EQ(drawing.layouts[1].viewports.size(), 1u);
    EXPECT_TRUE(drawing.layouts[1].viewports[0].frozen.empty());
    EXPECT_TRUE(drawing.layouts[1].viewports[0].overrides.empty());
    ASSERT_EQ(drawing.extendedData.size(), 1u);
    EXPECT_TRUE(drawing.extendedData[0].values.empty());
    ASSERT_EQ(drawing.namedColors.size(), 1u);
    const KelCmColor color = drawing.namedColors.color(kFirstNamedColor);
    EXPECT_STREQ(color.colorName(), L"");
    EXPECT_STREQ(color.bookName(), L"House Paints");
}

TEST_F(FromText, everyObjectIsGivenAHandleOfItsOwn) {
    std::set<Handle> handles{0};
    for (const Linetype& linetype : drawing.linetypes)
        EXPECT_TRUE(handles.insert(linetype.handle).second);
    for (const Layer& layer : drawing.layers)
        EXPECT_TRUE(handles.insert(layer.handle).second);
    for (const LayerState& state : drawing.states)
        EXPECT_TRUE(handles.insert(state.handle).second);
    EXPECT_EQ(drawing.layers[1].handle, 50u) << "the one that the text gives";
    EXPECT_GT(drawing.nextHandle, *handles.rbegin());
}

TEST_F(FromText, styleNamesThatDifferOnlyInCaseAreOneStyle) {
    // The text has "Dashed" and "DASHED" among its style names.
    EXPECT_EQ(drawing.columns.linetypes[1], drawing.states[0].columns.linetypes[2]);
    EXPECT_EQ(drawing.names.text(drawing.states[0].columns.linetypes[2]), L"Dashed");
}
