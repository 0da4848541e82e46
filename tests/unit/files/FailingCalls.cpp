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

template <class Result = int, class... Arguments>
Result answer(const char* function, long number, Arguments... arguments) {
    const auto failing = g_failing.find(function);
    std::optional<int> error;
    if (failing != g_failing.end()) {
        ++failing->second.count;
        error = failing->second.error();
    }
    if (!error)
        return static_cast<Result>(syscall(number, arguments...));
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

std::function<std::optional<int>()> failingAt(int nth, int error) {
    return [nth, error, calls = 0]() mutable { return ++calls == nth ? std::optional(error) : std::nullopt; };
}

FailingCalls::~FailingCalls() {
    g_failing.erase(m_function);
}

int FailingCalls::count() const {
    return g_failing.at(m_function).count;
}

extern "C" {

int fchmod(int file, mode_t mode) noexcept {
    return answer("fchmod", SYS_fchmod, file, mode);
}
int fchown(int file, uid_t owner, gid_t group) noexcept {
    return answer("fchown", SYS_fchown, file, owner, group);
}
int fstat(int file, struct stat* facts) noexcept {
    return answer("fstat", SYS_fstat, file, facts);
}
int fsync(int file) {
    return answer("fsync", SYS_fsync, file);
}
int fremovexattr(int file, const char* name) noexcept {
    return answer("fremovexattr", SYS_fremovexattr, file, name);
}
int fsetxattr(int file, const char* name, const void* value, size_t size, int flags) noexcept {
    return answer("fsetxattr", SYS_fsetxattr, file, name, value, size, flags);
}
int unlink(const char* path) noexcept {
    return answer("unlink", SYS_unlink, path);
}
ssize_t read(int file, void* bytes, size_t size) {
    return answer<ssize_t>("read", SYS_read, file, bytes, size);
}
ssize_t write(int file, const void* bytes, size_t size) {
    return answer<ssize_t>("write", SYS_write, file, bytes, size);
}
ssize_t listxattr(const char* path, char* list, size_t size) noexcept {
    return answer<ssize_t>("listxattr", SYS_listxattr, path, list, size);
}

} // extern "C"
