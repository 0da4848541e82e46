// What a user reads about something that takes long.

#include "ProgressText.h"

#include <gtest/gtest.h>

#include <utility>

using namespace std::chrono_literals;
using namespace progress;

namespace {

constexpr std::uint64_t kKilo = 1024;

TEST(ProgressText, sizesAreSaidInUnitsThatPeopleKnow) {
    const std::pair<std::uint64_t, const wchar_t*> rows[] = {
        {0, L"0 bytes"},
        {1, L"1 byte"},
        {1023, L"1023 bytes"},
        {1024, L"1.0 KB"},
        {1536, L"1.5 KB"},
        {10 * kKilo - 1, L"10 KB"},
        {10 * kKilo, L"10 KB"},
        {999 * kKilo, L"999 KB"},
        {1000 * kKilo, L"1.0 MB"},
        {kKilo * kKilo, L"1.0 MB"},
        {200 * kKilo * kKilo, L"200 MB"},
        {kKilo * kKilo * kKilo, L"1.0 GB"},
        {4'294'967'294, L"4.0 GB"},
        {5000 * kKilo * kKilo * kKilo, L"5000 GB"},
    };
    for (const auto& [bytes, text] : rows)
        EXPECT_EQ(sizeText(bytes), text) << bytes;
}

TEST(ProgressText, theAmountIsSaidOutOfAll) {
    EXPECT_EQ(amountText(1536, 23 * kKilo * kKilo), L"1.5 KB of 23 MB");
}

TEST(ProgressText, theTimeLeftIsWhatTheRestTakesAtTheSpeedSoFar) {
    const std::pair<std::uint64_t, const wchar_t*> rows[] = {
        {50, L"A few seconds left"},    // 2 s for 50 of 100
        {20, L"A few seconds left"},    // 8 s
        {10, L"About 20 seconds left"}, // 18 s
        {4, L"About 50 seconds left"},  // 48 s
        {3, L"About 1 minute left"},    // 65 s
        {1, L"About 3 minutes left"},   // 198 s
    };
    for (const auto& [done, text] : rows)
        EXPECT_EQ(timeLeftText(done, 100, 2s), text) << done;
    EXPECT_EQ(timeLeftText(1, 1000, 1h), L"About 999 hours left");
    EXPECT_EQ(timeLeftText(100, 200, 1h), L"About 1 hour left");
    EXPECT_EQ(timeLeftText(100, 190, 1h), L"About 54 minutes left");
}

TEST(ProgressText, theTimeLeftIsntGuessedFromTooLittle) {
    EXPECT_EQ(timeLeftText(1, 100, 1'999ms), L"");
    EXPECT_EQ(timeLeftText(0, 100, 1h), L"");
    EXPECT_EQ(timeLeftText(100, 100, 1h), L"");
    EXPECT_EQ(timeLeftText(5, 0, 1h), L"");
}

TEST(ProgressText, aBarIsFilledAsFarAndNoFurther) {
    EXPECT_EQ(barPosition(0, 200, 1000), 0);
    EXPECT_EQ(barPosition(1, 200, 1000), 5);
    EXPECT_EQ(barPosition(200, 200, 1000), 1000);
    EXPECT_EQ(barPosition(201, 200, 1000), 1000);
    EXPECT_EQ(barPosition(4'000'000'000'000, 8'000'000'000'000, 1000), 500);
    EXPECT_EQ(barPosition(5, 0, 1000), 0);
}

} // namespace
