// What can be done to single layers, with the rules that hold whoever does it.
#pragma once

#include "DatabaseImp.h"

namespace engine {

/// At the end of the table. eInvalidInput, eNameTooLong or eDuplicateRecordName for the name.
Vorn::ErrorStatus addLayer(DatabaseImp& database, std::wstring_view name, std::wstring description,
                           const LayerValues& values);
/// The drawing's own states follow. eDependentRecord for a layer of a reference, eReservedName for the base layer, and
/// the name's own statuses.
Vorn::ErrorStatus renameLayer(DatabaseImp& database, std::size_t index, std::wstring_view name);
/// eDependentRecord, eReservedName, or eRecordInUse for the current layer and for one that something lies on.
Vorn::ErrorStatus removeLayer(DatabaseImp& database, std::size_t index);
/// eDependentRecord for a layer of a reference, eCannotFreezeCurrentLayer for a frozen one.
Vorn::ErrorStatus setCurrentLayer(DatabaseImp& database, std::size_t index);
/// eCannotFreezeCurrentLayer, and nothing changed, when the values freeze the current layer.
Vorn::ErrorStatus setLayerValues(DatabaseImp& database, std::size_t index, const LayerValues& values);
/// Whether something drawn lies on a layer.
bool isLayerUsed(const zdr::Drawing& drawing, std::size_t layer);
/// Whether a lineweight is one of the 24 widths or by layer (-1), by block (-2), default (-3).
bool isLineWeight(int weight);

} // namespace engine
