// The named colours of a drawing, each kept once, and the numbers that stand for colours in columns. Nearly no layer
// has a named colour, and columns are copied and compared as memory; so a colour is one number of 32 bits there, equal
// for equal colours, and only the number of a named colour leads here.
#pragma once

#include "Column.h"
#include "KelCmColor.h"

#include <cstdint>
#include <unordered_map>
#include <vector>

namespace zdr {

/// A colour in a column: its KelCmColor::packed(), or 01 in the two highest bits and the place of a named colour in the
/// table of the same drawing below them. Packed values begin with 00 or 11.
using ColorId = std::uint32_t;
inline constexpr ColorId kFirstNamedColor = ColorId{1} << 30;
constexpr bool isNamedColor(ColorId color) {
    return color >> 30 == 1;
}
constexpr std::size_t namedColorIndex(ColorId color) {
    return color - kFirstNamedColor;
}

class KELDB_API NamedColors {
  public:
    /// The number of a colour; one with names is entered if it is new.
    ColorId intern(const KelCmColor& color);
    KelCmColor color(ColorId id) const {
        return isNamedColor(id) ? m_colors[namedColorIndex(id)] : KelCmColor::fromPacked(id);
    }
    /// What a colour looks like: its value without names.
    std::uint32_t packed(ColorId id) const { return isNamedColor(id) ? m_colors[namedColorIndex(id)].packed() : id; }

    /// The number here of a colour that is `id` in another table; entered if it is new.
    ColorId take(ColorId id, const NamedColors& from) { return isNamedColor(id) ? intern(from.color(id)) : id; }
    /// The same for a column, which stays shared when it has no named colour.
    Column<ColorId> take(const Column<ColorId>& column, const NamedColors& from);

    std::size_t size() const { return m_colors.size(); }

  private:
    struct Hash {
        std::size_t operator()(const KelCmColor& color) const;
    };

    std::vector<KelCmColor> m_colors;
    std::unordered_map<KelCmColor, ColorId, Hash> m_ids;
};

} // namespace zdr
