// The command line: its history, and below it the line being typed.
#pragma once

#include "CommandHistory.h"
#include "WindowLook.h"

#include <functional>
#include <string>

namespace workbench {

/// The history of the command line, to be read and copied. What is typed here is passed on to the line being typed.
class CommandOutput : public CEdit {
  public:
    /// Called with a character that was typed, or 0 for a key that leads back to the command line.
    void onTyped(std::function<void(wchar_t letter)> typed) { m_typed = std::move(typed); }

  protected:
    DECLARE_MESSAGE_MAP()
    afx_msg void OnChar(UINT letter, UINT repeats, UINT flags);

  private:
    std::function<void(wchar_t)> m_typed;
};

/// The line being typed. Enter runs it, or the last one again when it is empty; Tab completes it; Up and Down recall
/// earlier ones; Page Up and Page Down scroll the history; Esc clears it, and when it is empty already, stops what
/// waits to be run.
class CommandEdit : public CEdit {
  public:
    void onRun(std::function<void(const std::wstring& line)> run) { m_run = std::move(run); }
    /// Called with what stands before the caret; answers what is to stand there.
    void onComplete(std::function<std::wstring(const std::wstring& typed)> complete) {
        m_complete = std::move(complete);
    }
    void onStop(std::function<void()> stop) { m_stop = std::move(stop); }
    void onTurnPage(std::function<void(bool back)> turn) { m_turnPage = std::move(turn); }

  protected:
    DECLARE_MESSAGE_MAP()
    afx_msg void OnKeyDown(UINT key, UINT repeats, UINT flags);
    afx_msg void OnChar(UINT letter, UINT repeats, UINT flags);
    afx_msg BOOL OnMouseWheel(UINT flags, short delta, CPoint screen);

  private:
    std::wstring line() const;
    void setLine(const std::wstring& line);
    void run();
    void complete();
    void cancel();

    std::function<void(const std::wstring&)> m_run;
    std::function<std::wstring(const std::wstring&)> m_complete;
    std::function<void()> m_stop;
    std::function<void(bool)> m_turnPage;
    CommandHistory m_history;
};

class CommandPane : public CWnd {
  public:
    explicit CommandPane(WindowLook& look) : m_look(look) {}

    BOOL createIn(CWnd& parent, UINT id);
    CommandEdit& edit() { return m_edit; }
    /// Appends to the history and scrolls to its end. Line ends are \n; after a text that doesn't end with one, the
    /// next text goes on in the same line.
    void print(const std::wstring& text);
    /// Moves the focus from the line being typed to the history, or back.
    void switchFocus();
    /// Scrolls the history; `delta` is that of WM_MOUSEWHEEL.
    void turnWheel(int delta);
    /// To be called when the look has changed.
    void applyLook();
    /// Makes the history large, to read a long answer in, or small again.
    void toggleLarge() { m_large = !m_large; }
    /// The height that the pane wants of a window that has so much room, in pixels.
    int height(int room) const;

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
    bool createLabel(CStatic& label, const wchar_t* text, UINT id);
    void setRedraw(bool redraw);
    void takeTyping(wchar_t letter);
    void arrange();
    bool showsEnd() const;

    WindowLook& m_look;
    CStatic m_outputLabel; // names the output for screen readers
    CommandOutput m_output;
    CStatic m_prompt; // names the line, too
    CommandEdit m_edit;
    CBrush m_white;
    int m_promptWidth = 0;
    int m_turned = 0; // turn of the wheel that is not yet enough for a line
    bool m_lineEnded = false;
    bool m_large = false;
};

} // namespace workbench
