// Small drawings for tests, made by hand.
#pragma once

#include "model/Drawing.h"

namespace handmade {

struct LayerValues {
    std::uint8_t flags = zdr::kLayerOn | zdr::kLayerPlot;
    std::uint32_t color = 7;
    const wchar_t* linetype = L"Continuous";
    std::int16_t lineWeight = -3;
};

/// A drawing without layers, with the linetypes Continuous and Dashed (6, -3).
zdr::Drawing emptyDrawing();
/// Appends a layer and answers its index.
std::size_t addLayer(zdr::Drawing& drawing, const wchar_t* name, const LayerValues& values = {});
/// Appends a horizontal line of that length from the origin.
void addLine(zdr::Drawing& drawing, std::size_t layer, double length = 100);

} // namespace handmade
