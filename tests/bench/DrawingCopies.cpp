#include "DrawingCopies.h"

#include "LayerStateMask.h"
#include "engine/DatabaseAccess.h"

#include <algorithm>

namespace {

template <class T> zdr::Column<T> ownCopy(const zdr::Column<T>& column, bool reversed) {
    std::vector<T> values(column.values().begin(), column.values().end());
    if (reversed)
        std::ranges::reverse(values);
    return zdr::Column<T>(std::move(values));
}

zdr::LayerColumns ownCopy(const zdr::LayerColumns& columns, bool reversed) {
    zdr::LayerColumns copy;
    zdr::forEachColumn([reversed](auto& to, const auto& from) { to = ownCopy(from, reversed); }, copy, columns);
    return copy;
}

} // namespace

zdr::Drawing drawingWithOwnColumns(std::size_t layers, std::size_t states, bool reversed) {
    zdr::Drawing drawing = engine::makeNewDrawing();
    const engine::LayerValues base = engine::valuesAt(drawing.columns, 0);
    while (drawing.layers.size() < layers) {
        const std::size_t i = drawing.layers.size();
        drawing.layers.push_back({drawing.names.intern(L"Layer " + std::to_wstring(i)), 0, {}, zdr::kNone});
        engine::LayerValues values = base;
        values.color = static_cast<std::uint32_t>(i % 255 + 1);
        values.flags = static_cast<std::uint8_t>(values.flags ^ (i % 3 == 0 ? zdr::kLayerLocked : 0));
        engine::appendValues(drawing.columns, values);
    }
    auto set = std::make_shared<zdr::LayerSet>();
    for (const zdr::Layer& layer : drawing.layers)
        set->names.push_back(layer.name);
    drawing.layerSet = set;
    if (reversed) {
        set = std::make_shared<zdr::LayerSet>(*set);
        std::ranges::reverse(set->names);
    }
    for (std::size_t i = 0; i < states; ++i) {
        zdr::LayerState& state = drawing.states.emplace_back();
        state.name = L"State " + std::to_wstring(i);
        state.mask = MaskAllProperties;
        state.layers = set;
        state.columns = ownCopy(drawing.columns, reversed);
        state.currentLayer = drawing.layers[0].name;
    }
    return drawing;
}
