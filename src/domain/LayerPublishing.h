// Showing the user changes that were made to the layers.
#pragma once

#include "KelEditor.h"

/// Tells the host that the layer table has changed, and repaints.
inline void publishLayers() {
    applyCurZdrLayerTableChanges();
    keledUpdateDisplay();
}
