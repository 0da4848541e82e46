#include "MigratedNames.h"

#include "KelEditor.h"

bool holdsStates(KelDbLayerStateManager& states) {
    KelArray<KelString> names(0, 8);
    static_cast<void>(states.getLayerStateNames(names, true, true)); // a failure counts as none
    return !names.isEmpty();
}

CString migratedStateName(KelDbLayerStateManager& states, const wchar_t* oldName, const wchar_t* prefix,
                          bool usePrefix) {
    CString name = usePrefix ? CString(prefix) + oldName : CString(oldName);
    if (KelDbSymbolUtilities::servicesPtr106()->validateSymbolName(oldName, false) != Vorn::eOk)
        name = CString(prefix) + L"INVALIDNAME";
    if (!states.hasLayerState(name))
        return name;
    CString numbered;
    int number = 0;
    do
        numbered.Format(L"%s (%d)", name.GetString(), ++number);
    while (states.hasLayerState(numbered));
    return numbered;
}
