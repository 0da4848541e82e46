#include "HelpPage.h"

#include "base/ComponentFile.h"

#include <algorithm>
#include <cwctype>

namespace framework {

std::wstring helpPage(std::wstring_view folder, std::wstring_view topic) {
    const auto plain = [](wchar_t character) {
        return std::iswalnum(character) || character == L'_' || character == L'-';
    };
    if (topic.empty() || !std::all_of(topic.begin(), topic.end(), plain))
        return {};
    std::wstring page = folder.empty() ? frameworkFolder() + L"help" : std::wstring(folder);
    return page.append(1, L'\\').append(topic).append(L".html");
}

} // namespace framework
