// What assistive programs, such as readers of the screen, are told about a window.
#pragma once

#include <windows.h>

#include <string>

namespace ui {

/// Empty and 0 where they are told nothing.
struct Told {
    std::wstring name;
    long role = 0; ///< one of ROLE_SYSTEM_...
};

Told toldAbout(HWND window);

} // namespace ui
