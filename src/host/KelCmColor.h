// A colour as layers and entities carry it: an index of the palette, or a true colour.
#pragma once

#include "KelExport.h"
#include "VornStatus.h"

#include <cstdint>

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
    /// Makes it a true colour.
    Vorn::ErrorStatus setRGB(std::uint8_t red, std::uint8_t green, std::uint8_t blue);
    /// Whether it is a palette colour; otherwise it is a true colour.
    bool isByPCI() const { return (m_value >> 24) != trueColorTag; }
    std::uint8_t red() const;
    std::uint8_t green() const;
    std::uint8_t blue() const;
    /// The text for a cell: a localised word for 0 to 7 and 256, the number of any other index, "r,g,b" of a true
    /// colour. A buffer of the colour's own thread, valid until the next call.
    const wchar_t* colorNameForDisplay() const;

    /// The value in 32 bits: the index, or 0xC2 above red, green and blue. The form in which columns and files keep it.
    std::uint32_t packed() const { return m_value; }
    static KelCmColor fromPacked(std::uint32_t value);

    friend bool operator==(const KelCmColor& a, const KelCmColor& b) { return a.m_value == b.m_value; }

  private:
    static constexpr std::uint32_t trueColorTag = 0xC2;
    std::uint32_t m_value = 7;
};
