// What a person without a mouse and a person without sight need of a dialog: the Tab key reaches every control in
// reading order and shows where it is, no two controls take the same key, and every control has a name.
#pragma once

#include "Script.h"

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

namespace keyboard {

/// The controls of a window that the Tab key stops at, in its order; those of pages within it in their page's place.
/// @param hidden whether ones that are hidden or disabled count too, for a dialog that isn't shown
std::vector<HWND> tabStops(HWND dialog, bool hidden = false);

/// What is wrong with a dialog's access keys, names and reading order, a line each; empty when all is well.
std::vector<std::string> slips(HWND dialog, bool hidden = false);

/// Where the Tab key has led, as often as it takes to come round twice.
struct Walk {
    std::vector<HWND> stops;   ///< where it should stop
    std::vector<HWND> visited; ///< where it has stopped in the second round, in that order
    std::vector<HWND> unshown; ///< stops that look the same with and without the focus
    std::vector<std::string> slips;
};

/// Appends the walk through the window that is in front by then. `walk` is filled.
ui::Script walk(Walk& walk);

/// "control 1003 of class Button".
std::string describe(HWND control);

} // namespace keyboard
