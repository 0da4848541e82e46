#include "LegacyStates.h"

#include "CQSETList.h"
#include "CTempLayerState.h"
#include "MigratedNames.h"
#include "WorkingDatabase.h"

bool convertLegacyStates(int& count) {
    CQSETList list(workingDatabase());
    if (list.count() == 0)
        return false;
    KelDbLayerStateManager* states = workingStates();
    if (!states)
        return false;
    const bool usePrefix = holdsStates(*states); // before the guard, whose state doesn't count
    const CTempLayerState guard;
    while (list.takeNextName()) {
        const CString name = migratedStateName(*states, list.currentName(), L"QSET_", usePrefix);
        if (!list.applyToLayers(CQSETList::OpRestore, list.currentName()) ||
            states->saveLayerState(name, MaskAllProperties) != Vorn::eOk)
            return false;
        ++count;
        // What stays behind comes again at the next migration.
        static_cast<void>(list.applyToLayers(CQSETList::OpDelete, list.currentName()));
    }
    return true;
}
