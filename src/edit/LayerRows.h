// The rows of a list of layers.
#pragma once

#include "LayerOrder.h"
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

/// What a click on a heading does: the sort key goes by the column, and the rows by the key.
/// @tparam compare answers the order of two records by a sort key
template <int (*compare)(const CLayerRcd* a, const CLayerRcd* b, int sortKey)>
void sortRows(CListCtrl& list, int& sortKey, int column) {
    sortKey = sortKeyAfterClick(sortKey, column);
    const auto compareItems = [](LPARAM a, LPARAM b, LPARAM key) {
        return compare(reinterpret_cast<const CLayerRcd*>(a), reinterpret_cast<const CLayerRcd*>(b),
                       static_cast<int>(key));
    };
    list.SortItems(compareItems, static_cast<DWORD_PTR>(static_cast<INT_PTR>(sortKey)));
}
