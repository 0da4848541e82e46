// SCRIPT, and the lines of script files.

#include "CommandFixture.h"
#include "ScriptLines.h"

using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;
using workbench::scriptLines;

using ScriptTest = CommandFixture;

TEST_F(ScriptTest, RunsTheLinesOfAFile) {
    writeBytes("a b.scr", "\xEF\xBB\xBFMODEL\r\n; a comment\r\n\r\nLAYER NEW T\xC3\xBCr\n");
    EXPECT_EQ(run(L"SCRIPT \"" + path("a b.scr") + L"\""), L"Running " + path("a b.scr") + L".\n");
    EXPECT_THAT(window.scriptLines, ElementsAre(L"MODEL", L"LAYER NEW T\u00FCr"));
}

TEST_F(ScriptTest, AsksForAPathThatWasntGiven) {
    writeBytes("a.scr", "MODEL\n");
    EXPECT_EQ(run(L"SCRIPT"), L"No file is chosen, and nothing has changed.\n");
    window.chosenFile = path("a.scr");
    EXPECT_EQ(run(L"SCRIPT"), L"Running " + path("a.scr") + L".\n");
    EXPECT_THAT(window.scriptLines, ElementsAre(L"MODEL"));
    EXPECT_THAT(window.questions, ElementsAre(L"script", L"script"));
}

TEST_F(ScriptTest, AnEmptyFileIsAScript) {
    writeBytes("empty.scr", "");
    run(L"SCRIPT " + path("empty.scr"));
    EXPECT_THAT(window.printed, EndsWith(L"Running " + path("empty.scr") + L".\n"));
    EXPECT_THAT(window.scriptLines, IsEmpty());
}

TEST_F(ScriptTest, TellsWhenTheFileCantBeRead) {
    EXPECT_THAT(run(L"SCRIPT " + path("missing.scr")), EndsWith(L" isn't there: check its name and folder.\n"));
    EXPECT_THAT(run(L"SCRIPT " + path(".")), EndsWith(L" isn't there: check its name and folder.\n"));
    writeBytes("large.scr", "");
    std::filesystem::resize_file(folder / "large.scr", (16 << 20) + 1);
    EXPECT_THAT(run(L"SCRIPT " + path("large.scr")), EndsWith(L" is larger than 16 MB: split it.\n"));
}

TEST_F(ScriptTest, StopsAtALineThatCantBeDoneUnlessItIsToKeepGoing) {
    writeBytes("a b.scr", "MODEL\n");
    for (const std::wstring& typed : {L"\"" + path("a b.scr") + L"\"", path("a b.scr")}) {
        run(L"SCRIPT " + typed);
        EXPECT_FALSE(window.scriptKeepsGoing);
        EXPECT_EQ(run(L"SCRIPT --Keep-Going " + typed), L"Running " + path("a b.scr") + L".\n");
        EXPECT_TRUE(window.scriptKeepsGoing);
        EXPECT_THAT(window.scriptLines, ElementsAre(L"MODEL"));
    }
    window.chosenFile = path("a b.scr");
    EXPECT_EQ(run(L"SCRIPT --keep-going"), L"Running " + path("a b.scr") + L".\n");
    EXPECT_TRUE(window.scriptKeepsGoing);
}

TEST_F(ScriptTest, RefusesAFileThatIsntText) {
    writeDrawing("house.zdr", drawing());
    writeBytes("wide.scr", std::string("M\0O\0", 4));
    writeBytes("bell.scr", "MODEL\n\x07\n");
    for (const char* name : {"house.zdr", "wide.scr", "bell.scr"}) {
        EXPECT_EQ(run(L"SCRIPT " + path(name)),
                  L"The script \"" + path(name) + L"\" isn't text: choose a file of command lines, saved as UTF-8.\n");
        EXPECT_FALSE(done);
    }
    EXPECT_THAT(window.scriptLines, IsEmpty());
    writeBytes("text.scr", "\tMODEL\r\n\f\nLAYER NEW T\xFCr\n");
    run(L"SCRIPT " + path("text.scr"));
    EXPECT_EQ(window.scriptLines.size(), 3u) << "tabs, ends of lines and pages, and letters of other codes are text";
}

TEST_F(ScriptTest, TellsWhenScriptsGoTooDeep) {
    writeBytes("a.scr", "MODEL\n");
    window.takesScripts = false;
    EXPECT_THAT(run(L"SCRIPT " + path("a.scr")), EndsWith(L"look for one that runs itself.\n"));
    EXPECT_FALSE(done);
}

TEST(ScriptLines, LeaveOutCommentsAndEmptyLines) {
    EXPECT_THAT(scriptLines("\xEF\xBB\xBF; start\r\nOPEN a.zdr\r\n\r\n  \nQUIT"), ElementsAre(L"OPEN a.zdr", L"QUIT"));
    EXPECT_THAT(scriptLines(""), ElementsAre());
}

TEST(ScriptLines, AreUtf8) {
    EXPECT_THAT(scriptLines("OPEN B\xC3\xA4r.zdr\n"), ElementsAre(L"OPEN B\u00E4r.zdr"));
}
