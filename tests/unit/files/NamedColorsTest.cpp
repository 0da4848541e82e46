// Named colours in drawing files: written where they are used, and read with suspicion.
#include "DrawingDifference.h"
#include "DrawingGenerator.h"
#include "FilePatch.h"
#include "SampleDrawing.h"
#include "files/DrawingFile.h"
#include "files/TextCoding.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

using namespace zdr;
using testing::HasSubstr;

namespace {

Drawing throughBytes(const Drawing& drawing) {
    Drawing read;
    std::wstring reason;
    EXPECT_EQ(readDrawingBytes(FilePatch(drawing).bytes(), L"test", read, reason), Vorn::eOk) << toUtf8(reason);
    return read;
}

const file::NamedColor* color(const FilePatch& file, unsigned index) {
    return file.root().named_colors()->Get(index);
}

struct Damage {
    const char* name;
    std::function<void(FilePatch&)> apply;
    const char* reason;
};

std::vector<Damage> damages() {
    constexpr std::uint32_t kBehindTheLast = kFirstNamedColor + 4;
    return {
        {"aColorOfALayerBehindTheLast",
         [](FilePatch& f) { f.setElement(f.root().columns()->colors(), 1, kBehindTheLast); },
         "the table of layers has 1073741828 among its colours, for its layer 2"},
        {"aColorOfAStateBehindTheLast",
         [](FilePatch& f) { f.setElement(f.root().states()->Get(1)->columns()->colors(), 2, kBehindTheLast); },
         "layer state 2 (\"Gro\xC3\x9F\") has 1073741828 among its colours, for its layer 3"},
        {"theHighestNumberOfAll",
         [](FilePatch& f) { f.setElement(f.root().columns()->colors(), 1, 2 * kFirstNamedColor - 1); },
         "has 2147483647 among its colours"},
        {"aColorOfAnEntityBehindTheLast",
         [](FilePatch& f) { f.set(f.root().entities()->Get(1), file::Entity::VT_COLOR, kBehindTheLast); },
         "entity 2 has the colour 1073741828, which isn't one"},
        {"aColorOfAnOverrideBehindTheLast",
         [](FilePatch& f) {
             f.set(f.root().layouts()->Get(0)->viewports()->Get(0)->overrides()->Get(0), file::Override::VT_COLOR,
                   kBehindTheLast);
         },
         "override 1 of viewport 1 of layout 1 (\"A3\") has the colour 1073741828"},
        {"aValueOfThePalette", [](FilePatch& f) { f.set(color(f, 1), file::NamedColor::VT_VALUE, 5u); },
         "named colour 2 has the value 5, which isn't a true colour"},
        {"aValueThatIsANamedColor",
         [](FilePatch& f) { f.set(color(f, 1), file::NamedColor::VT_VALUE, kFirstNamedColor); },
         "named colour 2 has the value 1073741824, which isn't a true colour"},
        {"theSameTwice", [](FilePatch& f) { f.setText(color(f, 2)->name(), "Amber"); },
         "named colour 3 is the same as named colour 2"},
        {"aNameWithAControlCharacter", [](FilePatch& f) { f.setText(color(f, 1)->name(), "Am\ter"); },
         "named colour 2 has a name that is too long or holds a control character"},
        {"aNameWithAZero", [](FilePatch& f) { f.setText(color(f, 1)->name(), std::string("Am\0er", 5)); },
         "named colour 2 has a name that is too long or holds a control character"},
        {"aBookWithAControlCharacter", [](FilePatch& f) { f.setText(color(f, 0)->book(), "House\x7FPaints"); },
         "named colour 1 has a name that is too long or holds a control character"},
        {"aNameThatIsNotUtf8", [](FilePatch& f) { f.setText(color(f, 1)->name(), "Am\xFF\x65r"); },
         "named colour 2 has a text that isn't UTF-8"},
        {"anEmptyNameAndNoBook",
         [](FilePatch& f) {
             const file::ExtendedValue* empty = f.root().extended_data()->Get(0)->values()->Get(2);
             f.lead(color(f, 1), file::NamedColor::VT_NAME, empty->text());
         },
         "named colour 2 has neither a name nor a book"},
    };
}

class DamagedNamedColors : public testing::TestWithParam<Damage> {};

TEST_P(DamagedNamedColors, areRefusedWithTheReason) {
    FilePatch file(namedColorsDrawing());
    GetParam().apply(file);
    Drawing drawing = sampleDrawing();
    std::wstring reason;
    EXPECT_EQ(readDrawingBytes(file.bytes(), L"C:\\damaged.zdr", drawing, reason), Vorn::eFileCutOff);
    EXPECT_THAT(toUtf8(reason), HasSubstr(GetParam().reason));
    EXPECT_EQ(difference(drawing, sampleDrawing()), "");
}

INSTANTIATE_TEST_SUITE_P(Files, DamagedNamedColors, testing::ValuesIn(damages()),
                         [](const testing::TestParamInfo<Damage>& each) { return std::string(each.param.name); });

} // namespace

