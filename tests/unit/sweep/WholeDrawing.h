// Whether a drawing is whole, for tests that have made calls on it fail.
#pragma once

#include "KelDbDatabase.h"

#include <string>
#include <vector>

/// What is wrong with the drawing of a database: parts that contradict each other, things that aren't found under their
/// name, id or handle, and what doesn't come back from a file as it was. Empty for a whole drawing.
std::vector<std::string> wholenessProblems(const KelDbDatabase& database);
