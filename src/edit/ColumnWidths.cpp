#include "ColumnWidths.h"

#include "GridColumns.h"

#include <algorithm>

void noteWidth(ColumnWidths& widths, int column, int needed) {
    int& noted = widths.try_emplace(column, needed).first->second;
    noted = std::max(noted, needed);
}

void noteNameWidth(ColumnWidths& widths, int needed) {
    widths[nameGridColumn] = needed;
}

void zeroWidths(ColumnWidths& widths) {
    for (auto& [column, width] : widths)
        width = 0;
}

bool isCutOff(ColumnWidths& widths, int column, int width) {
    return widths[column] > width;
}