TEST(NamedColorsInFiles, surviveWhereverTheyStand) {
    EXPECT_EQ(difference(throughBytes(namedColorsDrawing()), namedColorsDrawing()), "");
}

TEST(NamedColorsInFiles, onlyTheOnesInUseAreWrittenInTheirOrder) {
    const Drawing read = throughBytes(namedColorsDrawing());
    ASSERT_EQ(read.namedColors.size(), 4u);
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(read.namedColors.color(kFirstNamedColor + static_cast<ColorId>(i)), sampleNamedColors()[i]);
    EXPECT_EQ(read.columns.colors[1], kFirstNamedColor);
}

TEST(NamedColorsInFiles, theSecondFileIsTheFirstByteForByte) {
    const std::vector<std::byte> first = FilePatch(namedColorsDrawing()).bytes();
    EXPECT_EQ(FilePatch(throughBytes(namedColorsDrawing())).bytes(), first);
}

TEST(NamedColorsInFiles, columnsThatAreNumberedAnewAreStillShared) {
    Drawing drawing = namedColorsDrawing();
    drawing.states[0].columns = drawing.columns;
    const Drawing read = throughBytes(drawing);
    EXPECT_EQ(read.states[0].columns.colors.values().data(), read.columns.colors.values().data());
    EXPECT_EQ(difference(read, drawing), "");
}

TEST(NamedColorsInFiles, aStateOfAReferenceKeepsItsColorsToItself) {
    Drawing drawing = plainDrawing();
    LayerState state;
    state.name = L"plan!As drawn";
    state.reference = 0;
    state.layers = drawing.layerSet;
    state.columns = drawing.columns;
    state.columns.colors.set(0, drawing.namedColors.intern(sampleNamedColors()[0]));
    drawing.states.push_back(state);
    EXPECT_EQ(throughBytes(drawing).namedColors.size(), 0u);
}

TEST(NamedColorsInFiles, makeAFileOfTheSecondVersionAndOthersOfTheFirst) {
    EXPECT_EQ(FilePatch(namedColorsDrawing()).root().version(), 2u);
    EXPECT_EQ(FilePatch(sampleDrawing()).root().version(), 1u);
    Drawing unused = sampleDrawing();
    unused.namedColors.intern(sampleNamedColors()[0]);
    const FilePatch file(unused);
    EXPECT_EQ(file.root().version(), 1u);
    EXPECT_EQ(file.root().named_colors(), nullptr);
}

TEST(NamedColorsInFiles, aColorThatTheTableLacksIsNotWritten) {
    Drawing drawing = namedColorsDrawing();
    drawing.columns.colors.set(0, kFirstNamedColor + 5);
    std::vector<std::byte> bytes;
    std::wstring reason;
    EXPECT_EQ(drawingBytes(drawing, bytes, reason), Vorn::eInvalidInput);
    EXPECT_THAT(toUtf8(reason), HasSubstr("has 1073741829 among its colours, for its layer 1"));
}

TEST(NamedColorsInFiles, aGeneratedDrawingHasSome) {
    const Drawing drawing = generateDrawing({.layers = 200, .states = 4, .namedColors = 12});
    const Drawing read = throughBytes(drawing);
    EXPECT_EQ(difference(read, drawing), "");
    EXPECT_GT(read.namedColors.size(), 6u) << "of which some are used by nothing";
    const auto named = std::ranges::count_if(read.columns.colors.values(), isNamedColor);
    EXPECT_GT(named, 10);
    EXPECT_LT(named, 40);
}
