#include "FileBelongingsPosix.h"

#include "Refusal.h"
#include "SystemFailure.h"
#include "TextCoding.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <optional>
#include <string>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <vector>

namespace zdr {
namespace {

constexpr mode_t kRights = 07777;
constexpr const char* kAccessList = "system.posix_acl_access";

/// Fills a text by a call that answers a length when it is given no room, and again when there is room.
template <class Call> std::optional<std::string> textOf(Call call) {
    std::string text;
    for (;;) {
        const ssize_t needed = call(nullptr, 0);
        if (needed < 0)
            return std::nullopt;
        text.resize(static_cast<std::size_t>(needed));
        const ssize_t length = call(text.data(), text.size());
        if (length >= 0 && static_cast<std::size_t>(length) <= text.size()) {
            text.resize(static_cast<std::size_t>(length));
            return text;
        }
        if (length < 0 && errno != ERANGE) // which says that it became longer in between
            return std::nullopt;
    }
}

std::vector<std::string> attributeNames(const std::filesystem::path& file) {
    const auto list = textOf([&](char* room, std::size_t size) { return listxattr(file.c_str(), room, size); });
    if (!list && errno != ENOTSUP)
        writeFailure(L"asking for its attributes", errno);
    std::vector<std::string> names;
    for (std::size_t at = 0; list && at < list->size(); at += names.back().size() + 1)
        names.emplace_back(list->c_str() + at);
    return names;
}

/// What the system computes from the content, or takes away when the content changes, isn't for the new content.
bool isOfContent(const std::string& name) {
    constexpr std::array kOfContent = {"security.capability", "security.evm", "security.ima"};
    return std::ranges::find(kOfContent, name) != kOfContent.end();
}

[[noreturn]] void attributeFailure(const std::string& name, int error) {
    writeFailure(name == kAccessList ? L"keeping its access list"
                                     : L"keeping its attribute \"" + fromUtf8(name).value_or(L"?") + L"\"",
                 error);
}

void keepAttribute(int handle, const std::filesystem::path& old, const std::string& name) {
    const auto wanted =
        textOf([&](char* room, std::size_t size) { return getxattr(old.c_str(), name.c_str(), room, size); });
    if (!wanted)
        attributeFailure(name, errno);
    const auto present =
        textOf([&](char* room, std::size_t size) { return fgetxattr(handle, name.c_str(), room, size); });
    // One that is there already, such as a security label, may well be one that isn't ours to set.
    if (present != wanted && fsetxattr(handle, name.c_str(), wanted->data(), wanted->size(), 0) != 0)
        attributeFailure(name, errno);
}

void keepAttributes(int handle, const std::filesystem::path& old) {
    const std::vector<std::string> names = attributeNames(old);
    for (const std::string& name : names)
        if (!isOfContent(name))
            keepAttribute(handle, old, name);
    // A folder can give an access list to what is made in it.
    const bool hasList = std::ranges::find(names, kAccessList) != names.end();
    if (!hasList && fremovexattr(handle, kAccessList) != 0 && errno != ENODATA && errno != ENOTSUP)
        attributeFailure(kAccessList, errno);
}

struct stat factsOf(int handle) {
    struct stat facts {};
    if (fstat(handle, &facts) != 0)
        writeFailure(L"asking for its rights", errno);
    return facts;
}

void keepOwner(int handle, const struct stat& old) {
    const struct stat now = factsOf(handle);
    const bool same = now.st_uid == old.st_uid && now.st_gid == old.st_gid;
    if (!same && fchown(handle, old.st_uid, old.st_gid) != 0)
        writeFailure(now.st_uid == old.st_uid ? L"keeping its group" : L"keeping its owner", errno);
}

/// Some file systems answer that all went well, and change nothing.
void requireKept(int handle, const struct stat& old) {
    const struct stat now = factsOf(handle);
    if (now.st_uid != old.st_uid || now.st_gid != old.st_gid || (now.st_mode & kRights) != (old.st_mode & kRights))
        throw Refusal{Vorn::eFileWriteFailed, L"can't be written: its folder can't keep its owner and its rights"};
}

} // namespace

void keepBelongings(int handle, const std::filesystem::path& old) {
    struct stat status {};
    if (stat(old.c_str(), &status) != 0) {
        if (errno != ENOENT)
            writeFailure(L"asking for its rights", errno);
        return;
    }
    // In this order: another owner takes rights away, and the rights are a part of an access list.
    keepOwner(handle, status);
    keepAttributes(handle, old);
    if (fchmod(handle, status.st_mode & kRights) != 0)
        writeFailure(L"keeping its rights", errno);
    requireKept(handle, status);
}

} // namespace zdr
