// Editing by clicks: which rows a click is for, and what it does to the cells of its column. The list control would
// give up a selection of several rows as soon as one of them is pressed, so the selection is noted before the control
// sees the press, and kept while the click lasts.
#include "CEditLayerStateDlg.h"
#include "CResourceScope.h"
#include "CellEdit.h"
#include "GridColumns.h"
#include "HostOwners.h"
#include "KelDbDatabase.h"
#include "KelEditor.h"
#include "LayerRecords.h"
#include "ListRedrawLock.h"
#include "ListSelection.h"
#include "MessageBoxes.h"
#include "OrvUiPickers.h"
#include "PropertyValues.h"
#include "resource.h"

#include <utility>

namespace {

bool isDown(int key) {
    return GetKeyState(key) < 0;
}

} // namespace

BOOL CEditLayerStateDlg::PreTranslateMessage(MSG* message) {
    const bool onGrid = message->hwnd == m_layerGrid.m_hWnd;
    switch (message->message) {
    case WM_KEYDOWN:
        if (message->wParam == L'A' && isDown(VK_CONTROL)) {
            m_layerGrid.SetFocus();
            deselectAllRows(m_layerGrid);
            selectAllRows(m_layerGrid);
            return TRUE;
        }
        break;
    case WM_MOUSEMOVE:
        if (onGrid) {
            showCellTip(message);
            // Over the grid nothing but the cell's own tip speaks.
            EnableToolTips(FALSE);
            SetUseTips(0);
            const BOOL handled = CKelUiDialog::PreTranslateMessage(message);
            SetUseTips(1);
            EnableToolTips(TRUE);
            return handled;
        }
        break;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_RBUTTONDOWN:
    case WM_RBUTTONUP:
    case WM_MBUTTONDOWN:
    case WM_MBUTTONUP:
        if (onGrid && message->message == WM_LBUTTONDOWN)
            noteSelection(*message);
        if (m_cellTip.m_hWnd)
            m_cellTip.RelayEvent(message);
        if (onGrid && message->message == WM_LBUTTONUP) {
            m_keepAtRelease = std::exchange(m_keepSelection, false);
            const BOOL handled = CKelUiDialog::PreTranslateMessage(message);
            m_keepAtRelease = false;
            return handled;
        }
        break;
    }
    return CKelUiDialog::PreTranslateMessage(message);
}

int CEditLayerStateDlg::firstSelectedRow() const {
    return m_layerGrid.GetNextItem(-1, LVNI_SELECTED);
}

std::vector<int> CEditLayerStateDlg::selectedRows() const {
    std::vector<int> rows;
    for (int row = firstSelectedRow(); row >= 0; row = m_layerGrid.GetNextItem(row, LVNI_SELECTED))
        rows.push_back(row);
    return rows;
}

void CEditLayerStateDlg::noteSelection(const MSG& press) {
    m_keepSelection = false;
    m_selectedRows = selectedRows();
    if (m_selectedRows.size() < 2)
        return;
    LVHITTESTINFO hit = {};
    hit.pt = CPoint(press.lParam);
    const int row = m_layerGrid.SubItemHitTest(&hit);
    m_keepSelection = keepsSelection(m_selectedRows, row, hit.iSubItem);
    if (isDown(VK_CONTROL) || isDown(VK_SHIFT))
        return;
    m_layerGrid.SetFocus();
    deselectAllRows(m_layerGrid); // but for the rows that are kept
}

void CEditLayerStateDlg::OnGridItemChanging(NMHDR* header, LRESULT* result) {
    const auto* change = reinterpret_cast<const NMLISTVIEW*>(header);
    const bool loses = (change->uOldState & LVIS_SELECTED) != 0 && (change->uNewState & LVIS_SELECTED) == 0;
    *result = (m_keepSelection || m_keepAtRelease) && (change->uChanged & LVIF_STATE) != 0 && loses;
}

int CEditLayerStateDlg::columnOfMessage() {
    LVHITTESTINFO hit = {};
    hit.pt = CPoint(static_cast<LPARAM>(::GetMessagePos()));
    m_layerGrid.ScreenToClient(&hit.pt);
    m_layerGrid.SubItemHitTest(&hit);
    return hit.iSubItem;
}

void CEditLayerStateDlg::OnGridClick(NMHDR* header, LRESULT* result) {
    *result = 0;
    m_keepSelection = false;
    const auto* click = reinterpret_cast<const NMITEMACTIVATE*>(header);
    if (click->iItem < 0 || click->iSubItem < 0)
        return;
    const int column = columnOfMessage();
    const int first = firstSelectedRow();
    keepRowsOfClick(m_selectedRows, first);
    if (first >= 0)
        editCell(first, column);
}

