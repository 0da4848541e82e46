// Keeps the user from the windows of this thread while one of them has to be answered first. For a task dialog, the
// system does that for its parent alone, and for a window without a modal loop not at all.
#pragma once

#include <windows.h>

#include <utility>
#include <vector>

namespace framework {

/// Made before the window that is to be answered. Those that are disabled already stay so.
class OtherWindowsDisabled {
  public:
    OtherWindowsDisabled() {
        for (HWND window = nullptr; (window = FindWindowExW(nullptr, window, nullptr, nullptr)) != nullptr;) {
            const bool ours = GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId();
            if (ours && IsWindowVisible(window) && IsWindowEnabled(window))
                m_disabled.push_back(window);
        }
        for (const HWND window : m_disabled)
            EnableWindow(window, FALSE);
    }
    ~OtherWindowsDisabled() { enable(); }
    OtherWindowsDisabled(const OtherWindowsDisabled&) = delete;
    OtherWindowsDisabled& operator=(const OtherWindowsDisabled&) = delete;

    /// Before that window goes, or the system would find no window of ours to give the input to.
    void enable() {
        for (const HWND window : std::exchange(m_disabled, {}))
            EnableWindow(window, TRUE);
    }

  private:
    std::vector<HWND> m_disabled;
};

} // namespace framework
