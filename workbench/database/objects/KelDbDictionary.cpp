// The dictionaries: of plot style names, and of the records of layer states.

#include "instruments/HostCalls.h"
#include "KelDbObject.h"
#include "ObjectState.h"
#include "RtClass.h"
#include "engine/LayerStates.h"
#include "values/NameRules.h"

#include <memory>

using engine::ObjectKind;
using instruments::HostCall;

KELRT_DEFINE_CLASS(KelDbXrecord, KelDbObject)
KELRT_DEFINE_CLASS(KelDbPlaceHolder, KelDbObject)
KELRT_DEFINE_CLASS(KelDbDictionary, KelDbObject)
KELRT_DEFINE_CLASS(KelDbDictionaryWithDefault, KelDbDictionary)

KelDbXrecord::KelDbXrecord() {
    state()->memory = engine::MemoryRecord{};
}

KelDbObject* KelDbXrecord::clone() const {
    HostCall call("clone", objectId());
    return call.valueOr<KelDbObject*>(nullptr, [this] {
        auto copy = std::make_unique<KelDbXrecord>();
        if (const KelDbStub* stub = engine::liveStub(*this))
            copy->state()->memory =
                engine::MemoryRecord{stub->database->drawing().states[stub->index], stub->database->identity()};
        else if (!state()->stub)
            copy->state()->memory = state()->memory;
        return copy.release();
    });
}

KelDbPlaceHolder::KelDbPlaceHolder() {
    state()->memory = engine::MemoryPlaceHolder{};
}

KelDbObject* KelDbPlaceHolder::clone() const {
    HostCall call("clone", objectId());
    return call.valueOr<KelDbObject*>(nullptr, [] { return new KelDbPlaceHolder; });
}

namespace {

KelDbStub* findEntry(const KelDbStub& dictionary, std::wstring_view name) {
    const engine::DatabaseImp& database = *dictionary.database;
    const zdr::Drawing& drawing = database.drawing();
    if (dictionary.kind == ObjectKind::PlotStyleDictionary) {
        const std::size_t index = database.findPlotStyle(drawing.names.find(name));
        return index == zdr::kNone ? nullptr : database.objects().plotStyle(index);
    }
    const std::size_t index = database.findState(name);
    const bool own = index != zdr::kNone && drawing.states[index].reference == zdr::kNone;
    return own ? database.objects().state(index) : nullptr;
}

// Only the copy of a state's record can be entered, and only in the drawing that it came from.
Vorn::ErrorStatus putRecord(engine::DatabaseImp& database, const wchar_t* name, KelDbObject& object,
                            KelDbObjectId& id) {
    const auto* record = std::get_if<engine::MemoryRecord>(&object.state()->memory);
    if (!record)
        return Vorn::eInvalidInput;
    if (record->drawing.expired() || record->drawing.lock() != database.identity().lock())
        return Vorn::eInvalidInput;
    std::size_t place = zdr::kNone;
    const Vorn::ErrorStatus status = engine::putState(database, name, record->state, place);
    if (status != Vorn::eOk)
        return status;
    KelDbStub* stub = database.objects().state(place);
    engine::becomeResident(object, *stub);
    id = KelDbObjectId(stub);
    return Vorn::eOk;
}

Vorn::ErrorStatus putPlotStyle(engine::DatabaseImp& database, const wchar_t* name, KelDbObject& object,
                               KelDbObjectId& id) {
    if (!std::holds_alternative<engine::MemoryPlaceHolder>(object.state()->memory))
        return Vorn::eInvalidInput;
    std::size_t index = database.findPlotStyle(database.drawing().names.find(name));
    if (index != zdr::kNone) {
        database.replacePlotStyle(index);
    } else {
        if (const Vorn::ErrorStatus status = engine::checkName(name); status != Vorn::eOk)
            return status;
        index = database.drawing().plotStyles.size();
        database.insertPlotStyle(index, {database.intern(name), 0});
    }
    KelDbStub* stub = database.objects().plotStyle(index);
    engine::becomeResident(object, *stub);
    id = KelDbObjectId(stub);
    return Vorn::eOk;
}

Vorn::ErrorStatus put(KelDbStub& dictionary, const wchar_t* name, KelDbObject* object, KelDbObjectId& id) {
    if (!dictionary.openForWrite)
        return Vorn::eNotOpenForWrite;
    if (!name || !object || object->state()->stub)
        return Vorn::eInvalidInput;
    const bool states = dictionary.kind == ObjectKind::StateDictionary;
    return (states ? putRecord : putPlotStyle)(*dictionary.database, name, *object, id);
}

} // namespace

Vorn::ErrorStatus KelDbDictionary::getAt(const wchar_t* name, KelDbObjectId& id) const {
    HostCall call("dictionary.getAt", objectId(), name);
    return call.status([&] {
        const KelDbStub* dictionary = engine::liveStub(*this);
        KelDbStub* found = dictionary && name ? findEntry(*dictionary, name) : nullptr;
        if (!found)
            return Vorn::eKeyNotFound;
        id = KelDbObjectId(found);
        call.out("id", id);
        return Vorn::eOk;
    });
}

Vorn::ErrorStatus KelDbDictionary::setAt(const wchar_t* name, KelDbObject* object, KelDbObjectId& id) {
    HostCall call("dictionary.setAt", objectId(), name, object);
    return call.status([&] {
        KelDbStub* dictionary = engine::liveStub(*this);
        if (!dictionary)
            return Vorn::eNotApplicable;
        const Vorn::ErrorStatus status = put(*dictionary, name, object, id);
        call.out("id", id);
        return status;
    });
}

Vorn::ErrorStatus KelDbDictionary::newIterator(KelDbDictionaryIterator*& iterator) const {
    HostCall call("dictionary.newIterator", objectId());
    return call.status([&] {
        const KelDbStub* dictionary = engine::liveStub(*this);
        if (!dictionary)
            return Vorn::eNotApplicable;
        iterator = new KelDbDictionaryIterator(*dictionary);
        instruments::entrust(iterator, "iterator of a dictionary");
        return Vorn::eOk;
    });
}

KelDbObjectId KelDbDictionaryWithDefault::defaultId() const {
    HostCall call("dictionary.defaultId", objectId());
    const KelDbStub* dictionary = engine::liveStub(*this);
    if (!dictionary || dictionary->database->drawing().plotStyles.empty())
        return call.answer(KelDbObjectId());
    return call.answer(KelDbObjectId(dictionary->database->objects().plotStyle(0)));
}
