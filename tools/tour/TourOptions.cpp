#include "TourOptions.h"

#include <windows.h>

namespace tour {

namespace {

struct Row {
    const wchar_t* word;
    std::wstring Options::*field;
    bool isPath;
};
constexpr Row rows[] = {
    {L"--workbench", &Options::workbench, true}, {L"--drawing", &Options::drawing, true},
    {L"--edit", &Options::edit, false},          {L"--state", &Options::state, false},
    {L"--exportas", &Options::exportAs, true},   {L"--other", &Options::other, true},
    {L"--replace", &Options::replaced, false},   {L"--legacy", &Options::legacy, true},
    {L"--saveas", &Options::saveAs, true},       {L"--shots", &Options::shots, true},
};

std::wstring fullPath(const std::wstring& path) {
    wchar_t buffer[1024];
    const DWORD length = GetFullPathNameW(path.c_str(), 1024, buffer, nullptr);
    return length > 0 && length < 1024 ? buffer : path;
}

} // namespace

std::optional<Options> parseOptions(const std::vector<std::wstring>& words) {
    Options options;
    for (std::size_t i = 0; i + 1 < words.size(); i += 2) {
        bool known = false;
        for (const Row& row : rows) {
            if (words[i] != row.word)
                continue;
            options.*row.field = row.isPath ? fullPath(words[i + 1]) : words[i + 1];
            known = true;
        }
        if (!known)
            return std::nullopt;
    }
    for (const Row& row : rows)
        if ((options.*row.field).empty())
            return std::nullopt;
    return words.size() % 2 == 0 ? std::optional(options) : std::nullopt;
}

} // namespace tour
