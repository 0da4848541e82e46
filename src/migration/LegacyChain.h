// What the readers and the writer of the older tool's extended data share.
#pragma once

#include "KelDbObject.h"

#include <afx.h>

inline constexpr const wchar_t* kLegacyApplication = L"ZVH";

/// The bits of a block's flags that are read back, and the two that are only written.
inline constexpr int kLegacyFrozen = 1;
inline constexpr int kLegacyNewVpFrozen = 2;
inline constexpr int kLegacyLocked = 4;
inline constexpr int kLegacyResolved = 16;
inline constexpr int kLegacyDependent = 32;

inline CString openingMarker(const wchar_t* name) {
    return CString(L"{") + name;
}
inline CString closingMarker(const wchar_t* name) {
    return CString(name) + L"}";
}

/// The node's text, when it is a 1000 node with one; otherwise null.
inline const wchar_t* textOf(const ResultBuffer& node) {
    return node.type == kExtendedString ? node.value.string : nullptr;
}
/// Whether it is a 1000 node of that text, without regard to case.
inline bool isMarker(const ResultBuffer& node, const CString& marker) {
    const wchar_t* text = textOf(node);
    return text && marker.CompareNoCase(text) == 0;
}
/// The name after the brace of a node that opens a block; null for any other node.
inline const wchar_t* openedName(const ResultBuffer& node) {
    const wchar_t* text = textOf(node);
    return text && *text == L'{' ? text + 1 : nullptr;
}

/// Closes an object that has to be closed for the drawing to stay usable: a failure ends the program.
void closeOrAbort(KelDbObject& object);
