// Walking a dictionary. The states of references come after the drawing's own and are no entries.

#include "instruments/HostCalls.h"
#include "KelDbObject.h"
#include "ObjectState.h"

using instruments::HostCall;

KelDbDictionaryIterator::~KelDbDictionaryIterator() {
    HostCall call("dictionaryIterator.delete");
    instruments::giveBack(this);
}

KelDbStub* KelDbDictionaryIterator::entry() const {
    const engine::DatabaseImp& database = *m_dictionary.database;
    const zdr::Drawing& drawing = database.drawing();
    const auto index = static_cast<std::size_t>(m_index);
    if (m_dictionary.kind == engine::ObjectKind::PlotStyleDictionary)
        return index < drawing.plotStyles.size() ? database.objects().plotStyle(index) : nullptr;
    const bool own = index < drawing.states.size() && drawing.states[index].reference == zdr::kNone;
    return own ? database.objects().state(index) : nullptr;
}

bool KelDbDictionaryIterator::done() const {
    HostCall call("dictionaryIterator.done");
    return call.answer(!entry());
}

void KelDbDictionaryIterator::next() {
    HostCall call("dictionaryIterator.next");
    if (entry())
        ++m_index;
}

const wchar_t* KelDbDictionaryIterator::name() const {
    HostCall call("dictionaryIterator.name");
    const KelDbStub* stub = entry();
    if (!stub)
        return call.answer<const wchar_t*>(nullptr);
    const zdr::Drawing& drawing = stub->database->drawing();
    const bool state = stub->kind == engine::ObjectKind::State;
    const std::wstring& text =
        state ? drawing.states[stub->index].name : drawing.names.text(drawing.plotStyles[stub->index].name);
    return call.answer(text.c_str());
}

KelDbObjectId KelDbDictionaryIterator::objectId() const {
    HostCall call("dictionaryIterator.objectId");
    return call.answer(KelDbObjectId(entry()));
}
