// A bitmap button that looks like part of the dialog until the pointer or the focus is on it.

#include "OrvUiControls.h"

COrvUiBitmapStatic::COrvUiBitmapStatic() {}
COrvUiBitmapStatic::~COrvUiBitmapStatic() {}

void COrvUiBitmapStatic::DrawFrame(CDC& dc, CRect& button, UINT itemState) {
    const CRect whole = button;
    COrvUiBitmapButton::DrawFrame(dc, button, itemState);
    const bool framed = IsHot() || (itemState & (ODS_FOCUS | ODS_SELECTED));
    if (framed && !(itemState & ODS_DISABLED))
        return;
    // The face keeps its place; only the frame goes, behind what the dialog shows around the button.
    const HWND parent = ::GetParent(GetSafeHwnd());
    const auto brush = reinterpret_cast<HBRUSH>(::SendMessageW(
        parent, WM_CTLCOLORBTN, reinterpret_cast<WPARAM>(dc.GetSafeHdc()), reinterpret_cast<LPARAM>(GetSafeHwnd())));
    ::FillRect(dc.GetSafeHdc(), &whole, brush ? brush : GetSysColorBrush(COLOR_BTNFACE));
}
