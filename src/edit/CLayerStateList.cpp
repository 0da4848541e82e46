#include "CLayerStateList.h"

BEGIN_MESSAGE_MAP(CLayerStateList, COrvUiListCtrl)
ON_MESSAGE(WM_GETOBJECT, &CLayerStateList::OnAskedForObject)
ON_WM_SETFOCUS()
ON_WM_KILLFOCUS()
ON_WM_NCPAINT()
ON_WM_DESTROY()
END_MESSAGE_MAP()

CLayerStateList::~CLayerStateList() = default;

int CLayerStateList::OnGetTipRect(CRect& rect) {
    COrvUiListCtrl::OnGetTipRect(rect);
    CPoint point;
    GetCursorPos(&point);
    int row = -1;
    int column = -1;
    return !GetItemAtPoint(point, row, column);
}

LRESULT CLayerStateList::OnAskedForObject(WPARAM asked, LPARAM object) {
    // The system hands over the number of the object with or without its sign.
    if (static_cast<LONG>(object) != OBJID_CLIENT)
        return Default();
    if (!m_accessibility)
        m_accessibility = std::make_unique<GridAccessibility>(*this);
    const LRESULT answer = m_accessibility->answer(asked);
    return answer > 0 ? answer : Default();
}

void CLayerStateList::OnDestroy() {
    m_accessibility.reset();
    COrvUiListCtrl::OnDestroy();
}

void CLayerStateList::tellFocusedRowChanged() {
    const int row = GetNextItem(-1, LVNI_FOCUSED);
    if (row >= 0)
        ::NotifyWinEvent(EVENT_OBJECT_DESCRIPTIONCHANGE, m_hWnd, OBJID_CLIENT, row + 1);
}

void CLayerStateList::OnSetFocus(CWnd* former) {
    COrvUiListCtrl::OnSetFocus(former);
    showFocus(true);
}

void CLayerStateList::OnKillFocus(CWnd* next) {
    COrvUiListCtrl::OnKillFocus(next);
    showFocus(false);
}

void CLayerStateList::showFocus(bool focused) {
    m_focused = focused;
    // The rows look the same, but Wine's list draws its theme over all of the window when it is asked for the frame.
    RedrawWindow(nullptr, nullptr, RDW_FRAME | RDW_INVALIDATE | RDW_ALLCHILDREN);
}

// The rows show the selection and no focus, and there may be none at all, so the border tells where the keyboard is.
void CLayerStateList::OnNcPaint() {
    Default();
    if (!m_focused)
        return;
    CRect border;
    GetWindowRect(&border);
    border.OffsetRect(-border.left, -border.top);
    CWindowDC dc(this);
    ::FrameRect(dc.m_hDC, &border, ::GetSysColorBrush(COLOR_HIGHLIGHT));
}
