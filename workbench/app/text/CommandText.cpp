#include "CommandText.h"

#include <algorithm>
#include <cwctype>

namespace workbench {

namespace {

constexpr std::wstring_view kBlanks = L" \t\r\n";
constexpr std::size_t kLongestQuotation = 60;
constexpr std::size_t kLongestList = 300;
constexpr std::size_t kMostListed = 12;

wchar_t upper(wchar_t letter) {
    return static_cast<wchar_t>(std::towupper(static_cast<wint_t>(letter)));
}

bool isBlank(wchar_t letter) {
    return kBlanks.find(letter) != std::wstring_view::npos;
}

std::wstring_view trimmed(std::wstring_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::wstring_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::wstring_view withoutOuterQuotes(std::wstring_view text) {
    const bool quoted = text.size() >= 2 && text.front() == L'"' && text.find(L'"', 1) == text.size() - 1;
    return quoted ? text.substr(1, text.size() - 2) : text;
}

/// Calls `part(begin, end)` for each piece of `text` between separators outside quotes.
template <class IsSeparator, class Part> void split(std::wstring_view text, IsSeparator isSeparator, Part part) {
    bool inQuotes = false;
    std::size_t start = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'"')
            inQuotes = !inQuotes;
        if (inQuotes || !isSeparator(text[i]))
            continue;
        part(start, i);
        start = i + 1;
    }
    part(start, text.size());
}

} // namespace

CommandText parseCommand(std::wstring_view line) {
    const std::wstring_view text = trimmed(line);
    const std::size_t end = std::min(text.find_first_of(kBlanks), text.size());
    const std::wstring_view rest = trimmed(text.substr(end));
    CommandText command{std::wstring(text.substr(0, end)), std::wstring(withoutOuterQuotes(rest)), splitWords(rest)};
    std::transform(command.name.begin(), command.name.end(), command.name.begin(), upper);
    return command;
}

Words splitWords(std::wstring_view text) {
    Words words;
    split(text, isBlank, [&](std::size_t begin, std::size_t end) {
        if (begin < end)
            words.emplace_back(text.substr(begin, end - begin));
    });
    return words;
}

std::size_t lastWordStart(std::wstring_view line) {
    std::size_t last = 0;
    split(line, isBlank, [&last](std::size_t begin, std::size_t) { last = begin; });
    return last;
}

std::vector<std::wstring> splitList(std::wstring_view word) {
    std::vector<std::wstring> parts;
    const auto isComma = [](wchar_t letter) { return letter == L','; };
    split(word, isComma, [&](std::size_t begin, std::size_t end) {
        std::wstring part = unquoted(word.substr(begin, end - begin));
        if (!part.empty())
            parts.push_back(std::move(part));
    });
    return parts;
}

std::wstring unquoted(std::wstring_view word) {
    std::wstring text(word);
    std::erase(text, L'"');
    return text;
}

std::wstring quotedWhereNeeded(const std::wstring& name) {
    return name.find_first_of(L" \t,") == std::wstring::npos ? name : L'"' + name + L'"';
}

std::wstring newName(std::wstring_view word) {
    return std::wstring(trimmed(unquoted(word)));
}

int parseWholeNumber(std::wstring_view text) {
    constexpr std::size_t kMostDigits = 4;
    const auto isDigit = [](wchar_t letter) { return letter >= L'0' && letter <= L'9'; };
    if (text.empty() || text.size() > kMostDigits || !std::all_of(text.begin(), text.end(), isDigit))
        return -1;
    int number = 0;
    for (const wchar_t digit : text)
        number = number * 10 + (digit - L'0');
    return number;
}

// Four digits are more than any sheet has viewports.
int parseViewportNumber(std::wstring_view argument) {
    return sameName(argument, L"none") ? 0 : parseWholeNumber(argument);
}

bool sameName(std::wstring_view a, std::wstring_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](wchar_t left, wchar_t right) { return upper(left) == upper(right); });
}

bool matches(std::wstring_view name, std::wstring_view pattern) {
    std::size_t n = 0;
    std::size_t p = 0;
    // The last '*' of the pattern so far, and where in the name its part ends for now. At a difference that part gets
    // one character longer; an earlier '*' never needs another try.
    std::size_t star = std::wstring_view::npos;
    std::size_t reached = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == L'*') {
            star = p++;
            reached = n;
        } else if (p < pattern.size() && (pattern[p] == L'?' || upper(pattern[p]) == upper(name[n]))) {
            ++p;
            ++n;
        } else if (star != std::wstring_view::npos) {
            p = star + 1;
            n = ++reached;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of(L'*', p) == std::wstring_view::npos;
}

std::wstring quotation(std::wstring_view text) {
    std::wstring out(text.substr(0, kLongestQuotation));
    // A line break would make several lines of the message.
    std::replace_if(
        out.begin(), out.end(), [](wchar_t letter) { return letter < L' '; }, L' ');
    return L'"' + out + (text.size() > kLongestQuotation ? L"...\"" : L"\"");
}

std::wstring listed(const std::vector<std::wstring>& words) {
    std::wstring text;
    std::size_t count = 0;
    for (const std::wstring& word : words) {
        if (count == kMostListed || (count > 0 && text.size() + word.size() > kLongestList))
            return text + L" and more";
        text += (count++ == 0 ? L"" : L", ") + word;
    }
    return text;
}

std::wstring advised(std::wstring sentence, const wchar_t* advice) {
    if (sentence.ends_with(L'.'))
        sentence.pop_back();
    return sentence + L": " + advice + L'.';
}

} // namespace workbench
