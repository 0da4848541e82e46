// The grid scrolled: its rows look as before and keep to their places.

#include "DrawingTest.h"

#include <commctrl.h>

namespace {

using ui::View;

class ScrolledDrawing : public GridDrawing {
  protected:
    static RECT rowsOf(const View& view) {
        RECT client{}, header{};
        GetClientRect(view.control(grid), &client);
        GetWindowRect(ListView_GetHeader(view.control(grid)), &header);
        MapWindowPoints(nullptr, view.control(grid), reinterpret_cast<POINT*>(&header), 2);
        client.top = header.bottom;
        return client;
    }
    static void scroll(const View& view, int right, int down) {
        SendMessageW(view.control(grid), LVM_SCROLL, static_cast<WPARAM>(right), down);
    }
    /// Sees that what stands there is what painting all of it anew makes.
    static void expectAsPaintedAnew(const View& view) {
        const Pixels seen = pixels(view, rowsOf(view));
        RedrawWindow(view.control(grid), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
        EXPECT_EQ(pixels(view, rowsOf(view)), seen);
    }
    /// Layers that look different from each other.
    static ui::TestDrawing many() {
        std::vector<std::wstring> names;
        for (int i = 1; i <= 60; ++i)
            names.push_back(L"Layer " + std::to_wstring(i));
        return drawing(names, [](zdr::LayerColumns& columns) {
            for (std::size_t i = 0; i <= 60; ++i) {
                columns.flags.set(i, static_cast<std::uint8_t>(i % 32));
                columns.colors.set(i, static_cast<std::uint32_t>(1 + i * 4));
                columns.lineWeights.set(i, i % 2 ? std::int16_t{25} : std::int16_t{70});
            }
        });
    }
};

TEST_F(ScrolledDrawing, MovesByTheRowsLeftEdge) {
    EXPECT_TRUE(lookAt(many(), [](const View& view) {
        setWidth(view, 5, px(400)); // so that there is something to scroll
        const int row = 3;
        const int by = px(37);
        RECT place = rowRect(view, row);
        place.right = place.left + px(500);
        place.left += by;
        const Pixels before = pixels(view, place);
        scroll(view, by, 0);
        EXPECT_EQ(rowRect(view, row).left, -by);
        OffsetRect(&place, -by, 0);
        EXPECT_EQ(pixels(view, place), before);
        expectAsPaintedAnew(view);
    }));
}

TEST_F(ScrolledDrawing, LeavesNothingBehindUpOrDown) {
    EXPECT_TRUE(lookAt(many(), [](const View& view) {
        const int height = rowRect(view, 1).top - rowRect(view, 0).top;
        for (const int rows : {1, 1, 7, -1, -1, -3}) {
            SCOPED_TRACE(rows);
            scroll(view, 0, rows * height);
            expectAsPaintedAnew(view);
        }
    }));
}

TEST_F(ScrolledDrawing, ARowPaintedAloneLeavesTheOthersAsTheyAre) {
    EXPECT_TRUE(lookAt(many(), [](const View& view) {
        for (int row = 0; row < 12; ++row)
            redraw(view, row);
        expectAsPaintedAnew(view);
        for (int row = 11; row >= 0; --row)
            redraw(view, row);
        expectAsPaintedAnew(view);
    }));
}

TEST_F(ScrolledDrawing, DrawsNothingOutsideTheRow) {
    EXPECT_TRUE(lookAt(many(), [](const View& view) {
        setWidth(view, 6, px(16)); // narrower than the sample of the lineweight
        setWidth(view, 9, px(16));
        const int row = 3;
        const RECT place = rowRect(view, row);
        const HDC dc = GetDC(view.control(grid));
        const RECT all = rowsOf(view);
        UpdateWindow(view.control(grid));
        FillRect(dc, &all, GetSysColorBrush(COLOR_HIGHLIGHT));
        DRAWITEMSTRUCT item{};
        item.CtlType = ODT_LISTVIEW;
        item.CtlID = grid;
        item.itemID = static_cast<UINT>(row);
        item.itemAction = ODA_DRAWENTIRE;
        item.hwndItem = view.control(grid);
        item.hDC = dc;
        item.rcItem = place;
        OffsetRect(&item.rcItem, px(2), 0);
        SendMessageW(view.window(), WM_DRAWITEM, grid, reinterpret_cast<LPARAM>(&item));
        ReleaseDC(view.control(grid), dc);
        const Pixels seen = pixels(view, all);
        const int outside = seen.width() * seen.height() - (place.right - place.left) * (place.bottom - place.top);
        EXPECT_EQ(seen.count(GetSysColor(COLOR_HIGHLIGHT)), outside);
        EXPECT_EQ(pixels(view, place).count(GetSysColor(COLOR_HIGHLIGHT)), 0);
    }));
}

} // namespace
