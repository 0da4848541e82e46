// The grid's border, which tells whether it has the keyboard.

#include "DrawingTest.h"

#include <algorithm>

namespace {

using ui::Script;
using ui::View;

class FocusDrawing : public GridDrawing {
  protected:
    /// The outermost pixels of the grid, all round.
    static std::vector<COLORREF> border(const View& view) {
        const HWND window = view.control(grid);
        RECT place{};
        GetWindowRect(window, &place);
        const int right = place.right - place.left - 1, bottom = place.bottom - place.top - 1;
        const HDC dc = GetWindowDC(window);
        std::vector<COLORREF> colors;
        for (int x = 0; x <= right; ++x)
            for (const int y : {0, bottom})
                colors.push_back(GetPixel(dc, x, y));
        for (int y = 0; y <= bottom; ++y)
            for (const int x : {0, right})
                colors.push_back(GetPixel(dc, x, y));
        ReleaseDC(window, dc);
        return colors;
    }
    /// All of the border, or nothing of it.
    static Script borderIs(bool highlighted) {
        return Script().waitUntil(highlighted ? "the whole border to be highlighted" : "no border to be highlighted",
                                  [highlighted](const View& view) {
                                      return std::ranges::all_of(border(view), [highlighted](COLORREF color) {
                                          return (color == GetSysColor(COLOR_HIGHLIGHT)) == highlighted;
                                      });
                                  });
    }
};

TEST_F(FocusDrawing, HighlightsTheBorderOfTheGridThatHasTheKeyboard) {
    for (const int layers : {1, 40}) { // with and without a bar to scroll by
        SCOPED_TRACE(layers);
        std::vector<std::wstring> names;
        for (int i = 0; i < layers; ++i)
            names.push_back(L"Layer" + std::to_wstring(i));
        open(drawing(names));
        EXPECT_TRUE(edit(L"Look", borderIs(true)
                                      .press(VK_TAB)
                                      .then(borderIs(false))
                                      .press(VK_TAB, ui::holdShift)
                                      .then(borderIs(true))
                                      .press(VK_ESCAPE)));
    }
}

} // namespace
