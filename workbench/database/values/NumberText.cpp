// Reals and angles as the host writes them for people.

#include "NumberText.h"

#include "instruments/HostCalls.h"
#include "KelEditor.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <numbers>

namespace {

enum RealUnit : int { kUnitOfDrawing = -1, kScientific = 1, kDecimal = 2 };
enum AngleUnit : int { kDecimalDegrees = 0, kGrads = 2, kRadians = 3 };

constexpr int kPrecisionOfDrawing = -1;
constexpr std::size_t kLongestNumber = 256; // what a caller of the host makes room for
constexpr int kDefaultRealPrecision = 4;
constexpr int kDefaultAnglePrecision = 0;
constexpr int kMaxPrecision = 8;

int precisionOr(int precision, int otherwise) {
    return precision < 0 ? otherwise : std::min(precision, kMaxPrecision);
}

// A fixed form of the largest numbers wouldn't fit that room.
void format(double value, int unit, int precision, wchar_t* text, const char* suffix) {
    std::array<char, 64> buffer{};
    const bool scientific = unit == kScientific || value >= 1e16 || value <= -1e16;
    const int length =
        std::snprintf(buffer.data(), buffer.size(), scientific ? "%.*E%s" : "%.*f%s", precision, value, suffix);
    std::copy_n(buffer.data(), length + 1, text);
}

void formatReal(double value, int unit, int precision, wchar_t* text) {
    format(value, unit == kUnitOfDrawing ? kDecimal : unit, precisionOr(precision, kDefaultRealPrecision), text, "");
}

} // namespace

std::wstring engine::realText(double value) {
    wchar_t text[kLongestNumber];
    formatReal(value, kUnitOfDrawing, kPrecisionOfDrawing, text);
    return text;
}

void keldbRToS(double value, int unit, int precision, wchar_t* text) {
    instruments::HostCall call("keldbRToS", value, unit, precision);
    formatReal(value, unit, precision, text);
    call.out("text", static_cast<const wchar_t*>(text));
}

void keldbAngToS(double value, int unit, int precision, wchar_t* text) {
    instruments::HostCall call("keldbAngToS", value, unit, precision);
    const int digits = precisionOr(precision, kDefaultAnglePrecision);
    if (unit == kRadians)
        format(value, kDecimal, digits, text, "r");
    else if (unit == kGrads)
        format(value / std::numbers::pi * 200, kDecimal, digits, text, "g");
    else
        format(value / std::numbers::pi * 180, kDecimal, digits, text, "");
    call.out("text", static_cast<const wchar_t*>(text));
}
