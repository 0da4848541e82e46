#include "LayerSnapshots.h"

#include "CTempLayerState.h"
#include "MigratedNames.h"
#include "WorkingDatabase.h"

namespace {

/// The add-on's functions answer 0 for success.
using GetNames = int (*)(KelArray<KelString>& names);
using TakeName = int (*)(const wchar_t* name);

template <class Function> Function exported(FindAddOnFunction find, const char* name) {
    return reinterpret_cast<Function>(find(name));
}

SnapshotResult convertAll(KelDbLayerStateManager& states, const KelArray<KelString>& snapshots, TakeName restore,
                          TakeName remove, int& count) {
    const bool usePrefix = holdsStates(states); // before the guard, whose state doesn't count
    const CTempLayerState guard;
    for (const KelString& snapshot : snapshots) {
        const wchar_t* oldName = snapshot.kwszPtr();
        const CString name = migratedStateName(states, oldName, L"SNAPSHOT_", usePrefix);
        if (restore(oldName) != 0 || states.saveLayerState(name, MaskAllProperties) != Vorn::eOk)
            return kSnapshotsNotConverted;
        ++count;
        // Unlike a state in the extended data, a snapshot that can't be deleted ends the conversion; kept on purpose.
        if (remove(oldName) != 0)
            return kSnapshotsNotConverted;
    }
    return kSnapshotsConverted;
}

} // namespace

SnapshotResult convertSnapshots(FindAddOnFunction find, int& count) {
    const auto getNames = exported<GetNames>(find, "getLayerSnapshotNames");
    KelArray<KelString> snapshots(0, 8);
    if (!getNames || getNames(snapshots) != 0 || snapshots.isEmpty())
        return kSnapshotsNotConverted;
    const auto restore = exported<TakeName>(find, "restoreLayerSnapshot");
    const auto remove = exported<TakeName>(find, "deleteLayerSnapshot");
    KelDbLayerStateManager* states = restore && remove ? workingStates() : nullptr;
    return states ? convertAll(*states, snapshots, restore, remove, count) : kSnapshotsNotConverted;
}
