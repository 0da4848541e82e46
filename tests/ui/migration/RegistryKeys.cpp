#include "RegistryKeys.h"

#include <gtest/gtest.h>

namespace {

bool isThere(HKEY hive, const std::wstring& path) {
    HKEY key = nullptr;
    const bool there = RegOpenKeyExW(hive, path.c_str(), 0, KEY_QUERY_VALUE, &key) == ERROR_SUCCESS;
    if (there)
        RegCloseKey(key);
    return there;
}

/// The first part of the path that isn't there; empty when all of it is.
std::wstring topmostMissing(HKEY hive, const std::wstring& path) {
    for (std::size_t end = path.find(L'\\');; end = path.find(L'\\', end + 1)) {
        const std::wstring part = path.substr(0, end);
        if (!isThere(hive, part))
            return part;
        if (end == std::wstring::npos)
            return {};
    }
}

} // namespace

RegistryKeys::~RegistryKeys() {
    for (const Value& each : m_values)
        RegDeleteKeyValueW(each.hive, each.path.c_str(), each.name);
    // What was made last lies in what was made before.
    for (auto each = m_made.rbegin(); each != m_made.rend(); ++each)
        EXPECT_EQ(RegDeleteTreeW(each->first, each->second.c_str()), ERROR_SUCCESS);
}

void RegistryKeys::make(HKEY hive, const std::wstring& path) {
    const std::wstring missing = topmostMissing(hive, path);
    if (missing.empty())
        return;
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyExW(hive, path.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr), ERROR_SUCCESS);
    RegCloseKey(key);
    m_made.emplace_back(hive, missing);
}

void RegistryKeys::setText(HKEY hive, const std::wstring& path, const wchar_t* value, const std::wstring& text) {
    setBytes(hive, path, value, REG_SZ, text.c_str(), static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

void RegistryKeys::setNumber(HKEY hive, const std::wstring& path, const wchar_t* value, DWORD number) {
    setBytes(hive, path, value, REG_DWORD, &number, sizeof number);
}

void RegistryKeys::setBytes(HKEY hive, const std::wstring& path, const wchar_t* value, DWORD type, const void* data,
                            DWORD size) {
    make(hive, path);
    m_values.push_back({hive, path, value});
    ASSERT_EQ(RegSetKeyValueW(hive, path.c_str(), value, type, data, size), ERROR_SUCCESS);
}
