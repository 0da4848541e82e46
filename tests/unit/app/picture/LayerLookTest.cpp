// How the entities of a layer look.

#include "LayerLook.h"
#include "LayerStateMask.h"
#include "HandmadeDrawing.h"

#include <gtest/gtest.h>

using workbench::entityLook;
using workbench::layerLooks;
using workbench::referencedLooks;

namespace {

constexpr std::uint8_t kShown = zdr::kLayerOn | zdr::kLayerPlot;

zdr::Viewport viewportThatFreezes(std::vector<bool> frozen) {
    zdr::Viewport viewport;
    viewport.handle = 100;
    viewport.number = 2;
    viewport.frozen = std::move(frozen);
    return viewport;
}

} // namespace

TEST(LayerLook, ShowsALayerUnlessItIsOffOrFrozen) {
    zdr::Drawing drawing = handmade::emptyDrawing();
    handmade::addLayer(drawing, L"Shown", {kShown});
    handmade::addLayer(drawing, L"Off", {zdr::kLayerPlot});
    handmade::addLayer(drawing, L"Frozen", {kShown | zdr::kLayerFrozen});
    handmade::addLayer(drawing, L"Locked", {kShown | zdr::kLayerLocked});
    handmade::addLayer(drawing, L"No plot", {zdr::kLayerOn});
    const auto looks = layerLooks(drawing, nullptr);
    EXPECT_TRUE(looks[0].visible);
    EXPECT_FALSE(looks[1].visible);
    EXPECT_FALSE(looks[2].visible);
    EXPECT_TRUE(looks[3].visible);
    EXPECT_TRUE(looks[4].visible);
}

TEST(LayerLook, TakesColourPatternAndWeightFromTheLayer) {
    zdr::Drawing drawing = handmade::emptyDrawing();
    drawing.defaultLineWeight = 35;
    handmade::addLayer(drawing, L"Walls", {kShown, 3, L"Dashed", 50});
    handmade::addLayer(drawing, L"Plain");
    const auto looks = layerLooks(drawing, nullptr);
    EXPECT_EQ(looks[0].color, 3u);
    ASSERT_NE(looks[0].pattern, nullptr);
    EXPECT_EQ(*looks[0].pattern, (std::vector<double>{6, -3}));
    EXPECT_EQ(looks[0].lineWeight, 50);
    EXPECT_EQ(looks[1].pattern, nullptr) << "continuous";
    EXPECT_EQ(looks[1].lineWeight, 35) << "the drawing's default";
}

TEST(LayerLook, AViewportHidesWhatItFreezes) {
    zdr::Drawing drawing = handmade::emptyDrawing();
    for (const wchar_t* name : {L"A", L"B", L"C"})
        handmade::addLayer(drawing, name);
    const zdr::Viewport viewport = viewportThatFreezes({false, true});
    const auto looks = layerLooks(drawing, &viewport);
    EXPECT_TRUE(looks[0].visible);
    EXPECT_FALSE(looks[1].visible);
    EXPECT_TRUE(looks[2].visible) << "beyond the viewport's list";
}

TEST(LayerLook, AViewportCantThawWhatTheDrawingFreezes) {
    zdr::Drawing drawing = handmade::emptyDrawing();
    handmade::addLayer(drawing, L"A", {kShown | zdr::kLayerFrozen});
    const zdr::Viewport viewport = viewportThatFreezes({false});
    EXPECT_FALSE(layerLooks(drawing, &viewport)[0].visible);
}

TEST(LayerLook, AnOverrideAppliesOnlyWhatItsMaskNames) {
    zdr::Drawing drawing = handmade::emptyDrawing();
    handmade::addLayer(drawing, L"A", {kShown, 3, L"Dashed", 50});
    zdr::Viewport viewport = viewportThatFreezes({});
    viewport.overrides.push_back({0, MaskColor, 5, drawing.names.intern(L"Continuous"), 9, zdr::kNoName});
    auto look = layerLooks(drawing, &viewport)[0];
    EXPECT_EQ(look.color, 5u);
    EXPECT_NE(look.pattern, nullptr);
    EXPECT_EQ(look.lineWeight, 50);

    viewport.overrides[0].mask = MaskLinetype | MaskLineWeight;
    look = layerLooks(drawing, &viewport)[0];
    EXPECT_EQ(look.color, 3u);
    EXPECT_EQ(look.pattern, nullptr);
    EXPECT_EQ(look.lineWeight, 9);
}

TEST(LayerLook, AnEntitysOwnPropertiesWin) {
    zdr::Drawing drawing = handmade::emptyDrawing();
    handmade::addLayer(drawing, L"A", {kShown, 3, L"Dashed", 50});
    const auto layer = layerLooks(drawing, nullptr)[0];
    zdr::Entity entity;
    EXPECT_EQ(entityLook(drawing, entity, layer).color, 3u);
    entity.color = 256; // by layer
    EXPECT_EQ(entityLook(drawing, entity, layer).color, 3u);
    entity.color = 1;
    entity.linetype = drawing.names.intern(L"Continuous");
    entity.lineWeight = 13;
    const auto look = entityLook(drawing, entity, layer);
    EXPECT_EQ(look.color, 1u);
    EXPECT_EQ(look.pattern, nullptr);
    EXPECT_EQ(look.lineWeight, 13);
}

TEST(LayerLook, ANamedColourLooksLikeItsValue) {
    zdr::Drawing drawing = handmade::emptyDrawing();
    KelCmColor color;
    color.setRGB(0, 60, 140);
    color.setNames(L"Signal Blue", L"House Paints");
    const zdr::ColorId named = drawing.namedColors.intern(color);
    handmade::addLayer(drawing, L"A", {kShown, named});
    handmade::addLayer(drawing, L"B");
    zdr::Viewport viewport = viewportThatFreezes({});
    viewport.overrides.push_back({1, MaskColor, named, zdr::kNoName, 0, zdr::kNoName});
    const auto looks = layerLooks(drawing, &viewport);
    EXPECT_EQ(looks[0].color, 0xC2003C8Cu);
    EXPECT_EQ(looks[1].color, 0xC2003C8Cu);
    zdr::Entity entity;
    entity.color = named;
    EXPECT_EQ(entityLook(drawing, entity, layerLooks(drawing, nullptr)[1]).color, 0xC2003C8Cu);
}

TEST(LayerLook, WhatAReferenceShowsFollowsTheDrawingsOwnRecords) {
    auto shown = std::make_shared<zdr::Drawing>(handmade::emptyDrawing());
    handmade::addLayer(*shown, L"Fence", {kShown, 1});
    handmade::addLayer(*shown, L"Trees", {kShown, 2});
    zdr::Drawing drawing = handmade::emptyDrawing();
    drawing.references.push_back({L"site", L"site.zdr", {}, 1, 0, shown});
    handmade::addLayer(drawing, L"Base");
    handmade::addLayer(drawing, L"SITE!fence", {zdr::kLayerPlot, 6});
    drawing.layers[1].reference = 0;
    const auto looks = referencedLooks(drawing, layerLooks(drawing, nullptr), 0);
    ASSERT_EQ(looks.size(), 2u);
    EXPECT_FALSE(looks[0].visible) << "off in the drawing that shows it";
    EXPECT_EQ(looks[0].color, 6u);
    EXPECT_TRUE(looks[1].visible) << "without a record, as in its own drawing";
    EXPECT_EQ(looks[1].color, 2u);
}
