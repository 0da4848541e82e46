// The words of the program's own command line.

#include "StartOptions.h"

#include "files/TextCoding.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using workbench::parseStartOptions;
using workbench::startLines;

TEST(StartOptions, TakeADrawingAndSwitchesInAnyOrder) {
    const auto options = parseStartOptions(
        {L"--module", L"m.xmod", L"house.zdr", L"--command", L"LAYERSTATE", L"--command", L"QUIT", L"--script", L"s"});
    EXPECT_EQ(options.drawing, L"house.zdr");
    EXPECT_EQ(options.module, L"m.xmod");
    EXPECT_EQ(options.script, L"s");
    EXPECT_THAT(options.commands, ElementsAre(L"LAYERSTATE", L"QUIT"));
    EXPECT_FALSE(options.keepsGoing);
    EXPECT_TRUE(parseStartOptions({L"--keep-going", L"house.zdr"}).keepsGoing);
    EXPECT_EQ(parseStartOptions({L"--keep-going", L"house.zdr"}).drawing, L"house.zdr");
    EXPECT_EQ(options.error, L"");
}

TEST(StartOptions, BecomeLinesAndAScriptCountsFromTheFolderOfTheStart) {
    const std::wstring script = zdr::widePath(std::filesystem::current_path() / "a b.scr");
    EXPECT_THAT(startLines(parseStartOptions({L"house 1.zdr", L"--command", L"MODEL", L"--script", L"a b.scr"})),
                ElementsAre(L"OPEN \"house 1.zdr\"", L"MODEL", L"SCRIPT \"" + script + L"\""));
    EXPECT_THAT(startLines(parseStartOptions({L"--keep-going", L"--script", L"a b.scr"})),
                ElementsAre(L"SCRIPT --keep-going \"" + script + L"\""));
    EXPECT_THAT(startLines(parseStartOptions({L"--script", script})), ElementsAre(L"SCRIPT \"" + script + L"\""));
    EXPECT_THAT(startLines(parseStartOptions({L"--script", L"\\\\server\\share\\x.scr"})),
                ElementsAre(L"SCRIPT \"\\\\server\\share\\x.scr\""));
    EXPECT_THAT(startLines({}), ElementsAre());
}

TEST(StartOptions, TellAboutWhatMakesNoSense) {
    EXPECT_EQ(parseStartOptions({L"--fast"}).error, L"There is no switch --fast.");
    EXPECT_EQ(parseStartOptions({L"--module"}).error, L"The switch --module needs a value.");
    EXPECT_EQ(parseStartOptions({L"a.zdr", L"b.zdr"}).error, L"Only one drawing can be opened, so b.zdr is left out.");
}

TEST(StartOptions, AreABatchWithLinesOrAScriptToRun) {
    EXPECT_FALSE(parseStartOptions({}).isBatch());
    EXPECT_FALSE(parseStartOptions({L"house.zdr", L"--module", L"m.xmod", L"--keep-going"}).isBatch());
    EXPECT_TRUE(parseStartOptions({L"house.zdr", L"--command", L"LAYERSTATE"}).isBatch());
    EXPECT_TRUE(parseStartOptions({L"house.zdr", L"--script", L"s"}).isBatch());
}
