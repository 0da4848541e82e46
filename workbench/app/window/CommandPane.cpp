#include "CommandPane.h"

#include "WorkbenchIds.h"

#include <algorithm>

namespace workbench {

namespace {

constexpr const wchar_t* kPrompt = L"Command:";
constexpr const wchar_t* kOutputLabel = L"History";
// When the history has more characters than this, its first half is deleted.
constexpr int kHistoryLimit = 60000;
constexpr UINT kNoLimit = 0x7FFFFFFE;

std::wstring withWindowsLineEnds(const std::wstring& text) {
    std::wstring out;
    for (const wchar_t letter : text) {
        if (letter == L'\n')
            out += L'\r';
        if (letter != L'\r')
            out += letter;
    }
    return out;
}

// Lines end at blanks alone; the control by itself also breaks names at their hyphens. Answers as EM_SETWORDBREAKPROC
// wants.
int CALLBACK breakAtBlanks(LPWSTR text, int current, int count, int action) {
    const auto isBlank = [text](int place) { return text[place] == L' ' || text[place] == L'\t'; };
    switch (action) {
    case WB_ISDELIMITER:
        return current >= 0 && current < count && isBlank(current);
    case WB_LEFT: // the start of the word at or before the place
        current = std::min(current, count);
        while (current > 0 && isBlank(current - 1))
            --current;
        while (current > 0 && !isBlank(current - 1))
            --current;
        return current;
    default: // the start of the next word
        while (current < count && !isBlank(current))
            ++current;
        while (current < count && isBlank(current))
            ++current;
        return current;
    }
}

} // namespace

BEGIN_MESSAGE_MAP(CommandOutput, CEdit)
ON_WM_CHAR()
END_MESSAGE_MAP()

void CommandOutput::OnChar(UINT letter, UINT repeats, UINT flags) {
    constexpr UINT kLeading[] = {L'\t', L'\r', VK_ESCAPE};
    if (std::ranges::find(kLeading, letter) != std::end(kLeading))
        m_typed(0);
    else if (letter >= L' ')
        m_typed(static_cast<wchar_t>(letter));
    else
        CEdit::OnChar(letter, repeats, flags);
}

BEGIN_MESSAGE_MAP(CommandEdit, CEdit)
ON_WM_KEYDOWN()
ON_WM_CHAR()
ON_WM_MOUSEWHEEL()
END_MESSAGE_MAP()

std::wstring CommandEdit::line() const {
    CString text;
    GetWindowText(text);
    return text.GetString();
}

void CommandEdit::setLine(const std::wstring& line) {
    SetWindowText(line.c_str());
    SetSel(static_cast<int>(line.size()), static_cast<int>(line.size()));
}

void CommandEdit::run() {
    const std::wstring entered = line();
    const bool repeats = entered.find_first_not_of(L" \t") == std::wstring::npos;
    const std::wstring typed = repeats ? m_history.last() : entered;
    m_history.add(typed);
    setLine({});
    // Last: what runs may end the program, or take long.
    if (m_run)
        m_run(typed);
}

void CommandEdit::complete() {
    int start = 0;
    int caret = 0;
    GetSel(start, caret);
    const std::wstring all = line();
    const std::wstring behind = all.substr(std::min(all.size(), static_cast<std::size_t>(caret)));
    const std::wstring completed = m_complete(all.substr(0, static_cast<std::size_t>(caret)));
    setLine(completed + behind);
    const int place = static_cast<int>(completed.size());
    SetSel(place, place);
}

void CommandEdit::cancel() {
    if (line().empty() && m_stop)
        m_stop();
    m_history.rewind();
    setLine({});
}

void CommandEdit::OnKeyDown(UINT key, UINT repeats, UINT flags) {
    switch (key) {
    case VK_RETURN:
        run();
        return;
    case VK_UP:
        setLine(m_history.previous(line()));
        return;
    case VK_DOWN:
        setLine(m_history.next(line()));
        return;
    case VK_TAB:
        if (m_complete)
            complete();
        return;
    case VK_ESCAPE:
        cancel();
        return;
    case VK_PRIOR:
    case VK_NEXT:
        if (m_turnPage)
            m_turnPage(key == VK_PRIOR);
        return;
    default:
        CEdit::OnKeyDown(key, repeats, flags);
    }
}

void CommandEdit::OnChar(UINT letter, UINT repeats, UINT flags) {
    // The edit control would beep at these; OnKeyDown has dealt with them.
    if (letter != L'\r' && letter != L'\n' && letter != L'\t' && letter != VK_ESCAPE)
        CEdit::OnChar(letter, repeats, flags);
}

BOOL CommandEdit::OnMouseWheel(UINT flags, short delta, CPoint screen) {
    // One line has nothing to scroll; the main window knows what is below the pointer.
    GetParent()->SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(flags, delta), MAKELPARAM(screen.x, screen.y));
    return TRUE;
}

