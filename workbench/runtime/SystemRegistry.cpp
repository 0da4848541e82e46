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

std::unique_ptr<KelRtDictionary> makeClassDictionary() {
    auto classes = std::make_unique<KelRtDictionary>();
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

void enter(KelRtDictionary& dictionary, const wchar_t* name, std::unique_ptr<KelRtObject> object) {
    KelRtDictionaryAccess::put(dictionary, name, object.get());
    static_cast<void>(object.release()); // the dictionary's now
}

// Made by the first call, which is the host's own. When that throws there is no registry yet.
KelRtDictionary& registry() {
    if (!g_registry) {
        auto fresh = std::make_unique<KelRtDictionary>();
        enter(*fresh, kelrtClassDictionaryKey, makeClassDictionary());
        enter(*fresh, kelrtServiceDictionaryKey, std::make_unique<KelRtDictionary>());
        enter(*fresh, kelrtDynamicLinkerKey, std::make_unique<KelRtDynamicLinker>());
        enter(*fresh, kelrtCommandStackKey, std::make_unique<KelEdCommandStack>());
        g_registry = std::move(fresh);
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
    return call.valueOr(false, [name] {
        const KelRtDictionary* dictionary = services();
        return dictionary && KelRtDictionaryAccess::find(*dictionary, name) != nullptr;
    });
}

KelRtObject* kelrtRegisterService(const wchar_t* name) {
    HostCall call("kelrtRegisterService", name);
    return call.valueOr<KelRtObject*>(nullptr, [name]() -> KelRtObject* {
        KelRtDictionary* dictionary = services();
        if (!dictionary || !name || !*name || KelRtDictionaryAccess::find(*dictionary, name))
            return nullptr;
        auto made = std::make_unique<RegisteredService>();
        KelRtObject* const service = made.get();
        enter(*dictionary, name, std::move(made));
        return service;
    });
}

void KelRtDynamicLinker::acceptApplication(void* packet) {
    HostCall call("acceptApplication", packet);
    call.perform([packet] { g_declarations[packet].acceptsUnload = true; });
}

bool kelrtRegisterAppMDIAware(void* packet) {
    HostCall call("kelrtRegisterAppMDIAware", packet);
    return call.valueOr(false, [packet] { return g_declarations[packet].mdiAware = true; });
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
