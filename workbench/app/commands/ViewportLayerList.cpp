#include "ViewportLayerList.h"

#include "LayerSelection.h"
#include "LayerStateMask.h"
#include "PropertyText.h"

#include "KelCmColor.h"

#include <algorithm>

namespace workbench {

namespace {

// A longer list of layers would help nobody.
constexpr std::size_t kMostLayers = 200;

std::wstring overrideText(const zdr::Drawing& drawing, const zdr::ViewportOverride& own) {
    std::wstring text;
    if (own.mask & MaskColor)
        text += std::wstring(L", color ") + drawing.namedColors.color(own.color).colorNameForDisplay();
    if (own.mask & MaskLinetype)
        text += L", linetype " + drawing.names.text(own.linetype);
    if (own.mask & MaskLineWeight)
        text += L", lineweight " + lineWeightText(own.lineWeight);
    if (own.mask & MaskPlotStyle)
        text += L", plot style " + drawing.names.text(own.plotStyle);
    return text;
}

/// What the viewport shows of a layer otherwise; empty when it shows the layer as it is.
std::wstring overrideText(const zdr::Drawing& drawing, const zdr::Viewport& viewport, std::size_t layer) {
    const auto found = std::ranges::lower_bound(viewport.overrides, layer, {}, &zdr::ViewportOverride::layer);
    return found != viewport.overrides.end() && found->layer == layer ? overrideText(drawing, *found) : L"";
}

} // namespace

std::wstring viewportText(const zdr::Drawing& drawing, const zdr::Viewport& viewport,
                          const std::vector<std::size_t>& layers) {
    std::size_t frozenCount = 0;
    std::size_t overriddenCount = 0;
    std::size_t differing = 0;
    std::wstring lines;
    for (const std::size_t layer : layers) {
        const bool frozen = layer < viewport.frozen.size() && viewport.frozen[layer];
        const std::wstring overridden = overrideText(drawing, viewport, layer);
        const std::wstring text = (frozen ? L", frozen" : L"") + overridden;
        frozenCount += frozen;
        overriddenCount += !overridden.empty();
        if (!text.empty() && ++differing <= kMostLayers)
            lines += L"    " + drawing.names.text(drawing.layers[layer].name) + L":" + text.substr(1) + L"\n";
    }
    if (differing > kMostLayers)
        lines += L"    " + std::to_wstring(differing - kMostLayers) + L" more: a pattern such as A* shows fewer.\n";
    const bool isCurrent = drawing.currentViewport == viewport.handle;
    return L"Viewport " + std::to_wstring(viewport.number) + (isCurrent ? L" (current): " : L": ") +
           layersAre(frozenCount) + L" frozen, " + layersAre(overriddenCount) + L" shown otherwise.\n" + lines;
}

} // namespace workbench
