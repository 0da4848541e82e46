// What Tab makes of a line.

#include "CommandFixture.h"
#include "Completion.h"
#include "KelEditor.h"
#include "StartFolder.h"
#include "SystemRegistry.h"

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class CompletionTest : public CommandFixture {
  protected:
    CompletionTest() { run(L"LAYER NEW Walls,Windows,\"Ground floor\",\"Ground water\""); }
    std::wstring tab(const std::wstring& line) {
        const workbench::Completion completion = workbench::complete(session, line);
        candidates = completion.candidates;
        return completion.line;
    }
    std::vector<std::wstring> candidates;
};

} // namespace

TEST_F(CompletionTest, CompletesACommand) {
    EXPECT_EQ(tab(L"und"), L"UNDO ");
    EXPECT_THAT(candidates, IsEmpty());
    EXPECT_EQ(tab(L"sa"), L"SAVE");
    EXPECT_THAT(candidates, ElementsAre(L"SAVE", L"SAVEAS"));
    EXPECT_EQ(tab(L"xyz"), L"xyz");
}

TEST_F(CompletionTest, CompletesACommandOfAModule) {
    runtime::commandStack().addCommand(L"TEST", L"LAYERSTATE", L"LAYERSTATE", 0, [] {});
    EXPECT_EQ(tab(L"layers"), L"LAYERSTATE ");
}

TEST_F(CompletionTest, OffersAllCommandsOnAnEmptyLine) {
    EXPECT_EQ(tab(L""), L"");
    EXPECT_THAT(candidates, Contains(L"ZOOM"));
}

TEST_F(CompletionTest, CompletesOptionsAndWhatStandsBehindThem) {
    EXPECT_EQ(tab(L"layer fr"), L"layer FREEZE ");
    EXPECT_EQ(tab(L"LA THAW wi"), L"LA THAW Windows ");
    EXPECT_EQ(tab(L"LAYER colour mag"), L"LAYER colour magenta ");
    EXPECT_EQ(tab(L"LAYER colour red wal"), L"LAYER colour red Walls ");
    EXPECT_EQ(tab(L"LAYER plot y"), L"LAYER plot yes ");
    EXPECT_EQ(tab(L"LAYER lweight def"), L"LAYER lweight default ");
    EXPECT_EQ(tab(L"VPLAYER ltype con"), L"VPLAYER ltype Continuous ");
    EXPECT_EQ(tab(L"zoom e"), L"zoom EXTENTS ");
    EXPECT_EQ(tab(L"z prev"), L"z PREVIOUS ");
    EXPECT_EQ(tab(L"zoom layer wal"), L"zoom layer Walls ");
    EXPECT_EQ(tab(L"zoom l Walls wi"), L"zoom l Walls Windows ");
    EXPECT_EQ(tab(L"ab"), L"ABOUT ");
}

TEST_F(CompletionTest, CompletesNamesOfTheDrawing) {
    EXPECT_EQ(tab(L"LAYOUT lay"), L"LAYOUT Layout1 ");
    EXPECT_EQ(tab(L"SETVAR clay"), L"SETVAR CLAYER ");
    EXPECT_EQ(tab(L"VPORT n"), L"VPORT none ");
    session.showTab(1);
    EXPECT_EQ(tab(L"VPORT 2"), L"VPORT 2 ");
}

TEST_F(CompletionTest, CompletesThePlaceOfADifference) {
    session.showTab(1);
    EXPECT_EQ(tab(L"VPLAYER FREEZE Walls i"), L"VPLAYER FREEZE Walls IN ");
    EXPECT_EQ(tab(L"VPLAYER FREEZE Walls Wi"), L"VPLAYER FREEZE Walls Windows ");
    EXPECT_EQ(tab(L"VPLAYER COLOUR red i"), L"VPLAYER COLOUR red IN ");
    EXPECT_EQ(tab(L"VPLAYER COLOUR red in "), L"VPLAYER COLOUR red in ");
    EXPECT_THAT(candidates, ElementsAre(L"2", L"ALL"));
    EXPECT_EQ(tab(L"VPLAYER COLOUR red Walls in a"), L"VPLAYER COLOUR red Walls in ALL ");
    EXPECT_EQ(tab(L"LAYER FREEZE Walls in"), L"LAYER FREEZE Walls in") << "only VPLAYER has places";
}

TEST_F(CompletionTest, QuotesNamesWithBlanksAndLeavesTheQuoteOpenWhileMoreMayFollow) {
    EXPECT_EQ(tab(L"LAYER OFF gr"), L"LAYER OFF \"Ground ");
    EXPECT_THAT(candidates, ElementsAre(L"Ground floor", L"Ground water"));
    EXPECT_EQ(tab(L"LAYER OFF \"Ground f"), L"LAYER OFF \"Ground floor\" ");
}

