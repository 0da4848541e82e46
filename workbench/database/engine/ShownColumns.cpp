// See ShownColumns.h.

#include "ShownColumns.h"

#include "LayerStateMask.h"

namespace engine {
namespace {

// A freshly edited column is this column's alone, so its values may be written without looking again.
template <class T, class Value>
void applyOverrides(zdr::Column<T>& column, const std::vector<zdr::ViewportOverride>& overrides, std::uint32_t bit,
                    Value zdr::ViewportOverride::*value) {
    std::vector<T>* values = nullptr;
    for (const zdr::ViewportOverride& layer : overrides) {
        if (!(layer.mask & bit) || layer.layer >= column.size())
            continue;
        if (!values)
            values = &column.edit();
        (*values)[layer.layer] = layer.*value;
    }
    if (values)
        column.look();
}

void markFrozen(zdr::Column<std::uint8_t>& flags, const std::vector<bool>& frozen) {
    std::vector<std::uint8_t>* values = nullptr;
    for (std::size_t i = 0; i < frozen.size() && i < flags.size(); ++i) {
        if (!frozen[i])
            continue;
        if (!values)
            values = &flags.edit();
        (*values)[i] = static_cast<std::uint8_t>((*values)[i] | zdr::kLayerViewportFrozen);
    }
    if (values)
        flags.look();
}

} // namespace

zdr::LayerColumns showColumns(const zdr::Drawing& drawing, const zdr::Viewport& viewport) {
    zdr::LayerColumns columns = drawing.columns;
    markFrozen(columns.flags, viewport.frozen);
    applyOverrides(columns.colors, viewport.overrides, MaskColor, &zdr::ViewportOverride::color);
    applyOverrides(columns.linetypes, viewport.overrides, MaskLinetype, &zdr::ViewportOverride::linetype);
    applyOverrides(columns.lineWeights, viewport.overrides, MaskLineWeight, &zdr::ViewportOverride::lineWeight);
    applyOverrides(columns.plotStyles, viewport.overrides, MaskPlotStyle, &zdr::ViewportOverride::plotStyle);
    return columns;
}

const zdr::LayerColumns& ShownColumnsCache::columns(const zdr::Drawing& drawing, const zdr::Viewport* viewport,
                                                    std::uint64_t changes) {
    if (!viewport)
        return drawing.columns;
    if (m_viewport != viewport->handle || m_changes != changes) {
        m_columns = showColumns(drawing, *viewport);
        m_viewport = viewport->handle;
        m_changes = changes;
    }
    return m_columns;
}

} // namespace engine
