// Extended data between the drawing and result-buffer chains.
#pragma once

#include "engine/DatabaseImp.h"

namespace engine {

/// A new chain of the object's data of that application, 1001 node first, which the caller frees; null if it has none.
ResultBuffer* makeChain(const zdr::Drawing& drawing, zdr::Handle object, std::wstring_view application);
/// Puts a chain in the place of the object's data of the application that its first node names. eInvalidInput for a
/// chain that isn't extended data, eKeyNotFound for an application that isn't registered.
Vorn::ErrorStatus storeChain(DatabaseImp& database, zdr::Handle object, const ResultBuffer* chain);
/// False when the name was registered already or isn't valid.
bool registerApplication(DatabaseImp& database, std::wstring_view name);

} // namespace engine
