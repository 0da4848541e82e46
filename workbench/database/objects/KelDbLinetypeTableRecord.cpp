// What a linetype says of itself: its description and the parts of its pattern.

#include "instruments/HostCalls.h"
#include "KelDbTables.h"
#include "ObjectState.h"
#include "RtClass.h"
#include "values/RuntimeStrings.h"

using instruments::HostCall;

KELRT_DEFINE_CLASS(KelDbLinetypeTableRecord, KelDbSymbolTableRecord)

namespace {

const zdr::Linetype* linetypeOf(const KelDbLinetypeTableRecord& record) {
    const KelDbStub* stub = engine::liveStub(record);
    return stub ? &stub->database->drawing().linetypes[stub->index] : nullptr;
}

} // namespace

wchar_t* KelDbLinetypeTableRecord::description() const {
    HostCall call("linetype.description", objectId());
    const zdr::Linetype* linetype = linetypeOf(*this);
    if (call.fault() || !linetype)
        return call.answer<wchar_t*>(nullptr);
    return call.answer(engine::handOutText(linetype->description, "description of a linetype"));
}

int KelDbLinetypeTableRecord::numDashes() const {
    HostCall call("linetype.numDashes", objectId());
    const zdr::Linetype* linetype = linetypeOf(*this);
    return call.answer(linetype ? static_cast<int>(linetype->pattern.size()) : 0);
}

double KelDbLinetypeTableRecord::dashLengthAt(int index) const {
    HostCall call("linetype.dashLengthAt", objectId(), index);
    const zdr::Linetype* linetype = linetypeOf(*this);
    const bool there = linetype && index >= 0 && static_cast<std::size_t>(index) < linetype->pattern.size();
    return call.answer(there ? linetype->pattern[static_cast<std::size_t>(index)] : 0.0);
}
