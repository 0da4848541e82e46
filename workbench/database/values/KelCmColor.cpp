// Colours are values that go through every loop over layers, so their operations aren't traced.

#include "KelCmColor.h"

#include "values/ColorPalette.h"
#include "instruments/HostCalls.h"
#include "KelEditor.h"
#include "values/NameRules.h"
#include "values/ReservedWords.h"

#include <new>
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

struct KelCmColor::Names {
    std::wstring color, book; // at least one of them isn't empty
    friend bool operator==(const Names&, const Names&) = default;
};

KelCmColor::~KelCmColor() = default;

std::uint16_t KelCmColor::colorIndex() const {
    return isByPCI() ? static_cast<std::uint16_t>(m_value) : engine::nearestPaletteIndex(rgbOf(*this));
}

Vorn::ErrorStatus KelCmColor::setColorIndex(unsigned short index) {
    if (index > kByLayer)
        return Vorn::eInvalidInput;
    m_value = index;
    m_names.reset();
    return Vorn::eOk;
}

Vorn::ErrorStatus KelCmColor::setRGB(std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
    m_value =
        trueColorTag << 24 | static_cast<std::uint32_t>(red) << 16 | static_cast<std::uint32_t>(green) << 8 | blue;
    m_names.reset();
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

Vorn::ErrorStatus KelCmColor::setNames(const wchar_t* colorName, const wchar_t* bookName) {
    const std::wstring_view color = colorName ? colorName : L"", book = bookName ? bookName : L"";
    if (isByPCI())
        return Vorn::eInvalidInput;
    for (const std::wstring_view name : {color, book})
        if (const Vorn::ErrorStatus status = engine::checkColorName(name); status != Vorn::eOk)
            return status;
    std::shared_ptr<const Names> names;
    try {
        if (!color.empty() || !book.empty())
            names = std::make_shared<const Names>(Names{std::wstring(color), std::wstring(book)});
    } catch (const std::bad_alloc&) {
        return Vorn::eOutOfMemory;
    }
    m_names = std::move(names);
    return Vorn::eOk;
}

const wchar_t* KelCmColor::colorName() const {
    return m_names ? m_names->color.c_str() : L"";
}

const wchar_t* KelCmColor::bookName() const {
    return m_names ? m_names->book.c_str() : L"";
}

bool KelCmColor::hasNamesOf(const KelCmColor& other) const {
    return m_names && other.m_names && *m_names == *other.m_names;
}

const wchar_t* KelCmColor::colorNameForDisplay() const {
    static std::wstring text;
    try {
        text = displayName();
    } catch (const std::bad_alloc&) {
        text.clear();
    }
    return text.c_str();
}

std::wstring KelCmColor::displayName() const {
    std::wstring text;
    const wchar_t* word = isByPCI() ? engine::colorWord(colorIndex()) : nullptr;
    if (word)
        text = word;
    else if (isByPCI())
        text = std::to_wstring(colorIndex());
    else if (hasColorName())
        text = colorName();
    else
        text = std::to_wstring(red()) + L"," + std::to_wstring(green()) + L"," + std::to_wstring(blue());
    if (hasBookName())
        text.append(L" (").append(bookName()).append(L")");
    return text;
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
