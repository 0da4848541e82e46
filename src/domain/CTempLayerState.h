// The guard around work on the drawing's own layers. The host can read or build a state only through these layers, so
// they are changed for a while and put back; the user is to see nothing of it.
#pragma once

#include <afx.h>

/// Its constructor saves the layers of the current drawing in a throw-away state; its destructor writes them back and
/// deletes that state. It reports nothing: when the save is refused, the work goes on unprotected; when the restore is,
/// the throw-away state stays in the drawing, since it is the only copy of the user's layers.
///
/// It lives on the stack of the work that it guards.
class CTempLayerState {
  public:
    CTempLayerState();
    ~CTempLayerState();
    CTempLayerState(const CTempLayerState&) = delete;
    CTempLayerState& operator=(const CTempLayerState&) = delete;

  private:
    CString m_tempName;   ///< empty when there was nothing to save
    bool m_saved = false; ///< the host accepted the save; otherwise the destructor does nothing
};
