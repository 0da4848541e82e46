// Opens a page of the help in the user's browser.

#include "OrvUiServices.h"

#include "base/OutOfMemory.h"
#include "help/HelpPage.h"
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

void openPage(HWND owner, const std::wstring& page) {
    // Wine may know no program for the extension, but always one for the class of pages.
    if (!openAs(owner, page, nullptr))
        openAs(owner, page, L"htmlfile");
}

} // namespace

void keledHelp(const wchar_t* file, const wchar_t* topic, int command) {
    framework::asFarAsMemoryLasts([&] {
        instruments::HostCall call("keledHelp", file, topic, command);
        const std::wstring page = framework::helpPage(file ? file : L"", topic ? topic : L"");
        // No operation of the host reports by itself: without a page, or a program for it, nothing opens.
        if (!page.empty() && fileExists(page))
            openPage(GetActiveWindow(), page);
    });
}
