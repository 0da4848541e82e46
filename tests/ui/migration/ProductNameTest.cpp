// The product's name: as the registry has it, and else as the host tells it.

#include "MigrateLayerStates.h"
#include "MigrationTest.h"
#include "RegistryKeys.h"

using testing::ElementsAre;

namespace {

constexpr const wchar_t* kProductKey = L"Software\\KelWorkbench";

class ProductName : public ui::HostTest {
  protected:
    static std::wstring name() {
        instruments::clearTrace();
        return productDisplayName().GetString();
    }
    RegistryKeys m_keys;
};

TEST_F(ProductName, IsTheHostsWhenTheRegistryHasNoKey) {
    EXPECT_EQ(name(), L"Kel Workbench");
    EXPECT_THAT(instruments::trace(), ElementsAre("keldbHostApplicationServices()", "productName() = \"Kel Workbench\"",
                                                  "GetProductRegistryRootKey(512) = 21",
                                                  "COrvUiRegistryAccess(\"Software\\\\KelWorkbench\") = false"));
}

TEST_F(ProductName, IsTheRegistrysWhereThereIsOne) {
    m_keys.setText(HKEY_LOCAL_MACHINE, kProductKey, L"ProductName", L"House Planner");
    EXPECT_EQ(name(), L"House Planner");
    EXPECT_THAT(instruments::trace(), ElementsAre("keldbHostApplicationServices()", "productName() = \"Kel Workbench\"",
                                                  "GetProductRegistryRootKey(512) = 21",
                                                  "COrvUiRegistryAccess(\"Software\\\\KelWorkbench\") = true",
                                                  "registry.GetString(\"ProductName\") = \"House Planner\""));
}

TEST_F(ProductName, IsTheHostsWhenTheRegistrysIsEmptyMissingOrNoText) {
    m_keys.make(HKEY_LOCAL_MACHINE, kProductKey);
    EXPECT_EQ(name(), L"Kel Workbench");
    m_keys.setText(HKEY_LOCAL_MACHINE, kProductKey, L"ProductName", L"");
    EXPECT_EQ(name(), L"Kel Workbench");
    m_keys.setNumber(HKEY_LOCAL_MACHINE, kProductKey, L"ProductName", 17);
    EXPECT_EQ(name(), L"Kel Workbench");
}

TEST_F(ProductName, IsNotLookedForInTheUsersHive) {
    m_keys.setText(HKEY_CURRENT_USER, kProductKey, L"ProductName", L"House Planner");
    EXPECT_EQ(name(), L"Kel Workbench");
}

TEST_F(ProductName, IsTheHostsWhenTheHostDoesntTellTheKey) {
    m_keys.setText(HKEY_LOCAL_MACHINE, kProductKey, L"ProductName", L"House Planner");
    instruments::failCall("GetProductRegistryRootKey", 1);
    EXPECT_EQ(name(), L"Kel Workbench");
    EXPECT_THAT(instruments::trace(), ElementsAre("keldbHostApplicationServices()", "productName() = \"Kel Workbench\"",
                                                  "GetProductRegistryRootKey(512) = 0"));
}

} // namespace
