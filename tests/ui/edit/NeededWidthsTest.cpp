// How wide the columns' contents are, as painting has measured it: a double click on a column's divider makes the
// column as wide.

#include "DrawingTest.h"
#include "ImportFaults.h"

#include "KelCmColor.h"
#include "engine/DatabaseAccess.h"

namespace {

using ui::Script;
using ui::View;

class NeededWidths : public GridDrawing {
  protected:
    /// The layers "Short" and "A layer of a rather long name", of which the latter has the longer texts.
    static ui::TestDrawing twoLayers() {
        ui::TestDrawing made;
        made.linetype(kLongLinetype).layer(L"Short").layer(kLong);
        KelCmColor grey;
        grey.setRGB(200, 200, 200);
        const zdr::NameId linetype = made.drawing().names.find(kLongLinetype);
        return made.state(L"Look", MaskAllProperties, L"", [linetype, grey](zdr::LayerColumns& columns) {
            columns.linetypes.set(2, linetype);
            columns.lineWeights.set(0, 25);
            columns.lineWeights.set(1, 25);
            columns.lineWeights.set(2, 25);
            columns.colors.set(2, grey.packed());
        });
    }
    static constexpr const wchar_t* kLong = L"A layer of a rather long name";
    static constexpr const wchar_t* kLongLinetype = L"Dashed and dotted";

    static int textWidth(const View& view, const std::wstring& text) {
        const HDC dc = GetDC(view.control(grid));
        const HGDIOBJ former =
            SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(view.control(grid), WM_GETFONT, 0, 0)));
        SIZE size{};
        GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &size);
        SelectObject(dc, former);
        ReleaseDC(view.control(grid), dc);
        return size.cx;
    }
    static int widthOf(const View& view, int column) {
        return view.columnWidths(grid)[static_cast<std::size_t>(column)];
    }
    /// Double clicks the divider at the right of a column's heading.
    static Script doubleClickDivider(int column) {
        const auto place = [column](const View& view) {
            const RECT heading = view.headingRect(grid, column).value_or(RECT{});
            return POINT{heading.right - 1, (heading.top + heading.bottom) / 2};
        };
        return Script().step("double click divider " + std::to_string(column), [place](const View& view) {
            if (!ui::pointerRestsAt(place(view)))
                return ui::Obstacle("the pointer hasn't arrived");
            ui::click(2);
            return ui::Obstacle();
        });
    }
    static Script setColumn(int column, int width) {
        return Script().look("set a width", [column, width](const View& view) {
            setWidth(view, column, width);
            UpdateWindow(view.control(grid));
        });
    }
    static Script redrawRow(const wchar_t* layer) {
        return Script().look("one row is painted",
                             [layer](const View& view) { redraw(view, view.rowOf(grid, layer)); });
    }
    /// After the double click of that column's divider it is as wide as `wanted` says.
    static Script expectNeeded(int column, std::function<int(const View&)> wanted) {
        return doubleClickDivider(column).waitUntil(
            "the width of column " + std::to_string(column),
            [column, wanted](const View& view) { return widthOf(view, column) == wanted(view); });
    }
    static std::function<int(const View&)> widthOfText(const wchar_t* text, int beside) {
        return [text, beside](const View& view) { return textWidth(view, text) + beside; };
    }
    static Script remove(const wchar_t* layer) { return Script().clickCellOf(grid, layer).click(IDC_REMOVE_LAYERS); }
};

TEST_F(NeededWidths, AreThoseOfTheWidestTextsAndOfTheImages) {
    open(twoLayers());
    Script script;
    for (const int column : {1, 2, 3, 8, 9})
        script.then(expectNeeded(column, [](const View&) { return px(16); }));
    script.then(expectNeeded(4, widthOfText(L"200,200,200", px(26))))
        .then(expectNeeded(5, widthOfText(kLongLinetype, px(4))))
        .then(expectNeeded(6,
                           [](const View& view) {
                               // The sample is as wide as it is high.
                               const RECT row = rowRect(view, 0);
                               const int sample = row.bottom - row.top + 1 - px(2);
                               return textWidth(view, L"0.25 mm") + px(2) + sample + 1 + px(4);
                           }))
        .then(expectNeeded(7, widthOfText(L"Normal", px(2) + px(4))));
    EXPECT_TRUE(edit(L"Look", script.press(VK_ESCAPE)));
}

TEST_F(NeededWidths, OfAPlotStyleThatFollowsTheColourIsThatOfWhatIsShown) {
    open(twoLayers());
    zdr::Drawing changed = engine::drawingOf(database());
    changed.colorDependentPlotStyles = true;
    engine::replaceDrawing(database(), changed);
    EXPECT_TRUE(edit(L"Look", expectNeeded(7, widthOfText(L"Color_7", px(2) + px(4))).press(VK_ESCAPE)));
}

TEST_F(NeededWidths, OfTheNameIsThatOfTheRowDrawnLast) {
    open(twoLayers());
    EXPECT_TRUE(edit(L"Look", redrawRow(kLong)
                                  .then(expectNeeded(0, widthOfText(kLong, px(26))))
                                  .then(redrawRow(L"Short"))
                                  .then(expectNeeded(0, widthOfText(L"Short", px(26))))
                                  .press(VK_ESCAPE)));
}

TEST_F(NeededWidths, OnlyGrowUntilLayersAreRemoved) {
    open(twoLayers());
    EXPECT_TRUE(edit(L"Look", redrawRow(L"Short")
                                  .then(expectNeeded(5, widthOfText(kLongLinetype, px(4))))
                                  .then(expectNeeded(4, widthOfText(L"200,200,200", px(26))))
                                  .then(remove(kLong))
                                  .then(expectNeeded(5, widthOfText(L"Continuous", px(4))))
                                  .then(expectNeeded(4, widthOfText(L"White", px(26))))
                                  .press(VK_ESCAPE)));
}

TEST_F(NeededWidths, OfANarrowColumnIsItsOwnWidth) {
    open(twoLayers());
    const int narrow = px(10);
    EXPECT_TRUE(edit(L"Look",
                     setColumn(5, narrow)
                         .then(remove(kLong)) // forgets what was measured
                         .then(doubleClickDivider(5))
                         .then(expectNeeded(7, widthOfText(L"Normal", px(2) + px(4))))
                         .look("the narrow column", [narrow](const View& view) { EXPECT_EQ(widthOf(view, 5), narrow); })
                         .press(VK_ESCAPE)));
}

TEST_F(NeededWidths, OfAColourWithoutMemoryForItsSwatchIsItsOwnWidth) {
    open(twoLayers());
    const int wide = px(200);
    EXPECT_TRUE(edit(L"Look", setColumn(4, wide)
                                  .look("a swatch that can't be made",
                                        [](const View& view) {
                                            const ImportFaults faults({L"KelLayerApps.xmod"});
                                            ImportFaults::begin("CreateCompatibleDC", 1);
                                            redraw(view, 0);
                                            EXPECT_TRUE(ImportFaults::struck());
                                        })
                                  .then(setColumn(4, px(50)))
                                  .then(expectNeeded(4, [wide](const View&) { return wide; }))
                                  .press(VK_ESCAPE)));
}

} // namespace
