// A transfer that is too slow is told from one that keeps up.

#include "TransferPace.h"

#include <gtest/gtest.h>

using remote::TransferPace;
using namespace std::chrono_literals;

namespace {

constexpr remote::LeastPace kLeast{1'000, 30s};

struct Clocked : testing::Test {
    const TransferPace::Clock::time_point start{};
    TransferPace pace{kLeast, start};
};
using Pace = Clocked;

TEST_F(Pace, aSpanHasToEndBeforeAnythingIsTooSlow) {
    EXPECT_TRUE(pace.keepsUp(0, start + 29'999ms));
    EXPECT_FALSE(pace.keepsUp(0, start + 30s));
}

TEST_F(Pace, exactlyTheLeastIsEnough) {
    EXPECT_TRUE(pace.keepsUp(30'000, start + 30s));
}

TEST_F(Pace, aByteLessIsTooSlow) {
    EXPECT_FALSE(pace.keepsUp(29'999, start + 30s));
}

TEST_F(Pace, eachSpanCountsForItself) {
    EXPECT_TRUE(pace.keepsUp(1'000'000, start + 30s)); // what came early doesn't help later
    EXPECT_TRUE(pace.keepsUp(1'000'000, start + 59s));
    EXPECT_FALSE(pace.keepsUp(1'029'999, start + 60s));
}

TEST_F(Pace, aSpanThatLastedLongerAsksForMore) {
    EXPECT_FALSE(pace.keepsUp(59'999, start + 60s));
}

} // namespace
