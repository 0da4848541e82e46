// Points and factors as they are typed, and points as they are written.

#include "PointText.h"

#include <gtest/gtest.h>

using workbench::parseFactor;
using workbench::parsePoint;
using workbench::pointText;
using workbench::roundedPoint;

TEST(PointText, APointIsTwoNumbersWithACommaBetween) {
    const auto point = parsePoint(L"10,-2.5e1");
    ASSERT_TRUE(point);
    EXPECT_EQ(point->x, 10);
    EXPECT_EQ(point->y, -25);
    EXPECT_TRUE(parsePoint(L"1e12,-1e12")) << "the largest ones";
}

TEST(PointText, NothingElseIsAPoint) {
    for (const wchar_t* text : {L"", L",", L"1", L"1,", L",1", L"1,2,3", L"1;2", L"a,b", L"1 ,2", L"nan,0", L"0,inf",
                                L"1e999,0", L"1000000000001,0", L"0,-1000000000001", L"0x10,0", L"\"1,2\""})
        EXPECT_FALSE(parsePoint(text)) << testing::PrintToString(std::wstring(text));
}

TEST(PointText, APointIsWrittenWithTheDecimalsThatItHas) {
    EXPECT_EQ(pointText({10, -2.5}), L"10,-2.5");
    EXPECT_EQ(pointText({0.1, 1e12}), L"0.1,1000000000000");
    EXPECT_EQ(pointText({1e-9, -0.001}), L"0.000000001,-0.001");
    const auto again = parsePoint(pointText({1.0 / 3, -1e11 / 7}));
    ASSERT_TRUE(again);
    EXPECT_EQ(again->x, 1.0 / 3);
    EXPECT_EQ(again->y, -1e11 / 7);
}

TEST(PointText, AClickedPointKeepsTheDecimalsThatAPixelIsWorth) {
    EXPECT_EQ(pointText(roundedPoint({123.456789, -0.004}, 0.01)), L"123.46,0");
    EXPECT_EQ(pointText(roundedPoint({123.456789, -0.006}, 0.02)), L"123.46,-0.01");
    EXPECT_EQ(pointText(roundedPoint({123.456789, 7.5}, 40)), L"123,8") << "whole numbers at the least";
    EXPECT_EQ(pointText(roundedPoint({1.23456789012, 0}, 1e-30)), L"1.23456789,0") << "nine decimals at the most";
}

TEST(PointText, AFactorMayHaveAnXBehindIt) {
    EXPECT_EQ(parseFactor(L"2"), 2);
    EXPECT_EQ(parseFactor(L"0.5x"), 0.5);
    EXPECT_EQ(parseFactor(L"3X"), 3);
    for (const wchar_t* text : {L"", L"x", L"2xx", L"2 x", L"x2", L"two", L"nan", L"inf", L"1e999"})
        EXPECT_FALSE(parseFactor(text)) << testing::PrintToString(std::wstring(text));
}
