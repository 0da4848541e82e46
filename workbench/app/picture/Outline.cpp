#include "Outline.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace workbench {

namespace {

using zdr::Point;

constexpr double kFullTurn = 2 * std::numbers::pi;
constexpr int kMostChords = 720;
// How far a chord may leave the curve, in pixels.
constexpr double kTolerance = 0.1;
// Width of an average letter, as a part of its height.
constexpr double kLetterWidth = 0.7;

int chords(double radius, double sweep, double scale) {
    const double pixels = std::abs(radius) * scale;
    if (!(pixels > 1))
        return 4;
    const double step = 2 * std::acos(1 - std::min(kTolerance / pixels, 0.5));
    return std::clamp(static_cast<int>(std::min(std::ceil(sweep / step), double{kMostChords})), 4, kMostChords);
}

void curve(Point center, double radius, double start, double sweep, double scale, std::vector<Point>& points) {
    const int count = chords(radius, sweep, scale);
    for (int i = 0; i <= count; ++i) {
        const double angle = start + sweep * i / count;
        points.push_back({center.x + radius * std::cos(angle), center.y + radius * std::sin(angle)});
    }
}

struct Appender {
    double scale;
    std::vector<Point>& points;

    void operator()(const zdr::Line& line) const { points.insert(points.end(), {line.from, line.to}); }
    void operator()(const zdr::Polyline& line) const {
        points.insert(points.end(), line.points.begin(), line.points.end());
        if (line.closed && !line.points.empty())
            points.push_back(line.points.front());
    }
    void operator()(const zdr::Circle& circle) const {
        curve(circle.center, circle.radius, 0, kFullTurn, scale, points);
    }
    void operator()(const zdr::Arc& arc) const {
        // Always counter-clockwise, so an end before the start lies a turn further on.
        double sweep = std::fmod(arc.endAngle - arc.startAngle, kFullTurn);
        if (sweep <= 0)
            sweep += kFullTurn;
        curve(arc.center, arc.radius, arc.startAngle, sweep, scale, points);
    }
    void operator()(const zdr::Text& text) const {
        const double length = kLetterWidth * text.height * static_cast<double>(text.text.size());
        const Point right{std::cos(text.rotation), std::sin(text.rotation)};
        for (const Point corner : {Point{0, 0}, Point{length, 0}, Point{length, text.height}, Point{0, text.height}})
            points.push_back({text.position.x + right.x * corner.x - right.y * corner.y,
                              text.position.y + right.y * corner.x + right.x * corner.y});
    }
};

} // namespace

void outline(const Geometry& geometry, double scale, std::vector<Point>& points) {
    std::visit(Appender{scale, points}, geometry);
}

} // namespace workbench
