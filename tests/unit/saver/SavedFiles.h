// What the saving program writes, and what its test expects to find: two drawings, or two layer states files, which it
// saves under one name in turn, again and again.
#pragma once

#include "model/Drawing.h"

#include <string>

enum class SavedKind { Drawing, State };

/// The name of the kind on the command line.
std::wstring nameOf(SavedKind kind);

/// One of two drawings, of very different size.
zdr::Drawing savedDrawing(bool large);
/// The state of those drawings that is exported.
inline constexpr const wchar_t* kSavedState = L"Saved";

/// Saves one of the two as the given file; answers why that failed, or nothing.
std::string save(SavedKind kind, bool large, const std::wstring& path);
