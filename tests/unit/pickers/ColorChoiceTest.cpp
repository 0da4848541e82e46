// What the colour dialog offers and chooses.

#include "ColorChoice.h"

#include "OrvUiPickers.h"

#include <gtest/gtest.h>

using pickers::ColorChoice;
using pickers::colorParts;
using pickers::ColorTab;

namespace {

constexpr int kAll = kOrvUiColorPalette | kOrvUiColorTrueColor | kOrvUiColorSystemDialog;

KelCmColor indexed(unsigned short index) {
    KelCmColor color;
    color.setColorIndex(index);
    return color;
}

KelCmColor trueColor(std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
    KelCmColor color;
    color.setRGB(red, green, blue);
    return color;
}

} // namespace

TEST(ColorParts, sevenAsksForEverything) {
    EXPECT_EQ(kAll, 7);
    const auto parts = colorParts(7, false);
    EXPECT_TRUE(parts.palette);
    EXPECT_TRUE(parts.trueColor);
    EXPECT_TRUE(parts.systemDialog);
    EXPECT_FALSE(parts.byReference);
}

TEST(ColorParts, eachFlagStandsForItsPart) {
    EXPECT_FALSE(colorParts(kOrvUiColorPalette, false).trueColor);
    EXPECT_FALSE(colorParts(kOrvUiColorTrueColor, false).palette);
    EXPECT_TRUE(colorParts(kOrvUiColorTrueColor, false).trueColor);
    EXPECT_FALSE(colorParts(kOrvUiColorPalette | kOrvUiColorTrueColor, false).systemDialog);
}

TEST(ColorParts, withoutATabThereIsThePalette) {
    EXPECT_TRUE(colorParts(0, false).palette);
    const auto parts = colorParts(kOrvUiColorSystemDialog, false);
    EXPECT_TRUE(parts.palette);
    EXPECT_FALSE(parts.systemDialog);
}

TEST(ColorParts, referencesStandBesideThePaletteOnly) {
    EXPECT_TRUE(colorParts(kAll, true).byReference);
    EXPECT_FALSE(colorParts(kOrvUiColorTrueColor, true).byReference);
}

TEST(ColorChoice, beginsWithTheCurrentColor) {
    EXPECT_EQ(ColorChoice(indexed(30)).color(), indexed(30));
    EXPECT_EQ(ColorChoice(indexed(30)).markedIndex(), 30);
    EXPECT_EQ(ColorChoice(trueColor(1, 2, 3)).color(), trueColor(1, 2, 3));
}

TEST(ColorChoice, onlyPaletteColorsAreMarked) {
    EXPECT_EQ(ColorChoice(trueColor(255, 0, 0)).markedIndex(), std::nullopt);
    EXPECT_EQ(ColorChoice(indexed(0)).markedIndex(), std::nullopt);
    EXPECT_EQ(ColorChoice(indexed(256)).markedIndex(), std::nullopt);
    EXPECT_EQ(ColorChoice(indexed(255)).markedIndex(), 255);
}

TEST(ColorChoice, takesAnIndexAndRefusesWhatIsNone) {
    ColorChoice choice(indexed(7));
    choice.chooseIndex(123);
    EXPECT_EQ(choice.color(), indexed(123));
    choice.chooseIndex(257);
    choice.chooseIndex(-1);
    EXPECT_EQ(choice.color(), indexed(123));
    choice.chooseIndex(256);
    EXPECT_EQ(choice.color(), indexed(256));
}

TEST(ColorChoice, takesThreeFieldsOfNumbers) {
    ColorChoice choice(indexed(7));
    EXPECT_TRUE(choice.chooseFields({L"0", L"128", L"255"}));
    EXPECT_EQ(choice.color(), trueColor(0, 128, 255));
    EXPECT_EQ(choice.rgb(), (std::array<int, 3>{0, 128, 255}));
}

TEST(ColorChoice, aFieldThatIsNoChannelLeavesTheChoice) {
    for (const wchar_t* wrong : {L"", L"256", L"999", L"-1", L"1x", L" 1", L"0001"}) {
        ColorChoice choice(indexed(7));
        EXPECT_FALSE(choice.chooseFields({L"1", wrong, L"3"}));
        EXPECT_EQ(choice.color(), indexed(7));
    }
}

TEST(ColorChoice, aReferenceIsAllowedWhereItIsOffered) {
    for (const KelCmColor& reference : {indexed(0), indexed(256)}) {
        EXPECT_FALSE(ColorChoice(reference).isAllowed(colorParts(kAll, false)));
        EXPECT_TRUE(ColorChoice(reference).isAllowed(colorParts(kAll, true)));
    }
    EXPECT_TRUE(ColorChoice(indexed(1)).isAllowed(colorParts(kAll, false)));
    EXPECT_TRUE(ColorChoice(trueColor(0, 0, 0)).isAllowed(colorParts(kAll, false)));
}

TEST(ColorChoice, beginsOnTheTabThatShowsTheColor) {
    EXPECT_EQ(ColorChoice(indexed(5)).firstTab(colorParts(kAll, false)), ColorTab::palette);
    EXPECT_EQ(ColorChoice(trueColor(1, 2, 3)).firstTab(colorParts(kAll, false)), ColorTab::trueColor);
    EXPECT_EQ(ColorChoice(trueColor(1, 2, 3)).firstTab(colorParts(kOrvUiColorPalette, false)), ColorTab::palette);
    EXPECT_EQ(ColorChoice(indexed(5)).firstTab(colorParts(kOrvUiColorTrueColor, false)), ColorTab::trueColor);
}

TEST(ColorChoice, keepsTheNamesOfAColorUntilAnotherIsChosen) {
    KelCmColor named = trueColor(0, 60, 140);
    named.setNames(L"Signal Blue", L"House Paints");
    ColorChoice choice(named);
    EXPECT_EQ(choice.color(), named);
    EXPECT_EQ(choice.describe(), L"Signal Blue (House Paints)");
    EXPECT_EQ(choice.rgb(), (std::array<int, 3>{0, 60, 140}));
    EXPECT_EQ(choice.firstTab(colorParts(kAll, false)), ColorTab::trueColor);
    choice.chooseRgb(0, 60, 140);
    EXPECT_EQ(choice.color(), trueColor(0, 60, 140));
    named.setNames(nullptr, L"House Paints");
    EXPECT_EQ(ColorChoice(named).describe(), L"True color 0,60,140 (House Paints)");
}

TEST(ColorChoice, isDescribedForPeople) {
    EXPECT_EQ(ColorChoice(indexed(1)).describe(), L"Red (255,0,0)");
    EXPECT_EQ(ColorChoice(indexed(8)).describe(), L"Color 8 (128,128,128)");
    EXPECT_EQ(ColorChoice(indexed(256)).describe(), L"ByLayer");
    EXPECT_EQ(ColorChoice(trueColor(1, 2, 3)).describe(), L"True color 1,2,3");
}
