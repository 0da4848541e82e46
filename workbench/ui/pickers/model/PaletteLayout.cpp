// The order of the palette's indexes is the engine's: 1 to 9 are the named colours, then come ten shades a hue (full
// and pale ones in turn), and from 250 on the greys.

#include "PaletteLayout.h"

#include <algorithm>

namespace pickers {
namespace {

constexpr int kFirstHue = 10;
constexpr int kFirstGrey = 250;
constexpr int kLast = 255;
constexpr int kShades = 10;
constexpr int kFullShades = kShades / 2;
// Columns of the first row: the one after the named colours, and the first one of the greys.
constexpr int kNamedEnd = kFirstHue - 1;
constexpr int kGreysBegin = kPaletteColumns - (kLast - kFirstGrey + 1);

int rowOfShade(int shade) {
    return 1 + shade / 2 + (shade % 2 ? kFullShades : 0);
}

int shadeOfRow(int row) {
    const int place = row - 1;
    return place < kFullShades ? 2 * place : 2 * (place - kFullShades) + 1;
}

PaletteCell stepped(PaletteCell cell, PaletteMove move) {
    switch (move) {
    case PaletteMove::left:
        return {cell.column - 1, cell.row};
    case PaletteMove::right:
        return {cell.column + 1, cell.row};
    case PaletteMove::up:
        return {cell.column, cell.row - 1};
    case PaletteMove::down:
        return {cell.column, cell.row + 1};
    case PaletteMove::rowStart:
        return {0, cell.row};
    case PaletteMove::rowEnd:
        return {kPaletteColumns - 1, cell.row};
    case PaletteMove::first:
        return {0, 0};
    case PaletteMove::last:
        return {kPaletteColumns - 1, kPaletteRows - 1};
    }
    return cell;
}

bool isInGap(PaletteCell cell) {
    return cell.row == 0 && cell.column >= kNamedEnd && cell.column < kGreysBegin;
}

PaletteCell outOfGap(PaletteCell cell, PaletteMove move) {
    if (move == PaletteMove::left)
        return {kNamedEnd - 1, 0};
    if (move == PaletteMove::right)
        return {kGreysBegin, 0};
    const bool nearerToNamed = cell.column - kNamedEnd < kGreysBegin - 1 - cell.column;
    return {nearerToNamed ? kNamedEnd - 1 : kGreysBegin, 0};
}

} // namespace

std::optional<PaletteCell> cellOfIndex(int index) {
    if (index < 1 || index > kLast)
        return std::nullopt;
    if (index < kFirstHue)
        return PaletteCell{index - 1, 0};
    if (index >= kFirstGrey)
        return PaletteCell{kGreysBegin + index - kFirstGrey, 0};
    return PaletteCell{(index - kFirstHue) / kShades, rowOfShade((index - kFirstHue) % kShades)};
}

std::optional<int> indexAtCell(PaletteCell cell) {
    const bool inside = cell.column >= 0 && cell.column < kPaletteColumns && cell.row >= 0 && cell.row < kPaletteRows;
    if (!inside || isInGap(cell))
        return std::nullopt;
    if (cell.row > 0)
        return kFirstHue + cell.column * kShades + shadeOfRow(cell.row);
    return cell.column < kNamedEnd ? cell.column + 1 : kFirstGrey + cell.column - kGreysBegin;
}

int movedIndex(int index, PaletteMove move) {
    const auto from = cellOfIndex(index);
    if (!from)
        return 1;
    PaletteCell to = stepped(*from, move);
    if (isInGap(to))
        to = outOfGap(to, move);
    return indexAtCell(to).value_or(index);
}

} // namespace pickers
