// What is common to the records of symbol tables: the name, and where they come from.

#include "engine/LayerEditing.h"
#include "instruments/HostCalls.h"
#include "KelDbTables.h"
#include "ObjectState.h"
#include "RtClass.h"
#include "values/NameRules.h"
#include "values/RuntimeStrings.h"

using engine::ObjectKind;
using instruments::HostCall;

KELRT_DEFINE_CLASS(KelDbSymbolTableRecord, KelDbObject)

namespace {

const std::wstring* nameOfRecord(const KelDbSymbolTableRecord& record) {
    if (const engine::MemoryLayer* layer = engine::memoryLayer(record))
        return &layer->name;
    const KelDbStub* stub = engine::liveStub(record);
    if (!stub)
        return nullptr;
    const zdr::Drawing& drawing = stub->database->drawing();
    const bool layer = stub->kind == ObjectKind::Layer;
    return &drawing.names.text(layer ? drawing.layers[stub->index].name : drawing.linetypes[stub->index].name);
}

Vorn::ErrorStatus rename(const KelDbSymbolTableRecord& record, const wchar_t* name) {
    if (!name || !*name)
        return Vorn::eInvalidInput;
    if (engine::MemoryLayer* layer = engine::memoryLayer(record)) {
        layer->name = name; // also "reference!layer": the table is what checks names
        return Vorn::eOk;
    }
    if (!engine::mayWrite(record))
        return Vorn::eNotOpenForWrite;
    const KelDbStub* stub = engine::liveStub(record);
    if (!stub || stub->kind != ObjectKind::Layer)
        return Vorn::eNotApplicable;
    return engine::renameLayer(*stub->database, stub->index, name);
}

} // namespace

Vorn::ErrorStatus KelDbSymbolTableRecord::getName(const wchar_t*& name) const {
    HostCall call("record.getName", objectId());
    if (const auto status = call.fault())
        return call.answer(*status);
    const std::wstring* text = nameOfRecord(*this);
    if (!text)
        return call.answer(Vorn::eNotApplicable);
    name = text->c_str();
    call.out("name", name);
    return call.answer(Vorn::eOk);
}

Vorn::ErrorStatus KelDbSymbolTableRecord::getName(wchar_t*& name) const {
    HostCall call("record.getName", objectId());
    if (const auto status = call.fault())
        return call.answer(*status);
    const std::wstring* text = nameOfRecord(*this);
    if (!text)
        return call.answer(Vorn::eNotApplicable);
    wchar_t* copy = engine::handOutText(*text, "copy of the name");
    if (!copy)
        return call.answer(Vorn::eOutOfMemory);
    name = copy;
    call.out("name", *text);
    return call.answer(Vorn::eOk);
}

Vorn::ErrorStatus KelDbSymbolTableRecord::setName(const wchar_t* name) {
    HostCall call("record.setName", objectId(), name);
    return call.status([&] { return rename(*this, name); });
}

bool KelDbSymbolTableRecord::isDependent() const {
    HostCall call("record.isDependent", objectId());
    const KelDbStub* stub = engine::liveStub(*this);
    if (!stub)
        return call.answer(false);
    const zdr::Drawing& drawing = stub->database->drawing();
    if (stub->kind == ObjectKind::Layer)
        return call.answer(drawing.layers[stub->index].reference != zdr::kNone);
    return call.answer(nameOfRecord(*this)->find(engine::kReferenceSeparator) != std::wstring::npos);
}

bool KelDbSymbolTableRecord::isResolved() const {
    HostCall call("record.isResolved", objectId());
    const KelDbStub* stub = engine::liveStub(*this);
    if (!stub || stub->kind != ObjectKind::Layer)
        return call.answer(true);
    return call.answer(stub->database->isLayerResolved(stub->index));
}
