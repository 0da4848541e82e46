// The words of the program's own command line, scripts, and the status line.

#include "SampleDrawing.h"
#include "ScriptLines.h"
#include "StartOptions.h"
#include "StatusFacts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using workbench::lastLine;
using workbench::parseStartOptions;
using workbench::scriptLines;
using workbench::statusOf;

TEST(StartOptions, TakeADrawingAndSwitchesInAnyOrder) {
    const auto options = parseStartOptions(
        {L"--module", L"m.xmod", L"house.zdr", L"--command", L"LAYERSTATE", L"--command", L"QUIT", L"--script", L"s"});
    EXPECT_EQ(options.drawing, L"house.zdr");
    EXPECT_EQ(options.module, L"m.xmod");
    EXPECT_EQ(options.script, L"s");
    EXPECT_THAT(options.commands, ElementsAre(L"LAYERSTATE", L"QUIT"));
    EXPECT_EQ(options.error, L"");
}

TEST(StartOptions, TellAboutWhatMakesNoSense) {
    EXPECT_EQ(parseStartOptions({L"--fast"}).error, L"There is no switch --fast.");
    EXPECT_EQ(parseStartOptions({L"--module"}).error, L"The switch --module needs a value.");
    EXPECT_EQ(parseStartOptions({L"a.zdr", L"b.zdr"}).error, L"Only one drawing can be opened, so b.zdr is left out.");
}

TEST(ScriptLines, LeaveOutCommentsAndEmptyLines) {
    EXPECT_THAT(scriptLines("\xEF\xBB\xBF; start\r\nOPEN a.zdr\r\n\r\n  \nQUIT"), ElementsAre(L"OPEN a.zdr", L"QUIT"));
    EXPECT_THAT(scriptLines(""), ElementsAre());
}

TEST(ScriptLines, AreUtf8) {
    EXPECT_THAT(scriptLines("OPEN B\xC3\xA4r.zdr\n"), ElementsAre(L"OPEN B\u00E4r.zdr"));
}

TEST(StatusFacts, TellLayerAndSpace) {
    zdr::Drawing drawing = sample::emptyDrawing();
    sample::addLayer(drawing, L"Walls", {zdr::kLayerOn, 3});
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

TEST(StatusFacts, ShowTheLastLineThatSaysSomething) {
    EXPECT_EQ(lastLine(L"one\ntwo \r\n\n"), L"two");
    EXPECT_EQ(lastLine(L"one"), L"one");
    EXPECT_EQ(lastLine(L" \n"), L"");
}
