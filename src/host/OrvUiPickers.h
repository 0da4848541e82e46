// The host's file dialog. Windows tier.
#pragma once

#include "KelExport.h"
#include "ResultBuffer.h"

/// Lets the user choose a file.
/// @param title         the dialog's title
/// @param defaultName   the name to begin with, or null
/// @param extensions    extensions separated by semicolons; the first is added to a name typed without one
/// @param dialogKey     the key under which the host keeps the dialog's last folder
/// @param flags         0 opens an existing file, 1 saves
/// @param result        receives a chain whose first node is a string, the path; the caller releases it with kelutRelRb
/// @return kResultNormal when a file was chosen; otherwise `*result` is null
KELUI_API int keledGetFileNavDialog(const wchar_t* title, const wchar_t* defaultName, const wchar_t* extensions,
                                    const wchar_t* dialogKey, int flags, ResultBuffer** result);
