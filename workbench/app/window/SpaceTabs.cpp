#include "SpaceTabs.h"

#include <commctrl.h>

namespace workbench {

namespace {

// At 96 dots per inch.
constexpr int kMargin = 8;
constexpr int kPadding = 14; // left and right of a name
constexpr int kWidestName = 180;
constexpr int kScrollButton = 22;
constexpr int kArrow = 4; // half of its height

// While a scroll button is held: the time before it goes on, and between its steps, in milliseconds.
constexpr UINT_PTR kHoldTimer = 1;
constexpr UINT kHoldDelay = 350;
constexpr UINT kHoldStep = 80;

// Before version 6 of the common controls the structure ends before its last member, and that size works for both.
TOOLINFOW tipTool(HWND window, int id) {
    TOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.uFlags = TTF_SUBCLASS;
    tool.hwnd = window;
    tool.uId = static_cast<UINT_PTR>(id);
    return tool;
}

} // namespace

BEGIN_MESSAGE_MAP(SpaceTabs, CWnd)
ON_WM_PAINT()
ON_WM_ERASEBKGND()
ON_WM_SIZE()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
ON_WM_CAPTURECHANGED()
ON_WM_TIMER()
ON_WM_MOUSEWHEEL()
END_MESSAGE_MAP()

SpaceTabs::~SpaceTabs() {
    // The tip window dies with the main window that owns it, if that went first.
    if (m_tips && ::IsWindow(m_tips))
        ::DestroyWindow(m_tips);
}

BOOL SpaceTabs::createIn(CWnd& parent, UINT id) {
    const LPCTSTR windowClass = AfxRegisterWndClass(0, ::LoadCursor(nullptr, IDC_ARROW));
    if (!CreateEx(0, windowClass, L"Spaces", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, CRect(0, 0, 0, 0), &parent, id))
        return FALSE;
    // When this fails the tabs work all the same, without tips.
    m_tips = ::CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0,
                               0, 0, m_hWnd, nullptr, nullptr, nullptr);
    return TRUE;
}

void SpaceTabs::setTabs(std::vector<std::wstring> names, std::size_t active) {
    const bool sameNames = names == m_names;
    if (sameNames && active == m_active)
        return;
    m_names = std::move(names);
    m_active = active;
    if (!sameNames)
        arrange();
    m_strip.reveal(m_active);
    refreshTips();
    SetWindowText(m_active < m_names.size() ? (L"Spaces: " + m_names[m_active]).c_str() : L"Spaces");
    Invalidate(FALSE);
}

CRect SpaceTabs::rectOf(const TabStrip::Span& span) const {
    if (span.isEmpty())
        return {0, 0, 0, 0};
    CRect client;
    GetClientRect(client);
    return {span.left, 0, span.right, client.bottom - m_look.px(4)};
}

void SpaceTabs::arrange() {
    CClientDC dc(this);
    CFont* former = dc.SelectObject(&m_look.font());
    std::vector<int> widths;
    m_shortened.clear();
    for (const std::wstring& name : m_names) {
        const int full = dc.GetTextExtent(name.c_str(), static_cast<int>(name.size())).cx;
        m_shortened.push_back(full > m_look.px(kWidestName));
        widths.push_back(std::min(full, m_look.px(kWidestName)) + 2 * m_look.px(kPadding));
    }
    dc.SelectObject(former);
    CRect client;
    GetClientRect(client);
    m_strip.arrange(widths, {client.Width(), m_look.px(kMargin), m_look.px(kScrollButton)});
}

void SpaceTabs::applyLook() {
    arrange();
    m_strip.reveal(m_active);
    refreshTips();
    Invalidate(FALSE);
}

void SpaceTabs::scroll(int tabs) {
    if (!m_strip.scroll(tabs))
        return;
    refreshTips();
    Invalidate(FALSE);
}

