// The flags of a row are bits: two move the control with an edge of the dialog, two stretch it.

#include "ResizeTable.h"

#include "base/Scaling.h"

#include <algorithm>
#include <utility>

namespace framework {
namespace {

constexpr unsigned int kFollowRight = 1;
constexpr unsigned int kFollowBottom = 2;
constexpr unsigned int kStretchWidth = 16;
constexpr unsigned int kStretchHeight = 32;

LONG share(LONG growth, unsigned int percentage) {
    return static_cast<LONG>(static_cast<long long>(growth) * percentage / 100);
}

SIZE sizeOf(const RECT& rect) {
    return {rect.right - rect.left, rect.bottom - rect.top};
}

SIZE clientSize(HWND window) {
    RECT client = {};
    GetClientRect(window, &client);
    return sizeOf(client);
}

void scale(SIZE& size, int to, int from) {
    size = {MulDiv(size.cx, to, from), MulDiv(size.cy, to, from)};
}

void scale(RECT& rect, int to, int from) {
    rect = {MulDiv(rect.left, to, from), MulDiv(rect.top, to, from), MulDiv(rect.right, to, from),
            MulDiv(rect.bottom, to, from)};
}

RECT rectInParent(HWND control) {
    RECT rect = {};
    GetWindowRect(control, &rect);
    MapWindowPoints(nullptr, GetParent(control), reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

} // namespace

RECT resizedControl(const RECT& design, SIZE growth, const _dlgControlTag& row) {
    const LONG dx = share(growth.cx, row.percentage);
    const LONG dy = share(growth.cy, row.percentage);
    RECT rect = design;
    if (row.flags & kFollowRight)
        OffsetRect(&rect, dx, 0);
    if (row.flags & kFollowBottom)
        OffsetRect(&rect, 0, dy);
    if (row.flags & kStretchWidth)
        rect.right = std::max(rect.left, rect.right + dx);
    if (row.flags & kStretchHeight)
        rect.bottom = std::max(rect.top, rect.bottom + dy);
    return rect;
}

void ResizeTable::remember(HWND dialog) {
    m_window = {}; // a layout that can't be read whole is not resized
    m_dpi = dpiOf(dialog);
    m_design.clear();
    RECT window = {};
    for (HWND control = GetWindow(dialog, GW_CHILD); control; control = GetWindow(control, GW_HWNDNEXT))
        m_design[control] = rectInParent(control);
    m_client = clientSize(dialog);
    if (GetWindowRect(dialog, &window))
        m_window = sizeOf(window);
}

int ResizeTable::rescale(int dpi) {
    if (m_dpi == 0)
        return dpi;
    scale(m_window, dpi, m_dpi);
    scale(m_client, dpi, m_dpi);
    for (auto& [control, rect] : m_design)
        scale(rect, dpi, m_dpi);
    return std::exchange(m_dpi, dpi);
}

void ResizeTable::setRows(const _dlgControlTag* rows, unsigned long count) {
    m_rows.assign(rows, rows + (rows ? count : 0));
}

void ResizeTable::apply(HWND dialog) const {
    if (!isActive() || IsIconic(dialog))
        return;
    const SIZE now = clientSize(dialog);
    const SIZE growth = {now.cx - m_client.cx, now.cy - m_client.cy};
    HDWP moves = BeginDeferWindowPos(static_cast<int>(m_rows.size()));
    for (const _dlgControlTag& row : m_rows) {
        const HWND control = GetDlgItem(dialog, static_cast<int>(row.id));
        const auto design = m_design.find(control);
        if (!moves || design == m_design.end())
            continue;
        const RECT rect = resizedControl(design->second, growth, row);
        moves = DeferWindowPos(moves, control, nullptr, rect.left, rect.top, rect.right - rect.left,
                               rect.bottom - rect.top, SWP_NOZORDER | SWP_NOACTIVATE);
    }
    if (moves)
        EndDeferWindowPos(moves);
}

} // namespace framework
