#include "ModulePath.h"

#include <filesystem>

#include <windows.h>

namespace workbench {

std::wstring modulePath(const std::wstring& typed) {
    std::filesystem::path path(typed);
    if (!path.has_extension())
        path += L".xmod";
    if (path.has_parent_path())
        return path.wstring();
    wchar_t program[1024];
    const DWORD length = ::GetModuleFileNameW(nullptr, program, static_cast<DWORD>(std::size(program)));
    return (std::filesystem::path(std::wstring(program, length)).parent_path() / path).wstring();
}

} // namespace workbench
