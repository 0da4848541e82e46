// Turns lengths of the design, in pixels of 96 an inch, into pixels of a window's display. Displays differ in their
// scaling, so a result is right for one window only, and only until its next WM_DPICHANGED.
#pragma once

#include <windows.h>

namespace framework {

inline constexpr int kDesignDpi = 96;

/// The dots per inch at which a window is to draw; the system's own for null.
inline int dpiOf(HWND window) {
    const UINT dpi = GetDpiForWindow(window);
    return static_cast<int>(dpi ? dpi : GetDpiForSystem());
}

/// A length of the design in pixels of the window.
inline int scaledFor(HWND window, int length) {
    return MulDiv(length, dpiOf(window), kDesignDpi);
}

} // namespace framework
