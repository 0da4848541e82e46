#include "DictionaryAccess.h"
#include "instruments/HostCalls.h"
#include "objects/RtClass.h"

#include <functional>
#include <map>
#include <new>
#include <string>
#include <string_view>

using instruments::HostCall;

KELRT_DEFINE_CLASS(KelRtDictionary, KelRtObject)

struct KelRtDictionary::Entries {
    std::map<std::wstring, KelRtObject*, std::less<>> objects; // looked up by the text itself, which takes no memory
};

namespace {

// The records of classes are static; a dictionary owns every other object in it.
void drop(KelRtObject* object) {
    if (object && !object->isKindOf(KelRtClass::desc()))
        delete object;
}

std::wstring_view orEmpty(const wchar_t* text) {
    return text ? text : L"";
}

} // namespace

KelRtObject* KelRtDictionaryAccess::find(const KelRtDictionary& dictionary, const wchar_t* name) {
    const auto& objects = dictionary.m_entries->objects;
    const auto found = objects.find(orEmpty(name));
    return found == objects.end() ? nullptr : found->second;
}

void KelRtDictionaryAccess::put(KelRtDictionary& dictionary, const wchar_t* name, KelRtObject* object) {
    KelRtObject*& place = dictionary.m_entries->objects[std::wstring(orEmpty(name))];
    if (place != object)
        drop(place);
    place = object;
}

KelRtDictionary::KelRtDictionary() : m_entries(new Entries) {}

KelRtDictionary::~KelRtDictionary() {
    for (const auto& [name, object] : m_entries->objects)
        drop(object);
    delete m_entries;
}

KelRtObject* KelRtDictionary::at(const wchar_t* name) const {
    HostCall call("at", name);
    return call.answer(call.fault() ? nullptr : KelRtDictionaryAccess::find(*this, name));
}

void KelRtDictionary::atPut(const wchar_t* name, KelRtObject* object) {
    HostCall call("atPut", name, object);
    try {
        KelRtDictionaryAccess::put(*this, name, object);
    } catch (const std::bad_alloc&) {
        drop(object);
    }
}

KelRtObject* KelRtDictionary::remove(const wchar_t* name) {
    HostCall call("remove", name);
    const auto found = m_entries->objects.find(orEmpty(name));
    KelRtObject* object = nullptr;
    if (!call.fault() && found != m_entries->objects.end()) {
        object = found->second;
        m_entries->objects.erase(found);
    }
    return call.answer(object);
}
