// What a click on a cell does to records. Nothing here knows of a window: the dialog finds the rows, asks the user for
// a value where one is to be picked, and shows the outcome.
#pragma once

#include "CLayerRcd.h"

#include <vector>

class KelDbDatabase;

/// What a click on a cell does.
enum class CellEdit { none, refuseFreeze, toggle, pickColor, pickLinetype, pickLineWeight, pickPlotStyle };

/// Decided by the first of the rows alone: what forbids an edit isn't asked of the others, which get what it gets.
CellEdit cellEditOf(const CLayerRcd& first, int column, const KelDbDatabase& database);

/// What a double click on a layer's name does: the layer becomes the current one, or why it can't.
enum class CurrentLayerChange { allowed, refusedFrozen, refusedDependent };
/// A layer that is both frozen and dependent is refused as frozen.
CurrentLayerChange currentLayerChange(const CLayerRcd& record);

/// Whether a press on a cell leaves all selected rows selected: on any cell but the name's, of one of several.
/// @param row,column what was hit; row negative for none
bool keepsSelection(const std::vector<int>& selectedRows, int row, int column);

/// Makes `selectedRows`, which were selected when the button was pressed, the rows that a click changes beside the
/// first selected one: all of them when it is among them, and otherwise none.
void keepRowsOfClick(std::vector<int>& selectedRows, int first);

// Each gives one record a value. But for the plot style they mark it as changed, whether or not the value differs.

/// @param kind a ColumnKind; one that isn't a flag's changes nothing
void setFlag(CLayerRcd& record, int kind, bool value);
void setColor(CLayerRcd& record, const KelCmColor& color);
void setLinetype(CLayerRcd& record, KelDbObjectId id, const wchar_t* name);
/// @param lineWeight hundredths of a millimetre
void setLineWeight(CLayerRcd& record, int lineWeight);
void setPlotStyle(CLayerRcd& record, KelDbObjectId id, const wchar_t* name);
