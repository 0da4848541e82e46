// The edit dialog's tips: what a column and a button are for, and the whole text of a cell that is cut off.
#include "CEditLayerStateDlg.h"
#include "CResourceScope.h"
#include "CellText.h"
#include "GridColumns.h"
#include "HostOwners.h"
#include "resource.h"

namespace {

/// The cell that the pointer was over last; one for the whole process.
int lastRow = -1;
int lastColumn = -1;

/// Tools of the grid have the number of their column, those of the buttons come behind.
constexpr INT_PTR kButtonTools = gridColumnCount;
constexpr INT_PTR kNoTool = -1;

} // namespace

bool CEditLayerStateDlg::gridCellAt(CPoint point, int& row, int& column, CRect& columnRect) const {
    const int rows = m_layerGrid.GetItemCount();
    const int top = m_layerGrid.GetTopIndex();
    const int behindPage = top + m_layerGrid.GetCountPerPage();
    CRect bounds;
    row = -1;
    for (int each = top; each < behindPage && each < rows; ++each) {
        m_layerGrid.GetItemRect(each, &bounds, LVIR_BOUNDS);
        if (bounds.top > point.y)
            break;
        if (bounds.PtInRect(point)) {
            row = each;
            break;
        }
    }
    if (row < 0)
        return false;
    CRect client;
    m_layerGrid.GetClientRect(&client);
    int right = -::GetScrollPos(m_layerGrid.m_hWnd, SB_HORZ);
    int widthsBefore = 0;
    for (column = 0; column < gridColumnCount && right < client.right; ++column) {
        const int width = m_layerGrid.GetColumnWidth(column);
        right += width;
        if (right > point.x) {
            const int left = std::max(0L, static_cast<LONG>(widthsBefore) + bounds.left);
            constexpr int kFarDown = 20000;
            columnRect.SetRect(left, 0, left + width, kFarDown);
            return true;
        }
        widthsBefore += width;
    }
    return false;
}

INT_PTR CEditLayerStateDlg::OnToolHitTest(CPoint point, TOOLINFO* tool) const {
    int row = -1;
    int column = -1;
    CRect rect;
    // The dialog's point is used as if it were the grid's; kept on purpose.
    if (gridCellAt(point, row, column, rect))
        return fillTool(tool, m_layerGrid.m_hWnd, rect, loadResourceString(kGridColumns[column].headingId), column);
    ClientToScreen(&point);
    const HWND under = ::WindowFromPoint(point);
    INT_PTR id = kButtonTools;
    for (const auto& [button, textId] : {std::pair{IDC_REMOVE_LAYERS, IDS_LSTATE_REMOVE_LAYERS_TIP},
                                         std::pair{IDC_ADD_LAYERS, IDS_LSTATE_ADD_LAYERS_TIP}}) {
        if (under && under == ::GetDlgItem(m_hWnd, button)) {
            ::GetClientRect(under, &rect);
            return fillTool(tool, under, rect, loadResourceString(static_cast<UINT>(textId)), id);
        }
        ++id;
    }
    return kNoTool;
}

INT_PTR CEditLayerStateDlg::fillTool(TOOLINFO* tool, HWND window, const CRect& rect, const CString& text,
                                     INT_PTR id) const {
    if (tool) {
        tool->hwnd = window;
        tool->rect = rect;
        tool->uId = static_cast<UINT_PTR>(id);
        tool->uFlags |= TTF_ALWAYSTIP;
        tool->lpszText = runtimeCopy(text).release(); // the window tip frees it with the runtime library's free
    }
    return id;
}

bool CEditLayerStateDlg::cellTipText(CPoint screen, CString& text) {
    int row = -1;
    int column = -1;
    m_layerGrid.GetItemAtPoint(screen, row, column);
    if (row < 0 || column < 0)
        return false;
    if (!isCutOff(m_columnWidths, column, m_layerGrid.GetColumnWidth(column)))
        return false;
    text = cellText(*recordOf(row), column, loadResourceString(IDS_LSTATE_COLOR_STYLE));
    return true;
}

BOOL CEditLayerStateDlg::OnTipText(UINT, NMHDR* header, LRESULT* result) {
    CPoint cursor;
    GetCursorPos(&cursor);
    const HWND under = ::WindowFromPoint(cursor);
    CString text;
    if (under && under == ::GetDlgItem(m_hWnd, IDC_REMOVE_LAYERS))
        text = loadResourceString(IDS_LSTATE_REMOVE_LAYERS_TIP);
    else if (under && under == ::GetDlgItem(m_hWnd, IDC_ADD_LAYERS))
        text = loadResourceString(IDS_LSTATE_ADD_LAYERS_TIP);
    else if (under != m_layerGrid.m_hWnd || !cellTipText(cursor, text))
        return FALSE;
    auto& info = *reinterpret_cast<NMTTDISPINFOW*>(header);
    copyTipText(text, info.szText, static_cast<int>(std::size(info.szText)));
    *result = 0;
    return TRUE;
}

void CEditLayerStateDlg::showCellTip(MSG* message) {
    if (!m_cellTip.m_hWnd)
        return;
    if (m_lastMousePos == CPoint(message->pt)) {
        m_cellTip.RelayEvent(message);
        return;
    }
    const int rowBefore = lastRow;
    const int columnBefore = lastColumn;
    CPoint point(message->pt);
    m_layerGrid.GetItemAtPoint(point, lastRow, lastColumn);
    CString text;
    m_cellTip.GetText(text, &m_layerGrid, 0);
    const bool anotherCell = lastRow != rowBefore || lastColumn != columnBefore;
    if (text.IsEmpty() || anotherCell) {
        m_cellTip.Pop();
        m_cellTip.Update();
    }
    if (!text.IsEmpty())
        m_cellTip.RelayEvent(message);
    m_lastMousePos = message->pt;
}
