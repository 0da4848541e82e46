#include "CLayerStateList.h"

BEGIN_MESSAGE_MAP(CLayerStateList, COrvUiListCtrl)
ON_MESSAGE(WM_GETOBJECT, &CLayerStateList::OnAskedForObject)
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
    const LRESULT answer = m_accessibility.answer(*this, asked);
    return answer > 0 ? answer : Default();
}

void CLayerStateList::tellFocusedRowChanged() {
    const int row = GetNextItem(-1, LVNI_FOCUSED);
    if (row >= 0)
        ::NotifyWinEvent(EVENT_OBJECT_DESCRIPTIONCHANGE, m_hWnd, OBJID_CLIENT, row + 1);
}
