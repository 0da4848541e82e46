// The tabs below the drawing: the model tab and one for each sheet. When they have no room, two buttons at the end and
// the wheel scroll them; names that are too long are shortened, and a tip tells them in full.
#pragma once

#include "TabStrip.h"
#include "WindowLook.h"

#include <functional>
#include <string>
#include <vector>

namespace workbench {

/// Its window text is the name of the tab on top, for screen readers.
class SpaceTabs : public CWnd {
  public:
    explicit SpaceTabs(WindowLook& look) : m_look(look) {}
    ~SpaceTabs() override;

    BOOL createIn(CWnd& parent, UINT id);
    /// Called with the index of a clicked tab.
    void onChosen(std::function<void(std::size_t index)> chosen) { m_chosen = std::move(chosen); }
    /// Shows these tabs; `active` is the one on top, and comes into sight when it is another one than before.
    void setTabs(std::vector<std::wstring> names, std::size_t active);
    /// Measures the names anew after the look has changed.
    void applyLook();
    int height() const { return m_look.lineHeight() + m_look.px(10); }
    /// Where a tab can be seen, in client coordinates; empty for one that isn't there or is out of sight.
    CRect tabRect(std::size_t index) const { return rectOf(m_strip.tab(index)); }
    /// The button that scrolls to tabs further on, or back; empty while all tabs have room.
    CRect scrollRect(bool forward) const { return rectOf(forward ? m_strip.forward() : m_strip.back()); }

  protected:
    DECLARE_MESSAGE_MAP()
    afx_msg void OnPaint();
    afx_msg BOOL OnEraseBkgnd(CDC* dc);
    afx_msg void OnSize(UINT type, int width, int height);
    afx_msg void OnLButtonDown(UINT flags, CPoint point);
    afx_msg void OnLButtonUp(UINT flags, CPoint point);
    afx_msg void OnCaptureChanged(CWnd* window);
    afx_msg void OnTimer(UINT_PTR timer);
    afx_msg BOOL OnMouseWheel(UINT flags, short delta, CPoint screen);

  private:
    CRect rectOf(const TabStrip::Span& span) const;
    void arrange();
    void scroll(int tabs);
    void refreshTips();
    void addTip(std::size_t tab);
    void draw(CDC& dc, const CRect& client);
    void drawTab(CDC& dc, std::size_t index);
    void drawScrollButton(CDC& dc, bool forward);

    WindowLook& m_look;
    std::function<void(std::size_t)> m_chosen;
    std::vector<std::wstring> m_names;
    std::vector<bool> m_shortened; // by tab
    std::size_t m_active = 0;
    TabStrip m_strip;
    int m_held = 0;     // the scroll button that is held: 1 forward, -1 back, 0 none
    int m_turned = 0;   // turn of the wheel that is not yet enough for a tab
    int m_tipCount = 0; // tools of the tip window
    HWND m_tips = nullptr;
    BackBuffer m_buffer;
};

} // namespace workbench
