#include "PaletteField.h"

#include "KelCmColor.h"
#include "base/FrameworkModule.h"
#include "base/Scaling.h"
#include "pickers/PickerIds.h"
#include "pickers/model/ColorChoice.h"

#include <uxtheme.h>

#include <utility>

using pickers::PaletteMove;

namespace framework {
namespace {

constexpr int kLastIndex = 255;
// How thick the lines around a cell are, in dots at 96 an inch: its border, and each of the mark's.
constexpr int kLine = 1;

constexpr std::pair<UINT, PaletteMove> kMoves[] = {
    {VK_LEFT, PaletteMove::left},   {VK_RIGHT, PaletteMove::right},   {VK_UP, PaletteMove::up},
    {VK_DOWN, PaletteMove::down},   {VK_HOME, PaletteMove::rowStart}, {VK_END, PaletteMove::rowEnd},
    {VK_PRIOR, PaletteMove::first}, {VK_NEXT, PaletteMove::last},
};

KelCmColor colorOf(int index) {
    KelCmColor color;
    color.setColorIndex(static_cast<unsigned short>(index));
    return color;
}

/// Where a cell begins. Cells differ by a pixel where the field isn't a multiple of their number, so that they fill it.
int edge(int cell, int length, int cells) {
    return (cell * length + cells - 1) / cells;
}

void fill(HDC dc, const RECT& area, COLORREF color) {
    SetDCBrushColor(dc, color);
    FillRect(dc, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

/// Draws a frame of that thickness, and takes it off the rectangle.
void frame(HDC dc, CRect& area, int thickness, COLORREF color) {
    SetDCBrushColor(dc, color);
    for (int line = 0; line < thickness; ++line) {
        FrameRect(dc, area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
        area.DeflateRect(1, 1);
    }
}

} // namespace

BEGIN_MESSAGE_MAP(PaletteField, CWnd)
ON_WM_PAINT()
ON_WM_ERASEBKGND()
ON_WM_GETDLGCODE()
ON_WM_KEYDOWN()
ON_WM_LBUTTONDOWN()
ON_WM_MOUSEMOVE()
ON_WM_LBUTTONUP()
ON_WM_LBUTTONDBLCLK()
ON_WM_SETFOCUS()
ON_WM_KILLFOCUS()
END_MESSAGE_MAP()

void PaletteField::registerClass() {
    WNDCLASSW description = {};
    description.style = CS_DBLCLKS;
    description.lpfnWndProc = ::DefWindowProcW;
    description.hInstance = frameworkModule();
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.lpszClassName = PALETTE_FIELD_CLASS;
    RegisterClassW(&description); // fails when it is registered already, which does no harm
}

void PaletteField::mark(std::optional<int> index) {
    if (index == m_marked && GetWindowTextLength() > 0)
        return;
    redraw(m_marked);
    m_marked = index;
    redraw(m_marked);
    const std::wstring text = index ? pickers::ColorChoice(colorOf(*index)).describe() : L"No palette color";
    SetWindowText(text.c_str());
    NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, GetSafeHwnd(), OBJID_CLIENT, CHILDID_SELF);
}

CRect PaletteField::cellRect(int index) const {
    const auto cell = pickers::cellOfIndex(index);
    if (!cell)
        return {};
    CRect client;
    GetClientRect(client);
    const int width = client.Width(), height = client.Height();
    return {edge(cell->column, width, pickers::kPaletteColumns), edge(cell->row, height, pickers::kPaletteRows),
            edge(cell->column + 1, width, pickers::kPaletteColumns),
            edge(cell->row + 1, height, pickers::kPaletteRows)};
}

std::optional<int> PaletteField::indexAt(CPoint point) const {
    CRect client;
    GetClientRect(client);
    if (!client.PtInRect(point))
        return std::nullopt;
    return pickers::indexAtCell({static_cast<int>(point.x * pickers::kPaletteColumns / client.Width()),
                                 static_cast<int>(point.y * pickers::kPaletteRows / client.Height())});
}

void PaletteField::choose(std::optional<int> index) {
    if (!index || index == m_marked)
        return;
    mark(index);
    notify(kPaletteMarked);
}

void PaletteField::redraw(std::optional<int> index) {
    if (index)
        InvalidateRect(cellRect(*index), FALSE);
}

void PaletteField::notify(UINT code) {
    GetParent()->SendMessage(WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(), code), reinterpret_cast<LPARAM>(GetSafeHwnd()));
}

void PaletteField::OnPaint() {
    CPaintDC dc(this);
    for (int index = 1; index <= kLastIndex; ++index)
        if (dc.RectVisible(cellRect(index)))
            drawCell(dc, index);
}

BOOL PaletteField::OnEraseBkgnd(CDC* dc) {
    // The page of a tab may have a texture; without themes this does nothing and the page's colour is right.
    CRect client;
    GetClientRect(client);
    FillRect(*dc, client, GetSysColorBrush(COLOR_BTNFACE));
    DrawThemeParentBackground(GetSafeHwnd(), *dc, client);
    return TRUE;
}

void PaletteField::drawCell(HDC dc, int index) const {
    const int line = scaledFor(GetSafeHwnd(), kLine);
    CRect face = cellRect(index);
    const KelCmColor color = colorOf(index);
    frame(dc, face, line, GetSysColor(COLOR_WINDOW));
    CRect border = face;
    frame(dc, border, line, GetSysColor(COLOR_BTNSHADOW)); // or white would be lost on a white page
    fill(dc, border, RGB(color.red(), color.green(), color.blue()));
    if (index == m_marked)
        drawMark(dc, cellRect(index));
    if (index == cursor() && ::GetFocus() == GetSafeHwnd())
        drawCursor(dc, cellRect(index));
}

void PaletteField::drawMark(HDC dc, CRect cell) const {
    // Black and white side by side are seen on every colour.
    const int line = scaledFor(GetSafeHwnd(), kLine);
    frame(dc, cell, line, GetSysColor(COLOR_WINDOWTEXT));
    frame(dc, cell, line, GetSysColor(COLOR_WINDOW));
}

void PaletteField::drawCursor(HDC dc, CRect cell) const {
    const int line = scaledFor(GetSafeHwnd(), kLine);
    cell.DeflateRect(2 * line, 2 * line);
    frame(dc, cell, line, GetSysColor(COLOR_WINDOWTEXT));
    ::DrawFocusRect(dc, cell);
}

UINT PaletteField::OnGetDlgCode() {
    return DLGC_WANTARROWS;
}

void PaletteField::OnKeyDown(UINT key, UINT, UINT) {
    for (const auto& [known, move] : kMoves)
        if (known == key)
            choose(pickers::movedIndex(m_marked.value_or(0), move));
}

void PaletteField::OnLButtonDown(UINT, CPoint point) {
    SetFocus();
    SetCapture();
    choose(indexAt(point));
}

void PaletteField::OnMouseMove(UINT flags, CPoint point) {
    if ((flags & MK_LBUTTON) && ::GetCapture() == GetSafeHwnd())
        choose(indexAt(point));
}

void PaletteField::OnLButtonUp(UINT, CPoint) {
    if (::GetCapture() == GetSafeHwnd())
        ReleaseCapture();
}

void PaletteField::OnLButtonDblClk(UINT, CPoint point) {
    if (indexAt(point) && indexAt(point) == m_marked)
        notify(kPaletteAccepted);
}

void PaletteField::OnSetFocus(CWnd* former) {
    CWnd::OnSetFocus(former);
    redraw(cursor());
}

void PaletteField::OnKillFocus(CWnd* next) {
    CWnd::OnKillFocus(next);
    redraw(cursor());
}

} // namespace framework
