// The table of changed layers that ./run prints.

#include "LayerDifferences.h"

#include "KelCmColor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing::FieldsAre;
using testing::IsEmpty;
using zdrdiff::differenceTable;
using zdrdiff::layerDifferences;

zdr::Drawing drawingWith(const std::vector<std::wstring>& layers) {
    zdr::Drawing drawing;
    const std::size_t count = layers.size();
    for (const std::wstring& name : layers)
        drawing.layers.push_back({drawing.names.intern(name), 0, L"", zdr::kNone});
    drawing.columns.flags = zdr::Column(std::vector<std::uint8_t>(count, zdr::kLayerOn | zdr::kLayerPlot));
    drawing.columns.colors = zdr::Column(std::vector<std::uint32_t>(count, 7));
    drawing.columns.linetypes = zdr::Column(std::vector<zdr::NameId>(count, drawing.names.intern(L"Continuous")));
    drawing.columns.lineWeights = zdr::Column(std::vector<std::int16_t>(count, -3));
    drawing.columns.plotStyles = zdr::Column(std::vector<zdr::NameId>(count, drawing.names.intern(L"Normal")));
    return drawing;
}

TEST(LayerDifferences, EqualDrawingsHaveNone) {
    const zdr::Drawing drawing = drawingWith({L"Base", L"Walls"});
    EXPECT_THAT(layerDifferences(drawing, drawing), IsEmpty());
    EXPECT_EQ(differenceTable({}, 2), L"0 of 2 layers changed.\n");
}

TEST(LayerDifferences, EachPropertyIsToldInWords) {
    const zdr::Drawing before = drawingWith({L"Base"});
    zdr::Drawing after = drawingWith({L"Base"});
    after.columns.flags.set(0, zdr::kLayerFrozen | zdr::kLayerLocked | zdr::kLayerNewViewportFrozen);
    after.columns.colors.set(0, 0xC2FF8000);
    after.columns.linetypes.set(0, after.names.intern(L"Dashed"));
    after.columns.lineWeights.set(0, 105);
    after.columns.plotStyles.set(0, after.names.intern(L"Grey"));
    EXPECT_THAT(layerDifferences(before, after), ElementsAre(FieldsAre(L"Base", L"visibility", L"on", L"off"),
                                                             FieldsAre(L"Base", L"freeze", L"thawed", L"frozen"),
                                                             FieldsAre(L"Base", L"lock", L"unlocked", L"locked"),
                                                             FieldsAre(L"Base", L"plot", L"plotted", L"not plotted"),
                                                             FieldsAre(L"Base", L"new viewports", L"thawed", L"frozen"),
                                                             FieldsAre(L"Base", L"color", L"7", L"255,128,0"),
                                                             FieldsAre(L"Base", L"linetype", L"Continuous", L"Dashed"),
                                                             FieldsAre(L"Base", L"lineweight", L"default", L"1.05 mm"),
                                                             FieldsAre(L"Base", L"plot style", L"Normal", L"Grey")));
}

TEST(LayerDifferences, ColorsDifferInTheirNamesToo) {
    const auto painted = [](const wchar_t* name, const wchar_t* book) {
        zdr::Drawing drawing = drawingWith({L"Base"});
        KelCmColor color;
        color.setRGB(0, 60, 140);
        color.setNames(name, book);
        drawing.columns.colors.set(0, drawing.namedColors.intern(color));
        return drawing;
    };
    EXPECT_THAT(
        layerDifferences(painted(L"Signal Blue", L"House Paints"), painted(L"Signal Blue", nullptr)),
        ElementsAre(FieldsAre(L"Base", L"color", L"0,60,140 Signal Blue (House Paints)", L"0,60,140 Signal Blue")));
    EXPECT_THAT(layerDifferences(painted(nullptr, L"House Paints"), painted(nullptr, nullptr)),
                ElementsAre(FieldsAre(L"Base", L"color", L"0,60,140 (House Paints)", L"0,60,140")));
    zdr::Drawing further = painted(L"Signal Blue", nullptr);
    KelCmColor first = further.namedColors.color(further.columns.colors[0]);
    zdr::Drawing other = drawingWith({L"Base"});
    first.setNames(L"Amber", nullptr);
    other.namedColors.intern(first);
    first.setNames(L"Signal Blue", nullptr);
    other.columns.colors.set(0, other.namedColors.intern(first));
    EXPECT_THAT(layerDifferences(further, other), IsEmpty()) << "at another place of the table";
}

TEST(LayerDifferences, LayersAreMatchedByNameWhateverTheirOrderAndCase) {
    zdr::Drawing before = drawingWith({L"Base", L"Walls"});
    zdr::Drawing after = drawingWith({L"WALLS", L"Base"});
    before.columns.colors.set(1, 3);
    after.columns.colors.set(0, 3);
    EXPECT_THAT(layerDifferences(before, after), IsEmpty());
}

TEST(LayerDifferences, LayersThatOnlyOneDrawingHasAreTold) {
    EXPECT_THAT(layerDifferences(drawingWith({L"Base", L"Old"}), drawingWith({L"Base", L"New"})),
                ElementsAre(FieldsAre(L"Old", L"presence", L"there", L"gone"),
                            FieldsAre(L"New", L"presence", L"not there", L"new")));
}

TEST(LayerDifferences, StatesAreComparedByWhatTheyHold) {
    const auto withState = [](const std::vector<std::wstring>& layers, std::uint32_t color) {
        zdr::Drawing drawing = drawingWith(layers);
        zdr::LayerState& state = drawing.states.emplace_back();
        state.name = L"Plan";
        auto set = std::make_shared<zdr::LayerSet>();
        for (const zdr::Layer& layer : drawing.layers)
            set->names.push_back(layer.name);
        state.layers = set;
        state.columns = drawing.columns;
        state.columns.colors.set(0, color);
        state.currentLayer = drawing.layers.back().name;
        return drawing;
    };
    const zdr::Drawing before = withState({L"Base"}, 7);
    const zdr::Drawing after = withState({L"Base", L"Walls"}, 3);
    EXPECT_THAT(zdrdiff::stateDifferences(before, before, L"Plan"), IsEmpty());
    EXPECT_THAT(zdrdiff::stateDifferences(before, after, L"Another plan"), IsEmpty());
    EXPECT_THAT(zdrdiff::stateDifferences(before, after, L"Plan"),
                ElementsAre(FieldsAre(L"Base", L"color", L"7", L"3"),
                            FieldsAre(L"Walls", L"presence", L"not there", L"new"),
                            FieldsAre(L"Plan", L"current layer", L"Base", L"Walls")));
}

TEST(LayerDifferences, TheTableNamesALayerOnceAndCountsLayers) {
    EXPECT_EQ(differenceTable({{L"Base", L"freeze", L"thawed", L"frozen"},
                               {L"Base", L"color", L"7", L"3"},
                               {L"Long name", L"plot", L"plotted", L"not plotted"}},
                              9),
              L"Layer      Property  Before   After\n"
              L"Base       freeze    thawed   frozen\n"
              L"           color     7        3\n"
              L"Long name  plot      plotted  not plotted\n"
              L"2 of 9 layers changed.\n");
}

} // namespace
