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
/// Puts the viewport of the first sheet from (20, 20) to (120, 70), over the middle of a line of 1000, and answers a
/// new one beside it with the next number, from (20, 100) to (120, 150), which shows the same.
zdr::Viewport& addSecondViewport(zdr::Drawing& drawing);

} // namespace handmade
