// Which layers differ between two drawings, or between two states of them, and in what. Layers are matched by name,
// without regard to case.
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

/// The same of what both drawings hold in their states of that name, and at the end whether another layer is the
/// current one, as the property of the state itself. Empty when one of them has no such state.
std::vector<Difference> stateDifferences(const zdr::Drawing& before, const zdr::Drawing& after,
                                         const std::wstring& state);

/// The differences as a table, and below it how many layers of how many changed.
std::wstring differenceTable(const std::vector<Difference>& differences, std::size_t layerCount);

} // namespace zdrdiff
