// The drawings that a drawing refers to: found, read, and attached, with those that they refer to in turn.
#pragma once

#include "KelExport.h"
#include "model/Drawing.h"

#include <string>
#include <vector>

namespace zdr {

/// A reference that stays unresolved.
struct ReferenceProblem {
    std::wstring name;   ///< with the references it is nested in: "plan!grid"
    std::wstring path;   ///< where it was looked for
    std::wstring reason; ///< a sentence for the user
};

/// Reads the drawings of all references of `drawing`, which was read from the file `path`. Relative paths count from
/// the folder of the drawing that has the reference. A reference whose file can't be read, or leads back to a drawing
/// that it is nested in, is left without a drawing and listed in `problems`.
KELDB_API void resolveReferences(Drawing& drawing, const std::wstring& path, std::vector<ReferenceProblem>& problems);

} // namespace zdr
