#include "SystemPathsWindows.h"

#include "FileHandleWindows.h"
#include "SystemFailure.h"
#include "SystemFile.h"

#include <atomic>
#include <filesystem>

namespace zdr {
namespace {

/// Where an open file stands. The second form is for a disk that no letter leads to.
std::wstring pathOf(HANDLE file) {
    for (const DWORD form : {VOLUME_NAME_DOS, VOLUME_NAME_GUID}) {
        std::wstring path(GetFinalPathNameByHandleW(file, nullptr, 0, form), L'\0');
        const DWORD length = GetFinalPathNameByHandleW(file, path.data(), static_cast<DWORD>(path.size()), form);
        if (length == 0 || length >= path.size())
            continue;
        path.resize(length);
        return path;
    }
    writeFailure(L"following the link", GetLastError());
}

} // namespace

std::wstring longPath(const std::wstring& path) {
    constexpr std::size_t kShortEnough = 240; // a folder must leave room for a name of eight and three
    if (path.size() < kShortEnough || path.starts_with(L"\\\\?\\") || path.starts_with(L"\\\\.\\"))
        return path;
    std::wstring full(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    if (full.starts_with(L"\\\\"))
        return L"\\\\?\\UNC" + full.substr(1);
    return L"\\\\?\\" + full;
}

std::wstring besidePath(const std::wstring& target) {
    static std::atomic<unsigned> counter{0};
    const std::wstring name =
        L"zdr-" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(counter++) + L".tmp";
    return (std::filesystem::path(target).parent_path() / name).wstring();
}

std::wstring behindLinks(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(longPath(path).c_str());
    constexpr DWORD kKind = FILE_ATTRIBUTE_REPARSE_POINT | FILE_ATTRIBUTE_DIRECTORY;
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & kKind) != FILE_ATTRIBUTE_REPARSE_POINT)
        return path;
    // Opened for nothing but to ask where it is, which needs no right to the file.
    const FileHandle file(longPath(path).c_str(), 0);
    if (!file)
        writeFailure(L"following the link", GetLastError());
    return pathOf(file.get());
}

std::wstring driveTarget(wchar_t letter) {
    const wchar_t drive[] = {letter, L':', L'\0'};
    std::wstring target(32768, L'\0'); // several texts may come, the one that counts first
    if (QueryDosDeviceW(drive, target.data(), static_cast<DWORD>(target.size())) == 0)
        return GetLastError() == ERROR_FILE_NOT_FOUND ? std::wstring() : L"\\??\\"; // nobody knows where it leads
    return target.c_str();
}

} // namespace zdr
