// Where the add-on is looked for, and the setting that keeps its snapshots out.
#include "CResourceScope.h"
#include "KelEditor.h"
#include "LayerSnapshots.h"
#include "MigrateLayerStates.h"
#include "OrvUiUtilities.h"
#include "PropertyValues.h"

namespace {

/// The add-on as it was last found in this process; nothing holds it there, so there is nothing to give back.
HMODULE addOn = nullptr;

AddOnFunction findInAddOn(const char* name) {
    return reinterpret_cast<AddOnFunction>(::GetProcAddress(addOn, name));
}

/// The name of the current profile: as the system variable has it, and else the default value of the profiles' key.
CString profileName(const CString& profilesKey) {
    g_sysvarText[0] = L'\0';
    ResultBuffer variable = {};
    CString name = keledGetVar(L"CPROFILE", &variable) == kResultNormal ? sysvarValueText(variable) : g_sysvarText;
    if (!name.IsEmpty())
        return name;
    const COrvUiRegistryAccess profiles(HKEY_CURRENT_USER, profilesKey);
    return profiles.IsOpen() ? profiles.GetString(L"") : name;
}

} // namespace

bool snapshotConversionAllowed() {
    constexpr const wchar_t* kBypass = L"BypassSnapshotConversion";
    const CString profiles = CString(keldbHostApplicationServices()->userRegistryProductRootKey()) + L"\\Profiles";
    const COrvUiRegistryAccess general(HKEY_CURRENT_USER, profiles + L"\\" + profileName(profiles) + L"\\General");
    if (!general.IsOpen())
        return true;
    const unsigned int bypass = general.GetDWord(kBypass);
    return general.ValueType(kBypass, nullptr) == 0 || bypass == 0;
}

int convertLayerSnapshots(int& count, bool) {
    const CResourceScope scope;
    addOn = ::GetModuleHandleW(L"TrelUiBase.xmod");
    if (!addOn)
        return kAddOnAbsent;
    return snapshotConversionAllowed() ? convertSnapshots(findInAddOn, count) : kSnapshotsNotConverted;
}
