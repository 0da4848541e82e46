// Editing a state's description in its cell: which click opens the editor, and what becomes of the text.
#include "CLayerStateListCtrl.h"

#include "WorkingDatabase.h"

#include <utility>

BOOL CLayerStateListCtrl::OnItemChanged(NMHDR* header, LRESULT* result) {
    const auto* change = reinterpret_cast<const NMLISTVIEW*>(header);
    // During a rename the tracked row is the one being renamed, also when a click on another row ends it: Wine selects
    // that row before it reports the end.
    if ((change->uNewState & LVIS_SELECTED) != 0 && change->iItem >= 0 && !m_labelEditActive) {
        // A row that a press of the mouse selects isn't tracked, so the click that selects it opens nothing. The toggle
        // bit counts too, on purpose.
        m_trackedRow = GetKeyState(VK_LBUTTON) == 0 ? change->iItem : -1;
    }
    *result = 0;
    return m_sorting; // else the dialog wants to know as well
}

void CLayerStateListCtrl::OnClick(NMHDR*, LRESULT* result) {
    *result = 0;
    if (!m_cellEditEnabled || m_labelEditActive)
        return;
    SetFocus(); // keeps what is being edited
    LVHITTESTINFO hit = {};
    GetCursorPos(&hit.pt);
    ScreenToClient(&hit.pt);
    const int row = SubItemHitTest(&hit);
    if (row >= 0 && row == m_trackedRow) {
        BeginCellEdit(row, hit.iSubItem);
        *result = 1;
    }
    m_trackedRow = row;
}

bool CLayerStateListCtrl::IsOpen() const {
    return m_inPlaceEdit.m_hWnd && m_inPlaceEdit.IsWindowVisible();
}

void CLayerStateListCtrl::BeginCellEdit(int row, int column) {
    // Still open is only an editor whose text the host has refused. That text, and the cell that it is for, stay.
    if (IsOpen())
        return;
    m_editRow = row;
    m_editColumn = column;
    const CString text = GetItemText(row, column);
    KelDbLayerStateManager* states = workingStates();
    const bool isDependent = states && states->isDependentLayerState(StateName(row));
    m_activeEdit = nullptr;
    if (column != descriptionColumn || isDependent)
        return;
    if (!m_inPlaceEdit.m_hWnd && !m_inPlaceEdit.Create(this))
        return;
    m_inPlaceEdit.SetWindowText(text);
    m_activeEdit = &m_inPlaceEdit;
    CRect cell;
    GetSubItemRect(row, column, LVIR_BOUNDS, cell);
    constexpr int kBeyondCell = 2; // above and below, for the border
    cell.InflateRect(0, kBeyondCell);
    if (cell.IsRectEmpty())
        return;
    m_activeEdit->SetWindowPos(nullptr, cell.left, cell.top, cell.Width(), cell.Height(), SWP_NOREDRAW);
    m_activeEdit->ShowWindow(SW_SHOW);
    m_activeEdit->SetFocus();
    Invalidate();
}

void CLayerStateListCtrl::EndCellEdit(bool cancel) {
    if (cancel) {
        CloseCell();
        return;
    }
    if (!m_activeEdit)
        return;
    CString text;
    m_activeEdit->GetWindowText(text);
    if (KeepDescription(text)) {
        SetItemText(m_editRow, m_editColumn, text);
        CloseCell();
        return;
    }
    // The user can mend the text, or drop it with Esc.
    const HWND focus = ::GetFocus();
    if (focus != m_activeEdit->m_hWnd && !::IsChild(m_activeEdit->m_hWnd, focus))
        m_activeEdit->SetFocus();
}

bool CLayerStateListCtrl::KeepDescription(const CString& text) {
    KelDbLayerStateManager* states = workingStates();
    return states && states->setLayerStateDescription(StateName(m_editRow), text) == Vorn::eOk;
}

void CLayerStateListCtrl::CloseCell() {
    if (IsOpen()) {
        // Hidden first: an editor that isn't seen doesn't report that it loses the focus.
        m_inPlaceEdit.ShowWindow(SW_HIDE);
        SetFocus();
    }
    m_editRow = -1;
    m_editColumn = -1;
    Invalidate();
}

void CLayerStateListCtrl::OnCellEditLeft(NMHDR*, LRESULT* result) {
    EndCellEdit(false);
    *result = 0;
}

void CLayerStateListCtrl::OnCellEditCancelled(NMHDR*, LRESULT* result) {
    EndCellEdit(true);
    *result = 0;
}

void CLayerStateListCtrl::FocusBeforeScroll() {
    // An editor that loses the focus closes, so none stays behind over rows that move.
    if (::GetFocus() != m_hWnd)
        SetFocus();
}

bool CLayerStateListCtrl::FinishCellEdit() {
    if (IsOpen())
        SetFocus();
    return !IsOpen();
}

bool CLayerStateListCtrl::FinishEdits() {
    if (::IsChild(m_hWnd, ::GetFocus()))
        SetFocus();
    return !IsOpen() && !m_labelEditActive;
}

void CLayerStateListCtrl::OnDeleteItem(NMHDR*, LRESULT* result) {
    // Still open is only an editor whose text the host has refused. With this row the editor's own goes or moves, and
    // the text would be kept for another state.
    if (IsOpen())
        EndCellEdit(true);
    *result = 0;
}

void CLayerStateListCtrl::OnHScroll(UINT code, UINT position, CScrollBar* bar) {
    FocusBeforeScroll();
    CCustomListCtrl::OnHScroll(code, position, bar);
}

void CLayerStateListCtrl::OnVScroll(UINT code, UINT position, CScrollBar* bar) {
    FocusBeforeScroll();
    CCustomListCtrl::OnVScroll(code, position, bar);
}

BOOL CLayerStateListCtrl::OnMouseWheel(UINT keys, short turned, CPoint point) {
    FocusBeforeScroll();
    return CCustomListCtrl::OnMouseWheel(keys, turned, point);
}

LRESULT CLayerStateListCtrl::OnMouseHWheel(WPARAM, LPARAM) {
    FocusBeforeScroll();
    return Default();
}
