// Where in the drawing the pointer is, on the model tab, on paper and in viewports, and how the wheel zooms in one.

#include "PointerPlace.h"
#include "HandmadeDrawing.h"

#include <gtest/gtest.h>

#include <limits>

using workbench::numberBox;
using workbench::placeAt;
using workbench::Point;
using workbench::PointerPlace;
using workbench::Rect;
using workbench::throughViewport;
using workbench::viewportUnder;
using workbench::ViewTransform;
using workbench::zoomed;

namespace {

void expectNear(Point actual, Point expected) {
    EXPECT_NEAR(actual.x, expected.x, 1e-6);
    EXPECT_NEAR(actual.y, expected.y, 1e-6);
}

void expectPlace(const PointerPlace& place, Point expected, bool onPaper) {
    expectNear(place.point, expected);
    EXPECT_EQ(place.onPaper, onPaper);
}

/// Two pixels for a millimetre of paper, with the lower left corner of the sheet at (10, 310).
const ViewTransform kSheet({0, 0}, 2, {10, 310});

/// A sheet with viewport 2 from (20, 30) to (120, 80), at half a millimetre for a unit around (1000, 500), and above it
/// viewport 3, which covers its right end.
class PointerPlaceTest : public testing::Test {
  protected:
    PointerPlaceTest() {
        zdr::Layout layout{L"A3", 420, 297, {}, {}};
        zdr::Viewport viewport;
        viewport.handle = 52;
        viewport.number = 2;
        viewport.corner = {20, 30};
        viewport.width = 100;
        viewport.height = 50;
        viewport.viewCenter = {1000, 500};
        viewport.scale = 0.5;
        layout.viewports.push_back(viewport);
        viewport.handle = 53;
        viewport.number = 3;
        viewport.corner = {100, 30};
        layout.viewports.push_back(viewport);
        drawing.layouts.push_back(layout);
        drawing.activeLayout = 0;
    }
    static Point onSheet(double x, double y) { return kSheet.toScreen({x, y}); }
    zdr::Viewport& second() { return drawing.layouts[0].viewports[0]; }

    zdr::Drawing drawing = handmade::emptyDrawing();
};

} // namespace

TEST_F(PointerPlaceTest, IsInModelSpaceOnTheModelTab) {
    drawing.activeLayout.reset();
    expectPlace(placeAt(drawing, kSheet, {10, 310}), {0, 0}, false);
    expectPlace(placeAt(drawing, kSheet, {50, 300}), {20, 5}, false);
    EXPECT_EQ(viewportUnder(drawing, kSheet, onSheet(50, 50)), nullptr);
}

TEST_F(PointerPlaceTest, IsOnThePaperOfASheetWhileNoViewportIsCurrent) {
    expectPlace(placeAt(drawing, kSheet, onSheet(70, 55)), {70, 55}, true);
}

TEST_F(PointerPlaceTest, IsInModelSpaceInsideTheCurrentViewportAlone) {
    drawing.currentViewport = 52;
    expectPlace(placeAt(drawing, kSheet, onSheet(70, 55)), {1000, 500}, false);
    expectPlace(placeAt(drawing, kSheet, onSheet(80, 45)), {1020, 480}, false);
    expectPlace(placeAt(drawing, kSheet, onSheet(19, 55)), {19, 55}, true);
    expectPlace(placeAt(drawing, kSheet, onSheet(150, 55)), {150, 55}, true);
    expectPlace(placeAt(drawing, kSheet, onSheet(110, 55)), {110, 55}, true);
    drawing.currentViewport = 53;
    expectPlace(placeAt(drawing, kSheet, onSheet(110, 55)), {920, 500}, false);
}

TEST_F(PointerPlaceTest, TellsTheTopmostViewportThatIsOn) {
    EXPECT_EQ(viewportUnder(drawing, kSheet, onSheet(70, 55))->number, 2);
    EXPECT_EQ(viewportUnder(drawing, kSheet, onSheet(110, 55))->number, 3);
    EXPECT_EQ(viewportUnder(drawing, kSheet, onSheet(70, 5)), nullptr);
    drawing.layouts[0].viewports[1].number = -1;
    EXPECT_EQ(viewportUnder(drawing, kSheet, onSheet(110, 55))->number, 2);
}

TEST_F(PointerPlaceTest, ViewsModelSpaceThroughAViewportAsThePictureDoes) {
    const auto through = throughViewport(second(), kSheet);
    ASSERT_TRUE(through);
    EXPECT_DOUBLE_EQ(through->scale(), 1);
    expectNear(through->toScreen({1000, 500}), onSheet(70, 55));
    expectNear(through->toScreen({920, 500}), onSheet(30, 55));
}

TEST_F(PointerPlaceTest, AViewportWithAScaleThatShowsNothingIsAsPaper) {
    drawing.currentViewport = 52;
    for (const double scale : {0.0, -0.5, std::numeric_limits<double>::quiet_NaN()}) {
        second().scale = scale;
        expectPlace(placeAt(drawing, kSheet, onSheet(70, 55)), {70, 55}, true);
        EXPECT_FALSE(zoomed(second(), kSheet, 2, onSheet(70, 55)));
    }
}

TEST_F(PointerPlaceTest, ZoomingAViewportKeepsWhatIsUnderThePointer) {
    const Point pixel = onSheet(40, 70);
    const Point under = throughViewport(second(), kSheet)->toPlane(pixel);
    const auto shown = zoomed(second(), kSheet, 1.25, pixel);
    ASSERT_TRUE(shown);
    EXPECT_DOUBLE_EQ(shown->scale, 0.625);
    second().viewCenter = shown->center;
    second().scale = shown->scale;
    expectNear(throughViewport(second(), kSheet)->toPlane(pixel), under);
    const auto back = zoomed(second(), kSheet, 1 / 1.25, pixel);
    EXPECT_NEAR(back->scale, 0.5, 1e-12);
    expectNear(back->center, {1000, 500});
}

TEST_F(PointerPlaceTest, ZoomingAViewportStaysWithinMeaningfulScales) {
    for (const double factor : {1e9, 1e-9}) {
        for (int i = 0; i < 10; ++i) {
            const auto shown = zoomed(second(), kSheet, factor, onSheet(70, 55));
            ASSERT_TRUE(shown);
            second().scale = shown->scale;
        }
        EXPECT_GE(second().scale, 1e-10);
        EXPECT_LE(second().scale, 1e6);
    }
}

TEST_F(PointerPlaceTest, TheNumberStandsInTheUpperLeftCornerOfWhatIsInSightOfTheViewport) {
    const Rect window{0, 0, 400, 320};
    const auto box = [&](const ViewTransform& sheet) { return numberBox(second(), sheet, window, 60, 20); };
    expectNear({box(kSheet).left, box(kSheet).bottom}, onSheet(20, 80));
    EXPECT_DOUBLE_EQ(box(kSheet).width(), 60);
    EXPECT_DOUBLE_EQ(box(kSheet).height(), 20);
    const Rect large = box(ViewTransform({70, 55}, 100, {200, 160}));
    expectNear({large.left, large.bottom}, {0, 0});
    const Rect atTheEnd = box(ViewTransform({20, 80}, 2, {390, 315}));
    expectNear({atTheEnd.right, atTheEnd.top}, {400, 320});
    const Rect narrow = numberBox(second(), kSheet, {0, 0, 30, 10}, 60, 20);
    expectNear({narrow.left, narrow.bottom}, {0, 0});
}
