// See SavedPlacement.h.

#include "SavedPlacement.h"

namespace workbench {

namespace {

constexpr const wchar_t* kKey = L"Software\\KelWorkbench\\Window";
constexpr const wchar_t* kValue = L"Placement";

/// What is kept: the normal rectangle and whether the window filled the screen.
struct Placement {
    LONG left, top, right, bottom;
    DWORD maximized;
};

} // namespace

int restorePlacement(CWnd& window, int show) {
    Placement saved{};
    DWORD size = sizeof saved;
    const LSTATUS status = RegGetValueW(HKEY_CURRENT_USER, kKey, kValue, RRF_RT_REG_BINARY, nullptr, &saved, &size);
    const RECT rect{saved.left, saved.top, saved.right, saved.bottom};
    const bool usable = status == ERROR_SUCCESS && size == sizeof saved && rect.right > rect.left &&
                        rect.bottom > rect.top && MonitorFromRect(&rect, MONITOR_DEFAULTTONULL);
    if (!usable)
        return show;
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    placement.rcNormalPosition = rect;
    placement.showCmd = SW_HIDE;
    window.SetWindowPlacement(&placement);
    return saved.maximized ? SW_SHOWMAXIMIZED : show;
}

void savePlacement(const CWnd& window) {
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    if (!window.GetWindowPlacement(&placement))
        return;
    const RECT& rect = placement.rcNormalPosition;
    const bool maximized = placement.showCmd == SW_SHOWMAXIMIZED ||
                           (placement.showCmd == SW_SHOWMINIMIZED && (placement.flags & WPF_RESTORETOMAXIMIZED));
    const Placement saved{rect.left, rect.top, rect.right, rect.bottom, maximized};
    RegSetKeyValueW(HKEY_CURRENT_USER, kKey, kValue, REG_BINARY, &saved, sizeof saved);
}

} // namespace workbench
