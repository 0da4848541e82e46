#include "Nonsense.h"

#include "CommandTable.h"

#include <iterator>
#include <vector>

namespace {

constexpr const wchar_t* kArguments[] = {L"*",
                                         L"W*",
                                         L"Walls",
                                         L"Base",
                                         L"\"Ground floor\"",
                                         L"?????",
                                         L"red",
                                         L"10,20,30",
                                         L"256",
                                         L"0.25",
                                         L"yes",
                                         L"no",
                                         L"all",
                                         L"IN 2",
                                         L"IN all",
                                         L"2",
                                         L"3",
                                         L"none",
                                         L"-1",
                                         L"1e308",
                                         L"\"",
                                         L"\"\"",
                                         L",,,",
                                         L"Layout1",
                                         L"site",
                                         L"Model",
                                         L"\"A1 sheet\"",
                                         L"CLAYER",
                                         L"LTSCALE",
                                         L"*!*",
                                         L"a!b",
                                         L"Dashed",
                                         L"99999999999999999999",
                                         L"\xFC\xDF\x4E2D",
                                         L"*floor*",
                                         L"E",
                                         L"Plumbing*",
                                         L"--keep-going",
                                         L"0,0",
                                         L"12000,-8000.5",
                                         L"5,5 900,700",
                                         L"1e12,nan",
                                         L"0.5x"};

constexpr const wchar_t* kFiles[] = {L"house.zdr", L"site.zdr", L"other.zdr", L"missing.zdr",
                                     L"text.zdr",  L"self.scr", L"lines.scr"};

constexpr const wchar_t* kNames[] = {
    L"Plumbing plan", L"PRESENTATION", L"  Demolition ", L"site!Access", L"100 % & %s", L"a<b", L" ",
    L"\xFC\xDF\x4E2D"};

constexpr const wchar_t* kFrequent[] = {L"LAYERSTATE",
                                        L"UNDO",
                                        L"REDO",
                                        L"ZOOM E",
                                        L"LAYER MAKE Monkey",
                                        L"MODEL",
                                        L"VPORT none",
                                        L"LAYER THAW *",
                                        L"HELP",
                                        L"SETVAR",
                                        L"ZOOM WINDOW",
                                        L"ZOOM PREVIOUS",
                                        L"PAN",
                                        L"LAYOUT \"A1 sheet\"",
                                        L"VPORT 2",
                                        L"VPLAYER LIST",
                                        L"REFERENCES"};

constexpr wchar_t kLetters[] = L"abcdefgWXYZ0123 .,;!*?\"-_";

} // namespace

std::wstring Nonsense::word() {
    std::wstring text;
    for (std::size_t i = below(8) + 1; i > 0; --i)
        text += kLetters[below(std::size(kLetters) - 1)];
    return text;
}

std::wstring Nonsense::name() {
    return below(2) == 0 ? word() : oneOf(kNames);
}

std::wstring Nonsense::argument() {
    switch (below(6)) {
    case 0:
        return L'"' + m_folder + oneOf(kFiles) + L'"';
    case 1:
        return word();
    default:
        return oneOf(kArguments);
    }
}

std::wstring Nonsense::optionLine() {
    const auto commands = workbench::commandTable();
    const workbench::Command& command = commands[below(commands.size())];
    std::wstring text = command.name;
    // Most QUITs are left out, because each one ends the life.
    if (text == L"QUIT" && below(5) != 0)
        return L"HELP QUIT";
    // A relative path would leave the folder of the monkey.
    if (text == L"SAVEAS")
        return text + L" \"" + m_folder + oneOf(kFiles) + L'"';
    if (command.options && below(10) != 0) {
        const auto options = command.options();
        text += std::wstring(L" ") + options[below(options.size())].name;
    }
    for (std::size_t i = below(4); i > 0; --i)
        text += L' ' + argument();
    return text;
}

std::wstring Nonsense::line() {
    switch (below(12)) {
    case 0:
    case 1:
        return oneOf(kFrequent);
    case 2:
        return word();
    case 3:
        return L"OPEN \"" + m_folder + L"house.zdr\"";
    default:
        return optionLine();
    }
}
