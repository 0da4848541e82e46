// See SavedPlacement.h.

#include "SavedPlacement.h"

namespace workbench {

namespace {

constexpr const wchar_t* kKey = L"Software\\KelWorkbench\\Window";
constexpr const wchar_t* kValue = L"Placement";

/// What is kept: the normal rectangle, whether the window filled the screen, and the dots an inch of its display.
struct Placement {
    LONG left, top, right, bottom;
    DWORD maximized;
    UINT dpi;
};

} // namespace

int restorePlacement(CWnd& window, int show) {
    Placement saved{};
    DWORD size = sizeof saved;
    const LSTATUS status = RegGetValueW(HKEY_CURRENT_USER, kKey, kValue, RRF_RT_REG_BINARY, nullptr, &saved, &size);
    const RECT rect{saved.left, saved.top, saved.right, saved.bottom};
    const bool usable = status == ERROR_SUCCESS && size == sizeof saved && rect.right > rect.left &&
                        rect.bottom > rect.top && saved.dpi != 0 && MonitorFromRect(&rect, MONITOR_DEFAULTTONULL);
    if (!usable)
        return show;
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    placement.rcNormalPosition = rect;
    placement.showCmd = SW_HIDE;
    window.SetWindowPlacement(&placement);
    // Now it has the scaling of the display that it stands on.
    const int dpi = static_cast<int>(::GetDpiForWindow(window)), savedDpi = static_cast<int>(saved.dpi);
    if (dpi != savedDpi)
        window.SetWindowPos(nullptr, 0, 0, MulDiv(rect.right - rect.left, dpi, savedDpi),
                            MulDiv(rect.bottom - rect.top, dpi, savedDpi), SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
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
    const Placement saved{rect.left, rect.top, rect.right, rect.bottom, maximized, ::GetDpiForWindow(window)};
    RegSetKeyValueW(HKEY_CURRENT_USER, kKey, kValue, REG_BINARY, &saved, sizeof saved);
}

} // namespace workbench
