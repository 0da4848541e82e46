// Telling and asking the user through the system's message box.
#pragma once

#include <afxwin.h>

/// Tells the user that something didn't work: an exclamation, and OK.
void showFailure(const CWnd& owner, const wchar_t* text);
/// Asks the user, under the owner's title, until it is answered. Only No is no: a question that can't be shown is
/// answered with yes.
bool askYesNo(const CWnd& owner, const wchar_t* question);
