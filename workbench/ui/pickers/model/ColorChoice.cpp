#include "ColorChoice.h"

#include "OrvUiPickers.h"

#include <algorithm>

namespace pickers {
namespace {

constexpr int kNamed = 7;

std::optional<int> channelOf(const std::wstring& text) {
    const bool digits = std::all_of(text.begin(), text.end(), [](wchar_t c) { return c >= L'0' && c <= L'9'; });
    if (text.empty() || text.size() > 3 || !digits)
        return std::nullopt;
    int value = 0;
    for (const wchar_t digit : text)
        value = 10 * value + (digit - L'0');
    return value <= 255 ? std::optional(value) : std::nullopt;
}

} // namespace

ColorParts colorParts(int flags, bool byReference) {
    ColorParts parts;
    parts.trueColor = (flags & kOrvUiColorTrueColor) != 0;
    parts.palette = (flags & kOrvUiColorPalette) != 0 || !parts.trueColor;
    parts.systemDialog = parts.trueColor && (flags & kOrvUiColorSystemDialog) != 0;
    parts.byReference = byReference && parts.palette;
    return parts;
}

void ColorChoice::chooseIndex(int index) {
    if (index >= kByBlock && index <= kByLayer)
        m_color.setColorIndex(static_cast<unsigned short>(index));
}

void ColorChoice::chooseRgb(int red, int green, int blue) {
    m_color.setRGB(static_cast<std::uint8_t>(red), static_cast<std::uint8_t>(green), static_cast<std::uint8_t>(blue));
}

bool ColorChoice::chooseFields(const std::array<std::wstring, 3>& fields) {
    std::array<int, 3> values = {};
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const auto value = channelOf(fields[i]);
        if (!value)
            return false;
        values[i] = *value;
    }
    chooseRgb(values[0], values[1], values[2]);
    return true;
}

std::optional<int> ColorChoice::markedIndex() const {
    if (!m_color.isByPCI() || m_color.colorIndex() == kByBlock || m_color.colorIndex() == kByLayer)
        return std::nullopt;
    return m_color.colorIndex();
}

std::array<int, 3> ColorChoice::rgb() const {
    return {m_color.red(), m_color.green(), m_color.blue()};
}

bool ColorChoice::isAllowed(const ColorParts& parts) const {
    return !m_color.isByPCI() || markedIndex() || parts.byReference;
}

ColorTab ColorChoice::firstTab(const ColorParts& parts) const {
    if (!parts.palette)
        return ColorTab::trueColor;
    return parts.trueColor && !m_color.isByPCI() ? ColorTab::trueColor : ColorTab::palette;
}

std::wstring ColorChoice::describe() const {
    const auto index = markedIndex();
    std::wstring name = m_color.colorNameForDisplay();
    if (!m_color.isByPCI())
        return m_color.hasColorName() ? name : L"True color " + name;
    if (!index)
        return name;
    const auto [red, green, blue] = rgb();
    const std::wstring look =
        L" (" + std::to_wstring(red) + L"," + std::to_wstring(green) + L"," + std::to_wstring(blue) + L")";
    return (*index <= kNamed ? name : L"Color " + name) + look;
}

} // namespace pickers
