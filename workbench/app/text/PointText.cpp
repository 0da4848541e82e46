#include "PointText.h"

#include "PropertyText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace workbench {

namespace {

std::optional<double> parseCoordinate(const std::wstring& text) {
    const auto value = parseNumber(text);
    return value && std::abs(*value) <= kLargestCoordinate ? value : std::nullopt;
}

std::wstring numberText(double value) {
    // All digits of the largest number and of the smallest one, a sign, and a point.
    char text[std::numeric_limits<double>::max_exponent10 - std::numeric_limits<double>::min_exponent10 + 32];
    const auto written = std::to_chars(std::begin(text), std::end(text), value, std::chars_format::fixed);
    return {text, written.ptr};
}

} // namespace

std::optional<zdr::Point> parsePoint(const std::wstring& text) {
    const std::size_t comma = text.find(L',');
    if (comma == std::wstring::npos)
        return std::nullopt;
    const auto x = parseCoordinate(text.substr(0, comma));
    const auto y = parseCoordinate(text.substr(comma + 1));
    return x && y ? std::optional(zdr::Point{*x, *y}) : std::nullopt;
}

std::wstring pointText(zdr::Point point) {
    return numberText(point.x) + L',' + numberText(point.y);
}

zdr::Point roundedPoint(zdr::Point point, double tolerance) {
    constexpr double kMostDecimals = 9;
    const double unit = std::pow(10.0, std::clamp(std::ceil(-std::log10(tolerance)), 0.0, kMostDecimals));
    // Adding 0 makes 0 of -0.
    return {std::round(point.x * unit) / unit + 0.0, std::round(point.y * unit) / unit + 0.0};
}

std::optional<double> parseFactor(const std::wstring& text) {
    const bool hasSign = !text.empty() && (text.back() == L'x' || text.back() == L'X');
    return parseNumber(hasSign ? text.substr(0, text.size() - 1) : text);
}

} // namespace workbench
