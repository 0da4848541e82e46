// The order of the grid's rows by colour, each pair asked from both sides.

#include "ColorOrder.h"

#include <gtest/gtest.h>

namespace {

KelCmColor indexed(unsigned short index) {
    KelCmColor color;
    EXPECT_EQ(color.setColorIndex(index), Vorn::eOk);
    return color;
}

/// True colours that look the same and differ in their names alone; null for a name that isn't there.
KelCmColor blue(const wchar_t* name, const wchar_t* book) {
    KelCmColor color;
    EXPECT_EQ(color.setRGB(0, 60, 140), Vorn::eOk);
    EXPECT_EQ(color.setNames(name, book), Vorn::eOk);
    return color;
}

KelCmColor rgb(std::uint8_t red, std::uint8_t green, std::uint8_t blue, const wchar_t* name = nullptr) {
    KelCmColor color;
    EXPECT_EQ(color.setRGB(red, green, blue), Vorn::eOk);
    EXPECT_EQ(color.setNames(name, nullptr), Vorn::eOk);
    return color;
}

int sign(int value) {
    return value < 0 ? -1 : value > 0 ? 1 : 0;
}

void expectLess(const KelCmColor& a, const KelCmColor& b) {
    EXPECT_EQ(sign(compareColors(a, b)), -1);
    EXPECT_EQ(sign(compareColors(b, a)), 1);
}

void expectEqual(const KelCmColor& a, const KelCmColor& b) {
    EXPECT_EQ(compareColors(a, b), 0);
    EXPECT_EQ(compareColors(b, a), 0);
}

} // namespace

TEST(ColorOrder, equalColorsHaveNone) {
    expectEqual(indexed(5), indexed(5));
    expectEqual(rgb(0, 60, 140), blue(nullptr, nullptr));
    expectEqual(blue(L"Signal Blue", L"House Paints"), blue(L"Signal Blue", L"House Paints"));
}

TEST(ColorOrder, paletteColorsStandByTheirNumbers) {
    expectLess(indexed(0), indexed(1));
    expectLess(indexed(9), indexed(10));
    expectLess(indexed(255), indexed(256));
}

TEST(ColorOrder, trueColorsStandInFrontOfThePaletteBecauseTheirHighestBitCountsAsASign) {
    expectLess(rgb(255, 255, 255), indexed(0));
    expectLess(rgb(0, 0, 0), indexed(256));
}

TEST(ColorOrder, trueColorsStandByRedThenGreenThenBlue) {
    expectLess(rgb(1, 255, 255), rgb(2, 0, 0));
    expectLess(rgb(1, 1, 255), rgb(1, 2, 0));
    expectLess(rgb(1, 1, 1), rgb(1, 1, 2));
}

TEST(ColorOrder, theValueComesBeforeTheNames) {
    expectLess(rgb(1, 1, 1, L"Zinc"), rgb(1, 1, 2, L"Amber"));
    expectLess(rgb(1, 1, 1, L"Zinc"), rgb(1, 1, 2));
}

TEST(ColorOrder, namesStandByTheAlphabetWithoutRegardToCase) {
    expectLess(blue(L"amber", nullptr), blue(L"Zinc", nullptr));
    expectLess(blue(L"Amber", nullptr), blue(L"zinc", nullptr));
    expectEqual(blue(L"Signal Blue", nullptr), blue(L"SIGNAL blue", nullptr));
}

TEST(ColorOrder, whereBothHaveNamesTheirBooksDoNotCount) {
    expectLess(blue(L"Amber", L"Yacht Paints"), blue(L"Zinc", L"House Paints"));
    expectLess(blue(L"Amber", L"Yacht Paints"), blue(L"Zinc", nullptr));
    expectEqual(blue(L"Signal Blue", L"House Paints"), blue(L"Signal Blue", L"Yacht Paints"));
    expectEqual(blue(L"Signal Blue", L"House Paints"), blue(L"Signal Blue", nullptr));
}

TEST(ColorOrder, booksDecideWhereNotBothHaveNames) {
    expectLess(blue(nullptr, L"house paints"), blue(nullptr, L"Yacht Paints"));
    expectEqual(blue(nullptr, L"House Paints"), blue(nullptr, L"HOUSE paints"));
    expectLess(blue(L"Signal Blue", L"House Paints"), blue(nullptr, L"yacht paints"));
    expectEqual(blue(L"Signal Blue", L"House Paints"), blue(nullptr, L"House Paints"));
}

TEST(ColorOrder, aNameStandsBehindNone) {
    expectLess(blue(nullptr, nullptr), blue(L"Signal Blue", nullptr));
    expectLess(blue(nullptr, nullptr), blue(L"Signal Blue", L"House Paints"));
    expectLess(blue(nullptr, L"House Paints"), blue(L"Signal Blue", nullptr));
}

TEST(ColorOrder, aBookAloneStandsBehindNone) {
    expectLess(blue(nullptr, nullptr), blue(nullptr, L"House Paints"));
}
