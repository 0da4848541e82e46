#include "Strokes.h"

#include <algorithm>
#include <cmath>

namespace workbench {

namespace {

// Below this a repeat of the pattern can't be told from a continuous line, and would cost a stroke per pixel.
constexpr double kFinestRepeat = 3;
// The most pixels per unit of the pattern. A larger unit fits no screen, and an infinite one times a dot of 0 is no
// number.
constexpr double kCoarsestUnit = 1e12;

Point along(Point from, Point to, double part) {
    return {from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part};
}

/// A place in a pattern: which of its elements, and how much of that element is left.
class PatternWalk {
  public:
    PatternWalk(std::span<const double> pattern, double unit) : m_pattern(pattern), m_unit(unit) {
        for (const double element : pattern)
            m_repeat += std::abs(element) * unit;
        m_left = length(0);
    }
    double repeat() const { return m_repeat; }
    bool inGap() const { return m_pattern[m_at] < 0; }
    double left() const { return m_left; }

    void nextElement() {
        m_at = (m_at + 1) % m_pattern.size();
        m_left = length(m_at);
    }
    /// Moves on within the element.
    void spend(double distance) { m_left -= distance; }
    /// Moves on by any distance.
    void skip(double distance) {
        distance = std::fmod(distance, m_repeat);
        if (distance <= 0)
            return; // so that a dot at this very place is still drawn
        while (distance >= m_left) {
            distance -= m_left;
            nextElement();
        }
        m_left -= distance;
    }

  private:
    double length(std::size_t index) const { return std::abs(m_pattern[index]) * m_unit; }

    std::span<const double> m_pattern;
    double m_unit;
    double m_repeat = 0;
    double m_left = 0;
    std::size_t m_at = 0;
};

// Draws the part of a segment between two distances from its start.
void dashSegment(Strokes& strokes, const Pen& pen, PatternWalk& walk, Point from, Point to, double length,
                 std::pair<double, double> part) {
    double at = part.first * length;
    const double end = part.second * length;
    while (at < end) {
        const double step = std::min(walk.left(), end - at);
        if (!walk.inGap()) {
            const Point ends[] = {along(from, to, at / length), along(from, to, (at + step) / length)};
            strokes.add(pen, std::span(ends, step > 0 ? 2 : 1));
        }
        at += step;
        if (step < walk.left())
            walk.spend(step);
        else
            walk.nextElement();
    }
}

} // namespace

void Strokes::add(const Pen& pen, std::span<const Point> run) {
    strokes.push_back({pen, points.size(), run.size()});
    points.insert(points.end(), run.begin(), run.end());
}

void StrokePlotter::plot(std::span<const Point> points, const Pen& pen) {
    std::vector<Point> run;
    const auto flush = [this, &run, &pen] {
        if (run.size() > 1)
            m_strokes.add(pen, run);
        run.clear();
    };
    for (std::size_t i = 1; i < points.size(); ++i) {
        const auto part = clipSegment(points[i - 1], points[i], m_visible);
        if (!part || part->first > 0)
            flush();
        if (!part)
            continue;
        if (run.empty())
            run.push_back(along(points[i - 1], points[i], part->first));
        run.push_back(along(points[i - 1], points[i], part->second));
        if (part->second < 1)
            flush();
    }
    flush();
}

void StrokePlotter::plotDashed(std::span<const Point> points, const Pen& pen, std::span<const double> pattern,
                               double unit) {
    PatternWalk walk(pattern, std::min(unit, kCoarsestUnit));
    if (!(walk.repeat() >= kFinestRepeat)) {
        plot(points, pen);
        return;
    }
    const Pen dash{pen.rgb, pen.width, true};
    for (std::size_t i = 1; i < points.size(); ++i) {
        const double length = std::hypot(points[i].x - points[i - 1].x, points[i].y - points[i - 1].y);
        if (!(length > 0) || !std::isfinite(length))
            continue;
        const auto part = clipSegment(points[i - 1], points[i], m_visible);
        if (!part) {
            walk.skip(length);
            continue;
        }
        walk.skip(part->first * length);
        dashSegment(m_strokes, dash, walk, points[i - 1], points[i], length, *part);
        walk.skip((1 - part->second) * length);
    }
}

} // namespace workbench
