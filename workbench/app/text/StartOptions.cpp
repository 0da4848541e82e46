#include "StartOptions.h"

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

} // namespace workbench
