#include "StatusLine.h"

#include "UnitsText.h"

namespace workbench {

namespace {

// At 96 dots per inch.
constexpr int kPadding = 8; // left and right of a field's text
constexpr int kSwatch = 10;

// A place with as many digits as most drawings need: the others keep their room while the pointer moves about.
constexpr zdr::Point kLongPlace{-88888, -88888};

int widthOf(CDC& dc, const std::wstring& text) {
    return dc.GetTextExtent(text.c_str(), static_cast<int>(text.size())).cx;
}

} // namespace

BEGIN_MESSAGE_MAP(StatusLine, CWnd)
ON_WM_PAINT()
ON_WM_ERASEBKGND()
ON_WM_SIZE()
ON_WM_LBUTTONDOWN()
ON_WM_SETCURSOR()
END_MESSAGE_MAP()

BOOL StatusLine::createIn(CWnd& parent, UINT id) {
    const LPCTSTR windowClass = AfxRegisterWndClass(0);
    return CreateEx(0, windowClass, L"", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, CRect(0, 0, 0, 0), &parent, id);
}

void StatusLine::show(const StatusFacts& facts) {
    if (facts == m_facts)
        return;
    m_facts = facts;
    SetWindowText(facts.text().c_str());
    Invalidate(FALSE);
}

/// Where the field of the layer's name begins: behind the swatch, but for a part of its padding.
int StatusLine::nameStart() const {
    return m_look.px(kPadding) + m_look.px(kSwatch) - m_look.px(2);
}

StatusSpans StatusLine::spans() {
    CRect client;
    GetClientRect(client);
    CClientDC dc(this);
    CFont* former = dc.SelectObject(&m_look.font());
    const StatusSpans spans = spansIn(dc, client.Width());
    dc.SelectObject(former);
    return spans;
}

/// @param dc has the font of the line
StatusSpans StatusLine::spansIn(CDC& dc, int line) const {
    const int padding = 2 * m_look.px(kPadding);
    StatusWidths widths;
    if (!m_facts.layer.empty()) {
        widths.layer = nameStart() + widthOf(dc, m_facts.layer) + padding;
        widths.space = widthOf(dc, m_facts.space) + padding;
    }
    const std::wstring longPlace = placeText(kLongPlace) + L" " + m_facts.unit;
    widths.place = std::max(widthOf(dc, longPlace), widthOf(dc, m_facts.place())) + padding;
    if (!m_facts.references.empty())
        widths.references = widthOf(dc, m_facts.references) + padding;
    return arrangeStatus(line, widths);
}

void StatusLine::drawText(CDC& dc, const StatusSpan& span, const std::wstring& text, COLORREF color, UINT side) const {
    CRect client;
    GetClientRect(client);
    CRect rect(span.left, client.top, span.right, client.bottom);
    rect.DeflateRect(m_look.px(kPadding), 0);
    if (rect.Width() <= 0)
        return;
    // In a field that is as wide as its text an ellipsis would come for one pixel that the letters reach further.
    const UINT end = widthOf(dc, text) > rect.Width() ? DT_END_ELLIPSIS : DT_NOCLIP;
    dc.SetTextColor(color);
    dc.DrawText(text.c_str(), -1, rect, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | end | side);
}

void StatusLine::drawSeparator(CDC& dc, int at) const {
    dc.FillSolidRect(at, m_look.px(4), 1, height() - m_look.px(8), colors::kBarLine);
}

void StatusLine::drawNames(CDC& dc, const StatusSpans& spans) const {
    const int side = m_look.px(kSwatch);
    const CRect swatch(CPoint(m_look.px(kPadding), (height() - side) / 2), CSize(side, side));
    dc.FillSolidRect(swatch, rgbOf(m_facts.layerColor, RGB(255, 255, 255), paletteRgb));
    dc.Draw3dRect(swatch, colors::kBarTextDim, colors::kBarTextDim);
    drawText(dc, {nameStart(), spans.layer.right}, m_facts.layer, colors::kBarText, DT_LEFT);
    drawSeparator(dc, spans.layer.right);
    drawText(dc, spans.space, m_facts.space, colors::kBarText, DT_LEFT);
    drawSeparator(dc, spans.space.right);
}

void StatusLine::drawReferences(CDC& dc, const StatusSpan& span) const {
    drawSeparator(dc, span.left);
    if (m_facts.isReferenceMissing)
        dc.FillSolidRect(span.left + 1, 1, span.right - span.left - 1, height() - 1, colors::kWarning);
    drawText(dc, span, m_facts.references, colors::kBarText, DT_LEFT);
}

void StatusLine::draw(CDC& dc, const CRect& client) const {
    dc.FillSolidRect(client, colors::kBar);
    dc.FillSolidRect(0, 0, client.Width(), 1, colors::kBarLine);
    CFont* former = dc.SelectObject(&m_look.font());
    dc.SetBkMode(TRANSPARENT);
    const StatusSpans spans = spansIn(dc, client.Width());
    if (!spans.layer.isEmpty())
        drawNames(dc, spans);
    drawText(dc, spans.message, m_facts.message, colors::kBarTextDim, DT_LEFT);
    if (!spans.place.isEmpty()) {
        drawSeparator(dc, spans.place.left);
        drawText(dc, spans.place, m_facts.place(), colors::kBarText, DT_RIGHT);
    }
    if (!spans.references.isEmpty())
        drawReferences(dc, spans.references);
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

bool StatusLine::isOnReferences(CPoint point) {
    const StatusSpan span = spans().references;
    return point.x >= span.left && point.x < span.right;
}

void StatusLine::OnLButtonDown(UINT, CPoint point) {
    GetParent()->SetFocus();
    if (m_referencesChosen && isOnReferences(point))
        m_referencesChosen();
}

BOOL StatusLine::OnSetCursor(CWnd*, UINT, UINT) {
    CPoint point;
    ::GetCursorPos(&point);
    ScreenToClient(&point);
    ::SetCursor(::LoadCursor(nullptr, isOnReferences(point) ? IDC_HAND : IDC_ARROW));
    return TRUE;
}

} // namespace workbench
