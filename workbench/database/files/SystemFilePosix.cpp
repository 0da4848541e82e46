// Files over POSIX.
#include "SystemFile.h"

#include "FileBelongingsPosix.h"
#include "Refusal.h"
#include "SystemFailure.h"
#include "TextCoding.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace zdr {
namespace {

int descriptor(std::intptr_t handle) {
    return static_cast<int>(handle);
}

FileFacts factsOf(const struct stat& status) {
    return {static_cast<std::uint64_t>(status.st_size),
            static_cast<std::int64_t>(status.st_mtim.tv_sec) * 1'000'000'000 + status.st_mtim.tv_nsec,
            static_cast<std::uint64_t>(status.st_ino)};
}

/// The path behind symbolic links, so that a link stays a link and the file it leads to is replaced. A link that leads
/// nowhere is refused: what it leads to is mostly not mounted just now.
std::wstring behindLinks(const std::wstring& path) {
    std::error_code error, none;
    const std::filesystem::path target = std::filesystem::canonical(systemPath(path), error);
    if (error && std::filesystem::is_symlink(systemPath(path), none))
        writeFailure(L"following the link", error.value());
    return error ? path : widePath(target);
}

std::wstring besidePath(const std::wstring& target) {
    static std::atomic<unsigned> counter{0};
    const std::string name = ".zdr-" + std::to_string(getpid()) + "-" + std::to_string(counter++) + ".tmp";
    return widePath(systemPath(target).parent_path() / name);
}

/// A rename is safe from a power failure only once its folder is on the disk too.
void flushFolder(const std::filesystem::path& folder) {
    const int handle = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0)
        return;
    fsync(handle);
    ::close(handle);
}

} // namespace

std::wstring errorText(std::int64_t error) {
    return fromUtf8(std::generic_category().message(static_cast<int>(error))).value_or(L"unknown error");
}

InputFile::InputFile(const std::wstring& path) {
    // Without O_NONBLOCK a named pipe would wait for a writer.
    const int handle = open(systemPath(path).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (handle < 0 && (errno == ENOENT || errno == ENOTDIR))
        throw Refusal{Vorn::eFileNotFound, L"doesn't exist"};
    if (handle < 0)
        throw Refusal{Vorn::eFileUnreadable, L"can't be opened for reading: \"" + errorText(errno) + L"\""};
    m_handle = handle;
    struct stat status {};
    if (fstat(handle, &status) == 0 && S_ISREG(status.st_mode))
        return;
    ::close(handle);
    throw Refusal{Vorn::eFileUnreadable, S_ISDIR(status.st_mode) ? L"can't be opened for reading: it is a folder"
                                                                 : L"can't be opened for reading: it isn't a file"};
}

InputFile::~InputFile() {
    ::close(descriptor(m_handle));
}

FileFacts InputFile::facts() const {
    struct stat status {};
    if (fstat(descriptor(m_handle), &status) != 0)
        throw Refusal{Vorn::eFileUnreadable, L"can't be read: \"" + errorText(errno) + L"\""};
    return factsOf(status);
}

std::size_t InputFile::read(std::span<std::byte> bytes) {
    for (;;) {
        const ssize_t count = ::read(descriptor(m_handle), bytes.data(), bytes.size());
        if (count >= 0)
            return static_cast<std::size_t>(count);
        if (errno != EINTR)
            throw Refusal{Vorn::eFileUnreadable, L"can't be read: \"" + errorText(errno) + L"\""};
    }
}

ReplacementFile::ReplacementFile(std::wstring target, Unopened) : m_target(std::move(target)), m_handle(-1) {}

// Delegates, so that the destructor removes the new file also when something fails after it was made.
ReplacementFile::ReplacementFile(const std::wstring& target) : ReplacementFile(behindLinks(target), Unopened{}) {
    const std::filesystem::path system = systemPath(m_target);
    struct stat status {};
    const bool exists = stat(system.c_str(), &status) == 0;
    // A rename would put a file in the place of a device, too.
    if (exists && !S_ISREG(status.st_mode)) {
        if (S_ISDIR(status.st_mode))
            writeFailure(L"opening the file", EISDIR);
        throw Refusal{Vorn::eFileWriteFailed, L"can't be written: it isn't a file"};
    }
    // A rename asks only for rights on the folder; a file that is protected against writing is not to be replaced.
    if (faccessat(AT_FDCWD, system.c_str(), W_OK, AT_EACCESS) != 0 && errno != ENOENT)
        writeFailure(L"opening the file", errno);
    // Nobody else may look into what will replace a file before it has that file's rights. A new file has the rights
    // that all new files get.
    const mode_t rights = exists ? 0600 : 0666;
    std::filesystem::path made;
    do {
        m_path = besidePath(m_target);
        made = systemPath(m_path);
        m_handle = open(made.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, rights);
    } while (m_handle < 0 && errno == EEXIST);
    if (m_handle < 0)
        writeFailure(L"making a file in its folder", errno);
    m_made = std::move(made);
}

ReplacementFile::~ReplacementFile() {
    close();
    if (!m_made.empty())
        unlink(m_made.c_str());
}

void ReplacementFile::close() {
    if (m_handle >= 0)
        ::close(descriptor(m_handle));
    m_handle = -1;
}

void ReplacementFile::write(std::span<const std::byte> bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(descriptor(m_handle), bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR)
            writeFailure(L"writing", errno);
        if (count > 0)
            bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
}

FileFacts ReplacementFile::flush() {
    // Only now, because writing takes some rights away again.
    keepBelongings(descriptor(m_handle), systemPath(m_target));
    if (fsync(descriptor(m_handle)) != 0)
        writeFailure(L"writing to the disk", errno);
    const std::optional<FileFacts> facts = fileFacts(m_path);
    if (!facts)
        writeFailure(L"asking for its size", errno);
    return *facts;
}

void ReplacementFile::replace() {
    const std::filesystem::path target = systemPath(m_target);
    const std::filesystem::path folder = target.has_parent_path() ? target.parent_path() : ".";
    // From here on nothing may fail but the rename itself.
    if (rename(m_made.c_str(), target.c_str()) != 0)
        writeFailure(L"replacing the old file", errno);
    m_made.clear();
    flushFolder(folder);
}

OpenMark::OpenMark() : m_handle(-1) {}

OpenMark::OpenMark(const std::wstring& path)
    : m_path(path + kMarkEnding), m_handle(open(systemPath(m_path).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666)) {
    if (m_handle < 0 || flock(descriptor(m_handle), LOCK_EX | LOCK_NB) == 0)
        return;
    m_isOthers = errno == EWOULDBLOCK;
    ::close(descriptor(m_handle));
    m_handle = -1;
}

OpenMark::~OpenMark() {
    if (m_handle < 0)
        return;
    unlink(systemPath(m_path).c_str());
    ::close(descriptor(m_handle));
}

std::optional<FileFacts> fileFacts(const std::wstring& path) {
    struct stat status {};
    if (stat(systemPath(path).c_str(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    return factsOf(status);
}

std::wstring driveTarget(wchar_t) {
    return {}; // there are no drives
}

std::int64_t fileClock() {
    using namespace std::chrono;
    return duration_cast<nanoseconds>(system_clock::now().time_since_epoch()).count();
}

} // namespace zdr
