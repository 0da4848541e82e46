// See LineWeightRows.h.

#include "LineWeightRows.h"

#include <algorithm>
#include <iterator>

namespace pickers {
namespace {

constexpr int kByLayer = -1;
constexpr int kByBlock = -2;
constexpr int kDefault = -3;
constexpr int kWidths[] = {0,  5,  9,  13, 15, 18,  20,  25,  30,  35,  40,  50,
                           53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};
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
        rows.push_back({kByLayer, words.byLayer, std::nullopt});
    if (byReference && !words.byBlock.empty())
        rows.push_back({kByBlock, words.byBlock, std::nullopt});
    if (!words.standard.empty())
        rows.push_back({kDefault, words.standard, drawingDefault < 0 ? std::nullopt : std::optional(drawingDefault)});
    std::transform(std::begin(kWidths), std::end(kWidths), std::back_inserter(rows), [](int width) {
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
