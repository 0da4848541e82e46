// A program that was started to be driven from outside, as a person would: its windows are found among those on the
// screen, read, and reached through real input. Every wait has a bound; what doesn't come to pass throws a
// Disappointment.
#pragma once

#include <windows.h>

#include <functional>
#include <stdexcept>
#include <string>

namespace tour {

/// Something that a person would have waited for in vain; its text says what.
class Disappointment : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

class DrivenProgram {
  public:
    /// Starts the program of that path.
    explicit DrivenProgram(const std::wstring& path);
    /// Ends it by force if it still runs.
    ~DrivenProgram();
    DrivenProgram(const DrivenProgram&) = delete;
    DrivenProgram& operator=(const DrivenProgram&) = delete;

    /// Waits for a visible top-level window of the program that `looksRight` accepts.
    HWND waitForWindow(const std::string& what, const std::function<bool(HWND)>& looksRight);
    /// The same for a window with that title.
    HWND waitForTitle(const std::wstring& title);
    /// Waits until `seen` answers true. When the program ends before that, throws a Disappointment.
    void waitUntil(const std::string& what, const std::function<bool()>& seen);
    /// Waits for the program's end and answers its exit code.
    DWORD waitForEnd();
    bool hasEnded() const;

  private:
    HWND find(const std::function<bool(HWND)>& looksRight) const;

    HANDLE m_process = nullptr;
    DWORD m_id = 0;
};

/// Brings the pointer to rest at a point of the screen.
void movePointer(POINT point);
/// Clicks the middle of a rectangle of the screen.
void clickMiddle(const RECT& rect);
/// Clicks the middle of a control once it is shown and enabled.
void clickControl(DrivenProgram& program, HWND dialog, int control);
/// Types into a control once it, or a part of it, has the keyboard, and waits until it shows that text and no other.
void typeInto(DrivenProgram& program, HWND control, const std::wstring& text);
/// A window's text, also one of another process.
std::wstring windowText(HWND window);
/// The name of a file without its folders.
std::wstring fileNameOf(const std::wstring& path);
/// Tells on the console what is done in a dialog.
void say(const std::wstring& what);
/// The text in UTF-8, for a console.
std::string narrow(const std::wstring& text);

} // namespace tour
