// See CommandText.h.

#include "CommandText.h"

#include <algorithm>
#include <cwctype>

namespace workbench {

namespace {

constexpr std::wstring_view kBlanks = L" \t\r\n";

wchar_t upper(wchar_t letter) {
    return static_cast<wchar_t>(std::towupper(static_cast<wint_t>(letter)));
}

std::wstring_view trimmed(std::wstring_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::wstring_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::wstring_view unquoted(std::wstring_view text) {
    const bool quoted = text.size() >= 2 && text.front() == L'"' && text.back() == L'"';
    return quoted ? text.substr(1, text.size() - 2) : text;
}

} // namespace

CommandText parseCommand(std::wstring_view line) {
    const std::wstring_view text = trimmed(line);
    const std::size_t end = std::min(text.find_first_of(kBlanks), text.size());
    CommandText command{std::wstring(text.substr(0, end)), std::wstring(unquoted(trimmed(text.substr(end))))};
    std::transform(command.name.begin(), command.name.end(), command.name.begin(), upper);
    return command;
}

int parseViewportNumber(std::wstring_view argument) {
    if (sameName(argument, L"none"))
        return 0;
    const auto isDigit = [](wchar_t letter) { return letter >= L'0' && letter <= L'9'; };
    // Four digits are more than any sheet has viewports.
    if (argument.empty() || argument.size() > 4 || !std::all_of(argument.begin(), argument.end(), isDigit))
        return -1;
    int number = 0;
    for (const wchar_t digit : argument)
        number = number * 10 + (digit - L'0');
    return number;
}

bool sameName(std::wstring_view a, std::wstring_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](wchar_t left, wchar_t right) { return upper(left) == upper(right); });
}

} // namespace workbench
