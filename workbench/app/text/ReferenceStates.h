// Which of a drawing's references are there, those of references within references too.
#pragma once

#include "model/Drawing.h"

#include <string>
#include <vector>

namespace workbench {

enum class ReferenceState {
    Loaded,
    Unloaded, ///< left out on purpose
    Missing,  ///< its drawing couldn't be read, or wasn't to be looked for
};

struct ReferenceRow {
    std::wstring name; ///< with the references it is nested in: "plan!grid"
    std::wstring path; ///< as it was attached
    ReferenceState state = ReferenceState::Loaded;
};

/// All of them, each before those that it holds.
std::vector<ReferenceRow> referencesOf(const zdr::Drawing& drawing);

/// "1 reference", "4 references, 1 missing"; empty for none.
std::wstring countText(const std::vector<ReferenceRow>& references);
bool isAnyMissing(const std::vector<ReferenceRow>& references);
/// "loaded", "unloaded" or "missing".
const wchar_t* stateText(ReferenceState state);

} // namespace workbench
