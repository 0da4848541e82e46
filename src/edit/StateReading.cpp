#include "StateReading.h"

#include "CTempLayerState.h"
#include "HostOwners.h"
#include "KelDbPointers.h"
#include "NewOrNull.h"

namespace {

using OpenLayer = KelDbObjectPointer<KelDbLayerTableRecord>;

/// What a restore answers that has brought at least a part of the state onto the layers.
bool isRestored(Vorn::ErrorStatus status) {
    switch (status) {
    case Vorn::eOk:
    case Vorn::eLayerUnresolved:
    case Vorn::eCannotFreezeCurrentLayer:
    case Vorn::eStyleMissing:
        return true;
    default:
        return false;
    }
}

/// Opens the layer of a name, with the table open no longer than that takes.
void openLayer(KelDbDatabase& database, const wchar_t* name, OpenLayer& layer) {
    KelDbSymbolTablePointer<KelDbLayerTable> table(&database, KelDb::kForRead);
    KelDbLayerTableRecord* record = nullptr;
    if (table.openStatus() == Vorn::eOk && table->getAt(name, record, KelDb::kForRead, false) == Vorn::eOk)
        layer.acquire(record);
}

CString linetypeName(KelDbObjectId id) {
    const KelDbObjectPointer<KelDbLinetypeTableRecord> linetype(id, KelDb::kForRead);
    const wchar_t* name = nullptr;
    if (linetype.openStatus() == Vorn::eOk && linetype->getName(name) == Vorn::eOk)
        return name;
    return {};
}

void readName(const KelDbLayerTableRecord& layer, CLayerRcd& record) {
    const wchar_t* name = nullptr;
    if (layer.getName(name) == Vorn::eOk)
        record.m_name = name;
}

void readLinetype(const KelDbLayerTableRecord& layer, CLayerRcd& record) {
    record.m_linetypeId = layer.linetypeObjectId();
    record.m_linetypeName = linetypeName(record.m_linetypeId);
}

void readPlotStyle(KelDbDatabase& database, const KelDbLayerTableRecord& layer, CLayerRcd& record) {
    if (database.plotStyleMode())
        return;
    record.m_plotStyleId = layer.plotStyleNameId();
    record.m_plotStyleName = RuntimeText(layer.plotStyleName()).get();
}

/// What a layer of the state and one that enters it are read for alike.
void readProperties(KelDbDatabase& database, const KelDbLayerTableRecord& layer, CLayerRcd& record) {
    readName(layer, record);
    record.m_isFrozen = layer.isFrozen();
    record.m_isOff = layer.isOff();
    record.m_isLocked = layer.isLocked();
    record.m_isNewVpFrozen = layer.VPDFLT();
    record.m_isPlottable = layer.isPlottable();
    record.m_color = layer.color();
    readLinetype(layer, record);
    record.m_lineWeight = layer.lineWeight();
    readPlotStyle(database, layer, record);
}

/// Null when there is no memory for the record.
/// @param name by which the state knows the layer; the record's when the layer's own can't be had
std::unique_ptr<CLayerRcd> readStateLayer(KelDbDatabase& database, const KelDbLayerTableRecord& layer,
                                          const wchar_t* name, KelDbObjectId current) {
    std::unique_ptr<CLayerRcd> record = newOrNull<CLayerRcd>();
    if (!record)
        return nullptr;
    record->m_isCurrent = layer.objectId() == current;
    record->m_isDependent = layer.isDependent();
    record->m_name = name;
    readProperties(database, layer, *record);
    return record;
}

void readLayers(KelDbDatabase& database, const KelArray<KelString>& names, CObList& layers) {
    const KelDbObjectId current = database.clayer();
    for (const KelString& name : names) {
        OpenLayer layer;
        openLayer(database, name.kwszPtr(), layer);
        if (layer.openStatus() != Vorn::eOk)
            continue;
        std::unique_ptr<CLayerRcd> record = readStateLayer(database, *layer.object(), name.kwszPtr(), current);
        if (!record)
            return; // what has been read so far stands
        layers.AddTail(record.get());
        record.release();
    }
}

} // namespace

bool readStateLayers(KelDbDatabase* database, const wchar_t* stateName, CObList& layers) {
    if (!database)
        return false;
    const CTempLayerState guard; // before the restore, which overwrites the user's layers
    KelDbImpLayerStateManager* impStates = database->impDatabase()->getImpLayerStateManager();
    if (!impStates)
        return false;
    const LayerStateMask mask = MaskAllProperties;
    // Without a viewport, whichever is current: what a viewport has frozen plays no part in the grid.
    if (!isRestored(impStates->restoreLayerState(stateName, KelDbObjectId(), 0, &mask, false)))
        return false;
    KelArray<KelString> names(0, 8);
    if (KelDbLayerStateManager* states = database->getLayerStateManager())
        static_cast<void>(states->getLayerStateLayers(names, stateName, false)); // a failure leaves no names
    if (names.isEmpty())
        return false;
    readLayers(*database, names, layers);
    return true;
}

std::unique_ptr<CLayerRcd> readAddedLayer(KelDbDatabase& database, KelDbObjectId id, bool& outOfMemory) {
    const OpenLayer layer(id, KelDb::kForRead);
    if (layer.openStatus() != Vorn::eOk)
        return nullptr;
    std::unique_ptr<CLayerRcd> record = newOrNull<CLayerRcd>();
    outOfMemory = !record;
    if (outOfMemory)
        return nullptr;
    record->m_layerId = id;
    readProperties(database, *layer.object(), *record);
    record->m_isAdded = true;
    return record;
}
