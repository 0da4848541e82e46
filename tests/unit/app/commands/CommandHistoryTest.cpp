// Recall of the lines that were run.

#include "CommandHistory.h"

#include <gtest/gtest.h>

using workbench::CommandHistory;

TEST(CommandHistory, GoesBackToTheOldestAndStaysThere) {
    CommandHistory history;
    history.add(L"one");
    history.add(L"two");
    EXPECT_EQ(history.previous(L""), L"two");
    EXPECT_EQ(history.previous(L"two"), L"one");
    EXPECT_EQ(history.previous(L"one"), L"one");
}

TEST(CommandHistory, ComesBackToWhatWasBeingTyped) {
    CommandHistory history;
    history.add(L"one");
    history.previous(L"half a li");
    EXPECT_EQ(history.next(L"one"), L"half a li");
    EXPECT_EQ(history.next(L"half a line"), L"half a line");
}

TEST(CommandHistory, KeepsARepeatedLineOnce) {
    CommandHistory history;
    history.add(L"one");
    history.add(L"two");
    history.add(L"two");
    history.add(L"");
    history.previous(L"");
    EXPECT_EQ(history.previous(L""), L"one");
}

TEST(CommandHistory, ForgetsTheOldestBeyondItsLimit) {
    CommandHistory history(2);
    history.add(L"one");
    history.add(L"two");
    history.add(L"three");
    history.previous(L"");
    EXPECT_EQ(history.previous(L""), L"two");
    EXPECT_EQ(history.previous(L""), L"two");
}

TEST(CommandHistory, RunningALineEndsTheRecall) {
    CommandHistory history;
    history.add(L"one");
    history.add(L"two");
    history.previous(L"");
    history.previous(L"");
    history.add(L"one");
    EXPECT_EQ(history.previous(L""), L"one");
    EXPECT_EQ(history.previous(L""), L"two");
}

TEST(CommandHistory, WithoutLinesAnswersWhatIsTyped) {
    CommandHistory history;
    EXPECT_EQ(history.previous(L"abc"), L"abc");
    EXPECT_EQ(history.next(L"abc"), L"abc");
}

TEST(CommandHistory, KnowsTheLineThatWasRunLast) {
    CommandHistory history;
    EXPECT_EQ(history.last(), L"");
    history.add(L"one");
    history.add(L"two");
    history.previous(L"");
    EXPECT_EQ(history.last(), L"two");
}
