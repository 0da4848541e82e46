// A path, compared as the user's language orders texts.

#include "OrvUiUtilities.h"

#include "base/OutOfMemory.h"

OrvXREFString& OrvXREFString::operator=(const wchar_t* text) {
    framework::asFarAsMemoryLasts([&] { m_text = text; });
    return *this;
}

int OrvXREFString::CollateNoCase(const OrvXREFString& other) const {
    const int order = CompareStringEx(LOCALE_NAME_USER_DEFAULT, NORM_IGNORECASE, m_text, m_text.GetLength(),
                                      other.m_text, other.m_text.GetLength(), nullptr, nullptr, 0);
    return order - CSTR_EQUAL;
}
