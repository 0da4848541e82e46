// The names under which states of older stores come into the drawing.
#pragma once

#include "KelDbLayerStateManager.h"

#include <afx.h>

/// Whether the drawing holds a layer state, hidden ones and those of references included.
bool holdsStates(KelDbLayerStateManager& states);

/// A name that no state of the drawing bears: the old one, behind the prefix if `usePrefix` is set. A name that the
/// host's rules refuse becomes the prefix and "INVALIDNAME", whether the prefix is used or not. Where there is a state
/// of that name, " (1)" is appended, or the first number after it that makes the name a free one.
CString migratedStateName(KelDbLayerStateManager& states, const wchar_t* oldName, const wchar_t* prefix,
                          bool usePrefix);
