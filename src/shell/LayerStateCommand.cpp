// Opens the layer states manager. Exceptions end here: the host calls these as plain functions.
#include "LayerStateCommand.h"

#include "CLayerStatesRestoreDlg.h"
#include "CResourceScope.h"

namespace {

void runManager(CWnd* parent, bool fromExport) {
    try {
        CResourceScope scope;
        CLayerStatesRestoreDlg dialog(parent, fromExport);
        dialog.DoModal();
    } catch (CException* exception) {
        exception->Delete();
    } catch (...) {
        // A run that fails ends like a cancelled one, and the user isn't told.
    }
}

} // namespace

void runLayerStateCommand() {
    runManager(nullptr, false);
}

extern "C" void keldbLayerStateManagerDialog(CWnd* parent) {
    runManager(parent, true);
}
