// Opens a page of the help in the user's browser.

#include "OrvUiServices.h"

#include "help/HelpPage.h"
#include "base/OutOfMemory.h"
#include "instruments/HostCalls.h"

#include <shellapi.h>

namespace {

bool fileExists(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

bool openAs(HWND owner, const std::wstring& page, const wchar_t* className) {
    SHELLEXECUTEINFOW how = {};
    how.cbSize = sizeof how;
    how.fMask = SEE_MASK_FLAG_NO_UI | (className ? SEE_MASK_CLASSNAME : 0);
    how.hwnd = owner;
    how.lpVerb = L"open";
    how.lpFile = page.c_str();
    how.lpClass = className;
    how.nShow = SW_SHOWNORMAL;
    return ShellExecuteExW(&how) != FALSE;
}

bool openPage(HWND owner, const std::wstring& page) {
    // Wine may know no program for the extension, but always one for the class of pages.
    return openAs(owner, page, nullptr) || openAs(owner, page, L"htmlfile");
}

void tell(HWND owner, const std::wstring& text) {
    MessageBoxW(owner, text.c_str(), L"Help", MB_OK | MB_ICONINFORMATION);
}

} // namespace

void keledHelp(const wchar_t* file, const wchar_t* topic, int command) {
    framework::asFarAsMemoryLasts([&] {
        instruments::HostCall call("keledHelp", file, topic, command);
        const std::wstring name = topic ? topic : L"";
        const std::wstring page = framework::helpPage(file ? file : L"", name);
        // The dialog that asks is the active window of this thread, and it must not be left usable behind the message.
        const HWND owner = GetActiveWindow();
        if (page.empty() || !fileExists(page))
            tell(owner, L"There is no help page for \u201c" + name + L"\u201d.");
        else if (!openPage(owner, page))
            tell(owner, L"The help page could not be opened:\n" + page);
    });
}
