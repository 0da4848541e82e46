// See CommandPane.h.

#include "CommandPane.h"

#include "resource.h"

namespace workbench {

namespace {

constexpr const wchar_t* kPrompt = L"Command:";
// Beyond this many characters the first half of the history goes.
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

} // namespace

BEGIN_MESSAGE_MAP(CommandEdit, CEdit)
ON_WM_KEYDOWN()
ON_WM_CHAR()
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
    default:
        CEdit::OnKeyDown(key, repeats, flags);
    }
}

void CommandEdit::OnChar(UINT letter, UINT repeats, UINT flags) {
    // The edit control would beep at these; OnKeyDown has dealt with them.
    if (letter != L'\r' && letter != L'\n' && letter != L'\t' && letter != VK_ESCAPE)
        CEdit::OnChar(letter, repeats, flags);
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
    const DWORD history = WS_CHILD | WS_VISIBLE | WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL;
    if (!CreateEx(WS_EX_CONTROLPARENT, windowClass, L"Command line", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, nothing,
                  &parent, id) ||
        !m_history.Create(history, nothing, this, IDC_COMMAND_HISTORY) ||
        !m_edit.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL, nothing, this, IDC_COMMAND_EDIT))
        return FALSE;
    m_history.SetLimitText(kNoLimit);
    // What is pasted is not to lose its end unsaid; the command tells when a line is too long.
    m_edit.SetLimitText(kNoLimit);
    applyLook();
    return TRUE;
}

void CommandPane::applyLook() {
    m_history.SetFont(&m_look.font());
    m_edit.SetFont(&m_look.font());
    m_history.SetMargins(static_cast<UINT>(m_look.px(6)), static_cast<UINT>(m_look.px(6)));
    CClientDC dc(this);
    CFont* former = dc.SelectObject(&m_look.font());
    m_promptWidth = dc.GetTextExtent(kPrompt, static_cast<int>(wcslen(kPrompt))).cx;
    dc.SelectObject(former);
    arrange();
}

void CommandPane::print(const std::wstring& text) {
    if (text.empty())
        return;
    if (m_history.GetWindowTextLength() > kHistoryLimit) {
        const int half = m_history.LineIndex(m_history.GetLineCount() / 2);
        m_history.SetSel(0, half, TRUE);
        m_history.ReplaceSel(L"");
    }
    const int end = m_history.GetWindowTextLength();
    m_history.SetSel(end, end);
    // The end of the last line is kept back until another one follows, so that no empty line stands at the bottom.
    std::wstring added = withWindowsLineEnds(m_lineEnded ? L"\n" + text : text);
    m_lineEnded = added.ends_with(L"\r\n");
    if (m_lineEnded)
        added.resize(added.size() - 2);
    m_history.ReplaceSel(added.c_str());
    m_history.SendMessage(WM_VSCROLL, SB_BOTTOM);
}

void CommandPane::arrange() {
    if (!m_edit.m_hWnd)
        return;
    CRect client;
    GetClientRect(client);
    const int line = editHeight();
    const int top = client.bottom - line;
    m_history.MoveWindow(0, m_look.px(3), client.Width(), std::max(0, top - m_look.px(4)));
    const int left = m_look.px(8) + m_promptWidth + m_look.px(6);
    const int textTop = top + (line - m_look.lineHeight()) / 2;
    m_edit.MoveWindow(left, textTop, std::max(0, client.Width() - left - m_look.px(8)), m_look.lineHeight());
    Invalidate(TRUE);
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
    CFont* former = dc.SelectObject(&m_look.font());
    dc.SetTextColor(colors::kBarTextDim);
    dc.SetBkMode(TRANSPARENT);
    CRect prompt(m_look.px(8), top, m_look.px(8) + m_promptWidth, client.bottom);
    dc.DrawText(kPrompt, -1, prompt, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    dc.SelectObject(former);
}

void CommandPane::OnSize(UINT type, int width, int height) {
    CWnd::OnSize(type, width, height);
    arrange();
}

HBRUSH CommandPane::OnCtlColor(CDC* dc, CWnd* control, UINT kind) {
    CWnd::OnCtlColor(dc, control, kind);
    dc->SetBkColor(RGB(255, 255, 255));
    dc->SetTextColor(control == &m_history ? RGB(70, 74, 82) : RGB(0, 0, 0));
    return m_white;
}

void CommandPane::OnSetFocus(CWnd*) {
    m_edit.SetFocus();
}

} // namespace workbench
