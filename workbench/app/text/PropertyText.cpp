#include "PropertyText.h"

#include "CommandText.h"

#include "KelCmColor.h"
#include "KelDbTables.h"
#include "values/LineWeights.h"

#include <algorithm>
#include <cmath>
#include <cwchar>

namespace workbench {

namespace {

struct NamedColor {
    const wchar_t* name;
    std::uint32_t index;
};
constexpr NamedColor kColors[] = {
    {L"red", 1}, {L"yellow", 2}, {L"green", 3}, {L"cyan", 4}, {L"blue", 5}, {L"magenta", 6}, {L"white", 7},
};
constexpr std::uint32_t kLastPaletteColor = 255;
constexpr const wchar_t* kDefaultWord = L"default";

/// A number of digits alone, of at most `largest`.
std::optional<std::uint32_t> parseIndex(const std::wstring& text, std::uint32_t largest) {
    const auto isDigit = [](wchar_t letter) { return letter >= L'0' && letter <= L'9'; };
    if (text.empty() || text.size() > 6 || !std::ranges::all_of(text, isDigit))
        return std::nullopt;
    std::uint32_t number = 0;
    for (const wchar_t digit : text)
        number = number * 10 + static_cast<std::uint32_t>(digit - L'0');
    return number <= largest ? std::optional(number) : std::nullopt;
}

std::optional<std::uint32_t> parseTrueColor(const std::wstring& text) {
    const std::vector<std::wstring> parts = splitList(text);
    if (parts.size() != 3 || std::ranges::count(text, L',') != 2)
        return std::nullopt;
    std::uint8_t values[3];
    for (std::size_t i = 0; i < 3; ++i) {
        const auto value = parseIndex(parts[i], 255);
        if (!value)
            return std::nullopt;
        values[i] = static_cast<std::uint8_t>(*value);
    }
    KelCmColor color;
    color.setRGB(values[0], values[1], values[2]);
    return color.packed();
}

// The host knows which widths there are.
bool isLineWeight(int weight) {
    KelDbLayerTableRecord record;
    return record.setLineWeight(weight) == Vorn::eOk;
}

template <class Style>
zdr::NameId findStyle(const zdr::Drawing& drawing, const std::vector<Style>& styles, const std::wstring& name) {
    const zdr::NameId id = drawing.names.find(name);
    const bool there = id != zdr::kNoName && std::ranges::find(styles, id, &Style::name) != styles.end();
    return there ? id : zdr::kNoName;
}

} // namespace

std::optional<std::uint32_t> parseColor(const std::wstring& text) {
    const auto* named = std::ranges::find_if(kColors, [&](const NamedColor& row) { return sameName(text, row.name); });
    if (named != std::end(kColors))
        return named->index;
    const auto index = parseIndex(text, kLastPaletteColor);
    if (index)
        return *index > 0 ? index : std::nullopt;
    return parseTrueColor(text);
}

std::optional<std::int16_t> parseLineWeight(const std::wstring& text) {
    if (sameName(text, kDefaultWord))
        return engine::kLineWeightDefault;
    const auto millimetres = parseNumber(text);
    if (!millimetres || *millimetres < 0 || *millimetres * 100 > engine::kWidestLine)
        return std::nullopt;
    const double hundredths = std::round(*millimetres * 100);
    const bool exact = std::abs(hundredths - *millimetres * 100) < 1e-6;
    const auto weight = static_cast<std::int16_t>(hundredths);
    return exact && isLineWeight(weight) ? std::optional(weight) : std::nullopt;
}

std::optional<bool> parseYesNo(const std::wstring& text) {
    if (sameName(text, L"yes") || sameName(text, L"on"))
        return true;
    if (sameName(text, L"no") || sameName(text, L"off"))
        return false;
    return std::nullopt;
}

std::optional<double> parseNumber(const std::wstring& text) {
    // wcstod would accept more: hexadecimal numbers, "inf", blanks in front.
    if (text.empty() || text.find_first_not_of(L"0123456789+-.eE") != std::wstring::npos)
        return std::nullopt;
    wchar_t* end = nullptr;
    const double value = std::wcstod(text.c_str(), &end);
    return *end == L'\0' && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

zdr::NameId findLinetype(const zdr::Drawing& drawing, const std::wstring& name) {
    return findStyle(drawing, drawing.linetypes, name);
}

zdr::NameId findPlotStyle(const zdr::Drawing& drawing, const std::wstring& name) {
    return findStyle(drawing, drawing.plotStyles, name);
}

std::wstring lineWeightText(int weight) {
    if (weight < 0)
        return kDefaultWord;
    std::wstring fraction = std::to_wstring(weight % 100);
    if (fraction.size() == 1)
        fraction.insert(0, 1, L'0');
    return std::to_wstring(weight / 100) + L'.' + fraction + L" mm";
}

std::vector<std::wstring> colorNames() {
    std::vector<std::wstring> names;
    for (const NamedColor& color : kColors)
        names.emplace_back(color.name);
    return names;
}

std::vector<std::wstring> lineWeightNames() {
    std::vector<std::wstring> names{kDefaultWord};
    for (const int weight : engine::kLineWidths) {
        const std::wstring text = lineWeightText(weight);
        names.push_back(text.substr(0, text.find(L' ')));
    }
    return names;
}

} // namespace workbench
