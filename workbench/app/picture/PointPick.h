// Two points that a person gives one after the other, by clicks in the view or typed.
#pragma once

#include "Geometry.h"

namespace workbench {

class PointPick {
  public:
    /// Waits for the first point from now on.
    void begin();
    void end() { m_isActive = false; }
    bool isActive() const { return m_isActive; }
    /// The first point, in the space on view, while the second one is awaited.
    std::optional<Point> first() const { return m_isActive ? m_first : std::nullopt; }
    /// Takes the next point. The second one ends it, and both are answered.
    std::optional<std::pair<Point, Point>> take(Point point);

  private:
    bool m_isActive = false;
    std::optional<Point> m_first;
};

} // namespace workbench
