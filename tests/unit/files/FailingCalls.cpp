#include "FailingCalls.h"

#include <cerrno>
#include <map>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

struct Failing {
    int error;
    int count;
};
std::map<std::string, Failing> g_failing;

template <class... Arguments> int answer(const char* function, long number, Arguments... arguments) {
    const auto failing = g_failing.find(function);
    if (failing == g_failing.end())
        return static_cast<int>(syscall(number, arguments...));
    ++failing->second.count;
    errno = failing->second.error;
    return errno ? -1 : 0;
}

} // namespace

FailingCalls::FailingCalls(const std::string& function, int error) : m_function(function) {
    g_failing[function] = {error, 0};
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
ssize_t listxattr(const char* path, char* list, size_t size) noexcept {
    return answer("listxattr", SYS_listxattr, path, list, size);
}

} // extern "C"
