#include "StateCommit.h"

#include "LayerRecords.h"

#include <memory>

namespace {

/// Sets the record's values on a layer in memory, which carries them to the host.
void fill(KelDbLayerTableRecord& layer, const CLayerRcd& record, const KelDbDatabase& database) {
    static_cast<void>(layer.setName(record.m_name));
    static_cast<void>(layer.setIsFrozen(record.m_isFrozen));
    layer.setIsOff(record.m_isOff);
    layer.setVPDFLT(record.m_isNewVpFrozen);
    layer.setIsLocked(record.m_isLocked);
    static_cast<void>(layer.setIsPlottable(record.m_isPlottable));
    layer.setColor(record.m_color);
    layer.setLinetypeObjectId(record.m_linetypeId);
    static_cast<void>(layer.setLineWeight(record.m_lineWeight));
    if (!database.plotStyleMode()) {
        static_cast<void>(layer.setPlotStyleName(record.m_plotStyleName.GetString()));
        static_cast<void>(layer.setPlotStyleName(record.m_plotStyleId));
    }
}

} // namespace

void commitRemovals(KelDbLayerStateManager& states, const wchar_t* stateName, CObList& layers) {
    KelArray<KelString> names(0, 8);
    forEachRecord(layers, [&](const CLayerRcd& record) {
        if (record.m_isRemoved)
            names.append(record.m_name.GetString());
    });
    if (!names.isEmpty())
        static_cast<void>(states.removeLayerStateLayers(stateName, names));
}

void commitAdditions(KelDbLayerStateManager& states, const wchar_t* stateName, CObList& layers) {
    KelArray<KelDbObjectId> ids(0, 8);
    forEachRecord(layers, [&](const CLayerRcd& record) {
        if (record.m_isAdded && !record.m_layerId.isNull() && record.m_layerId.isValid())
            ids.append(record.m_layerId);
    });
    if (!ids.isEmpty())
        static_cast<void>(states.addLayerStateLayers(stateName, ids));
}

void commitChanges(KelDbDatabase& database, const wchar_t* stateName, CObList& layers) {
    KelDbImpLayerStateManager* impStates = database.impDatabase()->getImpLayerStateManager();
    if (!impStates)
        return;
    forEachRecord(layers, [&](const CLayerRcd& record) {
        if (!record.m_isModified)
            return;
        const auto layer = std::make_unique<KelDbLayerTableRecord>();
        fill(*layer, record, database);
        static_cast<void>(impStates->updateLayerStateLayer(stateName, layer.get(), record.m_isCurrent));
    });
}
