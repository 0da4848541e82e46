// The symbol tables: finding records by name, and walking and filling the layer table.

#include "IteratorPosition.h"
#include "KelDbTables.h"
#include "ObjectState.h"
#include "RtClass.h"
#include "engine/LayerEditing.h"
#include "instruments/HostCalls.h"

using instruments::HostCall;

KELRT_DEFINE_CLASS(KelDbSymbolTable, KelDbObject)
KELRT_DEFINE_CLASS(KelDbLinetypeTable, KelDbSymbolTable)
KELRT_DEFINE_CLASS(KelDbLayerTable, KelDbSymbolTable)

namespace {

KelDbStub* findRecord(const KelDbSymbolTable& object, const wchar_t* name) {
    const KelDbStub* table = engine::liveStub(object);
    if (!table || !name)
        return nullptr;
    const engine::DatabaseImp& database = *table->database;
    const bool layers = table->kind == engine::ObjectKind::LayerTable;
    const std::size_t index =
        layers ? database.findLayer(name) : database.findLinetype(database.drawing().names.find(name));
    if (index == zdr::kNone)
        return nullptr;
    return layers ? database.objects().layer(index) : database.objects().linetype(index);
}

} // namespace

Vorn::ErrorStatus KelDbSymbolTable::getAt(const wchar_t* name, KelDbObjectId& id, bool getErased) const {
    HostCall call("table.getAt", objectId(), name, getErased);
    return call.status([&] {
        KelDbStub* found = findRecord(*this, name);
        if (!found)
            return Vorn::eKeyNotFound;
        id = KelDbObjectId(found);
        call.out("id", id);
        return Vorn::eOk;
    });
}

bool KelDbSymbolTable::has(const wchar_t* name) const {
    HostCall call("table.has", objectId(), name);
    return call.valueOr(false, [&] { return findRecord(*this, name) != nullptr; });
}

Vorn::ErrorStatus KelDbLayerTable::getAt(const wchar_t* name, KelDbLayerTableRecord*& record, int mode,
                                         bool openErased) const {
    HostCall call("layerTable.getAt", name, mode, openErased);
    return call.status([&] {
        KelDbStub* found = findRecord(*this, name);
        if (!found)
            return Vorn::eKeyNotFound;
        call.out("id", KelDbObjectId(found));
        return engine::openAs(record, KelDbObjectId(found), mode, openErased);
    });
}

Vorn::ErrorStatus KelDbLayerTable::newIterator(KelDbLayerTableIterator*& iterator, bool atBeginning,
                                               bool skipDeleted) const {
    HostCall call("layerTable.newIterator", atBeginning, skipDeleted);
    return call.status([&] {
        const KelDbStub* table = engine::liveStub(*this);
        if (!table)
            return Vorn::eNotApplicable;
        iterator = KelDbIteratorAccess::layers(*table->database, atBeginning);
        return Vorn::eOk;
    });
}

Vorn::ErrorStatus KelDbLinetypeTable::newIterator(KelDbLinetypeTableIterator*& iterator, bool atBeginning,
                                                  bool skipDeleted) const {
    HostCall call("linetypeTable.newIterator", atBeginning, skipDeleted);
    return call.status([&] {
        const KelDbStub* table = engine::liveStub(*this);
        if (!table)
            return Vorn::eNotApplicable;
        iterator = KelDbIteratorAccess::linetypes(*table->database, atBeginning);
        return Vorn::eOk;
    });
}

Vorn::ErrorStatus KelDbLayerTable::add(KelDbObjectId& id, KelDbLayerTableRecord* record) {
    HostCall call("layerTable.add", record);
    return call.status([&] {
        KelDbStub* table = engine::liveStub(*this);
        if (!table || !table->openForWrite)
            return Vorn::eNotOpenForWrite;
        const engine::MemoryLayer* values = record ? engine::memoryLayer(*record) : nullptr;
        if (!values)
            return Vorn::eInvalidInput;
        engine::DatabaseImp& database = *table->database;
        engine::LayerValues row{values->flags, database.intern(values->color),
                                database.intern(engine::nameOf(values->linetype)), values->lineWeight,
                                database.intern(values->plotStyle)};
        const Vorn::ErrorStatus status = engine::addLayer(database, values->name, values->description, row);
        if (status != Vorn::eOk)
            return status;
        KelDbStub* stub = database.objects().layer(database.drawing().layers.size() - 1);
        engine::becomeResident(*record, *stub);
        id = KelDbObjectId(stub);
        call.out("id", id);
        return Vorn::eOk;
    });
}
