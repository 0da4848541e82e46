// How what lies on a layer looks: the layer's own properties, as a viewport overrides them.
#pragma once

#include "model/Drawing.h"

#include <vector>

namespace workbench {

/// The look of what takes its properties from a layer.
struct LayerLook {
    bool visible = true;
    std::uint32_t color = 7;                      ///< packed; neither by layer nor by block
    const std::vector<double>* pattern = nullptr; ///< millimetres on paper; null for a continuous line
    int lineWeight = 25;                          ///< hundredths of a millimetre
};

/// The look of every layer of a drawing, in its own order.
/// @param viewport whose freezing and overrides count; null for the model tab and for paper itself
std::vector<LayerLook> layerLooks(const zdr::Drawing& drawing, const zdr::Viewport* viewport);

/// The look of every layer of the drawing behind a reference, as the drawing that shows it keeps it under
/// "reference!layer". A layer without such a record there shows as in its own drawing.
std::vector<LayerLook> referencedLooks(const zdr::Drawing& drawing, const std::vector<LayerLook>& looks,
                                       std::size_t reference);

/// The look of an entity: its own properties where it has them, its layer's otherwise.
LayerLook entityLook(const zdr::Drawing& drawing, const zdr::Entity& entity, const LayerLook& layer);

} // namespace workbench
