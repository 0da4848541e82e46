#include "CellEdit.h"

#include "GridColumns.h"
#include "KelDbDatabase.h"
#include "KelEditor.h"

#include <algorithm>

namespace {

/// Layers that the host keeps for itself are neither frozen nor plotted by a click.
CellEdit toggleUnlessReserved(const CLayerRcd& record) {
    const bool reserved = KelDbSymbolUtilities::servicesPtr106()->isReservedLayerName(record.m_name);
    return reserved ? CellEdit::none : CellEdit::toggle;
}

} // namespace

CellEdit cellEditOf(const CLayerRcd& first, int column, const KelDbDatabase& database) {
    switch (column) {
    case onGridColumn:
    case lockGridColumn:
    case newVpFreezeGridColumn:
        return CellEdit::toggle;
    case freezeGridColumn:
        return first.m_isCurrent ? CellEdit::refuseFreeze : toggleUnlessReserved(first);
    case plotGridColumn:
        return toggleUnlessReserved(first);
    case colorGridColumn:
        return CellEdit::pickColor;
    case linetypeGridColumn:
        return CellEdit::pickLinetype;
    case lineWeightGridColumn:
        return CellEdit::pickLineWeight;
    case plotStyleGridColumn:
        return database.plotStyleMode() ? CellEdit::none : CellEdit::pickPlotStyle;
    default:
        return CellEdit::none;
    }
}

CurrentLayerChange currentLayerChange(const CLayerRcd& record) {
    if (record.m_isFrozen)
        return CurrentLayerChange::refusedFrozen;
    return record.m_isDependent ? CurrentLayerChange::refusedDependent : CurrentLayerChange::allowed;
}

bool keepsSelection(const std::vector<int>& selectedRows, int row, int column) {
    return selectedRows.size() >= 2 && row >= 0 && column > nameGridColumn &&
           std::find(selectedRows.begin(), selectedRows.end(), row) != selectedRows.end();
}

void keepRowsOfClick(std::vector<int>& selectedRows, int first) {
    if (std::find(selectedRows.begin(), selectedRows.end(), first) == selectedRows.end())
        selectedRows.clear();
}

void setFlag(CLayerRcd& record, int kind, bool value) {
    if (const auto flag = flagOfKind(kind)) {
        record.*flag = value;
        record.markModified();
    }
}

void setColor(CLayerRcd& record, const KelCmColor& color) {
    record.m_color = color;
    record.markModified();
}

void setLinetype(CLayerRcd& record, KelDbObjectId id, const wchar_t* name) {
    record.m_linetypeId = id;
    record.m_linetypeName = name;
    record.markModified();
}

void setLineWeight(CLayerRcd& record, int lineWeight) {
    record.m_lineWeight = lineWeight;
    record.markModified();
}

void setPlotStyle(CLayerRcd& record, KelDbObjectId id, const wchar_t* name) {
    record.m_plotStyleName = name;
    record.m_plotStyleId = id;
}
