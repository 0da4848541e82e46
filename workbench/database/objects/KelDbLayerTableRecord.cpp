// A layer as callers read it: one row of the drawing's columns, or values in memory.

#include "instruments/HostCalls.h"
#include "KelDbTables.h"
#include "ObjectState.h"
#include "RtClass.h"
#include "values/RuntimeStrings.h"

#include <memory>

using engine::MemoryLayer;
using instruments::HostCall;

KELRT_DEFINE_CLASS(KelDbLayerTableRecord, KelDbSymbolTableRecord)

namespace {

// Calls `ofMemory` with a record's own values or `ofDrawing` with the drawing and the layer's index; `otherwise` for a
// layer that was erased.
template <class Answer, class OfMemory, class OfDrawing>
Answer read(const KelDbLayerTableRecord& record, Answer otherwise, OfMemory ofMemory, OfDrawing ofDrawing) {
    if (const MemoryLayer* layer = engine::memoryLayer(record))
        return ofMemory(*layer);
    const KelDbStub* stub = engine::liveStub(record);
    return stub ? ofDrawing(stub->database->drawing(), stub->index) : otherwise;
}

bool readFlag(const KelDbLayerTableRecord& record, std::uint8_t flag) {
    return read(
        record, false, [flag](const MemoryLayer& layer) { return (layer.flags & flag) != 0; },
        [flag](const zdr::Drawing& drawing, std::size_t index) { return (drawing.columns.flags[index] & flag) != 0; });
}

KelDbObjectId idOf(const engine::DatabaseImp& database, std::size_t index, bool linetype) {
    if (index == zdr::kNone)
        return {};
    return KelDbObjectId(linetype ? database.objects().linetype(index) : database.objects().plotStyle(index));
}

} // namespace

KelDbLayerTableRecord::KelDbLayerTableRecord() {
    HostCall call("layerRecord.new");
    state()->memory = MemoryLayer{};
}

KelDbObject* KelDbLayerTableRecord::clone() const {
    HostCall call("clone", objectId());
    return call.valueOr<KelDbObject*>(nullptr, [this]() -> KelDbObject* {
        const KelDbStub* stub = engine::liveStub(*this);
        const MemoryLayer* own = engine::memoryLayer(*this);
        if (!stub && !own)
            return nullptr;
        auto copy = std::make_unique<KelDbLayerTableRecord>();
        copy->state()->memory = own ? *own : engine::copyToMemory(*stub);
        return copy.release();
    });
}

bool KelDbLayerTableRecord::isFrozen() const {
    HostCall call("record.isFrozen", objectId());
    return call.answer(readFlag(*this, zdr::kLayerFrozen));
}

bool KelDbLayerTableRecord::isOff() const {
    HostCall call("record.isOff", objectId());
    return call.answer(!readFlag(*this, zdr::kLayerOn));
}

bool KelDbLayerTableRecord::isLocked() const {
    HostCall call("record.isLocked", objectId());
    return call.answer(readFlag(*this, zdr::kLayerLocked));
}

bool KelDbLayerTableRecord::VPDFLT() const {
    HostCall call("record.VPDFLT", objectId());
    return call.answer(readFlag(*this, zdr::kLayerNewViewportFrozen));
}

bool KelDbLayerTableRecord::isPlottable() const {
    HostCall call("record.isPlottable", objectId());
    return call.answer(readFlag(*this, zdr::kLayerPlot));
}

KelCmColor KelDbLayerTableRecord::color() const {
    HostCall call("record.color", objectId());
    return call.answer(read(
        *this, KelCmColor(), [](const MemoryLayer& layer) { return layer.color; },
        [](const zdr::Drawing& drawing, std::size_t index) {
            return drawing.namedColors.color(drawing.columns.colors[index]);
        }));
}

KelDbObjectId KelDbLayerTableRecord::linetypeObjectId() const {
    HostCall call("record.linetypeObjectId", objectId());
    return call.valueUnlessNoMemory(KelDbObjectId(), [this] {
        return read(
            *this, KelDbObjectId(), [](const MemoryLayer& layer) { return layer.linetype; },
            [this](const zdr::Drawing& drawing, std::size_t index) {
                const engine::DatabaseImp& database = *state()->stub->database;
                return idOf(database, database.findLinetype(drawing.columns.linetypes[index]), true);
            });
    });
}

int KelDbLayerTableRecord::lineWeight() const {
    HostCall call("record.lineWeight", objectId());
    return call.answer(read(
        *this, -3, [](const MemoryLayer& layer) { return int{layer.lineWeight}; },
        [](const zdr::Drawing& drawing, std::size_t index) { return int{drawing.columns.lineWeights[index]}; }));
}

wchar_t* KelDbLayerTableRecord::plotStyleName() const {
    HostCall call("record.plotStyleName", objectId());
    const std::wstring_view name = read(
        *this, std::wstring_view(), [](const MemoryLayer& layer) { return std::wstring_view(layer.plotStyle); },
        [](const zdr::Drawing& drawing, std::size_t index) {
            return std::wstring_view(drawing.names.text(drawing.columns.plotStyles[index]));
        });
    wchar_t* copy = name.empty() || call.fault() ? nullptr : engine::copyText(name);
    return call.answer(copy);
}

KelDbObjectId KelDbLayerTableRecord::plotStyleNameId() const {
    HostCall call("record.plotStyleNameId", objectId());
    return call.valueUnlessNoMemory(KelDbObjectId(), [this] {
        return read(
            *this, KelDbObjectId(), [](const MemoryLayer& layer) { return layer.plotStyleId; },
            [this](const zdr::Drawing& drawing, std::size_t index) {
                const engine::DatabaseImp& database = *state()->stub->database;
                return idOf(database, database.findPlotStyle(drawing.columns.plotStyles[index]), false);
            });
    });
}

wchar_t* KelDbLayerTableRecord::description() const {
    HostCall call("record.description", objectId());
    const std::wstring_view text = read(
        *this, std::wstring_view(), [](const MemoryLayer& layer) { return std::wstring_view(layer.description); },
        [](const zdr::Drawing& drawing, std::size_t index) {
            return std::wstring_view(drawing.layers[index].description);
        });
    return call.answer(engine::handOutText(text, "description of a layer"));
}
