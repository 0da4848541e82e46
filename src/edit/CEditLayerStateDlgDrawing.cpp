// Drawing the grid's rows, from the records and never from the list's texts. The same pass measures how wide each
// column's content is.
#include "CEditLayerStateDlg.h"
#include "CResourceScope.h"
#include "CellText.h"
#include "ColorSwatch.h"
#include "GridColumns.h"
#include "KelDbDatabase.h"
#include "LineWeightBar.h"
#include "PropertyValues.h"
#include "SavedContext.h"
#include "StateImageNumbers.h"
#include "StateImages.h"
#include "resource.h"

#include <algorithm>

namespace {

constexpr UINT kTextFormat = DT_END_ELLIPSIS | DT_NOPREFIX | DT_SINGLELINE | DT_VCENTER;

// Lengths in pixels of a display at 96 dots an inch.
constexpr int kImageSide = 16;
constexpr int kNameInset = 2;
constexpr int kNarrowestColumn = 16;
constexpr int kSwatchSide = 12;
constexpr int kSwatchInset = 2;
constexpr int kColorTextInset = 22;
constexpr int kTextInset = 2;
constexpr int kTextRightInset = 4;
constexpr int kLinetypeRightInset = 2;
constexpr int kRoomAroundName = 26;
constexpr int kRoomAroundColor = 26;
constexpr int kRoomAroundText = 4;

int textWidth(const CDC& dc, const CString& text) {
    SIZE extent = {};
    ::GetTextExtentPoint32W(dc.m_hDC, text, text.GetLength(), &extent);
    return extent.cx;
}

/// The width that the sample shows, in hundredths of a millimetre.
int shownLineWeight(int lineWeight) {
    constexpr int kDefault = -3;
    return lineWeight == kDefault ? defaultLineWeight() : std::max(lineWeight, 0);
}

// In a column that is too narrow for its insets a rectangle's right edge lies left of its left one, and the system
// would draw between the two.
bool hasRoom(const CRect& rect) {
    return rect.left < rect.right;
}

void drawText(CDC& dc, const CString& text, CRect rect) {
    if (hasRoom(rect))
        dc.DrawText(text, &rect, kTextFormat);
}

void fill(CDC& dc, const CRect& rect, int color) {
    if (hasRoom(rect))
        ::FillRect(dc.m_hDC, &rect, ::GetSysColorBrush(color));
}

} // namespace

/// A cell as it is drawn.
struct CEditLayerStateDlg::Cell {
    CDC& dc;
    const CLayerRcd& record;
    int column;
    int x; ///< its left edge, in coordinates of the device context
    int y; ///< one pixel above the row
    int width;
    int bottom; ///< the row's
};

int CEditLayerStateDlg::scaled(int pixels) const {
    return ::MulDiv(pixels, static_cast<int>(::GetDpiForWindow(m_hWnd)), USER_DEFAULT_SCREEN_DPI);
}

void CEditLayerStateDlg::OnDrawItem(int control, LPDRAWITEMSTRUCT item) {
    if (control != IDC_LAYER_GRID) {
        CKelUiDialog::OnDrawItem(control, item);
        return;
    }
    const int row = static_cast<int>(item->itemID);
    const CLayerRcd* record = row >= 0 && item->hDC ? recordOf(row) : nullptr;
    if (!record)
        return;
    CDC& dc = *CDC::FromHandle(item->hDC);
    const SavedContext saved(dc);
    CRect bounds;
    m_layerGrid.GetItemRect(row, &bounds, LVIR_BOUNDS);
    // The item's rectangle may reach out of the row, where nobody would clear what is drawn.
    ::IntersectClipRect(item->hDC, bounds.left, bounds.top, bounds.right, bounds.bottom);
    fill(dc, bounds, COLOR_WINDOW);
    // The list hands a selected row over in the colours of the selection, which only the name is to show.
    dc.SetTextColor(::GetSysColor(COLOR_WINDOWTEXT));
    dc.SetBkColor(::GetSysColor(COLOR_WINDOW));
    drawName(dc, *item);
    int x = item->rcItem.left + m_layerGrid.GetColumnWidth(nameGridColumn);
    for (int column = nameGridColumn + 1; column < gridColumnCount; ++column) {
        const int width = m_layerGrid.GetColumnWidth(column);
        const Cell cell = {dc, *record, column, x, item->rcItem.top - 1, width, item->rcItem.bottom};
        noteWidth(m_columnWidths, column, width < scaled(kNarrowestColumn) ? width : drawCell(cell));
        noteNameWidth(m_columnWidths, textWidth(dc, record->m_name) + scaled(kRoomAroundName));
        x += m_layerGrid.GetColumnWidth(column);
    }
}

