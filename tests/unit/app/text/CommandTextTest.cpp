// What a typed line means.

#include "CommandText.h"

#include <gtest/gtest.h>

using workbench::parseCommand;
using workbench::parseViewportNumber;

TEST(CommandText, SplitsNameAndArgumentAtTheFirstBlank) {
    const auto command = parseCommand(L"open C:\\plans\\house.zdr");
    EXPECT_EQ(command.name, L"OPEN");
    EXPECT_EQ(command.argument, L"C:\\plans\\house.zdr");
}

TEST(CommandText, DropsBlanksAroundBoth) {
    const auto command = parseCommand(L"  Layout \t Ground floor  ");
    EXPECT_EQ(command.name, L"LAYOUT");
    EXPECT_EQ(command.argument, L"Ground floor");
}

TEST(CommandText, TakesTheQuotesOffAQuotedArgument) {
    EXPECT_EQ(parseCommand(L"OPEN \"a b.zdr\"").argument, L"a b.zdr");
    EXPECT_EQ(parseCommand(L"OPEN \"").argument, L"\"");
}

TEST(CommandText, AnEmptyLineHasNoName) {
    EXPECT_TRUE(parseCommand(L"").name.empty());
    EXPECT_TRUE(parseCommand(L" \t ").name.empty());
}

TEST(CommandText, ReadsAViewportNumberOrNone) {
    EXPECT_EQ(parseViewportNumber(L"2"), 2);
    EXPECT_EQ(parseViewportNumber(L"None"), 0);
    EXPECT_EQ(parseViewportNumber(L""), -1);
    EXPECT_EQ(parseViewportNumber(L"two"), -1);
    EXPECT_EQ(parseViewportNumber(L"-1"), -1);
    EXPECT_EQ(parseViewportNumber(L"99999999999"), -1);
}
