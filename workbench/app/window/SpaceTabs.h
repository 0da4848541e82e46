// The tabs below the drawing: the model tab and one for each sheet.
#pragma once

#include "WindowLook.h"

#include <functional>
#include <string>
#include <vector>

namespace workbench {

class SpaceTabs : public CWnd {
  public:
    explicit SpaceTabs(WindowLook& look) : m_look(look) {}

    BOOL createIn(CWnd& parent, UINT id);
    /// Called with the index of a clicked tab.
    void onChosen(std::function<void(std::size_t index)> chosen) { m_chosen = std::move(chosen); }
    /// Shows these tabs; `active` is the one on top.
    void setTabs(std::vector<std::wstring> names, std::size_t active);
    int height() const { return m_look.lineHeight() + m_look.px(10); }
    /// Where a tab is, in client coordinates; empty for one that isn't there or has no room.
    CRect tabRect(std::size_t index) const { return index < m_rects.size() ? m_rects[index] : CRect(0, 0, 0, 0); }

  protected:
    DECLARE_MESSAGE_MAP()
    afx_msg void OnPaint();
    afx_msg BOOL OnEraseBkgnd(CDC* dc);
    afx_msg void OnSize(UINT type, int width, int height);
    afx_msg void OnLButtonDown(UINT flags, CPoint point);

  private:
    void arrange(CDC& dc);
    void showActive(const CRect& client);
    void draw(CDC& dc, const CRect& client);

    WindowLook& m_look;
    std::function<void(std::size_t)> m_chosen;
    std::vector<std::wstring> m_names;
    std::vector<CRect> m_rects;
    std::size_t m_active = 0;
    BackBuffer m_buffer;
};

} // namespace workbench
