// What is done with names in a file that the rules for names refuse. A layer state of such a name could be deleted, but
// not saved again, and an update does both; a layer of the drawing itself with the name of one that a reference brings
// would stand in its place.
#pragma once

#include "KelExport.h"
#include "model/Drawing.h"

namespace zdr {

/// Gives what has a name that the rules refuse the nearest name that they allow and that nothing else of its kind has,
/// and enters it in the drawing's mendedNames: the drawing's own states, layers, linetypes, plot styles and references.
/// What comes from a reference has the reference's name in front, and the rules hold for each part of its name. What
/// names such a thing follows. Allowed names stay, also two that are the same.
KELDB_API void mendNames(Drawing& drawing);

} // namespace zdr
