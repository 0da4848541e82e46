// Values of layer properties as text.

#include "PropertyText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace workbench;
using testing::Contains;

TEST(PropertyText, ReadsColours) {
    EXPECT_EQ(parseColor(L"1"), 1u);
    EXPECT_EQ(parseColor(L"255"), 255u);
    EXPECT_EQ(parseColor(L"Magenta"), 6u);
    EXPECT_EQ(parseColor(L"255,128,0"), 0xC2FF8000u);
    for (const wchar_t* wrong : {L"", L"0", L"256", L"-1", L"1.5", L"purple", L"1,2", L"1,2,3,4", L"1,,2,3", L"1,2,256",
                                 L"99999999999999999999", L"a,b,c", L" 1"})
        EXPECT_EQ(parseColor(wrong), std::nullopt) << testing::PrintToString(wrong);
}

TEST(PropertyText, ReadsTheStandardLineweights) {
    EXPECT_EQ(parseLineWeight(L"0.25"), 25);
    EXPECT_EQ(parseLineWeight(L"0"), 0);
    EXPECT_EQ(parseLineWeight(L"2.11"), 211);
    EXPECT_EQ(parseLineWeight(L"DEFAULT"), -3);
    for (const wchar_t* wrong :
         {L"", L"0.26", L"0.251", L"0.255", L"25", L"-0.01", L"-0.03", L"1e300", L"wide", L"0.25mm"})
        EXPECT_EQ(parseLineWeight(wrong), std::nullopt) << testing::PrintToString(wrong);
}

TEST(PropertyText, ReadsBackEveryWidthThatItOffers) {
    const auto names = lineWeightNames();
    EXPECT_EQ(names.size(), 25u) << "24 widths and the default";
    for (const std::wstring& name : names)
        EXPECT_TRUE(parseLineWeight(name)) << testing::PrintToString(name);
    EXPECT_THAT(names, Contains(L"0.09"));
    EXPECT_EQ(lineWeightText(5), L"0.05 mm");
    EXPECT_EQ(lineWeightText(200), L"2.00 mm");
}

TEST(PropertyText, ReadsNumbers) {
    EXPECT_EQ(parseNumber(L"-2.5e1"), -25);
    for (const wchar_t* wrong : {L"", L"e", L"1e999", L"nan", L"0x1", L"1 ", L"--1", L"1.2.3"})
        EXPECT_EQ(parseNumber(wrong), std::nullopt) << testing::PrintToString(wrong);
}

TEST(PropertyText, ReadsYesAndNo) {
    EXPECT_EQ(parseYesNo(L"YES"), true);
    EXPECT_EQ(parseYesNo(L"off"), false);
    EXPECT_EQ(parseYesNo(L"y"), std::nullopt);
}
