// What the status line shows.

#include "HandmadeDrawing.h"
#include "StatusFacts.h"

#include <gtest/gtest.h>

using workbench::lastLine;
using workbench::statusOf;

TEST(StatusFacts, TellLayerAndSpace) {
    zdr::Drawing drawing = handmade::emptyDrawing();
    handmade::addLayer(drawing, L"Walls", {zdr::kLayerOn, 3});
    zdr::Layout layout{L"A3", 420, 297, {}, {}};
    layout.viewports.push_back({});
    layout.viewports[0].handle = 50;
    layout.viewports[0].number = 2;
    drawing.layouts.push_back(layout);
    EXPECT_EQ(statusOf(drawing, L"Done.").text(), L"Walls | Model | Done.");
    EXPECT_EQ(statusOf(drawing, L"").layerColor, 3u);
    drawing.activeLayout = 0;
    EXPECT_EQ(statusOf(drawing, L"").space, L"A3, paper");
    drawing.currentViewport = 50;
    EXPECT_EQ(statusOf(drawing, L"").space, L"A3, viewport 2");
}

TEST(StatusFacts, TellWhatANamedColourLooksLike) {
    zdr::Drawing drawing = handmade::emptyDrawing();
    KelCmColor color;
    color.setRGB(0, 60, 140);
    color.setNames(L"Signal Blue", nullptr);
    handmade::addLayer(drawing, L"Walls", {zdr::kLayerOn, drawing.namedColors.intern(color)});
    EXPECT_EQ(statusOf(drawing, L"").layerColor, 0xC2003C8Cu);
}

TEST(StatusFacts, ShowTheLastLineThatSaysSomething) {
    EXPECT_EQ(lastLine(L"one\ntwo \r\n\n"), L"two");
    EXPECT_EQ(lastLine(L"one"), L"one");
    EXPECT_EQ(lastLine(L" \n"), L"");
}
