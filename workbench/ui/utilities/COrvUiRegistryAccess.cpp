// A key of the registry, open for reading.

#include "OrvUiUtilities.h"

#include "base/OutOfMemory.h"
#include "instruments/HostCalls.h"

#include <string>
#include <string_view>

using instruments::HostCall;

namespace {

constexpr const wchar_t* kProductKey = L"Software\\KelWorkbench";

// A text with variables comes as it stands: it is for the reader to say whose environment is meant.
constexpr DWORD kTexts = RRF_RT_REG_SZ | RRF_RT_REG_EXPAND_SZ | RRF_NOEXPAND;

std::wstring readText(HKEY key, const wchar_t* name) {
    DWORD size = 0;
    if (RegGetValueW(key, nullptr, name, kTexts, nullptr, nullptr, &size) != ERROR_SUCCESS)
        return {};
    std::wstring text((size + 1) / sizeof(wchar_t), L'\0'); // a broken value may end in the middle of a character
    size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    if (RegGetValueW(key, nullptr, name, kTexts, nullptr, text.data(), &size) != ERROR_SUCCESS)
        return {};
    return text.substr(0, text.find(L'\0'));
}

} // namespace

COrvUiRegistryAccess::COrvUiRegistryAccess(HKEY hive, const CString& path) : m_key(nullptr) {
    HostCall call("COrvUiRegistryAccess", path.GetString());
    if (call.fault() || RegOpenKeyExW(hive, path, 0, KEY_QUERY_VALUE, &m_key) != ERROR_SUCCESS)
        m_key = nullptr;
    call.answer(IsOpen());
}

COrvUiRegistryAccess::~COrvUiRegistryAccess() {
    Close();
}

CString COrvUiRegistryAccess::GetString(const CString& valueName) const {
    return framework::answerOr(CString(), [&] {
        HostCall call("registry.GetString", valueName.GetString());
        if (!m_key || call.fault())
            return call.answer(L""), CString();
        const std::wstring text = readText(m_key, valueName);
        call.answer(text);
        return CString(text.c_str());
    });
}

unsigned int COrvUiRegistryAccess::GetDWord(const CString& valueName) const {
    HostCall call("registry.GetDWord", valueName.GetString());
    DWORD value = 0;
    DWORD size = sizeof value;
    if (!m_key || call.fault() ||
        RegGetValueW(m_key, nullptr, valueName, RRF_RT_REG_DWORD, nullptr, &value, &size) != ERROR_SUCCESS ||
        size != sizeof value)
        return call.answer(0u);
    return call.answer(static_cast<unsigned int>(value));
}

unsigned long COrvUiRegistryAccess::ValueType(const CString& valueName, unsigned long* size) const {
    HostCall call("registry.ValueType", valueName.GetString());
    DWORD type = 0;
    if (!m_key || call.fault() || RegQueryValueExW(m_key, valueName, nullptr, &type, nullptr, size) != ERROR_SUCCESS)
        return call.answer(0ul);
    return call.answer(static_cast<unsigned long>(type));
}

void COrvUiRegistryAccess::Close() {
    if (m_key)
        RegCloseKey(m_key);
    m_key = nullptr;
}

unsigned int GetProductRegistryRootKey(wchar_t* buffer, unsigned long length) {
    if (buffer && length > 0)
        *buffer = L'\0';
    return framework::answerOr(0u, [&] {
        HostCall call("GetProductRegistryRootKey", length);
        if (!buffer || length == 0 || call.fault())
            return call.answer(0u);
        const std::wstring_view path = std::wstring_view(kProductKey).substr(0, length - 1);
        path.copy(buffer, path.size());
        buffer[path.size()] = L'\0';
        return call.answer(static_cast<unsigned int>(path.size()));
    });
}
