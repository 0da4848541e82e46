#include "ObjectState.h"

#include "instruments/HostCalls.h"

#include <memory>

namespace engine {
namespace {

KelDbObject* makeObject(ObjectKind kind, KelDbObjectState* state) {
    switch (kind) {
    case ObjectKind::LayerTable:
        return new KelDbLayerTable(state);
    case ObjectKind::LinetypeTable:
        return new KelDbLinetypeTable(state);
    case ObjectKind::PlotStyleDictionary:
        return new KelDbDictionaryWithDefault(state);
    case ObjectKind::StateDictionary:
        return new KelDbDictionary(state);
    case ObjectKind::Layer:
        return new KelDbLayerTableRecord(state);
    case ObjectKind::Linetype:
        return new KelDbLinetypeTableRecord(state);
    case ObjectKind::State:
        return new KelDbXrecord(state);
    case ObjectKind::Viewport:
        return new KelDbViewport(state);
    case ObjectKind::PlotStyle:
        break;
    }
    return new KelDbPlaceHolder(state);
}

std::unique_ptr<KelDbObject> makeObject(KelDbStub& stub) {
    std::unique_ptr<KelDbObjectState> state(new KelDbObjectState{&stub, {}});
    std::unique_ptr<KelDbObject> object(makeObject(stub.kind, state.get()));
    static_cast<void>(state.release()); // the object's now
    return object;
}

void enterInLedger(const KelDbStub& stub, bool forWrite) {
    if (instruments::g_watching)
        instruments::entrust(&stub, "open for " + std::string(forWrite ? "write " : "read ") +
                                        instruments::describe(KelDbObjectId(const_cast<KelDbStub*>(&stub))));
}

} // namespace

Vorn::ErrorStatus openObject(KelDbObject*& object, KelDbObjectId id, int mode, const KelRtClass* kind,
                             bool openErased) {
    KelDbStub* stub = id.stub();
    if (!stub)
        return Vorn::eNullObjectId;
    if (mode != KelDb::kForRead && mode != KelDb::kForWrite)
        return Vorn::eInvalidInput;
    if (stub->erased && !openErased)
        return Vorn::eWasErased;
    if (stub->openForWrite)
        return Vorn::eWasOpenForWrite;
    if (mode == KelDb::kForWrite && stub->readers > 0)
        return Vorn::eWasOpenForRead;
    std::unique_ptr<KelDbObject> fresh = stub->object ? nullptr : makeObject(*stub);
    KelDbObject* found = fresh ? fresh.get() : stub->object;
    if (kind && !found->isKindOf(kind))
        return Vorn::eNotThatKindOfClass;
    stub->object = found;
    static_cast<void>(fresh.release());
    stub->openForWrite = mode == KelDb::kForWrite;
    stub->readers += stub->openForWrite ? 0 : 1;
    enterInLedger(*stub, stub->openForWrite);
    object = found;
    return Vorn::eOk;
}

void becomeResident(KelDbObject& object, KelDbStub& stub) {
    instruments::giveBack(&object);
    object.state()->memory = {};
    object.state()->stub = &stub;
    stub.object = &object;
    stub.openForWrite = true;
    enterInLedger(stub, true);
}

KelDbStub* liveStub(const KelDbObject& object) {
    KelDbStub* stub = object.state()->stub;
    return stub && !stub->erased ? stub : nullptr;
}

bool mayWrite(const KelDbObject& object) {
    const KelDbStub* stub = object.state()->stub;
    return !stub || (stub->openForWrite && !stub->erased);
}

MemoryLayer copyToMemory(const KelDbStub& layer) {
    const DatabaseImp& database = *layer.database;
    const zdr::Drawing& drawing = database.drawing();
    const LayerValues values = valuesAt(drawing.columns, layer.index);
    const std::size_t linetype = database.findLinetype(values.linetype);
    const std::size_t plotStyle = database.findPlotStyle(values.plotStyle);
    const auto id = [](KelDbStub* stub) { return KelDbObjectId(stub); };
    return {drawing.names.text(drawing.layers[layer.index].name),
            drawing.layers[layer.index].description,
            values.flags,
            drawing.namedColors.color(values.color),
            id(linetype == zdr::kNone ? nullptr : database.objects().linetype(linetype)),
            values.lineWeight,
            drawing.names.text(values.plotStyle),
            id(plotStyle == zdr::kNone ? nullptr : database.objects().plotStyle(plotStyle))};
}

StateLayerUpdate stateLayerUpdate(const KelDbLayerTableRecord& record, bool isCurrent) {
    const KelDbStub* stub = liveStub(record);
    const MemoryLayer* own = memoryLayer(record);
    const MemoryLayer layer = own ? *own : stub ? copyToMemory(*stub) : MemoryLayer{};
    const auto orNone = [](std::wstring name) { return name.empty() ? std::nullopt : std::optional(std::move(name)); };
    return {
        layer.name, layer.flags, layer.color, orNone(nameOf(layer.linetype)), layer.lineWeight, orNone(layer.plotStyle),
        isCurrent};
}

std::wstring nameOf(KelDbObjectId id) {
    const KelDbStub* stub = id.stub();
    if (!stub || stub->erased)
        return {};
    const zdr::Drawing& drawing = stub->database->drawing();
    switch (stub->kind) {
    case ObjectKind::Linetype:
        return drawing.names.text(drawing.linetypes[stub->index].name);
    case ObjectKind::PlotStyle:
        return drawing.names.text(drawing.plotStyles[stub->index].name);
    default:
        return {};
    }
}

} // namespace engine