TEST_F(CompletionTest, CompletesTheLastPartOfAList) {
    EXPECT_EQ(tab(L"LAYER OFF Walls,win"), L"LAYER OFF Walls,Windows ");
}

TEST_F(CompletionTest, CompletesPathsFolderByFolder) {
    std::filesystem::create_directory(folder / "plans");
    writeBytes("house.zdr", "");
    writeBytes("house.txt", "");
    const std::wstring start = path("");
    EXPECT_EQ(tab(L"OPEN " + start + L"ho"), L"OPEN " + start + L"house.zdr ");
    EXPECT_EQ(tab(L"OPEN " + start + L"pl"), L"OPEN " + start + L"plans" + start.back());
    EXPECT_EQ(tab(L"SCRIPT " + start + L"ho"), L"SCRIPT " + start + L"house.");
    EXPECT_EQ(tab(L"OPEN /no/such/folder/x"), L"OPEN /no/such/folder/x");
}

TEST_F(CompletionTest, CompletesTheSwitchOfAScriptAndThePathBehindIt) {
    writeBytes("long name.scr", "");
    const std::wstring start = path("");
    EXPECT_EQ(tab(L"SCRIPT --k"), L"SCRIPT --keep-going ");
    EXPECT_EQ(tab(L"SCRIPT --Keep-Going " + start + L"lo"), L"SCRIPT --Keep-Going \"" + start + L"long name.scr\" ");
    EXPECT_EQ(tab(L"SCRIPT --keep-going --k"), L"SCRIPT --keep-going --k") << "once is enough";
    EXPECT_EQ(tab(L"SCRIPT " + start + L"long " + start + L"lo"), L"SCRIPT " + start + L"long " + start + L"lo");
    EXPECT_EQ(tab(L"OPEN --k"), L"OPEN --k");
}

TEST_F(CompletionTest, CompletesPathsFromTheDrawingsFolderAndThatOfTheStart) {
    const StartFolder started(folder / "started");
    writeBytes("started/hall.zdr", "");
    writeBytes("hall.zdr", "");
    writeBytes("hut.zdr", "");
    writeBytes("lines.scr", "");
    EXPECT_EQ(tab(L"OPEN ha"), L"OPEN hall.zdr ") << "a drawing that was never saved has no folder";
    EXPECT_EQ(tab(L"OPEN hu"), L"OPEN hu");
    run(L"SAVEAS \"" + path("house.zdr") + L"\"");
    tab(L"OPEN h");
    EXPECT_THAT(candidates, ElementsAre(L"hall.zdr", L"house.zdr", L"hut.zdr"));
    EXPECT_EQ(tab(L"OPEN ..\\hu"), L"OPEN ..\\hut.zdr ") << "from the folder of the start";
    EXPECT_EQ(tab(L"SCRIPT --keep-going li"), L"SCRIPT --keep-going lines.scr ");
    EXPECT_EQ(tab(L"MODULE LOAD li"), L"MODULE LOAD li") << "modules have nothing to do with the drawing";
}

TEST_F(CompletionTest, OffersForWhatIsSavedOnlyWhatStandsWhereItIsSaved) {
    const StartFolder started(folder / "started");
    writeBytes("started/hall.zdr", "");
    EXPECT_EQ(tab(L"SAVEAS ha"), L"SAVEAS hall.zdr ") << "a drawing that was never saved goes there";
    run(L"SAVEAS \"" + path("house.zdr") + L"\"");
    EXPECT_EQ(tab(L"SAVEAS ha"), L"SAVEAS ha");
    EXPECT_EQ(tab(L"OPEN ha"), L"OPEN hall.zdr ");
    tab(L"SAVEAS ");
    EXPECT_THAT(candidates, ElementsAre(L"house.zdr", L"started\\"));
    EXPECT_EQ(tab(L"SAVEAS started\\h"), L"SAVEAS started\\hall.zdr ");
}

TEST_F(CompletionTest, HasNothingForWordsThatMeanNothing) {
    EXPECT_EQ(tab(L"UNDO a"), L"UNDO a");
    EXPECT_EQ(tab(L"LAYER nonsense w"), L"LAYER nonsense w");
    EXPECT_EQ(tab(L"nonsense w"), L"nonsense w");
    EXPECT_EQ(tab(std::wstring(30000, L'x')), std::wstring(30000, L'x'));
}
