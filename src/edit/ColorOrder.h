// The order in which the rows of the edit dialog's grid stand by their colours.
#pragma once

#include "KelCmColor.h"

/// Negative, 0 or positive. Values come first, as signed numbers, so that true colours stand before those of the
/// palette; then the colours' names, then their books' names, without regard to case. Where only one colour has a name,
/// that one is the greater.
int compareColors(const KelCmColor& a, const KelCmColor& b);
