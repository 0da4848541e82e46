// Microsoft's wide printf: reads the conversions one by one; numbers are printed by the C library, the rest here.
#include "WideFormat.h"

#include "afx.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <cwchar>

namespace kelmfc {

namespace {

enum class Size { None, Char, Short, Long, SixtyFour };

struct Conversion {
    std::string flags;
    int width = 0;
    int precision = -1;
    Size size = Size::None;
    wchar_t type = 0;

    bool Has(char flag) const { return flags.find(flag) != std::string::npos; }
};

class Formatter {
  public:
    Formatter(std::wstring& out, const wchar_t* format, va_list args) : m_out(out), m_at(format) {
        va_copy(m_args, args);
    }
    Formatter(const Formatter&) = delete;
    Formatter& operator=(const Formatter&) = delete;
    ~Formatter() { va_end(m_args); }

    void Run() {
        while (*m_at) {
            const wchar_t* percent = std::wcschr(m_at, L'%');
            if (!percent) {
                m_out += m_at;
                return;
            }
            m_out.append(m_at, percent);
            m_at = percent + 1;
            Convert(Read());
        }
    }

  private:
    Conversion Read() {
        Conversion c;
        while (*m_at && std::wcschr(L"-+ #0", *m_at))
            c.flags += static_cast<char>(*m_at++);
        c.width = ReadNumber();
        if (c.width < 0) {
            c.flags += '-';
            c.width = -c.width;
        }
        if (*m_at == L'.') {
            ++m_at;
            c.precision = ReadNumber();
        }
        c.size = ReadSize();
        c.type = *m_at;
        if (*m_at)
            ++m_at;
        return c;
    }

    int ReadNumber() {
        if (*m_at == L'*') {
            ++m_at;
            return va_arg(m_args, int);
        }
        int number = 0;
        while (*m_at >= L'0' && *m_at <= L'9' && number < 100'000'000)
            number = number * 10 + static_cast<int>(*m_at++ - L'0');
        return number;
    }

    bool Skip(const wchar_t* prefix) {
        const std::size_t length = std::wcslen(prefix);
        if (std::wcsncmp(m_at, prefix, length) != 0)
            return false;
        m_at += length;
        return true;
    }

    Size ReadSize() {
        // The longest prefixes first. I, j, z and t mean the width of a pointer, which has 64 bits on both systems.
        static constexpr struct {
            const wchar_t* prefix;
            Size size;
        } kSizes[] = {{L"I64", Size::SixtyFour}, {L"I32", Size::None},    {L"ll", Size::SixtyFour},
                      {L"hh", Size::Char},       {L"l", Size::Long},      {L"w", Size::Long},
                      {L"h", Size::Short},       {L"I", Size::SixtyFour}, {L"j", Size::SixtyFour},
                      {L"z", Size::SixtyFour},   {L"t", Size::SixtyFour}, {L"L", Size::None}};
        for (const auto& entry : kSizes)
            if (Skip(entry.prefix))
                return entry.size;
        return Size::None;
    }

    void Convert(const Conversion& c) {
        switch (c.type) {
        case L'd':
        case L'i':
            return Print(c, "lld", Signed(c.size));
        case L'u':
            return Print(c, "llu", Unsigned(c.size));
        case L'o':
            return Print(c, "llo", Unsigned(c.size));
        case L'x':
            return Print(c, "llx", Unsigned(c.size));
        case L'X':
            return Print(c, "llX", Unsigned(c.size));
        case L'e':
        case L'E':
        case L'f':
        case L'F':
        case L'g':
        case L'G':
        case L'a':
        case L'A': {
            const char letter[] = {static_cast<char>(c.type), 0};
            return Print(c, letter, va_arg(m_args, double));
        }
        case L'p':
            return Pointer(c);
        case L'c':
        case L'C':
            return Character(c);
        case L's':
        case L'S':
            return String(c);
        case 0:
            return;
        default:
            m_out += c.type;
        }
    }

    long long Signed(Size size) {
        if (size == Size::SixtyFour)
            return va_arg(m_args, long long);
        const int value = va_arg(m_args, int);
        if (size == Size::Short)
            return static_cast<short>(value);
        return size == Size::Char ? static_cast<signed char>(value) : value;
    }

    unsigned long long Unsigned(Size size) {
        if (size == Size::SixtyFour)
            return va_arg(m_args, unsigned long long);
        const unsigned value = va_arg(m_args, unsigned);
        if (size == Size::Short)
            return static_cast<unsigned short>(value);
        return size == Size::Char ? static_cast<unsigned char>(value) : value;
    }

