// The manager's actions on states: new, update, edit, rename, delete. Each goes to the host at once.
#include "CLayerStatesRestoreDlg.h"

#include "CEditLayerStateDlg.h"
#include "CLayerStatesDeleteDlg.h"
#include "CLayerStatesSaveDlg.h"
#include "CResourceScope.h"
#include "KelEditor.h"
#include "ListRedrawLock.h"
#include "MessageBoxes.h"
#include "PropertyTable.h"
#include "StateDescription.h"
#include "WorkingDatabase.h"

void CLayerStatesRestoreDlg::OnNew() {
    if (m_stateList.m_labelEditActive)
        return;
    CLayerStatesSaveDlg dialog(this, false);
    if (!workingStates() || dialog.DoModal() != IDOK)
        return;
    repopulate();
    if (m_stateList.GetSelectedCount() == 0)
        selectState(dialog.GetStateName());
}

void CLayerStatesRestoreDlg::OnUpdate() {
    const int row = m_stateList.FirstSelectedRow();
    if (row < 0)
        return;
    const CString name = m_stateList.StateName(row);
    KelDbLayerStateManager* states = workingStates();
    if (!states)
        return;
    CString description;
    if (states->hasLayerState(name)) {
        if (!confirmUpdate(name))
            return;
        description = stateDescription(*states, name).value_or(CString());
        if (states->deleteLayerState(name) != Vorn::eOk) {
            tellNotSaved();
            return;
        }
    }
    // With the panel closed too, the boxes hold what they were last given.
    m_stateMask = maskFromBoxes([this](int control) { return m_controls.isTicked(control); });
    const KelDbObjectId viewport = keledGetCurViewportObjectId();
    if (states->saveLayerState(name, m_stateMask, viewport) == Vorn::eOk)
        showComparison(*states, row, name, viewport);
    else
        tellNotSaved(); // the old state is gone all the same, and the handler goes on; kept on purpose
    if (states->setLayerStateDescription(name, description) != Vorn::eOk)
        tellNotSaved();
    m_stateName = name;
}

bool CLayerStatesRestoreDlg::confirmUpdate(const wchar_t* name) {
    CString question;
    question.Format(loadResourceString(IDS_LSTATE_CONFIRM_UPDATE), name);
    return askYesNo(*this, question);
}

void CLayerStatesRestoreDlg::tellNotSaved() {
    showFailure(*this, loadResourceString(IDS_LSTATE_NOT_SAVED));
}

void CLayerStatesRestoreDlg::showComparison(KelDbLayerStateManager& states, int row, const wchar_t* name,
                                            const KelDbObjectId& viewport) {
    const bool same = states.compareLayerStateToDb(name, viewport);
    m_stateList.SetItemText(row, sameColumn, loadResourceString(same ? IDS_LSTATE_YES : IDS_LSTATE_NO));
}

void CLayerStatesRestoreDlg::OnEdit() {
    if (m_stateList.m_labelEditActive || m_stateList.GetItemCount() == 0 || m_stateList.GetSelectedCount() != 1)
        return;
    const int row = m_stateList.FirstSelectedRow();
    if (row < 0)
        return;
    const CString name = m_stateList.StateName(row);
    CEditLayerStateDlg dialog(this);
    dialog.m_stateName = name;
    if (dialog.DoModal() != IDOK)
        return;
    const KelDbObjectId viewport = keledGetCurViewportObjectId();
    if (KelDbLayerStateManager* states = workingStates())
        showComparison(*states, row, name, viewport);
}

void CLayerStatesRestoreDlg::OnRename() {
    if (m_stateList.m_labelEditActive)
        return;
    m_stateList.SetFocus();
    if (m_stateList.GetSelectedCount() == 1)
        m_stateList.EditLabel(m_stateList.GetSelectionMark());
}

void CLayerStatesRestoreDlg::OnDelete() {
    if (m_stateList.m_labelEditActive || m_stateList.GetItemCount() == 0)
        return;
    const int first = m_stateList.FirstSelectedRow();
    if (first < 0)
        return;
    // One state gets a plain question; several get a dialog each, until the user says that the rest is to go too.
    const bool single = m_stateList.GetSelectedCount() == 1;
    if (single && !askYesNo(*this, loadResourceString(IDS_LSTATE_CONFIRM_DELETE)))
        return;
    deleteSelected(!single);
    selectAfterDelete(first);
}

void CLayerStatesRestoreDlg::deleteSelected(bool ask) {
    std::optional<ListRedrawLock> quiet; // not while the user is asked, who sees the list then
    int row = m_stateList.FirstSelectedRow();
    while (row >= 0) {
        const CString name = m_stateList.StateName(row);
        bool wanted = true;
        if (ask) {
            CLayerStatesDeleteDlg dialog(this);
            dialog.m_stateName = name;
            if (dialog.DoModal() != IDOK)
                return;
            ask = !dialog.m_applyToAll;
            wanted = dialog.m_deleteThis != 0;
        }
        if (!ask && !quiet)
            quiet.emplace(m_stateList);
        // A delete that the host refuses isn't reported: the row stays.
        if (wanted && deleteState(name)) {
            m_stateList.DeleteItem(row);
            --row;
        }
        row = m_stateList.GetNextItem(row, LVNI_SELECTED);
    }
}

bool CLayerStatesRestoreDlg::deleteState(const wchar_t* name) {
    KelDbLayerStateManager* states = workingStates();
    return states && states->deleteLayerState(name) == Vorn::eOk;
}

void CLayerStatesRestoreDlg::selectAfterDelete(int first) {
    // The button that was pressed may be disabled by now, and keys don't reach a dialog whose focus is there. So the
    // list gets it even without rows.
    m_stateList.SetFocus();
    const int rows = m_stateList.GetItemCount();
    if (rows > 0) {
        m_stateList.SelectRow(first == rows ? first - 1 : first);
        return;
    }
    // The list doesn't report that its last row has gone.
    for (const int control : {IDC_LSTATE_RES_RESTORE, IDC_LSTATE_RES_UPDATE, IDC_LSTATE_RES_DELETE,
                              IDC_LSTATE_RES_RENAME, IDC_LSTATE_RES_EDIT})
        m_controls.enable(control, false);
}
