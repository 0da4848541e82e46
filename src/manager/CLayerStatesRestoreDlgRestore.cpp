// The frame that restore and import share, and restoring the selected state: the name, the properties and flags, the
// transaction, what is regenerated, and what the user is told when the host refuses.
#include "CLayerStatesRestoreDlg.h"

#include "CResourceScope.h"
#include "DocumentTransaction.h"
#include "HostPrompts.h"
#include "ImportedStates.h"
#include "KelDbPointers.h"
#include "KelEditor.h"
#include "LayerPublishing.h"
#include "PropertyTable.h"
#include "RestoreRules.h"
#include "WorkingDatabase.h"

#include <memory>

namespace {

constexpr const wchar_t* kCannotRestoreKey = L"KelLayerApps.CannotRestoreLayerState";

} // namespace

void CLayerStatesRestoreDlg::OnRestore() {
    CString unused;
    if (!restoreOrImport(1, unused, nullptr, nullptr))
        return;
    // restoreOrImport() has published already; doing it again is kept on purpose.
    publishLayers();
    SetDialogData(L"Expanded", static_cast<unsigned long>(m_expanded));
    EndDialog(IDOK);
}

int CLayerStatesRestoreDlg::restoreOrImport(int restore, CString& name, const wchar_t* fileName,
                                            KelDbDatabase* source) {
    if (m_stateList.m_labelEditActive || (restore && !takeSelectedState()))
        return 0;
    CString newName;
    std::unique_ptr<KelDbXrecord> newRecord;
    {
        DocumentTransaction transaction;
        if (!transaction.isStarted())
            return 0;
        if (KelDbLayerStateManager* states = workingStates()) {
            if (restore) {
                restoreSelected(*states);
            } else {
                importState(*states, name, fileName, source);
                newRecord = newStateRecord(newName);
            }
        }
    }
    if (newRecord) {
        // Read within the transaction, and entered again under the same name after its end; nothing is published then.
        name = newName;
        return enterStateRecord(newName, std::move(newRecord));
    }
    publishLayers();
    // Also after a refused restore or import, of which the user has been told already where that is reported.
    return 1;
}

bool CLayerStatesRestoreDlg::takeSelectedState() {
    const int row = m_stateList.FirstSelectedRow();
    if (row < 0)
        return false;
    m_stateName = m_stateList.StateName(row);
    m_restoreStarted = 1;
    return true;
}

void CLayerStatesRestoreDlg::restoreSelected(KelDbLayerStateManager& states) {
    // Null outside a viewport, where a restore is allowed all the same.
    const KelDbObjectId viewport = keledGetCurViewportObjectId();
    collectRegenLayers();
    const int flags = restoreFlags(m_layerNotFound, m_restoreAsOverrides);
    m_stateMask = maskFromBoxes([this](int control) { return m_controls.isTicked(control); });
    // What the boxes show becomes the state's own mask; when that fails, the restore goes on.
    static_cast<void>(states.setLayerStateMask(m_stateName, m_stateMask));
    const Vorn::ErrorStatus status = states.restoreLayerState(m_stateName, viewport, flags, nullptr);
    if (!m_regenLayers.isEmpty())
        keledRegenLayers(m_regenLayers, keledRegenPending());
    // eDuplicateRecordName doesn't count as a failure of a restore and isn't reported.
    if (status != Vorn::eDuplicateRecordName)
        reportRestoreFailure(static_cast<unsigned int>(status));
}

void CLayerStatesRestoreDlg::collectRegenLayers() {
    m_regenLayers.setLogicalLength(0);
    KelDbSymbolTablePointer<KelDbLayerTable> table(workingDatabase(), KelDb::kForRead);
    if (table.openStatus() != Vorn::eOk)
        return;
    KelDbLayerTableIterator* found = nullptr;
    if (table->newIterator(found, true, true) != Vorn::eOk)
        return;
    const std::unique_ptr<KelDbLayerTableIterator> iterator(found);
    CWaitCursor wait;
    for (; !iterator->done(); iterator->step(true, true)) {
        KelDbObjectId layer;
        if (iterator->getRecordId(layer) == Vorn::eOk)
            m_regenLayers.append(layer);
    }
}

void CLayerStatesRestoreDlg::reportRestoreFailure(unsigned int status) {
    if (!m_reportFailure)
        return;
    const RestoreReport report = restoreReport(status);
    if (report.form == RestoreReport::Form::none)
        return;
    if (report.form == RestoreReport::Form::taskDialog && showTaskDialog(kCannotRestoreKey)) {
        m_reportFailure = false;
        return;
    }
    // When the task dialog can't be shown, there is a message box with an empty text instead; kept on purpose.
    const CString text = report.stringId != 0 ? loadResourceString(report.stringId) : CString();
    ::MessageBoxW(m_hWnd, text, nullptr, MB_ICONEXCLAMATION | MB_OK);
    m_reportFailure = false;
}
