// Where what lies on some layers is drawn.

#include "LayerExtents.h"
#include "HandmadeDrawing.h"

#include <gtest/gtest.h>

using workbench::LayerExtents;
using workbench::layerExtents;
using workbench::Rect;

namespace {

void expectRect(const Rect& rect, const Rect& expected) {
    EXPECT_NEAR(rect.left, expected.left, 1e-6);
    EXPECT_NEAR(rect.bottom, expected.bottom, 1e-6);
    EXPECT_NEAR(rect.right, expected.right, 1e-6);
    EXPECT_NEAR(rect.top, expected.top, 1e-6);
}

zdr::Entity lineOn(std::size_t layer, zdr::Point from, zdr::Point to) {
    zdr::Entity entity;
    entity.layer = layer;
    entity.geometry = zdr::Line{from, to};
    return entity;
}

/// Two layers with a line each. The layer Walls is wanted, unless a test says otherwise.
class LayerExtentsTest : public testing::Test {
  protected:
    LayerExtentsTest() { drawing.entities = {lineOn(walls, {0, 0}, {100, 50}), lineOn(doors, {500, 500}, {600, 600})}; }
    LayerExtents extents() const { return layerExtents(drawing, wanted); }
    void setFlags(std::size_t layer, std::uint8_t flags) {
        std::vector<std::uint8_t> all(drawing.columns.flags.values().begin(), drawing.columns.flags.values().end());
        all[layer] = flags;
        drawing.columns.flags = zdr::Column<std::uint8_t>(std::move(all));
    }
    /// Shows a sheet with one viewport of 100 by 50 at that corner, which shows model space at its origin 1:1.
    zdr::Viewport& showSheet(zdr::Point corner) {
        zdr::Viewport viewport;
        viewport.number = 2;
        viewport.corner = corner;
        viewport.width = 100;
        viewport.height = 50;
        viewport.viewCenter = {50, 25};
        drawing.layouts = {zdr::Layout{L"Sheet", 297, 210, {viewport}, {}}};
        drawing.activeLayout = 0;
        return drawing.layouts[0].viewports[0];
    }

    zdr::Drawing drawing = handmade::emptyDrawing();
    std::size_t walls = handmade::addLayer(drawing, L"Walls");
    std::size_t doors = handmade::addLayer(drawing, L"Doors");
    std::vector<bool> wanted{true, false};
};

} // namespace

TEST_F(LayerExtentsTest, HoldAllThatLiesOnTheLayersThatAreMeant) {
    expectRect(extents().drawn, {0, 0, 100, 50});
    wanted = {true, true};
    expectRect(extents().drawn, {0, 0, 600, 600});
    wanted = {false, false};
    EXPECT_TRUE(extents().drawn.isEmpty());
    EXPECT_FALSE(extents().isHidden);
}

TEST_F(LayerExtentsTest, LeaveOutWhatIsHiddenAndTellOfIt) {
    for (const std::uint8_t flags : {std::uint8_t{0}, std::uint8_t{zdr::kLayerOn | zdr::kLayerFrozen}}) {
        setFlags(walls, flags);
        EXPECT_TRUE(extents().drawn.isEmpty());
        EXPECT_TRUE(extents().isHidden);
    }
    wanted = {true, true};
    expectRect(extents().drawn, {500, 500, 600, 600});
    EXPECT_TRUE(extents().isHidden);
    wanted = {false, true};
    EXPECT_FALSE(extents().isHidden) << "what isn't meant doesn't count";
}

TEST_F(LayerExtentsTest, HoldWhatReferencesShowOnTheirLayersInThisDrawing) {
    auto shown = std::make_shared<zdr::Drawing>(handmade::emptyDrawing());
    const std::size_t fence = handmade::addLayer(*shown, L"Fence");
    const std::size_t untold = handmade::addLayer(*shown, L"Untold");
    shown->entities = {lineOn(fence, {0, 0}, {10, 5}), lineOn(untold, {0, 0}, {1000, 1000})};
    drawing.references.push_back({L"site", L"site.zdr", {100, 100}, 2, 0, shown});
    drawing.references.push_back({L"gone", L"gone.zdr", {}, 1, 0, nullptr});
    const std::size_t layer = handmade::addLayer(drawing, L"site!Fence");
    drawing.layers[layer].reference = 0;
    wanted = {false, false, true};
    expectRect(extents().drawn, {100, 100, 120, 110});
    setFlags(layer, zdr::kLayerFrozen);
    EXPECT_TRUE(extents().drawn.isEmpty());
    EXPECT_TRUE(extents().isHidden);
}

TEST_F(LayerExtentsTest, OnASheetAreInItsUnitsAndEndAtTheViewport) {
    zdr::Viewport& viewport = showSheet({20, 30});
    expectRect(extents().drawn, {20, 30, 120, 80});
    viewport.scale = 2; // now it shows the middle half of that
    expectRect(extents().drawn, {20, 30, 120, 80});
    viewport.viewCenter = {100, 50}; // now the line ends in the middle of the viewport
    expectRect(extents().drawn, {20, 30, 70, 55});
    viewport.viewCenter = {1000, 1000};
    EXPECT_TRUE(extents().drawn.isEmpty());
    EXPECT_FALSE(extents().isHidden) << "what lies beside the box isn't hidden, it is elsewhere";
}

TEST_F(LayerExtentsTest, OnASheetEachViewportHidesWhatItFreezes) {
    zdr::Viewport other = showSheet({20, 30});
    zdr::Layout& layout = drawing.layouts[0];
    layout.viewports[0].frozen = {true, false};
    EXPECT_TRUE(extents().drawn.isEmpty());
    EXPECT_TRUE(extents().isHidden);
    other.corner = {20, 100};
    layout.viewports.push_back(other);
    expectRect(extents().drawn, {20, 100, 120, 150});
    layout.viewports[1].number = -1; // off
    EXPECT_TRUE(extents().drawn.isEmpty());
}

TEST_F(LayerExtentsTest, OnASheetHoldWhatLiesOnThePaperItself) {
    showSheet({20, 30}).viewCenter = {1000, 1000};
    drawing.layouts[0].entities = {lineOn(walls, {-5, 2}, {7, 2})};
    expectRect(extents().drawn, {-5, 2, 7, 2});
}

TEST_F(LayerExtentsTest, ALineAcrossTheBoxCountsThoughItsEndsLieOutside) {
    drawing.entities = {lineOn(walls, {-100, 25}, {300, 25})};
    showSheet({0, 0});
    expectRect(extents().drawn, {0, 25, 100, 25});
    drawing.entities = {lineOn(walls, {-100, 0}, {50, 150})}; // passes the corner
    EXPECT_TRUE(extents().drawn.isEmpty());
}

TEST_F(LayerExtentsTest, PassOverEntitiesOfLayersThatDontExist) {
    drawing.entities = {lineOn(7, {0, 0}, {1, 1})};
    EXPECT_TRUE(extents().drawn.isEmpty());
}
