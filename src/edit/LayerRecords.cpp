#include "LayerRecords.h"

#include <new>

std::unique_ptr<CLayerRcd> newLayerRecord() {
    try {
        return std::make_unique<CLayerRcd>();
    } catch (CMemoryException* exception) {
        exception->Delete();
    } catch (const std::bad_alloc&) {
        // The framework and the language each have their own exception for lack of memory.
    }
    return nullptr;
}

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
