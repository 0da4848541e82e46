#include "ImportedStates.h"

#include "KelDbPointers.h"
#include "WorkingDatabase.h"

namespace {

using OpenDictionary = KelDbObjectPointer<KelDbDictionary>;

/// Null without a drawing, and when there can be no dictionary.
KelDbObjectId stateDictionary() {
    KelDbLayerStateManager* states = workingStates();
    return states ? states->layerStatesDictionaryId(true) : KelDbObjectId();
}

KelDbObjectId recordId(const KelDbObjectId& dictionaryId, const wchar_t* name) {
    const OpenDictionary dictionary(dictionaryId, KelDb::kForRead);
    KelDbObjectId id;
    if (dictionary.openStatus() != Vorn::eOk || dictionary->getAt(name, id) != Vorn::eOk)
        return {};
    return id;
}

KelDbXrecord* cloneRecord(const KelDbObjectId& dictionaryId, const wchar_t* name) {
    const KelDbObjectId id = recordId(dictionaryId, name);
    const KelDbObjectPointer<KelDbXrecord> source(id, KelDb::kForRead);
    if (source.openStatus() != Vorn::eOk)
        return nullptr;
    std::unique_ptr<KelDbObject> clone(source->clone());
    if (!clone || !clone->isKindOf(KelDbXrecord::desc()))
        return nullptr;
    static_cast<void>(clone->close()); // of no effect on an object in memory
    return static_cast<KelDbXrecord*>(clone.release());
}

bool enter(const KelDbObjectId& dictionaryId, const wchar_t* name, KelDbXrecord& record) {
    const OpenDictionary dictionary(dictionaryId, KelDb::kForWrite);
    KelDbObjectId id;
    if (dictionary.openStatus() != Vorn::eOk || dictionary->setAt(name, &record, id) != Vorn::eOk)
        return false;
    static_cast<void>(record.close());
    return true;
}

std::wstring lowerCase(CString name) {
    name.MakeLower();
    return name.GetString();
}

} // namespace

void RowNames::add(const CString& name) {
    if (!name.IsEmpty())
        m_names.insert(lowerCase(name));
}

bool RowNames::hold(const wchar_t* name) const {
    return m_names.contains(lowerCase(name));
}

int findStateWithoutRow(KelDbLayerStateManager& states, const RowNames& rows, CString& name, LayerStateMask& mask) {
    KelArray<KelString> names(0, 8);
    if (states.getLayerStateNames(names, true, true) != Vorn::eOk)
        return 0;
    for (const KelString& each : names) {
        if (rows.hold(each.kwszPtr()))
            continue;
        name = each.kwszPtr();
        static_cast<void>(states.getLayerStateMask(name, mask));
        return 1;
    }
    return 0;
}

KelDbXrecord* copyStateRecord(int mode, const wchar_t* name, KelDbXrecord* record) {
    const KelDbObjectId dictionary = stateDictionary();
    if (dictionary.isNull())
        return nullptr;
    switch (mode) {
    case kCloneRecord:
        return cloneRecord(dictionary, name);
    case kEnterRecord:
        return record && enter(dictionary, name, *record) ? record : nullptr;
    default:
        return nullptr;
    }
}

bool enterStateRecord(const wchar_t* name, std::unique_ptr<KelDbXrecord> record) {
    const KelDbObjectId dictionary = stateDictionary();
    if (dictionary.isNull() || !enter(dictionary, name, *record))
        return false;
    static_cast<void>(record.release()); // the drawing's now
    return true;
}
