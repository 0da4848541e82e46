// MODULE: loading and unloading modules by name, and what the user is told.

#include "CommandFixture.h"
#include "Completion.h"
#include "ModuleNames.h"

using testing::ElementsAre;
using workbench::findModule;

namespace {

class ModuleCommandTest : public CommandFixture {
  protected:
    ModuleCommandTest() { window.modules = {L"C:\\bench\\KelLayerApps.xmod", L"C:\\bench\\TrelUiBase.xmod"}; }
};

TEST_F(ModuleCommandTest, LoadsByAPathWithoutItsQuotes) {
    EXPECT_EQ(run(L"module load \"C:\\my modules\\Other.xmod\""), L"Other.xmod is loaded.\n");
    EXPECT_EQ(window.modules.back(), L"C:\\my modules\\Other.xmod");
}

TEST_F(ModuleCommandTest, TellsWhyAModuleCantBeLoaded) {
    window.moduleProblem = L"The module X was not found.";
    EXPECT_EQ(run(L"MODULE LOAD X"), L"The module X was not found.\n");
    EXPECT_EQ(window.modules.size(), 2u);
}

TEST_F(ModuleCommandTest, RefusesAPathThatNoModuleCanHave) {
    EXPECT_EQ(run(L"MODULE LOAD " + std::wstring(261, L'x')),
              L"The path of the module is too long: give one of at most 260 characters.\n");
    EXPECT_EQ(window.modules.size(), 2u);
    run(L"MODULE LOAD " + std::wstring(260, L'x'));
    EXPECT_EQ(window.modules.size(), 3u);
}

TEST_F(ModuleCommandTest, UnloadsByNameEndingOrPath) {
    for (const wchar_t* name :
         {L"treluibase", L"TrelUiBase.XMOD", L"c:\\bench\\treluibase.xmod", L"C:/bench/TrelUiBase.xmod"}) {
        window.modules = {L"C:\\bench\\TrelUiBase.xmod"};
        EXPECT_EQ(run(L"MODULE UNLOAD " + std::wstring(name)), L"TrelUiBase.xmod is unloaded.\n");
        EXPECT_TRUE(window.modules.empty());
    }
}

TEST_F(ModuleCommandTest, TellsThatNoSuchModuleIsLoaded) {
    EXPECT_EQ(run(L"MODULE UNLOAD Trel"), L"No module \"Trel\" is loaded: MODULE LIST names those that are.\n");
    EXPECT_EQ(window.modules.size(), 2u);
}

TEST_F(ModuleCommandTest, TellsThatAModuleStays) {
    window.modulesAgree = false;
    EXPECT_EQ(run(L"MODULE UNLOAD TrelUiBase"), L"TrelUiBase.xmod stays until the Workbench ends: it takes no "
                                                L"unloading before.\n");
}

TEST_F(ModuleCommandTest, ListsThePathsInTheOrderOfLoading) {
    EXPECT_EQ(run(L"MODULE LIST"), L"C:\\bench\\KelLayerApps.xmod\nC:\\bench\\TrelUiBase.xmod\n");
    window.modules.clear();
    EXPECT_EQ(run(L"MODULE LIST"), L"No module is loaded.\n");
    EXPECT_EQ(run(L"MODULE LIST x"), L"MODULE LIST takes no arguments: type MODULE LIST alone.\n");
}

TEST_F(ModuleCommandTest, OffersTheNamesOfLoadedModulesToUnload) {
    EXPECT_THAT(workbench::complete(session, L"MODULE UNLOAD ").candidates,
                ElementsAre(L"KelLayerApps.xmod", L"TrelUiBase.xmod"));
}

TEST(ModuleNames, MeanTheModuleThatWasLoadedLastOfSeveral) {
    EXPECT_EQ(findModule({L"C:\\a\\X.xmod", L"C:\\b\\x.xmod", L"C:\\c\\Y.xmod"}, L"X"), L"C:\\b\\x.xmod");
    EXPECT_EQ(findModule({L"C:\\a\\X.xmod"}, L""), L"");
    EXPECT_EQ(findModule({}, L"X"), L"");
}

} // namespace
