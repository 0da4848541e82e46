// See StartOptions.h.

#include "StartOptions.h"

#include "files/TextCoding.h"

#include <algorithm>

namespace workbench {

namespace {

/// Where the value of a switch goes; null for a word that is no switch that takes one value.
std::wstring* valueOf(StartOptions& options, const std::wstring& word) {
    if (word == L"--module")
        return &options.module;
    if (word == L"--script")
        return &options.script;
    if (word == L"--command")
        return &options.commands.emplace_back();
    return nullptr;
}

} // namespace

StartOptions parseStartOptions(const std::vector<std::wstring>& words) {
    StartOptions options;
    for (std::size_t i = 0; i < words.size() && options.error.empty(); ++i) {
        const std::wstring& word = words[i];
        if (std::wstring* value = valueOf(options, word)) {
            if (++i < words.size())
                *value = words[i];
            else
                options.error = L"The switch " + word + L" needs a value.";
        } else if (word.starts_with(L"--")) {
            options.error = L"There is no switch " + word + L".";
        } else if (options.drawing.empty()) {
            options.drawing = word;
        } else {
            options.error = L"Only one drawing can be opened, so " + word + L" is left out.";
        }
    }
    return options;
}

std::vector<std::wstring> scriptLines(const std::string& text) {
    std::vector<std::wstring> lines;
    std::size_t start = text.starts_with("\xEF\xBB\xBF") ? 3 : 0;
    while (start < text.size()) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        std::string line = text.substr(start, end - start);
        line.erase(line.find_last_not_of(" \t\r") + 1);
        if (!line.empty() && line.front() != ';')
            lines.push_back(zdr::fromUtf8(line).value_or(std::wstring(line.begin(), line.end())));
        start = end + 1;
    }
    return lines;
}

} // namespace workbench