void CEditLayerStateDlg::drawName(CDC& dc, const DRAWITEMSTRUCT& item) {
    const int row = static_cast<int>(item.itemID);
    const CRect place = item.rcItem;
    m_gridImages.draw(dc, recordOf(row)->m_isCurrent ? kCurrentRowMarkImage : kRowMarkImage, place.TopLeft());
    const CRect name(place.left + scaled(kImageSide), place.top + scaled(kNameInset),
                     place.left + m_layerGrid.GetColumnWidth(nameGridColumn) - scaled(kNameInset), place.bottom);
    const SavedContext saved(dc);
    // The selection shows in the name alone.
    const bool selected =
        (item.itemState & ODS_SELECTED) != 0 && (item.itemAction & (ODA_DRAWENTIRE | ODA_SELECT)) != 0;
    fill(dc, name, selected ? COLOR_HIGHLIGHT : COLOR_WINDOW);
    if (selected) {
        dc.SetTextColor(::GetSysColor(COLOR_HIGHLIGHTTEXT));
        dc.SetBkColor(::GetSysColor(COLOR_HIGHLIGHT));
    }
    drawText(dc, L"  " + m_layerGrid.GetItemText(row, nameGridColumn), name);
}

int CEditLayerStateDlg::drawCell(const Cell& cell) {
    switch (cell.column) {
    case colorGridColumn:
        return drawColor(cell);
    case linetypeGridColumn:
        drawText(cell.dc, cell.record.m_linetypeName,
                 CRect(cell.x + scaled(kTextInset), cell.y + scaled(kTextInset),
                       cell.x + cell.width - scaled(kLinetypeRightInset), cell.bottom));
        return textWidth(cell.dc, cell.record.m_linetypeName) + scaled(kRoomAroundText);
    case lineWeightGridColumn:
        return drawLineWeight(cell);
    case plotStyleGridColumn:
        return drawPlotStyle(cell);
    default: {
        const int kind = columnKind[cell.column];
        const int image = stateImageIndex(kind, cell.record.*flagOfKind(kind), m_database->tilemode());
        m_gridImages.draw(cell.dc, image, CPoint(cell.x, cell.y));
        return scaled(kImageSide);
    }
    }
}

int CEditLayerStateDlg::drawColor(const Cell& cell) {
    CBitmap swatch; // before the context, which must let go of it first
    CDC memory;
    if (!memory.CreateCompatibleDC(&cell.dc))
        return cell.width;
    if (makeColorSwatch(swatch, cell.record.m_color, &cell.dc)) {
        const SavedContext saved(memory);
        memory.SelectObject(&swatch);
        const int side = scaled(kSwatchSide);
        const CPoint corner(cell.x + scaled(kSwatchInset), cell.y + scaled(kSwatchInset));
        cell.dc.StretchBlt(corner.x, corner.y, side, side, &memory, 0, 0, kSwatchSide, kSwatchSide, SRCCOPY);
        // The colour once more without the border, which is as thick on each side then, at a scaling of 150 % too.
        const int border = side / kSwatchSide;
        cell.dc.StretchBlt(corner.x + border, corner.y + border, side - 2 * border, side - 2 * border, &memory, 1, 1,
                           kSwatchSide - 2, kSwatchSide - 2, SRCCOPY);
    }
    const CString name = cell.record.m_color.colorNameForDisplay();
    drawText(
        cell.dc, name,
        CRect(cell.x + scaled(kColorTextInset), cell.y, cell.x + cell.width - scaled(kTextRightInset), cell.bottom));
    return textWidth(cell.dc, name) + scaled(kRoomAroundColor);
}

int CEditLayerStateDlg::drawLineWeight(const Cell& cell) {
    CRect text(cell.x + scaled(kTextInset), cell.y + scaled(kTextInset), cell.x + cell.width - scaled(kTextRightInset),
               cell.bottom);
    CString label;
    lineWeightText(cell.record.m_lineWeight, label);
    CRect box = text;
    box.right = box.left + text.Height();
    text.left = box.right + 1;
    box.DeflateRect(1, 1);
    const BarPlace place = placeBar(scaled(barThickness(shownLineWeight(cell.record.m_lineWeight))), box.Height());
    const CRect bar(box.left, box.top + place.top, box.right, box.top + place.bottom);
    fill(cell.dc, bar, COLOR_WINDOWTEXT);
    drawText(cell.dc, label, text);
    return textWidth(cell.dc, label) + text.left - cell.x + scaled(kRoomAroundText);
}

int CEditLayerStateDlg::drawPlotStyle(const Cell& cell) {
    const CRect place(cell.x + scaled(kTextInset), cell.y + scaled(kTextInset),
                      cell.x + cell.width - scaled(kTextRightInset), cell.bottom);
    CString text = cell.record.m_plotStyleName;
    if (m_database->plotStyleMode()) {
        text = colorStyleText(cell.record, loadResourceString(IDS_LSTATE_COLOR_STYLE));
        const COLORREF before = cell.dc.SetTextColor(::GetSysColor(COLOR_GRAYTEXT));
        drawText(cell.dc, text, place);
        cell.dc.SetTextColor(before);
    } else {
        drawText(cell.dc, text, place);
    }
    return textWidth(cell.dc, text) + place.left - cell.x + scaled(kRoomAroundText);
}
