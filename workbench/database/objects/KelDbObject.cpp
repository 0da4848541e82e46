// What is common to all objects: opening, closing, copies, extended data.

#include "KelDbObject.h"

#include "ExtendedDataChain.h"
#include "instruments/HostCalls.h"
#include "ObjectState.h"
#include "RtClass.h"

using instruments::HostCall;

KELRT_DEFINE_CLASS(KelDbObject, KelRtObject)

KelDbObject::KelDbObject() : m_state(new KelDbObjectState) {
    instruments::entrust(this, "object in memory");
}

KelDbObject::~KelDbObject() {
    if (!m_state->stub)
        instruments::giveBack(this);
    delete m_state;
}

// A close always ends the open, also when it is made to answer a failure: nobody can close again.
Vorn::ErrorStatus KelDbObject::close() {
    HostCall call("close", objectId());
    KelDbStub* stub = m_state->stub;
    const auto fault = call.fault();
    if (!stub)
        return call.answer(fault.value_or(Vorn::eNotApplicable));
    instruments::giveBack(stub);
    if (stub->readers > 0)
        --stub->readers;
    stub->openForWrite = false;
    if (stub->readers == 0) {
        stub->object = nullptr;
        delete this;
    }
    return call.answer(fault.value_or(Vorn::eOk));
}

KelDbObjectId KelDbObject::objectId() const {
    return KelDbObjectId(m_state->stub);
}

Vorn::ErrorStatus KelDbObject::upgradeOpen() {
    HostCall call("upgradeOpen", objectId());
    if (const auto status = call.fault())
        return call.answer(*status);
    KelDbStub* stub = m_state->stub;
    if (!stub)
        return call.answer(Vorn::eNotApplicable);
    if (stub->openForWrite)
        return call.answer(Vorn::eWasOpenForWrite);
    if (stub->readers > 1)
        return call.answer(Vorn::eWasOpenForRead);
    stub->readers = 0;
    stub->openForWrite = true;
    return call.answer(Vorn::eOk);
}

Vorn::ErrorStatus KelDbObject::downgradeOpen() {
    HostCall call("downgradeOpen", objectId());
    if (const auto status = call.fault())
        return call.answer(*status);
    KelDbStub* stub = m_state->stub;
    if (!stub)
        return call.answer(Vorn::eNotApplicable);
    if (!stub->openForWrite)
        return call.answer(Vorn::eNotOpenForWrite);
    stub->openForWrite = false;
    stub->readers = 1;
    return call.answer(Vorn::eOk);
}

ResultBuffer* KelDbObject::getExtendedData(const wchar_t* appName) const {
    HostCall call("getExtendedData", objectId(), appName);
    const KelDbStub* stub = engine::liveStub(*this);
    if (call.fault() || !stub || !appName)
        return call.answer<ResultBuffer*>(nullptr);
    return call.answer(engine::makeChain(stub->database->drawing(), stub->handle, appName));
}

Vorn::ErrorStatus KelDbObject::setExtendedData(const ResultBuffer* chain) {
    HostCall call("setExtendedData", objectId(), chain);
    return call.status([&] {
        const KelDbStub* stub = engine::liveStub(*this);
        if (!stub || !stub->openForWrite)
            return Vorn::eNotOpenForWrite;
        return engine::storeChain(*stub->database, stub->handle, chain);
    });
}

KelDbObject* KelDbObject::clone() const {
    HostCall call("clone", objectId());
    return call.answer<KelDbObject*>(nullptr);
}

Vorn::ErrorStatus keldbOpenKelDbObject(KelDbObject*& object, KelDbObjectId id, int mode, bool openErased) {
    HostCall call("openObject", id, mode, openErased);
    return call.status([&] { return engine::openObject(object, id, mode, nullptr, openErased); });
}

Vorn::ErrorStatus keldbOpenKelDbObject(KelDbObject*& object, KelDbObjectId id, int mode, const KelRtClass* kind,
                                       bool openErased) {
    HostCall call("openObject", id, mode, openErased);
    return call.status([&] { return engine::openObject(object, id, mode, kind, openErased); });
}
