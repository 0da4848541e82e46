// A viewport of a layout, as callers see it.

#include "instruments/HostCalls.h"
#include "KelDbObject.h"
#include "ObjectState.h"
#include "RtClass.h"

using instruments::HostCall;

KELRT_DEFINE_CLASS(KelDbViewport, KelDbObject)

namespace {

const zdr::Viewport* viewportOf(const KelDbViewport& object) {
    const KelDbStub* stub = engine::liveStub(object);
    return stub ? stub->database->viewport(object.objectId()) : nullptr;
}

} // namespace

short KelDbViewport::number() const {
    HostCall call("viewport.number", objectId());
    const zdr::Viewport* viewport = viewportOf(*this);
    return call.answer(static_cast<short>(viewport ? viewport->number : -1));
}

bool KelDbViewport::isLayerFrozenInViewport(const KelDbObjectId& layer) const {
    HostCall call("viewport.isLayerFrozenInViewport", objectId(), layer);
    const zdr::Viewport* viewport = viewportOf(*this);
    const KelDbStub* stub = layer.stub();
    const bool isLayer = stub && !stub->erased && stub->kind == engine::ObjectKind::Layer;
    return call.answer(viewport && isLayer && stub->index < viewport->frozen.size() && viewport->frozen[stub->index]);
}
