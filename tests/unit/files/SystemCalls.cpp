#include "SystemCalls.h"

#include "ImportTable.h"
#include "files/TextCoding.h"

#include <sddl.h>

#include <algorithm>
#include <cstring>

namespace {

SystemCalls* g_calls = nullptr;

std::wstring securityText(SECURITY_ATTRIBUTES* attributes) {
    if (!attributes)
        return L"none";
    wchar_t* text = nullptr;
    if (!ConvertSecurityDescriptorToStringSecurityDescriptorW(attributes->lpSecurityDescriptor, SDDL_REVISION_1,
                                                              OWNER_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION,
                                                              &text, nullptr))
        return {};
    std::wstring result = text;
    LocalFree(text);
    SECURITY_DESCRIPTOR_CONTROL control = 0;
    DWORD revision = 0;
    if (GetSecurityDescriptorControl(attributes->lpSecurityDescriptor, &control, &revision) &&
        (control & (SE_DACL_DEFAULTED | SE_OWNER_DEFAULTED)))
        result += L" (only where the folder gives nothing)";
    return result;
}

/// Fails with the error, unless it is 0.
bool fail(DWORD error) {
    SetLastError(error);
    return error != 0;
}

std::string accessText(DWORD access, DWORD disposition) {
    if (disposition == CREATE_NEW)
        return "new";
    std::string text;
    for (const auto& [bit, letter] : {std::pair(GENERIC_READ, 'r'), {GENERIC_WRITE, 'w'}, {DWORD{DELETE}, 'd'}})
        if (access & bit)
            text += letter;
    const DWORD others = access & ~(GENERIC_READ | GENERIC_WRITE | DELETE);
    return access == 0 ? "nothing" : others == 0 ? text : text + "?";
}

} // namespace

/// What stands in the import table in the place of the system's functions.
struct SystemCalls::Stand {
    static HANDLE WINAPI createFile(const wchar_t* path, DWORD access, DWORD share, SECURITY_ATTRIBUTES* security,
                                    DWORD disposition, DWORD flags, HANDLE pattern) {
        std::wstring file = path;
        if (fail(g_calls->record("CreateFile(" + g_calls->nameOf(file) + ", " + accessText(access, disposition) + ")")))
            return INVALID_HANDLE_VALUE;
        if (disposition == CREATE_NEW) {
            g_calls->newSecurity = securityText(security);
            g_calls->newAttributes = flags;
        }
        if (const auto link = g_calls->links.find(file); link != g_calls->links.end())
            file = link->second;
        if (file.empty() && fail(ERROR_FILE_NOT_FOUND))
            return INVALID_HANDLE_VALUE;
        return CreateFileW(file.c_str(), access, share, security, disposition, flags, pattern);
    }
    static DWORD WINAPI getFileAttributes(const wchar_t* path) {
        if (g_calls->links.contains(path))
            return FILE_ATTRIBUTE_REPARSE_POINT;
        const DWORD attributes = g_calls->attributes ? g_calls->attributes(path) : 0;
        return attributes != 0 ? attributes : GetFileAttributesW(path);
    }
    static DWORD WINAPI getFinalPath(HANDLE file, wchar_t* path, DWORD size, DWORD form) {
        if (g_calls->pathForm != (form == VOLUME_NAME_DOS ? PathForm::Letter : PathForm::Disk)) {
            SetLastError(ERROR_PATH_NOT_FOUND);
            return 0;
        }
        return GetFinalPathNameByHandleW(file, path, size, VOLUME_NAME_DOS);
    }
    static BOOL WINAPI flush(HANDLE file) {
        return !fail(g_calls->record("FlushFileBuffers()")) && FlushFileBuffers(file);
    }
    static BOOL WINAPI link(const wchar_t* path, const wchar_t* file, SECURITY_ATTRIBUTES* security) {
        const std::string call = "CreateHardLink(" + g_calls->nameOf(path) + ", " + g_calls->nameOf(file) + ")";
        return !fail(g_calls->record(call)) && CreateHardLinkW(path, file, security);
    }
    static BOOL WINAPI replaceFile(const wchar_t* replaced, const wchar_t* replacement, const wchar_t* backup,
                                   DWORD flags, void*, void*) {
        std::string call = "ReplaceFile(" + g_calls->nameOf(replaced) + ", " + g_calls->nameOf(replacement) + ", " +
                           g_calls->nameOf(backup);
        if (flags & REPLACEFILE_IGNORE_ACL_ERRORS)
            call += ", rights are there";
        if (flags & ~REPLACEFILE_IGNORE_ACL_ERRORS)
            call += ", more flags";
        if (fail(g_calls->record(call + ")")))
            return FALSE;
        if (g_calls->replace)
            return !fail(g_calls->replace(replaced, replacement, backup));
        return ReplaceFileW(replaced, replacement, backup, flags, nullptr, nullptr);
    }
    static BOOL WINAPI deleteFile(const wchar_t* path) {
        return !fail(g_calls->record("DeleteFile(" + g_calls->nameOf(path) + ")")) && DeleteFileW(path);
    }
    static BOOL WINAPI moveFile(const wchar_t* from, const wchar_t* to, DWORD flags) {
        std::string call = "MoveFileEx(" + g_calls->nameOf(from) + ", " + g_calls->nameOf(to);
        if (flags & MOVEFILE_REPLACE_EXISTING)
            call += ", replacing";
        if (flags & MOVEFILE_WRITE_THROUGH)
            call += ", to the disk";
        return !fail(g_calls->record(call + ")")) && MoveFileExW(from, to, flags);
    }
    static BOOL WINAPI getSecurity(const wchar_t* path, SECURITY_INFORMATION parts, void* room, DWORD size,
                                   DWORD* needed) {
        if (fail(g_calls->error ? g_calls->error("GetFileSecurity(" + g_calls->nameOf(path) + ")") : 0))
            return FALSE;
        const std::wstring text = g_calls->security ? g_calls->security(path) : std::wstring();
        void* descriptor = nullptr;
        if (text.empty() ||
            !ConvertStringSecurityDescriptorToSecurityDescriptorW(text.c_str(), SDDL_REVISION_1, &descriptor, needed))
            return GetFileSecurityW(path, parts, room, size, needed);
        const bool fits = size >= *needed;
        if (fits)
            std::memcpy(room, descriptor, *needed);
        LocalFree(descriptor);
        return fits || !fail(ERROR_INSUFFICIENT_BUFFER);
    }
};

