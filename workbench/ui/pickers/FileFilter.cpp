#include "FileFilter.h"

#include <algorithm>
#include <utility>

namespace framework {
namespace {

constexpr std::pair<std::wstring_view, std::wstring_view> kKnown[] = {
    {L"zdr", L"Drawing"},
    {L"zds", L"Drawing standards"},
    {L"zdt", L"Drawing template"},
    {L"las", L"Layer states"},
};

std::wstring describe(const std::wstring& extension) {
    for (const auto& [known, text] : kKnown)
        if (known == extension)
            return std::wstring(text) + L" (*." + extension + L')';
    return L"*." + extension;
}

void append(std::wstring& filter, const std::wstring& text, const std::wstring& pattern) {
    filter += text;
    filter += L'\0';
    filter += pattern;
    filter += L'\0';
}

} // namespace

std::vector<std::wstring> splitExtensions(std::wstring_view list) {
    std::vector<std::wstring> extensions;
    while (!list.empty()) {
        const std::wstring extension(list.substr(0, list.find(L';')));
        list.remove_prefix(std::min(extension.size() + 1, list.size()));
        const bool known = std::find(extensions.begin(), extensions.end(), extension) != extensions.end();
        if (!extension.empty() && !known)
            extensions.push_back(extension);
    }
    return extensions;
}

std::wstring fileFilter(const std::vector<std::wstring>& extensions) {
    std::wstring filter;
    std::wstring all;
    for (const std::wstring& extension : extensions)
        all += (all.empty() ? L"*." : L";*.") + extension;
    if (extensions.size() > 1)
        append(filter, L"All supported files", all);
    for (const std::wstring& extension : extensions)
        append(filter, describe(extension), L"*." + extension);
    return filter;
}

} // namespace framework
