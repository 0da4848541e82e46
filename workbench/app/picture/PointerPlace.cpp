#include "PointerPlace.h"

#include "Picture.h"

#include <algorithm>

namespace workbench {

namespace {

Point middleOf(const zdr::Viewport& viewport, const ViewTransform& sheet) {
    return sheet.toScreen({viewport.corner.x + viewport.width / 2, viewport.corner.y + viewport.height / 2});
}

} // namespace

std::optional<ViewTransform> throughViewport(const zdr::Viewport& viewport, const ViewTransform& sheet) {
    if (!(viewport.scale > 0))
        return std::nullopt;
    return ViewTransform(viewport.viewCenter, viewport.scale * sheet.scale(), middleOf(viewport, sheet));
}

const zdr::Viewport* viewportUnder(const zdr::Drawing& drawing, const ViewTransform& view, Point pixel) {
    return drawing.activeLayout ? viewportAt(drawing.layouts[*drawing.activeLayout], view.toPlane(pixel)) : nullptr;
}

const zdr::Viewport* currentViewportUnder(const zdr::Drawing& drawing, const ViewTransform& view, Point pixel) {
    const zdr::Viewport* viewport = viewportUnder(drawing, view, pixel);
    return viewport && drawing.currentViewport == viewport->handle ? viewport : nullptr;
}

PointerPlace placeAt(const zdr::Drawing& drawing, const ViewTransform& view, Point pixel) {
    if (const zdr::Viewport* viewport = currentViewportUnder(drawing, view, pixel))
        if (const auto through = throughViewport(*viewport, view))
            return {through->toPlane(pixel), false};
    return {view.toPlane(pixel), drawing.activeLayout.has_value()};
}

std::optional<ViewportView> zoomed(const zdr::Viewport& viewport, const ViewTransform& sheet, double factor,
                                   Point pixel) {
    auto through = throughViewport(viewport, sheet);
    if (!through)
        return std::nullopt;
    through->zoom(factor, pixel);
    return ViewportView{through->toPlane(middleOf(viewport, sheet)), through->scale() / sheet.scale()};
}

Rect numberBox(const zdr::Viewport& viewport, const ViewTransform& sheet, const Rect& window, double width,
               double height) {
    const Point corner = sheet.toScreen({viewport.corner.x, viewport.corner.y + viewport.height});
    const double left = std::clamp(corner.x, window.left, std::max(window.left, window.right - width));
    const double top = std::clamp(corner.y, window.bottom, std::max(window.bottom, window.top - height));
    return {left, top, left + width, top + height};
}

} // namespace workbench
