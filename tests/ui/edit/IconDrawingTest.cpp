// The images of the grid: the marks of the rows, and those of the properties that are on or off.

#include "DrawingTest.h"
#include "ImportFaults.h"

namespace {

using testing::Each;
using testing::ElementsAre;
using ui::Script;
using ui::View;

/// Gives windows another ground while it lives.
class WindowColor {
  public:
    explicit WindowColor(COLORREF color) { set(color); }
    ~WindowColor() { set(m_before); }
    WindowColor(const WindowColor&) = delete;
    WindowColor& operator=(const WindowColor&) = delete;

  private:
    static void set(COLORREF color) {
        const INT element = COLOR_WINDOW;
        SetSysColors(1, &element, &color);
    }
    COLORREF m_before = GetSysColor(COLOR_WINDOW);
};

class IconDrawing : public GridDrawing {
  protected:
    static constexpr std::uint8_t kUsual = zdr::kLayerOn | zdr::kLayerPlot;
    static constexpr std::uint8_t kFlags[] = {kUsual,
                                              zdr::kLayerPlot,
                                              kUsual | zdr::kLayerFrozen,
                                              kUsual | zdr::kLayerLocked,
                                              zdr::kLayerOn,
                                              kUsual | zdr::kLayerNewViewportFrozen};
    /// Base and a layer for each flag that is otherwise than in Base.
    static ui::TestDrawing flags() {
        return drawing({L"Off", L"Frozen", L"Locked", L"Unplotted", L"New"}, [](zdr::LayerColumns& columns) {
            for (std::size_t i = 0; i < std::size(kFlags); ++i)
                columns.flags.set(i, kFlags[i]);
        });
    }
};

TEST_F(IconDrawing, EachFlagHasAnImageForEitherValueAndTheOtherCellsHaveNone) {
    EXPECT_TRUE(lookAt(flags(), [](const View& view) {
        EXPECT_THAT(images(view, L"Base"), ElementsAre(26, 9, 6, 8, -1, -1, -1, -1, 35, 13));
        EXPECT_THAT(images(view, L"Off"), ElementsAre(25, 2, 6, 8, -1, -1, -1, -1, 35, 13));
        EXPECT_THAT(images(view, L"Frozen"), ElementsAre(25, 9, 0, 8, -1, -1, -1, -1, 35, 13));
        EXPECT_THAT(images(view, L"Locked"), ElementsAre(25, 9, 6, 5, -1, -1, -1, -1, 35, 13));
        EXPECT_THAT(images(view, L"Unplotted"), ElementsAre(25, 9, 6, 8, -1, -1, -1, -1, 36, 13));
        EXPECT_THAT(images(view, L"New"), ElementsAre(25, 9, 6, 8, -1, -1, -1, -1, 35, 12));
    }));
}

TEST_F(IconDrawing, TheMarkGoesWithTheCurrentLayer) {
    open(flags());
    EXPECT_TRUE(edit(L"Look", Script()
                                  .doubleClickCell(grid, 1, 0)
                                  .look("the marks",
                                        [](const View& view) {
                                            std::vector<int> marks;
                                            for (int row = 0; row < view.rowCount(grid); ++row) {
                                                const RECT cell = cellRect(view, row, 0);
                                                marks.push_back(imageAt(view, cell.left, cell.top));
                                            }
                                            EXPECT_THAT(marks, ElementsAre(25, 26, 25, 25, 25, 25));
                                        })
                                  .press(VK_ESCAPE)));
}

TEST_F(IconDrawing, LooksTheSameInALayout) {
    EXPECT_TRUE(lookAt(flags().inViewport(), [](const View& view) {
        EXPECT_THAT(images(view, L"Frozen"), ElementsAre(25, 9, 0, 8, -1, -1, -1, -1, 35, 13));
    }));
}

TEST_F(IconDrawing, AColumnNarrowerThanAnImageShowsNothing) {
    EXPECT_TRUE(lookAt(flags(), [](const View& view) {
        const int narrowest = px(16);
        for (int column = 1; column < 10; ++column) {
            SCOPED_TRACE(column);
            setWidth(view, column, narrowest - 1);
            const RECT cell = cellRect(view, L"Locked", column);
            EXPECT_EQ(pixels(view, cell), blank(cell));
            setWidth(view, column, narrowest);
            const RECT wider = cellRect(view, L"Locked", column);
            EXPECT_NE(pixels(view, wider), blank(wider));
            setWidth(view, column, 0);
        }
    }));
}

TEST_F(IconDrawing, LiesOverTheGroundThatWindowsHaveNow) {
    EXPECT_TRUE(lookAt(flags(), [](const View& view) {
        const WindowColor mint(RGB(210, 240, 220));
        EXPECT_THAT(images(view, L"Base"), ElementsAre(26, 9, 6, 8, -1, -1, -1, -1, 35, 13));
    }));
}

TEST_F(IconDrawing, IsDrawnFromTheListOfImagesWhenThereIsNoMemoryForPaintedOnes) {
    open(flags());
    const ImportFaults faults({L"KelLayerApps.xmod"});
    ImportFaults::begin("CreateCompatibleDC", 1);
    EXPECT_TRUE(edit(L"Look", Script()
                                  .look("the images",
                                        [](const View& view) {
                                            EXPECT_TRUE(ImportFaults::struck());
                                            EXPECT_THAT(images(view, L"Base"),
                                                        ElementsAre(26, 9, 6, 8, -1, -1, -1, -1, 35, 13));
                                        })
                                  .press(VK_ESCAPE)));
}

TEST_F(IconDrawing, LeavesItsPlaceEmptyWhenThereIsNoMemoryForTheImages) {
    open(flags());
    const ImportFaults faults({L"KelLayerApps.xmod"});
    ImportFaults::begin("ImageList_Create", 1);
    EXPECT_TRUE(edit(L"Look", Script()
                                  .look("the row",
                                        [](const View& view) {
                                            EXPECT_TRUE(ImportFaults::struck());
                                            EXPECT_THAT(images(view, L"Base"), Each(-1));
                                            RECT name = cellRect(view, L"Base", 0);
                                            name.left += px(16);
                                            name.top += px(2);
                                            name.right -= px(2);
                                            EXPECT_EQ(pixels(view, name), text(view, name, L"  Base"));
                                        })
                                  .press(VK_ESCAPE)));
}

TEST_F(IconDrawing, OfAButtonIsMissingAloneWhenThereIsNoMemoryForIt) {
    open(flags());
    const ImportFaults faults({L"KelLayerApps.xmod"});
    const auto hasIcon = [](const View& view, int button) {
        return SendMessageW(view.control(button), BM_GETIMAGE, IMAGE_ICON, 0) != 0;
    };
    EXPECT_TRUE(manage(Script()
                           .clickCellOf(IDC_LSTATE_RES_LIST, L"Look")
                           .look("no memory", [](const View&) { ImportFaults::begin("LoadImageW", 1); })
                           .click(IDC_LSTATE_RES_EDIT)
                           .waitForControl(grid)
                           .look("the icons",
                                 [hasIcon](const View& view) {
                                     EXPECT_TRUE(ImportFaults::struck());
                                     EXPECT_FALSE(hasIcon(view, IDC_REMOVE_LAYERS));
                                     EXPECT_TRUE(hasIcon(view, IDC_ADD_LAYERS));
                                 })
                           .clickCellOf(grid, L"New")
                           .click(IDC_REMOVE_LAYERS)
                           .waitUntil("the row is gone", [](const View& view) { return view.rowOf(grid, L"New") < 0; })
                           .press(VK_ESCAPE)
                           .click(IDC_LSTATE_RES_CLOSE)));
}

} // namespace
