// What is asked of the host for a row's painting, and requests that draw nothing.

#include "DrawingTest.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using ui::View;

class DrawingRequest : public GridDrawing {
  protected:
    /// A piece of screen memory in a colour that the grid doesn't use.
    class Sheet {
      public:
        Sheet() : m_dc(CreateCompatibleDC(nullptr)), m_bitmap(CreateBitmap(kWidth, kHeight, 1, 32, nullptr)) {
            m_former = SelectObject(m_dc, m_bitmap);
            PatBlt(m_dc, 0, 0, kWidth, kHeight, BLACKNESS);
        }
        ~Sheet() {
            SelectObject(m_dc, m_former);
            DeleteObject(m_bitmap);
            DeleteDC(m_dc);
        }
        Sheet(const Sheet&) = delete;
        Sheet& operator=(const Sheet&) = delete;

        HDC dc() const { return m_dc; }
        bool isDrawnOn() const {
            for (int y = 0; y < kHeight; ++y)
                for (int x = 0; x < kWidth; ++x)
                    if (GetPixel(m_dc, x, y) != 0)
                        return true;
            return false;
        }

      private:
        static constexpr int kWidth = 60;
        static constexpr int kHeight = 80;
        HDC m_dc;
        HBITMAP m_bitmap;
        HGDIOBJ m_former;
    };

    /// Asks the dialog to draw a row as the grid does.
    static void ask(const View& view, int control, int row, HDC dc) {
        DRAWITEMSTRUCT item{};
        item.CtlType = ODT_LISTVIEW;
        item.CtlID = static_cast<UINT>(control);
        item.itemID = static_cast<UINT>(row);
        item.itemAction = ODA_DRAWENTIRE;
        item.hwndItem = view.control(grid);
        item.hDC = dc;
        item.rcItem = {0, 20, 400, 37};
        SendMessageW(view.window(), WM_DRAWITEM, static_cast<WPARAM>(control), reinterpret_cast<LPARAM>(&item));
    }
};

TEST_F(DrawingRequest, DrawsNothingForNoRowNoContextOrAnotherControl) {
    EXPECT_TRUE(lookAt(drawing({L"Walls", L"Doors"}), [](const View& view) {
        UpdateWindow(view.control(grid));
        instruments::clearTrace();
        const Sheet sheet;
        ask(view, grid, -1, sheet.dc());
        ask(view, grid, 0, nullptr);
        ask(view, IDC_ADD_LAYERS, 0, sheet.dc());
        EXPECT_FALSE(sheet.isDrawnOn());
        EXPECT_THAT(instruments::trace(), IsEmpty());
        ask(view, grid, 0, sheet.dc());
        EXPECT_TRUE(sheet.isDrawnOn());
    }));
}

TEST_F(DrawingRequest, LeavesTheContextAsItWas) {
    EXPECT_TRUE(lookAt(drawing({L"Walls"}), [](const View& view) {
        const Sheet sheet;
        SetTextColor(sheet.dc(), RGB(1, 2, 3));
        SetBkColor(sheet.dc(), RGB(4, 5, 6));
        SetBkMode(sheet.dc(), TRANSPARENT);
        RECT before{}, after{};
        GetClipBox(sheet.dc(), &before);
        ask(view, grid, 0, sheet.dc());
        EXPECT_EQ(GetTextColor(sheet.dc()), RGB(1, 2, 3));
        EXPECT_EQ(GetBkColor(sheet.dc()), RGB(4, 5, 6));
        EXPECT_EQ(GetBkMode(sheet.dc()), TRANSPARENT);
        GetClipBox(sheet.dc(), &after);
        EXPECT_TRUE(EqualRect(&before, &after));
    }));
}

TEST_F(DrawingRequest, OpensNothingAndAsksOnlyForTheModesAndTheTexts) {
    EXPECT_TRUE(lookAt(
        drawing({L"Walls"},
                [](zdr::LayerColumns& columns) {
                    columns.colors.set(1, 30);
                    columns.lineWeights.set(1, 25);
                }),
        [](const View& view) {
            UpdateWindow(view.control(grid));
            instruments::clearTrace();
            redraw(view, view.rowOf(grid, L"Walls"));
            EXPECT_THAT(instruments::trace(), ElementsAre("tilemode() = true", "tilemode() = true", "tilemode() = true",
                                                          "keledGetRGB(30) = 33023", "plotStyleMode() = false",
                                                          "tilemode() = true", "tilemode() = true"));
            instruments::clearTrace();
            redraw(view, view.rowOf(grid, L"Base"));
            EXPECT_THAT(instruments::trace(),
                        ElementsAre("tilemode() = true", "tilemode() = true", "tilemode() = true",
                                    "keledGetRGB(7) = 16777215", "keldbGetReservedString(7, true) = \"Default\"",
                                    "keledGetVar(\"LWDEFAULT\") = 5100", "plotStyleMode() = false", "tilemode() = true",
                                    "tilemode() = true"));
        }));
}

TEST_F(DrawingRequest, AsksForNothingThatANarrowColumnWouldShow) {
    EXPECT_TRUE(lookAt(drawing({L"Walls"}), [](const View& view) {
        for (int column = 1; column < 10; ++column)
            setWidth(view, column, px(15));
        UpdateWindow(view.control(grid));
        instruments::clearTrace();
        redraw(view, 0);
        EXPECT_THAT(instruments::trace(), IsEmpty());
    }));
}

} // namespace
