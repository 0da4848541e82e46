// The system registry: the dictionaries of classes and services, the dynamic linker, the command stack.

#include "SystemRegistry.h"

#include "DictionaryAccess.h"
#include "instruments/HostCalls.h"
#include "KelDbDatabase.h"
#include "objects/RtClass.h"
#include "RuntimeParts.h"

#include <map>
#include <memory>

using instruments::HostCall;

KELRT_DEFINE_CLASS(KelRtDynamicLinker, KelRtObject)

namespace {

/// What a service leaves in the service dictionary, so that others can see that it is there.
class RegisteredService : public KelRtObject {};

std::unique_ptr<KelRtDictionary> g_registry;
std::map<const void*, runtime::ModuleDeclarations> g_declarations;

KelRtDictionary* makeClassDictionary() {
    auto* classes = new KelRtDictionary;
    KelRtClass* const records[] = {
        KelRtObject::desc(),
        KelRtClass::desc(),
        KelRtDictionary::desc(),
        KelRtDynamicLinker::desc(),
        KelEdCommand::desc(),
        KelEdCommandStack::desc(),
        KelDbDatabase::desc(),
        KelDbObject::desc(),
        KelDbDictionary::desc(),
        KelDbDictionaryWithDefault::desc(),
        KelDbXrecord::desc(),
        KelDbPlaceHolder::desc(),
        KelDbViewport::desc(),
        KelDbSymbolTable::desc(),
        KelDbLayerTable::desc(),
        KelDbLinetypeTable::desc(),
        KelDbSymbolTableRecord::desc(),
        KelDbLayerTableRecord::desc(),
        KelDbLinetypeTableRecord::desc(),
    };
    for (KelRtClass* record : records)
        KelRtDictionaryAccess::put(*classes, record->name(), record);
    return classes;
}

KelRtDictionary& registry() {
    if (!g_registry) {
        g_registry = std::make_unique<KelRtDictionary>();
        KelRtDictionaryAccess::put(*g_registry, kelrtClassDictionaryKey, makeClassDictionary());
        KelRtDictionaryAccess::put(*g_registry, kelrtServiceDictionaryKey, new KelRtDictionary);
        KelRtDictionaryAccess::put(*g_registry, kelrtDynamicLinkerKey, new KelRtDynamicLinker);
        KelRtDictionaryAccess::put(*g_registry, kelrtCommandStackKey, new KelEdCommandStack);
    }
    return *g_registry;
}

// Null when somebody has put something else in the dictionary's place.
KelRtDictionary* services() {
    return kelrtCast<KelRtDictionary>(KelRtDictionaryAccess::find(registry(), kelrtServiceDictionaryKey));
}

} // namespace

KelRtDictionary* kelrtSystemRegistry() {
    HostCall call("kelrtSystemRegistry");
    return &registry();
}

bool kelrtServiceIsRegistered(const wchar_t* name) {
    HostCall call("kelrtServiceIsRegistered", name);
    const KelRtDictionary* dictionary = services();
    return call.answer(!call.fault() && dictionary && KelRtDictionaryAccess::find(*dictionary, name) != nullptr);
}

KelRtObject* kelrtRegisterService(const wchar_t* name) {
    HostCall call("kelrtRegisterService", name);
    KelRtDictionary* dictionary = services();
    KelRtObject* service = nullptr;
    const bool possible = dictionary && name && *name && !KelRtDictionaryAccess::find(*dictionary, name);
    if (!call.fault() && possible) {
        service = new RegisteredService;
        KelRtDictionaryAccess::put(*dictionary, name, service);
    }
    return call.answer(service);
}

void KelRtDynamicLinker::acceptApplication(void* packet) {
    HostCall call("acceptApplication", packet);
    g_declarations[packet].acceptsUnload = true;
}

bool kelrtRegisterAppMDIAware(void* packet) {
    HostCall call("kelrtRegisterAppMDIAware", packet);
    if (call.fault())
        return call.answer(false);
    g_declarations[packet].mdiAware = true;
    return call.answer(true);
}

namespace runtime {

ModuleDeclarations declarationsOf(const void* packet) {
    const auto found = g_declarations.find(packet);
    return found == g_declarations.end() ? ModuleDeclarations{} : found->second;
}

void forgetDeclarations(const void* packet) {
    g_declarations.erase(packet);
}

KelRtDictionary& systemRegistry() {
    return registry();
}

KelEdCommandStack& commandStack() {
    return *kelrtCast<KelEdCommandStack>(KelRtDictionaryAccess::find(registry(), kelrtCommandStackKey));
}

void resetSystemRegistry() {
    g_registry.reset();
    g_declarations.clear();
}

} // namespace runtime
