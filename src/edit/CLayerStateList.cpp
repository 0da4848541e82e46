#include "CLayerStateList.h"

CLayerStateList::~CLayerStateList() = default;

int CLayerStateList::OnGetTipRect(CRect& rect) {
    COrvUiListCtrl::OnGetTipRect(rect);
    CPoint point;
    GetCursorPos(&point);
    int row = -1;
    int column = -1;
    return !GetItemAtPoint(point, row, column);
}
