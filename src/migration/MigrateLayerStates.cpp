#include "MigrateLayerStates.h"

#include "CResourceScope.h"
#include "LayerSnapshots.h"
#include "LegacyStates.h"
#include "OrvUiServices.h"
#include "OrvUiUtilities.h"
#include "WorkingDatabase.h"
#include "resource.h"

#include <iterator>

namespace {

CString expandedString(UINT id) {
    CKelUiStringExp text;
    text.LoadString(id);
    return text.GetString();
}

CString firstSentence(int snapshotResult) {
    const CString format =
        expandedString(snapshotResult == kAddOnAbsent ? IDS_LSTATE_MIGRATED_WITHOUT_ADDON : IDS_LSTATE_MIGRATED);
    CString sentence;
    sentence.Format(format, productDisplayName().GetString());
    return sentence;
}

CString countSentences(int snapshotResult, int legacyCount, int snapshotCount) {
    CString format = CKelUiStringExp(loadResourceString(IDS_LSTATE_MIGRATED_LEGACY)).GetString();
    if (snapshotResult != kAddOnAbsent)
        format += loadResourceString(IDS_LSTATE_MIGRATED_SNAPSHOTS);
    CString sentences;
    sentences.Format(format, legacyCount, snapshotCount); // the second isn't used where there is no add-on
    return sentences;
}

} // namespace

void migrateLayerStates() {
    const CResourceScope scope;
    int legacyCount = 0;
    int snapshotCount = 0;
    convertLegacyLayerStates(legacyCount, true);
    const int snapshotResult = convertLayerSnapshots(snapshotCount, true);
    if (legacyCount < 1 && snapshotCount < 1)
        return;
    // One after the other, since the host is asked in this order; within one expression it would be the compiler's.
    CString message = firstSentence(snapshotResult);
    message += countSentences(snapshotResult, legacyCount, snapshotCount);
    const CString title = loadResourceString(IDS_LSTATE_MIGRATED_TITLE);
    ::MessageBoxW(orvsw_vornMainWnd(), message, title, MB_OK | MB_ICONINFORMATION);
}

bool convertLegacyLayerStates(int& count, bool) {
    const CResourceScope scope;
    return convertLegacyStates(count);
}

CString productDisplayName() {
    CString name = keldbHostApplicationServices()->productName();
    wchar_t path[512] = {};
    GetProductRegistryRootKey(path, static_cast<unsigned long>(std::size(path)));
    if (!path[0])
        return name;
    const COrvUiRegistryAccess key(HKEY_LOCAL_MACHINE, path);
    const CString registered = key.IsOpen() ? key.GetString(L"ProductName") : CString();
    return registered.IsEmpty() ? name : registered;
}
