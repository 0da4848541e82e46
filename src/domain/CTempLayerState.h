// The guard around work on the real layers. The host can neither read nor build a state but by way of the drawing's own
// layers; the user is to see none of that.
#pragma once

#include <afx.h>

/// Saves the layers of the current drawing in a throw-away state at its birth, writes them back and deletes that state
/// at its end. It reports nothing: when the save is refused, the work goes on unprotected; when the restore is, the
/// throw-away state stays in the drawing, since it is the only copy of the user's layers.
///
/// It lives on the stack of the work that it guards.
class CTempLayerState {
  public:
    CTempLayerState();
    ~CTempLayerState();
    CTempLayerState(const CTempLayerState&) = delete;
    CTempLayerState& operator=(const CTempLayerState&) = delete;

  private:
    CString m_tempName;   ///< empty until one was made up
    bool m_saved = false; ///< the host accepted the save; everything at the end hangs on this
};