SystemCalls::SystemCalls() {
    const std::map<std::string, void*> stands = {
        {"CreateFileW", reinterpret_cast<void*>(&Stand::createFile)},
        {"CreateHardLinkW", reinterpret_cast<void*>(&Stand::link)},
        {"DeleteFileW", reinterpret_cast<void*>(&Stand::deleteFile)},
        {"FlushFileBuffers", reinterpret_cast<void*>(&Stand::flush)},
        {"GetFileAttributesW", reinterpret_cast<void*>(&Stand::getFileAttributes)},
        {"GetFileSecurityW", reinterpret_cast<void*>(&Stand::getSecurity)},
        {"GetFinalPathNameByHandleW", reinterpret_cast<void*>(&Stand::getFinalPath)},
        {"MoveFileExW", reinterpret_cast<void*>(&Stand::moveFile)},
        {"ReplaceFileW", reinterpret_cast<void*>(&Stand::replaceFile)},
    };
    g_calls = this;
    forEachImport(GetModuleHandleW(L"keldb.dll"), [this, &stands](const char* name, void** entry) {
        const auto stand = stands.find(name);
        if (stand == stands.end())
            return;
        m_replaced.push_back({entry, *entry});
        writeImport(entry, stand->second);
    });
}

SystemCalls::~SystemCalls() {
    for (const Replaced& replaced : m_replaced)
        writeImport(replaced.entry, replaced.before);
    g_calls = nullptr;
}

int SystemCalls::count(const std::string& function) const {
    return static_cast<int>(std::count_if(m_made.begin(), m_made.end(), [&function](const std::string& call) {
        return call.starts_with(function + "(");
    }));
}

std::string SystemCalls::nameOf(const std::wstring& path) {
    const std::wstring name = path.substr(path.find_last_of(L"\\/") + 1);
    if (!name.ends_with(L".tmp"))
        return zdr::toUtf8(name);
    auto known = std::find(m_temporary.begin(), m_temporary.end(), name);
    if (known == m_temporary.end())
        known = m_temporary.insert(m_temporary.end(), name);
    return "#" + std::to_string(known - m_temporary.begin() + 1);
}

DWORD SystemCalls::record(const std::string& call) {
    m_made.push_back(call);
    return error ? error(call) : 0;
}
