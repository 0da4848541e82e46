#include "LayerExtents.h"

#include "LayerLook.h"
#include "Outline.h"
#include "Picture.h"
#include "SpaceTransform.h"

namespace workbench {

namespace {

/// Gathers the extents of entities of one space, or of the part of it that a viewport shows.
class Gatherer {
  public:
    /// @param clip what can be seen, in the units of the answer; none for all
    Gatherer(LayerExtents& extents, const std::optional<Rect>& clip) : m_extents(extents), m_clip(clip) {}

    /// Model space, with what references show in it. The vectors have a place for each layer of the drawing.
    void addModel(const zdr::Drawing& drawing, const std::vector<LayerLook>& looks, const std::vector<bool>& wanted,
                  const SpaceTransform& transform) {
        for (std::size_t i = 0; i < drawing.references.size(); ++i) {
            const zdr::Reference& reference = drawing.references[i];
            if (!reference.drawing)
                continue;
            std::vector<bool> wantedThere;
            for (const std::size_t layer : recordsOfReference(drawing, i))
                wantedThere.push_back(layer != zdr::kNone && wanted[layer]);
            addModel(*reference.drawing, referencedLooks(drawing, looks, i), wantedThere,
                     transform.after(SpaceTransform::of(reference)));
        }
        add(drawing.entities, looks, wanted, transform);
    }

    void add(const std::vector<zdr::Entity>& entities, const std::vector<LayerLook>& looks,
             const std::vector<bool>& wanted, const SpaceTransform& transform) {
        for (const zdr::Entity& entity : entities) {
            if (entity.layer >= wanted.size() || !wanted[entity.layer])
                continue;
            const Rect rect = seen(entity, transform);
            if (looks[entity.layer].visible)
                m_extents.drawn.add(rect);
            else
                m_extents.isHidden = m_extents.isHidden || !rect.isEmpty();
        }
    }

  private:
    /// The rectangle around the part of an entity that can be seen, if its layer lets it.
    Rect seen(const zdr::Entity& entity, const SpaceTransform& transform) {
        m_points.clear();
        outline(entity.geometry, kFinest, m_points);
        Rect rect;
        for (std::size_t i = 0; i < m_points.size(); ++i) {
            const Point point = transform(m_points[i]);
            if (!m_clip || m_clip->contains(point))
                rect.add(point);
            if (m_clip && i > 0)
                addPart(rect, transform(m_points[i - 1]), point);
        }
        return rect;
    }
    void addPart(Rect& rect, Point from, Point to) const {
        const auto part = clipSegment(from, to, *m_clip);
        if (!part)
            return;
        for (const double at : {part->first, part->second})
            rect.add(Point{from.x + at * (to.x - from.x), from.y + at * (to.y - from.y)});
    }

    LayerExtents& m_extents;
    std::optional<Rect> m_clip;
    std::vector<Point> m_points;
};

} // namespace

LayerExtents layerExtents(const zdr::Drawing& drawing, const std::vector<bool>& wanted) {
    LayerExtents extents;
    if (!drawing.activeLayout) {
        Gatherer(extents, std::nullopt).addModel(drawing, layerLooks(drawing, nullptr), wanted, {});
        return extents;
    }
    const zdr::Layout& layout = drawing.layouts[*drawing.activeLayout];
    for (const zdr::Viewport& viewport : layout.viewports)
        if (isOn(viewport))
            Gatherer(extents, boxOf(viewport))
                .addModel(drawing, layerLooks(drawing, &viewport), wanted, SpaceTransform::of(viewport));
    Gatherer(extents, std::nullopt).add(layout.entities, layerLooks(drawing, nullptr), wanted, {});
    return extents;
}

} // namespace workbench
