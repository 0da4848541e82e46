#include "StatusLine.h"

namespace workbench {

BEGIN_MESSAGE_MAP(StatusLine, CWnd)
ON_WM_PAINT()
ON_WM_ERASEBKGND()
ON_WM_SIZE()
END_MESSAGE_MAP()

BOOL StatusLine::createIn(CWnd& parent, UINT id) {
    const LPCTSTR windowClass = AfxRegisterWndClass(0, ::LoadCursor(nullptr, IDC_ARROW));
    return CreateEx(0, windowClass, L"", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, CRect(0, 0, 0, 0), &parent, id);
}

void StatusLine::show(const StatusFacts& facts) {
    if (facts == m_facts)
        return;
    m_facts = facts;
    SetWindowText(facts.text().c_str());
    Invalidate(FALSE);
}

int StatusLine::drawField(CDC& dc, int left, const CRect& client, const std::wstring& text, int widest) {
    const int padding = m_look.px(8);
    CRect rect = client;
    rect.left = left + padding;
    rect.right = std::min(rect.right, rect.left + widest);
    dc.SetBkMode(TRANSPARENT);
    dc.DrawText(text.c_str(), -1, rect, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    const int width = dc.GetTextExtent(text.c_str(), static_cast<int>(text.size())).cx;
    return rect.left + std::min(width, widest) + padding;
}

void StatusLine::draw(CDC& dc, const CRect& client) {
    dc.FillSolidRect(client, colors::kBar);
    dc.FillSolidRect(0, 0, client.Width(), 1, colors::kBarLine);
    CFont* former = dc.SelectObject(&m_look.font());
    dc.SetTextColor(colors::kBarText);
    int left = 0;
    // No name takes more than a quarter, so that the message has room.
    const int widestName = client.Width() / 4;
    const auto separator = [&] {
        dc.FillSolidRect(left, m_look.px(4), 1, client.Height() - m_look.px(8), colors::kBarLine);
    };
    if (!m_facts.layer.empty()) {
        const int side = m_look.px(10);
        const CRect swatch(CPoint(m_look.px(8), (client.Height() - side) / 2), CSize(side, side));
        dc.FillSolidRect(swatch, rgbOf(m_facts.layerColor, RGB(255, 255, 255), paletteRgb));
        dc.Draw3dRect(swatch, colors::kBarTextDim, colors::kBarTextDim);
        left = drawField(dc, swatch.right - m_look.px(2), client, m_facts.layer, widestName);
        separator();
        left = drawField(dc, left, client, m_facts.space, widestName);
        separator();
    }
    dc.SetTextColor(colors::kBarTextDim);
    drawField(dc, left, client, m_facts.message, client.Width());
    dc.SelectObject(former);
}

void StatusLine::OnPaint() {
    CPaintDC dc(this);
    CRect client;
    GetClientRect(client);
    m_buffer.fit(dc, client.Size());
    draw(m_buffer.dc(), client);
    m_buffer.show(dc);
}

BOOL StatusLine::OnEraseBkgnd(CDC*) {
    return TRUE;
}

void StatusLine::OnSize(UINT type, int width, int height) {
    CWnd::OnSize(type, width, height);
    Invalidate(FALSE);
}

} // namespace workbench
