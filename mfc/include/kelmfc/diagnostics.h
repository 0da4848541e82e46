// ASSERT, VERIFY and TRACE. As in MFC they work only where _DEBUG is defined: ASSERT then prints file and line and
// aborts.
#pragma once

#include "platform.h"

/// Reports a failed ASSERT on the error stream (and the debugger's output on Windows) and aborts.
[[noreturn]] AFXMFC_API void AfxAssertFailedLine(LPCSTR lpszFileName, int nLine);

/// Writes to the error stream natively, to the debugger's output on Windows. Formats as CString::Format does.
AFXMFC_API void AfxTrace(LPCTSTR lpszFormat, ...);

#ifdef _DEBUG
#define ASSERT(condition) ((condition) ? (void)0 : AfxAssertFailedLine(__FILE__, __LINE__))
#define VERIFY(condition) ASSERT(condition)
#define TRACE(...) AfxTrace(__VA_ARGS__)
#else
#define ASSERT(condition) ((void)0)
#define VERIFY(condition) ((void)(condition))
#define TRACE(...) ((void)0)
#endif

#define ASSERT_VALID(object) ASSERT((object) != nullptr)
