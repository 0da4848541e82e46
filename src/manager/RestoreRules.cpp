#include "RestoreRules.h"

#include "LayerStateMask.h"
#include "VornStatus.h"
#include "resource.h"

int restoreFlags(bool layerNotFound, bool asOverrides) {
    return (layerNotFound ? RestoreFlagLayerNotFound : 0) | (asOverrides ? RestoreFlagAsOverrides : 0);
}

RestoreReport restoreReport(unsigned int status) {
    switch (status) {
    case Vorn::eOk:
        return {RestoreReport::Form::none, 0};
    case Vorn::eCannotFreezeCurrentLayer:
        return {RestoreReport::Form::message, IDS_LSTATE_CURRENT_LAYER_NO_FREEZE};
    case Vorn::eStyleMissing:
        return {RestoreReport::Form::message, IDS_LSTATE_STYLE_MISSING};
    case Vorn::eLayerUnresolved:
        return {RestoreReport::Form::message, IDS_LSTATE_REFERENCE_UNRESOLVED};
    default:
        return {RestoreReport::Form::taskDialog, 0};
    }
}
