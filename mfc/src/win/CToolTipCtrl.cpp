// Tool tips: how a tool is named to the control, and which window the pointer is over.
#include "ToolTips.h"

IMPLEMENT_DYNAMIC(CToolTipCtrl, CWnd)

// clang-format off
BEGIN_MESSAGE_MAP(CToolTipCtrl, CWnd)
    ON_MESSAGE(TTM_WINDOWFROMPOINT, &CToolTipCtrl::OnWindowFromPoint)
END_MESSAGE_MAP()
// clang-format on

namespace {

constexpr int kTextCapacity = 1024;

bool isComboWithEdit(HWND window) {
    wchar_t name[16] = {};
    ::GetClassName(window, name, 16);
    return _wcsicmp(name, WC_COMBOBOX) == 0 && (::GetWindowLong(window, GWL_STYLE) & 3) == CBS_DROPDOWN;
}

} // namespace

BOOL CToolTipCtrl::Create(CWnd* pParentWnd, DWORD dwStyle) {
    const HWND parent = pParentWnd ? pParentWnd->m_hWnd : nullptr;
    return CreateEx(0, TOOLTIPS_CLASS, nullptr, WS_POPUP | dwStyle, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                    CW_USEDEFAULT, parent, nullptr);
}

TOOLINFO CToolTipCtrl::Tool(const CWnd* wnd, UINT_PTR id) const {
    TOOLINFO tool = {};
    // The structure's size before version 6 of the control, which all versions accept.
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    if (id != 0) {
        tool.hwnd = wnd->m_hWnd;
        tool.uId = id;
        return tool;
    }
    const HWND parent = ::GetParent(wnd->m_hWnd);
    tool.hwnd = parent ? parent : wnd->m_hWnd;
    tool.uFlags = TTF_IDISHWND;
    tool.uId = reinterpret_cast<UINT_PTR>(wnd->m_hWnd);
    return tool;
}

BOOL CToolTipCtrl::AddTool(CWnd* pWnd, LPCTSTR lpszText, LPCRECT lpRectTool, UINT_PTR nIDTool) {
    TOOLINFO tool = Tool(pWnd, nIDTool);
    tool.lpszText = const_cast<LPTSTR>(lpszText);
    if (lpRectTool)
        tool.rect = *lpRectTool;
    return static_cast<BOOL>(SendMessage(TTM_ADDTOOL, 0, reinterpret_cast<LPARAM>(&tool)));
}

BOOL CToolTipCtrl::AddTool(CWnd* pWnd, UINT nIDText, LPCRECT lpRectTool, UINT_PTR nIDTool) {
    CString text;
    if (!text.LoadString(nIDText))
        return FALSE;
    return AddTool(pWnd, text.GetString(), lpRectTool, nIDTool);
}

void CToolTipCtrl::DelTool(CWnd* pWnd, UINT_PTR nIDTool) {
    TOOLINFO tool = Tool(pWnd, nIDTool);
    SendMessage(TTM_DELTOOL, 0, reinterpret_cast<LPARAM>(&tool));
}

void CToolTipCtrl::UpdateTipText(LPCTSTR lpszText, CWnd* pWnd, UINT_PTR nIDTool) {
    TOOLINFO tool = Tool(pWnd, nIDTool);
    tool.lpszText = const_cast<LPTSTR>(lpszText);
    SendMessage(TTM_UPDATETIPTEXT, 0, reinterpret_cast<LPARAM>(&tool));
}

void CToolTipCtrl::GetText(CString& str, CWnd* pWnd, UINT_PTR nIDTool) const {
    TOOLINFO tool = Tool(pWnd, nIDTool);
    tool.lpszText = str.GetBuffer(kTextCapacity);
    *tool.lpszText = 0;
    SendMessage(TTM_GETTEXT, kTextCapacity, reinterpret_cast<LPARAM>(&tool));
    str.ReleaseBuffer();
}

void CToolTipCtrl::SetToolRect(CWnd* pWnd, UINT_PTR nIDTool, LPCRECT lpRect) {
    TOOLINFO tool = Tool(pWnd, nIDTool);
    tool.rect = *lpRect;
    SendMessage(TTM_NEWTOOLRECT, 0, reinterpret_cast<LPARAM>(&tool));
}

LRESULT CToolTipCtrl::OnWindowFromPoint(WPARAM, LPARAM lParam) {
    const POINT point = *reinterpret_cast<const POINT*>(lParam);
    HWND found = ::WindowFromPoint(point);
    if (!found)
        return 0;
    const HWND parent = ::GetParent(found);
    if (parent && isComboWithEdit(parent))
        found = parent;
    // The system passes over a disabled child and answers its parent.
    else if (const HWND child = kelmfc::childAt(found, point); child && !::IsWindowEnabled(child))
        found = child;
    return reinterpret_cast<LRESULT>(found);
}
