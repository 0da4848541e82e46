// The host's own way into its dictionaries, which leaves no line in the trace.
#pragma once

#include "KelRuntime.h"

struct KelRtDictionaryAccess {
    /// The object of that name, which stays the dictionary's, or null.
    static KelRtObject* find(const KelRtDictionary& dictionary, const wchar_t* name);
    /// Enters an object as KelRtDictionary::atPut does.
    static void put(KelRtDictionary& dictionary, const wchar_t* name, KelRtObject* object);
};
