// Files over Win32.
#include "SystemFile.h"

#include "Refusal.h"

#include <windows.h>

#include <algorithm>
#include <atomic>
#include <filesystem>

namespace zdr {
namespace {

std::wstring errorText(DWORD error) {
    wchar_t* buffer = nullptr;
    const DWORD length =
        FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                       nullptr, error, 0, reinterpret_cast<wchar_t*>(&buffer), 0, nullptr);
    std::wstring text = length > 0 ? std::wstring(buffer, length) : L"error " + std::to_wstring(error);
    LocalFree(buffer);
    while (!text.empty() && (text.back() == L'\r' || text.back() == L'\n' || text.back() == L'.'))
        text.pop_back();
    return text;
}

[[noreturn]] void readFailure(DWORD error) {
    throw Refusal{Vorn::eFileUnreadable, L"can't be read: \"" + errorText(error) + L"\""};
}

[[noreturn]] void writeFailure(const wchar_t* action, DWORD error) {
    throw Refusal{Vorn::eFileWriteFailed,
                  std::wstring(L"can't be written: ") + action + L" failed, because of \"" + errorText(error) + L"\""};
}

HANDLE handleOf(std::intptr_t handle) {
    return reinterpret_cast<HANDLE>(handle);
}
std::intptr_t numberOf(HANDLE handle) {
    return reinterpret_cast<std::intptr_t>(handle);
}

/// The path in the form that may be longer than 260 characters, where it must be.
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

constexpr std::int64_t kTick = 100; // nanoseconds

std::int64_t nanoseconds(const FILETIME& time) {
    // Since 1970 rather than 1601, or the nanoseconds would not fit.
    constexpr std::int64_t kEpoch = 116'444'736'000'000'000;
    const auto ticks = static_cast<std::int64_t>(std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime);
    return (ticks - kEpoch) * kTick;
}

std::optional<FileFacts> factsOf(HANDLE handle) {
    BY_HANDLE_FILE_INFORMATION information{};
    if (!GetFileInformationByHandle(handle, &information))
        return std::nullopt;
    return FileFacts{std::uint64_t{information.nFileSizeHigh} << 32 | information.nFileSizeLow,
                     nanoseconds(information.ftLastWriteTime),
                     std::uint64_t{information.nFileIndexHigh} << 32 | information.nFileIndexLow};
}

bool isMissing(DWORD error) {
    return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND || error == ERROR_INVALID_NAME ||
           error == ERROR_BAD_NETPATH || error == ERROR_BAD_NET_NAME;
}

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

HANDLE openForReading(const std::wstring& path) {
    return CreateFileW(longPath(path).c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING,
                       FILE_ATTRIBUTE_NORMAL | FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
}

/// Whether the path is a device's, such as NUL, which is there in every folder.
bool isDevice(const std::wstring& path) {
    const HANDLE handle = openForReading(path);
    if (handle == INVALID_HANDLE_VALUE)
        return false;
    const bool isFile = GetFileType(handle) == FILE_TYPE_DISK;
    CloseHandle(handle);
    return !isFile;
}

std::wstring besidePath(const std::wstring& target) {
    static std::atomic<unsigned> counter{0};
    const std::wstring name =
        L"zdr-" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(counter++) + L".tmp";
    return (std::filesystem::path(target).parent_path() / name).wstring();
}

/// The path behind symbolic links, so that a link stays a link and the file it leads to is replaced.
std::wstring behindLinks(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(longPath(path).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || !(attributes & FILE_ATTRIBUTE_REPARSE_POINT))
        return path;
    std::error_code error;
    const std::filesystem::path target = std::filesystem::canonical(path, error);
    return error ? path : target.wstring();
}

/// Replaces a file. One that somebody has open can't be replaced. Programs that look into new files (search, virus
/// scanners, another one reading a drawing) close them soon, so this tries again for a while.
bool moveOver(const std::wstring& from, const std::wstring& to) {
    constexpr int kTries = 50;
    constexpr DWORD kPause = 10; // milliseconds
    for (int left = kTries; left > 0; --left) {
        if (MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
            return true;
        const DWORD error = GetLastError();
        if (error != ERROR_SHARING_VIOLATION && error != ERROR_ACCESS_DENIED)
            return false;
        Sleep(kPause);
        SetLastError(error);
    }
    return false;
}

} // namespace

InputFile::InputFile(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(longPath(path).c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY))
        throw Refusal{Vorn::eFileUnreadable, L"can't be opened for reading: it is a folder"};
    const HANDLE handle = openForReading(path);
    if (handle == INVALID_HANDLE_VALUE) {
        const DWORD error = GetLastError();
        if (isMissing(error))
            throw Refusal{Vorn::eFileNotFound, L"doesn't exist"};
        throw Refusal{Vorn::eFileUnreadable, L"can't be opened for reading: \"" + errorText(error) + L"\""};
    }
    m_handle = numberOf(handle);
    if (GetFileType(handle) == FILE_TYPE_DISK)
        return;
    CloseHandle(handle);
    throw Refusal{Vorn::eFileUnreadable, L"can't be opened for reading: it isn't a file"};
}

InputFile::~InputFile() {
    CloseHandle(handleOf(m_handle));
}

FileFacts InputFile::facts() const {
    const std::optional<FileFacts> facts = factsOf(handleOf(m_handle));
    if (!facts)
        readFailure(GetLastError());
    return *facts;
}

std::size_t InputFile::read(std::span<std::byte> bytes) {
    const auto wanted = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), 1u << 30));
    DWORD count = 0;
    if (!ReadFile(handleOf(m_handle), bytes.data(), wanted, &count, nullptr))
        readFailure(GetLastError());
    return count;
}

