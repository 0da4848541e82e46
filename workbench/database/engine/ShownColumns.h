// What a viewport shows of the layers: the drawing's own columns with the viewport's overrides and freezing put over
// them. Without either, the drawing's own columns, shared.
#pragma once

#include "model/Drawing.h"

namespace engine {

zdr::LayerColumns showColumns(const zdr::Drawing& drawing, const zdr::Viewport& viewport);

/// Keeps the columns of the viewport that was asked for last, until the drawing changes.
class ShownColumnsCache {
  public:
    /// @param viewport null for the model tab, which shows the drawing's own
    const zdr::LayerColumns& columns(const zdr::Drawing& drawing, const zdr::Viewport* viewport, std::uint64_t changes);
    void forget() { m_viewport = 0; }

  private:
    zdr::LayerColumns m_columns;
    zdr::Handle m_viewport = 0;
    std::uint64_t m_changes = 0;
};

} // namespace engine
