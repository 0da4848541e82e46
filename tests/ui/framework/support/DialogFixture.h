// What the tests of dialogs share: a dialog that sets itself up as modules do, and a registry of its own for each test.
#pragma once

#include "Driver.h"
#include "FrameworkTestIds.h"
#include "OrvUiControls.h"
#include "OrvUiDialog.h"

#include <gmock/gmock.h>

#include <functional>
#include <string>

/// A dialog whose set-up after the base OnInitDialog is the test's.
class TestDialog : public CKelUiDialog {
  public:
    explicit TestDialog(UINT templateId, const wchar_t* name = L"FrameworkTests:Dialog", CWnd* parent = nullptr);

    std::function<void()> setUp;
    std::function<void(UINT)> onCommand;

    BOOL OnInitDialog() override;
    HWND control(int id) const { return ::GetDlgItem(GetSafeHwnd(), id); }
    /// Opens the dialog with the pointer away from it, runs the script in it and closes it with OK.
    /// @return the dialog's answer
    INT_PTR run(const ui::Script& script = {});

  protected:
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;

  private:
    const wchar_t* m_name;
};

/// A script with one assertion or action.
ui::Script look(std::string what, std::function<void()> see);
RECT screenRect(HWND window);

/// Moves the framework's store to a key of the tests, and empties it before and after each one.
class DialogFixture : public testing::Test {
  protected:
    DialogFixture();
    ~DialogFixture() override;

    /// The registry path, below HKEY_CURRENT_USER, of what is kept for a dialog.
    static std::wstring kept(const std::wstring& below = {});
    static void writeValue(const std::wstring& path, const wchar_t* name, DWORD type, const void* data, DWORD size);
    static void writeNumber(const std::wstring& path, const wchar_t* name, DWORD value);
};
