#include "DialogStore.h"

#include "RegistryKey.h"

#include <algorithm>
#include <utility>

namespace framework {
namespace {

constexpr const wchar_t* kWorkbenchRoot = L"Software\\KelWorkbench\\Dialogs";

constexpr std::size_t kLongestText = 0x8000;

std::wstring& movedRoot() {
    static std::wstring path;
    return path;
}

/// A backslash would make a key within a key.
std::wstring asKeyName(std::wstring_view name) {
    std::wstring key(name);
    std::replace(key.begin(), key.end(), L'\\', L'/');
    return key;
}

} // namespace

DialogStore::DialogStore(std::wstring_view dialogName, std::wstring_view group) {
    if (dialogName.empty())
        return;
    m_path = root() + L'\\' + asKeyName(dialogName);
    if (!group.empty())
        m_path += L'\\' + asKeyName(group);
}

std::optional<unsigned long> DialogStore::number(const std::wstring& name) const {
    RegistryKey key;
    if (m_path.empty() || !key.openForReading(m_path))
        return std::nullopt;
    DWORD value = 0;
    DWORD type = REG_NONE;
    DWORD size = sizeof value;
    const LSTATUS status =
        RegQueryValueExW(key.get(), name.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(&value), &size);
    if (status != ERROR_SUCCESS || type != REG_DWORD || size != sizeof value)
        return std::nullopt;
    return value;
}

bool DialogStore::setNumber(const std::wstring& name, unsigned long value) const {
    RegistryKey key;
    if (m_path.empty() || !key.create(m_path))
        return false;
    const DWORD number = value;
    return RegSetValueExW(key.get(), name.c_str(), 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number),
                          sizeof number) == ERROR_SUCCESS;
}

std::optional<std::wstring> DialogStore::text(const std::wstring& name) const {
    RegistryKey key;
    DWORD type = REG_NONE;
    DWORD size = 0;
    if (m_path.empty() || !key.openForReading(m_path))
        return std::nullopt;
    LSTATUS status = RegQueryValueExW(key.get(), name.c_str(), nullptr, &type, nullptr, &size);
    if (status != ERROR_SUCCESS || type != REG_SZ || size > kLongestText * sizeof(wchar_t))
        return std::nullopt;
    std::wstring value(size / sizeof(wchar_t), L'\0');
    size = static_cast<DWORD>(value.size() * sizeof(wchar_t));
    status = RegQueryValueExW(key.get(), name.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(value.data()), &size);
    if (status != ERROR_SUCCESS || type != REG_SZ)
        return std::nullopt;
    return value.substr(0, value.find(L'\0')); // a text may stand in the registry with or without its end
}

bool DialogStore::setText(const std::wstring& name, const std::wstring& value) const {
    RegistryKey key;
    if (m_path.empty() || value.size() >= kLongestText || !key.create(m_path))
        return false;
    const auto size = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
    return RegSetValueExW(key.get(), name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()), size) ==
           ERROR_SUCCESS;
}

bool DialogStore::remove(const std::wstring& name) const {
    RegistryKey key;
    return !m_path.empty() && key.create(m_path) && RegDeleteValueW(key.get(), name.c_str()) == ERROR_SUCCESS;
}

std::wstring DialogStore::root() {
    return movedRoot().empty() ? kWorkbenchRoot : movedRoot();
}

void DialogStore::setRoot(std::wstring_view path) {
    movedRoot() = path;
}

} // namespace framework
