// The words of a layer states file. Its reader and its writer walk the same tables.
#pragma once

#include "LayerStateMask.h"
#include "model/LayerColumns.h"

namespace engine::statefile {

inline constexpr const char* kVersionKey = "layerStateFile";
inline constexpr int kVersion = 1;
inline constexpr const char* kNameKey = "name";
inline constexpr const char* kDescriptionKey = "description";
inline constexpr const char* kRestoresKey = "restores";
/// Bits of the mask that are none of the ten properties; only written where there are any.
inline constexpr const char* kFurtherBitsKey = "furtherMaskBits";
inline constexpr const char* kCurrentLayerKey = "currentLayer"; ///< only written where the state has one
inline constexpr const char* kViewportKey = "savedWithViewport";
inline constexpr const char* kLayersKey = "layers";

inline constexpr const char* kColorKey = "color"; ///< an index, or red, green and blue in an array
inline constexpr const char* kLinetypeKey = "linetype";
inline constexpr const char* kLineWeightKey = "lineWeight";
inline constexpr const char* kPlotStyleKey = "plotStyle";

/// One bit of the mask and its word; a layer's flag has the same word.
struct MaskWord {
    const char* word;
    LayerStateMask bit;
    std::uint8_t flag; ///< of the flags column; 0 for a property with a column of its own
};
inline constexpr MaskWord kMaskWords[] = {
    {"on", MaskOn, zdr::kLayerOn},
    {"frozen", MaskFrozen, zdr::kLayerFrozen},
    {"viewportFrozen", MaskViewportFrozen, zdr::kLayerViewportFrozen},
    {"locked", MaskLocked, zdr::kLayerLocked},
    {"plot", MaskPlot, zdr::kLayerPlot},
    {"newViewportFrozen", MaskNewViewportFrozen, zdr::kLayerNewViewportFrozen},
    {kColorKey, MaskColor, 0},
    {kLinetypeKey, MaskLinetype, 0},
    {kLineWeightKey, MaskLineWeight, 0},
    {kPlotStyleKey, MaskPlotStyle, 0},
};

} // namespace engine::statefile
