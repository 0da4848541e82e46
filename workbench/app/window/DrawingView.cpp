#include "DrawingView.h"

#include "PicturePainter.h"

#include <cmath>

namespace workbench {

namespace {

// Around all of a drawing, at 96 dots per inch.
constexpr int kMargin = 24;
constexpr double kZoomStep = 1.25;

Point toPoint(CPoint point) {
    return {static_cast<double>(point.x), static_cast<double>(point.y)};
}

} // namespace

BEGIN_MESSAGE_MAP(DrawingView, CWnd)
ON_WM_PAINT()
ON_WM_ERASEBKGND()
ON_WM_SIZE()
ON_WM_MOUSEWHEEL()
ON_WM_MBUTTONDOWN()
ON_WM_MBUTTONUP()
ON_WM_MBUTTONDBLCLK()
ON_WM_CAPTURECHANGED()
ON_WM_MOUSEMOVE()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONDBLCLK()
ON_WM_SETCURSOR()
END_MESSAGE_MAP()

DrawingView::DrawingView(WindowLook& look, std::function<const zdr::Drawing*()> drawing)
    : m_look(look), m_drawing(std::move(drawing)) {}

BOOL DrawingView::createIn(CWnd& parent, UINT id) {
    const LPCTSTR windowClass = AfxRegisterWndClass(CS_DBLCLKS);
    return CreateEx(0, windowClass, L"Drawing", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, CRect(0, 0, 0, 0), &parent,
                    id);
}

void DrawingView::drawingReplaced() {
    m_views.clear();
    regenerate();
}

void DrawingView::regenerate() {
    m_upToDate = false;
    Invalidate(FALSE);
}

void DrawingView::zoomExtents() {
    const zdr::Drawing* drawing = m_drawing();
    if (!drawing)
        return;
    m_views.erase(drawing->activeLayout);
    regenerate();
}

void DrawingView::zoomBy(double factor) {
    view().zoom(factor, {m_size.cx / 2.0, m_size.cy / 2.0});
    regenerate();
}

void DrawingView::panBy(double right, double down) {
    view().pan(right * m_size.cx, down * m_size.cy);
    regenerate();
}

const zdr::Layout* DrawingView::layout(const zdr::Drawing& drawing) const {
    return drawing.activeLayout ? &drawing.layouts[*drawing.activeLayout] : nullptr;
}

ViewTransform& DrawingView::view() {
    const zdr::Drawing* drawing = m_drawing();
    const auto space = drawing ? drawing->activeLayout : std::nullopt;
    const auto found = m_views.find(space);
    if (found != m_views.end())
        return found->second;
    Rect extents;
    if (drawing)
        extents = layout(*drawing) ? layoutExtents(*layout(*drawing)) : modelExtents(*drawing);
    return m_views[space] = ViewTransform::fitting(extents, m_size.cx, m_size.cy, m_look.px(kMargin));
}

Picture DrawingView::picture(const zdr::Drawing& drawing) {
    Screen screen;
    screen.width = m_size.cx;
    screen.height = m_size.cy;
    screen.pixelsPerMillimetre = m_look.dpi() / 25.4;
    screen.linetypeScale = drawing.linetypeScale;
    screen.modelForeground = colors::kModelForeground;
    screen.paperForeground = colors::kPaperForeground;
    screen.paletteRgb = paletteRgb;
    const zdr::Layout* sheet = layout(drawing);
    return sheet ? layoutPicture(drawing, *sheet, view(), screen) : modelPicture(drawing, view(), screen);
}

void DrawingView::render(CDC& dc, const CRect& client) {
    const zdr::Drawing* drawing = m_drawing();
    paintPicture(dc, drawing ? picture(*drawing) : Picture{}, client, m_look.dpi());
    m_upToDate = true;
}

void DrawingView::OnPaint() {
    CPaintDC dc(this);
    CRect client;
    GetClientRect(client);
    if (m_buffer.fit(dc, client.Size()) || !m_upToDate)
        render(m_buffer.dc(), client);
    m_buffer.show(dc);
}

BOOL DrawingView::OnEraseBkgnd(CDC*) {
    return TRUE; // the painting covers everything
}

void DrawingView::OnSize(UINT type, int width, int height) {
    CWnd::OnSize(type, width, height);
    const bool hadSize = m_size.cx > 0 && m_size.cy > 0;
    if (width <= 0 || height <= 0)
        return;
    if (hadSize)
        for (auto& [space, transform] : m_views)
            transform.resize(width - m_size.cx, height - m_size.cy);
    else
        m_views.clear();
    m_size = {width, height};
    regenerate();
}

BOOL DrawingView::OnMouseWheel(UINT, short delta, CPoint screen) {
    ScreenToClient(&screen);
    view().zoom(std::pow(kZoomStep, delta / static_cast<double>(WHEEL_DELTA)), toPoint(screen));
    regenerate();
    return TRUE;
}

void DrawingView::OnMButtonDown(UINT, CPoint point) {
    m_dragged = point;
    SetCapture();
    ::SetCursor(::LoadCursor(nullptr, IDC_SIZEALL));
}

void DrawingView::OnMButtonUp(UINT, CPoint) {
    m_dragged.reset();
    ReleaseCapture();
}

void DrawingView::OnMButtonDblClk(UINT, CPoint) {
    zoomExtents();
}

void DrawingView::OnCaptureChanged(CWnd*) {
    m_dragged.reset();
}

void DrawingView::OnMouseMove(UINT flags, CPoint point) {
    // The button may have been released where this window didn't see it.
    if (!(flags & MK_MBUTTON))
        m_dragged.reset();
    if (!m_dragged)
        return;
    view().pan(point.x - m_dragged->x, point.y - m_dragged->y);
    m_dragged = point;
    regenerate();
}

void DrawingView::OnLButtonDown(UINT, CPoint) {
    // Typing goes on in the command line, which the main window sees to.
    GetParent()->SetFocus();
}

void DrawingView::OnLButtonDblClk(UINT, CPoint point) {
    const zdr::Drawing* drawing = m_drawing();
    const zdr::Layout* sheet = drawing ? layout(*drawing) : nullptr;
    if (!sheet || !m_viewportChosen)
        return;
    const zdr::Viewport* viewport = viewportAt(*sheet, view().toPlane(toPoint(point)));
    m_viewportChosen(viewport ? viewport->number : 0);
}

BOOL DrawingView::OnSetCursor(CWnd*, UINT, UINT) {
    ::SetCursor(::LoadCursor(nullptr, m_dragged ? IDC_SIZEALL : IDC_CROSS));
    return TRUE;
}

} // namespace workbench
