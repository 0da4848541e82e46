// What other modules call by name. No exception may reach them.
#include "LayerSnapshotStore.h"

namespace {

template <class Work> int statusOf(Work work) {
    try {
        return work();
    } catch (...) {
        return Vorn::eOutOfMemory; // the one thing that is thrown here
    }
}

} // namespace

extern "C" int getLayerSnapshotNames(KelArray<KelString>& names) {
    return statusOf([&names] { return getSnapshotNames(names); });
}

extern "C" int restoreLayerSnapshot(const wchar_t* name) {
    return statusOf([name] { return restoreSnapshot(name); });
}

extern "C" int deleteLayerSnapshot(const wchar_t* name) {
    return statusOf([name] { return deleteSnapshot(name); });
}
