// What every header of the subset needs: Win32's basic types (from <windows.h> on Windows, defined here elsewhere) and
// the macros that mark what the library exports. Only the wide-character build exists.
#pragma once

#ifdef _WIN32

#ifndef UNICODE
#error "The MFC subset is built for UNICODE only"
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#include <tchar.h>

#define AFX_CLASS_EXPORT __declspec(dllexport)
#define AFX_CLASS_IMPORT __declspec(dllimport)

#else

#include <cstddef>
#include <cstdint>

using BOOL = int;
using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using INT = int;
using UINT = unsigned int;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using INT_PTR = std::intptr_t;
using UINT_PTR = std::uintptr_t;
using LONG_PTR = std::intptr_t;
using DWORD_PTR = std::uintptr_t;
using WCHAR = wchar_t;
using TCHAR = wchar_t;
using LPSTR = char*;
using LPCSTR = const char*;
using LPWSTR = wchar_t*;
using LPCWSTR = const wchar_t*;
using LPTSTR = wchar_t*;
using LPCTSTR = const wchar_t*;

#ifndef TRUE
#define TRUE 1
#define FALSE 0
#endif
#ifndef _T
#define _T(text) L##text
#endif

#define AFX_CLASS_EXPORT
#define AFX_CLASS_IMPORT

#endif

#ifdef KELMFC_BUILD
#define AFXMFC_API AFX_CLASS_EXPORT
#else
#define AFXMFC_API AFX_CLASS_IMPORT
#endif

// A class of an extension DLL: _AFXEXT is defined while that DLL is built.
#ifdef _AFXEXT
#define AFX_EXT_CLASS AFX_CLASS_EXPORT
#define AFX_EXT_API AFX_CLASS_EXPORT
#define AFX_EXT_DATA AFX_CLASS_EXPORT
#else
#define AFX_EXT_CLASS AFX_CLASS_IMPORT
#define AFX_EXT_API AFX_CLASS_IMPORT
#define AFX_EXT_DATA AFX_CLASS_IMPORT
#endif

#define AFXAPI
#define AFX_CDECL
#define AFX_MSG_CALL
#define afx_msg