void CEditLayerStateDlg::editCell(int row, int column) {
    CLayerRcd& record = *recordOf(row);
    switch (cellEditOf(record, column, *m_database)) {
    case CellEdit::none:
        return;
    case CellEdit::refuseFreeze:
        return refuse(IDS_LSTATE_CURRENT_LAYER_NO_FREEZE);
    case CellEdit::toggle:
        return toggle(row, column);
    case CellEdit::pickColor:
        return pickColor(row);
    case CellEdit::pickLinetype:
        return pickLinetype(row);
    case CellEdit::pickLineWeight:
        return pickLineWeight(row);
    case CellEdit::pickPlotStyle:
        return pickPlotStyle(record);
    }
}

void CEditLayerStateDlg::refuse(UINT textId) {
    showFailure(*this, loadResourceString(textId));
}

template <class Change> void CEditLayerStateDlg::changeRows(int first, Change change) {
    change(first, *recordOf(first));
    for (const int row : m_selectedRows)
        if (CLayerRcd* record = recordOf(row)) // rows may have been removed since the press
            change(row, *record);
    m_layerGrid.tellFocusedRowChanged();
}

void CEditLayerStateDlg::toggle(int first, int column) {
    // The cell's text decides, and all rows get one value; they aren't turned one by one.
    const bool value = m_layerGrid.GetItemText(first, column) == flagText(false);
    const ListRedrawLock quiet(m_layerGrid);
    changeRows(first, [&](int row, CLayerRcd& record) {
        setFlag(record, columnKind[column], value);
        m_layerGrid.SetItemText(row, column, flagText(value));
    });
}

void CEditLayerStateDlg::pickColor(int first) {
    KelCmColor color = recordOf(first)->m_color;
    constexpr int kAllTabs = kOrvUiColorPalette | kOrvUiColorTrueColor | kOrvUiColorSystemDialog;
    if (keledSetColorDialogTrueColor(color, false, color, kAllTabs) != kColorChosen)
        return;
    const CString name = color.colorNameForDisplay();
    const ListRedrawLock quiet(m_layerGrid);
    changeRows(first, [&](int row, CLayerRcd& record) {
        setColor(record, color);
        m_layerGrid.SetItemText(row, colorGridColumn, name);
    });
}

void CEditLayerStateDlg::pickLinetype(int first) {
    wchar_t* picked = nullptr;
    KelDbObjectId id;
    if (!keledLinetypeDialog(recordOf(first)->m_linetypeId, false, picked, id))
        return;
    const HostText name(picked);
    const ListRedrawLock quiet(m_layerGrid);
    changeRows(first, [&](int row, CLayerRcd& record) {
        setLinetype(record, id, name.get());
        m_layerGrid.SetItemText(row, linetypeGridColumn, record.m_linetypeName);
    });
}

void CEditLayerStateDlg::pickLineWeight(int first) {
    constexpr int kDefaultLineWeight = -3;
    int weight = kDefaultLineWeight;
    if (keledLineWeightDialog(recordOf(first)->m_lineWeight, false, weight))
        changeRows(first, [weight](int, CLayerRcd& record) { setLineWeight(record, weight); });
    Invalidate();
}

void CEditLayerStateDlg::pickPlotStyle(CLayerRcd& first) {
    wchar_t* picked = nullptr;
    if (keledPlotstyleDialog(first.m_plotStyleName, false, picked)) {
        const HostText name(picked);
        KelDbObjectId id;
        if (lookupPlotStyleId(name.get(), id) == Vorn::eOk && !id.isNull()) {
            setPlotStyle(first, id, name.get());
            for (const int row : m_selectedRows)
                if (CLayerRcd* record = recordOf(row)) {
                    setPlotStyle(*record, id, name.get());
                    record->markModified();
                }
            m_layerGrid.tellFocusedRowChanged();
        }
    }
    Invalidate();
    // Also after a cancel, on purpose: it costs an update that changes nothing.
    first.markModified();
}

void CEditLayerStateDlg::OnGridDoubleClick(NMHDR*, LRESULT* result) {
    *result = 0;
    const int column = columnOfMessage();
    const int row = firstSelectedRow();
    if (row < 0 || column != nameGridColumn)
        return;
    CLayerRcd& record = *recordOf(row);
    switch (currentLayerChange(record)) {
    case CurrentLayerChange::refusedFrozen:
        return refuse(IDS_LSTATE_FROZEN_NOT_CURRENT);
    case CurrentLayerChange::refusedDependent:
        return refuse(IDS_LSTATE_DEPENDENT_NOT_CURRENT);
    case CurrentLayerChange::allowed:
        makeCurrent(m_layers, record);
        m_layerGrid.Invalidate();
        m_layerGrid.tellFocusedRowChanged();
    }
}

void CEditLayerStateDlg::OnDividerDoubleClick(UINT, NMHDR* header, LRESULT* result) {
    const int column = reinterpret_cast<const NMHEADER*>(header)->iItem;
    const auto width = m_columnWidths.find(column);
    if (width != m_columnWidths.end())
        m_layerGrid.SetColumnWidth(column, width->second);
    Invalidate();
    *result = 0;
}
