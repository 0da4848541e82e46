// MFC's common controls: list view, header, tool tips, image lists, status bar, tabs, progress bar.
#pragma once

#include "afxwin.h"

#include <commctrl.h>

#include "kelmfc/CImageList.h"
#include "kelmfc/CHeaderCtrl.h"
#include "kelmfc/CListCtrl.h"
#include "kelmfc/CToolTipCtrl.h"
#include "kelmfc/CStatusBarCtrl.h"
