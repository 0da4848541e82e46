#include "Picture.h"

#include "LayerLook.h"
#include "Outline.h"
#include "SpaceTransform.h"

#include <algorithm>
#include <cmath>
#include <ranges>

namespace workbench {

namespace {

// Texts lower than this many pixels can't be read, so they are left out.
constexpr double kSmallestText = 2;

/// Draws entities of one space into one part of the picture.
class PartPainter {
  public:
    PartPainter(PicturePart& part, const ViewTransform& view, const Screen& screen, std::uint32_t foreground,
                double pixelsPerMillimetre)
        : m_part(part), m_view(view), m_screen(screen), m_foreground(foreground),
          m_pixelsPerMillimetre(pixelsPerMillimetre), m_plotter(part.strokes, part.clip.grownBy(kMargin)) {}

    /// Draws model space with what the drawing's references show, and with what those references show in turn. That
    /// ends: opening a drawing refuses references that form a circle or nest too deep.
    void drawModel(const zdr::Drawing& drawing, const std::vector<LayerLook>& looks, const SpaceTransform& transform) {
        for (std::size_t i = 0; i < drawing.references.size(); ++i) {
            const zdr::Reference& reference = drawing.references[i];
            if (reference.drawing)
                drawModel(*reference.drawing, referencedLooks(drawing, looks, i),
                          transform.after(SpaceTransform::of(reference)));
        }
        draw(drawing, drawing.entities, looks, transform);
    }

    void draw(const zdr::Drawing& drawing, const std::vector<zdr::Entity>& entities,
              const std::vector<LayerLook>& looks, const SpaceTransform& transform) {
        for (const zdr::Entity& entity : entities)
            if (entity.layer < looks.size() && looks[entity.layer].visible)
                drawEntity(entity, entityLook(drawing, entity, looks[entity.layer]), transform);
    }

  private:
    // Pixels around the part in which strokes are kept too: with a wide pen they reach into it.
    static constexpr double kMargin = 16;

    void drawEntity(const zdr::Entity& entity, const LayerLook& look, const SpaceTransform& transform) {
        if (const auto* text = std::get_if<zdr::Text>(&entity.geometry)) {
            drawText(*text, look, transform);
            return;
        }
        m_points.clear();
        outline(entity.geometry, transform.scale * m_view.scale(), m_points);
        for (Point& point : m_points)
            point = m_view.toScreen(transform(point));
        const double width = look.lineWeight / 100.0 * m_pixelsPerMillimetre;
        const Pen pen{rgb(look.color), std::max(1, static_cast<int>(std::lround(width)))};
        if (look.pattern)
            m_plotter.plotDashed(m_points, pen, *look.pattern, m_pixelsPerMillimetre * m_screen.linetypeScale);
        else
            m_plotter.plot(m_points, pen);
    }

    void drawText(const zdr::Text& text, const LayerLook& look, const SpaceTransform& transform) {
        const double height = text.height * transform.scale * m_view.scale();
        const Point position = m_view.toScreen(transform(text.position));
        const double reach = height * static_cast<double>(text.text.size() + 1);
        const bool seen = m_part.clip.grownBy(reach).contains(position);
        if (seen && height >= kSmallestText)
            m_part.labels.push_back({position, height, text.rotation + transform.rotation, rgb(look.color), text.text});
    }

    std::uint32_t rgb(std::uint32_t packed) const { return rgbOf(packed, m_foreground, m_screen.paletteRgb); }

    PicturePart& m_part;
    const ViewTransform& m_view;
    const Screen& m_screen;
    std::uint32_t m_foreground;
    double m_pixelsPerMillimetre;
    StrokePlotter m_plotter;
    std::vector<Point> m_points;
};

Rect toScreen(const ViewTransform& view, const Rect& plane) {
    const Point lower = view.toScreen({plane.left, plane.bottom});
    const Point upper = view.toScreen({plane.right, plane.top});
    return {lower.x, upper.y, upper.x, lower.y};
}

void addExtents(Rect& extents, const std::vector<zdr::Entity>& entities, const SpaceTransform& transform) {
    std::vector<Point> points;
    for (const zdr::Entity& entity : entities) {
        points.clear();
        outline(entity.geometry, kFinest, points);
        for (const Point point : points)
            extents.add(transform(point));
    }
}

void addModelExtents(Rect& extents, const zdr::Drawing& drawing, const SpaceTransform& transform) {
    addExtents(extents, drawing.entities, transform);
    for (const zdr::Reference& reference : drawing.references)
        if (reference.drawing)
            addModelExtents(extents, *reference.drawing, transform.after(SpaceTransform::of(reference)));
}

} // namespace

Rect boxOf(const zdr::Viewport& viewport) {
    return {viewport.corner.x, viewport.corner.y, viewport.corner.x + viewport.width,
            viewport.corner.y + viewport.height};
}

bool isOn(const zdr::Viewport& viewport) {
    return viewport.number >= 0;
}

Picture modelPicture(const zdr::Drawing& drawing, const ViewTransform& view, const Screen& screen) {
    Picture picture;
    picture.parts.push_back({{0, 0, screen.width, screen.height}, {}, {}});
    PartPainter painter(picture.parts.back(), view, screen, screen.modelForeground, screen.pixelsPerMillimetre);
    painter.drawModel(drawing, layerLooks(drawing, nullptr), {});
    return picture;
}

Picture layoutPicture(const zdr::Drawing& drawing, const zdr::Layout& layout, const ViewTransform& view,
                      const Screen& screen) {
    Picture picture;
    picture.paper = toScreen(view, {0, 0, layout.paperWidth, layout.paperHeight});
    const Rect window{0, 0, screen.width, screen.height};
    for (const zdr::Viewport& viewport : layout.viewports) {
        if (!isOn(viewport))
            continue;
        const Rect box = toScreen(view, boxOf(viewport));
        picture.frames.push_back({box, drawing.currentViewport == viewport.handle});
        const Rect clip = box.intersectedWith(window);
        if (clip.isEmpty())
            continue;
        picture.parts.push_back({clip, {}, {}});
        PartPainter painter(picture.parts.back(), view, screen, screen.paperForeground, view.scale());
        painter.drawModel(drawing, layerLooks(drawing, &viewport), SpaceTransform::of(viewport));
    }
    picture.parts.push_back({window, {}, {}});
    PartPainter painter(picture.parts.back(), view, screen, screen.paperForeground, view.scale());
    painter.draw(drawing, layout.entities, layerLooks(drawing, nullptr), {});
    return picture;
}

Rect modelExtents(const zdr::Drawing& drawing) {
    Rect extents;
    addModelExtents(extents, drawing, {});
    return extents;
}

Rect layoutExtents(const zdr::Layout& layout) {
    Rect extents{0, 0, layout.paperWidth, layout.paperHeight};
    addExtents(extents, layout.entities, {});
    return extents;
}

const zdr::Viewport* viewportAt(const zdr::Layout& layout, Point paper) {
    const auto& viewports = layout.viewports;
    const auto found = std::find_if(viewports.rbegin(), viewports.rend(), [paper](const zdr::Viewport& viewport) {
        return isOn(viewport) && boxOf(viewport).contains(paper);
    });
    return found == viewports.rend() ? nullptr : &*found;
}

} // namespace workbench
