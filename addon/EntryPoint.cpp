// What the host calls to start and end the module: the load and unload messages, and the version of the interface.
#include "KelRuntime.h"
#include "SnapshotCommand.h"

namespace {

int load(void* packet) {
    if (auto* linker = kelrtCast<KelRtDynamicLinker>(kelrtSystemRegistry()->at(kelrtDynamicLinkerKey)))
        linker->acceptApplication(packet);
    kelrtRegisterAppMDIAware(packet);
    // The last step, so a load that fails has left nothing; what is declared of the packet goes with it.
    return registerSnapshotCommand() ? kelrtAnswerOk : kelrtAnswerFailed;
}

int unload() {
    unregisterSnapshotCommand();
    return kelrtAnswerOk;
}

} // namespace

extern "C" int kelrtEntryPoint(unsigned int message, void* packet) {
    try {
        return message == kelrtLoadMessage ? load(packet) : message == kelrtUnloadMessage ? unload() : kelrtAnswerOk;
    } catch (...) {
        return kelrtAnswerFailed; // all that the host can be told
    }
}

extern "C" unsigned int kelrtGetApiVersion() {
    return kelrtApiVersion;
}
