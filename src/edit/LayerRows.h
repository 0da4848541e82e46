// The rows of a list of layers.
#pragma once

#include "LayerRecords.h"
#include "ListRedrawLock.h"

#include <vector>

/// Empties the list and makes a row for each record that isn't removed, in the reverse of the records' order. A row has
/// the layer's name, and the record as its item data; `setTexts(row, record)` gives it its other texts.
template <class SetTexts> void fillRows(CListCtrl& list, CObList& layers, SetTexts setTexts) {
    std::vector<CLayerRcd*> records;
    forEachRecord(layers, [&](CLayerRcd& record) {
        if (!record.m_isRemoved)
            records.push_back(&record);
    });
    const ListRedrawLock quiet(list);
    list.DeleteAllItems();
    list.SetItemCount(static_cast<int>(records.size()));
    // Each at the end: a list moves all rows behind the one that it takes in.
    int row = 0;
    for (auto record = records.rbegin(); record != records.rend(); ++record) {
        list.InsertItem(LVIF_TEXT | LVIF_PARAM, row, (*record)->m_name, 0, 0, 0, reinterpret_cast<LPARAM>(*record));
        setTexts(row, **record);
        ++row;
    }
}
