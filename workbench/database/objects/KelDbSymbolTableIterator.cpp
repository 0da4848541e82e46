// Walking the symbol tables. Erased records leave their table at once, so there are none to pass over.

#include "instruments/HostCalls.h"
#include "IteratorPosition.h"
#include "ObjectState.h"

using instruments::HostCall;

template <class Iterator>
Iterator* KelDbIteratorAccess::make(const engine::DatabaseImp& database, bool layers, bool atBeginning,
                                    const char* what) {
    auto* iterator = new Iterator;
    *iterator->m_position = {&database, layers, 0};
    if (!atBeginning)
        iterator->m_position->index = iterator->m_position->count() - 1;
    instruments::entrust(iterator, what);
    return iterator;
}

KelDbLayerTableIterator* KelDbIteratorAccess::layers(const engine::DatabaseImp& database, bool atBeginning) {
    return make<KelDbLayerTableIterator>(database, true, atBeginning, "iterator of the layer table");
}

KelDbLinetypeTableIterator* KelDbIteratorAccess::linetypes(const engine::DatabaseImp& database, bool atBeginning) {
    return make<KelDbLinetypeTableIterator>(database, false, atBeginning, "iterator of the linetype table");
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

// getRecord() of both iterators; `stub` is that of the record at the iterator, null when it is past the last one.
template <class Record>
static Vorn::ErrorStatus openRecord(KelDbStub* stub, Record*& record, int mode, bool openErased) {
    HostCall call("iterator.getRecord", mode, openErased);
    return call.status([&] {
        if (!stub)
            return Vorn::eNotApplicable;
        call.out("id", KelDbObjectId(stub));
        return engine::openAs(record, KelDbObjectId(stub), mode, openErased);
    });
}

Vorn::ErrorStatus KelDbLayerTableIterator::getRecord(KelDbLayerTableRecord*& record, int mode, bool openErased) const {
    return openRecord(m_position->stub(), record, mode, openErased);
}

Vorn::ErrorStatus KelDbLinetypeTableIterator::getRecord(KelDbLinetypeTableRecord*& record, int mode,
                                                        bool openErased) const {
    return openRecord(m_position->stub(), record, mode, openErased);
}
