// The mapping between a drawing's plane and the window.

#include "Geometry.h"

#include <gtest/gtest.h>

#include <limits>

using workbench::clipSegment;
using workbench::Point;
using workbench::Rect;
using workbench::ViewTransform;

namespace {

void expectNear(Point actual, Point expected) {
    EXPECT_NEAR(actual.x, expected.x, 1e-6);
    EXPECT_NEAR(actual.y, expected.y, 1e-6);
}

} // namespace

TEST(ViewTransform, FitsTheExtentsIntoTheTighterDirection) {
    const auto view = ViewTransform::fitting({0, 0, 1000, 100}, 220, 200, 10);
    EXPECT_DOUBLE_EQ(view.scale(), 0.2);
    expectNear(view.toScreen({0, 50}), {10, 100});
    expectNear(view.toScreen({1000, 50}), {210, 100});
}

TEST(ViewTransform, HasYUpInThePlaneAndDownOnTheScreen) {
    const auto view = ViewTransform::fitting({0, 0, 100, 100}, 100, 100, 0);
    EXPECT_GT(view.toScreen({0, 0}).y, view.toScreen({0, 100}).y);
}

TEST(ViewTransform, ZoomKeepsWhatLiesUnderThePointer) {
    auto view = ViewTransform::fitting({0, 0, 100, 100}, 400, 300, 0);
    const Point under = view.toPlane({37, 211});
    view.zoom(1.7, {37, 211});
    expectNear(view.toPlane({37, 211}), under);
    EXPECT_NEAR(view.scale(), 3 * 1.7, 1e-9);
}

TEST(ViewTransform, PanMovesThePictureWithThePointer) {
    auto view = ViewTransform::fitting({0, 0, 100, 100}, 400, 300, 0);
    const Point before = view.toScreen({20, 30});
    view.pan(15, -4);
    expectNear(view.toScreen({20, 30}), {before.x + 15, before.y - 4});
}

TEST(ViewTransform, StaysWithinMeaningfulScales) {
    auto view = ViewTransform::fitting({0, 0, 100, 100}, 400, 300, 0);
    for (int i = 0; i < 200; ++i)
        view.zoom(10, {200, 150});
    EXPECT_LE(view.scale(), 1e6);
    for (int i = 0; i < 400; ++i)
        view.zoom(0.1, {200, 150});
    EXPECT_GT(view.scale(), 0);
}

TEST(ViewTransform, ShowsAnEmptyDrawingAroundTheOrigin) {
    const auto view = ViewTransform::fitting({}, 400, 300, 10);
    expectNear(view.toScreen({0, 0}), {200, 150});
}

TEST(ViewTransform, ShowsASinglePointInTheMiddle) {
    const auto view = ViewTransform::fitting({5, 5, 5, 5}, 400, 300, 10);
    expectNear(view.toScreen({5, 5}), {200, 150});
}

TEST(ViewTransform, ShowsARectangleAsLargeAsItFits) {
    const ViewTransform before({0, 0}, 7, {200, 150});
    const auto wide = before.showing({10, 20, 110, 30}, 400, 300);
    ASSERT_TRUE(wide);
    EXPECT_DOUBLE_EQ(wide->scale(), 4);
    expectNear(wide->toScreen({60, 25}), {200, 150});
    const auto high = before.showing({10, 20, 11, 120}, 400, 300);
    ASSERT_TRUE(high);
    EXPECT_DOUBLE_EQ(high->scale(), 3);
    const auto flat = before.showing({10, 20, 110, 20}, 400, 300);
    ASSERT_TRUE(flat) << "a line along an axis";
    EXPECT_DOUBLE_EQ(flat->scale(), 4);
    const auto point = before.showing({10, 20, 10, 20}, 400, 300);
    ASSERT_TRUE(point);
    EXPECT_DOUBLE_EQ(point->scale(), 7) << "a point decides no scale";
    expectNear(point->toScreen({10, 20}), {200, 150});
}

TEST(ViewTransform, ShowsNoRectangleBeyondMeaningfulScales) {
    const ViewTransform before({0, 0}, 1, {200, 150});
    EXPECT_TRUE(before.showing({0, 0, 4e-4, 1e-4}, 400, 300)) << "the largest scale";
    EXPECT_FALSE(before.showing({0, 0, 3e-4, 1e-4}, 400, 300));
    EXPECT_TRUE(before.showing({0, 0, 3e11, 3e11}, 400, 300));
    EXPECT_FALSE(before.showing({0, 0, 3.1e11, 3.1e11}, 400, 300));
    EXPECT_FALSE(before.showing({-1.7e308, 0, 1.7e308, 1}, 400, 300)) << "a width that no number holds";
}

TEST(ViewTransform, KeepsItsCentreWhenTheWindowGrows) {
    auto view = ViewTransform::fitting({0, 0, 100, 100}, 400, 300, 0);
    view.resize(100, 50);
    expectNear(view.toScreen({50, 50}), {250, 175});
}

TEST(Rect, PassesOverPointsThatAreNoNumbers) {
    Rect rect;
    rect.add(Point{std::numeric_limits<double>::quiet_NaN(), 0});
    EXPECT_TRUE(rect.isEmpty());
    rect.add(Point{1, 2});
    rect.add(Point{std::numeric_limits<double>::infinity(), 0});
    EXPECT_EQ(rect.right, 1);
}

TEST(ClipSegment, KeepsThePartInside) {
    const auto part = clipSegment({-10, 5}, {30, 5}, {0, 0, 10, 10});
    ASSERT_TRUE(part);
    EXPECT_DOUBLE_EQ(part->first, 0.25);
    EXPECT_DOUBLE_EQ(part->second, 0.5);
}

TEST(ClipSegment, MissesWhatPassesACorner) {
    EXPECT_FALSE(clipSegment({-5, 8}, {8, 21}, {0, 0, 10, 10}));
    EXPECT_FALSE(clipSegment({11, 0}, {11, 10}, {0, 0, 10, 10}));
}
