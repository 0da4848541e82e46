#include "FileSecurityWindows.h"

#include "FileHandleWindows.h"
#include "SystemFailure.h"

namespace zdr {
namespace {

bool knowsNoRights(DWORD error) {
    return error == ERROR_NOT_SUPPORTED || error == ERROR_INVALID_FUNCTION || error == ERROR_CALL_NOT_IMPLEMENTED;
}

} // namespace

FileSecurity::FileSecurity(const std::wstring& path) {
    constexpr SECURITY_INFORMATION kParts = OWNER_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION;
    DWORD size = 0;
    while (
        !GetFileSecurityW(path.c_str(), kParts, m_descriptor.data(), static_cast<DWORD>(m_descriptor.size()), &size)) {
        const DWORD error = GetLastError();
        if (error == ERROR_INSUFFICIENT_BUFFER && size > m_descriptor.size()) {
            m_descriptor.resize(size);
            continue;
        }
        m_descriptor.clear();
        if (!isMissing(error) && !knowsNoRights(error))
            writeFailure(L"asking for its rights", error);
        break;
    }
}

ACL* FileSecurity::accessList() const {
    BOOL isThere = FALSE, isDefault = FALSE;
    ACL* list = nullptr;
    if (!m_descriptor.empty())
        GetSecurityDescriptorDacl(descriptor(), &isThere, &list, &isDefault);
    return list;
}

SECURITY_ATTRIBUTES* FileSecurity::forNewFile() {
    if (m_descriptor.empty())
        return nullptr;
    SID* owner = nullptr;
    BOOL isDefault = FALSE;
    GetSecurityDescriptorOwner(descriptor(), reinterpret_cast<void**>(&owner), &isDefault);
    InitializeSecurityDescriptor(&m_forNewFile, SECURITY_DESCRIPTOR_REVISION);
    SetSecurityDescriptorOwner(&m_forNewFile, owner, FALSE);
    SetSecurityDescriptorDacl(&m_forNewFile, TRUE, accessList(), FALSE);
    // Without this the folder would add what it gives to new files.
    SetSecurityDescriptorControl(&m_forNewFile, SE_DACL_PROTECTED, SE_DACL_PROTECTED);
    m_attributes = {sizeof(m_attributes), &m_forNewFile, FALSE};
    return &m_attributes;
}

/// The entries of the access list, without the marks that tell which of them came from the folder.
std::vector<std::byte> FileSecurity::rights() const {
    std::vector<std::byte> entries;
    ACL* const list = accessList();
    for (DWORD i = 0; list && i < list->AceCount; ++i) {
        ACE_HEADER* entry = nullptr;
        if (!GetAce(list, i, reinterpret_cast<void**>(&entry)))
            break;
        const auto* const bytes = reinterpret_cast<const std::byte*>(entry);
        const std::size_t start = entries.size();
        entries.insert(entries.end(), bytes, bytes + entry->AceSize);
        entries[start + offsetof(ACE_HEADER, AceFlags)] &= ~std::byte{INHERITED_ACE};
    }
    return entries;
}

bool FileSecurity::givesTheSameRightsAs(const FileSecurity& other) const {
    // No list at all lets everybody in; an empty one nobody.
    const bool areAlike = m_descriptor.empty() == other.m_descriptor.empty();
    return areAlike && !accessList() == !other.accessList() && rights() == other.rights();
}

} // namespace zdr
