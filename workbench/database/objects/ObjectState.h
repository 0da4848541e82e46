// The engine's side of a database object, and the opening of objects.
#pragma once

#include "KelDbTables.h"
#include "engine/LayerStates.h"

#include <variant>

namespace engine {

/// The values of a layer record that is in no table.
struct MemoryLayer {
    std::wstring name;
    std::wstring description;
    std::uint8_t flags = zdr::kLayerOn | zdr::kLayerPlot;
    KelCmColor color;
    KelDbObjectId linetype;
    std::int16_t lineWeight = -3;
    std::wstring plotStyle;
    KelDbObjectId plotStyleId;
};

/// A copy of a state's record. Its names are those of the drawing that it came from.
struct MemoryRecord {
    zdr::LayerState state;
    std::weak_ptr<const void> drawing;
};

/// A placeholder that is in no dictionary yet.
struct MemoryPlaceHolder {};

} // namespace engine

/// The way from a database to its internal side without a line in the trace.
struct KelDbDatabaseAccess {
    static engine::DatabaseImp& imp(const KelDbDatabase& database);
};

struct KelDbObjectState {
    KelDbStub* stub = nullptr; ///< null for an object in memory
    std::variant<std::monostate, engine::MemoryLayer, engine::MemoryRecord, engine::MemoryPlaceHolder> memory;
};

namespace engine {

/// Opens the object of an id, under the rules of KelDbObject.
/// @param kind the class that it must be of, or null
Vorn::ErrorStatus openObject(KelDbObject*& object, KelDbObjectId id, int mode, const KelRtClass* kind, bool openErased);
template <class T> Vorn::ErrorStatus openAs(T*& object, KelDbObjectId id, int mode, bool openErased) {
    KelDbObject* opened = nullptr;
    const Vorn::ErrorStatus status = openObject(opened, id, mode, T::desc(), openErased);
    if (status == Vorn::eOk)
        object = static_cast<T*>(opened);
    return status;
}
/// Puts an object in memory in the place of a stub that isn't open yet; it is open for write from then on.
void becomeResident(KelDbObject& object, KelDbStub& stub);

/// The stub of an object that is in a database and not erased; null otherwise.
KelDbStub* liveStub(const KelDbObject& object);
inline DatabaseImp& databaseOf(const KelDbStub& stub) {
    return *stub.database;
}
/// Whether the object's values may be written: it is open for write, or in memory.
bool mayWrite(const KelDbObject& object);
inline MemoryLayer* memoryLayer(const KelDbObject& object) {
    return std::get_if<MemoryLayer>(&object.state()->memory);
}
/// The values of a layer in a table, as a record in memory holds them.
MemoryLayer copyToMemory(const KelDbStub& layer);
/// What a record, in memory or open, says about a layer of a state.
StateLayerUpdate stateLayerUpdate(const KelDbLayerTableRecord& record, bool isCurrent);
/// The name of a linetype's or plot style's id; empty for what is neither.
std::wstring nameOf(KelDbObjectId id);

} // namespace engine
