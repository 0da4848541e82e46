#include "LineWeightRows.h"

#include "values/LineWeights.h"

#include <algorithm>
#include <iterator>

namespace pickers {
namespace {

constexpr int kHundredthsPerInch = 2540;

/// Millimetres with two decimals, whatever the user's number format is.
std::wstring widthText(int hundredths) {
    const std::wstring decimals = std::to_wstring(100 + hundredths % 100).substr(1);
    return std::to_wstring(hundredths / 100) + L"." + decimals + L" mm";
}

} // namespace

std::vector<LineWeightRow> lineWeightRows(const LineWeightWords& words, bool byReference, int drawingDefault) {
    std::vector<LineWeightRow> rows;
    if (byReference && !words.byLayer.empty())
        rows.push_back({engine::kLineWeightByLayer, words.byLayer, std::nullopt});
    if (byReference && !words.byBlock.empty())
        rows.push_back({engine::kLineWeightByBlock, words.byBlock, std::nullopt});
    if (!words.standard.empty())
        rows.push_back({engine::kLineWeightDefault, words.standard,
                        drawingDefault < 0 ? std::nullopt : std::optional(drawingDefault)});
    std::ranges::transform(engine::kLineWidths, std::back_inserter(rows), [](int width) {
        return LineWeightRow{width, widthText(width), width};
    });
    return rows;
}

std::optional<std::size_t> rowOfWeight(const std::vector<LineWeightRow>& rows, int weight) {
    const auto found =
        std::find_if(rows.begin(), rows.end(), [weight](const LineWeightRow& row) { return row.weight == weight; });
    return found == rows.end() ? std::nullopt : std::optional<std::size_t>(found - rows.begin());
}

int barThickness(int hundredths, int dotsPerInch, int most) {
    const int pixels = (hundredths * dotsPerInch + kHundredthsPerInch / 2) / kHundredthsPerInch;
    return std::clamp(pixels, 1, std::max(1, most));
}

} // namespace pickers
