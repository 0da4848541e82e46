#include "LayerOrder.h"

#include "ColorOrder.h"
#include "GridColumns.h"

#include <cstdlib>

namespace {

int inDirection(int order, int sortKey) {
    return sortKey < 0 ? -order : order;
}

/// Also of flags: false comes before true.
int compareNumbers(int a, int b) {
    return a < b ? -1 : a > b ? 1 : 0;
}

int compareColumn(const CLayerRcd& a, const CLayerRcd& b, int column) {
    switch (column) {
    case nameGridColumn:
        return a.m_name.Collate(b.m_name);
    case colorGridColumn:
        return compareColors(a.m_color, b.m_color);
    case linetypeGridColumn:
        return a.m_linetypeName.Collate(b.m_linetypeName);
    case lineWeightGridColumn:
        // Numbers: what stands for by layer, by block and default comes first.
        return compareNumbers(a.m_lineWeight, b.m_lineWeight);
    case plotStyleGridColumn:
        return a.m_plotStyleName.Collate(b.m_plotStyleName);
    default:
        const auto flag = flagOfKind(columnKind[column]);
        return compareNumbers(a.*flag, b.*flag);
    }
}

} // namespace

int compareLayerRows(const CLayerRcd* a, const CLayerRcd* b, int sortKey) {
    const int column = std::abs(sortKey) - 1;
    if (!a || !b || column < 0 || column >= gridColumnCount)
        return 0;
    return inDirection(compareColumn(*a, *b, column), sortKey);
}

int compareAddLayerRows(const CLayerRcd* a, const CLayerRcd* b, int sortKey) {
    if (!a || !b)
        return 0;
    switch (std::abs(sortKey)) {
    case 1:
        return inDirection(a->m_name.Collate(b->m_name), sortKey);
    case 2:
        // With the other row's name, and not its description; kept on purpose.
        return inDirection(a->m_description.Collate(b->m_name), sortKey);
    default:
        return 0;
    }
}

int sortKeyAfterClick(int sortKey, int column) {
    return std::abs(sortKey) - 1 == column ? -sortKey : column + 1;
}
