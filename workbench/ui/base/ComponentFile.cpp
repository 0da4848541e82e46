#include "ComponentFile.h"

#include "FrameworkModule.h"

namespace framework {

std::wstring frameworkFolder() {
    const HMODULE self = frameworkModule();
    std::wstring path(MAX_PATH, L'\0');
    DWORD length = GetModuleFileNameW(self, path.data(), static_cast<DWORD>(path.size()));
    // A full buffer means that the path was cut; paths end at 32767 characters.
    while (length == path.size() && path.size() < 0x8000) {
        path.resize(path.size() * 2);
        length = GetModuleFileNameW(self, path.data(), static_cast<DWORD>(path.size()));
    }
    path.resize(length);
    path.resize(path.find_last_of(L'\\') + 1);
    return path;
}

std::wstring componentFile(std::wstring_view componentPath) {
    if (componentPath.empty() || componentPath.front() != L'/')
        return std::wstring(componentPath);
    const std::wstring_view name = componentPath.substr(componentPath.find_last_of(L"/\\") + 1);
    return frameworkFolder().append(name);
}

} // namespace framework
