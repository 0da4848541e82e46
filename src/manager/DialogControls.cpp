// Access to a dialog's controls.
#include "DialogControls.h"

void DialogControls::find(HWND dialog) {
    m_windows.clear();
    for (HWND child = ::GetWindow(dialog, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT))
        m_windows.emplace(::GetDlgCtrlID(child), child);
}

HWND DialogControls::at(int control) const {
    const auto found = m_windows.find(control);
    return found == m_windows.end() ? nullptr : found->second;
}

bool DialogControls::isTicked(int control) const {
    const HWND window = at(control);
    return window && ::SendMessageW(window, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

void DialogControls::tick(int control, bool on) const {
    const HWND window = at(control);
    if (window && isTicked(control) != on)
        ::SendMessageW(window, BM_SETCHECK, on ? BST_CHECKED : BST_UNCHECKED, 0);
}

void DialogControls::enable(int control, bool enabled) const {
    const HWND window = at(control);
    if (window && isEnabled(control) != enabled)
        ::EnableWindow(window, enabled);
}

bool DialogControls::isEnabled(int control) const {
    const HWND window = at(control);
    return window && ::IsWindowEnabled(window);
}
