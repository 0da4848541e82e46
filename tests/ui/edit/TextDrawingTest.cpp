// The cells of the linetype and the plot style.

#include "DrawingTest.h"

namespace {

using ui::View;

class TextDrawing : public GridDrawing {
  protected:
    static constexpr int kLinetype = 5;
    static constexpr int kPlotStyle = 7;
    static RECT place(const View& view, int column, int rightInset) {
        const RECT cell = cellRect(view, L"Walls", column);
        return {cell.left + px(2), cell.top - 1 + px(2), cell.right - px(rightInset), cell.bottom};
    }
    /// What the layer's cells of both columns show, at many widths: at some of them a text that may end a pixel later
    /// shows a letter more.
    static void expectTexts(const View& view, const std::wstring& style, int styleColor) {
        for (int width = px(40); width < px(56); ++width) {
            SCOPED_TRACE(width);
            setWidth(view, kLinetype, width);
            setWidth(view, kPlotStyle, width);
            const RECT linetype = place(view, kLinetype, 2);
            EXPECT_EQ(pixels(view, linetype), text(view, linetype, L"Continuous"));
            const RECT plotStyle = place(view, kPlotStyle, 4);
            EXPECT_EQ(pixels(view, plotStyle), text(view, plotStyle, style, styleColor));
        }
    }
};

TEST_F(TextDrawing, IsThatOfTheLinetypeAndOfTheNamedPlotStyle) {
    EXPECT_TRUE(lookAt(drawing({L"Walls"}), [](const View& view) { expectTexts(view, L"Normal", COLOR_WINDOWTEXT); }));
}

TEST_F(TextDrawing, OfAPlotStyleThatFollowsTheColourIsGreyAndMadeOfItsIndex) {
    EXPECT_TRUE(lookAt(
        drawing({L"Walls"}, [](zdr::LayerColumns& columns) { columns.colors.set(1, 30); }),
        [](zdr::Drawing& changed) { changed.colorDependentPlotStyles = true; },
        [](const View& view) {
            expectTexts(view, L"Color_30", COLOR_GRAYTEXT);
            // The grey doesn't go on to what is drawn next.
            EXPECT_EQ(pixels(view, place(view, kPlotStyle, 4)).count(GetSysColor(COLOR_WINDOWTEXT)), 0);
            EXPECT_GT(pixels(view, place(view, kLinetype, 2)).count(GetSysColor(COLOR_WINDOWTEXT)), 0);
        }));
}

} // namespace
