#include "DialogTips.h"

#include "OrvUiControls.h"

#include "base/Scaling.h"

#include <commctrl.h>

namespace framework {
namespace {

// The tools of controls have the control's window as their id; the moving tool needs an id that is no window.
constexpr UINT_PTR kMovingTool = 1;
// Longer texts are broken into lines of this many pixels at 96 an inch.
constexpr int kTipWidth = 360;

// Before version 6 of the common controls the structure ends before its last member, and that size works for both.
const UINT kToolInfoSize = TTTOOLINFOW_V2_SIZE;

TOOLINFOW toolOfWindow(HWND dialog, HWND window, const std::wstring& text) {
    TOOLINFOW tool = {};
    tool.cbSize = kToolInfoSize;
    tool.uFlags = TTF_IDISHWND;
    tool.hwnd = dialog;
    tool.uId = reinterpret_cast<UINT_PTR>(window);
    tool.lpszText = const_cast<wchar_t*>(text.c_str());
    return tool;
}

/// The control that a window of a dialog belongs to: for the edit field of a combo box that is the box.
HWND controlOf(HWND window) {
    wchar_t name[16] = L"";
    const HWND parent = GetParent(window);
    const bool inBox = GetClassNameW(parent, name, 16) && lstrcmpiW(name, WC_COMBOBOXW) == 0;
    return inBox ? parent : window;
}

struct ToolMaker {
    HWND tips;
    HWND dialog;
    const TipTexts& texts;
};

// Called by the system, so nothing here may throw.
BOOL CALLBACK addToolOf(HWND window, LPARAM parameter) {
    const auto& maker = *reinterpret_cast<const ToolMaker*>(parameter);
    const auto text = maker.texts.find(GetDlgCtrlID(controlOf(window)));
    if (text == maker.texts.end())
        return TRUE;
    TOOLINFOW tool = toolOfWindow(maker.dialog, window, text->second);
    SendMessageW(maker.tips, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    return TRUE;
}

bool isOfInterest(UINT message) {
    return message >= WM_MOUSEFIRST && message <= WM_MOUSELAST;
}

} // namespace

DialogTips::DialogTips(HWND dialog, const TipTexts& texts) {
    m_window =
        CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT,
                        CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, dialog, nullptr, nullptr, nullptr);
    if (!m_window)
        return;
    fitToScaling(dpiOf(dialog));
    // Includes the controls of pages within the dialog.
    const ToolMaker maker = {m_window, dialog, texts};
    EnumChildWindows(dialog, addToolOf, reinterpret_cast<LPARAM>(&maker));
}

DialogTips::~DialogTips() {
    // The window dies with the dialog that owns it, if that went first.
    if (m_window && IsWindow(m_window))
        DestroyWindow(m_window);
}

void DialogTips::fitToScaling(int dpi) {
    if (m_window)
        SendMessageW(m_window, TTM_SETMAXTIPWIDTH, 0, MulDiv(kTipWidth, dpi, kDesignDpi));
}

void DialogTips::allow(bool on) {
    if (m_allowed && !on && m_window && IsWindowVisible(m_window))
        SendMessageW(m_window, TTM_POP, 0, 0);
    m_allowed = on;
}

void DialogTips::relay(const MSG& message) {
    if (!m_window || !m_allowed || !isOfInterest(message.message))
        return;
    if (message.message == WM_MOUSEMOVE) {
        CWnd* target = CWnd::FromHandlePermanent(message.hwnd);
        if (auto* list = dynamic_cast<COrvUiListCtrl*>(target))
            followList(*list, message);
        else if (auto* button = dynamic_cast<COrvUiOwnerDrawButton*>(target))
            followButton(*button);
    }
    MSG relayed = message;
    SendMessageW(m_window, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&relayed));
}

void DialogTips::followList(COrvUiListCtrl& list, const MSG& message) {
    CRect cell;
    CString text;
    const CPoint point(static_cast<short>(LOWORD(message.lParam)), static_cast<short>(HIWORD(message.lParam)));
    if (list.TipAtPoint(point, cell, text))
        setTool(list.GetSafeHwnd(), cell, text);
    else
        setTool(nullptr, {}, L"");
}

void DialogTips::followButton(COrvUiOwnerDrawButton& button) {
    const CString text = button.TipText();
    RECT face = {};
    GetClientRect(button.GetSafeHwnd(), &face);
    if (text.IsEmpty())
        setTool(nullptr, {}, L"");
    else
        setTool(button.GetSafeHwnd(), face, text);
}

void DialogTips::setTool(HWND owner, const RECT& area, const wchar_t* text) {
    if (owner == m_toolOwner && EqualRect(&area, &m_toolArea) && m_toolText == text)
        return;
    TOOLINFOW tool = {};
    tool.cbSize = kToolInfoSize;
    tool.uId = kMovingTool;
    if (m_toolOwner) {
        tool.hwnd = m_toolOwner;
        SendMessageW(m_window, TTM_POP, 0, 0);
        SendMessageW(m_window, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    }
    m_toolOwner = owner;
    m_toolArea = area;
    m_toolText = text;
    if (!owner)
        return;
    tool.hwnd = owner;
    tool.rect = area;
    tool.lpszText = m_toolText.data();
    SendMessageW(m_window, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

} // namespace framework
