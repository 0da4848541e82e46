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

bool DialogControls::isEnabled(int control) const {
    const HWND window = at(control);
    return window && ::IsWindowEnabled(window);
}

CRect DialogControls::place(int control) const {
    CRect place(0, 0, 0, 0);
    const HWND window = at(control);
    if (!window || !::GetWindowRect(window, &place))
        return place;
    ::MapWindowPoints(nullptr, ::GetParent(window), reinterpret_cast<POINT*>(static_cast<RECT*>(&place)), 2);
    return place;
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

void DialogControls::show(int control, bool shown) const {
    if (const HWND window = at(control))
        ::ShowWindow(window, shown ? SW_SHOW : SW_HIDE);
}

void DialogControls::setText(int control, const wchar_t* text) const {
    if (const HWND window = at(control))
        ::SetWindowTextW(window, text);
}

void DialogControls::moveBy(int control, int dx) const {
    const CRect from = place(control);
    if (const HWND window = at(control))
        ::MoveWindow(window, from.left + dx, from.top, from.Width(), from.Height(), TRUE);
}
