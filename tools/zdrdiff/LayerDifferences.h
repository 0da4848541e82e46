// Which layers differ between two drawings, and in what. Layers are matched by name, without regard to case.
#pragma once

#include "model/Drawing.h"

#include <string>
#include <vector>

namespace zdrdiff {

/// One property of one layer, in words. A layer that only one drawing has differs in its presence.
struct Difference {
    std::wstring layer;
    std::wstring property;
    std::wstring before;
    std::wstring after;
};

/// In the order of the layers of `before`, with those that only `after` has at the end.
std::vector<Difference> layerDifferences(const zdr::Drawing& before, const zdr::Drawing& after);

/// The differences as a table, and below it how many layers of how many changed.
std::wstring differenceTable(const std::vector<Difference>& differences, std::size_t layerCount);

} // namespace zdrdiff
