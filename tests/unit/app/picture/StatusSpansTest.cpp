// Where the fields of the status line stand, in lines with and without room for all.

#include "StatusSpans.h"

#include <gtest/gtest.h>

using workbench::arrangeStatus;
using workbench::StatusSpan;
using workbench::StatusSpans;
using workbench::StatusWidths;

namespace {

constexpr StatusWidths kWidths{100, 120, 200, 150};

void expectSpan(const StatusSpan& span, int left, int right) {
    EXPECT_EQ(span.left, left);
    EXPECT_EQ(span.right, right);
}

} // namespace

TEST(StatusSpans, FillTheLineFromBothEndsWithTheMessageBetween) {
    const StatusSpans spans = arrangeStatus(1000, kWidths);
    expectSpan(spans.layer, 0, 100);
    expectSpan(spans.space, 100, 220);
    expectSpan(spans.message, 220, 650);
    expectSpan(spans.place, 650, 850);
    expectSpan(spans.references, 850, 1000);
}

TEST(StatusSpans, HaveNoFieldForWhatIsntThere) {
    const StatusSpans spans = arrangeStatus(1000, {0, 0, 200, 0});
    EXPECT_TRUE(spans.layer.isEmpty());
    EXPECT_TRUE(spans.space.isEmpty());
    EXPECT_TRUE(spans.references.isEmpty());
    expectSpan(spans.message, 0, 800);
    expectSpan(spans.place, 800, 1000);
}

TEST(StatusSpans, GiveANameAQuarterOfTheLineAtTheMost) {
    const StatusSpans spans = arrangeStatus(1000, {2000, 3000, 0, 0});
    expectSpan(spans.layer, 0, 250);
    expectSpan(spans.space, 250, 500);
    expectSpan(spans.message, 500, 1000);
}

TEST(StatusSpans, GiveANameAThirdOfWhatTheRightEndLeaves) {
    const StatusSpans spans = arrangeStatus(600, {2000, 3000, 200, 100});
    expectSpan(spans.layer, 0, 100);
    expectSpan(spans.space, 100, 200);
    expectSpan(spans.message, 200, 300);
    expectSpan(spans.place, 300, 500);
}

TEST(StatusSpans, LeaveThePlaceOutWhereLessThanAThirdWouldBeLeft) {
    expectSpan(arrangeStatus(525, kWidths).place, 175, 375);
    const StatusSpans spans = arrangeStatus(522, kWidths);
    EXPECT_TRUE(spans.place.isEmpty());
    expectSpan(spans.references, 372, 522);
    expectSpan(spans.message, 220, 372);
}

TEST(StatusSpans, LeaveTheReferencesOutWhereTheyAloneWouldTakeTooMuch) {
    const StatusSpans spans = arrangeStatus(200, kWidths);
    EXPECT_TRUE(spans.references.isEmpty());
    EXPECT_TRUE(spans.place.isEmpty());
    expectSpan(spans.message, 100, 200);
    EXPECT_EQ(arrangeStatus(0, {}), StatusSpans{});
}
