#include "PointPick.h"

namespace workbench {

void PointPick::begin() {
    m_isActive = true;
    m_first.reset();
}

std::optional<std::pair<Point, Point>> PointPick::take(Point point) {
    if (!m_isActive)
        return std::nullopt;
    if (!m_first) {
        m_first = point;
        return std::nullopt;
    }
    m_isActive = false;
    return std::pair(*m_first, point);
}

} // namespace workbench
