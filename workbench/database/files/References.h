// The drawings that a drawing refers to: found, read, and attached, with those that they refer to in turn.
#pragma once

#include "KelExport.h"
#include "model/Drawing.h"

#include <functional>
#include <string>
#include <vector>

namespace zdr {

/// A reference that stays unresolved.
struct ReferenceProblem {
    std::wstring name;   ///< with the references it is nested in: "plan!grid"
    std::wstring path;   ///< where it was looked for
    std::wstring reason; ///< a sentence for the user
};

/// A reference to a file outside this computer. Whoever has that other computer sees when the file is looked for.
struct OutsideReference {
    std::wstring name;   ///< with the references it is nested in
    std::wstring path;   ///< where its file would be looked for
    std::wstring folder; ///< that of the file, in one spelling but for upper and lower case
};

/// Answers why the file of such a reference isn't to be looked for, as the end of a sentence about the file; nothing
/// when it may be.
using WhyNotOutside = std::function<std::wstring(const OutsideReference& reference)>;

/// Reads the drawings of all references of `drawing`, which was read from the file `path`. Relative paths count from
/// the folder of the drawing that has the reference. A reference whose file can't be read, or leads back to a drawing
/// that it is nested in, is left without a drawing and listed in `problems`. So is one that leads to another computer
/// than the one of the drawing that has it, and out of this one, unless `whyNotOutside` allows it; nothing at all is
/// asked about its file before. One that is unloaded isn't read, nor listed.
KELDB_API void resolveReferences(Drawing& drawing, const std::wstring& path, std::vector<ReferenceProblem>& problems,
                                 const WhyNotOutside& whyNotOutside = {});

} // namespace zdr
