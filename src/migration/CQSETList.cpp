// The list of names, and the walk over the layers.
#include "CQSETList.h"

#include "HostOwners.h"
#include "KelDbPointers.h"
#include "LegacyChain.h"
#include "WorkingDatabase.h"

#include <memory>

CQSETList::CQSETList(KelDbDatabase* database)
    : m_count(0), m_nextIndex(0), m_database(database), m_layer(nullptr), m_extendedData(nullptr) {
    collectNames();
    m_names.FreeExtra();
    m_count = static_cast<int>(m_names.GetSize());
}

CQSETList::~CQSETList() {
    m_names.RemoveAll();
}

void CQSETList::collectNames() {
    const KelDbSymbolTablePointer<KelDbLayerTable> table(m_database, KelDb::kForRead);
    KelDbLayerTableIterator* found = nullptr;
    if (table.openStatus() != Vorn::eOk || table->newIterator(found, true, true) != Vorn::eOk)
        return;
    const std::unique_ptr<KelDbLayerTableIterator> iterator(found);
    for (; !iterator->done(); iterator->step(true, true)) {
        KelDbObjectId id;
        if (iterator->getRecordId(id) != Vorn::eOk)
            continue;
        const KelDbSymbolTableRecordPointer<KelDbLayerTableRecord> layer(id, KelDb::kForRead);
        if (layer.openStatus() != Vorn::eOk)
            continue;
        if (const HostChain chain{layer->getExtendedData(kLegacyApplication)})
            collectNames(chain.get());
    }
}

// Nothing but the brace is looked at: not where in a block the text is, nor whether the block is closed.
void CQSETList::collectNames(const ResultBuffer* chain) {
    for (const ResultBuffer* node = chain; node; node = node->next) {
        const wchar_t* name = openedName(*node);
        if (name && !holdsName(name))
            m_names.Add(name);
    }
}

bool CQSETList::holdsName(const wchar_t* name) const {
    for (INT_PTR index = 0; index < m_names.GetSize(); ++index)
        if (m_names[index].CompareNoCase(name) == 0)
            return true;
    return false;
}

bool CQSETList::takeNextName() {
    if (m_nextIndex >= m_count)
        return false;
    m_currentName = m_names[m_nextIndex++];
    return true;
}

bool CQSETList::applyToLayers(int operation, const wchar_t* name) {
    // The drawing that is current now, and not the one that the list was made from.
    const KelDbSymbolTablePointer<KelDbLayerTable> table(workingDatabase(), KelDb::kForRead);
    KelDbLayerTableIterator* found = nullptr;
    if (table.openStatus() != Vorn::eOk || table->newIterator(found, true, true) != Vorn::eOk)
        return false;
    std::unique_ptr<KelDbLayerTableIterator> iterator(found);
    // Asked once for all layers, since there may be many names.
    const bool isOfList = operation != OpRestore || holdsName(name);
    bool applied = true;
    while (applied && !iterator->done()) {
        applied = iterator->getRecord(m_layer, KelDb::kForWrite) == Vorn::eOk;
        if (!applied)
            break;
        // Over the chain of the layer before, which isn't released; kept on purpose.
        m_extendedData = m_layer->getExtendedData(kLegacyApplication);
        applied = !isOfList || applyToLayer(operation, name);
        closeOrAbort(*m_layer);
        if (applied)
            iterator->step(true, true);
    }
    iterator.reset();
    const HostChain last(m_extendedData);
    m_extendedData = nullptr;
    m_layer = nullptr;
    return applied;
}

bool CQSETList::applyToLayer(int operation, const wchar_t* name) {
    switch (operation) {
    case OpWrite:
        return writeBlock(name) && storeChain();
    case OpRename:
        return renameBlock(name) && storeChain();
    case OpDelete:
        return deleteBlock(name) && storeChain();
    case OpRestore:
        return restoreBlock(name);
    default:
        return false;
    }
}

bool CQSETList::storeChain() {
    return !m_extendedData || m_layer->setExtendedData(m_extendedData) == Vorn::eOk;
}
