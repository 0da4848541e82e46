#include "HandmadeDrawing.h"

namespace handmade {

namespace {

template <class T> void append(zdr::Column<T>& column, T value) {
    std::vector<T> values(column.values().begin(), column.values().end());
    values.push_back(value);
    column = zdr::Column<T>(std::move(values));
}

} // namespace

zdr::Drawing emptyDrawing() {
    zdr::Drawing drawing;
    drawing.linetypes.push_back({drawing.names.intern(L"Continuous"), drawing.nextHandle++, L"", {}});
    drawing.linetypes.push_back({drawing.names.intern(L"Dashed"), drawing.nextHandle++, L"", {6, -3}});
    drawing.plotStyles.push_back({drawing.names.intern(L"Normal"), drawing.nextHandle++});
    return drawing;
}

std::size_t addLayer(zdr::Drawing& drawing, const wchar_t* name, const LayerValues& values) {
    drawing.layers.push_back({drawing.names.intern(name), drawing.nextHandle++, L"", zdr::kNone});
    zdr::LayerColumns& columns = drawing.columns;
    append(columns.flags, values.flags);
    append(columns.colors, values.color);
    append(columns.linetypes, drawing.names.intern(values.linetype));
    append(columns.lineWeights, values.lineWeight);
    append(columns.plotStyles, drawing.names.intern(L"Normal"));
    auto set = std::make_shared<zdr::LayerSet>();
    for (const zdr::Layer& layer : drawing.layers)
        set->names.push_back(layer.name);
    drawing.layerSet = std::move(set);
    return drawing.layers.size() - 1;
}

void addLine(zdr::Drawing& drawing, std::size_t layer, double length) {
    zdr::Entity entity;
    entity.layer = layer;
    entity.geometry = zdr::Line{{0, 0}, {length, 0}};
    drawing.entities.push_back(std::move(entity));
}

zdr::Viewport& addSecondViewport(zdr::Drawing& drawing) {
    std::vector<zdr::Viewport>& viewports = drawing.layouts.at(0).viewports;
    zdr::Viewport& first = viewports.at(0);
    first.corner = {20, 20};
    first.width = 100;
    first.height = 50;
    first.viewCenter = {500, 0};
    first.scale = 0.05;
    zdr::Viewport second = first;
    second.handle = drawing.nextHandle++;
    second.number = static_cast<std::int16_t>(first.number + 1);
    second.corner = {20, 100};
    viewports.push_back(std::move(second));
    return viewports.back();
}

} // namespace handmade
