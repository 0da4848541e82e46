// The orders in which a click on a heading sorts layers.
#pragma once

class CLayerRcd;

// The sort key names a column, counted from 1, and is negative for the reverse order. Rows that a column shows alike
// compare as equal; there is no second key. Each answers a negative number, 0 or a positive one.

/// The order of the grid's rows. 0 without a record, or for a key that names no column.
int compareLayerRows(const CLayerRcd* a, const CLayerRcd* b, int sortKey);
/// The order in the dialog that adds layers, of the columns 1 and 2.
int compareAddLayerRows(const CLayerRcd* a, const CLayerRcd* b, int sortKey);
/// The key after a click on a heading: ascending on another column, reversed on the same.
/// @param column counted from 0
int sortKeyAfterClick(int sortKey, int column);
