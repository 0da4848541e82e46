#include "LayerRecords.h"

void deleteRecords(CObList& layers) {
    for (POSITION position = layers.GetHeadPosition(); position;)
        delete layers.GetNext(position);
    layers.RemoveAll();
}

KelArray<KelString> namesWithRows(CObList& layers) {
    KelArray<KelString> names(0, 8);
    forEachRecord(layers, [&](const CLayerRcd& record) {
        if (!record.m_isRemoved)
            names.append(record.m_name.GetString());
    });
    return names;
}

void makeCurrent(CObList& layers, CLayerRcd& record) {
    for (POSITION position = layers.GetHeadPosition(); position;) {
        auto* before = static_cast<CLayerRcd*>(layers.GetNext(position));
        if (before && before->m_isCurrent) {
            before->m_isCurrent = false;
            break;
        }
    }
    record.m_isCurrent = true;
    record.markModified();
}
