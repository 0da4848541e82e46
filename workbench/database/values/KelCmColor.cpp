// Colours are values that go through every loop over layers, so their operations aren't traced.

#include "KelCmColor.h"

#include "values/ColorPalette.h"
#include "instruments/HostCalls.h"
#include "KelEditor.h"
#include "values/ReservedWords.h"

#include <string>

namespace {

constexpr std::uint32_t kByLayer = 256;

engine::Rgb rgbOf(const KelCmColor& color) {
    const std::uint32_t packed = color.packed();
    if (color.isByPCI())
        return engine::paletteColor(static_cast<int>(packed));
    return {static_cast<std::uint8_t>(packed >> 16), static_cast<std::uint8_t>(packed >> 8),
            static_cast<std::uint8_t>(packed)};
}

} // namespace

KelCmColor::~KelCmColor() = default;

std::uint16_t KelCmColor::colorIndex() const {
    return isByPCI() ? static_cast<std::uint16_t>(m_value) : engine::nearestPaletteIndex(rgbOf(*this));
}

Vorn::ErrorStatus KelCmColor::setColorIndex(unsigned short index) {
    if (index > kByLayer)
        return Vorn::eInvalidInput;
    m_value = index;
    return Vorn::eOk;
}

Vorn::ErrorStatus KelCmColor::setRGB(std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
    m_value =
        trueColorTag << 24 | static_cast<std::uint32_t>(red) << 16 | static_cast<std::uint32_t>(green) << 8 | blue;
    return Vorn::eOk;
}

std::uint8_t KelCmColor::red() const {
    return rgbOf(*this).red;
}

std::uint8_t KelCmColor::green() const {
    return rgbOf(*this).green;
}

std::uint8_t KelCmColor::blue() const {
    return rgbOf(*this).blue;
}

const wchar_t* KelCmColor::colorNameForDisplay() const {
    static std::wstring text;
    const wchar_t* word = isByPCI() ? engine::colorWord(colorIndex()) : nullptr;
    if (word)
        text = word;
    else if (isByPCI())
        text = std::to_wstring(colorIndex());
    else
        text = std::to_wstring(red()) + L"," + std::to_wstring(green()) + L"," + std::to_wstring(blue());
    return text.c_str();
}

KelCmColor KelCmColor::fromPacked(std::uint32_t value) {
    KelCmColor color;
    if (value >> 24 == trueColorTag || value <= kByLayer)
        color.m_value = value;
    return color;
}

std::uint32_t keledGetRGB(int index) {
    instruments::HostCall call("keledGetRGB", index);
    const engine::Rgb rgb = engine::paletteColor(index);
    return call.answer(rgb.red | static_cast<std::uint32_t>(rgb.green) << 8 |
                       static_cast<std::uint32_t>(rgb.blue) << 16);
}
