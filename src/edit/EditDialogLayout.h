// How the controls of the two dialogs with a list of layers follow the dialog's size.
#pragma once

class COrvUiDialog;

/// One table for both dialogs; the rows of buttons that one of them lacks do nothing there.
void setEditDialogLayout(COrvUiDialog& dialog);
