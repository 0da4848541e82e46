// SCRIPT, and the lines that wait.

#include "CommandFixture.h"
#include "ScriptLines.h"

using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;
using workbench::LineQueue;
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

TEST_F(ScriptTest, TellsWhenScriptsGoTooDeep) {
    writeBytes("a.scr", "MODEL\n");
    window.takesScripts = false;
    EXPECT_THAT(run(L"SCRIPT " + path("a.scr")), EndsWith(L"look for one that runs itself.\n"));
}

TEST(ScriptLines, LeaveOutCommentsAndEmptyLines) {
    EXPECT_THAT(scriptLines("\xEF\xBB\xBF; start\r\nOPEN a.zdr\r\n\r\n  \nQUIT"), ElementsAre(L"OPEN a.zdr", L"QUIT"));
    EXPECT_THAT(scriptLines(""), ElementsAre());
}

TEST(ScriptLines, AreUtf8) {
    EXPECT_THAT(scriptLines("OPEN B\xC3\xA4r.zdr\n"), ElementsAre(L"OPEN B\u00E4r.zdr"));
}

TEST(LineQueue, GivesLinesInOrder) {
    LineQueue queue;
    EXPECT_TRUE(queue.isEmpty());
    queue.append({L"one", L"two"});
    queue.append({L"three"});
    EXPECT_EQ(queue.next(), L"one");
    EXPECT_EQ(queue.next(), L"two");
    EXPECT_EQ(queue.next(), L"three");
    EXPECT_EQ(queue.next(), std::nullopt);
}

TEST(LineQueue, AScriptWithinAScriptGoesInFrontOfTheRest) {
    LineQueue queue;
    queue.append({L"SCRIPT inner", L"outer"});
    queue.next();
    EXPECT_TRUE(queue.enter({L"inner one", L"inner two"}));
    EXPECT_EQ(queue.next(), L"inner one");
    EXPECT_EQ(queue.next(), L"inner two");
    EXPECT_EQ(queue.next(), L"outer");
}

TEST(LineQueue, AScriptThatRunsItselfIsStoppedAtALimit) {
    LineQueue queue;
    int runs = 0;
    ASSERT_TRUE(queue.enter({L"SCRIPT self"}));
    while (queue.next() && runs < 1000)
        runs += queue.enter({L"SCRIPT self"});
    EXPECT_EQ(runs, LineQueue::kDeepest - 1);
}

TEST(LineQueue, APersonsLineBeginsAnew) {
    LineQueue queue;
    for (int depth = 0; depth < LineQueue::kDeepest; ++depth) {
        ASSERT_TRUE(queue.enter({L"SCRIPT self"}));
        queue.next();
    }
    EXPECT_FALSE(queue.enter({L"x"}));
    queue.interrupt();
    EXPECT_TRUE(queue.enter({L"x"}));
    queue.clear();
    EXPECT_TRUE(queue.isEmpty());
}
