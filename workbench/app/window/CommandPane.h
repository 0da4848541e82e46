// The command line: what was said so far, and below it the line being typed.
#pragma once

#include "CommandHistory.h"
#include "WindowLook.h"

#include <functional>
#include <string>

namespace workbench {

/// The line being typed. Enter runs it, or the last one again when it is empty; Tab completes it; Up and Down recall
/// earlier ones; Esc clears it, and when it is empty already, stops what waits to be run.
class CommandEdit : public CEdit {
  public:
    void onRun(std::function<void(const std::wstring& line)> run) { m_run = std::move(run); }
    /// Called with what stands before the caret; answers what is to stand there.
    void onComplete(std::function<std::wstring(const std::wstring& typed)> complete) {
        m_complete = std::move(complete);
    }
    void onStop(std::function<void()> stop) { m_stop = std::move(stop); }

  protected:
    DECLARE_MESSAGE_MAP()
    afx_msg void OnKeyDown(UINT key, UINT repeats, UINT flags);
    afx_msg void OnChar(UINT letter, UINT repeats, UINT flags);

  private:
    std::wstring line() const;
    void setLine(const std::wstring& line);
    void run();
    void complete();
    void cancel();

    std::function<void(const std::wstring&)> m_run;
    std::function<std::wstring(const std::wstring&)> m_complete;
    std::function<void()> m_stop;
    CommandHistory m_history;
};

class CommandPane : public CWnd {
  public:
    explicit CommandPane(WindowLook& look) : m_look(look) {}

    BOOL createIn(CWnd& parent, UINT id);
    CommandEdit& edit() { return m_edit; }
    /// Appends to the history and scrolls to its end. Line ends are \n; text that doesn't end a line is gone on with.
    void print(const std::wstring& text);
    /// The look has changed.
    void applyLook();
    int height() const { return m_look.lineHeight() * kHistoryLines + editHeight() + m_look.px(6); }

  protected:
    DECLARE_MESSAGE_MAP()
    afx_msg BOOL OnEraseBkgnd(CDC* dc);
    afx_msg void OnPaint();
    afx_msg void OnSize(UINT type, int width, int height);
    afx_msg HBRUSH OnCtlColor(CDC* dc, CWnd* control, UINT kind);
    afx_msg void OnSetFocus(CWnd* former);

  private:
    static constexpr int kHistoryLines = 5;
    int editHeight() const { return m_look.lineHeight() + m_look.px(8); }
    void arrange();

    WindowLook& m_look;
    CEdit m_history;
    CommandEdit m_edit;
    CBrush m_white;
    int m_promptWidth = 0;
    bool m_lineEnded = false;
};

} // namespace workbench
