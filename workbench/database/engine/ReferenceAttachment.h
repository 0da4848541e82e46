// Putting the layers and states of a reference's drawing among those of the drawing that refers to it.
#pragma once

#include "DatabaseImp.h"

namespace engine {

/// Attaches one reference, with those that its drawing holds in turn; null leaves it unresolved. Forgets what could be
/// undone.
void attachReference(DatabaseImp& database, std::size_t reference, std::shared_ptr<const zdr::Drawing> drawing);
/// Attaches all references that hold a drawing.
void attachReferences(DatabaseImp& database);

} // namespace engine
