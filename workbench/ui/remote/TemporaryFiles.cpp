#include "TemporaryFiles.h"

#include "RemoteProblem.h"

#include <windows.h>

#include <algorithm>
#include <array>

namespace remote {
namespace {

std::wstring temporaryFolder() {
    std::array<wchar_t, MAX_PATH + 1> folder{};
    const DWORD length = GetTempPathW(static_cast<DWORD>(folder.size()), folder.data());
    return length < folder.size() ? std::wstring(folder.data(), length) : std::wstring();
}

/// A new name for a file. The time in it keeps it apart from files that an earlier process of the same id left behind.
std::wstring newName(unsigned number) {
    return L"kel-" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(GetTickCount64()) + L"-" +
           std::to_wstring(number);
}

bool makeEmptyFile(const std::wstring& path) {
    const HANDLE file =
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_TEMPORARY, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return false;
    CloseHandle(file);
    return true;
}

} // namespace

TemporaryFiles::~TemporaryFiles() {
    for (const std::wstring& path : m_paths)
        DeleteFileW(path.c_str());
}

std::wstring TemporaryFiles::make(const std::wstring& extension) {
    const std::wstring folder = temporaryFolder();
    const std::wstring ending = extension.empty() ? std::wstring() : L"." + extension;
    std::wstring path;
    bool made = false;
    bool taken = true;
    for (unsigned number = 0; !folder.empty() && !made && taken; ++number) {
        path = folder + newName(number) + ending;
        m_paths.push_back(path); // before it is there, so that it can't be forgotten for lack of memory
        made = makeEmptyFile(path);
        taken = !made && GetLastError() == ERROR_FILE_EXISTS;
        if (!made)
            m_paths.pop_back();
    }
    if (!made)
        throw RemoteFailure{eInetLocalUnwritable, L"can't be given a temporary file in \"" + folder + L"\""};
    return path;
}

void TemporaryFiles::discard(const std::wstring& path) {
    const auto found = std::find(m_paths.begin(), m_paths.end(), path);
    if (found == m_paths.end())
        return;
    // A file that somebody has open can't be deleted now; it stays in the list for the next time.
    if (DeleteFileW(path.c_str()) || GetLastError() == ERROR_FILE_NOT_FOUND)
        m_paths.erase(found);
}

} // namespace remote
