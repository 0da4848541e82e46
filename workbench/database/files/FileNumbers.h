// The numbers that the names of linetypes and plot styles, and the named colours, get in a drawing's file: their places
// among those that some property uses, since the drawing's own tables keep whatever it has ever had.
#pragma once

#include "model/Drawing.h"

#include <set>

namespace zdr {

/// Numbers without gaps, in the same order, for the entries of a table that are used.
class UsedNumbers {
  public:
    explicit UsedNumbers(std::size_t tableSize) : m_numbers(tableSize, 0) {}
    void use(std::size_t entry) { m_numbers[entry] = 1; }
    /// To be called when all uses are known.
    void count();

    std::uint32_t number(std::size_t entry) const { return m_numbers[entry]; }
    /// The entries by their numbers.
    const std::vector<std::uint32_t>& used() const { return m_used; }
    /// Whether all numbers are the places in the table, so that columns are written as they are.
    bool arePlaces() const { return m_arePlaces; }

  private:
    std::vector<std::uint32_t> m_numbers; // by entry
    std::vector<std::uint32_t> m_used;
    bool m_arePlaces = true;
};

class FileNumbers {
  public:
    explicit FileNumbers(const Drawing& drawing);

    /// The number in the file of a style's name that some property of the drawing uses.
    std::uint32_t style(NameId name) const { return m_styles.number(name); }
    /// The same where -1 stands for none.
    std::int32_t styleOrNone(NameId name) const {
        return name == kNoName ? -1 : static_cast<std::int32_t>(m_styles.number(name));
    }
    /// The names by number; the first is the empty one.
    const std::vector<NameId>& styleNames() const { return m_styles.used(); }
    /// Whether style numbers are the drawing's own. The usual case: a drawing that was read has its style names in
    /// front.
    bool stylesStay() const { return m_styles.arePlaces(); }

    /// What stands in the file for a colour that some property uses.
    ColorId color(ColorId color) const {
        return isNamedColor(color) ? kFirstNamedColor + m_colors.number(namedColorIndex(color)) : color;
    }
    /// The places of the named colours in the drawing's table, in the order of the file.
    const std::vector<std::uint32_t>& namedColors() const { return m_colors.used(); }
    bool colorsStay() const { return m_colors.arePlaces(); }

  private:
    void useStyles(const Drawing& drawing);
    void useStyles(const LayerColumns& columns, std::set<const NameId*>& seen);
    void useStyles(const std::vector<Entity>& entities);
    void useColors(const Drawing& drawing);
    void useColors(const Column<ColorId>& colors, std::set<const ColorId*>& seen);
    void useColors(const std::vector<Entity>& entities);
    void useColor(ColorId color) {
        if (isNamedColor(color))
            m_colors.use(namedColorIndex(color));
    }

    UsedNumbers m_styles, m_colors;
};

} // namespace zdr
