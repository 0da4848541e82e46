#include "Placement.h"

#include "base/OutOfMemory.h"
#include "base/Scaling.h"

#include <algorithm>

namespace framework {
namespace {

constexpr const wchar_t* kGroup = L"Placement";
// In pixels. No desktop reaches farther, so a larger number was not written by us.
constexpr long kFarthest = 0x40000;
constexpr unsigned long kLargest = 0x10000;
constexpr const wchar_t* kDpi = L"Dpi";
// The scalings that the system knows, 100 % to 500 %, and some room on both sides.
constexpr unsigned long kLowestDpi = 48, kHighestDpi = 960;

bool isTooFar(LONG coordinate) {
    return coordinate < -kFarthest || coordinate > kFarthest;
}

bool isNoLength(unsigned long length) {
    return length == 0 || length > kLargest;
}

bool isResizable(HWND window) {
    return (GetWindowLongPtrW(window, GWL_STYLE) & WS_THICKFRAME) != 0;
}

long long sharedArea(const RECT& a, const RECT& b) {
    RECT shared = {};
    if (!IntersectRect(&shared, &a, &b))
        return 0;
    return static_cast<long long>(shared.right - shared.left) * (shared.bottom - shared.top);
}

/// Moves the span into the bounds, and cuts it to them when it is longer.
void fitInto(LONG& low, LONG& high, LONG lowest, LONG highest) {
    const LONG length = std::min(high - low, highest - lowest);
    low = std::clamp(low, lowest, highest - length);
    high = low + length;
}

BOOL CALLBACK addWorkArea(HMONITOR monitor, HDC, LPRECT, LPARAM result) {
    MONITORINFO info = {};
    info.cbSize = sizeof info;
    auto& areas = *reinterpret_cast<std::vector<RECT>*>(result);
    if (!GetMonitorInfoW(monitor, &info))
        return TRUE;
    // Called by the system, through which nothing may be thrown.
    return answerOr(FALSE, [&] {
        areas.insert(info.dwFlags & MONITORINFOF_PRIMARY ? areas.begin() : areas.end(), info.rcWork);
        return TRUE;
    });
}

/// Where the window stands when it is neither minimized nor maximized; empty when that can't be found out.
RECT normalRect(HWND window) {
    WINDOWPLACEMENT placement = {};
    placement.length = sizeof placement;
    RECT rect = {};
    if (!IsIconic(window) && !IsZoomed(window))
        return GetWindowRect(window, &rect) ? rect : RECT{};
    MONITORINFO display = {};
    display.cbSize = sizeof display;
    const bool known = GetWindowPlacement(window, &placement) &&
                       GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &display);
    return known ? screenRectOf(placement.rcNormalPosition, display.rcWork, display.rcMonitor) : RECT{};
}

/// The least size that the window itself asks for, at its display's scaling; nothing where it asks for none.
SIZE smallestSize(HWND window) {
    MINMAXINFO info = {};
    SendMessageW(window, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&info));
    return {info.ptMinTrackSize.x, info.ptMinTrackSize.y};
}

} // namespace

RECT placeOnWorkAreas(RECT wanted, const std::vector<RECT>& workAreas) {
    const auto most = std::max_element(workAreas.begin(), workAreas.end(), [&wanted](const RECT& a, const RECT& b) {
        return sharedArea(wanted, a) < sharedArea(wanted, b);
    });
    fitInto(wanted.left, wanted.right, most->left, most->right);
    fitInto(wanted.top, wanted.bottom, most->top, most->bottom);
    return wanted;
}

RECT screenRectOf(RECT workspaceRect, const RECT& workArea, const RECT& display) {
    OffsetRect(&workspaceRect, workArea.left - display.left, workArea.top - display.top);
    return workspaceRect;
}

std::vector<RECT> monitorWorkAreas() {
    std::vector<RECT> areas;
    EnumDisplayMonitors(nullptr, nullptr, addWorkArea, reinterpret_cast<LPARAM>(&areas));
    if (areas.empty())
        areas.push_back({0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)});
    return areas;
}

