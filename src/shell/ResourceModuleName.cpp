#include "ResourceModuleName.h"

#include <algorithm>

std::wstring resourceModuleName(std::wstring_view modulePath) {
    constexpr std::wstring_view kExtension = L".xmod";
    constexpr std::wstring_view kSuffix = L"Res.dll";
    // The dot isn't searched for: a file is a module by the folder that it is installed in, and its extension is taken
    // to have this length.
    const std::size_t extensionLength = std::min(kExtension.size(), modulePath.size());
    std::wstring name(modulePath.substr(0, modulePath.size() - extensionLength));
    name += kSuffix;
    const std::size_t backslash = name.find_last_of(L'\\');
    return backslash == std::wstring::npos ? name : name.substr(backslash + 1);
}
