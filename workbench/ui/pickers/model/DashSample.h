// A linetype's pattern laid out along the sample that the linetype dialog draws.
#pragma once

#include <span>
#include <vector>

namespace pickers {

/// A piece of the line, in pixels from the sample's left end; of a dot both ends are the same.
struct Dash {
    int from = 0;
    int to = 0; ///< not included
    friend bool operator==(const Dash&, const Dash&) = default;
};

/// The dashes that fit into `width` pixels. A pattern is drawn as on paper, or reduced until it stands in the sample
/// twice. One that is empty, has no length or is too fine to be seen gives one continuous dash.
/// @param pattern dashes positive, gaps negative, dots 0, in millimetres
std::vector<Dash> dashesOf(std::span<const double> pattern, int width, double pixelsPerMillimetre);

} // namespace pickers
