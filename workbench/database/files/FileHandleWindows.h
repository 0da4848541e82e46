// An open file of Win32 that closes itself.
#pragma once

#include <windows.h>

#include <utility>

namespace zdr {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// Whether an error says that there is no such file.
inline bool isMissing(DWORD error) {
    return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND || error == ERROR_INVALID_NAME ||
           error == ERROR_BAD_NETPATH || error == ERROR_BAD_NET_NAME;
}

/// Whether the attribute that protects a file from everybody is set.
inline bool isReadOnly(const wchar_t* path) {
    const DWORD attributes = GetFileAttributesW(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY);
}

class FileHandle {
  public:
    /// Opens a file that is there, whatever others do with it meanwhile, so that they aren't disturbed.
    /// @param path as the system takes it
    FileHandle(const wchar_t* path, DWORD access)
        : m_handle(CreateFileW(path, access, kShareAll, nullptr, OPEN_EXISTING,
                               FILE_ATTRIBUTE_NORMAL | FILE_FLAG_SEQUENTIAL_SCAN, nullptr)) {}
    ~FileHandle() {
        if (*this)
            CloseHandle(m_handle);
    }
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;

    /// False when it couldn't be opened; GetLastError() tells why.
    explicit operator bool() const { return m_handle != INVALID_HANDLE_VALUE; }
    HANDLE get() const { return m_handle; }
    HANDLE release() { return std::exchange(m_handle, INVALID_HANDLE_VALUE); }
    /// A device, such as NUL, is there in every folder, but is no file.
    bool isFile() const { return GetFileType(m_handle) == FILE_TYPE_DISK; }

  private:
    HANDLE m_handle;
};

} // namespace zdr
