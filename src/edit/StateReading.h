// Reading the layers of a state, and of the drawing, into records. The host has no operation that reads a layer inside
// a state: the state is restored onto the drawing's own layers, these are read, and then put back.
#pragma once

#include "CLayerRcd.h"
#include "KelDbDatabase.h"

#include <afxcoll.h>

#include <memory>

/// Appends a record for each layer of the state that the drawing has, in the state's order. The drawing's layers are as
/// before afterwards.
/// @param database may be null
/// @param layers   owned by the caller, records and all
/// @return whether the state holds at least one layer; false, too, when it can't be restored
bool readStateLayers(KelDbDatabase* database, const wchar_t* stateName, CObList& layers);

/// The record of one of the drawing's layers that enters the state. Empty when the layer can't be opened.
/// @param outOfMemory becomes true when there was no memory for the record
std::unique_ptr<CLayerRcd> readAddedLayer(KelDbDatabase& database, KelDbObjectId id, bool& outOfMemory);
