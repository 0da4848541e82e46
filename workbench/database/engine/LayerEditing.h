// What can be done to single layers, with the rules that hold whoever does it.
#pragma once

#include "DatabaseImp.h"

namespace engine {

/// Appends a layer to the table. eInvalidInput, eNameTooLong or eDuplicateRecordName for the name.
Vorn::ErrorStatus addLayer(DatabaseImp& database, std::wstring_view name, std::wstring description,
                           const LayerValues& values);
/// The drawing's own states get the new name, too. eDependentRecord for a layer of a reference, eReservedName for the
/// base layer, and for the name the statuses of addLayer().
Vorn::ErrorStatus renameLayer(DatabaseImp& database, std::size_t index, std::wstring_view name);
/// eDependentRecord, eReservedName, or eRecordInUse for one of usedLayers().
Vorn::ErrorStatus removeLayer(DatabaseImp& database, std::size_t index);
/// eDependentRecord for a layer of a reference, eCannotFreezeCurrentLayer for a frozen one.
Vorn::ErrorStatus setCurrentLayer(DatabaseImp& database, std::size_t index);
/// eCannotFreezeCurrentLayer, and nothing changed, when the values freeze the current layer.
Vorn::ErrorStatus setLayerValues(DatabaseImp& database, std::size_t index, const LayerValues& values);
/// For each layer whether it can't go: it is current, or something is drawn on it.
std::vector<bool> usedLayers(const zdr::Drawing& drawing);
/// Whether a lineweight is one of the 24 widths or by layer (-1), by block (-2), default (-3).
bool isLineWeight(int weight);

} // namespace engine
