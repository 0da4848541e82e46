// A layer as callers write it: one row of the drawing's columns, or values in memory.

#include "KelDbTables.h"
#include "ObjectState.h"
#include "engine/LayerEditing.h"
#include "instruments/HostCalls.h"

using engine::MemoryLayer;
using instruments::HostCall;

namespace {

// The layer's stub when the record may be written, or a status.
Vorn::ErrorStatus forWriting(const KelDbLayerTableRecord& record, KelDbStub*& stub) {
    stub = engine::liveStub(record);
    return stub && engine::mayWrite(record) ? Vorn::eOk : Vorn::eNotOpenForWrite;
}

// Writes one value into a record in memory or into the layer's row, under the rules of the drawing.
template <class Write> Vorn::ErrorStatus writeRow(const KelDbLayerTableRecord& record, Write write) {
    KelDbStub* stub = nullptr;
    const Vorn::ErrorStatus status = forWriting(record, stub);
    if (status != Vorn::eOk)
        return status;
    engine::LayerValues values = engine::valuesAt(stub->database->drawing().columns, stub->index);
    write(values);
    return engine::setLayerValues(*stub->database, stub->index, values);
}

Vorn::ErrorStatus writeFlag(const KelDbLayerTableRecord& record, std::uint8_t flag, bool on) {
    const auto write = [flag, on](auto& values) {
        values.flags = static_cast<std::uint8_t>(on ? values.flags | flag : values.flags & ~flag);
    };
    if (MemoryLayer* layer = engine::memoryLayer(record)) {
        write(*layer);
        return Vorn::eOk;
    }
    return writeRow(record, write);
}

Vorn::ErrorStatus writePlotStyle(const KelDbLayerTableRecord& record, zdr::NameId name) {
    KelDbStub* stub = nullptr;
    const Vorn::ErrorStatus status = forWriting(record, stub);
    if (status != Vorn::eOk)
        return status;
    if (stub->database->drawing().colorDependentPlotStyles)
        return Vorn::eNotNamedPlotStyles;
    if (name == zdr::kNoName || !stub->database->hasPlotStyle(name))
        return Vorn::eKeyNotFound;
    return writeRow(record, [name](engine::LayerValues& values) { values.plotStyle = name; });
}

} // namespace

Vorn::ErrorStatus KelDbLayerTableRecord::setIsFrozen(bool frozen) {
    HostCall call("record.setIsFrozen", objectId(), frozen);
    return call.status([&] { return writeFlag(*this, zdr::kLayerFrozen, frozen); });
}

void KelDbLayerTableRecord::setIsOff(bool off) {
    HostCall call("record.setIsOff", objectId(), off);
    call.perform([&] { writeFlag(*this, zdr::kLayerOn, !off); });
}

void KelDbLayerTableRecord::setIsLocked(bool locked) {
    HostCall call("record.setIsLocked", objectId(), locked);
    call.perform([&] { writeFlag(*this, zdr::kLayerLocked, locked); });
}

void KelDbLayerTableRecord::setVPDFLT(bool frozen) {
    HostCall call("record.setVPDFLT", objectId(), frozen);
    call.perform([&] { writeFlag(*this, zdr::kLayerNewViewportFrozen, frozen); });
}

Vorn::ErrorStatus KelDbLayerTableRecord::setIsPlottable(bool plot) {
    HostCall call("record.setIsPlottable", objectId(), plot);
    return call.status([&] { return writeFlag(*this, zdr::kLayerPlot, plot); });
}

void KelDbLayerTableRecord::setColor(const KelCmColor& color) {
    HostCall call("record.setColor", objectId(), color);
    call.perform([&] {
        if (MemoryLayer* layer = engine::memoryLayer(*this))
            layer->color = color;
        else
            writeRow(*this,
                     [&](engine::LayerValues& values) { values.color = state()->stub->database->intern(color); });
    });
}

// A linetype of another drawing, or none, changes nothing.
void KelDbLayerTableRecord::setLinetypeObjectId(KelDbObjectId linetype) {
    HostCall call("record.setLinetypeObjectId", objectId(), linetype);
    if (MemoryLayer* layer = engine::memoryLayer(*this)) {
        layer->linetype = linetype;
        return;
    }
    const KelDbStub* own = state()->stub;
    const KelDbStub* stub = linetype.stub();
    if (!stub || stub->erased || stub->kind != engine::ObjectKind::Linetype || stub->database != own->database)
        return;
    const zdr::NameId name = own->database->drawing().linetypes[stub->index].name;
    call.perform([&] { writeRow(*this, [name](engine::LayerValues& values) { values.linetype = name; }); });
}

Vorn::ErrorStatus KelDbLayerTableRecord::setLineWeight(int weight) {
    HostCall call("record.setLineWeight", objectId(), weight);
    return call.status([&] {
        if (!engine::isLineWeight(weight))
            return Vorn::eInvalidInput;
        const auto value = static_cast<std::int16_t>(weight);
        if (MemoryLayer* layer = engine::memoryLayer(*this)) {
            layer->lineWeight = value;
            return Vorn::eOk;
        }
        return writeRow(*this, [value](engine::LayerValues& values) { values.lineWeight = value; });
    });
}

Vorn::ErrorStatus KelDbLayerTableRecord::setPlotStyleName(const KelDbObjectId& style) {
    HostCall call("record.setPlotStyleName", objectId(), style);
    return call.status([&] {
        const KelDbStub* stub = style.stub();
        if (!stub || stub->erased || stub->kind != engine::ObjectKind::PlotStyle)
            return Vorn::eInvalidInput;
        if (MemoryLayer* layer = engine::memoryLayer(*this)) {
            layer->plotStyle = engine::nameOf(style);
            layer->plotStyleId = style;
            return Vorn::eOk;
        }
        if (stub->database != state()->stub->database)
            return Vorn::eInvalidInput;
        return writePlotStyle(*this, stub->database->drawing().plotStyles[stub->index].name);
    });
}

Vorn::ErrorStatus KelDbLayerTableRecord::setPlotStyleName(const wchar_t* name) {
    HostCall call("record.setPlotStyleName", objectId(), name);
    return call.status([&] {
        if (!name || !*name)
            return Vorn::eInvalidInput;
        if (MemoryLayer* layer = engine::memoryLayer(*this)) {
            layer->plotStyle = name;
            layer->plotStyleId = {};
            return Vorn::eOk;
        }
        const KelDbStub* stub = engine::liveStub(*this);
        return stub ? writePlotStyle(*this, stub->database->drawing().names.find(name)) : Vorn::eNotOpenForWrite;
    });
}

Vorn::ErrorStatus KelDbLayerTableRecord::setDescription(const wchar_t* description) {
    HostCall call("record.setDescription", objectId(), description);
    return call.status([&] {
        std::wstring text = description ? description : L"";
        if (MemoryLayer* layer = engine::memoryLayer(*this)) {
            layer->description = std::move(text);
            return Vorn::eOk;
        }
        KelDbStub* stub = nullptr;
        const Vorn::ErrorStatus status = forWriting(*this, stub);
        if (status == Vorn::eOk)
            stub->database->setLayerDescription(stub->index, std::move(text));
        return status;
    });
}
