// See SpaceTabs.h.

#include "SpaceTabs.h"

namespace workbench {

BEGIN_MESSAGE_MAP(SpaceTabs, CWnd)
ON_WM_PAINT()
ON_WM_ERASEBKGND()
ON_WM_SIZE()
ON_WM_LBUTTONDOWN()
END_MESSAGE_MAP()

BOOL SpaceTabs::createIn(CWnd& parent, UINT id) {
    const LPCTSTR windowClass = AfxRegisterWndClass(0, ::LoadCursor(nullptr, IDC_ARROW));
    return CreateEx(0, windowClass, L"Spaces", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, CRect(0, 0, 0, 0), &parent, id);
}

void SpaceTabs::setTabs(std::vector<std::wstring> names, std::size_t active) {
    if (names == m_names && active == m_active)
        return;
    m_names = std::move(names);
    m_active = active;
    Invalidate(FALSE);
}

void SpaceTabs::arrange(CDC& dc) {
    CRect client;
    GetClientRect(client);
    m_rects.clear();
    int left = m_look.px(8);
    for (const std::wstring& name : m_names) {
        const int width = dc.GetTextExtent(name.c_str(), static_cast<int>(name.size())).cx + 2 * m_look.px(14);
        m_rects.emplace_back(left, 0, left + width, client.bottom - m_look.px(4));
        left += width;
    }
    showActive(client);
}

// Tabs that have no room are reached by the keyboard, or by clicking their neighbours in turn.
void SpaceTabs::showActive(const CRect& client) {
    if (m_active >= m_rects.size())
        return;
    const std::size_t next = std::min(m_active + 1, m_rects.size() - 1);
    const int shift = std::max(0, static_cast<int>(m_rects[next].right - client.right + m_look.px(8)));
    for (CRect& rect : m_rects)
        rect.OffsetRect(-shift, 0);
}

void SpaceTabs::draw(CDC& dc, const CRect& client) {
    dc.FillSolidRect(client, colors::kBar);
    dc.FillSolidRect(0, 0, client.Width(), 1, colors::kBarLine);
    CFont* former = dc.SelectObject(&m_look.font());
    arrange(dc);
    dc.SetBkMode(TRANSPARENT);
    for (std::size_t i = 0; i < m_rects.size(); ++i) {
        CRect rect = m_rects[i];
        const bool active = i == m_active;
        if (active) {
            dc.FillSolidRect(rect, RGB(255, 255, 255));
            dc.FillSolidRect(rect.left, rect.bottom - m_look.px(3), rect.Width(), m_look.px(3), colors::kAccent);
        }
        dc.SetTextColor(active ? colors::kBarText : colors::kBarTextDim);
        dc.SetBkMode(TRANSPARENT);
        dc.DrawText(m_names[i].c_str(), -1, rect, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    }
    dc.SelectObject(former);
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
    Invalidate(FALSE);
}

void SpaceTabs::OnLButtonDown(UINT, CPoint point) {
    const auto hit = std::find_if(m_rects.begin(), m_rects.end(),
                                  [point](const CRect& rect) { return rect.PtInRect(point) != FALSE; });
    if (hit != m_rects.end() && m_chosen)
        m_chosen(static_cast<std::size_t>(hit - m_rects.begin()));
    GetParent()->SetFocus();
}

} // namespace workbench
