// Lines as they are put on the screen: clipped to what can be seen, and broken into dashes.
#pragma once

#include "Geometry.h"

#include <cstdint>
#include <span>
#include <vector>

namespace workbench {

struct Pen {
    std::uint32_t rgb = 0; ///< red in the low byte
    int width = 1;         ///< pixels
    bool dashed = false;   ///< a piece of a pattern, whose ends must not reach into the gaps
    friend bool operator==(const Pen&, const Pen&) = default;
};

/// A run of connected points in the points of its Strokes.
struct Stroke {
    Pen pen;
    std::size_t first = 0;
    std::size_t count = 0; ///< 1 for a dot
};

class Strokes {
  public:
    std::vector<Point> points; ///< pixels
    std::vector<Stroke> strokes;

    /// Adds one run.
    void add(const Pen& pen, std::span<const Point> run);
};

/// Puts polylines in pixels into strokes.
class StrokePlotter {
  public:
    /// @param visible what can be seen, in pixels; nothing outside reaches the strokes
    StrokePlotter(Strokes& strokes, const Rect& visible) : m_strokes(strokes), m_visible(visible) {}

    /// Draws a continuous polyline.
    void plot(std::span<const Point> points, const Pen& pen);
    /// Draws a polyline in dashes that run on around its corners.
    /// @param pattern dashes positive, gaps negative, dots 0
    /// @param unit pixels per unit of the pattern. A pattern too fine to be seen is drawn as a continuous line.
    void plotDashed(std::span<const Point> points, const Pen& pen, std::span<const double> pattern, double unit);

  private:
    Strokes& m_strokes;
    Rect m_visible;
};

} // namespace workbench
