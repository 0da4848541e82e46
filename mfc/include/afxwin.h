// MFC's window classes: targets of commands, windows, dialogs, standard controls, menus, GDI, the program and its loop.
// What each class lacks against MFC stands at the head of its own header; docs/mfc-subset.md sums it up.
#pragma once

#include "afx.h"

#include <shellapi.h>

#include "afxres.h"
#include "kelmfc/CCmdTarget.h"
#include "kelmfc/CGdiObject.h"
#include "kelmfc/CDC.h"
#include "kelmfc/CMenu.h"
#include "kelmfc/CWnd.h"
#include "kelmfc/CDataExchange.h"
#include "kelmfc/CDialog.h"
#include "kelmfc/CButton.h"
#include "kelmfc/CEdit.h"
#include "kelmfc/CListBox.h"
#include "kelmfc/CWinThread.h"
#include "kelmfc/CWinApp.h"
#include "kelmfc/CDynLinkLibrary.h"
