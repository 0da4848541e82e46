// Opens the module's dialogs. Exceptions end here: the host calls these as plain functions.
#include "LayerStateCommand.h"

#include "CLayerStatesRestoreDlg.h"
#include "CLayerStatesSaveDlg.h"
#include "CResourceScope.h"
#include "KelEditor.h"
#include "MigrateLayerStates.h"
#include "WorkingDatabase.h"

namespace {

/// Runs a dialog and what follows it under the module's resources.
template <class Run> void runUnderScope(Run run) {
    try {
        CResourceScope scope;
        run();
    } catch (CException* exception) {
        exception->Delete();
    } catch (...) {
        // A run that fails ends like a cancelled one, and the user isn't told.
    }
}

void runManager(CWnd* parent, bool fromExport) {
    runUnderScope([&] {
        migrateLayerStates();
        CLayerStatesRestoreDlg dialog(parent, fromExport);
        dialog.DoModal();
    });
}

void saveAndRestore(CWnd* parent) {
    CLayerStatesSaveDlg dialog(parent, true);
    if (dialog.DoModal() != IDOK)
        return;
    const CString name = dialog.GetStateName();
    if (name.IsEmpty())
        return;
    // Unlike a restore from the manager this is the host's operation alone: no transaction, nothing regenerated or
    // published, no failure reported.
    if (KelDbLayerStateManager* states = workingStates())
        static_cast<void>(states->restoreLayerState(name, keledGetCurViewportObjectId(), 0, nullptr));
}

} // namespace

void runLayerStateCommand() {
    runManager(nullptr, false);
}

extern "C" void keldbLayerStateManagerDialog(CWnd* parent) {
    runManager(parent, true);
}

extern "C" void keldbLayerStateSaveDialog(CWnd* parent) {
    runUnderScope([parent] { saveAndRestore(parent); });
}
