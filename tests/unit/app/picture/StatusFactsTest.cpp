// What the status line shows.

#include "HandmadeDrawing.h"
#include "StatusFacts.h"

#include <gtest/gtest.h>

using workbench::lastLine;
using workbench::PointerPlace;
using workbench::statusOf;

TEST(StatusFacts, TellLayerAndSpace) {
    zdr::Drawing drawing = handmade::emptyDrawing();
    handmade::addLayer(drawing, L"Walls", {zdr::kLayerOn, 3});
    zdr::Layout layout{L"A3", 420, 297, {}, {}};
    layout.viewports.push_back({});
    layout.viewports[0].handle = 50;
    layout.viewports[0].number = 2;
    drawing.layouts.push_back(layout);
    EXPECT_EQ(statusOf(drawing, {}, L"Done.").text(), L"Walls | Model | mm | Done.");
    EXPECT_EQ(statusOf(drawing, {}, L"").layerColor, 3u);
    drawing.activeLayout = 0;
    EXPECT_EQ(statusOf(drawing, {}, L"").space, L"A3, paper");
    drawing.currentViewport = 50;
    EXPECT_EQ(statusOf(drawing, {}, L"").space, L"A3, viewport 2");
}

TEST(StatusFacts, TellWhatANamedColourLooksLike) {
    zdr::Drawing drawing = handmade::emptyDrawing();
    KelCmColor color;
    color.setRGB(0, 60, 140);
    color.setNames(L"Signal Blue", nullptr);
    handmade::addLayer(drawing, L"Walls", {zdr::kLayerOn, drawing.namedColors.intern(color)});
    EXPECT_EQ(statusOf(drawing, {}, L"").layerColor, 0xC2003C8Cu);
}

TEST(StatusFacts, TellThePlaceOfThePointerWithItsUnit) {
    zdr::Drawing drawing = handmade::emptyDrawing();
    handmade::addLayer(drawing, L"Walls");
    EXPECT_EQ(statusOf(drawing, PointerPlace{{1.5, -2}, false}, L"").place(), L"1.5000, -2.0000 mm");
    EXPECT_EQ(statusOf(drawing, PointerPlace{{1.5, -2}, true}, L"").place(), L"1.5000, -2.0000 mm on paper");
    EXPECT_EQ(statusOf(drawing, PointerPlace{{1.5, -2}, true}, L"Done.").text(),
              L"Walls | Model | 1.5000, -2.0000 mm on paper | Done.");
}

TEST(StatusFacts, OfAMovedPointerAreNewInThePlaceAlone) {
    zdr::Drawing drawing = handmade::emptyDrawing();
    handmade::addLayer(drawing, L"Walls");
    drawing.layouts.push_back({L"A3", 420, 297, {}, {}});
    workbench::StatusFacts facts = statusOf(drawing, PointerPlace{{1, 2}, false}, L"Done.");
    drawing.currentLayer = handmade::addLayer(drawing, L"Doors", {zdr::kLayerOn, 3});
    drawing.references.resize(1);
    drawing.activeLayout = 0;
    movePointer(facts, drawing, PointerPlace{{3, 4}, true});
    EXPECT_EQ(facts.text(), L"Walls | Model | 3.0000, 4.0000 mm on paper | Done.");
    EXPECT_EQ(facts.layerColor, 7u);
    movePointer(facts, drawing, {});
    EXPECT_EQ(facts.place(), L"mm on paper");
    EXPECT_EQ(facts.pointer, L"");
}

TEST(StatusFacts, TellTheUnitOfTheSpaceOnViewWhileThePointerIsElsewhere) {
    zdr::Drawing drawing = handmade::emptyDrawing();
    handmade::addLayer(drawing, L"Walls");
    drawing.layouts.push_back({L"A3", 420, 297, {}, {}});
    EXPECT_EQ(statusOf(drawing, {}, L"").place(), L"mm");
    drawing.activeLayout = 0;
    EXPECT_EQ(statusOf(drawing, {}, L"").place(), L"mm on paper");
    EXPECT_EQ(statusOf(drawing, PointerPlace{{1, 2}, false}, L"").place(), L"1.0000, 2.0000 mm");
    drawing.currentViewport = 50;
    EXPECT_EQ(statusOf(drawing, {}, L"").place(), L"mm");
}

TEST(StatusFacts, CountTheReferencesAndWarnOfMissingOnes) {
    zdr::Drawing drawing = handmade::emptyDrawing();
    handmade::addLayer(drawing, L"Walls");
    EXPECT_EQ(statusOf(drawing, {}, L"").references, L"");
    drawing.references.resize(2);
    drawing.references[0].drawing = std::make_shared<zdr::Drawing>();
    drawing.references[1].unloaded = true;
    EXPECT_EQ(statusOf(drawing, {}, L"Done.").text(), L"Walls | Model | mm | 2 references | Done.");
    EXPECT_FALSE(statusOf(drawing, {}, L"").isReferenceMissing);
    drawing.references[1].unloaded = false;
    EXPECT_EQ(statusOf(drawing, {}, L"").references, L"2 references, 1 missing");
    EXPECT_TRUE(statusOf(drawing, {}, L"").isReferenceMissing);
}

TEST(StatusFacts, ShowTheLastLineThatSaysSomething) {
    EXPECT_EQ(lastLine(L"one\ntwo \r\n\n"), L"two");
    EXPECT_EQ(lastLine(L"one"), L"one");
    EXPECT_EQ(lastLine(L" \n"), L"");
}
