// A key of the registry, below the one of the current user.
#pragma once

#include <windows.h>

#include <string>

namespace framework {

/// Open while this lives.
class RegistryKey {
  public:
    RegistryKey() = default;
    ~RegistryKey() {
        if (m_key)
            RegCloseKey(m_key);
    }
    RegistryKey(const RegistryKey&) = delete;
    RegistryKey& operator=(const RegistryKey&) = delete;

    bool openForReading(const std::wstring& path) {
        return RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_QUERY_VALUE, &m_key) == ERROR_SUCCESS;
    }
    bool create(const std::wstring& path) {
        return RegCreateKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr, &m_key,
                               nullptr) == ERROR_SUCCESS;
    }
    HKEY get() const { return m_key; }

  private:
    HKEY m_key = nullptr;
};

} // namespace framework
