// Where the 255 colours of the palette stand in the colour dialog's field of cells, and how the arrow keys walk it.
#pragma once

#include <optional>

namespace pickers {

/// A cell of the field.
struct PaletteCell {
    int column = 0;
    int row = 0;
    friend bool operator==(const PaletteCell&, const PaletteCell&) = default;
};

/// The named colours and the greys share the first row, with a gap between them; below stand the hues side by side,
/// their full shades above the pale ones, each from bright to dark.
inline constexpr int kPaletteColumns = 24;
inline constexpr int kPaletteRows = 11;

enum class PaletteMove { left, right, up, down, rowStart, rowEnd, first, last };

/// The cell of an index from 1 to 255; none for the others, which aren't in the field.
std::optional<PaletteCell> cellOfIndex(int index);
/// The index at a cell; none in the gap and outside the field.
std::optional<int> indexAtCell(PaletteCell cell);
/// The index that a move leads to. A move that leads out of the field stays; one into the gap goes on to what is
/// nearest. From an index that isn't in the field every move leads to the first colour.
int movedIndex(int index, PaletteMove move);

} // namespace pickers
