// Tips and help of the module's dialogs.
#pragma once

class COrvUiBaseDialog;

/// Gives the dialog's controls their tips, from the host's file. To be called after the base OnInitDialog.
void setUpTips(COrvUiBaseDialog& dialog);

/// Opens the host's help at a dialog's topic, a name of at most 259 characters.
void openHelp(const wchar_t* topic);
