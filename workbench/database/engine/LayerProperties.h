// The ten properties of a layer, as the engine works with them. Code that deals with each of them walks the lists here,
// so that nothing else lists them.
#pragma once

#include "LayerStateMask.h"
#include "model/Drawing.h"

#include <algorithm>
#include <bit>
#include <iterator>
#include <numeric>
#include <string_view>

namespace engine {

struct LayerProperty {
    const char* word; ///< in a layer states file
    LayerStateMask bit;
    std::uint8_t flag; ///< of the flags column; 0 for a property with a column of its own
};
/// In the order of a layer states file.
inline constexpr LayerProperty kLayerProperties[] = {
    {"on", MaskOn, zdr::kLayerOn},
    {"frozen", MaskFrozen, zdr::kLayerFrozen},
    {"viewportFrozen", MaskViewportFrozen, zdr::kLayerViewportFrozen},
    {"locked", MaskLocked, zdr::kLayerLocked},
    {"plot", MaskPlot, zdr::kLayerPlot},
    {"newViewportFrozen", MaskNewViewportFrozen, zdr::kLayerNewViewportFrozen},
    {"color", MaskColor, 0},
    {"linetype", MaskLinetype, 0},
    {"lineWeight", MaskLineWeight, 0},
    {"plotStyle", MaskPlotStyle, 0},
};
constexpr const char* wordOf(LayerStateMask bit) {
    return std::ranges::find(kLayerProperties, bit, &LayerProperty::bit)->word;
}

/// A property with a column of its own, and the members that hold its values. Each is a type, so that loops over rows
/// are compiled for it.
template <LayerStateMask Bit, auto Column, auto Overriding> struct ColumnProperty {
    static constexpr LayerStateMask bit = Bit;
    static constexpr auto column = Column;         ///< of LayerColumns
    static constexpr auto overriding = Overriding; ///< of ViewportOverride
    static constexpr bool isStyle = Bit == MaskLinetype || Bit == MaskPlotStyle;
};
inline constexpr std::tuple<
    ColumnProperty<MaskColor, &zdr::LayerColumns::colors, &zdr::ViewportOverride::color>,
    ColumnProperty<MaskLinetype, &zdr::LayerColumns::linetypes, &zdr::ViewportOverride::linetype>,
    ColumnProperty<MaskLineWeight, &zdr::LayerColumns::lineWeights, &zdr::ViewportOverride::lineWeight>,
    ColumnProperty<MaskPlotStyle, &zdr::LayerColumns::plotStyles, &zdr::ViewportOverride::plotStyle>>
    kColumnProperties;
template <class Action> constexpr void forEachColumnProperty(Action action) {
    std::apply([&](auto... property) { (action(property), ...); }, kColumnProperties);
}

/// Bits of the mask that are flags of the drawing's own columns, at the same place.
inline constexpr LayerStateMask kFlagBits = zdr::kDrawingFlags;

namespace checks {

constexpr LayerStateMask bitsOfColumns() {
    LayerStateMask bits = 0;
    forEachColumnProperty([&](auto property) { bits |= property.bit; });
    return bits;
}
constexpr LayerStateMask bitsWithoutFlag() {
    LayerStateMask bits = 0;
    for (const LayerProperty& property : kLayerProperties)
        bits |= property.flag == 0 ? property.bit : 0;
    return bits;
}
constexpr auto sum(auto LayerProperty::*member) {
    return std::accumulate(
        std::begin(kLayerProperties), std::end(kLayerProperties), 0u,
        [member](unsigned total, const LayerProperty& property) { return total + property.*member; });
}
constexpr bool isSingle(const LayerProperty& property) {
    return std::has_single_bit(property.bit) && (property.flag == 0 || std::has_single_bit(property.flag));
}
constexpr bool isAtTheSamePlace(const LayerProperty& property) {
    return (property.flag & zdr::kDrawingFlags) == 0 || property.flag == property.bit;
}

// When each entry is a single bit, and the sum of all is the whole mask, each bit is there once.
static_assert(std::ranges::all_of(kLayerProperties, isSingle));
static_assert(sum(&LayerProperty::bit) == MaskAllProperties, "each property of the mask stands in the list once");
static_assert(sum(&LayerProperty::flag) == zdr::kStateFlags, "each flag stands in the list once");
static_assert(std::ranges::all_of(kLayerProperties, isAtTheSamePlace), "a mask is applied to flags without a table");
static_assert(bitsWithoutFlag() == bitsOfColumns(), "what is no flag has a column of its own");
static_assert(bitsOfColumns() == MaskOverridable, "what has a column of its own can be overridden");

} // namespace checks

} // namespace engine
