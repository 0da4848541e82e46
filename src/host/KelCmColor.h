// A colour as layers and entities carry it: an index of the palette, or a true colour, which may have a name in a book
// of colours.
#pragma once

#include "KelExport.h"
#include "VornStatus.h"

#include <cstdint>
#include <memory>
#include <string>

/// A colour value. Index 0 is by block, 1 to 255 the palette, 256 by layer.
class KELDB_API KelCmColor {
  public:
    KelCmColor() = default; ///< Index 7, the palette's foreground colour.
    KelCmColor(const KelCmColor&) = default;
    KelCmColor& operator=(const KelCmColor&) = default;
    virtual ~KelCmColor();

    /// The palette index; of a true colour, the nearest one of the palette.
    std::uint16_t colorIndex() const;
    /// Makes it a palette colour. Answers eInvalidInput for an index above 256 and changes nothing then.
    Vorn::ErrorStatus setColorIndex(unsigned short index);
    /// Makes it a true colour without names.
    Vorn::ErrorStatus setRGB(std::uint8_t red, std::uint8_t green, std::uint8_t blue);
    /// Whether it is a palette colour; otherwise it is a true colour.
    bool isByPCI() const { return (m_value >> 24) != trueColorTag; }
    std::uint8_t red() const;
    std::uint8_t green() const;
    std::uint8_t blue() const;

    /// Gives a true colour its name and the name of its book; null or an empty text takes one away. Answers
    /// eInvalidInput for a palette colour and for control characters, eNameTooLong beyond 255 characters of 16 bits,
    /// eOutOfMemory, and changes nothing then.
    Vorn::ErrorStatus setNames(const wchar_t* colorName, const wchar_t* bookName);
    bool hasColorName() const { return *colorName() != L'\0'; }
    bool hasBookName() const { return *bookName() != L'\0'; }
    /// Empty where there is none. Good until the colour changes or goes.
    const wchar_t* colorName() const;
    const wchar_t* bookName() const;

    /// The text for a cell: a localised word for 0 to 7 and 256, the number of any other index, "name" or "r,g,b" of a
    /// true colour, with "(book)" behind it where there is one; empty when memory runs out. A buffer of the colour's
    /// own thread, valid until the next call.
    const wchar_t* colorNameForDisplay() const;

    /// The value in 32 bits, without the names: the index, or 0xC2 above red, green and blue.
    std::uint32_t packed() const { return m_value; }
    static KelCmColor fromPacked(std::uint32_t value);

    /// Value and names are the same, case included.
    friend bool operator==(const KelCmColor& a, const KelCmColor& b) {
        return a.m_value == b.m_value && (a.m_names == b.m_names || a.hasNamesOf(b));
    }

  private:
    struct Names;
    bool hasNamesOf(const KelCmColor& other) const;
    std::wstring displayName() const;

    static constexpr std::uint32_t trueColorTag = 0xC2;
    std::uint32_t m_value = 7;
    std::shared_ptr<const Names> m_names; // null for nearly every colour; copies share them
};
