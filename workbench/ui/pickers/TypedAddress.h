// The address of a remote file that somebody types as the file name into the system's file dialog.
#pragma once

#include <windows.h>

#include <string>

namespace framework {

/// Watches the next dialog that this thread opens over the owner. The system's file dialog knows no servers and would
/// refuse an address as a bad name; so OK is handled here when the name has the form of an address. The address of a
/// remote file ends the dialog; for anything else with a scheme the user is told why it is refused, and the dialog
/// stays.
class TypedAddress {
  public:
    /// @param title the title of the dialog, which the refusal shows too; may be null
    TypedAddress(HWND owner, const wchar_t* title);
    ~TypedAddress();
    TypedAddress(const TypedAddress&) = delete;
    TypedAddress& operator=(const TypedAddress&) = delete;

    /// The address as it was typed, without blanks around it. Empty while none has ended the dialog, which then seems
    /// cancelled to whoever opened it.
    const std::wstring& text() const { return m_text; }

  private:
    static LRESULT CALLBACK onHook(int code, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK onMessage(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                      DWORD_PTR self);
    void watch(HWND dialog);
    void unhook();
    /// Deals with the name in the dialog when it is an address. False when it isn't one, so that the system's dialog
    /// has to deal with it.
    bool takes(HWND dialog);

    HWND m_owner;
    const wchar_t* m_title;
    HHOOK m_hook;
    TypedAddress* m_outer; ///< the one of a dialog that was open before
    HWND m_dialog = nullptr;
    std::wstring m_text;
};

} // namespace framework
