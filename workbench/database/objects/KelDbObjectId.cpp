// Ids and handles: values, whose operations aren't traced.

#include "KelDbObjectId.h"

#include "engine/DatabaseImp.h"

#include <cwchar>

KelDbHandle& KelDbHandle::operator=(const wchar_t* hexadecimal) {
    m_value = 0;
    const std::size_t length = hexadecimal ? std::wcslen(hexadecimal) : 0;
    std::uint64_t value = 0;
    if (length == 0 || length > 16)
        return *this;
    for (std::size_t i = 0; i < length; ++i) {
        const wchar_t* const digits = L"0123456789ABCDEF";
        const wchar_t* digit = std::wcschr(digits, zdr::foldCharacter(hexadecimal[i]));
        if (!digit)
            return *this;
        value = value << 4 | static_cast<std::uint64_t>(digit - digits);
    }
    m_value = value;
    return *this;
}

bool KelDbHandle::getIntoAsciiBuffer(wchar_t* buffer) const {
    int digits = 1;
    while (digits < 16 && m_value >> (4 * digits))
        ++digits;
    for (int i = digits - 1; i >= 0; --i)
        *buffer++ = L"0123456789ABCDEF"[m_value >> (4 * i) & 0xF];
    *buffer = L'\0';
    return m_value != 0;
}

bool KelDbObjectId::isValid() const {
    return m_stub && m_stub->database->objects().find(m_stub->handle) == m_stub;
}

bool KelDbObjectId::isErased() const {
    return !m_stub || m_stub->erased;
}

KelDbHandle KelDbObjectId::handle() const {
    return KelDbHandle(m_stub ? m_stub->handle : 0);
}

KelDbDatabase* KelDbObjectId::database() const {
    return m_stub ? &m_stub->database->owner() : nullptr;
}