BEGIN_MESSAGE_MAP(CommandPane, CWnd)
ON_WM_ERASEBKGND()
ON_WM_PAINT()
ON_WM_SIZE()
ON_WM_CTLCOLOR()
ON_WM_SETFOCUS()
END_MESSAGE_MAP()

BOOL CommandPane::createIn(CWnd& parent, UINT id) {
    const LPCTSTR windowClass = AfxRegisterWndClass(0, ::LoadCursor(nullptr, IDC_ARROW));
    const CRect nothing(0, 0, 0, 0);
    m_white.CreateSolidBrush(RGB(255, 255, 255));
    const DWORD output = WS_CHILD | WS_VISIBLE | WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL;
    // Each label is created just before its control, so that screen readers take it for the name of the control.
    if (!CreateEx(WS_EX_CONTROLPARENT, windowClass, L"Command line", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, nothing,
                  &parent, id) ||
        !createLabel(m_outputLabel, kOutputLabel, IDC_COMMAND_HISTORY_LABEL) ||
        !m_output.Create(output, nothing, this, IDC_COMMAND_HISTORY) ||
        !createLabel(m_prompt, kPrompt, IDC_COMMAND_PROMPT) ||
        !m_edit.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL, nothing, this, IDC_COMMAND_EDIT))
        return FALSE;
    m_output.onTyped([this](wchar_t letter) { takeTyping(letter); });
    m_edit.onTurnPage([this](bool back) { m_output.SendMessage(WM_VSCROLL, back ? SB_PAGEUP : SB_PAGEDOWN); });
    m_output.SetLimitText(kNoLimit);
    m_output.SendMessage(EM_SETWORDBREAKPROC, 0, reinterpret_cast<LPARAM>(&breakAtBlanks));
    // With a limit the control would cut a pasted text without a word; runLine() tells when a line is too long.
    m_edit.SetLimitText(kNoLimit);
    applyLook();
    return TRUE;
}

bool CommandPane::createLabel(CStatic& label, const wchar_t* text, UINT id) {
    return label.Create(text, WS_CHILD | WS_VISIBLE | SS_NOPREFIX, CRect(0, 0, 0, 0), this, id) != FALSE;
}

void CommandPane::takeTyping(wchar_t letter) {
    m_edit.SetFocus();
    if (letter)
        m_edit.SendMessage(WM_CHAR, letter);
}

void CommandPane::switchFocus() {
    if (GetFocus() == &m_output)
        m_edit.SetFocus();
    else
        m_output.SetFocus();
}

int CommandPane::height(int room) const {
    const int around = editHeight() + m_look.px(6);
    const int small = m_look.lineHeight() * kHistoryLines + around;
    // What is drawn stays in sight, if only by a strip.
    return m_large ? std::max(small, room * 3 / 4) : small;
}

void CommandPane::turnWheel(int delta) {
    constexpr int kLines = 3; // a step of the wheel
    m_turned += delta * kLines;
    m_output.LineScroll(-m_turned / WHEEL_DELTA);
    m_turned %= WHEEL_DELTA;
}

