// Opens a page of the help in the user's browser.

#include "OrvUiServices.h"

#include "help/HelpPage.h"
#include "instruments/HostCalls.h"

#include <shellapi.h>

namespace {

bool fileExists(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

bool openPage(HWND owner, const std::wstring& page) {
    // ShellExecute answers an error as a number up to 32.
    const HINSTANCE answer = ShellExecuteW(owner, L"open", page.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
    return reinterpret_cast<INT_PTR>(answer) > 32;
}

void tell(HWND owner, const std::wstring& text) {
    MessageBoxW(owner, text.c_str(), L"Help", MB_OK | MB_ICONINFORMATION);
}

} // namespace

void keledHelp(const wchar_t* file, const wchar_t* topic, int command) {
    instruments::HostCall call("keledHelp", file, topic, command);
    const std::wstring name = topic ? topic : L"";
    const std::wstring page = framework::helpPage(file ? file : L"", name);
    // The dialog that asks is the active window of this thread, and it must not be left usable behind the message.
    const HWND owner = GetActiveWindow();
    if (page.empty() || !fileExists(page))
        tell(owner, L"There is no help page for \u201c" + name + L"\u201d.");
    else if (!openPage(owner, page))
        tell(owner, L"The help page could not be opened:\n" + page);
}
