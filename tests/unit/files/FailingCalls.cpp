#include "FailingCalls.h"

#include <cerrno>
#include <map>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

struct Failing {
    std::function<std::optional<int>()> error;
    int count = 0;
};
std::map<std::string, Failing> g_failing;

template <class... Arguments> long answer(const char* function, long number, Arguments... arguments) {
    const auto failing = g_failing.find(function);
    if (failing == g_failing.end())
        return syscall(number, arguments...);
    ++failing->second.count;
    const std::optional<int> error = failing->second.error();
    if (!error)
        return syscall(number, arguments...);
    errno = *error;
    return errno ? -1 : 0;
}

} // namespace

FailingCalls::FailingCalls(const std::string& function, int error)
    : FailingCalls(function, [error] { return error; }) {}

FailingCalls::FailingCalls(const std::string& function, std::function<std::optional<int>()> error)
    : m_function(function) {
    g_failing[function] = {std::move(error)};
}

FailingCalls::~FailingCalls() {
    g_failing.erase(m_function);
}

int FailingCalls::count() const {
    return g_failing.at(m_function).count;
}

extern "C" {

int fchmod(int file, mode_t mode) noexcept {
    return static_cast<int>(answer("fchmod", SYS_fchmod, file, mode));
}
int fchown(int file, uid_t owner, gid_t group) noexcept {
    return static_cast<int>(answer("fchown", SYS_fchown, file, owner, group));
}
int fstat(int file, struct stat* facts) noexcept {
    return static_cast<int>(answer("fstat", SYS_fstat, file, facts));
}
int fsync(int file) {
    return static_cast<int>(answer("fsync", SYS_fsync, file));
}
int fremovexattr(int file, const char* name) noexcept {
    return static_cast<int>(answer("fremovexattr", SYS_fremovexattr, file, name));
}
int fsetxattr(int file, const char* name, const void* value, size_t size, int flags) noexcept {
    return static_cast<int>(answer("fsetxattr", SYS_fsetxattr, file, name, value, size, flags));
}
int unlink(const char* path) noexcept {
    return static_cast<int>(answer("unlink", SYS_unlink, path));
}
ssize_t read(int file, void* bytes, size_t size) {
    return answer("read", SYS_read, file, bytes, size);
}
ssize_t write(int file, const void* bytes, size_t size) {
    return answer("write", SYS_write, file, bytes, size);
}
ssize_t listxattr(const char* path, char* list, size_t size) noexcept {
    return answer("listxattr", SYS_listxattr, path, list, size);
}

} // extern "C"
