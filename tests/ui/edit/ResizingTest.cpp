// The two dialogs made larger and smaller: how their controls follow, and what comes back the next time.

#include "DrawingTest.h"

#include <array>
#include <map>

namespace {

using ui::Script;
using ui::View;

class Resizing : public GridDrawing {
  protected:
    using Places = std::map<int, RECT>;

    /// Where the dialog's controls are, in its client area, with the dialog itself as 0, which begins at its corner.
    static Places places(const View& view, const std::vector<int>& controls) {
        Places found;
        RECT client{};
        GetClientRect(view.window(), &client);
        found[0] = client;
        for (const int control : controls) {
            found[control] = view.rect(control);
            MapWindowPoints(nullptr, view.window(), reinterpret_cast<POINT*>(&found[control]), 2);
        }
        return found;
    }
    static SIZE sizeOf(const View& view) {
        return {view.rect().right - view.rect().left, view.rect().bottom - view.rect().top};
    }
    /// Drags the lower right corner.
    static Script resize(LONG wider, LONG higher) {
        return Script().look("another size", [wider, higher](const View& view) {
            const SIZE size = sizeOf(view);
            SetWindowPos(view.window(), nullptr, 0, 0, size.cx + wider, size.cy + higher,
                         SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        });
    }
    /// How far each edge of a control has moved: left, top, right, bottom.
    static std::array<LONG, 4> moved(const Places& from, const Places& to, int control) {
        const RECT &a = from.at(control), &b = to.at(control);
        return {b.left - a.left, b.top - a.top, b.right - a.right, b.bottom - a.bottom};
    }
    static Script openAdding() {
        return Script().click(IDC_ADD_LAYERS).waitUntil("the dialog to add layers", [](const View& view) {
            return view.has(grid) && !view.has(IDC_ADD_LAYERS);
        });
    }
    static ui::TestDrawing withLayerToAdd() {
        ui::TestDrawing made = drawing({L"Walls"});
        return made.layer(L"New");
    }
    static constexpr LONG kWider = 90;
    static constexpr LONG kHigher = 60;
};

using Edges = std::array<LONG, 4>;

TEST_F(Resizing, MovesTheControlsOfTheEditDialogByTheEdgesThatTheyFollow) {
    open(drawing({L"Walls"}));
    const std::vector<int> controls = {grid, IDC_ADD_LAYERS, IDC_REMOVE_LAYERS, IDOK, IDCANCEL, ID_HELP};
    Places before;
    EXPECT_TRUE(edit(
        L"Look", Script()
                     .look("before", [&](const View& view) { before = places(view, controls); })
                     .then(resize(kWider, kHigher))
                     .look("after",
                           [&](const View& view) {
                               const Places after = places(view, controls);
                               EXPECT_EQ(moved(before, after, 0), (Edges{0, 0, kWider, kHigher}));
                               EXPECT_EQ(moved(before, after, grid), (Edges{0, 0, kWider, kHigher}));
                               for (const int button : {IDC_ADD_LAYERS, IDC_REMOVE_LAYERS})
                                   EXPECT_EQ(moved(before, after, button), (Edges{0, kHigher, 0, kHigher}));
                               for (const int button : {IDOK, IDCANCEL, ID_HELP})
                                   EXPECT_EQ(moved(before, after, button), (Edges{kWider, kHigher, kWider, kHigher}));
                           })
                     .press(VK_ESCAPE)));
}

TEST_F(Resizing, MovesTheControlsOfTheDialogToAddLayersLikewise) {
    open(withLayerToAdd());
    const std::vector<int> controls = {grid, IDOK, IDCANCEL, ID_HELP};
    Places before;
    EXPECT_TRUE(edit(
        L"Look", openAdding()
                     .look("before", [&](const View& view) { before = places(view, controls); })
                     .then(resize(kWider, kHigher))
                     .look("after",
                           [&](const View& view) {
                               const Places after = places(view, controls);
                               EXPECT_EQ(moved(before, after, grid), (Edges{0, 0, kWider, kHigher}));
                               for (const int button : {IDOK, IDCANCEL, ID_HELP})
                                   EXPECT_EQ(moved(before, after, button), (Edges{kWider, kHigher, kWider, kHigher}));
                           })
                     .press(VK_ESCAPE)
                     .press(VK_ESCAPE)));
}

TEST_F(Resizing, DoesNotMakeEitherDialogSmallerThanItIsDrawn) {
    open(withLayerToAdd());
    SIZE before{};
    const auto seeNoSmaller = [&before] {
        return Script()
            .look("before", [&](const View& view) { before = sizeOf(view); })
            .then(resize(-100, -100))
            .look("after", [&](const View& view) {
                EXPECT_EQ(sizeOf(view).cx, before.cx);
                EXPECT_EQ(sizeOf(view).cy, before.cy);
            });
    };
    EXPECT_TRUE(
        edit(L"Look", seeNoSmaller().then(openAdding()).then(seeNoSmaller()).press(VK_ESCAPE).press(VK_ESCAPE)));
}

TEST_F(Resizing, IsKeptForBothDialogsThoughTheyAreCancelled) {
    open(withLayerToAdd());
    SIZE edited{}, added{};
    const auto marginOf = [](const View& view) {
        const Places now = places(view, {grid});
        return now.at(0).right - now.at(grid).right;
    };
    LONG margin = 0;
    ASSERT_TRUE(edit(L"Look", Script()
                                  .look("its margin", [&](const View& view) { margin = marginOf(view); })
                                  .then(resize(kWider, kHigher))
                                  .look("its size", [&](const View& view) { edited = sizeOf(view); })
                                  .then(openAdding())
                                  .then(resize(50, 40))
                                  .look("its size", [&](const View& view) { added = sizeOf(view); })
                                  .press(VK_ESCAPE)
                                  .press(VK_ESCAPE)));
    EXPECT_TRUE(edit(L"Look", Script()
                                  .look("its size",
                                        [&](const View& view) {
                                            EXPECT_EQ(sizeOf(view).cx, edited.cx);
                                            EXPECT_EQ(sizeOf(view).cy, edited.cy);
                                            EXPECT_EQ(marginOf(view), margin) << "the grid has come along";
                                        })
                                  .then(openAdding())
                                  .look("its size",
                                        [&](const View& view) {
                                            EXPECT_EQ(sizeOf(view).cx, added.cx);
                                            EXPECT_EQ(sizeOf(view).cy, added.cy);
                                        })
                                  .press(VK_ESCAPE)
                                  .press(VK_ESCAPE)));
}

TEST_F(Resizing, OfTheColumnsIsKeptByOkAndNotByCancel) {
    open(withLayerToAdd());
    const int wide = px(77);
    const auto widen = [wide](int column) {
        return Script().look("a wider column", [column, wide](const View& view) { setWidth(view, column, wide); });
    };
    const auto seeWidth = [](int column, int width) {
        return Script().look("the column's width", [column, width](const View& view) {
            EXPECT_EQ(view.columnWidths(grid)[static_cast<std::size_t>(column)], width);
        });
    };
    ASSERT_TRUE(edit(L"Look", seeWidth(5, px(60)).then(widen(5)).press(VK_ESCAPE)));
    ASSERT_TRUE(edit(L"Look", seeWidth(5, px(60)).then(widen(5)).click(IDOK)));
    int first = 0;
    ASSERT_TRUE(edit(L"Look", seeWidth(5, wide)
                                  .then(openAdding())
                                  .look("the first column",
                                        [&](const View& view) {
                                            first = view.columnWidths(grid)[0];
                                            EXPECT_EQ(view.columnWidths(grid)[1], 2 * first);
                                        })
                                  .then(widen(0))
                                  .press(VK_ESCAPE)
                                  .press(VK_ESCAPE)));
    EXPECT_TRUE(edit(
        L"Look", openAdding()
                     .look("the first column", [&](const View& view) { EXPECT_EQ(view.columnWidths(grid)[0], first); })
                     .then(widen(0))
                     .click(IDOK)
                     .waitForControl(IDC_ADD_LAYERS)
                     .then(openAdding())
                     .then(seeWidth(0, wide))
                     .press(VK_ESCAPE)
                     .press(VK_ESCAPE)));
}

} // namespace
