#include "CTempLayerState.h"

#include "LayerStateMask.h"
#include "WorkingDatabase.h"

#include <cstdlib>
#include <ctime>

namespace {

// Two guards of one second get the same name, and nobody looks whether a state of that name is there: the save
// overwrites it, and the guard's end deletes it. Both are meant to be so.
CString makeTempName() {
    std::srand(static_cast<unsigned int>(std::time(nullptr)));
    CString name;
    name.Format(L"TempState_%d", std::rand());
    return name;
}

// Of the drawing that is current now, which needn't be the one that was current when the guard was made.
KelDbImpLayerStateManager* workingImpStates() {
    KelDbDatabase* database = workingDatabase();
    return database ? database->impDatabase()->getImpLayerStateManager() : nullptr;
}

} // namespace

CTempLayerState::CTempLayerState() {
    KelDbLayerStateManager* states = workingStates();
    if (!states)
        return;
    m_tempName = makeTempName();
    m_saved = states->saveLayerState(m_tempName, MaskAllProperties) == Vorn::eOk;
}

CTempLayerState::~CTempLayerState() {
    if (!m_saved)
        return;
    KelDbImpLayerStateManager* impStates = workingImpStates();
    if (!impStates)
        return;
    const LayerStateMask mask = MaskAllProperties;
    // After anything but a full success the state is kept: it is the only copy of the layers.
    if (impStates->restoreLayerState(m_tempName, KelDbObjectId(), 0, &mask, false) != Vorn::eOk)
        return;
    if (KelDbLayerStateManager* states = workingStates())
        states->deleteLayerState(m_tempName);
}
