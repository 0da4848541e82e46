// What lies under the pointer, and how the wheel zooms what a viewport shows.
#pragma once

#include "Geometry.h"

namespace workbench {

/// Maps model space to pixels, as a viewport shows it on a sheet that `sheet` maps there. None for a viewport whose
/// scale shows nothing, as a file may have one.
std::optional<ViewTransform> throughViewport(const zdr::Viewport& viewport, const ViewTransform& sheet);

/// The pointer's place in the drawing.
struct PointerPlace {
    Point point;          ///< of model space, or of the paper
    bool onPaper = false; ///< on a sheet, and not in its current viewport
};

/// The place under a pixel. `view` maps the space on view to pixels.
PointerPlace placeAt(const zdr::Drawing& drawing, const ViewTransform& view, Point pixel);
/// The topmost viewport of the sheet on view under a pixel; null when there is none, and on the model tab.
const zdr::Viewport* viewportUnder(const zdr::Drawing& drawing, const ViewTransform& view, Point pixel);
/// The same, when it is the current viewport; otherwise null.
const zdr::Viewport* currentViewportUnder(const zdr::Drawing& drawing, const ViewTransform& view, Point pixel);

/// What a viewport shows: the point of model space in its middle, and millimetres of paper for a unit.
struct ViewportView {
    Point center;
    double scale = 1;
};
/// What the viewport shows when it is zoomed by `factor` and what lies under `pixel` stays there; none as above.
std::optional<ViewportView> zoomed(const zdr::Viewport& viewport, const ViewTransform& sheet, double factor,
                                   Point pixel);

/// Where a viewport's number is shown, in pixels: a box of that size in the upper left corner of what is in sight of
/// the viewport, and all of it in the window.
Rect numberBox(const zdr::Viewport& viewport, const ViewTransform& sheet, const Rect& window, double width,
               double height);

} // namespace workbench