void SpaceTabs::addTip(std::size_t tab) {
    TOOLINFOW tool = tipTool(m_hWnd, ++m_tipCount);
    tool.rect = tabRect(tab);
    tool.lpszText = m_names[tab].data();
    ::SendMessage(m_tips, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

void SpaceTabs::refreshTips() {
    if (!m_tips)
        return;
    for (; m_tipCount > 0; --m_tipCount) {
        TOOLINFOW tool = tipTool(m_hWnd, m_tipCount);
        ::SendMessage(m_tips, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    }
    for (std::size_t tab = 0; tab < m_names.size(); ++tab)
        if (m_shortened[tab] && !m_strip.tab(tab).isEmpty())
            addTip(tab);
}

void SpaceTabs::drawTab(CDC& dc, std::size_t index) {
    // Wider than the tab, so that letters stay where they are when the tab is in sight in part only.
    CRect rect = tabRect(index);
    rect.left = m_strip.whole(index).left;
    rect.right = m_strip.whole(index).right;
    const bool active = index == m_active;
    if (active) {
        dc.FillSolidRect(rect, RGB(255, 255, 255));
        dc.FillSolidRect(rect.left, rect.bottom - m_look.px(3), rect.Width(), m_look.px(3), colors::kAccent);
    }
    dc.SetTextColor(active ? colors::kBarText : colors::kBarTextDim);
    dc.SetBkMode(TRANSPARENT);
    rect.DeflateRect(m_look.px(kPadding), 0);
    // A tab is as wide as its name; without some room a name that is a pixel too wide would get an ellipsis.
    if (!m_shortened[index])
        rect.InflateRect(m_look.px(2), 0);
    dc.DrawText(m_names[index].c_str(), -1, rect,
                DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
}

void SpaceTabs::drawScrollButton(CDC& dc, bool forward) {
    const CRect rect = scrollRect(forward);
    const bool enabled = forward ? m_strip.canGoForward() : m_strip.canGoBack();
    const COLORREF color = enabled ? colors::kBarText : colors::kBarLine;
    const int half = m_look.px(kArrow);
    const CPoint middle = rect.CenterPoint();
    for (int i = 0; i < half; ++i) {
        const int height = 2 * (forward ? half - i : i + 1) - 1;
        dc.FillSolidRect(middle.x - half / 2 + i, middle.y - height / 2, 1, height, color);
    }
}

void SpaceTabs::draw(CDC& dc, const CRect& client) {
    dc.FillSolidRect(client, colors::kBar);
    dc.FillSolidRect(0, 0, client.Width(), 1, colors::kBarLine);
    CFont* former = dc.SelectObject(&m_look.font());
    for (std::size_t i = 0; i < m_names.size(); ++i)
        if (!m_strip.tab(i).isEmpty())
            drawTab(dc, i);
    dc.SelectObject(former);
    if (m_strip.back().isEmpty())
        return;
    // Covers what of the tabs reaches beyond their part of the bar.
    const int end = m_strip.room().right;
    dc.FillSolidRect(end, 1, client.right - end, client.bottom - 1, colors::kBar);
    drawScrollButton(dc, false);
    drawScrollButton(dc, true);
}

void SpaceTabs::OnPaint() {
    CPaintDC dc(this);
    CRect client;
    GetClientRect(client);
    m_buffer.fit(dc, client.Size());
    draw(m_buffer.dc(), client);
    m_buffer.show(dc);
}

BOOL SpaceTabs::OnEraseBkgnd(CDC*) {
    return TRUE;
}

void SpaceTabs::OnSize(UINT type, int width, int height) {
    CWnd::OnSize(type, width, height);
    applyLook();
}

void SpaceTabs::OnLButtonDown(UINT, CPoint point) {
    GetParent()->SetFocus();
    const bool back = scrollRect(false).PtInRect(point) != FALSE;
    if (back || scrollRect(true).PtInRect(point)) {
        m_held = back ? -1 : 1;
        SetCapture();
        SetTimer(kHoldTimer, kHoldDelay, nullptr);
        scroll(m_held);
        return;
    }
    for (std::size_t tab = 0; tab < m_names.size(); ++tab)
        if (tabRect(tab).PtInRect(point) && m_chosen) {
            m_chosen(tab);
            return;
        }
}

void SpaceTabs::OnLButtonUp(UINT, CPoint) {
    if (m_held != 0)
        ReleaseCapture();
}

void SpaceTabs::OnCaptureChanged(CWnd*) {
    m_held = 0;
    KillTimer(kHoldTimer);
}

void SpaceTabs::OnTimer(UINT_PTR timer) {
    if (timer != kHoldTimer) {
        CWnd::OnTimer(timer);
        return;
    }
    SetTimer(kHoldTimer, kHoldStep, nullptr);
    scroll(m_held);
}

BOOL SpaceTabs::OnMouseWheel(UINT, short delta, CPoint) {
    // Fine wheels send parts of a step.
    m_turned += delta;
    scroll(-m_turned / WHEEL_DELTA);
    m_turned %= WHEEL_DELTA;
    return TRUE;
}

} // namespace workbench
