// See SampleList.h. The list draws its rows itself; the samples are added on top, so that the selection looks as in any
// other list.

#include "SampleList.h"

#include <utility>

namespace framework {
namespace {

// Between the sample and the edges of its cell, in dots at 96 an inch.
constexpr int kMargin = 6;
constexpr int kDesignDpi = 96;

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
    const int margin = MulDiv(kMargin, GetDeviceCaps(dc, LOGPIXELSX), kDesignDpi);
    cell.DeflateRect(margin, 0);
    if (cell.Width() <= 0)
        return;
    const bool lit = GetItemState(row, LVIS_SELECTED) != 0 && ::GetFocus() == GetSafeHwnd();
    const int saved = SaveDC(dc);
    IntersectClipRect(dc, cell.left, cell.top, cell.right, cell.bottom);
    m_draw(dc, cell, row, GetSysColor(lit ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
    RestoreDC(dc, saved);
}

} // namespace framework
