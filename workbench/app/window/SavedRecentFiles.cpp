#include "SavedRecentFiles.h"

#include <afxwin.h>

namespace workbench {

namespace {

constexpr const wchar_t* kValue = L"Recent";
constexpr DWORD kLargest = 1 << 20; // bytes

} // namespace

RecentFiles savedRecentFiles() {
    DWORD size = 0;
    const auto read = [&size](void* bytes) {
        return RegGetValueW(HKEY_CURRENT_USER, kRecentFilesKey, kValue, RRF_RT_REG_MULTI_SZ, nullptr, bytes, &size);
    };
    if (read(nullptr) != ERROR_SUCCESS || size > kLargest)
        return {};
    std::vector<wchar_t> text(size / sizeof(wchar_t) + 1);
    size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    if (read(text.data()) != ERROR_SUCCESS) // another Workbench may have kept more meanwhile
        return {};
    // What the registry holds need not end as a list does.
    text.resize(size / sizeof(wchar_t));
    text.insert(text.end(), 2, L'\0');
    std::vector<std::wstring> paths;
    for (const wchar_t* path = text.data(); *path; path += paths.back().size() + 1)
        paths.emplace_back(path);
    return RecentFiles(paths);
}

void saveRecentFiles(const RecentFiles& files) {
    std::wstring text;
    for (const std::wstring& path : files.paths())
        text.append(path).push_back(L'\0');
    text.push_back(L'\0');
    RegSetKeyValueW(HKEY_CURRENT_USER, kRecentFilesKey, kValue, REG_MULTI_SZ, text.data(),
                    static_cast<DWORD>(text.size() * sizeof(wchar_t)));
}

} // namespace workbench
