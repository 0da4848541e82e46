// The control draws its rows itself and the samples are drawn over them, so that the selection looks as in any other
// list.

#include "SampleList.h"

#include "base/Scaling.h"

#include <utility>

namespace framework {
namespace {

// Between the sample and the edges of its cell, in dots at 96 an inch.
constexpr int kMargin = 6;

} // namespace

BEGIN_MESSAGE_MAP(SampleList, COrvUiListCtrl)
ON_NOTIFY_REFLECT(NM_CUSTOMDRAW, OnCustomDraw)
END_MESSAGE_MAP()

void SampleList::setSamples(int column, DrawSample draw) {
    m_column = column;
    m_draw = std::move(draw);
}

void SampleList::OnCustomDraw(NMHDR* header, LRESULT* result) {
    const auto& drawing = *reinterpret_cast<const NMLVCUSTOMDRAW*>(header);
    *result = CDRF_DODEFAULT;
    if (!m_draw)
        return;
    if (drawing.nmcd.dwDrawStage == CDDS_PREPAINT)
        *result = CDRF_NOTIFYITEMDRAW;
    else if (drawing.nmcd.dwDrawStage == CDDS_ITEMPREPAINT)
        *result = CDRF_NOTIFYPOSTPAINT;
    else if (drawing.nmcd.dwDrawStage == CDDS_ITEMPOSTPAINT)
        drawSampleOf(drawing);
}

void SampleList::drawSampleOf(const NMLVCUSTOMDRAW& drawing) {
    const int row = static_cast<int>(drawing.nmcd.dwItemSpec);
    CRect cell;
    if (!GetSubItemRect(row, m_column, LVIR_BOUNDS, cell))
        return;
    const HDC dc = drawing.nmcd.hdc;
    cell.DeflateRect(scaledFor(GetSafeHwnd(), kMargin), 0);
    if (cell.Width() <= 0)
        return;
    const bool lit = GetItemState(row, LVIS_SELECTED) != 0 && ::GetFocus() == GetSafeHwnd();
    const int saved = SaveDC(dc);
    IntersectClipRect(dc, cell.left, cell.top, cell.right, cell.bottom);
    m_draw({dc, cell, GetSysColor(lit ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT), dpiOf(GetSafeHwnd())}, row);
    RestoreDC(dc, saved);
}

} // namespace framework
