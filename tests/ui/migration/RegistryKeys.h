// Values of the registry that a test writes. They are gone with it, and so are the keys that were made for them.
// Names of values have to outlive it.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include <windows.h>

class RegistryKeys {
  public:
    RegistryKeys() = default;
    ~RegistryKeys();
    RegistryKeys(const RegistryKeys&) = delete;
    RegistryKeys& operator=(const RegistryKeys&) = delete;

    /// Makes the key; `path` counts from the hive.
    void make(HKEY hive, const std::wstring& path);
    void setText(HKEY hive, const std::wstring& path, const wchar_t* value, const std::wstring& text);
    void setNumber(HKEY hive, const std::wstring& path, const wchar_t* value, DWORD number);
    void setBytes(HKEY hive, const std::wstring& path, const wchar_t* value, DWORD type, const void* data, DWORD size);

  private:
    struct Value {
        HKEY hive;
        std::wstring path;
        const wchar_t* name; // null for the default value
    };
    std::vector<Value> m_values;
    std::vector<std::pair<HKEY, std::wstring>> m_made; // the topmost of the keys that weren't there
};
