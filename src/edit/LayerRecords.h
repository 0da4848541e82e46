// The records behind the grid: walking them, making them, and which of them is the current layer.
#pragma once

#include "CLayerRcd.h"
#include "KelArray.h"
#include "KelString.h"

#include <afxcoll.h>

#include <memory>

/// Calls `see` with each record from the list's head; a null entry ends the walk.
template <class See> void forEachRecord(CObList& layers, See see) {
    for (POSITION position = layers.GetHeadPosition(); position;) {
        auto* record = static_cast<CLayerRcd*>(layers.GetNext(position));
        if (!record)
            return;
        see(*record);
    }
}

/// Deletes the records and empties the list.
void deleteRecords(CObList& layers);
/// The names of the layers that have rows, in list order.
KelArray<KelString> namesWithRows(CObList& layers);

/// Makes the record the one current layer of the list. The one that was it isn't marked as changed: what the host is
/// told about the new one says all.
void makeCurrent(CObList& layers, CLayerRcd& record);
