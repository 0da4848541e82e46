// The way from the host's display operations to whoever shows the drawing.
#pragma once

#include "KelArray.h"
#include "KelDbObjectId.h"
#include "KelExport.h"

namespace runtime {

/// What the view is told. The calls come on the host's one thread, in the order in which modules made them.
class KELDB_API DisplayObserver {
  public:
    virtual ~DisplayObserver();
    /// Draw the entities of those layers again.
    virtual void regenerateLayers(const KelArray<KelDbObjectId>& layers) = 0;
    /// The layer table's changes are published: what names layers, such as the status line, is out of date.
    virtual void layersPublished() = 0;
    /// Repaint now.
    virtual void updateDisplay() = 0;
};

/// The observer stays the caller's, who must set null before it ends.
KELDB_API void setDisplayObserver(DisplayObserver* observer);

/// Marks that a regeneration is due; answered by keledRegenPending until the next regeneration of layers.
KELDB_API void requestRegeneration();

} // namespace runtime
