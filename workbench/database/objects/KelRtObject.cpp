#include "KelRtObject.h"

KelRtObject::~KelRtObject() = default;

KelRtClass* KelRtObject::desc() {
    static KelRtClass record(L"KelRtObject", nullptr);
    return &record;
}

KelRtClass* KelRtObject::isA() const {
    return desc();
}

bool KelRtObject::isKindOf(const KelRtClass* other) const {
    const KelRtClass* record = isA();
    while (record && record != other)
        record = record->base();
    return record != nullptr;
}

KelRtClass* KelRtClass::desc() {
    static KelRtClass record(L"KelRtClass", KelRtObject::desc());
    return &record;
}

KelRtClass* KelRtClass::isA() const {
    return desc();
}
