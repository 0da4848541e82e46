// The stack of registered commands.

#include "RuntimeTest.h"
#include "SystemRegistry.h"

namespace {

void first() {}
void second() {}

} // namespace

class CommandStackTest : public RuntimeTest {
  protected:
    KelEdCommandStack& stack = runtime::commandStack();
};

TEST_F(CommandStackTest, FindsACommandByEitherNameWithoutRegardToCase) {
    EXPECT_EQ(stack.addCommand(L"GROUP", L"PAINT", L"MALEN", 3, first), Vorn::eOk);
    KelEdCommand* command = stack.lookup(L"paint");
    ASSERT_NE(command, nullptr);
    EXPECT_EQ(stack.lookup(L"Malen"), command);
    EXPECT_STREQ(command->groupName(), L"GROUP");
    EXPECT_STREQ(command->globalName(), L"PAINT");
    EXPECT_STREQ(command->localName(), L"MALEN");
    EXPECT_EQ(command->commandFlags(), 3);
    EXPECT_EQ(command->function(), first);
    EXPECT_EQ(stack.lookup(L"PAIN"), nullptr);
    EXPECT_EQ(stack.lookup(nullptr), nullptr);
}

TEST_F(CommandStackTest, TheNewestOfANameWins) {
    stack.addCommand(L"ONE", L"PAINT", L"PAINT", 0, first);
    stack.addCommand(L"TWO", L"PAINT", L"PAINT", 0, second);
    EXPECT_EQ(stack.lookup(L"PAINT")->function(), second);
    EXPECT_EQ(stack.removeGroup(L"two"), Vorn::eOk);
    EXPECT_EQ(stack.lookup(L"PAINT")->function(), first);
}

TEST_F(CommandStackTest, RemovesAGroupAsAWhole) {
    stack.addCommand(L"ONE", L"A", L"A", 0, first);
    stack.addCommand(L"TWO", L"B", L"B", 0, first);
    stack.addCommand(L"ONE", L"C", L"C", 0, first);
    EXPECT_EQ(stack.removeGroup(L"ONE"), Vorn::eOk);
    ASSERT_EQ(stack.count(), 1);
    EXPECT_STREQ(stack.at(0)->globalName(), L"B");
    EXPECT_EQ(stack.at(1), nullptr);
    EXPECT_EQ(stack.at(-1), nullptr);
    EXPECT_EQ(stack.removeGroup(L"ONE"), Vorn::eKeyNotFound);
}

TEST_F(CommandStackTest, ACommandWithoutALocalNameGoesByItsGlobalOne) {
    KelEdCommand* added = nullptr;
    EXPECT_EQ(stack.addCommand(L"ONE", L"A", nullptr, 0, first, nullptr, -1, nullptr, &added), Vorn::eOk);
    ASSERT_NE(added, nullptr);
    EXPECT_STREQ(added->localName(), L"A");
}

TEST_F(CommandStackTest, RefusesACommandWithoutGroupNameOrBody) {
    KelEdCommand* added = nullptr;
    EXPECT_EQ(stack.addCommand(L"", L"A", L"A", 0, first, nullptr, -1, nullptr, &added), Vorn::eInvalidInput);
    EXPECT_EQ(stack.addCommand(L"ONE", nullptr, L"A", 0, first), Vorn::eInvalidInput);
    EXPECT_EQ(stack.addCommand(L"ONE", L"A", L"A", 0, nullptr), Vorn::eInvalidInput);
    EXPECT_EQ(added, nullptr);
    EXPECT_EQ(stack.count(), 0);
}

TEST_F(CommandStackTest, TracesAllArgumentsOfACommand) {
    stack.addCommand(L"ONE", L"A", L"B", 0, first, nullptr, -1, nullptr, nullptr);
    instruments::failCall("addCommand", 1, Vorn::eNotApplicable);
    EXPECT_EQ(stack.addCommand(L"ONE", L"C", L"C", 0, first), Vorn::eNotApplicable);
    EXPECT_THAT(instruments::trace(),
                testing::ElementsAre("addCommand(\"ONE\", \"A\", \"B\", 0, true, null, -1, null, null) = 0",
                                     "addCommand(\"ONE\", \"C\", \"C\", 0, true, null, -1, null, null) = 2"));
    EXPECT_EQ(stack.count(), 1);
}
