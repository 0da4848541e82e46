// The lines that wait: those of scripts within scripts, what a person types meanwhile, and what is told at the end.

#include "ScriptLines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

using testing::HasSubstr;
using testing::StartsWith;
using workbench::LineQueue;

namespace {

class LineQueueTest : public testing::Test {
  protected:
    bool enter(const std::wstring& path, std::vector<std::wstring> lines, bool keepsGoing = false) {
        return queue.enter({path, std::move(lines), keepsGoing});
    }
    /// Takes the next line, and ends it. Answers the line, and keeps what was told.
    std::wstring run(bool done = true) {
        const auto line = queue.next();
        told = queue.end(done);
        return line.value_or(L"nothing");
    }
    /// Takes a line that runs a script.
    bool runScript(const std::wstring& path, std::vector<std::wstring> lines, bool keepsGoing = false) {
        queue.next();
        const bool entered = enter(path, std::move(lines), keepsGoing);
        told = queue.end(entered);
        return entered;
    }

    LineQueue queue;
    std::wstring told;
};

} // namespace

TEST_F(LineQueueTest, GivesLinesInOrder) {
    EXPECT_TRUE(queue.isEmpty());
    queue.append(L"one");
    queue.append(L"two");
    EXPECT_FALSE(queue.isInScript());
    EXPECT_EQ(run(), L"one");
    EXPECT_EQ(run(), L"two");
    EXPECT_EQ(run(), L"nothing");
    EXPECT_EQ(told, L"");
}

TEST_F(LineQueueTest, AScriptWithinAScriptGoesInFrontOfTheRest) {
    enter(L"outer.scr", {L"SCRIPT inner", L"outer"});
    EXPECT_TRUE(runScript(L"inner.scr", {L"inner one", L"inner two"}));
    EXPECT_EQ(run(), L"inner one");
    EXPECT_EQ(told, L"");
    EXPECT_EQ(run(), L"inner two");
    EXPECT_EQ(told, L"The script \"inner.scr\" has ended: 2 lines done.\n");
    EXPECT_EQ(run(), L"outer");
    EXPECT_EQ(told, L"The script \"outer.scr\" has ended: 2 lines done.\n");
    EXPECT_TRUE(queue.isEmpty());
}

TEST_F(LineQueueTest, AScriptWithoutLinesEndsAtOnce) {
    enter(L"outer.scr", {L"SCRIPT inner"});
    EXPECT_TRUE(runScript(L"inner.scr", {}));
    EXPECT_EQ(told, L"The script \"inner.scr\" has ended: 0 lines done.\n"
                    L"The script \"outer.scr\" has ended: 1 line done.\n");
    EXPECT_TRUE(queue.isEmpty());
}

TEST_F(LineQueueTest, AScriptStopsAtALineThatCouldntBeDone) {
    enter(L"a.scr", {L"one", L"two", L"three", L"four"});
    run();
    EXPECT_EQ(run(false), L"two");
    EXPECT_EQ(told, L"The script \"a.scr\" has stopped, because a line couldn't be done: 1 line done, 1 failed, 2 not "
                    L"run.\n");
    EXPECT_TRUE(queue.isEmpty());
}

TEST_F(LineQueueTest, AScriptThatKeepsGoingTellsWhatHasFailed) {
    enter(L"a.scr", {L"one", L"two", L"three"}, true);
    run(false);
    EXPECT_EQ(told, L"");
    run();
    EXPECT_EQ(run(false), L"three");
    EXPECT_EQ(told, L"The script \"a.scr\" has ended: 1 line done, 2 failed.\n");
}

TEST_F(LineQueueTest, AScriptThatStopsIsALineOfTheOtherThatCouldntBeDone) {
    enter(L"outer.scr", {L"SCRIPT inner", L"outer"});
    runScript(L"inner.scr", {L"one", L"two"});
    run(false);
    EXPECT_EQ(told, L"The script \"inner.scr\" has stopped, because a line couldn't be done: 0 lines done, 1 failed, 1 "
                    L"not run.\nThe script \"outer.scr\" has stopped, because a line couldn't be done: 0 lines done, 1 "
                    L"failed, 1 not run.\n");
    EXPECT_TRUE(queue.isEmpty());

    enter(L"outer.scr", {L"SCRIPT inner", L"outer"}, true);
    runScript(L"inner.scr", {L"one", L"two"});
    run(false);
    EXPECT_THAT(told, HasSubstr(L"1 failed, 1 not run."));
    EXPECT_EQ(run(), L"outer") << "the other one keeps going";
    EXPECT_EQ(told, L"The script \"outer.scr\" has ended: 1 line done, 1 failed.\n");
}

TEST_F(LineQueueTest, AScriptThatKeepsGoingCountsAsDoneInTheOther) {
    enter(L"outer.scr", {L"SCRIPT inner"});
    runScript(L"inner.scr", {L"one"}, true);
    run(false);
    EXPECT_EQ(told, L"The script \"inner.scr\" has ended: 0 lines done, 1 failed.\n"
                    L"The script \"outer.scr\" has ended: 1 line done.\n");
}

