// Base of all dialogs of modules.

#include "OrvUiDialog.h"

#include "instruments/HostCalls.h"

BEGIN_MESSAGE_MAP(CKelUiDialog, COrvUiDialog)
END_MESSAGE_MAP()

CKelUiDialog::CKelUiDialog(UINT templateId, CWnd* parent, HINSTANCE resources)
    : COrvUiDialog(templateId, parent, resources) {
    instruments::HostCall call("CKelUiDialog", templateId);
}
