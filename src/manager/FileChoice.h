// The file from which states are imported, or to which one is exported.
#pragma once

#include <afxwin.h>

/// The extension of layer states files.
inline constexpr const wchar_t* kStateFileExtension = L"las";

/// Lets the user choose a file, or type the address of a remote one.
/// @param titleId     the string of the dialog's title
/// @param defaultName may be null
/// @param flags       those of keledGetFileNavDialog
/// @return the path or the address; empty when nothing was chosen
CString chooseFile(UINT titleId, const wchar_t* defaultName, const wchar_t* extensions, int flags);
