// Whether the current profile lets the add-on's snapshots be converted.

#include "MigrateLayerStates.h"
#include "MigrationTest.h"
#include "PropertyValues.h"
#include "RegistryKeys.h"
#include "SystemVariables.h"

using testing::ElementsAre;

namespace {

constexpr const wchar_t* kProfiles = L"Software\\KelWorkbench\\Profiles";
constexpr const wchar_t* kBypass = L"BypassSnapshotConversion";

std::wstring generalOf(const wchar_t* profile) {
    return std::wstring(kProfiles) + L"\\" + profile + L"\\General";
}

class SnapshotSetting : public ui::HostTest {
  protected:
    void SetUp() override {
        HostTest::SetUp();
        runtime::setProfile(L"Planner");
    }
    static bool isAllowed() {
        instruments::clearTrace();
        return snapshotConversionAllowed();
    }
    RegistryKeys m_keys;
};

TEST_F(SnapshotSetting, AllowsWithoutTheProfilesKey) {
    EXPECT_TRUE(isAllowed());
    EXPECT_THAT(
        instruments::trace(),
        ElementsAre("keldbHostApplicationServices()", "userRegistryProductRootKey() = \"Software\\\\KelWorkbench\"",
                    "keledGetVar(\"CPROFILE\") = 5100", "vorn_free(\"Planner\")",
                    "COrvUiRegistryAccess(\"Software\\\\KelWorkbench\\\\Profiles\\\\Planner\\\\General\") = false"));
}

TEST_F(SnapshotSetting, AllowsWithoutTheValue) {
    m_keys.make(HKEY_CURRENT_USER, generalOf(L"Planner"));
    EXPECT_TRUE(isAllowed());
    EXPECT_THAT(
        instruments::trace(),
        ElementsAre("keldbHostApplicationServices()", "userRegistryProductRootKey() = \"Software\\\\KelWorkbench\"",
                    "keledGetVar(\"CPROFILE\") = 5100", "vorn_free(\"Planner\")",
                    "COrvUiRegistryAccess(\"Software\\\\KelWorkbench\\\\Profiles\\\\Planner\\\\General\") = true",
                    "registry.GetDWord(\"BypassSnapshotConversion\") = 0",
                    "registry.ValueType(\"BypassSnapshotConversion\") = 0"));
}

TEST_F(SnapshotSetting, AllowsWithTheValueZero) {
    m_keys.setNumber(HKEY_CURRENT_USER, generalOf(L"Planner"), kBypass, 0);
    EXPECT_TRUE(isAllowed());
}

TEST_F(SnapshotSetting, RefusesWithAnyOtherValue) {
    for (const DWORD value : {1ul, 2ul, 0x80000000ul, 0xFFFFFFFFul}) {
        m_keys.setNumber(HKEY_CURRENT_USER, generalOf(L"Planner"), kBypass, value);
        EXPECT_FALSE(isAllowed()) << value;
    }
}

// The number of a value that isn't one reads as 0.
TEST_F(SnapshotSetting, AllowsWithAValueOfAnotherType) {
    m_keys.setText(HKEY_CURRENT_USER, generalOf(L"Planner"), kBypass, L"1");
    EXPECT_TRUE(isAllowed());
}

TEST_F(SnapshotSetting, CountsInTheCurrentProfileAlone) {
    m_keys.setNumber(HKEY_CURRENT_USER, generalOf(L"Other"), kBypass, 1);
    m_keys.setNumber(HKEY_LOCAL_MACHINE, generalOf(L"Planner"), kBypass, 1);
    EXPECT_TRUE(isAllowed());
    runtime::setProfile(L"Other");
    EXPECT_FALSE(isAllowed());
}

TEST_F(SnapshotSetting, IsOfTheProfileThatTheProfilesKeyNamesWhenTheVariableIsEmpty) {
    runtime::setProfile(L"");
    m_keys.setText(HKEY_CURRENT_USER, kProfiles, nullptr, L"Kept");
    m_keys.setNumber(HKEY_CURRENT_USER, generalOf(L"Kept"), kBypass, 1);
    EXPECT_FALSE(isAllowed());
    EXPECT_THAT(instruments::trace(),
                ElementsAre("keldbHostApplicationServices()",
                            "userRegistryProductRootKey() = \"Software\\\\KelWorkbench\"",
                            "keledGetVar(\"CPROFILE\") = 5100", "vorn_free(\"\")",
                            "COrvUiRegistryAccess(\"Software\\\\KelWorkbench\\\\Profiles\") = true",
                            "registry.GetString(\"\") = \"Kept\"",
                            "COrvUiRegistryAccess(\"Software\\\\KelWorkbench\\\\Profiles\\\\Kept\\\\General\") = true",
                            "registry.GetDWord(\"BypassSnapshotConversion\") = 1",
                            "registry.ValueType(\"BypassSnapshotConversion\") = 4"));
}

TEST_F(SnapshotSetting, IsOfThatProfileTooWhenTheVariableCantBeRead) {
    m_keys.setText(HKEY_CURRENT_USER, kProfiles, nullptr, L"Kept");
    m_keys.setNumber(HKEY_CURRENT_USER, generalOf(L"Kept"), kBypass, 1);
    instruments::failCall("keledGetVar", 1);
    EXPECT_FALSE(isAllowed());
}

TEST_F(SnapshotSetting, DoesntTakeWhatWasReadOfAnotherVariableForTheProfile) {
    m_keys.setNumber(HKEY_CURRENT_USER, generalOf(L"Left"), kBypass, 1);
    wcscpy_s(g_sysvarText, kSysvarTextLength, L"Left");
    instruments::failCall("keledGetVar", 1);
    EXPECT_TRUE(isAllowed());
}

TEST_F(SnapshotSetting, WithoutAnyProfilesNameIsLookedForBelowAnEmptyOne) {
    runtime::setProfile(L"");
    EXPECT_TRUE(isAllowed());
    EXPECT_THAT(instruments::trace(),
                ElementsAre("keldbHostApplicationServices()",
                            "userRegistryProductRootKey() = \"Software\\\\KelWorkbench\"",
                            "keledGetVar(\"CPROFILE\") = 5100", "vorn_free(\"\")",
                            "COrvUiRegistryAccess(\"Software\\\\KelWorkbench\\\\Profiles\") = false",
                            "COrvUiRegistryAccess(\"Software\\\\KelWorkbench\\\\Profiles\\\\\\\\General\") = false"));
}

} // namespace
