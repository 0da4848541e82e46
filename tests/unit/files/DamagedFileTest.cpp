// Files that lie: each entry of the table changes one value of a good file, and names the status and the words of the
// reason with which it must be refused.
#include "DrawingDifference.h"
#include "FilePatch.h"
#include "SampleDrawing.h"
#include "files/DrawingFile.h"
#include "files/TextCoding.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <limits>

using namespace zdr;
using testing::HasSubstr;

namespace {

struct Damage {
    const char* name;
    std::function<void(FilePatch&)> apply;
    const char* reason;
};

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

const file::LayerState* state(const FilePatch& file, unsigned index) {
    return file.root().states()->Get(index);
}
const file::Viewport* viewport(const FilePatch& file) {
    return file.root().layouts()->Get(0)->viewports()->Get(0);
}
const file::Entity* entity(const FilePatch& file, unsigned index) {
    return file.root().entities()->Get(index);
}

std::vector<Damage> columnDamages() {
    return {
        {"tooFewFlags", [](FilePatch& f) { f.setCount(f.root().columns()->flags(), 3); },
         "the table of layers has 3 layer flags for 4 layers"},
        {"tooFewColorsOfAState", [](FilePatch& f) { f.setCount(state(f, 2)->columns()->colors(), 1); },
         "layer state 3 (\"Older\") has 1 colours for 2 layers"},
        {"tooManyLineweights", [](FilePatch& f) { f.setCount(state(f, 2)->columns()->line_weights(), 3); },
         "layer state 3 (\"Older\") has 3 lineweights for 2 layers"},
        {"aColumnLongerThanTheFile", [](FilePatch& f) { f.setCount(state(f, 1)->columns()->flags(), 0x7FFFFFF0); },
         "aren't within its"},
        {"aLinetypeOutOfRange", [](FilePatch& f) { f.setElement(f.root().columns()->linetypes(), 3, 6u); },
         "the table of layers has 6 among its linetypes, for its layer 4"},
        {"aPlotStyleOutOfRange",
         [](FilePatch& f) { f.setElement(state(f, 1)->columns()->plot_styles(), 0, 0xFFFFFFFFu); },
         "has 4294967295 among its plot styles"},
        {"linetypesThatAreTheColors",
         [](FilePatch& f) {
             const file::LayerColumns* columns = state(f, 1)->columns();
             f.lead(columns, file::LayerColumns::VT_LINETYPES, columns->colors());
         },
         "layer state 2 (\"Gro\xC3\x9F\") has 7 among its linetypes, for its layer 1"},
        {"unknownFlags", [](FilePatch& f) { f.setElement(state(f, 1)->columns()->flags(), 1, std::uint8_t{64}); },
         "layer state 2 (\"Gro\xC3\x9F\") has 64 among its state flags, for its layer 2"},
        {"aColorThatIsNone", [](FilePatch& f) { f.setElement(state(f, 1)->columns()->colors(), 1, 257u); },
         "has 257 among its colours"},
        {"aLineweightThatIsNone",
         [](FilePatch& f) { f.setElement(state(f, 1)->columns()->line_weights(), 1, std::int16_t{-4}); },
         "has -4 among its lineweights"},
    };
}

std::vector<Damage> indexDamages() {
    return {
        {"theCurrentLayer", [](FilePatch& f) { f.set(&f.root(), file::Drawing::VT_CURRENT_LAYER, 4u); },
         "the current layer refers to the layer with the index 4, but there are only 4"},
        {"aLayerSet", [](FilePatch& f) { f.set(state(f, 2), file::LayerState::VT_LAYER_SET, 3u); },
         "layer state 3 refers to the layer set with the index 3, but there are only 3"},
        {"theCurrentLayerOfAState",
         [](FilePatch& f) { f.set(state(f, 0), file::LayerState::VT_CURRENT_LAYER, std::int32_t{4}); },
         "layer state 1 refers to the layer with the index 4"},
        {"aReferenceOfALayer",
         [](FilePatch& f) { f.set(f.root().layers()->Get(3), file::Layer::VT_REFERENCE, std::int32_t{2}); },
         "layer 4 (\"plan!A-WALL\") refers to the reference with the index 2, but there are only 2"},
        {"aNegativeReference",
         [](FilePatch& f) { f.set(f.root().layers()->Get(3), file::Layer::VT_REFERENCE, std::int32_t{-2}); },
         "layer 4 refers to the reference"},
        {"theLayerOfAnEntity", [](FilePatch& f) { f.set(entity(f, 1), file::Entity::VT_LAYER, 99u); },
         "entity 2 refers to the layer with the index 99"},
        {"theLinetypeOfAnEntity", [](FilePatch& f) { f.set(entity(f, 1), file::Entity::VT_LINETYPE, std::int32_t{6}); },
         "entity 2 refers to the style name with the index 6, but there are only 6"},
        {"aFrozenLayer", [](FilePatch& f) { f.setElement(viewport(f)->frozen_layers(), 0, 4u); },
         "viewport 1 of layout 1 refers to the layer with the index 4"},
        {"theLayerOfAnOverride",
         [](FilePatch& f) { f.set(viewport(f)->overrides()->Get(1), file::Override::VT_LAYER, 4u); },
         "override 2 of viewport 1 of layout 1 (\"A3\") refers to the layer with the index 4"},
        {"theLinetypeOfAnOverride",
         [](FilePatch& f) { f.set(viewport(f)->overrides()->Get(1), file::Override::VT_LINETYPE, 17u); },
         "override 2 of viewport 1 of layout 1 refers to the style name with the index 17"},
        {"theActiveLayout", [](FilePatch& f) { f.set(&f.root(), file::Drawing::VT_ACTIVE_LAYOUT, std::int32_t{2}); },
         "current viewport"},
        {"aNegativeLayout", [](FilePatch& f) { f.set(&f.root(), file::Drawing::VT_ACTIVE_LAYOUT, std::int32_t{-2}); },
         "the active tab refers to the layout with the index 4294967294"},
        {"theCurrentViewport",
         [](FilePatch& f) { f.set(&f.root(), file::Drawing::VT_CURRENT_VIEWPORT, std::uint64_t{9}); },
         "the current viewport isn't one of the active layout"},
    };
}

std::vector<Damage> nameDamages() {
    return {
        {"twoLayersOfOneNameInOtherCase", [](FilePatch& f) { f.setText(f.root().layers()->Get(2)->name(), "a-wall"); },
         "layer 3 (\"A-WALL\") has the name of layer 2"},
        {"aLayerTwiceInALayerSet",
         [](FilePatch& f) { f.setText(f.root().layer_sets()->Get(0)->names()->Get(2), "a-Wall"); },
         "has the name of layer 2"},
        {"twoStatesOfOneName", [](FilePatch& f) { f.setText(state(f, 2)->name(), "empTY"); },
         "layer state 4 (\"Empty\") has the name of layer state 3"},
        {"twoReferencesOfOneName", [](FilePatch& f) { f.setText(f.root().references()->Get(1)->name(), "PLAN"); },
         "reference 2 (\"PLAN\") has the name of reference 1"},
        {"aNameWithAControlCharacter", [](FilePatch& f) { f.setText(f.root().layers()->Get(2)->name(), "A\nDOOR"); },
         "has a control character"},
        {"aNameThatIsNotUtf8", [](FilePatch& f) { f.setText(f.root().layers()->Get(2)->name(), "A-\xFFOOR"); },
         "layer 3 has a text that isn't UTF-8"},
        {"aNameThatClaimsToBeLonger", [](FilePatch& f) { f.setCount(f.root().layers()->Get(2)->name(), 0x10000000); },
         "aren't within its"},
        {"aFirstStyleNameThatIsNotEmpty",
         [](FilePatch& f) {
             f.setElement(
                 f.root().style_names(), 0,
                 static_cast<std::uint32_t>(reinterpret_cast<const std::uint8_t*>(f.root().style_names()->Get(1)) -
                                            f.root().style_names()->Data()));
         },
         "style name 1 isn't the empty one"},
    };
}

std::vector<Damage> otherDamages() {
    return {
        {"twoObjectsOfOneHandle",
         [](FilePatch& f) { f.set(f.root().layers()->Get(2), file::Layer::VT_HANDLE, std::uint64_t{6}); },
         "layer 3 (\"A-DOOR\") has the handle 6, which is the handle of layer 2 (\"A-WALL\")"},
        {"aHandleOfALayerAndAState",
         [](FilePatch& f) { f.set(state(f, 0), file::LayerState::VT_HANDLE, std::uint64_t{5}); },
         "layer state 1 (\"As drawn\") has the handle 5, which is the handle of layer 1 (\"Base\")"},
        {"aHandleThatIsStillToBeGiven",
         [](FilePatch& f) { f.set(&f.root(), file::Drawing::VT_NEXT_HANDLE, std::uint64_t{13}); },
         "viewport 1 of layout 1 (\"A3\") has the handle 13, but the next handle to give is 13"},
        {"overridesOutOfOrder",
         [](FilePatch& f) { f.set(viewport(f)->overrides()->Get(1), file::Override::VT_LAYER, 1u); },
         "override 2 of viewport 1 of layout 1 (\"A3\") isn't behind the one before it"},
        {"aCoordinateThatIsNoNumber",
         [](FilePatch& f) { f.set(entity(f, 3)->geometry_as_Circle(), file::Circle::VT_RADIUS, kNotANumber); },
         "entity 4 has a coordinate or size that isn't a number"},
        {"anInfiniteScale",
         [](FilePatch& f) { f.set(viewport(f), file::Viewport::VT_SCALE, std::numeric_limits<double>::infinity()); },
         "viewport 1 of layout 1 (\"A3\") has a coordinate"},
        {"anUnknownGeometry",
         [](FilePatch& f) { f.set(entity(f, 0), file::Entity::VT_GEOMETRY_TYPE, std::uint8_t{77}); },
         "entity 1 has a geometry of the unknown kind 77"},
        {"anEntityOfNoColor", [](FilePatch& f) { f.set(entity(f, 1), file::Entity::VT_COLOR, 300u); },
         "entity 2 has the colour 300"},
        {"aCircleThatClaimsToBeText",
         [](FilePatch& f) { f.set(entity(f, 3), file::Entity::VT_GEOMETRY_TYPE, std::uint8_t{5}); },
         "aren't within its"},
        {"aPatternThatIsNotAligned",
         [](FilePatch& f) {
             const file::Linetype* dashed = f.root().linetypes()->Get(1);
             // The lower half of the first number becomes the number of those behind it.
             f.setElement(dashed->pattern(), 0, std::uint32_t{1});
             f.lead(dashed, file::Linetype::VT_PATTERN, dashed->pattern()->Data());
         },
         "linetype 2 has values at an address that isn't aligned"},
        {"layerSetsLongerThanTheFile", [](FilePatch& f) { f.setCount(f.root().layer_sets(), 0x10000000); },
         "aren't within its"},
        {"aLayerSetOutsideTheFile",
         [](FilePatch& f) { f.setElement(f.root().layer_sets(), 0, std::uint32_t{0x70000000}); }, "aren't within its"},
        {"namesOfALayerSetLongerThanTheFile",
         [](FilePatch& f) { f.setCount(f.root().layer_sets()->Get(0)->names(), 0x10000000); }, "aren't within its"},
        {"aLengthThatIsShorter", [](FilePatch& f) { f.set(&f.root(), file::Drawing::VT_LENGTH, 17u); },
         "instead of 17 bytes"},
        {"aFirstTableThatIsNotThere", [](FilePatch& f) { std::memset(f.bytes().data(), 0x7F, 4); },
         "its first table isn't within its"},
    };
}

class DamagedFile : public testing::TestWithParam<Damage> {};

TEST_P(DamagedFile, isRefusedWithTheReason) {
    FilePatch file(sampleDrawing());
    GetParam().apply(file);
    Drawing drawing = sampleDrawing();
    std::wstring reason;
    EXPECT_EQ(readDrawingBytes(file.bytes(), L"C:\\damaged.zdr", drawing, reason), Vorn::eFileCutOff);
    EXPECT_THAT(toUtf8(reason), HasSubstr(GetParam().reason));
    EXPECT_THAT(toUtf8(reason), testing::StartsWith("The file \"C:\\damaged.zdr\" is "));
    EXPECT_EQ(difference(drawing, sampleDrawing()), "");
}

std::string nameOf(const testing::TestParamInfo<Damage>& info) {
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(Columns, DamagedFile, testing::ValuesIn(columnDamages()), nameOf);
INSTANTIATE_TEST_SUITE_P(Indices, DamagedFile, testing::ValuesIn(indexDamages()), nameOf);
INSTANTIATE_TEST_SUITE_P(Names, DamagedFile, testing::ValuesIn(nameDamages()), nameOf);
INSTANTIATE_TEST_SUITE_P(Others, DamagedFile, testing::ValuesIn(otherDamages()), nameOf);

} // namespace
