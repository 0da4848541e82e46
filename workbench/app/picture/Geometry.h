// Rectangles, and the mapping from a drawing's plane to the pixels of a window.
#pragma once

#include "model/Drawing.h"

#include <optional>
#include <utility>

namespace workbench {

using zdr::Point;

/// An axis-parallel rectangle; empty while right < left.
struct Rect {
    double left = 0, bottom = 0, right = -1, top = -1;

    bool isEmpty() const { return right < left || top < bottom; }
    double width() const { return right - left; }
    double height() const { return top - bottom; }
    Point center() const { return {(left + right) / 2, (bottom + top) / 2}; }
    bool contains(Point point) const {
        return point.x >= left && point.x <= right && point.y >= bottom && point.y <= top;
    }
    /// Grows to hold the point. A point that isn't a number is passed over.
    void add(Point point);
    void add(const Rect& other);
    Rect grownBy(double margin) const { return {left - margin, bottom - margin, right + margin, top + margin}; }
    Rect intersectedWith(const Rect& other) const;
};

/// The part of a segment inside a rectangle, as parameters from 0 to 1 along it; none when it misses.
std::optional<std::pair<double, double>> clipSegment(Point from, Point to, const Rect& rect);

/// Maps a plane to pixels: y points up in the plane and down on the screen.
class ViewTransform {
  public:
    ViewTransform() = default;
    /// @param scale pixels per unit of the plane
    /// @param origin the pixel on which `center` lies
    ViewTransform(Point center, double scale, Point origin) : m_center(center), m_origin(origin), m_scale(scale) {}
    /// The transform that shows all of `extents` in a window of that size, in pixels, with `margin` pixels around it.
    /// For empty extents the origin is in the middle, at a scale of 1.
    static ViewTransform fitting(const Rect& extents, double width, double height, double margin);

    Point toScreen(Point point) const {
        return {m_origin.x + (point.x - m_center.x) * m_scale, m_origin.y - (point.y - m_center.y) * m_scale};
    }
    Point toPlane(Point pixel) const {
        return {m_center.x + (pixel.x - m_origin.x) / m_scale, m_center.y - (pixel.y - m_origin.y) / m_scale};
    }
    double scale() const { return m_scale; }

    /// The transform that shows all of `rect`, as large as it can, in a window of that size in pixels. A single point
    /// comes to the middle at the scale that there is. None when the scale would be beyond the bounds that keep the
    /// numbers meaningful.
    std::optional<ViewTransform> showing(const Rect& rect, double width, double height) const;
    bool operator==(const ViewTransform& other) const = default;

    /// Moves what is shown by that many pixels.
    void pan(double dx, double dy);
    /// Scales by `factor` so that what lies under `pixel` stays there; the scale stays within those bounds.
    void zoom(double factor, Point pixel);
    /// The view keeps its centre when the window changes its size.
    void resize(double dx, double dy);

  private:
    Point m_center;
    Point m_origin;
    double m_scale = 1;
};

} // namespace workbench