std::optional<RECT> keptRect(LONG left, LONG top, unsigned long width, unsigned long height) {
    if (isTooFar(left) || isTooFar(top) || isNoLength(width) || isNoLength(height))
        return std::nullopt;
    return RECT{left, top, left + static_cast<LONG>(width), top + static_cast<LONG>(height)};
}

std::optional<int> keptScaling(unsigned long dpi) {
    if (dpi < kLowestDpi || dpi > kHighestDpi)
        return std::nullopt;
    return static_cast<int>(dpi);
}

std::optional<KeptPlacement> keptPlacement(const std::wstring& dialogName) {
    const DialogStore store(dialogName, kGroup);
    const auto left = store.number(L"Left"), top = store.number(L"Top");
    // Positions left of and above the primary monitor are negative.
    if (!left || !top || isTooFar(static_cast<LONG>(*left)) || isTooFar(static_cast<LONG>(*top)))
        return std::nullopt;
    KeptPlacement kept = {{static_cast<LONG>(*left), static_cast<LONG>(*top)}, std::nullopt, scalingIn(store)};
    const auto width = store.number(L"Width"), height = store.number(L"Height");
    if (width && height && !isNoLength(*width) && !isNoLength(*height))
        kept.size = SIZE{static_cast<LONG>(*width), static_cast<LONG>(*height)};
    return kept;
}

void keepPlacement(const std::wstring& dialogName, HWND window, Keep what) {
    const RECT rect = normalRect(window);
    if (IsRectEmpty(&rect)) // nothing is known, so what was kept before stays
        return;
    const DialogStore store(dialogName, kGroup);
    // A user whose registry can't be written loses the placement, nothing else.
    [[maybe_unused]] const bool kept =
        store.setNumber(L"Left", static_cast<unsigned long>(rect.left)) &&
        store.setNumber(L"Top", static_cast<unsigned long>(rect.top)) && what == Keep::PositionAndSize &&
        store.setNumber(L"Width", static_cast<unsigned long>(rect.right - rect.left)) &&
        store.setNumber(L"Height", static_cast<unsigned long>(rect.bottom - rect.top)) && keepScaling(store, window);
}

std::optional<int> scalingIn(const DialogStore& store) {
    const auto dpi = store.number(kDpi);
    return dpi ? keptScaling(*dpi) : std::nullopt;
}

bool keepScaling(const DialogStore& store, HWND window) {
    return store.setNumber(kDpi, static_cast<unsigned long>(dpiOf(window)));
}

void restorePosition(HWND window, POINT corner) {
    RECT present = {};
    if (!GetWindowRect(window, &present))
        return;
    const RECT wanted = {corner.x, corner.y, corner.x + present.right - present.left,
                         corner.y + present.bottom - present.top};
    const RECT placed = placeOnWorkAreas(wanted, monitorWorkAreas());
    const UINT size = isResizable(window) ? 0 : SWP_NOSIZE;
    SetWindowPos(window, nullptr, placed.left, placed.top, placed.right - placed.left, placed.bottom - placed.top,
                 SWP_NOZORDER | SWP_NOACTIVATE | size);
}

void restorePlacement(HWND window, const KeptPlacement& kept) {
    // Moved first: that gives the window the scaling of that display, on which its size depends.
    restorePosition(window, kept.corner);
    if (!kept.size || !isResizable(window))
        return;
    const int dpi = dpiOf(window), keptDpi = kept.dpi.value_or(dpi);
    const SIZE smallest = smallestSize(window);
    SetWindowPos(window, nullptr, 0, 0, std::max(smallest.cx, LONG{MulDiv(kept.size->cx, dpi, keptDpi)}),
                 std::max(smallest.cy, LONG{MulDiv(kept.size->cy, dpi, keptDpi)}),
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOMOVE);
    restorePosition(window, kept.corner);
}

} // namespace framework
