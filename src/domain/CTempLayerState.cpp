#include "CTempLayerState.h"

#include "LayerStateMask.h"
#include "WorkingDatabase.h"

#include <cstdlib>
#include <ctime>

namespace {

// Two guards of one second get the same name. That is this system's own, and so is that nobody looks whether a state of
// that name is there: the save goes over it, and the guard's end deletes it.
CString makeTempName() {
    std::srand(static_cast<unsigned int>(std::time(nullptr)));
    CString name;
    name.Format(L"TempState_%d", std::rand());
    return name;
}

// The drawing that is current now, not the one of the guard's birth.
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
    // Whatever isn't a full success keeps the only copy of the layers.
    if (impStates->restoreLayerState(m_tempName, KelDbObjectId(), 0, &mask, false) != Vorn::eOk)
        return;
    if (KelDbLayerStateManager* states = workingStates())
        states->deleteLayerState(m_tempName);
}
