// The rows of the lineweight dialog and the bars in them.

#include "LineWeightRows.h"

#include <gtest/gtest.h>

using pickers::barThickness;
using pickers::lineWeightRows;
using pickers::LineWeightWords;
using pickers::rowOfWeight;

namespace {

const LineWeightWords kWords = {L"ByLayer", L"ByBlock", L"Default"};
constexpr std::size_t kStandardWidths = 24;

} // namespace

TEST(LineWeightRows, areTheDefaultAndTheStandardWidthsFromThinToThick) {
    const auto rows = lineWeightRows(kWords, false, 25);
    ASSERT_EQ(rows.size(), 1 + kStandardWidths);
    EXPECT_EQ(rows.front().weight, -3);
    EXPECT_EQ(rows.front().text, L"Default");
    EXPECT_EQ(rows[1].weight, 0);
    EXPECT_EQ(rows.back().weight, 211);
    for (std::size_t i = 2; i < rows.size(); ++i)
        EXPECT_LT(rows[i - 1].weight, rows[i].weight);
}

TEST(LineWeightRows, nameWidthsInMillimetresWithTwoDecimals) {
    const auto rows = lineWeightRows(kWords, false, 25);
    const auto text = [&rows](int weight) { return rows.at(rowOfWeight(rows, weight).value()).text; };
    EXPECT_EQ(text(0), L"0.00 mm");
    EXPECT_EQ(text(5), L"0.05 mm");
    EXPECT_EQ(text(53), L"0.53 mm");
    EXPECT_EQ(text(100), L"1.00 mm");
    EXPECT_EQ(text(106), L"1.06 mm");
    EXPECT_EQ(text(200), L"2.00 mm");
    EXPECT_EQ(text(211), L"2.11 mm");
}

TEST(LineWeightRows, referencesComeFirstWhereAskedFor) {
    const auto rows = lineWeightRows(kWords, true, 25);
    ASSERT_EQ(rows.size(), 3 + kStandardWidths);
    EXPECT_EQ(rows[0].weight, -1);
    EXPECT_EQ(rows[0].text, L"ByLayer");
    EXPECT_EQ(rows[1].weight, -2);
    EXPECT_EQ(rows[1].text, L"ByBlock");
    EXPECT_EQ(rows[2].weight, -3);
}

TEST(LineWeightRows, aChoiceWithoutAWordIsNotOffered) {
    const auto rows = lineWeightRows({L"", L"ByBlock", L""}, true, 25);
    ASSERT_EQ(rows.size(), 1 + kStandardWidths);
    EXPECT_EQ(rows[0].weight, -2);
}

TEST(LineWeightRows, theDefaultHasTheBarOfWhatItStandsFor) {
    EXPECT_EQ(lineWeightRows(kWords, false, 50)[0].bar, 50);
    EXPECT_EQ(lineWeightRows(kWords, false, -1)[0].bar, std::nullopt);
}

TEST(LineWeightRows, referencesHaveNoBarAndWidthsTheirOwn) {
    const auto rows = lineWeightRows(kWords, true, 25);
    EXPECT_EQ(rows[0].bar, std::nullopt);
    EXPECT_EQ(rows[1].bar, std::nullopt);
    for (std::size_t i = 3; i < rows.size(); ++i)
        EXPECT_EQ(rows[i].bar, rows[i].weight);
}

TEST(LineWeightRows, theRowOfAWeightIsFound) {
    const auto rows = lineWeightRows(kWords, false, 25);
    EXPECT_EQ(rowOfWeight(rows, -3), 0u);
    EXPECT_EQ(rowOfWeight(rows, 211), 24u);
    for (const int missing : {-1, -2, -4, 1, 12, 212})
        EXPECT_EQ(rowOfWeight(rows, missing), std::nullopt) << missing;
}

TEST(LineWeightBars, areAsThickAsOnPaper) {
    EXPECT_EQ(barThickness(211, 96, 100), 8);
    EXPECT_EQ(barThickness(211, 192, 100), 16);
    EXPECT_EQ(barThickness(100, 96, 100), 4);
}

TEST(LineWeightBars, areAtLeastAPixelAndNoMoreThanThereIsRoomFor) {
    EXPECT_EQ(barThickness(0, 96, 100), 1);
    EXPECT_EQ(barThickness(5, 96, 100), 1);
    EXPECT_EQ(barThickness(211, 96, 5), 5);
    EXPECT_EQ(barThickness(211, 96, 0), 1);
}
