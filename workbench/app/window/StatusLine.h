// The line at the bottom: the current layer with its colour, the space on view, the last message.
#pragma once

#include "StatusFacts.h"
#include "WindowLook.h"

namespace workbench {

/// Its window text is what it shows, for screen readers.
class StatusLine : public CWnd {
  public:
    explicit StatusLine(WindowLook& look) : m_look(look) {}

    BOOL createIn(CWnd& parent, UINT id);
    void show(const StatusFacts& facts);
    int height() const { return m_look.lineHeight() + m_look.px(8); }

  protected:
    DECLARE_MESSAGE_MAP()
    afx_msg void OnPaint();
    afx_msg BOOL OnEraseBkgnd(CDC* dc);
    afx_msg void OnSize(UINT type, int width, int height);

  private:
    void draw(CDC& dc, const CRect& client);
    /// Draws one field from `left` on, at most `widest` pixels wide, and answers where the next one begins.
    int drawField(CDC& dc, int left, const CRect& client, const std::wstring& text, int widest);

    WindowLook& m_look;
    StatusFacts m_facts;
    BackBuffer m_buffer;
};

} // namespace workbench
