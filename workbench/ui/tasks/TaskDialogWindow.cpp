#include "TaskDialogWindow.h"

#include "OrvUiServices.h"
#include "base/OtherWindowsDisabled.h"
#include "base/OutOfMemory.h"

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

bool isWine() {
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

/// Brings the window into the middle of its owner; where memory is short it stays where it is. Wine does it for the
/// first task dialog of a program, and leaves all others in their owner's corner.
void center(HWND window) {
    asFarAsMemoryLasts([window] { CWnd::FromHandle(window)->CenterWindow(); });
}

/// The text so that the system's task dialog shows just that. Wine draws it as a label, in which an ampersand marks a
/// letter and two are one; Windows draws it as it is.
std::wstring unmarked(const std::wstring& text) {
    if (!isWine())
        return text;
    std::wstring doubled;
    for (const wchar_t character : text)
        doubled.append(character == L'&' ? 2 : 1, character);
    return doubled;
}

/// Keeps a parent disabled that a dialog over it has disabled, and leaves the input to that dialog. Wine enables a task
/// dialog's parent at the end whatever it was before, and gives it the input, so that it comes to lie over the dialog.
class ParentLeftAsItWas {
  public:
    explicit ParentLeftAsItWas(HWND parent)
        : m_disabled(parent && !IsWindowEnabled(parent) ? parent : nullptr), m_active(GetActiveWindow()) {}
    ~ParentLeftAsItWas() {
        if (!m_disabled || !IsWindowEnabled(m_disabled))
            return;
        const bool hasInput = GetActiveWindow() == m_disabled;
        EnableWindow(m_disabled, FALSE);
        if (hasInput)
            SetActiveWindow(m_active);
    }
    ParentLeftAsItWas(const ParentLeftAsItWas&) = delete;
    ParentLeftAsItWas& operator=(const ParentLeftAsItWas&) = delete;

  private:
    HWND m_disabled;
    HWND m_active;
};

HRESULT CALLBACK onEvent(HWND window, UINT event, WPARAM, LPARAM, LONG_PTR others) {
    if (event == TDN_DIALOG_CONSTRUCTED) {
        SetWindowSubclass(window, closeByEscape, 0, 0);
        if (isWine())
            center(window);
    }
    if (event == TDN_BUTTON_CLICKED)
        reinterpret_cast<OtherWindowsDisabled*>(others)->enable();
    return S_OK;
}

} // namespace

int showTaskDialog(HWND parent, const TaskDescription& description) {
    const Indirect indirect = taskDialogIndirect();
    if (!indirect)
        return 0;
    const std::vector<TASKDIALOG_BUTTON> buttons = commandButtons(description);
    const std::wstring instruction = unmarked(description.instruction);
    const std::wstring content = unmarked(description.content);
    TASKDIALOGCONFIG config = {};
    config.cbSize = sizeof config;
    config.hwndParent = parent;
    config.dwFlags = TDF_ALLOW_DIALOG_CANCELLATION | TDF_POSITION_RELATIVE_TO_WINDOW;
    if (!buttons.empty())
        config.dwFlags |= TDF_USE_COMMAND_LINKS;
    config.dwCommonButtons = static_cast<TASKDIALOG_COMMON_BUTTON_FLAGS>(description.commonButtons);
    config.pszWindowTitle = description.title.c_str();
    config.pszMainIcon = iconResource(description.icon);
    config.pszMainInstruction = instruction.c_str();
    config.pszContent = content.c_str();
    config.cButtons = static_cast<UINT>(buttons.size());
    config.pButtons = buttons.data();
    const ParentLeftAsItWas parentLeftAsItWas(parent);
    OtherWindowsDisabled others;
    config.pfCallback = onEvent;
    config.lpCallbackData = reinterpret_cast<LONG_PTR>(&others);
    int pressed = 0;
    return SUCCEEDED(indirect(&config, &pressed, nullptr, nullptr)) ? pressed : 0;
}

} // namespace framework
