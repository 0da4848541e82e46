// A module for tests of the loader. Each build of it behaves as its definitions say.

#include "KelRuntime.h"

#if defined(TEST_MODULE_ENTRY)

extern "C" __declspec(dllexport) unsigned int kelrtGetApiVersion() {
    return TEST_MODULE_VERSION;
}

extern "C" __declspec(dllexport) int kelrtEntryPoint(unsigned int message, void* packet) {
    if (message == kelrtLoadMessage) {
        if (TEST_MODULE_ANSWER == -99)
            throw 1;
        if (TEST_MODULE_ANSWER == kelrtAnswerOk) {
            if (TEST_MODULE_AGREES)
                kelrtCast<KelRtDynamicLinker>(kelrtSystemRegistry()->at(kelrtDynamicLinkerKey))
                    ->acceptApplication(packet);
            kelrtRegisterService(L"TestModule");
        }
        return TEST_MODULE_ANSWER;
    }
    if (message == kelrtUnloadMessage) {
        auto* services = kelrtCast<KelRtDictionary>(kelrtSystemRegistry()->at(kelrtServiceDictionaryKey));
        delete services->remove(L"TestModule");
    }
    return kelrtAnswerOk;
}

#endif
