// The line at the bottom: the current layer with its colour, the space on view, the last message, the pointer's place
// with its unit, and how many references there are.
#pragma once

#include "StatusFacts.h"
#include "StatusSpans.h"
#include "WindowLook.h"

#include <functional>

namespace workbench {

/// Its window text is what it shows, for screen readers.
class StatusLine : public CWnd {
  public:
    explicit StatusLine(WindowLook& look) : m_look(look) {}

    BOOL createIn(CWnd& parent, UINT id);
    /// Called when the count of references was clicked.
    void onReferencesChosen(std::function<void()> chosen) { m_referencesChosen = std::move(chosen); }
    void show(const StatusFacts& facts);
    int height() const { return m_look.lineHeight() + m_look.px(8); }
    /// Where the fields stand at the moment.
    StatusSpans spans();

  protected:
    DECLARE_MESSAGE_MAP()
    afx_msg void OnPaint();
    afx_msg BOOL OnEraseBkgnd(CDC* dc);
    afx_msg void OnSize(UINT type, int width, int height);
    afx_msg void OnLButtonDown(UINT flags, CPoint point);
    afx_msg BOOL OnSetCursor(CWnd* window, UINT hit, UINT message);

  private:
    int nameStart() const;
    StatusSpans spansIn(CDC& dc, int line) const;
    void draw(CDC& dc, const CRect& client) const;
    void drawText(CDC& dc, const StatusSpan& span, const std::wstring& text, COLORREF color, UINT side) const;
    void drawSeparator(CDC& dc, int at) const;
    void drawNames(CDC& dc, const StatusSpans& spans) const;
    void drawReferences(CDC& dc, const StatusSpan& span) const;
    bool isOnReferences(CPoint point);

    WindowLook& m_look;
    std::function<void()> m_referencesChosen;
    StatusFacts m_facts;
    BackBuffer m_buffer;
};

} // namespace workbench
