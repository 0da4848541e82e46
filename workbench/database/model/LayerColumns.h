// The ten properties of a set of layers, column-wise. The drawing's layers and every layer state have this form, so
// that saving a state shares columns, comparing is a comparison of memory, and restoring is a copy of memory.
#pragma once

#include "Column.h"
#include "NameTable.h"
#include "NamedColors.h"

#include <cstdint>
#include <memory>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace zdr {

/// Bits of the flags column. Their values are those of the layer state mask where a property has one bit, so that a
/// mask can be applied without a table; frozen in the current viewport has no room in the byte's first five and takes
/// bit 5.
enum LayerFlag : std::uint8_t {
    kLayerOn = 1,
    kLayerFrozen = 2,
    kLayerLocked = 4,
    kLayerPlot = 8,
    kLayerNewViewportFrozen = 16,
    kLayerViewportFrozen = 32, ///< in a state that was saved with a viewport; never in the drawing's own columns
};

/// The flags that the drawing's own columns have, and those of a state.
inline constexpr std::uint8_t kDrawingFlags =
    kLayerOn | kLayerFrozen | kLayerLocked | kLayerPlot | kLayerNewViewportFrozen;
inline constexpr std::uint8_t kStateFlags = kDrawingFlags | kLayerViewportFrozen;

/// The names of a set of layers, in order; shared by all states that hold the same layers.
struct LayerSet {
    std::vector<NameId> names;
};

struct LayerColumns {
    Column<std::uint8_t> flags;
    Column<ColorId> colors;           ///< named ones in the drawing's table
    Column<NameId> linetypes;         ///< names in the drawing's name table
    Column<std::int16_t> lineWeights; ///< hundredths of a millimetre, -1 to -3
    Column<NameId> plotStyles;        ///< names in the drawing's name table
};

/// References to the five columns, or to what stands for each of them in another struct, such as its value in one row.
/// A struct of more or fewer parts doesn't compile here, so that no column is forgotten.
template <class Five> constexpr auto tieColumns(Five& five) {
    auto& [flags, colors, linetypes, lineWeights, plotStyles] = five;
    return std::tie(flags, colors, linetypes, lineWeights, plotStyles);
}

/// Calls the action for each column, with what stands for it in each of the structs.
template <class Action, class... Fives> constexpr void forEachColumn(Action action, Fives&... structs) {
    const auto call = [&](auto index) { action(std::get<decltype(index)::value>(tieColumns(structs))...); };
    [&]<std::size_t... Index>(std::index_sequence<Index...>) {
        (call(std::integral_constant<std::size_t, Index>{}), ...);
    }
    (std::make_index_sequence<5>{});
}

} // namespace zdr