    template <class Number> void Print(const Conversion& c, const char* letters, Number number) {
        const std::string format = '%' + c.flags + "*.*" + letters;
        const int length = std::snprintf(nullptr, 0, format.c_str(), c.width, c.precision, number);
        std::string text(static_cast<std::size_t>(std::max(length, 0)) + 1, '\0');
        std::snprintf(text.data(), text.size(), format.c_str(), c.width, c.precision, number);
        text.pop_back();
        m_out.append(text.begin(), text.end());
    }

    void Pointer(const Conversion& c) {
        char digits[17];
        std::snprintf(digits, sizeof digits, "%016llX",
                      static_cast<unsigned long long>(va_arg(m_args, std::uintptr_t)));
        Pad(c, std::wstring(digits, digits + 16));
    }

    // In a wide format the small letter is wide and the capital narrow, unless a size says otherwise.
    static bool IsWide(const Conversion& c, wchar_t wideLetter) {
        if (c.size == Size::Long)
            return true;
        return c.size != Size::Short && c.type == wideLetter;
    }

    void Character(const Conversion& c) {
        const int value = va_arg(m_args, int);
        const char narrow = static_cast<char>(value);
        Pad(c, IsWide(c, L'c') ? std::wstring(1, static_cast<wchar_t>(value)) : Widen(&narrow, 1));
    }

    void String(const Conversion& c) {
        // A precision also bounds how far an unterminated string is read.
        const auto limit = c.precision < 0 ? std::wstring::npos : static_cast<std::size_t>(c.precision);
        const auto length = [limit](const auto* text) {
            std::size_t count = 0;
            while (count < limit && text[count])
                ++count;
            return count;
        };
        if (IsWide(c, L's')) {
            const auto* text = va_arg(m_args, const wchar_t*);
            text = text ? text : L"(null)";
            return Pad(c, std::wstring(text, length(text)));
        }
        const auto* text = va_arg(m_args, const char*);
        text = text ? text : "(null)";
        Pad(c, Widen(text, length(text)));
    }

    void Pad(const Conversion& c, const std::wstring& text) {
        const auto width = static_cast<std::size_t>(c.width);
        const std::size_t missing = width > text.size() ? width - text.size() : 0;
        if (c.Has('-')) {
            m_out += text;
            m_out.append(missing, L' ');
            return;
        }
        m_out.append(missing, c.Has('0') ? L'0' : L' ');
        m_out += text;
    }

    std::wstring& m_out;
    const wchar_t* m_at;
    va_list m_args;
};

} // namespace

void AppendFormatted(std::wstring& out, const wchar_t* format, va_list args) {
    Formatter(out, format, args).Run();
}

#ifdef _WIN32

std::wstring Widen(const char* text, std::size_t length) {
    const int count = static_cast<int>(length);
    std::wstring wide(static_cast<std::size_t>(MultiByteToWideChar(CP_ACP, 0, text, count, nullptr, 0)), L'\0');
    MultiByteToWideChar(CP_ACP, 0, text, count, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

#else

namespace {

// Number of continuation bytes that a first byte announces, -1 for a byte that can't be first.
int ContinuationCount(unsigned char first) {
    if (first < 0x80)
        return 0;
    if (first >= 0xC2 && first < 0xE0)
        return 1;
    if (first >= 0xE0 && first < 0xF0)
        return 2;
    return first >= 0xF0 && first < 0xF5 ? 3 : -1;
}

} // namespace

std::wstring Widen(const char* text, std::size_t length) {
    constexpr wchar_t kBad = 0xFFFD;
    static constexpr unsigned kFirstBits[] = {0x7F, 0x1F, 0x0F, 0x07};
    std::wstring wide;
    for (std::size_t i = 0; i < length;) {
        const auto first = static_cast<unsigned char>(text[i++]);
        const int more = ContinuationCount(first);
        unsigned code = more < 0 ? 0u : first & kFirstBits[more];
        int seen = 0;
        while (seen < more && i < length && (static_cast<unsigned char>(text[i]) & 0xC0) == 0x80) {
            code = code << 6 | (static_cast<unsigned char>(text[i++]) & 0x3Fu);
            ++seen;
        }
        wide += seen == more ? static_cast<wchar_t>(code) : kBad;
    }
    return wide;
}

#endif

} // namespace kelmfc
