// A linetype's pattern along its sample.

#include "DashSample.h"

#include <gmock/gmock.h>

#include <limits>

using pickers::Dash;
using pickers::dashesOf;
using testing::ElementsAre;

namespace {

constexpr double kPattern[] = {6, -2};

} // namespace

TEST(DashSample, aContinuousLineIsOneDash) {
    EXPECT_THAT(dashesOf({}, 100, 1), ElementsAre(Dash{0, 100}));
}

TEST(DashSample, dashesAreAsLongAsOnPaper) {
    EXPECT_THAT(dashesOf(kPattern, 24, 1), ElementsAre(Dash{0, 6}, Dash{8, 14}, Dash{16, 22}));
    EXPECT_THAT(dashesOf(kPattern, 32, 2), ElementsAre(Dash{0, 12}, Dash{16, 28}));
}

TEST(DashSample, theLastDashEndsWithTheSample) {
    EXPECT_THAT(dashesOf(kPattern, 20, 1), ElementsAre(Dash{0, 6}, Dash{8, 14}, Dash{16, 20}));
}

TEST(DashSample, aDotHasNoLength) {
    constexpr double dots[] = {4, -2, 0, -2};
    EXPECT_THAT(dashesOf(dots, 16, 1), ElementsAre(Dash{0, 4}, Dash{6, 6}, Dash{8, 12}, Dash{14, 14}));
}

TEST(DashSample, aLongPatternIsReducedUntilItStandsThereTwice) {
    constexpr double pattern[] = {60, -20};
    EXPECT_THAT(dashesOf(pattern, 40, 1), ElementsAre(Dash{0, 15}, Dash{20, 35}));
}

TEST(DashSample, roundingDoesNotAddUp) {
    constexpr double pattern[] = {1.4, -1.4, 1.4, -1.4};
    const auto dashes = dashesOf(pattern, 280, 1);
    ASSERT_EQ(dashes.size(), 100u);
    EXPECT_EQ(dashes[50], (Dash{140, 141}));
}

TEST(DashSample, whatCannotBeSeenAsAPatternIsContinuous) {
    constexpr double fine[] = {0.5, -0.5};
    constexpr double dotsAlone[] = {0, 0};
    constexpr double senseless[] = {std::numeric_limits<double>::quiet_NaN(), -1};
    constexpr double endless[] = {std::numeric_limits<double>::infinity(), -1};
    for (const auto& pattern : {fine, dotsAlone, senseless, endless})
        EXPECT_THAT(dashesOf({pattern, 2}, 50, 1), ElementsAre(Dash{0, 50}));
}

TEST(DashSample, withoutRoomThereIsNothing) {
    EXPECT_THAT(dashesOf(kPattern, 0, 1), ElementsAre());
    EXPECT_THAT(dashesOf(kPattern, -5, 1), ElementsAre());
}
