// The words of a layer states file. A layer has a member for each of the layer properties, and a mask is a list of
// their words.
#pragma once

#include "engine/LayerProperties.h"

namespace engine::statefile {

inline constexpr const char* kVersionKey = "layerStateFile";
/// A file bears the lowest version that can hold what is in it, so that older programs read what they can.
inline constexpr int kFirstVersion = 1;
inline constexpr int kNamedColorsVersion = 2;
inline constexpr int kVersion = kNamedColorsVersion; ///< the newest that is read
inline constexpr const char* kNameKey = "name";
inline constexpr const char* kDescriptionKey = "description";
inline constexpr const char* kRestoresKey = "restores";
/// Bits of the mask that are none of the ten properties; only written where there are any.
inline constexpr const char* kFurtherBitsKey = "furtherMaskBits";
inline constexpr const char* kCurrentLayerKey = "currentLayer"; ///< only written where the state has one
inline constexpr const char* kViewportKey = "savedWithViewport";
inline constexpr const char* kLayersKey = "layers";

// Of the properties that aren't flags.
inline constexpr const char* kColorKey = wordOf(MaskColor); ///< an index, or red, green and blue in an array
inline constexpr const char* kColorNameKey = "colorName";   ///< this one and the next only where the colour has them
inline constexpr const char* kColorBookKey = "colorBook";
inline constexpr const char* kLinetypeKey = wordOf(MaskLinetype);
inline constexpr const char* kLineWeightKey = wordOf(MaskLineWeight);
inline constexpr const char* kPlotStyleKey = wordOf(MaskPlotStyle);

} // namespace engine::statefile
