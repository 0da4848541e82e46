#include "StatusSpans.h"

#include <algorithm>

namespace workbench {

StatusSpans arrangeStatus(int line, const StatusWidths& widths) {
    StatusSpans spans;
    int right = line;
    const auto placeFromRight = [&right, line](StatusSpan& span, int width) {
        if (right - width < line / 3)
            return;
        span = {right - width, right};
        right = span.left;
    };
    placeFromRight(spans.references, widths.references);
    placeFromRight(spans.place, widths.place);
    const int widestName = std::min(line / 4, right / 3);
    int left = 0;
    const auto placeFromLeft = [&left, widestName](StatusSpan& span, int width) {
        span = {left, left + std::min(width, widestName)};
        left = span.right;
    };
    placeFromLeft(spans.layer, widths.layer);
    placeFromLeft(spans.space, widths.space);
    spans.message = {left, right};
    return spans;
}

} // namespace workbench
