// Renaming a state in the first column, with the platform's label edit.
#include "CLayerStateListCtrl.h"

#include "CResourceScope.h"
#include "FlagForLife.h"
#include "MessageBoxes.h"
#include "StateNames.h"
#include "WorkingDatabase.h"
#include "resource.h"

#include <cwchar>

namespace {

/// An end without a text is an end by Esc, but Wine leaves the text out also when the box is empty.
bool isEmptied(const CEdit* box) {
    return box && box->GetWindowTextLength() == 0 && ::GetKeyState(VK_ESCAPE) >= 0;
}

} // namespace

LRESULT CLayerStateListCtrl::OnEditLabel(WPARAM, LPARAM) {
    // Of two editors each would end when the other takes the focus.
    if (!FinishCellEdit())
        return 0;
    m_severalSelected = GetSelectedCount() > 1; // before it reports the start, the platform selects the row alone
    // The message needs the style. At other times the list does without it: the platform would open the box by itself
    // after a slow second click on a name. The answer 1 to NM_CLICK is to keep it from that, but not every version of
    // the control heeds it, and one that is refused the box has by then selected its row alone.
    ModifyStyle(0, LVS_EDITLABELS);
    const LRESULT box = Default();
    ModifyStyle(LVS_EDITLABELS, 0);
    return box;
}

void CLayerStateListCtrl::OnBeginLabelEdit(NMHDR*, LRESULT* result) {
    if (CEdit* box = GetEditControl())
        box->LimitText(stateNameLimit());
    if (m_severalSelected || GetSelectedCount() != 1)
        return;
    const int row = GetNextItem(-1, LVNI_FOCUSED);
    if (row < 0)
        return;
    m_oldStateName = StateName(row);
    KelDbLayerStateManager* states = workingStates();
    if (states && states->isDependentLayerState(m_oldStateName)) {
        *result = 1;
        MessageBeep(0);
        return;
    }
    *result = 0;
    m_trackedRow = row;
    m_labelEditActive = 1;
}

// An end comes without a text after Esc; on Windows also when nothing was typed, and on Wine also when the box holds
// the old name or nothing. Whether Enter or a loss of the focus ended the edit makes no difference.
void CLayerStateListCtrl::OnEndLabelEdit(NMHDR* header, LRESULT* result) {
    // A message about the name takes the focus from the box. This control has reported the end by then and doesn't do
    // so again, but not every version of it is so careful.
    if (!m_labelEditActive || m_checkingName)
        return;
    LVITEM& item = reinterpret_cast<NMLVDISPINFO*>(header)->item;
    if (!item.pszText && !isEmptied(GetEditControl())) {
        m_labelEditActive = 0;
        return;
    }
    CString name = item.pszText;
    name.Trim();
    *result = 0;
    int renamed = 0;
    {
        const FlagForLife checking(m_checkingName);
        renamed = CheckRename(name);
    }
    if (!renamed) {
        // The box is still closing. The dialog opens it again with its next message.
        m_labelEditRetry = 1;
        return;
    }
    std::wcscpy(item.pszText, name); // never longer than what was there; the control stores it
    SetItemText(m_trackedRow, nameColumn, name);
    m_labelEditActive = 0;
    *result = renamed;
}

int CLayerStateListCtrl::CheckRename(const CString& newName) {
    for (int row = 0; row < GetItemCount(); ++row) {
        if (row == m_trackedRow || GetItemText(row, nameColumn).CompareNoCase(newName) != 0)
            continue;
        CString text;
        text.Format(loadResourceString(IDS_LSTATE_NAME_TAKEN), newName.GetString());
        showFailure(*this, text);
        return 0;
    }
    if (!CheckStateName(newName)) {
        if (CEdit* box = GetEditControl()) {
            box->SetFocus();
            box->SetSel(0, -1);
        }
        return 0;
    }
    KelDbLayerStateManager* states = workingStates();
    if (!states)
        return 0;
    if (states->renameLayerState(m_oldStateName, newName) != Vorn::eOk) {
        showFailure(*this, loadResourceString(IDS_LSTATE_RENAME_FAILED));
        return 0;
    }
    return 1;
}
