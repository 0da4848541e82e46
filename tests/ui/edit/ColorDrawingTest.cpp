// The cell of the colour: a swatch and the colour's name.

#include "DrawingTest.h"
#include "ImportFaults.h"

#include "KelCmColor.h"

#include <algorithm>

namespace {

using ui::View;

class ColorDrawing : public GridDrawing {
  protected:
    static constexpr int kColumn = 4;
    /// Base and the layer "Walls" in that colour.
    static ui::TestDrawing walls(const KelCmColor& color) {
        return drawing({L"Walls"}, [&color](zdr::LayerColumns& columns) { columns.colors.set(1, color.packed()); });
    }
    static KelCmColor palette(int index) {
        KelCmColor color;
        color.setColorIndex(static_cast<std::uint16_t>(index));
        return color;
    }
    static KelCmColor trueColor(int red, int green, int blue) {
        KelCmColor color;
        color.setRGB(static_cast<std::uint8_t>(red), static_cast<std::uint8_t>(green), static_cast<std::uint8_t>(blue));
        return color;
    }
    static RECT swatchPlace(const RECT& cell) {
        const LONG left = cell.left + px(2), top = cell.top - 1 + px(2);
        return {left, top, left + px(12), top + px(12)};
    }
    static RECT textPlace(const RECT& cell) { return {cell.left + px(22), cell.top, cell.right - px(4), cell.bottom}; }
    /// Sees a swatch of that colour with a black border, and nothing around it.
    static void expectSwatch(const View& view, COLORREF color) {
        const RECT cell = cellRect(view, L"Walls", kColumn), place = swatchPlace(cell);
        const Pixels swatch = pixels(view, place);
        const int border = px(12) / 12; // the same on all sides, at 150 % too
        for (LONG y = place.top; y < place.bottom; ++y)
            for (LONG x = place.left; x < place.right; ++x) {
                const LONG inside =
                    std::min({x - place.left, y - place.top, place.right - 1 - x, place.bottom - 1 - y});
                ASSERT_EQ(swatch.at(x, y), inside < border ? RGB(0, 0, 0) : color) << x << ", " << y;
            }
        const Pixels behind = pixels(view, {place.right, cell.top, cell.left + px(22), cell.bottom});
        EXPECT_EQ(behind, blank(behind.place));
        const Pixels above = pixels(view, {cell.left, cell.top, cell.right, place.top});
        EXPECT_EQ(above.count(RGB(0, 0, 0)), 0);
    }
};

TEST_F(ColorDrawing, IsASwatchWithABlackBorder) {
    const std::pair<KelCmColor, COLORREF> rows[] = {
        {palette(1), RGB(255, 0, 0)}, {palette(7), RGB(255, 255, 255)}, {trueColor(120, 84, 52), RGB(120, 84, 52)}};
    for (const auto& [color, shown] : rows)
        EXPECT_TRUE(lookAt(walls(color), [shown = shown](const View& view) { expectSwatch(view, shown); }));
}

TEST_F(ColorDrawing, HasItsNameBehindTheSwatch) {
    const std::pair<KelCmColor, const wchar_t*> rows[] = {
        {palette(1), L"Red"}, {palette(30), L"30"}, {trueColor(120, 84, 52), L"120,84,52"}};
    for (const auto& [color, name] : rows)
        EXPECT_TRUE(lookAt(walls(color), [name = std::wstring(name)](const View& view) {
            setWidth(view, kColumn, px(100));
            RECT place = textPlace(cellRect(view, L"Walls", kColumn));
            --place.top; // where it is centred
            const Pixels wanted = text(view, place, name);
            Pixels seen = pixels(view, place);
            EXPECT_EQ(seen, wanted);
        }));
}

TEST_F(ColorDrawing, OfAColumnTooNarrowForItsNameEndsInThreeDots) {
    EXPECT_TRUE(lookAt(walls(trueColor(120, 84, 52)), [](const View& view) {
        setWidth(view, kColumn, px(60));
        RECT place = textPlace(cellRect(view, L"Walls", kColumn));
        --place.top;
        EXPECT_EQ(pixels(view, place), text(view, place, L"120,84,52"));
        EXPECT_NE(pixels(view, place),
                  text(view, place, L"120,84,52", COLOR_WINDOWTEXT, COLOR_WINDOW, kFormat & ~UINT{DT_END_ELLIPSIS}));
    }));
}

TEST_F(ColorDrawing, HasNothingButTheSwatchInAColumnAsNarrowAsAtFirst) {
    EXPECT_TRUE(lookAt(walls(trueColor(120, 84, 52)), [](const View& view) {
        const RECT cell = cellRect(view, L"Walls", kColumn);
        const Pixels behind = pixels(view, {swatchPlace(cell).right, cell.top, cell.right, cell.bottom});
        EXPECT_EQ(behind, blank(behind.place));
    }));
}

TEST_F(ColorDrawing, WithoutMemoryForItLosesItsSwatchAndItsNameAndNothingElse) {
    EXPECT_TRUE(lookAt(walls(palette(1)), [](const View& view) {
        setWidth(view, kColumn, px(100));
        const int row = view.rowOf(grid, L"Walls");
        const RECT cell = cellRect(view, row, kColumn), all = rowRect(view, row);
        const RECT before = {all.left, all.top, cell.left, all.bottom},
                   behind = {cell.right, all.top, all.right, all.bottom};
        const Pixels rowAtFirst = pixels(view, all), beforeAtFirst = pixels(view, before),
                     behindAtFirst = pixels(view, behind);
        {
            const ImportFaults faults({L"KelLayerApps.xmod"});
            ImportFaults::begin("CreateCompatibleDC", 1);
            redraw(view, row);
            EXPECT_TRUE(ImportFaults::struck());
            ImportFaults::end();
        }
        EXPECT_EQ(pixels(view, cell), blank(cell));
        EXPECT_EQ(pixels(view, before), beforeAtFirst);
        EXPECT_EQ(pixels(view, behind), behindAtFirst);
        redraw(view, row);
        EXPECT_EQ(pixels(view, all), rowAtFirst);
    }));
}

TEST_F(ColorDrawing, WithoutMemoryForItsSampleShowsTheName) {
    EXPECT_TRUE(lookAt(walls(palette(1)), [](const View& view) {
        setWidth(view, kColumn, px(100));
        const int row = view.rowOf(grid, L"Walls");
        const RECT cell = cellRect(view, row, kColumn);
        const Pixels name = pixels(view, textPlace(cell));
        const ImportFaults faults({L"KelLayerApps.xmod"});
        ImportFaults::begin("CreateCompatibleDC", 2);
        redraw(view, row);
        EXPECT_TRUE(ImportFaults::struck());
        EXPECT_EQ(pixels(view, swatchPlace(cell)), blank(swatchPlace(cell)));
        EXPECT_EQ(pixels(view, textPlace(cell)), name);
    }));
}

} // namespace
