// The cell of the lineweight: a bar as thick as the line, and its text.

#include "DrawingTest.h"

#include <algorithm>

namespace {

using ui::View;

class LineWeightDrawing : public GridDrawing {
  protected:
    static constexpr int kColumn = 6;
    /// A layer for each lineweight, "0" and so on, below Base.
    static ui::TestDrawing weights(const std::vector<std::int16_t>& weights) {
        std::vector<std::wstring> names;
        for (std::size_t i = 0; i < weights.size(); ++i)
            names.push_back(std::to_wstring(i));
        return drawing(names, [&weights](zdr::LayerColumns& columns) {
            for (std::size_t i = 0; i < weights.size(); ++i)
                columns.lineWeights.set(i + 1, weights[i]);
        });
    }
    static RECT cellOf(const View& view, std::size_t layer) {
        return cellRect(view, std::to_wstring(layer).c_str(), kColumn);
    }
    /// Where the sample may stand: a square with a clear edge of one pixel, at the left of the cell.
    static RECT boxOf(const RECT& cell) {
        const LONG top = cell.top - 1 + px(2), left = cell.left + px(2), side = cell.bottom - top;
        return {left + 1, top + 1, left + side - 1, cell.bottom - 1};
    }
    /// How thick a bar is in such a box.
    static int thicknessIn(const RECT& box, int wanted) {
        const int height = box.bottom - box.top;
        return px(wanted) > height ? height - 1 : px(wanted);
    }
    /// The bar as it stands: the smallest rectangle of the box's pixels in the text's colour, which it must fill.
    static RECT barIn(const View& view, const RECT& box) {
        const Pixels seen = pixels(view, box);
        RECT bar{box.right, box.bottom, box.left, box.top};
        for (LONG y = box.top; y < box.bottom; ++y)
            for (LONG x = box.left; x < box.right; ++x)
                if (seen.at(x, y) == GetSysColor(COLOR_WINDOWTEXT))
                    bar = {std::min(bar.left, x), std::min(bar.top, y), std::max(bar.right, x + 1),
                           std::max(bar.bottom, y + 1)};
        EXPECT_EQ(seen.count(GetSysColor(COLOR_WINDOWTEXT)), (bar.right - bar.left) * (bar.bottom - bar.top));
        return bar;
    }
    static RECT textPlace(const RECT& cell) {
        return {boxOf(cell).right + 2, cell.top - 1 + px(2), cell.right - px(4), cell.bottom};
    }
};

TEST_F(LineWeightDrawing, ShowsABarAsThickAsTheLineInTheMiddleOfItsBox) {
    struct Row {
        std::int16_t weight;
        int thickness;
    };
    const Row rows[] = {{-3, 1},   {-2, 1},   {-1, 1},   {0, 1},    {5, 1},   {20, 1}, {25, 1},
                        {30, 3},   {35, 3},   {40, 4},   {53, 5},   {70, 7},  {90, 9}, {100, 10},
                        {120, 12}, {140, 14}, {158, 15}, {200, 20}, {211, 21}};
    std::vector<std::int16_t> all;
    for (const Row& row : rows)
        all.push_back(row.weight);
    EXPECT_TRUE(lookAt(weights(all), [&](const View& view) {
        for (std::size_t i = 0; i < std::size(rows); ++i) {
            SCOPED_TRACE(rows[i].weight);
            SendMessageW(view.control(grid), LVM_ENSUREVISIBLE,
                         static_cast<WPARAM>(view.rowOf(grid, std::to_wstring(i))), FALSE);
            const RECT box = boxOf(cellOf(view, i)), bar = barIn(view, box);
            const LONG thickness = thicknessIn(box, rows[i].thickness);
            const LONG top = box.top + (box.bottom - box.top - thickness) / 2;
            EXPECT_THAT((std::vector{bar.left, bar.top, bar.right, bar.bottom}),
                        testing::ElementsAre(box.left, top, box.right, top + thickness));
        }
    }));
}

TEST_F(LineWeightDrawing, OfADefaultIsAsThickAsTheDrawingsDefault) {
    EXPECT_TRUE(lookAt(
        weights({-3}), [](zdr::Drawing& changed) { changed.defaultLineWeight = 70; },
        [](const View& view) {
            const RECT bar = barIn(view, boxOf(cellOf(view, 0)));
            EXPECT_EQ(bar.bottom - bar.top, px(7));
        }));
}

TEST_F(LineWeightDrawing, IsWrittenBehindTheBar) {
    const std::pair<std::int16_t, const wchar_t*> rows[] = {{-3, L"Default"}, {-2, L"ByBlock"}, {-1, L"ByLayer"},
                                                            {0, L"0.00 mm"},  {25, L"0.25 mm"}, {211, L"2.11 mm"}};
    std::vector<std::int16_t> all;
    for (const auto& [weight, text] : rows)
        all.push_back(weight);
    EXPECT_TRUE(lookAt(weights(all), [&](const View& view) {
        for (const int width : {px(120), px(50)}) {
            setWidth(view, kColumn, width);
            for (std::size_t i = 0; i < std::size(rows); ++i) {
                SCOPED_TRACE(rows[i].first);
                const RECT place = textPlace(cellOf(view, i));
                EXPECT_EQ(pixels(view, place), text(view, place, rows[i].second));
            }
        }
    }));
}

} // namespace
