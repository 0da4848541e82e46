// The current drawing, read from the host at each use and never kept.
#pragma once

#include "KelDbDatabase.h"

/// May be null.
inline KelDbDatabase* workingDatabase() {
    return keldbHostApplicationServices()->workingDatabase();
}

/// The layer state service of the current drawing; null without a drawing, or when it has none.
inline KelDbLayerStateManager* workingStates() {
    KelDbDatabase* database = workingDatabase();
    return database ? database->getLayerStateManager() : nullptr;
}
