// Which properties of a layer a state's restore applies, and how a restore goes about it.
#pragma once

#include <cstdint>

/// A bit set of the ten properties. Further bits pass through unchanged.
using LayerStateMask = std::uint32_t;

inline constexpr LayerStateMask MaskOn = 1;
inline constexpr LayerStateMask MaskFrozen = 2;
inline constexpr LayerStateMask MaskLocked = 4;
inline constexpr LayerStateMask MaskPlot = 8;
inline constexpr LayerStateMask MaskNewViewportFrozen = 16;
inline constexpr LayerStateMask MaskColor = 32;
inline constexpr LayerStateMask MaskLinetype = 64;
inline constexpr LayerStateMask MaskLineWeight = 128;
inline constexpr LayerStateMask MaskPlotStyle = 256;
inline constexpr LayerStateMask MaskViewportFrozen = 512;
/// All ten properties.
inline constexpr LayerStateMask MaskAllProperties = 1023;
/// The properties that can be applied as overrides of one viewport.
inline constexpr LayerStateMask MaskOverridable = MaskColor | MaskLinetype | MaskLineWeight | MaskPlotStyle;

/// Layers of the drawing that the state doesn't hold are turned off.
inline constexpr int RestoreFlagLayerNotFound = 1;
/// The overridable properties are applied as overrides of the given viewport.
inline constexpr int RestoreFlagAsOverrides = 4;
