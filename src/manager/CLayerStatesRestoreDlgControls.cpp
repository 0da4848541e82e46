// The manager's controls: their state after every change, and the handlers of its options.
#include "CLayerStatesRestoreDlg.h"

#include "ControlRules.h"
#include "KelEditor.h"
#include "PropertyTable.h"
#include "StateDescription.h"
#include "WorkingDatabase.h"

void CLayerStatesRestoreDlg::updateControls() {
    SelectionFacts facts;
    facts.selectedRows = static_cast<int>(m_stateList.GetSelectedCount());
    facts.inViewport = !keledGetCurViewportObjectId().isNull();
    facts.dependentSelected = selectionHoldsDependent();
    if (facts.selectedRows == 1) {
        const int row = m_stateList.FirstSelectedRow();
        if (row < 0) {
            m_controls.enable(IDC_LSTATE_RES_OVERRIDES, true);
            return;
        }
        facts.mask = showStoredState(row);
    } else {
        for (const PropertyBox& box : kPropertyTable)
            m_controls.tick(box.control, false);
    }
    for (const ControlRule& row : kControlRules)
        m_controls.enable(row.control, isEnabled(row.rule, facts));
}

bool CLayerStatesRestoreDlg::selectionHoldsDependent() {
    KelDbLayerStateManager* states = nullptr;
    for (int row = m_stateList.FirstSelectedRow(); row >= 0; row = m_stateList.GetNextItem(row, LVNI_SELECTED)) {
        if (!states)
            states = workingStates();
        if (!states)
            return false;
        if (states->isDependentLayerState(m_stateList.StateName(row)))
            return true;
    }
    return false;
}

std::optional<LayerStateMask> CLayerStatesRestoreDlg::showStoredState(int row) {
    m_stateName = m_stateList.StateName(row);
    KelDbLayerStateManager* states = workingStates();
    if (!states)
        return std::nullopt;
    std::optional<LayerStateMask> read;
    LayerStateMask mask = 0;
    // A mask or description that can't be read isn't reported: the boxes and the text stay as they are.
    if (states->getLayerStateMask(m_stateName, mask) == Vorn::eOk) {
        m_stateMask = mask;
        for (const PropertyBox& box : kPropertyTable)
            m_controls.tick(box.control, isTickedBy(mask, box.bit));
        m_overridableMask = mask & MaskOverridable;
        read = mask;
    }
    if (const std::optional<CString> description = stateDescription(*states, m_stateName))
        m_stateDescription = *description;
    return read;
}

void CLayerStatesRestoreDlg::OnHideXrefs() {
    m_showXrefs = !m_controls.isTicked(IDC_LSTATE_RES_HIDEXREFS);
    m_stateList.EnableWindow(TRUE);
    repopulate();
    if (m_stateList.GetItemCount() > 0)
        m_stateList.SelectRow(0);
    SetDialogData(L"ShowXrefs", m_showXrefs);
}

void CLayerStatesRestoreDlg::OnLayerNotFound() {
    m_layerNotFound = m_controls.isTicked(IDC_LSTATE_RES_LAYERNOTFOUND);
    SetDialogData(L"LayerNotFound", m_layerNotFound);
}

void CLayerStatesRestoreDlg::OnRestoreAsOverrides() {
    m_restoreAsOverrides = m_controls.isTicked(IDC_LSTATE_RES_OVERRIDES);
    SetDialogData(L"RestoreAsOverrides", m_restoreAsOverrides);
}

void CLayerStatesRestoreDlg::OnOverridableProperty(UINT) {
    // On purpose only the boxes decide here: in model space this enables what updateControls() had disabled.
    m_controls.enable(IDC_LSTATE_RES_OVERRIDES,
                      anyOverridableBoxTicked([this](int control) { return m_controls.isTicked(control); }));
}

void CLayerStatesRestoreDlg::OnSelectAll() {
    tickEnabledBoxes(true);
}

void CLayerStatesRestoreDlg::OnClearAll() {
    tickEnabledBoxes(false);
}

void CLayerStatesRestoreDlg::tickEnabledBoxes(bool on) {
    for (const PropertyBox& box : kPropertyTable)
        if (m_controls.isEnabled(box.control))
            m_controls.tick(box.control, on);
}