TEST_F(LineQueueTest, WhatIsTypedWaitsForTheEndOfTheScript) {
    enter(L"a.scr", {L"one", L"two"});
    run();
    queue.append(L"typed");
    EXPECT_EQ(run(), L"two");
    EXPECT_EQ(told, L"The script \"a.scr\" has ended: 2 lines done.\n");
    EXPECT_FALSE(queue.isInScript());
    EXPECT_FALSE(queue.isEmpty());
    EXPECT_EQ(run(), L"typed");
}

TEST_F(LineQueueTest, WhatWasTypedIsDroppedWithAScriptThatStops) {
    enter(L"a.scr", {L"one", L"two"});
    queue.append(L"typed");
    queue.append(L"and more");
    run(false);
    EXPECT_THAT(told, StartsWith(L"The script \"a.scr\" has stopped"));
    EXPECT_THAT(told, HasSubstr(L"\nWhat was typed meanwhile isn't run: 2 lines.\n"));
    EXPECT_TRUE(queue.isEmpty());
}

TEST_F(LineQueueTest, ATypedLineThatCouldntBeDoneLeavesTheNextOnes) {
    queue.append(L"one");
    queue.append(L"two");
    EXPECT_EQ(run(false), L"one");
    EXPECT_EQ(told, L"");
    EXPECT_EQ(run(), L"two");
}

TEST_F(LineQueueTest, TheLinesOfTheStartTellOnlyWhatIsNotRun) {
    enter(L"", {L"OPEN a"});
    run();
    EXPECT_EQ(told, L"");
    enter(L"", {L"OPEN a"});
    run(false);
    EXPECT_EQ(told, L"") << "the line has told why";
    enter(L"", {L"OPEN a", L"LAYER ON *"});
    run(false);
    EXPECT_EQ(told, L"The start has stopped there: 0 lines done, 1 failed, 1 not run.\n");
}

TEST_F(LineQueueTest, AScriptThatRunsItselfIsStoppedAtALimit) {
    int runs = 0;
    ASSERT_TRUE(enter(L"self.scr", {L"SCRIPT self"}));
    while (!queue.isEmpty() && runs < 1000)
        runs += runScript(L"self.scr", {L"SCRIPT self"});
    EXPECT_EQ(runs, LineQueue::kDeepest - 1);
    EXPECT_EQ(std::ranges::count(told, L'\n'), 2) << "the innermost and the outermost tell it";
    EXPECT_TRUE(enter(L"self.scr", {L"SCRIPT self"})) << "the next one begins anew";
}

TEST_F(LineQueueTest, APersonStopsEverything) {
    EXPECT_EQ(queue.stop(), L"");
    enter(L"outer.scr", {L"one", L"SCRIPT inner", L"outer"}, true);
    run(false);
    runScript(L"inner.scr", {L"two", L"three", L"four"});
    run();
    queue.append(L"typed");
    EXPECT_EQ(queue.stop(), L"The script is stopped; what it has done stays. 1 line done, 1 failed, 3 not run.\n"
                            L"What was typed meanwhile isn't run: 1 line.\n");
    EXPECT_TRUE(queue.isEmpty());
    EXPECT_EQ(run(), L"nothing");
}

TEST_F(LineQueueTest, TellsWhatGoesBeforeALineThatIsTypedNow) {
    queue.append(L"typed");
    EXPECT_EQ(queue.whatGoesFirst(), L"What was typed before goes first");
    enter(L"", {L"OPEN a", L"SCRIPT a.scr"});
    EXPECT_EQ(queue.whatGoesFirst(), L"What the start runs goes first");
    run();
    runScript(L"a.scr", {L"one"});
    EXPECT_EQ(queue.whatGoesFirst(), L"What the start runs goes first");
    run();
    EXPECT_EQ(queue.whatGoesFirst(), L"What was typed before goes first");
    enter(L"a.scr", {L"one"});
    EXPECT_EQ(queue.whatGoesFirst(), L"The script goes first");
}

TEST_F(LineQueueTest, APersonStopsTypedLinesAndTheStartUnderTheirOwnNames) {
    queue.append(L"one");
    queue.append(L"two");
    EXPECT_EQ(queue.stop(), L"What was typed meanwhile isn't run: 2 lines.\n");
    EXPECT_TRUE(queue.isEmpty());
    enter(L"", {L"OPEN a", L"MODEL"});
    run();
    EXPECT_EQ(queue.stop(), L"The start is stopped; what it has done stays. 1 line done, 1 not run.\n");
    EXPECT_TRUE(queue.isEmpty());
}

TEST_F(LineQueueTest, ClearingTellsNothing) {
    enter(L"a.scr", {L"one"});
    queue.append(L"typed");
    queue.clear();
    EXPECT_TRUE(queue.isEmpty());
    EXPECT_EQ(queue.stop(), L"");
}
