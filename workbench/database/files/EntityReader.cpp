// Entities and layouts from the tables of a drawing file.
#include "DrawingCheck.h"
#include "EntityCoding.h"

#include <algorithm>

namespace zdr {
namespace {

Point pointFrom(const file::Point& point) {
    return {point.x(), point.y()};
}

Polyline polylineFrom(const file::Polyline& source, const Place& place, ReadContext& context) {
    Polyline polyline;
    polyline.closed = source.closed();
    context.claim(source.points()->size() * sizeof(file::Point));
    const auto* points = reinterpret_cast<const flatbuffers::Vector<file::Point>*>(source.points());
    for (const file::Point& point : alignedValues(*points, place))
        polyline.points.push_back(pointFrom(point));
    return polyline;
}

decltype(Entity::geometry) geometryFrom(const file::Entity& source, const Place& place, ReadContext& context) {
    switch (source.geometry_type()) {
    case file::Geometry::Line: {
        const file::Line& line = *source.geometry_as_Line();
        return Line{pointFrom(*line.from()), pointFrom(*line.to())};
    }
    case file::Geometry::Polyline:
        return polylineFrom(*source.geometry_as_Polyline(), place, context);
    case file::Geometry::Circle: {
        const file::Circle& circle = *source.geometry_as_Circle();
        return Circle{pointFrom(*circle.center()), circle.radius()};
    }
    case file::Geometry::Arc: {
        const file::Arc& arc = *source.geometry_as_Arc();
        return Arc{pointFrom(*arc.center()), arc.radius(), arc.start_angle(), arc.end_angle()};
    }
    case file::Geometry::Text: {
        const file::Text& text = *source.geometry_as_Text();
        return Text{pointFrom(*text.position()), text.height(), text.rotation(), context.text(text.text(), place)};
    }
    default:
        refuse(place,
               L"has a geometry of the unknown kind " + std::to_wstring(static_cast<unsigned>(source.geometry_type())));
    }
}

Entity entityFrom(const file::Entity& source, const Place& place, ReadContext& context) {
    Entity entity;
    entity.layer = source.layer();
    if (source.color() != kColorByLayer)
        entity.color = source.color();
    entity.linetype = context.style(source.linetype(), place);
    entity.lineWeight = source.line_weight();
    entity.geometry = geometryFrom(source, place, context);
    return entity;
}

std::vector<bool> frozenFrom(const flatbuffers::Vector<std::uint32_t>& source, const Place& place,
                             std::size_t layerCount, ReadContext& context) {
    context.claim(source.size() * sizeof(std::uint32_t));
    std::size_t count = 0;
    for (const std::uint32_t layer : source) {
        if (layer >= layerCount)
            refuseIndex(place, L"layer", layer, layerCount);
        count = std::max<std::size_t>(count, layer + std::size_t{1});
    }
    context.claimFlags(count);
    std::vector<bool> frozen(count);
    for (const std::uint32_t layer : source)
        frozen[layer] = true;
    return frozen;
}

ViewportOverride overrideFrom(const file::Override& source, const Place& place, const ReadContext& context) {
    return {source.layer(),       source.mask(),
            source.color(),       context.style(source.linetype(), place),
            source.line_weight(), context.style(source.plot_style(), place)};
}

Viewport viewportFrom(const file::Viewport& source, const Place& place, std::size_t layerCount, ReadContext& context) {
    Viewport viewport;
    viewport.handle = source.handle();
    viewport.number = source.number();
    viewport.corner = pointFrom(*source.corner());
    viewport.width = source.width();
    viewport.height = source.height();
    viewport.viewCenter = pointFrom(*source.view_center());
    viewport.scale = source.scale();
    if (source.frozen_layers())
        viewport.frozen = frozenFrom(*source.frozen_layers(), place, layerCount, context);
    if (source.overrides())
        for (const file::Override* values : *source.overrides())
            viewport.overrides.push_back(
                overrideFrom(*values, {L"override", viewport.overrides.size(), {}, &place}, context));
    return viewport;
}

} // namespace

std::vector<Entity> readEntities(const EntityTables& source, const Place* owner, ReadContext& context) {
    std::vector<Entity> entities;
    entities.reserve(source.size());
    for (const file::Entity* entity : source)
        entities.push_back(entityFrom(*entity, {L"entity", entities.size(), {}, owner}, context));
    return entities;
}

Layout readLayout(const file::Layout& source, const Place& place, std::size_t layerCount, ReadContext& context) {
    Layout layout;
    layout.name = context.text(source.name(), place);
    layout.paperWidth = source.paper_width();
    layout.paperHeight = source.paper_height();
    if (source.viewports())
        for (const file::Viewport* viewport : *source.viewports())
            layout.viewports.push_back(
                viewportFrom(*viewport, {L"viewport", layout.viewports.size(), {}, &place}, layerCount, context));
    if (source.entities())
        layout.entities = readEntities(*source.entities(), &place, context);
    return layout;
}

bool hasCurrentViewport(const Drawing& drawing) {
    if (!drawing.currentViewport || !drawing.activeLayout || *drawing.activeLayout >= drawing.layouts.size())
        return false;
    const std::vector<Viewport>& viewports = drawing.layouts[*drawing.activeLayout].viewports;
    return std::any_of(viewports.begin(), viewports.end(),
                       [&](const Viewport& viewport) { return viewport.handle == *drawing.currentViewport; });
}

} // namespace zdr
