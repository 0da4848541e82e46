// Walking the layer table. Erased layers leave the table at once, so there are none to pass over.

#include "instruments/HostCalls.h"
#include "IteratorPosition.h"
#include "ObjectState.h"

using instruments::HostCall;

KelDbLayerTableIterator* KelDbIteratorAccess::make(const engine::DatabaseImp& database, bool atBeginning) {
    auto* iterator = new KelDbLayerTableIterator;
    const auto count = static_cast<std::ptrdiff_t>(database.drawing().layers.size());
    *iterator->m_position = {&database, atBeginning ? 0 : count - 1};
    instruments::entrust(iterator, "iterator of the layer table");
    return iterator;
}

KelDbSymbolTableIterator::KelDbSymbolTableIterator() : m_position(new Position) {}

KelDbSymbolTableIterator::~KelDbSymbolTableIterator() {
    HostCall call("iterator.delete");
    instruments::giveBack(this);
    delete m_position;
}

bool KelDbSymbolTableIterator::done() const {
    HostCall call("iterator.done");
    return call.answer(!m_position->inTable());
}

void KelDbSymbolTableIterator::step(bool forward, bool skipDeleted) {
    HostCall call("iterator.step", forward, skipDeleted);
    m_position->index += forward ? 1 : -1;
}

Vorn::ErrorStatus KelDbSymbolTableIterator::getRecordId(KelDbObjectId& id) const {
    HostCall call("iterator.getRecordId");
    if (const auto status = call.fault())
        return call.answer(*status);
    KelDbStub* stub = m_position->stub();
    if (!stub)
        return call.answer(Vorn::eNotApplicable);
    id = KelDbObjectId(stub);
    call.out("id", id);
    return call.answer(Vorn::eOk);
}

Vorn::ErrorStatus KelDbLayerTableIterator::getRecord(KelDbLayerTableRecord*& record, int mode, bool openErased) const {
    HostCall call("iterator.getRecord", mode, openErased);
    if (const auto status = call.fault())
        return call.answer(*status);
    KelDbStub* stub = m_position->stub();
    if (!stub)
        return call.answer(Vorn::eNotApplicable);
    call.out("id", KelDbObjectId(stub));
    return call.answer(engine::openAs(record, KelDbObjectId(stub), mode, openErased));
}
