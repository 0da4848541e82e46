// Whether a state matches what the drawing shows.

#include "ColumnRuns.h"
#include "LayerProperties.h"
#include "LayerStates.h"

#include <algorithm>

namespace engine {
namespace {

bool flagsMatch(const zdr::Column<std::uint8_t>& state, const zdr::Column<std::uint8_t>& shown,
                const LayerMapping& mapping, std::uint32_t mask) {
    const std::uint32_t viewportBit = mask & MaskViewportFrozen ? zdr::kLayerViewportFrozen : 0;
    const auto bits = static_cast<std::uint8_t>((mask & kFlagBits) | viewportBit);
    return bits == 0 || bitsMatch(state, shown, mapping, bits);
}

bool compare(const DatabaseImp& database, const zdr::LayerState& state, const zdr::Viewport* viewport) {
    const LayerMapping& mapping = database.lookups().mapping(state);
    if (mapping.missing > 0)
        return false;
    std::uint32_t mask = effectiveMask(database.drawing(), state.mask);
    if (!viewport || !state.hasViewportData)
        mask &= ~MaskViewportFrozen;
    const zdr::LayerColumns& shown = database.lookups().shown(viewport);
    const zdr::LayerColumns& own = state.columns;
    bool match = flagsMatch(own.flags, shown.flags, mapping, mask);
    forEachColumnProperty([&](auto property) {
        if (match && (mask & property.bit))
            match = runsEqual(own.*property.column, shown.*property.column, mapping);
    });
    return match;
}

} // namespace

bool stateMatches(const DatabaseImp& database, std::size_t index, const zdr::Viewport* viewport) {
    const zdr::LayerState& state = database.drawing().states[index];
    const zdr::Handle space = viewport ? viewport->handle : 0;
    if (const std::optional<bool> kept = database.lookups().comparison(state.handle, space))
        return *kept;
    const bool matches = compare(database, state, viewport);
    database.lookups().keepComparison(state.handle, space, matches);
    return matches;
}

} // namespace engine
