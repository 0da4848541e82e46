#include "Display.h"

#include "instruments/HostCalls.h"
#include "KelEditor.h"
#include "RuntimeParts.h"

using instruments::HostCall;

namespace {

runtime::DisplayObserver* g_observer = nullptr;
bool g_regenerationDue = false;

} // namespace

int keledRegenPending() {
    HostCall call("keledRegenPending");
    return call.answer(g_regenerationDue ? 1 : 0);
}

void keledRegenLayers(const KelArray<KelDbObjectId>& layers, int pending) {
    HostCall call("keledRegenLayers", layers.length(), pending);
    g_regenerationDue = false;
    call.perform([&layers] {
        if (g_observer)
            g_observer->regenerateLayers(layers);
    });
}

Vorn::ErrorStatus applyCurZdrLayerTableChanges() {
    HostCall call("applyCurZdrLayerTableChanges");
    return call.status([] {
        if (g_observer)
            g_observer->layersPublished();
        return Vorn::eOk;
    });
}

void keledUpdateDisplay() {
    HostCall call("keledUpdateDisplay");
    call.perform([] {
        if (g_observer)
            g_observer->updateDisplay();
    });
}

namespace runtime {

DisplayObserver::~DisplayObserver() = default;

void setDisplayObserver(DisplayObserver* observer) {
    g_observer = observer;
}

void requestRegeneration() {
    g_regenerationDue = true;
}

void resetDisplay() {
    g_observer = nullptr;
    g_regenerationDue = false;
}

} // namespace runtime
