// Writing what was done in the grid into the state. Only what is marked is written; what the host refuses isn't
// reported, and the rest goes on.
#pragma once

#include "KelDbDatabase.h"

#include <afxcoll.h>

/// First the removals, in one call, and then the additions, in another; so a layer that was taken out and put in again
/// ends up in the state with the drawing's values.
void commitRemovals(KelDbLayerStateManager& states, const wchar_t* stateName, CObList& layers);
void commitAdditions(KelDbLayerStateManager& states, const wchar_t* stateName, CObList& layers);
/// Then the changes, one call each.
void commitChanges(KelDbDatabase& database, const wchar_t* stateName, CObList& layers);
