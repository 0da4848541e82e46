// Tests of how the grid looks: its pixels as they stand, against pictures and texts that the test draws itself. Lengths
// are in pixels of a display at 96 dots an inch unless they are said to be the display's own.
#pragma once

#include "EditTest.h"

#include "model/LayerColumns.h"

#include <functional>
#include <string>
#include <vector>

/// A piece of what was drawn, line by line, and where it lies in the grid; in the display's own pixels.
struct Pixels {
    RECT place = {};
    std::vector<COLORREF> colors = {};

    int width() const { return place.right - place.left; }
    int height() const { return place.bottom - place.top; }
    /// A pixel by its place in the grid.
    COLORREF at(int x, int y) const;
    /// How many of the pixels are of that colour.
    int count(COLORREF color) const;
    friend bool operator==(const Pixels& a, const Pixels& b) { return a.colors == b.colors; }
};
/// For the messages of a test.
void PrintTo(const Pixels& pixels, std::ostream* out);

class GridDrawing : public EditTest {
  protected:
    /// A drawing of Base and these layers, with one state, "Look", of all properties. `change` may change its values;
    /// Base is layer 0.
    static ui::TestDrawing drawing(const std::vector<std::wstring>& layers,
                                   const std::function<void(zdr::LayerColumns&)>& change = {});
    /// Opens the drawing and its state "Look", looks at the grid, and cancels.
    bool lookAt(const ui::TestDrawing& drawing, const std::function<void(const ui::View&)>& see);
    /// The same with a drawing that is changed once more before the dialog opens.
    bool lookAt(const ui::TestDrawing& drawing, const std::function<void(zdr::Drawing&)>& change,
                const std::function<void(const ui::View&)>& see);

    /// The display's own pixels.
    static int px(int length);

    /// @name In the grid, in the display's own pixels
    /// @{
    static RECT rowRect(const ui::View& view, int row);
    /// The row as the list hands it over to be drawn; the cells begin at its left edge.
    static RECT itemRect(const ui::View& view, int row);
    /// From the row's top to its bottom, as wide as the column.
    static RECT cellRect(const ui::View& view, int row, int column);
    static RECT cellRect(const ui::View& view, const wchar_t* layer, int column);
    /// @}

    /// Has one row painted anew.
    static void redraw(const ui::View& view, int row);
    static void setWidth(const ui::View& view, int column, int width);
    /// What stands there, after all that is to be painted has been.
    static Pixels pixels(const ui::View& view, const RECT& place);
    /// What the window's colour alone would look like there.
    static Pixels blank(const RECT& place);
    /// What a text looks like there, in the grid's font, on a ground of one colour.
    static Pixels text(const ui::View& view, const RECT& place, const std::wstring& text,
                       int textColor = COLOR_WINDOWTEXT, int groundColor = COLOR_WINDOW, UINT format = kFormat);
    static constexpr UINT kFormat = 0x8824; ///< as all texts of the grid are drawn

    /// The number of the image, among those of a strip, that stands with its upper left corner there; -1 for none.
    /// The first line is left out: it lies in the row above.
    static int imageAt(const ui::View& view, int x, int y, UINT stripId = IDB_LSTATE_GRID_IMAGES);
    /// The images of a row, by column.
    static std::vector<int> images(const ui::View& view, const wchar_t* layer);
};
