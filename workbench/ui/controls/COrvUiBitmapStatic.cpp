// A bitmap button that looks like part of the dialog until the pointer or the focus is on it.

#include "OrvUiControls.h"

COrvUiBitmapStatic::COrvUiBitmapStatic() {}
COrvUiBitmapStatic::~COrvUiBitmapStatic() {}

void COrvUiBitmapStatic::DrawFrame(CDC& dc, const CRect& button, UINT itemState) {
    const bool framed = IsHot() || (itemState & (ODS_FOCUS | ODS_SELECTED));
    if (framed && !(itemState & ODS_DISABLED)) {
        COrvUiBitmapButton::DrawFrame(dc, button, itemState);
        return;
    }
    // What the dialog shows around the button.
    const HWND parent = ::GetParent(GetSafeHwnd());
    const auto brush = reinterpret_cast<HBRUSH>(::SendMessageW(
        parent, WM_CTLCOLORBTN, reinterpret_cast<WPARAM>(dc.GetSafeHdc()), reinterpret_cast<LPARAM>(GetSafeHwnd())));
    ::FillRect(dc.GetSafeHdc(), &button, brush ? brush : GetSysColorBrush(COLOR_BTNFACE));
}
