#include "Geometry.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace workbench {

namespace {

constexpr double kSmallestScale = 1e-9;
constexpr double kLargestScale = 1e6;

/// The scale at which a rectangle fits into that room; infinite for a point. A line along an axis has no width or no
/// height, and then only the other one decides.
double fittingScale(const Rect& rect, double width, double height) {
    constexpr double kAny = std::numeric_limits<double>::infinity();
    return std::min(rect.width() > 0 ? width / rect.width() : kAny, rect.height() > 0 ? height / rect.height() : kAny);
}

bool isPoint(const Rect& rect) {
    return rect.width() <= 0 && rect.height() <= 0;
}

} // namespace

void Rect::add(Point point) {
    if (!std::isfinite(point.x) || !std::isfinite(point.y))
        return;
    if (isEmpty()) {
        *this = {point.x, point.y, point.x, point.y};
        return;
    }
    left = std::min(left, point.x);
    right = std::max(right, point.x);
    bottom = std::min(bottom, point.y);
    top = std::max(top, point.y);
}

void Rect::add(const Rect& other) {
    if (other.isEmpty())
        return;
    add(Point{other.left, other.bottom});
    add(Point{other.right, other.top});
}

Rect Rect::intersectedWith(const Rect& other) const {
    return {std::max(left, other.left), std::max(bottom, other.bottom), std::min(right, other.right),
            std::min(top, other.top)};
}

std::optional<std::pair<double, double>> clipSegment(Point from, Point to, const Rect& rect) {
    double enter = 0;
    double leave = 1;
    // Cuts the segment at one side of the rectangle. The segment's start is `inside` away from that side, negative when
    // it is outside; over the whole segment that distance shrinks by `along`.
    const auto keep = [&enter, &leave](double along, double inside) {
        if (along == 0)
            return inside >= 0;
        const double at = inside / along;
        if (along < 0)
            enter = std::max(enter, at);
        else
            leave = std::min(leave, at);
        return enter <= leave;
    };
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    const bool hits = keep(-dx, from.x - rect.left) && keep(dx, rect.right - from.x) &&
                      keep(-dy, from.y - rect.bottom) && keep(dy, rect.top - from.y);
    if (!hits || !std::isfinite(dx) || !std::isfinite(dy))
        return std::nullopt;
    return std::pair{enter, leave};
}

ViewTransform ViewTransform::fitting(const Rect& extents, double width, double height, double margin) {
    const Point middle{width / 2, height / 2};
    if (extents.isEmpty())
        return {{0, 0}, 1, middle};
    const double fits = fittingScale(extents, std::max(width - 2 * margin, 1.0), std::max(height - 2 * margin, 1.0));
    const double scale = isPoint(extents) ? 1 : std::clamp(fits, kSmallestScale, kLargestScale);
    return {extents.center(), scale, middle};
}

std::optional<ViewTransform> ViewTransform::showing(const Rect& rect, double width, double height) const {
    const double scale = isPoint(rect) ? m_scale : fittingScale(rect, width, height);
    if (!(scale >= kSmallestScale && scale <= kLargestScale))
        return std::nullopt;
    return ViewTransform(rect.center(), scale, {width / 2, height / 2});
}

void ViewTransform::pan(double dx, double dy) {
    m_center.x -= dx / m_scale;
    m_center.y += dy / m_scale;
}

void ViewTransform::zoom(double factor, Point pixel) {
    const double scale = std::clamp(m_scale * factor, kSmallestScale, kLargestScale);
    const Point held = toPlane(pixel);
    m_scale = scale;
    const Point moved = toPlane(pixel);
    m_center.x += held.x - moved.x;
    m_center.y += held.y - moved.y;
}

void ViewTransform::resize(double dx, double dy) {
    m_origin.x += dx / 2;
    m_origin.y += dy / 2;
}

} // namespace workbench
