// Keeps and restores where a dialog stood. The decision what to do with a kept rectangle has no window in it.
#pragma once

#include "DialogStore.h"
#include "KelExport.h"

#include <windows.h>

#include <optional>
#include <vector>

namespace framework {

/// Where a window of the kept rectangle `wanted` shall stand: moved, and cut if it must be, so that it lies wholly on
/// the work area that it touches most, or on the first one when it touches none. `workAreas` holds at least one.
KELUI_API RECT placeOnWorkAreas(RECT wanted, const std::vector<RECT>& workAreas);

/// Turns a rectangle of GetWindowPlacement, which counts from the corner of the work area of the window's display, into
/// screen coordinates.
KELUI_API RECT screenRectOf(RECT workspaceRect, const RECT& workArea, const RECT& display);

/// The work areas of all monitors, the primary one's first.
KELUI_API std::vector<RECT> monitorWorkAreas();

/// The rectangle that these kept numbers give; nothing when no desktop reaches so far or no window is so large.
KELUI_API std::optional<RECT> keptRect(LONG left, LONG top, unsigned long width, unsigned long height);
/// The kept number as dots an inch; nothing when no display has so many or so few.
KELUI_API std::optional<int> keptScaling(unsigned long dpi);

/// Where a dialog stood when it was closed.
struct KeptPlacement {
    POINT corner;             ///< the upper left one, on the screen
    std::optional<SIZE> size; ///< none when only the position was kept
    std::optional<int> dpi;   ///< dots an inch of the display that the size was measured on; none when that wasn't kept
};

/// The placement kept under the dialog's name; nothing when its position is missing, incomplete or senseless.
std::optional<KeptPlacement> keptPlacement(const std::wstring& dialogName);

enum class Keep { Position, PositionAndSize };
/// Keeps where the window stands when it is neither minimized nor maximized, under the dialog's name. Where that can't
/// be found out or written, what was kept before stays or the placement is lost; nothing is told. A size that isn't to
/// be kept leaves the one that was.
void keepPlacement(const std::wstring& dialogName, HWND window, Keep what);
/// Moves the window to `kept` and gives it its kept size, scaled when the display has another scaling, but not below
/// the least size that the window asks for. One whose border can't be dragged keeps its size.
void restorePlacement(HWND window, const KeptPlacement& kept);
/// Moves the window there, or as near as it lies wholly on a work area with the size that it has. A window that is
/// larger than the work area is cut to it when its border can be dragged.
void restorePosition(HWND window, POINT corner);

/// The dots an inch that were kept with lengths in pixels; nothing when they are missing or senseless.
std::optional<int> scalingIn(const DialogStore& store);
/// Keeps the dots an inch of the window's display.
[[nodiscard]] bool keepScaling(const DialogStore& store, HWND window);

} // namespace framework
