#include "TaskDialogWindow.h"

#include "OrvUiServices.h"

#include <commctrl.h>

namespace framework {
namespace {

using Indirect = HRESULT(WINAPI*)(const TASKDIALOGCONFIG*, int*, int*, BOOL*);

/// Finds TaskDialogIndirect; null with version 5 of the common controls, which has no task dialogs. An import would
/// keep this library from being loaded there.
Indirect taskDialogIndirect() {
    const HMODULE library = GetModuleHandleW(L"comctl32.dll");
    return library ? reinterpret_cast<Indirect>(reinterpret_cast<void*>(GetProcAddress(library, "TaskDialogIndirect")))
                   : nullptr;
}

const wchar_t* iconResource(TaskIcon icon) {
    switch (icon) {
    case TaskIcon::information:
        return TD_INFORMATION_ICON;
    case TaskIcon::warning:
        return TD_WARNING_ICON;
    case TaskIcon::error:
        return TD_ERROR_ICON;
    case TaskIcon::shield:
        return TD_SHIELD_ICON;
    case TaskIcon::none:
        break;
    }
    return nullptr;
}

std::vector<TASKDIALOG_BUTTON> commandButtons(const TaskDescription& description) {
    std::vector<TASKDIALOG_BUTTON> buttons;
    for (const std::wstring& text : description.commands)
        buttons.push_back({kTaskDialogFirstCommand + static_cast<int>(buttons.size()), text.c_str()});
    return buttons;
}

// Wine's task dialog leaves Escape unanswered where there is no Cancel button: it arrives as the command of a button
// that doesn't exist. The title bar's close is answered, and means the same.
LRESULT CALLBACK closeByEscape(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR) {
    if (message == WM_COMMAND && wParam == IDCANCEL && lParam == 0)
        return SendMessageW(window, WM_CLOSE, 0, 0);
    return DefSubclassProc(window, message, wParam, lParam);
}

HRESULT CALLBACK onEvent(HWND window, UINT event, WPARAM, LPARAM, LONG_PTR) {
    if (event == TDN_DIALOG_CONSTRUCTED)
        SetWindowSubclass(window, closeByEscape, 0, 0);
    return S_OK;
}

} // namespace

int showTaskDialog(HWND parent, const TaskDescription& description) {
    const Indirect indirect = taskDialogIndirect();
    if (!indirect)
        return 0;
    const std::vector<TASKDIALOG_BUTTON> buttons = commandButtons(description);
    TASKDIALOGCONFIG config = {};
    config.cbSize = sizeof config;
    config.hwndParent = parent;
    config.dwFlags = TDF_ALLOW_DIALOG_CANCELLATION | TDF_POSITION_RELATIVE_TO_WINDOW;
    if (!buttons.empty())
        config.dwFlags |= TDF_USE_COMMAND_LINKS;
    config.dwCommonButtons = static_cast<TASKDIALOG_COMMON_BUTTON_FLAGS>(description.commonButtons);
    config.pszWindowTitle = description.title.c_str();
    config.pszMainIcon = iconResource(description.icon);
    config.pszMainInstruction = description.instruction.c_str();
    config.pszContent = description.content.c_str();
    config.cButtons = static_cast<UINT>(buttons.size());
    config.pButtons = buttons.data();
    config.pfCallback = onEvent;
    int pressed = 0;
    return SUCCEEDED(indirect(&config, &pressed, nullptr, nullptr)) ? pressed : 0;
}

} // namespace framework
