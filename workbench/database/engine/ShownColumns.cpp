#include "ShownColumns.h"

#include "LayerProperties.h"

namespace engine {
namespace {

// Writes the viewport's values over the drawing's. A column without an override stays shared.
template <class T, class Value>
void applyOverrides(zdr::Column<T>& column, const std::vector<zdr::ViewportOverride>& overrides, std::uint32_t bit,
                    Value zdr::ViewportOverride::*value) {
    std::span<T> values;
    for (const zdr::ViewportOverride& layer : overrides) {
        if (!(layer.mask & bit) || layer.layer >= column.size())
            continue;
        if (values.empty())
            values = column.write();
        values[layer.layer] = layer.*value;
    }
}

void markFrozen(zdr::Column<std::uint8_t>& flags, const std::vector<bool>& frozen) {
    std::span<std::uint8_t> values;
    for (std::size_t i = 0; i < frozen.size() && i < flags.size(); ++i) {
        if (!frozen[i])
            continue;
        if (values.empty())
            values = flags.write();
        values[i] = static_cast<std::uint8_t>(values[i] | zdr::kLayerViewportFrozen);
    }
}

} // namespace

zdr::LayerColumns showColumns(const zdr::Drawing& drawing, const zdr::Viewport& viewport) {
    zdr::LayerColumns columns = drawing.columns;
    markFrozen(columns.flags, viewport.frozen);
    forEachColumnProperty([&](auto property) {
        applyOverrides(columns.*property.column, viewport.overrides, property.bit, property.overriding);
    });
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
