// The cell of the name, where alone the selection shows.

#include "DrawingTest.h"

namespace {

using testing::Each;
using ui::Script;
using ui::View;

class NameDrawing : public GridDrawing {
  protected:
    /// Where the name stands: behind the row's mark.
    static RECT namePlace(const View& view, const wchar_t* layer) {
        RECT cell = cellRect(view, layer, 0);
        cell.left += px(16);
        cell.top += px(2);
        cell.right -= px(2);
        return cell;
    }
    static RECT behindName(const View& view, const wchar_t* layer) {
        RECT row = rowRect(view, view.rowOf(grid, layer));
        row.left = cellRect(view, layer, 1).left;
        return row;
    }
    static constexpr const wchar_t* kLong = L"A layer whose name is much too long for its column, & more";
};

TEST_F(NameDrawing, StandsBehindTheMarkAndTwoBlanks) {
    EXPECT_TRUE(lookAt(drawing({L"Walls & doors"}), [](const View& view) {
        const RECT place = namePlace(view, L"Walls & doors");
        EXPECT_EQ(pixels(view, place), text(view, place, L"  Walls & doors"));
        EXPECT_GT(pixels(view, place).count(GetSysColor(COLOR_WINDOWTEXT)), 0);
    }));
}

TEST_F(NameDrawing, StaysWhileAnotherWindowHasTheInput) {
    open(drawing({L"Walls"}));
    HWND dialog = nullptr;
    RECT place = {};
    Pixels before;
    EXPECT_TRUE(
        edit(L"Look", Script()
                          .look("the name",
                                [&](const View& view) {
                                    dialog = view.window();
                                    place = namePlace(view, L"Walls");
                                    before = pixels(view, place);
                                })
                          .click(IDC_ADD_LAYERS)
                          .waitUntil("that there is nothing to add", [](const View& view) { return !view.has(grid); })
                          .look("the name behind", [&](const View&) { EXPECT_EQ(pixels(View(dialog), place), before); })
                          .press(VK_ESCAPE)
                          .waitForControl(grid)
                          .press(VK_ESCAPE)));
}

TEST_F(NameDrawing, ThatIsTooLongEndsInThreeDots) {
    EXPECT_TRUE(lookAt(drawing({kLong}), [](const View& view) {
        const RECT place = namePlace(view, kLong);
        const std::wstring shown = std::wstring(L"  ") + kLong;
        EXPECT_EQ(pixels(view, place), text(view, place, shown));
        EXPECT_NE(pixels(view, place),
                  text(view, place, shown, COLOR_WINDOWTEXT, COLOR_WINDOW, kFormat & ~UINT{DT_END_ELLIPSIS}));
    }));
}

TEST_F(NameDrawing, ShowsTheSelectionAndNoOtherCellDoes) {
    open(drawing({L"Doors", L"Walls", L"Pipes"}));
    Pixels before;
    EXPECT_TRUE(edit(
        L"Look",
        Script()
            .look("before", [&](const View& view) { before = pixels(view, behindName(view, L"Walls")); })
            .clickCellOf(grid, L"Walls")
            .look("the selected row",
                  [&](const View& view) {
                      const RECT place = namePlace(view, L"Walls");
                      EXPECT_EQ(pixels(view, place),
                                text(view, place, L"  Walls", COLOR_HIGHLIGHTTEXT, COLOR_HIGHLIGHT));
                      EXPECT_EQ(pixels(view, behindName(view, L"Walls")), before);
                      const int highlighted = pixels(view, place).count(GetSysColor(COLOR_HIGHLIGHT));
                      EXPECT_GT(highlighted, 0);
                      EXPECT_EQ(
                          pixels(view, rowRect(view, view.rowOf(grid, L"Walls"))).count(GetSysColor(COLOR_HIGHLIGHT)),
                          highlighted);
                      const RECT other = namePlace(view, L"Doors");
                      EXPECT_EQ(pixels(view, other), text(view, other, L"  Doors"));
                  })
            .clickCellOf(grid, L"Doors")
            .look("another one",
                  [](const View& view) {
                      const RECT place = namePlace(view, L"Walls");
                      EXPECT_EQ(pixels(view, place), text(view, place, L"  Walls")) << "no longer selected";
                  })
            .press(VK_ESCAPE)));
}

TEST_F(NameDrawing, KeepsShowingTheSelectionWhileAnotherControlHasTheFocus) {
    open(drawing({L"Walls"}));
    EXPECT_TRUE(edit(L"Look", Script()
                                  .clickCellOf(grid, L"Walls")
                                  .press(VK_TAB)
                                  .look("the selected row",
                                        [](const View& view) {
                                            EXPECT_EQ(view.focusedControl(), IDC_ADD_LAYERS);
                                            const RECT place = namePlace(view, L"Walls");
                                            EXPECT_EQ(pixels(view, place), text(view, place, L"  Walls",
                                                                                COLOR_HIGHLIGHTTEXT, COLOR_HIGHLIGHT));
                                        })
                                  .press(VK_ESCAPE)));
}

TEST_F(NameDrawing, InAColumnNarrowerThanItsMarkDoesNotGetIntoTheOthers) {
    open(drawing({L"Walls"}));
    EXPECT_TRUE(edit(L"Look", Script()
                                  .look("a narrow column", [](const View& view) { setWidth(view, 0, px(6)); })
                                  .clickCellOf(grid, L"Walls")
                                  .look("the selected row",
                                        [](const View& view) {
                                            const Pixels row = pixels(view, rowRect(view, view.rowOf(grid, L"Walls")));
                                            EXPECT_EQ(row.count(GetSysColor(COLOR_HIGHLIGHT)), 0);
                                        })
                                  .press(VK_ESCAPE)));
}

} // namespace
