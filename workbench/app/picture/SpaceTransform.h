// A similarity of the plane: how a reference, or model space in a viewport, is put into another space.
#pragma once

#include "Geometry.h"

#include <cmath>

namespace workbench {

struct SpaceTransform {
    double scale = 1;
    double rotation = 0; ///< radians
    Point offset;

    static SpaceTransform of(const zdr::Reference& reference) {
        return {reference.scale, reference.rotation, reference.insertion};
    }
    /// From model space to the paper, as the viewport shows it.
    static SpaceTransform of(const zdr::Viewport& viewport) {
        const Point middle{viewport.corner.x + viewport.width / 2, viewport.corner.y + viewport.height / 2};
        return {viewport.scale,
                0,
                {middle.x - viewport.viewCenter.x * viewport.scale, middle.y - viewport.viewCenter.y * viewport.scale}};
    }

    Point operator()(Point point) const {
        const double cosine = std::cos(rotation);
        const double sine = std::sin(rotation);
        return {offset.x + scale * (point.x * cosine - point.y * sine),
                offset.y + scale * (point.x * sine + point.y * cosine)};
    }
    /// First `inner`, then this.
    SpaceTransform after(const SpaceTransform& inner) const {
        return {scale * inner.scale, rotation + inner.rotation, (*this)(inner.offset)};
    }
};

} // namespace workbench
