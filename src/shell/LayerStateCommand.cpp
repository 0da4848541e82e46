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
        // A failed run ends the entry without a word, as a cancel does.
    }
}

} // namespace

void runLayerStateCommand() {
    runManager(nullptr, false);
}

extern "C" void keldbLayerStateManagerDialog(CWnd* parent) {
    runManager(parent, true);
}
