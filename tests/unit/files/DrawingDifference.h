// What makes two drawings different, for tests.
#pragma once

#include "model/Drawing.h"

#include <string>

/// The first part in which two drawings differ, with both values as far as they are short; empty when they hold the
/// same. Names are compared by their text; drawings of references aren't compared.
std::string difference(const zdr::Drawing& a, const zdr::Drawing& b);
