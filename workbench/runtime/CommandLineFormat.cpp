#include "CommandLineFormat.h"

#include <cwchar>
#include <vector>

namespace runtime {

namespace {

#if defined(_WIN32)

// On Windows the Microsoft runtime does the work. Its underscored functions keep its meaning of a format; the others
// may be replaced by the compiler's headers.
int formatInto(std::vector<wchar_t>& buffer, const std::wstring& format, std::va_list arguments) {
    return _vsnwprintf(buffer.data(), buffer.size() - 1, format.c_str(), arguments);
}

std::wstring systemFormat(const wchar_t* format) {
    return format;
}

#else

int formatInto(std::vector<wchar_t>& buffer, const std::wstring& format, std::va_list arguments) {
    return std::vswprintf(buffer.data(), buffer.size(), format.c_str(), arguments);
}

// Turns s and c into ls and lc, and S and C into their narrow forms, unless a size was written before them.
std::wstring systemFormat(const wchar_t* format) {
    std::wstring out;
    for (const wchar_t* at = format; *at; ++at) {
        out += *at;
        if (*at != L'%')
            continue;
        const wchar_t* end = at + 1;
        while (*end && std::wcschr(L"-+ #0123456789.*hlIw", *end))
            ++end;
        const std::wstring options(at + 1, end);
        const bool sized = options.find_first_of(L"hlw") != std::wstring::npos;
        out += options;
        at = end;
        if (!*at)
            break;
        const bool wide = (*at == L's' || *at == L'c') && !sized;
        const bool narrow = (*at == L'S' || *at == L'C') && !sized;
        out +=
            wide ? std::wstring(L"l") + *at : std::wstring(1, narrow ? static_cast<wchar_t>(*at - L'S' + L's') : *at);
    }
    return out;
}

#endif

} // namespace

std::wstring formatForCommandLine(const wchar_t* format, std::va_list arguments) {
    const std::wstring native = systemFormat(format ? format : L"");
    // Neither system says how long the text of a wide format will be, so the buffer is doubled until it fits; the bound
    // catches a broken format.
    std::vector<wchar_t> buffer(256);
    for (;;) {
        std::va_list copy;
        va_copy(copy, arguments);
        const int length = formatInto(buffer, native, copy);
        va_end(copy);
        if (length >= 0)
            return {buffer.data(), static_cast<std::size_t>(length)};
        if (buffer.size() >= (std::size_t{1} << 20)) {
            buffer.back() = L'\0';
            return buffer.data();
        }
        buffer.assign(buffer.size() * 2, L'\0');
    }
}

} // namespace runtime
