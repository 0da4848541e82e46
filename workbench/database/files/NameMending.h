// What is done with names of layer states in a file that the rules for names refuse. Such a state could be deleted, but
// not saved again under its name, and an update does both.
#pragma once

#include "KelExport.h"
#include "model/Drawing.h"

namespace zdr {

/// Gives the drawing's own states whose names the rules refuse the nearest names that they allow and that no other
/// state has, and enters them in the drawing's mendedStates. What names such a state follows. Allowed names stay, also
/// two that are the same.
KELDB_API void mendStateNames(Drawing& drawing);

} // namespace zdr