ReplacementFile::ReplacementFile(std::wstring target, Unopened)
    : m_target(std::move(target)), m_handle(numberOf(INVALID_HANDLE_VALUE)) {}

// Delegates, so that the destructor removes the new file also when something fails after it was made.
ReplacementFile::ReplacementFile(const std::wstring& target) : ReplacementFile(behindLinks(target), Unopened{}) {
    const DWORD attributes = GetFileAttributesW(longPath(m_target).c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)))
        writeFailure(L"opening the file", ERROR_ACCESS_DENIED);
    if (isDevice(m_target))
        throw Refusal{Vorn::eFileWriteFailed, L"can't be written: it isn't a file"};
    HANDLE handle = INVALID_HANDLE_VALUE;
    std::filesystem::path made;
    do {
        m_path = besidePath(m_target);
        made = longPath(m_path);
        handle = CreateFileW(made.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL,
                             nullptr);
    } while (handle == INVALID_HANDLE_VALUE && GetLastError() == ERROR_FILE_EXISTS);
    if (handle == INVALID_HANDLE_VALUE)
        writeFailure(L"making a file in its folder", GetLastError());
    m_handle = numberOf(handle);
    m_made = std::move(made);
}

ReplacementFile::~ReplacementFile() {
    close();
    if (!m_replaced && !m_made.empty())
        DeleteFileW(m_made.c_str());
}

void ReplacementFile::close() {
    if (handleOf(m_handle) != INVALID_HANDLE_VALUE)
        CloseHandle(handleOf(m_handle));
    m_handle = numberOf(INVALID_HANDLE_VALUE);
}

void ReplacementFile::write(std::span<const std::byte> bytes) {
    while (!bytes.empty()) {
        const auto wanted = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), 1u << 30));
        DWORD count = 0;
        if (!WriteFile(handleOf(m_handle), bytes.data(), wanted, &count, nullptr))
            writeFailure(L"writing", GetLastError());
        bytes = bytes.subspan(count);
    }
}

FileFacts ReplacementFile::flush() {
    if (!FlushFileBuffers(handleOf(m_handle)))
        writeFailure(L"writing to the disk", GetLastError());
    // The time of the last write is settled only when the file is closed.
    close();
    const std::optional<FileFacts> facts = fileFacts(m_path);
    if (!facts)
        writeFailure(L"asking for its size", GetLastError());
    return *facts;
}

void ReplacementFile::replace() {
    if (!moveOver(longPath(m_path), longPath(m_target)))
        writeFailure(L"replacing the old file", GetLastError());
    m_replaced = true;
}

std::optional<FileFacts> fileFacts(const std::wstring& path) {
    const HANDLE handle = openForReading(path);
    if (handle == INVALID_HANDLE_VALUE)
        return std::nullopt;
    const std::optional<FileFacts> facts = factsOf(handle);
    CloseHandle(handle);
    return facts;
}

std::int64_t fileClock() {
    FILETIME now{};
    GetSystemTimeAsFileTime(&now);
    return nanoseconds(now);
}

} // namespace zdr
