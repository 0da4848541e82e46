// Drawings as they are put on the screen.

#include "Picture.h"
#include "HandmadeDrawing.h"

#include <gtest/gtest.h>

#include <numbers>

using workbench::layoutPicture;
using workbench::modelExtents;
using workbench::modelPicture;
using workbench::Picture;
using workbench::Screen;
using workbench::viewportAt;
using workbench::ViewTransform;

namespace {

std::uint32_t testRgb(int index) {
    return 0x010000u + static_cast<std::uint32_t>(index);
}

Screen testScreen() {
    Screen screen;
    screen.width = 400;
    screen.height = 300;
    screen.pixelsPerMillimetre = 4;
    screen.modelForeground = 0xEEEEEE;
    screen.paperForeground = 0x111111;
    screen.paletteRgb = testRgb;
    return screen;
}

/// One unit of the plane is one pixel, and the origin is the lower left corner.
const ViewTransform kOneToOne({0, 0}, 1, {0, 300});

zdr::Viewport viewport(std::int16_t number, zdr::Point corner) {
    zdr::Viewport viewport;
    viewport.handle = 100u + static_cast<unsigned>(number);
    viewport.number = number;
    viewport.corner = corner;
    viewport.width = 100;
    viewport.height = 50;
    viewport.viewCenter = {50, 0};
    return viewport;
}

class PictureTest : public testing::Test {
  protected:
    zdr::Drawing drawing = handmade::emptyDrawing();
    Screen screen = testScreen();
    Picture model() { return modelPicture(drawing, kOneToOne, screen); }
};

} // namespace

TEST_F(PictureTest, DrawsALineInItsLayersColourAndWeight) {
    handmade::addLine(drawing, handmade::addLayer(drawing, L"A", {zdr::kLayerOn, 3, L"Continuous", 100}));
    const Picture picture = model();
    const auto& strokes = picture.parts.at(0).strokes;
    ASSERT_EQ(strokes.strokes.size(), 1u);
    EXPECT_EQ(strokes.strokes[0].pen.rgb, 0x010003u);
    EXPECT_EQ(strokes.strokes[0].pen.width, 4) << "one millimetre at four pixels each";
    EXPECT_DOUBLE_EQ(strokes.points[1].x, 100);
    EXPECT_DOUBLE_EQ(strokes.points[1].y, 300);
    EXPECT_FALSE(picture.paper);
}

TEST_F(PictureTest, LeavesOutWhatLiesOnAHiddenLayer) {
    handmade::addLine(drawing, handmade::addLayer(drawing, L"A", {zdr::kLayerFrozen | zdr::kLayerOn}));
    EXPECT_TRUE(model().parts.at(0).strokes.strokes.empty());
}

TEST_F(PictureTest, BreaksLinesIntoTheirPatternWhateverTheZoom) {
    handmade::addLine(drawing, handmade::addLayer(drawing, L"A", {zdr::kLayerOn, 7, L"Dashed"}), 72);
    EXPECT_EQ(model().parts.at(0).strokes.strokes.size(), 2u) << "a repeat is 9 mm, 36 pixels";
    const Picture close = modelPicture(drawing, ViewTransform({0, 0}, 5, {0, 300}), screen);
    EXPECT_EQ(close.parts.at(0).strokes.strokes.size(), 10u);
}

TEST_F(PictureTest, MakesPatternsLongerByTheLinetypeScale) {
    handmade::addLine(drawing, handmade::addLayer(drawing, L"A", {zdr::kLayerOn, 7, L"Dashed"}), 72);
    screen.linetypeScale = 0.5;
    EXPECT_EQ(model().parts.at(0).strokes.strokes.size(), 4u) << "a repeat is 4.5 mm, 18 pixels";
    for (const double scale : {2.0, 1e300, 1.7e308}) {
        screen.linetypeScale = scale;
        EXPECT_EQ(model().parts.at(0).strokes.strokes.size(), 1u) << scale << ": the line ends before the first gap";
    }
    screen.linetypeScale = 1e-300;
    EXPECT_EQ(model().parts.at(0).strokes.strokes.size(), 1u) << "too fine to be seen";
}

TEST_F(PictureTest, ShowsTheForegroundAndTrueColours) {
    handmade::addLine(drawing, handmade::addLayer(drawing, L"A", {zdr::kLayerOn, 7}));
    handmade::addLine(drawing, handmade::addLayer(drawing, L"B", {zdr::kLayerOn, 0xC2112233}));
    const auto strokes = model().parts.at(0).strokes.strokes;
    EXPECT_EQ(strokes.at(0).pen.rgb, 0xEEEEEEu);
    EXPECT_EQ(strokes.at(1).pen.rgb, 0x332211u) << "red in the low byte";
}

