// The window that tells how far something is that takes long, with a button that cancels it.
#pragma once

#include "base/OtherWindowsDisabled.h"

#include <windows.h>

#include <chrono>
#include <cstdint>
#include <string>

namespace framework {

/// What the window shows.
struct ProgressFacts {
    std::wstring title;     ///< what is done: "Fetching File"
    std::wstring text;      ///< to what
    std::wstring beginning; ///< what is waited for until there is an amount
    std::uint64_t done = 0;
    std::uint64_t total = 0; ///< 0 until it is known
    std::chrono::milliseconds elapsed{0};
};

/// While it stands, no other window of this thread can be used. Its messages are dispatched by handleMessages() alone.
class ProgressWindow {
  public:
    /// Shows it over the active window, if it can be made. Keys and clicks that wait for a window are dropped: they
    /// weren't meant for this one.
    explicit ProgressWindow(const ProgressFacts& facts);
    ~ProgressWindow();
    ProgressWindow(const ProgressWindow&) = delete;
    ProgressWindow& operator=(const ProgressWindow&) = delete;

    bool isOpen() const { return m_window != nullptr; }
    void show(const ProgressFacts& facts);
    /// Dispatches the messages of this thread that have come, or as many of them as a moment is enough for.
    void handleMessages();
    /// Whether the user has cancelled, or the program is to end.
    bool isCancelled() const { return m_cancelled; }

  private:
    static INT_PTR CALLBACK dialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    /// Whether the message ends the program; if so, the work is cancelled.
    bool isEnd(const MSG& message);
    void dropInput();
    void setText(int control, const std::wstring& text);

    HWND m_owner; ///< what it stands over; asked for before the others are disabled
    OtherWindowsDisabled m_others;
    HWND m_window;
    bool m_cancelled = false;
};

} // namespace framework
