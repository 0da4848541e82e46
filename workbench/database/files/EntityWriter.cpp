// Entities and layouts into the tables of a drawing file.
#include "EntityCoding.h"

#include "DrawingCheck.h"
#include "FileNumbers.h"
#include "TextCoding.h"

namespace zdr {
namespace {

using flatbuffers::FlatBufferBuilder;
using flatbuffers::Offset;

file::Point filePoint(const Point& point) {
    return {point.x, point.y};
}

/// Writes one geometry; answers where it stands and what it is.
struct GeometryWriter {
    using Result = std::pair<Offset<void>, file::Geometry>;
    FlatBufferBuilder& builder;

    Result operator()(const Line& line) const {
        const file::Point from = filePoint(line.from), to = filePoint(line.to);
        return {file::CreateLine(builder, &from, &to).Union(), file::Geometry::Line};
    }
    Result operator()(const Polyline& polyline) const {
        std::vector<file::Point> points;
        points.reserve(polyline.points.size());
        for (const Point& point : polyline.points)
            points.push_back(filePoint(point));
        const auto vector = builder.CreateVectorOfStructs(points);
        return {file::CreatePolyline(builder, vector, polyline.closed).Union(), file::Geometry::Polyline};
    }
    Result operator()(const Circle& circle) const {
        const file::Point center = filePoint(circle.center);
        return {file::CreateCircle(builder, &center, circle.radius).Union(), file::Geometry::Circle};
    }
    Result operator()(const Arc& arc) const {
        const file::Point center = filePoint(arc.center);
        return {file::CreateArc(builder, &center, arc.radius, arc.startAngle, arc.endAngle).Union(),
                file::Geometry::Arc};
    }
    Result operator()(const Text& text) const {
        const file::Point position = filePoint(text.position);
        const auto string = builder.CreateString(toUtf8(text.text));
        return {file::CreateText(builder, &position, text.height, text.rotation, string).Union(), file::Geometry::Text};
    }
};

Offset<file::Viewport> writeViewport(FlatBufferBuilder& builder, const Viewport& viewport, const FileNumbers& numbers) {
    std::vector<std::uint32_t> frozen;
    for (std::size_t layer = 0; layer < viewport.frozen.size(); ++layer)
        if (viewport.frozen[layer])
            frozen.push_back(static_cast<std::uint32_t>(layer));
    std::vector<Offset<file::Override>> overrides;
    for (const ViewportOverride& values : viewport.overrides)
        overrides.push_back(file::CreateOverride(builder, static_cast<std::uint32_t>(values.layer), values.mask,
                                                 numbers.color(values.color), numbers.style(values.linetype),
                                                 values.lineWeight, numbers.style(values.plotStyle)));
    const auto frozenVector = builder.CreateVector(frozen);
    const auto overrideVector = builder.CreateVector(overrides);
    const file::Point corner = filePoint(viewport.corner), center = filePoint(viewport.viewCenter);
    return file::CreateViewport(builder, viewport.handle, viewport.number, &corner, viewport.width, viewport.height,
                                &center, viewport.scale, frozenVector, overrideVector);
}

} // namespace

Offset<EntityTables> writeEntities(FlatBufferBuilder& builder, const std::vector<Entity>& entities,
                                   const FileNumbers& numbers) {
    std::vector<Offset<file::Entity>> tables;
    tables.reserve(entities.size());
    for (const Entity& entity : entities) {
        checkSize(builder.GetSize());
        const auto [geometry, type] = std::visit(GeometryWriter{builder}, entity.geometry);
        tables.push_back(file::CreateEntity(builder, static_cast<std::uint32_t>(entity.layer),
                                            numbers.color(entity.color.value_or(kColorByLayer)),
                                            numbers.styleOrNone(entity.linetype), entity.lineWeight, type, geometry));
    }
    return builder.CreateVector(tables);
}

Offset<file::Layout> writeLayout(FlatBufferBuilder& builder, const Layout& layout, const FileNumbers& numbers) {
    std::vector<Offset<file::Viewport>> viewports;
    for (const Viewport& viewport : layout.viewports)
        viewports.push_back(writeViewport(builder, viewport, numbers));
    const auto viewportVector = builder.CreateVector(viewports);
    const auto entities = writeEntities(builder, layout.entities, numbers);
    const auto name = builder.CreateString(toUtf8(layout.name));
    return file::CreateLayout(builder, name, layout.paperWidth, layout.paperHeight, viewportVector, entities);
}

} // namespace zdr
