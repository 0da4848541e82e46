// Making changes of the layers seen.
#pragma once

#include "KelEditor.h"

/// Tells the host that the layer table has changed, and repaints.
inline void publishLayers() {
    applyCurZdrLayerTableChanges();
    keledUpdateDisplay();
}
