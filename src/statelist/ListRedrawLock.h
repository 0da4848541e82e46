// Keeps a list from drawing while it is being filled.
#pragma once

#include <afxcmn.h>

/// Turns the window's drawing off for its life; at its end the window is drawn once as a whole.
class ListRedrawLock {
  public:
    explicit ListRedrawLock(CListCtrl& list) : m_list(list) { m_list.SetRedraw(FALSE); }
    ~ListRedrawLock() {
        m_list.SetRedraw(TRUE);
        m_list.Invalidate();
    }
    ListRedrawLock(const ListRedrawLock&) = delete;
    ListRedrawLock& operator=(const ListRedrawLock&) = delete;

  private:
    CListCtrl& m_list;
};
