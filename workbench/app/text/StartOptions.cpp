#include "StartOptions.h"

#include "files/OutsidePaths.h"

namespace workbench {

namespace {

/// Where the value after the switch `word` is put; null for a word that isn't a switch with one value.
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
        } else if (word == kKeepGoing) {
            options.keepsGoing = true;
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

std::vector<std::wstring> startLines(const StartOptions& options) {
    std::vector<std::wstring> lines;
    if (!options.drawing.empty())
        lines.push_back(L"OPEN \"" + options.drawing + L"\"");
    lines.insert(lines.end(), options.commands.begin(), options.commands.end());
    if (options.script.empty())
        return lines;
    lines.push_back(std::wstring(L"SCRIPT ") + (options.keepsGoing ? std::wstring(kKeepGoing) + L' ' : L"") + L'"' +
                    zdr::fullPath(options.script) + L'"');
    return lines;
}

} // namespace workbench
