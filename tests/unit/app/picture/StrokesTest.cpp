// Lines clipped to the window and broken into dashes.

#include "Strokes.h"

#include <gtest/gtest.h>

#include <limits>

using workbench::Pen;
using workbench::Point;
using workbench::Rect;
using workbench::StrokePlotter;
using workbench::Strokes;

namespace {

constexpr Rect kWindow{0, 0, 100, 100};

/// The strokes of a horizontal figure as pairs of x.
std::vector<std::pair<double, double>> spans(const Strokes& strokes) {
    std::vector<std::pair<double, double>> out;
    for (const auto& stroke : strokes.strokes)
        out.emplace_back(strokes.points[stroke.first].x, strokes.points[stroke.first + stroke.count - 1].x);
    return out;
}

std::vector<std::pair<double, double>> dashed(std::vector<Point> points, std::vector<double> pattern, double unit = 1) {
    Strokes strokes;
    StrokePlotter(strokes, kWindow).plotDashed(points, {}, pattern, unit);
    return spans(strokes);
}

using Spans = std::vector<std::pair<double, double>>;

} // namespace

TEST(Strokes, APolylineInsideIsOneRun) {
    Strokes strokes;
    const Point points[] = {{10, 10}, {20, 10}, {20, 30}};
    StrokePlotter(strokes, kWindow).plot(points, {0x112233, 2});
    ASSERT_EQ(strokes.strokes.size(), 1u);
    EXPECT_EQ(strokes.strokes[0].count, 3u);
    EXPECT_EQ(strokes.strokes[0].pen, (Pen{0x112233, 2}));
}

TEST(Strokes, APolylineThatLeavesAndComesBackIsTwoRuns) {
    Strokes strokes;
    const Point points[] = {{90, 10}, {120, 10}, {120, 50}, {80, 50}};
    StrokePlotter(strokes, kWindow).plot(points, {});
    EXPECT_EQ(spans(strokes), (Spans{{90, 100}, {100, 80}}));
}

TEST(Strokes, NothingOutsideReachesThePicture) {
    Strokes strokes;
    const Point points[] = {{-1e12, 50}, {1e12, 50}};
    StrokePlotter(strokes, kWindow).plot(points, {});
    ASSERT_EQ(strokes.points.size(), 2u);
    EXPECT_NEAR(strokes.points[0].x, 0, 1e-3);
    EXPECT_NEAR(strokes.points[1].x, 100, 1e-3);
}

TEST(Dashes, AlternateWithGaps) {
    EXPECT_EQ(dashed({{0, 5}, {30, 5}}, {8, -4}), (Spans{{0, 8}, {12, 20}, {24, 30}}));
}

TEST(Dashes, AreScaledByTheUnit) {
    EXPECT_EQ(dashed({{0, 5}, {30, 5}}, {4, -2}, 2), (Spans{{0, 8}, {12, 20}, {24, 30}}));
}

TEST(Dashes, ShowDotsAsSinglePoints) {
    EXPECT_EQ(dashed({{0, 5}, {20, 5}}, {6, -2, 0, -2}), (Spans{{0, 6}, {8, 8}, {10, 16}, {18, 18}}));
}

TEST(Dashes, KeepADotAtTheVeryStart) {
    EXPECT_EQ(dashed({{0, 5}, {9, 5}}, {0, -4}), (Spans{{0, 0}, {4, 4}, {8, 8}}));
}

TEST(Dashes, OfEndlessLengthShowTheirBeginning) {
    constexpr double kEndless = std::numeric_limits<double>::infinity();
    EXPECT_EQ(dashed({{0, 5}, {20, 5}}, {0, -4}, kEndless), (Spans{{0, 0}})) << "a dot stays one";
    EXPECT_EQ(dashed({{0, 5}, {20, 5}}, {8, -4}, kEndless), (Spans{{0, 20}}));
}

TEST(Dashes, RunOnAroundACorner) {
    EXPECT_EQ(dashed({{0, 5}, {10, 5}, {10, 5}, {20, 5}}, {8, -4}), (Spans{{0, 8}, {12, 20}}));
}

TEST(Dashes, KeepTheirPlaceWhenTheLineBeginsOutside) {
    EXPECT_EQ(dashed({{-14, 5}, {10, 5}}, {8, -4}), (Spans{{0, 6}}));
    EXPECT_EQ(dashed({{-24, 5}, {-12, 5}, {10, 5}}, {8, -4}), (Spans{{0, 8}}));
}

TEST(Dashes, TooFineToBeSeenAreAContinuousLine) {
    EXPECT_EQ(dashed({{0, 5}, {30, 5}}, {0.5, -0.5}), (Spans{{0, 30}}));
    EXPECT_EQ(dashed({{0, 5}, {30, 5}}, {0}), (Spans{{0, 30}}));
}

TEST(Dashes, SkipSegmentsWithoutLengthOrNumber) {
    constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(dashed({{0, 5}, {0, 5}, {6, 5}, {kNotANumber, 5}}, {8, -4}), (Spans{{0, 6}}));
}

TEST(Dashes, OfAnEndlessLineCostOnlyWhatIsSeen) {
    EXPECT_LE(dashed({{-1e9, 5}, {1e9, 5}}, {8, -4}).size(), 10u);
}
