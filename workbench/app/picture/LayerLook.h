// How the entities on a layer look: by the layer's own properties, or by a viewport's overrides of them.
#pragma once

#include "model/Drawing.h"

#include <vector>

namespace workbench {

/// The look of an entity that takes all its properties from its layer.
struct LayerLook {
    bool visible = true;
    std::uint32_t color = 7;                      ///< packed; neither by layer nor by block
    const std::vector<double>* pattern = nullptr; ///< millimetres on paper; null for a continuous line
    int lineWeight = 25;                          ///< hundredths of a millimetre
};

/// The look of every layer of a drawing, in the order of the drawing's layers.
/// @param viewport whose freezing and overrides count; null for the model tab and for what is drawn on the paper itself
std::vector<LayerLook> layerLooks(const zdr::Drawing& drawing, const zdr::Viewport* viewport);

/// For each layer of a referenced drawing the layer "reference!layer" that `drawing`, which shows the reference, has of
/// it; kNone where it has none.
std::vector<std::size_t> recordsOfReference(const zdr::Drawing& drawing, std::size_t reference);

/// The look of every layer of a referenced drawing. It is the look of the layer "reference!layer" in `drawing`, which
/// shows the reference; a layer that has no such record there looks as in its own drawing.
std::vector<LayerLook> referencedLooks(const zdr::Drawing& drawing, const std::vector<LayerLook>& looks,
                                       std::size_t reference);

/// The look of an entity: its own properties where it has them, its layer's otherwise.
LayerLook entityLook(const zdr::Drawing& drawing, const zdr::Entity& entity, const LayerLook& layer);

} // namespace workbench