void CommandPane::applyLook() {
    m_output.SetFont(&m_look.font());
    m_edit.SetFont(&m_look.font());
    m_prompt.SetFont(&m_look.font());
    m_output.SetMargins(static_cast<UINT>(m_look.px(6)), static_cast<UINT>(m_look.px(6)));
    CClientDC dc(this);
    CFont* former = dc.SelectObject(&m_look.font());
    m_promptWidth = dc.GetTextExtent(kPrompt, static_cast<int>(wcslen(kPrompt))).cx;
    dc.SelectObject(former);
    arrange();
}

// While lines come faster than they are painted, the control would scroll what was painted last, and that line would
// stand there again and again. Wine's control ignores the message, the system's own procedure behind it doesn't.
void CommandPane::setRedraw(bool redraw) {
    ::DefWindowProc(m_output.GetSafeHwnd(), WM_SETREDRAW, redraw, 0);
}

void CommandPane::print(const std::wstring& text) {
    if (text.empty())
        return;
    setRedraw(false);
    if (m_output.GetWindowTextLength() > kHistoryLimit) {
        const int half = m_output.LineIndex(m_output.GetLineCount() / 2);
        m_output.SetSel(0, half, TRUE);
        m_output.ReplaceSel(L"");
    }
    const int end = m_output.GetWindowTextLength();
    m_output.SetSel(end, end);
    // The end of the last line is kept back until another one follows, so that no empty line stands at the bottom.
    std::wstring added = withWindowsLineEnds(m_lineEnded ? L"\n" + text : text);
    m_lineEnded = added.ends_with(L"\r\n");
    if (m_lineEnded)
        added.resize(added.size() - 2);
    m_output.ReplaceSel(added.c_str());
    m_output.SendMessage(WM_VSCROLL, SB_BOTTOM);
    setRedraw(true);
    m_output.RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME);
}

void CommandPane::arrange() {
    if (!m_edit.m_hWnd)
        return;
    CRect client;
    GetClientRect(client);
    const int line = editHeight();
    const int top = client.bottom - line;
    const bool atEnd = showsEnd();
    m_output.MoveWindow(0, m_look.px(3), client.Width(), std::max(0, top - m_look.px(4)));
    if (atEnd) // with another width or height other lines are in sight
        m_output.SendMessage(WM_VSCROLL, SB_BOTTOM);
    const int left = m_look.px(8) + m_promptWidth + m_look.px(6);
    const int textTop = top + (line - m_look.lineHeight()) / 2;
    m_prompt.MoveWindow(m_look.px(8), textTop, m_promptWidth, m_look.lineHeight());
    m_edit.MoveWindow(left, textTop, std::max(0, client.Width() - left - m_look.px(8)), m_look.lineHeight());
    Invalidate(TRUE);
}

bool CommandPane::showsEnd() const {
    SCROLLINFO bar = {};
    bar.cbSize = sizeof bar;
    bar.fMask = SIF_ALL;
    return !::GetScrollInfo(m_output.GetSafeHwnd(), SB_VERT, &bar) || bar.nPos + static_cast<int>(bar.nPage) > bar.nMax;
}

BOOL CommandPane::OnEraseBkgnd(CDC*) {
    return TRUE;
}

void CommandPane::OnPaint() {
    CPaintDC dc(this);
    CRect client;
    GetClientRect(client);
    dc.FillSolidRect(client, RGB(255, 255, 255));
    dc.FillSolidRect(0, 0, client.Width(), 1, colors::kBarLine);
    const int top = client.bottom - editHeight();
    dc.FillSolidRect(0, top - 1, client.Width(), 1, colors::kBarLine);
}

void CommandPane::OnSize(UINT type, int width, int height) {
    CWnd::OnSize(type, width, height);
    arrange();
}

HBRUSH CommandPane::OnCtlColor(CDC* dc, CWnd* control, UINT kind) {
    CWnd::OnCtlColor(dc, control, kind);
    dc->SetBkColor(RGB(255, 255, 255));
    dc->SetTextColor(control == &m_edit ? RGB(0, 0, 0) : control == &m_prompt ? colors::kBarTextDim : RGB(70, 74, 82));
    return m_white;
}

void CommandPane::OnSetFocus(CWnd*) {
    m_edit.SetFocus();
}

} // namespace workbench
