// What assistive programs, such as screen readers, are told about a window.
#pragma once

#include <windows.h>

#include <string>

namespace ui {

/// What they are told; empty and 0 when that is nothing.
struct Told {
    std::wstring name;
    long role = 0; ///< one of ROLE_SYSTEM_...
};

Told toldAbout(HWND window);

} // namespace ui
