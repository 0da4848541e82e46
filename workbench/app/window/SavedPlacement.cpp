#include "SavedPlacement.h"

#include "persistence/Placement.h"

namespace workbench {

namespace {

constexpr const wchar_t* kKey = L"Software\\KelWorkbench\\Window";
constexpr const wchar_t* kValue = L"Placement";

/// What is kept: the normal rectangle in workspace coordinates, whether the window filled the screen, and the dots an
/// inch of its display.
struct Placement {
    LONG left, top, right, bottom;
    DWORD maximized;
    UINT dpi;
};

/// What was saved; nothing when there is no value of that type and size.
std::optional<Placement> savedPlacement() {
    Placement saved{};
    DWORD size = sizeof saved;
    const LSTATUS status = RegGetValueW(HKEY_CURRENT_USER, kKey, kValue, RRF_RT_REG_BINARY, nullptr, &saved, &size);
    return status == ERROR_SUCCESS && size == sizeof saved ? std::optional(saved) : std::nullopt;
}

/// The rectangle that was saved; nothing when it can't be one of ours.
std::optional<RECT> rectOf(const Placement& saved) {
    if (saved.right <= saved.left || saved.bottom <= saved.top)
        return std::nullopt;
    // The numbers may be any: unsigned, their difference doesn't overflow.
    return framework::keptRect(saved.left, saved.top, static_cast<DWORD>(saved.right) - static_cast<DWORD>(saved.left),
                               static_cast<DWORD>(saved.bottom) - static_cast<DWORD>(saved.top));
}

std::vector<RECT> workspaces() {
    std::vector<RECT> areas = framework::monitorWorkAreas();
    for (RECT& area : areas) {
        MONITORINFO info{};
        info.cbSize = sizeof info;
        if (::GetMonitorInfo(::MonitorFromRect(&area, MONITOR_DEFAULTTONEAREST), &info))
            area = workspaceOf(info.rcWork, info.rcMonitor);
    }
    return areas;
}

/// Moves the window, which isn't shown yet, to `rect`, so far as that is on one of the workspaces. Answers the normal
/// rectangle that it really got.
RECT place(CWnd& window, const RECT& rect) {
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    placement.rcNormalPosition = framework::placeOnWorkAreas(rect, workspaces());
    placement.showCmd = SW_HIDE;
    window.SetWindowPlacement(&placement);
    window.GetWindowPlacement(&placement);
    return placement.rcNormalPosition;
}

} // namespace

RECT workspaceOf(const RECT& workArea, const RECT& display) {
    return {display.left, display.top, display.left + (workArea.right - workArea.left),
            display.top + (workArea.bottom - workArea.top)};
}

int restorePlacement(CWnd& window, int show) {
    const std::optional<Placement> saved = savedPlacement();
    const std::optional<RECT> rect = saved ? rectOf(*saved) : std::nullopt;
    if (!rect)
        return show;
    RECT placed = place(window, *rect);
    // Only after the move above it has the scaling of its display.
    const int dpi = static_cast<int>(::GetDpiForWindow(window));
    const int savedDpi = framework::keptScaling(saved->dpi).value_or(dpi);
    placed.right = placed.left + MulDiv(rect->right - rect->left, dpi, savedDpi);
    placed.bottom = placed.top + MulDiv(rect->bottom - rect->top, dpi, savedDpi);
    placed = place(window, placed);
    // A window has a least size, with which it may reach beyond the edge that it was moved to.
    place(window, placed);
    return saved->maximized ? SW_SHOWMAXIMIZED : show;
}

void savePlacement(const CWnd& window) {
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    if (!window.GetWindowPlacement(&placement))
        return;
    const RECT& rect = placement.rcNormalPosition;
    const bool maximized = placement.showCmd == SW_SHOWMAXIMIZED ||
                           (placement.showCmd == SW_SHOWMINIMIZED && (placement.flags & WPF_RESTORETOMAXIMIZED));
    const Placement saved{rect.left, rect.top, rect.right, rect.bottom, maximized, ::GetDpiForWindow(window)};
    RegSetKeyValueW(HKEY_CURRENT_USER, kKey, kValue, REG_BINARY, &saved, sizeof saved);
}

} // namespace workbench
