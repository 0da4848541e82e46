// Places of a drawing as the user reads them.

#include "UnitsText.h"

#include "KelEditor.h"
#include "instruments/HostCalls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using workbench::placeText;

TEST(UnitsText, APlaceIsWrittenInTheDrawingsUnits) {
    EXPECT_EQ(placeText({12.5, -3}), L"12.5000, -3.0000");
    EXPECT_EQ(placeText({0.00004, 99999.99996}), L"0.0000, 100000.0000");
    wchar_t byHost[256];
    keldbRToS(-1.23456, -1, -1, byHost);
    EXPECT_EQ(placeText({-1.23456, -1.23456}), std::wstring(byHost) + L", " + byHost);
}

TEST(UnitsText, WhatIsRoundedToZeroHasNoSign) {
    EXPECT_EQ(placeText({-0.00001, -0.0}), L"0.0000, 0.0000");
    EXPECT_EQ(placeText({-0.0001, -0.00006}), L"-0.0001, -0.0001");
}

TEST(UnitsText, APlaceFarAwayIsWrittenToo) {
    EXPECT_EQ(placeText({1e300, -1e16}), L"1.0000E+300, -1.0000E+16");
}

TEST(UnitsText, WritingAPlaceIsNoCallOfTheHost) {
    instruments::watch(true);
    placeText({1, 2});
    EXPECT_THAT(instruments::trace(), testing::IsEmpty());
    instruments::watch(false);
}
