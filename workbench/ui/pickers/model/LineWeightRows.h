// The rows of the lineweight dialog.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace pickers {

/// The host's words for lineweights that stand for a reference. A choice whose word is empty isn't offered.
struct LineWeightWords {
    std::wstring byLayer, byBlock, standard;
};

struct LineWeightRow {
    int weight = 0; ///< hundredths of a millimetre; -1 by layer, -2 by block, -3 the drawing's default
    std::wstring text;
    std::optional<int> bar; ///< how wide its bar is, in hundredths of a millimetre; none where it depends on the layer
};

/// By layer and by block where asked for, then the default, then the standard widths from thin to thick.
/// @param drawingDefault what the default stands for; a negative one isn't known, and has no bar
std::vector<LineWeightRow> lineWeightRows(const LineWeightWords& words, bool byReference, int drawingDefault);
/// The row of a lineweight; none when it isn't offered.
std::optional<std::size_t> rowOfWeight(const std::vector<LineWeightRow>& rows, int weight);
/// How thick a bar is drawn: as on paper at that resolution, but at least a pixel and at most `most`.
int barThickness(int hundredths, int dotsPerInch, int most);

} // namespace pickers
