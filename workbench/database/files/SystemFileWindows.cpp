// Files over Win32.
#include "SystemFile.h"

#include "FileHandleWindows.h"
#include "FilePlacingWindows.h"
#include "FileSecurityWindows.h"
#include "Refusal.h"
#include "SystemFailure.h"
#include "SystemPathsWindows.h"

#include <windows.h>

#include <algorithm>

namespace zdr {
namespace {

[[noreturn]] void readFailure(DWORD error) {
    throw Refusal{Vorn::eFileUnreadable, L"can't be read: \"" + errorText(error) + L"\""};
}

HANDLE handleOf(std::intptr_t handle) {
    return reinterpret_cast<HANDLE>(handle);
}
std::intptr_t numberOf(HANDLE handle) {
    return reinterpret_cast<std::intptr_t>(handle);
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

/// Refuses a file that isn't to be replaced: one that is protected against writing, by its rights or otherwise, a
/// folder and a device.
void requireWritable(const std::wstring& target) {
    if (isReadOnly(longPath(target).c_str()))
        writeFailure(L"opening the file", ERROR_ACCESS_DENIED);
    // What ReplaceFile asks for, and the right to write.
    const FileHandle file(longPath(target).c_str(), GENERIC_READ | GENERIC_WRITE | DELETE);
    if (!file) {
        // Others who keep writers out for a while may be gone when it is replaced.
        const DWORD error = GetLastError();
        if (!isMissing(error) && error != ERROR_SHARING_VIOLATION)
            writeFailure(L"opening the file", error);
    } else if (!file.isFile()) {
        throw Refusal{Vorn::eFileWriteFailed, L"can't be written: it isn't a file"};
    }
}

/// The attributes of a file that a new one has to have from the start: what is encrypted must never stand on the disk
/// in the clear.
DWORD firstAttributes(const std::wstring& target) {
    const DWORD attributes = GetFileAttributesW(longPath(target).c_str());
    constexpr DWORD kFirst = FILE_ATTRIBUTE_ENCRYPTED | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    return FILE_ATTRIBUTE_ARCHIVE | (attributes == INVALID_FILE_ATTRIBUTES ? 0 : attributes & kFirst);
}

} // namespace

std::wstring errorText(std::int64_t error) {
    wchar_t* buffer = nullptr;
    const DWORD length =
        FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                       nullptr, static_cast<DWORD>(error), 0, reinterpret_cast<wchar_t*>(&buffer), 0, nullptr);
    std::wstring text = length > 0 ? std::wstring(buffer, length) : L"error " + std::to_wstring(error);
    LocalFree(buffer);
    while (!text.empty() && (text.back() == L'\r' || text.back() == L'\n' || text.back() == L'.'))
        text.pop_back();
    return text;
}

InputFile::InputFile(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(longPath(path).c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY))
        throw Refusal{Vorn::eFileUnreadable, L"can't be opened for reading: it is a folder"};
    FileHandle file(longPath(path).c_str(), GENERIC_READ);
    if (!file) {
        const DWORD error = GetLastError();
        if (isMissing(error))
            throw Refusal{Vorn::eFileNotFound, L"doesn't exist"};
        throw Refusal{Vorn::eFileUnreadable, L"can't be opened for reading: \"" + errorText(error) + L"\""};
    }
    if (!file.isFile())
        throw Refusal{Vorn::eFileUnreadable, L"can't be opened for reading: it isn't a file"};
    m_handle = numberOf(file.release());
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
    requireWritable(m_target);
    FileSecurity security(longPath(m_target));
    const DWORD attributes = firstAttributes(m_target);
    HANDLE handle = INVALID_HANDLE_VALUE;
    std::filesystem::path made;
    do {
        m_path = besidePath(m_target);
        made = longPath(m_path);
        handle = CreateFileW(made.c_str(), GENERIC_WRITE, FILE_SHARE_READ, security.forNewFile(), CREATE_NEW,
                             attributes, nullptr);
    } while (handle == INVALID_HANDLE_VALUE && GetLastError() == ERROR_FILE_EXISTS);
    if (handle == INVALID_HANDLE_VALUE) {
        const DWORD error = GetLastError();
        writeFailure(error == ERROR_INVALID_OWNER ? L"keeping its owner" : L"making a file in its folder", error);
    }
    m_handle = numberOf(handle);
    m_made = std::move(made);
}

ReplacementFile::~ReplacementFile() {
    close();
    if (!m_made.empty())
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
    placeFile(m_made, m_target);
}

OpenMark::OpenMark() : m_handle(numberOf(INVALID_HANDLE_VALUE)) {}

OpenMark::OpenMark(const std::wstring& path) : m_path(path + kMarkEnding) {
    const HANDLE handle = CreateFileW(longPath(m_path).c_str(), GENERIC_WRITE | DELETE, 0, nullptr, OPEN_ALWAYS,
                                      FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    m_handle = numberOf(handle);
    m_isOthers = handle == INVALID_HANDLE_VALUE && GetLastError() == ERROR_SHARING_VIOLATION;
}

OpenMark::~OpenMark() {
    if (handleOf(m_handle) != INVALID_HANDLE_VALUE)
        CloseHandle(handleOf(m_handle));
}

std::optional<FileFacts> fileFacts(const std::wstring& path) {
    const FileHandle file(longPath(path).c_str(), GENERIC_READ);
    return file ? factsOf(file.get()) : std::nullopt;
}

std::int64_t fileClock() {
    FILETIME now{};
    GetSystemTimeAsFileTime(&now);
    return nanoseconds(now);
}

} // namespace zdr
