// Paths as the user gives them to the file dialog: addresses among them, and what tells their kind. Texts have at most
// 1023 characters here; what is longer is cut.
#pragma once

#include <afx.h>

/// Room for a path, its end included.
inline constexpr int kPathLength = 1024;

/// Writes the path with backslashes, without a trailing one but for a drive's root, and without "file:///". An address
/// of the web keeps its slashes.
/// @param out  room for kPathLength characters
/// @param path may be null, which counts as empty
void normalizePath(wchar_t* out, const wchar_t* path);

/// Cuts "file:///" out of the text, wherever it is, and turns the slashes of such a text into backslashes.
/// @param out room for kPathLength characters; may be where `path` is
void stripFileUrl(const wchar_t* path, wchar_t* out);

/// Writes the path's folder: without the separator behind it, but for a drive's. A path that names a folder is its own.
/// @param out room for kPathLength characters
/// @return its length
int getDirectoryPart(const wchar_t* path, wchar_t* out);

/// What is behind the last dot of the file's name; empty without one.
CString extensionOf(const wchar_t* path);

/// Whether the text ends so, with case significant. Nothing ends with an empty tail; null texts neither end nor are
/// an end.
bool endsWith(const wchar_t* text, const wchar_t* tail);
