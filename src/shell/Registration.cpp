#include "Registration.h"

#include "CResourceScope.h"
#include "KelRuntime.h"
#include "LayerStateCommand.h"
#include "resource.h"

namespace {

constexpr const wchar_t* kServiceName = L"KelLayerApps";
constexpr const wchar_t* kCommandGroup = L"VORN_KelLayerApps";
constexpr const wchar_t* kCommandName = L"LAYERSTATE";
constexpr int kPlainModalCommand = 0;
constexpr int kNoFunctionCode = -1;

KelRtDictionary* registeredDictionary(const wchar_t* key) {
    return kelrtCast<KelRtDictionary>(kelrtSystemRegistry()->at(key));
}

/// The class record of the command stack, looked up in the host's class dictionary once and kept.
const KelRtClass* commandStackClass() {
    static const KelRtClass* kept = nullptr;
    if (!kept)
        if (const KelRtDictionary* classes = registeredDictionary(kelrtClassDictionaryKey))
            kept = kelrtCast<KelRtClass>(classes->at(L"KelEdCommandStack"));
    return kept;
}

/// The host always has a command stack. Without one there is no command: the module has nothing to replace it with.
KelEdCommandStack* commandStack() {
    KelRtObject* entry = kelrtSystemRegistry()->at(kelrtCommandStackKey);
    const KelRtClass* stackClass = commandStackClass();
    return entry && stackClass && entry->isKindOf(stackClass) ? static_cast<KelEdCommandStack*>(entry) : nullptr;
}

void removeService() {
    if (KelRtDictionary* services = registeredDictionary(kelrtServiceDictionaryKey))
        delete services->remove(kServiceName);
}

void addCommand() {
    KelEdCommandStack* stack = commandStack();
    const CString localName = loadResourceString(IDS_LSTATE_COMMAND);
    if (stack)
        stack->addCommand(kCommandGroup, kCommandName, localName, kPlainModalCommand, runLayerStateCommand, nullptr,
                          kNoFunctionCode, nullptr, nullptr);
}

} // namespace

void registerLayerStateCommand() {
    const bool isNew = !kelrtServiceIsRegistered(kServiceName) && kelrtRegisterService(kServiceName);
    try {
        addCommand();
    } catch (...) {
        if (isNew)
            removeService();
        throw;
    }
}

void unregisterLayerStateCommand() {
    if (kelrtServiceIsRegistered(kServiceName))
        removeService();
    if (KelEdCommandStack* stack = commandStack())
        stack->removeGroup(kCommandGroup);
}
