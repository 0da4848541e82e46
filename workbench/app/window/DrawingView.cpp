#include "DrawingView.h"

#include "PicturePainter.h"
#include "PointText.h"

#include <cmath>
#include <utility>

namespace workbench {

namespace {

// Around all of a drawing, at 96 dots per inch.
constexpr int kMargin = 24;
constexpr double kZoomStep = 1.25;
// Around the number of a viewport, at 96 dots per inch.
constexpr int kSignPadding = 4;

Point toPoint(CPoint point) {
    return {static_cast<double>(point.x), static_cast<double>(point.y)};
}

/// The pixel at a point; one far outside the window is moved nearer, where GDI's numbers reach.
CPoint pixelOf(Point point) {
    const auto bounded = [](double value) {
        return static_cast<int>(std::lround(std::clamp(value, -30000.0, 30000.0)));
    };
    return {bounded(point.x), bounded(point.y)};
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
ON_WM_MOUSELEAVE()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
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
    endPick();
    regenerate();
}

void DrawingView::regenerate() {
    m_upToDate = false;
    Invalidate(FALSE);
    moveNumberSign();
}

void DrawingView::viewMoved() {
    regenerate();
    if (m_pointerMoved)
        m_pointerMoved();
}

void DrawingView::show(const ViewTransform& next, bool byHand) {
    spaceView().show(next, byHand);
    viewMoved();
}

void DrawingView::zoomExtents() {
    show(extentsView(), false);
}

bool DrawingView::zoomBy(double factor) {
    ViewTransform next = view();
    next.zoom(factor, {m_size.cx / 2.0, m_size.cy / 2.0});
    if (next.scale() == view().scale())
        return false;
    show(next, false);
    return true;
}

bool DrawingView::zoomTo(const Rect& rect) {
    const std::optional<ViewTransform> next = view().showing(rect, m_size.cx, m_size.cy);
    if (next)
        show(*next, false);
    return next.has_value();
}

bool DrawingView::zoomPrevious() {
    const bool done = spaceView().showPrevious();
    viewMoved();
    return done;
}

void DrawingView::moveBy(Point displacement) {
    ViewTransform next = view();
    next.pan(displacement.x * next.scale(), -displacement.y * next.scale());
    show(next, false);
}

void DrawingView::panBy(double right, double down) {
    ViewTransform next = view();
    next.pan(right * m_size.cx, down * m_size.cy);
    show(next, true);
}

const zdr::Layout* DrawingView::layout(const zdr::Drawing& drawing) const {
    return drawing.activeLayout ? &drawing.layouts[*drawing.activeLayout] : nullptr;
}

SpaceView& DrawingView::spaceView() {
    const zdr::Drawing* drawing = m_drawing();
    const auto space = drawing ? drawing->activeLayout : std::nullopt;
    const auto found = m_views.find(space);
    return found != m_views.end() ? found->second : m_views.emplace(space, extentsView()).first->second;
}

ViewTransform DrawingView::extentsView() const {
    const zdr::Drawing* drawing = m_drawing();
    Rect extents;
    if (drawing)
        extents = layout(*drawing) ? layoutExtents(*layout(*drawing)) : modelExtents(*drawing);
    return ViewTransform::fitting(extents, m_size.cx, m_size.cy, m_look.px(kMargin));
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
    paintNumberSign(dc);
    drawBand(dc);
}

/// The rubber band from the first point of two to the pointer.
void DrawingView::drawBand(CDC& dc) {
    const std::optional<Point> first = m_pick.first();
    if (!first)
        return;
    const CPoint corner = pixelOf(view().toScreen(*first));
    CPen pen(PS_SOLID, m_look.px(1), colors::kAccent);
    const int saved = dc.SaveDC();
    dc.SelectObject(&pen);
    dc.SelectStockObject(NULL_BRUSH);
    const POINT line[] = {corner, m_pointer};
    if (m_pickedFor == PickedFor::Window)
        dc.Rectangle(CRect(corner, m_pointer));
    else
        dc.Polyline(line, 2);
    dc.RestoreDC(saved);
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
    viewMoved();
}

BOOL DrawingView::OnMouseWheel(UINT, short delta, CPoint screen) {
    ScreenToClient(&screen);
    const Point pixel = toPoint(screen);
    const double factor = std::pow(kZoomStep, delta / static_cast<double>(WHEEL_DELTA));
    const zdr::Drawing* drawing = m_drawing();
    const zdr::Viewport* viewport = drawing ? currentViewportUnder(*drawing, view(), pixel) : nullptr;
    const auto shown = viewport ? zoomed(*viewport, view(), factor, pixel) : std::nullopt;
    if (shown && m_viewportZoomed) {
        m_viewportZoomed(viewport->handle, *shown);
        return TRUE;
    }
    ViewTransform next = view();
    next.zoom(factor, pixel);
    show(next, true);
    return TRUE;
}

void DrawingView::OnMButtonDown(UINT, CPoint point) {
    SetCapture(); // which ends what holds the mouse already
    m_dragged = point;
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
    m_pressed.reset();
}

std::optional<PointerPlace> DrawingView::pointer() {
    const zdr::Drawing* drawing = m_drawing();
    return drawing && m_over ? std::optional(placeAt(*drawing, view(), toPoint(*m_over))) : std::nullopt;
}

void DrawingView::followPointer() {
    moveNumberSign();
    if (m_pointerMoved)
        m_pointerMoved();
}

void DrawingView::moveNumberSign() {
    const std::optional<NumberSign> former = std::exchange(m_sign, numberSign());
    for (const auto& sign : {former, m_sign})
        if (sign)
            InvalidateRect(sign->rect, FALSE);
}

std::optional<DrawingView::NumberSign> DrawingView::numberSign() {
    const zdr::Drawing* drawing = m_drawing();
    const zdr::Viewport* viewport = drawing && m_over ? viewportUnder(*drawing, view(), toPoint(*m_over)) : nullptr;
    if (!viewport)
        return std::nullopt;
    NumberSign sign;
    sign.text = L"Viewport " + std::to_wstring(viewport->number);
    sign.isCurrent = drawing->currentViewport == viewport->handle;
    CClientDC dc(this);
    CFont* former = dc.SelectObject(&m_look.font());
    const CSize size = dc.GetTextExtent(sign.text.c_str(), static_cast<int>(sign.text.size()));
    dc.SelectObject(former);
    const Rect window{0, 0, static_cast<double>(m_size.cx), static_cast<double>(m_size.cy)};
    const Rect box = numberBox(*viewport, view(), window, size.cx + 2 * m_look.px(kSignPadding),
                               size.cy + 2 * m_look.px(kSignPadding));
    const CPoint corner(static_cast<int>(std::lround(box.left)), static_cast<int>(std::lround(box.bottom)));
    sign.rect = CRect(corner, CSize(static_cast<int>(box.width()), static_cast<int>(box.height())));
    return sign;
}

void DrawingView::paintNumberSign(CDC& dc) {
    if (!m_sign)
        return;
    dc.FillSolidRect(m_sign->rect, m_sign->isCurrent ? colors::kAccent : colors::kBarTextDim);
    CFont* former = dc.SelectObject(&m_look.font());
    dc.SetBkMode(TRANSPARENT);
    dc.SetTextColor(colors::kPaper);
    dc.DrawText(m_sign->text.c_str(), -1, m_sign->rect,
                DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_NOCLIP);
    dc.SelectObject(former);
}

void DrawingView::OnMouseLeave() {
    m_over.reset();
    followPointer();
}

void DrawingView::OnMouseMove(UINT flags, CPoint point) {
    m_pointer = point;
    if (m_pick.first())
        Invalidate(FALSE);
    // When the pointer has left since this message was sent, the system may tell nothing about it.
    CPoint now;
    ::GetCursorPos(&now);
    const bool isOver = CRect(CPoint(0, 0), m_size).PtInRect(point) && ::WindowFromPoint(now) == m_hWnd;
    m_over = isOver ? std::optional(point) : std::nullopt;
    if (isOver) {
        TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, m_hWnd, 0};
        ::TrackMouseEvent(&track);
    }
    followPointer();
    // The button may have been released where this window didn't see it.
    if (!(flags & MK_MBUTTON))
        m_dragged.reset();
    if (!m_dragged)
        return;
    ViewTransform next = view();
    next.pan(point.x - m_dragged->x, point.y - m_dragged->y);
    m_dragged = point;
    show(next, true);
}

void DrawingView::beginPick(PickedFor purpose) {
    m_pickedFor = purpose;
    m_pick.begin();
}

bool DrawingView::endPick() {
    const bool wasPicking = m_pick.isActive();
    m_pick.end();
    if (m_pressed)
        ReleaseCapture(); // OnCaptureChanged forgets the press
    if (wasPicking)
        Invalidate(FALSE);
    return wasPicking;
}

/// A pixel as a point of the space on view, with no more decimals than the pixel is worth.
Point DrawingView::planePoint(CPoint pixel) {
    constexpr double kPart = 0.01; // of a pixel
    return roundedPoint(view().toPlane(toPoint(pixel)), kPart / view().scale());
}

void DrawingView::takePoint(Point point) {
    const auto points = m_pick.take(point);
    Invalidate(FALSE);
    if (points)
        m_picked(m_pickedFor, points->first, points->second);
}

void DrawingView::OnLButtonDown(UINT, CPoint point) {
    // Typing goes on in the command line, which the main window sees to.
    GetParent()->SetFocus();
    if (!m_pick.isActive())
        return;
    m_pointer = point;
    if (!m_pick.first()) {
        SetCapture();
        m_pressed = point;
    }
    takePoint(planePoint(point));
}

void DrawingView::OnLButtonUp(UINT, CPoint point) {
    if (!m_pressed)
        return;
    const CSize moved = point - *m_pressed;
    ReleaseCapture();
    // Pressed at the one point and released at the other: a drag gives both.
    if (std::abs(moved.cx) > ::GetSystemMetrics(SM_CXDRAG) || std::abs(moved.cy) > ::GetSystemMetrics(SM_CYDRAG))
        takePoint(planePoint(point));
}

void DrawingView::OnLButtonDblClk(UINT flags, CPoint point) {
    if (m_pick.isActive()) {
        OnLButtonDown(flags, point);
        return;
    }
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
