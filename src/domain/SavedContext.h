// The guard around drawing that changes a device context. Windows tier.
#pragma once

#include <afxwin.h>

/// Puts back at its end what was changed in the context since, also when an exception passes.
class SavedContext {
  public:
    explicit SavedContext(CDC& dc) : m_dc(dc), m_saved(dc.SaveDC()) {}
    ~SavedContext() { m_dc.RestoreDC(m_saved); }
    SavedContext(const SavedContext&) = delete;
    SavedContext& operator=(const SavedContext&) = delete;

  private:
    CDC& m_dc;
    int m_saved;
};
