// The rows of the linetype dialog and of the plot style dialog: their order, and the one to begin with.
#pragma once

#include "KelDbObjectId.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pickers {

struct LinetypeRow {
    std::wstring name;
    KelDbObjectId id = {}; ///< null for by layer and by block
    std::wstring description = {};
    std::vector<double> pattern =
        {};                 ///< dashes positive, gaps negative, dots 0, in millimetres on paper; empty: continuous
    bool reference = false; ///< by layer or by block: what it looks like depends on the layer, so it has no sample
};

/// References as they stand, then continuous linetypes, then those with a pattern; names in alphabetical order without
/// regard to case, equal ones as they stood.
void putInOrder(std::vector<LinetypeRow>& rows);
/// The row of a linetype; none for a null id and for one that isn't offered.
std::optional<std::size_t> rowOfLinetype(const std::vector<LinetypeRow>& rows, KelDbObjectId linetype);

/// Names of plot styles in alphabetical order without regard to case, equal ones as they stood.
void putInOrder(std::vector<std::wstring>& names);
/// The first name equal without regard to case; none when there is none.
std::optional<std::size_t> rowOfName(const std::vector<std::wstring>& names, std::wstring_view name);

} // namespace pickers
