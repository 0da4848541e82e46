// The command table itself, and HELP, which tells it to the user.

#include "CommandTable.h"
#include "CommandFixture.h"
#include "KelEditor.h"
#include "SystemRegistry.h"

#include <set>

using testing::HasSubstr;
using workbench::Command;
using workbench::commandTable;
using workbench::findCommand;
using workbench::Option;

namespace {

bool isSentence(const std::wstring& text) {
    return text.size() > 8 && text.back() == L'.' && std::iswupper(static_cast<wint_t>(text.front()));
}

std::string narrow(const std::wstring& text) {
    return {text.begin(), text.end()};
}

/// Enters a row's names, which no other row may have.
template <class Row> void expectNew(std::set<std::wstring>& names, const Row& row) {
    EXPECT_TRUE(names.insert(row.name).second) << narrow(row.name) << " stands twice";
    if (row.alias) {
        EXPECT_TRUE(names.insert(row.alias).second) << narrow(row.alias) << " stands twice";
    }
}

using CommandTableTest = CommandFixture;

} // namespace

TEST_F(CommandTableTest, HasEveryNameOnceAndAFunctionOrOptionsInEachRow) {
    std::set<std::wstring> names;
    for (const Command& command : commandTable()) {
        expectNew(names, command);
        EXPECT_TRUE(isSentence(command.help)) << narrow(command.name);
        EXPECT_TRUE(command.run || command.options) << narrow(command.name);
        std::set<std::wstring> optionNames;
        for (const Option& option : command.options ? command.options() : std::span<const Option>()) {
            expectNew(optionNames, option);
            EXPECT_TRUE(isSentence(option.help)) << narrow(option.name);
            EXPECT_NE(option.run, nullptr) << narrow(option.name);
            EXPECT_LE(option.count.least, option.count.most) << narrow(option.name);
        }
    }
}

TEST_F(CommandTableTest, FindsACommandByNameOrShortForm) {
    ASSERT_NE(findCommand(L"LAYER"), nullptr);
    EXPECT_EQ(findCommand(L"LA"), findCommand(L"layer"));
    EXPECT_EQ(findCommand(L"LAYE"), nullptr);
}

TEST_F(CommandTableTest, HelpListsEveryCommandWithItsArguments) {
    const std::wstring text = run(L"HELP");
    for (const Command& command : commandTable())
        EXPECT_THAT(text, HasSubstr(usageOf(command) + L" - " + command.help + L"\n"));
}

TEST_F(CommandTableTest, HelpExplainsACommandAndItsOptions) {
    const std::wstring text = run(L"HELP layer");
    EXPECT_THAT(text, HasSubstr(L"LAYER option ... - Makes layers and changes them. Short: LA.\n"));
    EXPECT_THAT(text, HasSubstr(L"    LAYER COLOR color [layers] - "));
    EXPECT_THAT(text, HasSubstr(L" Also: COLOUR.\n"));
    EXPECT_THAT(run(L"HELP zoom"), HasSubstr(L"2 or 2x shows it twice as large, 0.5 half as large. Short: Z.\n"));
    EXPECT_THAT(run(L"HELP zoom"), HasSubstr(L"    ZOOM WINDOW [x,y x,y] - "));
    EXPECT_EQ(run(L"? U"), L"UNDO [number] - Takes back the last change, or as many as the number says. Short: U.\n");
    EXPECT_EQ(run(L"HELP nonsense"), L"There is no command \"nonsense\": HELP alone lists them.\n");
}

TEST_F(CommandTableTest, HelpTellsWhatTheCommandsOfOurModulesDo) {
    for (const wchar_t* name : {L"LAYERSTATE", L"LAYERSNAPSHOT"}) {
        runtime::commandStack().addCommand(L"TEST", name, name, 0, [] {});
        const std::wstring text = run(std::wstring(L"HELP ") + name);
        EXPECT_TRUE(text.starts_with(std::wstring(name) + L" - ")) << testing::PrintToString(text);
        EXPECT_THAT(text, HasSubstr(L"layer states"));
        EXPECT_TRUE(text.ends_with(L". From the module group TEST.\n")) << testing::PrintToString(text);
        EXPECT_THAT(run(L"HELP"), HasSubstr(text));
    }
}

TEST_F(CommandTableTest, HelpTellsWhereAModulesCommandComesFrom) {
    runtime::commandStack().addCommand(L"TEST", L"SOMETHING", L"ETWAS", 0, [] {});
    EXPECT_EQ(run(L"HELP etwas"), L"SOMETHING - From the module group TEST.\n");
}
