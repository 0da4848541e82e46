#include "AccessWatch.h"

#include "files/TextCoding.h"

#include <cstdarg>
#include <cstdio>
#include <dlfcn.h>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

struct AccessWatch::System {
    std::string watched; // what such a path holds
    bool isTouched = false;
};

namespace {

std::string* g_watched = nullptr;
bool* g_isTouched = nullptr;

void see(const char* path) {
    if (path && g_watched && std::string_view(path).find(*g_watched) != std::string_view::npos)
        *g_isTouched = true;
}

/// Then a mode follows. The bits of O_TMPFILE hold those of O_DIRECTORY.
bool makesFile(int flags) {
    return (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
}

/// The system's own function.
template <class Function> Function* systems(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

} // namespace

AccessWatch::AccessWatch() : m_system(std::make_unique<System>()) {
    static int counter = 0;
    const std::wstring name = L"zdr-watched-" + std::to_wstring(getpid()) + L"-" + std::to_wstring(counter++);
    m_path = L"//" + name + L"/share/x.zdr";
    m_system->watched = zdr::toUtf8(name);
    g_isTouched = &m_system->isTouched;
    g_watched = &m_system->watched;
}

AccessWatch::~AccessWatch() {
    g_watched = nullptr;
}

bool AccessWatch::isTouched() const {
    return m_system->isTouched;
}

extern "C" {

int stat(const char* path, struct stat* facts) noexcept {
    see(path);
    return systems<int(const char*, struct stat*)>("stat")(path, facts);
}
int lstat(const char* path, struct stat* facts) noexcept {
    see(path);
    return systems<int(const char*, struct stat*)>("lstat")(path, facts);
}
int fstatat(int folder, const char* path, struct stat* facts, int flags) noexcept {
    see(path);
    return systems<int(int, const char*, struct stat*, int)>("fstatat")(folder, path, facts, flags);
}
int access(const char* path, int mode) noexcept {
    see(path);
    return systems<int(const char*, int)>("access")(path, mode);
}
int open(const char* path, int flags, ...) {
    see(path);
    va_list more;
    va_start(more, flags);
    const mode_t mode = makesFile(flags) ? va_arg(more, mode_t) : 0;
    va_end(more);
    return systems<int(const char*, int, ...)>("open")(path, flags, mode);
}
int openat(int folder, const char* path, int flags, ...) {
    see(path);
    va_list more;
    va_start(more, flags);
    const mode_t mode = makesFile(flags) ? va_arg(more, mode_t) : 0;
    va_end(more);
    return systems<int(int, const char*, int, ...)>("openat")(folder, path, flags, mode);
}
FILE* fopen64(const char* path, const char* mode) {
    see(path);
    return systems<FILE*(const char*, const char*)>("fopen64")(path, mode);
}
ssize_t readlink(const char* path, char* target, size_t size) noexcept {
    see(path);
    return systems<ssize_t(const char*, char*, size_t)>("readlink")(path, target, size);
}
char* realpath(const char* path, char* resolved) noexcept {
    see(path);
    return systems<char*(const char*, char*)>("realpath")(path, resolved);
}

} // extern "C"
