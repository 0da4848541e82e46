// The guide for users and the command table tell the same.

#include "CommandTable.h"
#include "CommandFixture.h"
#include "SystemVariables.h"

#include "files/TextCoding.h"

#include <fstream>
#include <set>
#include <sstream>

using testing::HasSubstr;
using testing::Not;
using workbench::Command;
using workbench::commandTable;
using workbench::Option;

namespace {

class GuideTest : public CommandFixture {
  protected:
    GuideTest() {
        std::ifstream file(USER_GUIDE, std::ios::binary);
        std::ostringstream bytes;
        bytes << file.rdbuf();
        m_text = zdr::fromUtf8(bytes.str()).value_or(L"");
        EXPECT_FALSE(m_text.empty()) << "there is no guide at " USER_GUIDE;
        std::erase(m_text, L'\r');
    }

    /// The text from the first line that begins with `beginning` up to the next one that begins with `end`.
    std::wstring section(const std::wstring& beginning, const std::wstring& end) const {
        const std::size_t start = m_text.find(L"\n" + beginning);
        EXPECT_NE(start, std::wstring::npos) << "the guide lacks a section";
        return start == std::wstring::npos ? L"" : m_text.substr(start, m_text.find(L"\n" + end, start + 1) - start);
    }
    const std::wstring& text() const { return m_text; }
    std::wstring commands() const { return section(L"## Commands", L"## "); }
    /// The part of the guide that describes a command's options.
    std::wstring optionsOf(const Command& command) const {
        if (command.name == std::wstring(L"LAYER"))
            return section(L"`LAYER` (", L"`VPLAYER` ");
        if (command.name == std::wstring(L"VPLAYER"))
            return section(L"`VPLAYER` ", L"### ");
        return commands();
    }
    /// The pieces of a text that are in backquotes.
    static std::vector<std::wstring> quoted(const std::wstring& text) {
        std::vector<std::wstring> pieces;
        for (std::size_t start = text.find(L'`'); start != std::wstring::npos;) {
            const std::size_t end = text.find(L'`', start + 1);
            pieces.push_back(text.substr(start + 1, end - start - 1));
            start = end == std::wstring::npos ? end : text.find(L'`', end + 1);
        }
        return pieces;
    }

  private:
    std::wstring m_text;
};

std::wstring firstWord(const std::wstring& text) {
    return text.substr(0, text.find(L' '));
}

/// The first word of each piece.
std::set<std::wstring> firstWords(const std::vector<std::wstring>& pieces) {
    std::set<std::wstring> words;
    for (const std::wstring& piece : pieces)
        words.insert(firstWord(piece));
    return words;
}

bool isWordOfCommands(const std::wstring& word) {
    const auto isCapital = [](wchar_t letter) { return letter >= L'A' && letter <= L'Z'; };
    return word.size() > 1 && std::ranges::all_of(word, isCapital);
}

std::string narrow(const std::wstring& text) {
    return {text.begin(), text.end()};
}

} // namespace

TEST_F(GuideTest, TellsEveryCommandWithItsShortForm) {
    const std::set<std::wstring> told = firstWords(quoted(commands()));
    for (const Command& command : commandTable()) {
        EXPECT_TRUE(told.contains(command.name)) << narrow(command.name);
        if (!command.alias)
            continue;
        const bool asShortForm = commands().find(std::wstring(L"(`") + command.alias) != std::wstring::npos;
        EXPECT_TRUE(asShortForm) << narrow(command.alias);
    }
}

TEST_F(GuideTest, TellsEveryOption) {
    for (const Command& command : commandTable())
        for (const Option& option : command.options ? command.options() : std::span<const Option>()) {
            const std::vector<std::wstring> pieces = quoted(optionsOf(command));
            const std::wstring name = option.name;
            const std::wstring full = std::wstring(command.name) + L' ' + name;
            const bool told = std::ranges::any_of(pieces, [&](const std::wstring& piece) {
                return firstWord(piece) == name || piece == full || piece.starts_with(full + L' ');
            });
            EXPECT_TRUE(told) << narrow(full);
        }
}

// The dialogs are in American English.
TEST_F(GuideTest, SpellsAsTheDialogsDoAndNamesTheOtherSpelling) {
    for (const wchar_t* british : {L"colour", L"Colour", L"millimetre", L"centre"}) {
        EXPECT_EQ(text().find(british), std::wstring::npos) << narrow(british);
        for (const Command& command : commandTable())
            EXPECT_THAT(run(std::wstring(L"HELP ") + command.name), Not(HasSubstr(british)));
    }
    for (const wchar_t* command : {L"LAYER", L"VPLAYER"}) {
        EXPECT_THAT(optionsOf(*workbench::findCommand(command)), HasSubstr(L"(`COLOUR`)"));
        EXPECT_THAT(run(std::wstring(L"HELP ") + command), HasSubstr(L" Also: COLOUR.\n"));
    }
    run(L"LAYER COLOR red *");
    EXPECT_EQ(drawing().columns.colors[0] & 0xFF, 1u);
    run(L"LAYER COLOUR blue *");
    EXPECT_EQ(drawing().columns.colors[0] & 0xFF, 5u);
}

TEST_F(GuideTest, TellsTheArgumentsAsHelpDoes) {
    for (const Command& command : commandTable())
        if (!command.options && std::wstring(command.usage).find(L'|') == std::wstring::npos) {
            const std::wstring usage = L'`' + usageOf(command) + L'`';
            EXPECT_NE(commands().find(usage), std::wstring::npos) << narrow(usage);
        }
}

TEST_F(GuideTest, TellsOfNoCommandThatIsntThere) {
    std::set<std::wstring> known{L"LAYERSTATE", L"LAYERSNAPSHOT", L"IN"};
    for (const std::wstring& variable : runtime::systemVariableNames())
        known.insert(variable);
    for (const Command& command : commandTable()) {
        known.insert({command.name, command.alias ? command.alias : command.name});
        for (const Option& option : command.options ? command.options() : std::span<const Option>())
            known.insert({option.name, option.alias ? option.alias : option.name});
    }
    for (const std::wstring& word : firstWords(quoted(commands())))
        EXPECT_TRUE(!isWordOfCommands(word) || known.contains(word)) << narrow(word);
}