TEST_F(PictureTest, PutsTextWhereItBelongs) {
    zdr::Entity entity;
    entity.layer = handmade::addLayer(drawing, L"A");
    entity.geometry = zdr::Text{{20, 30}, 10, std::numbers::pi / 2, L"Bath"};
    drawing.entities.push_back(entity);
    const Picture picture = model();
    const auto& labels = picture.parts.at(0).labels;
    ASSERT_EQ(labels.size(), 1u);
    EXPECT_EQ(labels[0].text, L"Bath");
    EXPECT_DOUBLE_EQ(labels[0].position.y, 270);
    EXPECT_DOUBLE_EQ(labels[0].height, 10);
    EXPECT_DOUBLE_EQ(labels[0].rotation, std::numbers::pi / 2);
}

TEST_F(PictureTest, DrawsAnArcCounterClockwise) {
    zdr::Entity entity;
    entity.layer = handmade::addLayer(drawing, L"A");
    entity.geometry = zdr::Arc{{100, 100}, 50, 1.5 * std::numbers::pi, 0.5 * std::numbers::pi};
    drawing.entities.push_back(entity);
    const auto extents = modelExtents(drawing);
    EXPECT_NEAR(extents.left, 100, 0.001);
    EXPECT_NEAR(extents.right, 150, 0.001);
    EXPECT_NEAR(extents.bottom, 50, 0.001);
}

TEST_F(PictureTest, PlacesWhatReferencesShow) {
    auto shown = std::make_shared<zdr::Drawing>(handmade::emptyDrawing());
    handmade::addLine(*shown, handmade::addLayer(*shown, L"Fence"), 10);
    drawing.references.push_back({L"site", L"site.zdr", {100, 100}, 2, std::numbers::pi / 2, shown});
    drawing.references.push_back({L"gone", L"gone.zdr", {}, 1, 0, nullptr});
    const Picture picture = model();
    const auto& strokes = picture.parts.at(0).strokes;
    ASSERT_EQ(strokes.strokes.size(), 1u);
    EXPECT_NEAR(strokes.points[1].x, 100, 1e-9);
    EXPECT_NEAR(strokes.points[1].y, 300 - 120, 1e-9);
    EXPECT_NEAR(modelExtents(drawing).top, 120, 1e-9);
}

TEST_F(PictureTest, ClipsEachViewportToItsBoxWithItsOwnFreezing) {
    handmade::addLine(drawing, handmade::addLayer(drawing, L"A"), 1000);
    zdr::Layout layout{
        L"Sheet", 297, 210, {viewport(2, {10, 10}), viewport(3, {10, 100}), viewport(-1, {150, 10})}, {}};
    layout.viewports[1].frozen = {true};
    drawing.currentViewport = layout.viewports[1].handle;
    const Picture picture = layoutPicture(drawing, layout, kOneToOne, screen);
    ASSERT_EQ(picture.frames.size(), 2u) << "one viewport isn't on";
    EXPECT_FALSE(picture.frames[0].current);
    EXPECT_TRUE(picture.frames[1].current);
    ASSERT_EQ(picture.parts.size(), 3u) << "two viewports and the paper";
    EXPECT_EQ(picture.parts[0].strokes.strokes.size(), 1u);
    EXPECT_EQ(picture.parts[0].strokes.strokes[0].pen.rgb, 0x111111u);
    EXPECT_TRUE(picture.parts[1].strokes.strokes.empty());
    EXPECT_DOUBLE_EQ(picture.parts[0].clip.left, 10);
    EXPECT_DOUBLE_EQ(picture.parts[0].clip.right, 110);
    EXPECT_DOUBLE_EQ(picture.parts[0].clip.bottom, 300 - 60);
    ASSERT_TRUE(picture.paper);
    EXPECT_DOUBLE_EQ(picture.paper->right, 297);
}

TEST_F(PictureTest, ScalesModelSpaceInAViewport) {
    handmade::addLine(drawing, handmade::addLayer(drawing, L"A"), 100);
    zdr::Layout layout{L"Sheet", 297, 210, {viewport(2, {0, 0})}, {}};
    layout.viewports[0].scale = 0.5;
    const Picture picture = layoutPicture(drawing, layout, kOneToOne, screen);
    const auto& points = picture.parts.at(0).strokes.points;
    EXPECT_DOUBLE_EQ(points.at(0).x, 25);
    EXPECT_DOUBLE_EQ(points.at(1).x, 75);
    EXPECT_DOUBLE_EQ(points.at(1).y, 300 - 25);
}

TEST_F(PictureTest, FindsTheViewportUnderAPoint) {
    zdr::Layout layout{L"Sheet", 297, 210, {viewport(2, {10, 10}), viewport(3, {50, 10}), viewport(-1, {10, 100})}, {}};
    ASSERT_NE(viewportAt(layout, {20, 20}), nullptr);
    EXPECT_EQ(viewportAt(layout, {20, 20})->number, 2);
    EXPECT_EQ(viewportAt(layout, {60, 20})->number, 3) << "the one on top";
    EXPECT_EQ(viewportAt(layout, {20, 110}), nullptr) << "not on";
    EXPECT_EQ(viewportAt(layout, {200, 200}), nullptr);
}

TEST_F(PictureTest, PassesOverEntitiesOfLayersThatDontExist) {
    handmade::addLine(drawing, 7);
    EXPECT_TRUE(model().parts.at(0).strokes.strokes.empty());
}
