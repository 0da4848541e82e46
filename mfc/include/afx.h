// MFC's part without windows: CObject and run-time classes, CString, exceptions, the ready-made collections, ASSERT and
// TRACE. The only header of the subset that compiles without Win32; there it brings Win32's basic type names along.
// What each class lacks against MFC stands at the head of its own header.
#pragma once

#include "kelmfc/platform.h"
#include "kelmfc/diagnostics.h"
#include "kelmfc/CObject.h"
#include "kelmfc/CString.h"
#include "kelmfc/CException.h"
#include "afxcoll.h"
#ifdef _WIN32
#include "atltypes.h"
#endif
