// Loading modules: one sentence tells why a module is refused, and nothing of a refused module stays.

#include "KelRuntime.h"
#include "ModuleLoader.h"
#include "Runtime.h"
#include "SystemRegistry.h"
#include "instruments/HostCalls.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <windows.h>

namespace fs = std::filesystem;

namespace {

fs::path programFolder() {
    wchar_t path[1024];
    return fs::path(std::wstring(path, GetModuleFileNameW(nullptr, path, 1024))).parent_path();
}

fs::path module(const char* name) {
    return programFolder() / "test-modules" / (std::string(name) + ".xmod");
}

class ModuleLoaderTest : public testing::Test {
  protected:
    ModuleLoaderTest() { runtime::reset(); }
    /// Loads a module that has to be refused, and answers the sentence that tells why.
    std::wstring refusal(const fs::path& path) {
        const std::wstring sentence = loader.load(path.wstring());
        EXPECT_EQ(loader.count(), 0u);
        EXPECT_EQ(GetModuleHandleW(path.filename().c_str()), nullptr) << "still in the process";
        return sentence;
    }
    runtime::ModuleLoader loader;
};

} // namespace

TEST_F(ModuleLoaderTest, LoadsAModuleAndSendsItTheLoadMessage) {
    EXPECT_EQ(loader.load(module("good").wstring()), L"");
    EXPECT_EQ(loader.count(), 1u);
    EXPECT_TRUE(kelrtServiceIsRegistered(L"TestModule"));
}

TEST_F(ModuleLoaderTest, SendsTheUnloadMessageAndFreesTheModule) {
    ASSERT_EQ(loader.load(module("good").wstring()), L"");
    EXPECT_TRUE(loader.unload(module("good").wstring()));
    EXPECT_FALSE(kelrtServiceIsRegistered(L"TestModule"));
    EXPECT_EQ(GetModuleHandleW(L"good.xmod"), nullptr);
    EXPECT_FALSE(loader.unload(module("good").wstring()));
}

TEST_F(ModuleLoaderTest, UnloadsWhatIsLeftAtTheEnd) {
    {
        runtime::ModuleLoader other;
        ASSERT_EQ(other.load(module("good").wstring()), L"");
    }
    EXPECT_FALSE(kelrtServiceIsRegistered(L"TestModule"));
    EXPECT_EQ(GetModuleHandleW(L"good.xmod"), nullptr);
}

TEST_F(ModuleLoaderTest, UnloadsTheModuleThatWasLoadedLastFirst) {
    ASSERT_EQ(loader.load(module("good").wstring()), L"");
    ASSERT_EQ(loader.load((programFolder() / "KelLayerApps.xmod").wstring()), L"");
    instruments::watch(true);
    loader.unloadAll();
    std::vector<std::string> removed;
    for (const std::string& line : instruments::trace())
        if (line.starts_with("remove("))
            removed.push_back(line);
    instruments::watch(false);
    EXPECT_EQ(removed,
              (std::vector<std::string>{"remove(\"KelLayerApps\") = object", "remove(\"TestModule\") = object"}));
}

TEST_F(ModuleLoaderTest, KeepsAModuleThatHasntAgreedToBeUnloadedUntilTheEnd) {
    ASSERT_EQ(loader.load(module("staying").wstring()), L"");
    EXPECT_FALSE(loader.unload(module("staying").wstring()));
    EXPECT_EQ(loader.count(), 1u);
    loader.unloadAll();
    EXPECT_FALSE(kelrtServiceIsRegistered(L"TestModule"));
}

TEST_F(ModuleLoaderTest, LoadsAModuleOnce) {
    ASSERT_EQ(loader.load(module("good").wstring()), L"");
    EXPECT_EQ(loader.load(module("good").wstring()), L"good.xmod is loaded already.");
    EXPECT_EQ(loader.load(module("GOOD").wstring()), L"GOOD.xmod is loaded already.");
    EXPECT_EQ(loader.load((programFolder() / "." / "test-modules" / "good.xmod").wstring()),
              L"good.xmod is loaded already.");
    EXPECT_EQ(loader.paths(), std::vector{module("good").wstring()});
    EXPECT_EQ(loader.count(), 1u);
}

TEST_F(ModuleLoaderTest, TellsThatTheFileIsntThere) {
    EXPECT_EQ(refusal(module("missing")), L"The module " + module("missing").wstring() + L" was not found.");
}

TEST_F(ModuleLoaderTest, TellsThatTheFileIsNoModule) {
    EXPECT_EQ(refusal(module("plain")),
              L"plain.xmod is not a module of this program: it lacks the entry points of one.");
    const std::wstring sentence = refusal(programFolder() / "app-test-text.xmod");
    EXPECT_TRUE(sentence.starts_with(L"app-test-text.xmod could not be loaded: ")) << fs::path(sentence).string();
}

TEST_F(ModuleLoaderTest, RefusesAnotherMajorVersionOfTheInterface) {
    EXPECT_EQ(refusal(module("newer")),
              L"newer.xmod was built for version 18 of the module interface, and this program "
              L"offers version 17.");
    EXPECT_FALSE(kelrtServiceIsRegistered(L"TestModule")) << "it was not even sent the load message";
}

TEST_F(ModuleLoaderTest, TakesAnotherMinorVersion) {
    EXPECT_EQ(loader.load(module("minor").wstring()), L"");
}

TEST_F(ModuleLoaderTest, TellsWhichResourceFileIsMissing) {
    EXPECT_EQ(refusal(module("noresources")),
              L"noresources.xmod could not start: its resource file noresourcesRes.dll is "
              L"missing beside it.");
}

TEST_F(ModuleLoaderTest, TellsWhichResourceFileIsThereAndCantBeLoaded) {
    const fs::path resources = module("noresources").replace_filename("noresourcesRes.dll");
    std::ofstream(resources) << "No module.";
    EXPECT_EQ(refusal(module("noresources")),
              L"noresources.xmod could not start: its resource file noresourcesRes.dll could not be loaded.");
    fs::remove(resources);
}

TEST_F(ModuleLoaderTest, TellsAnyOtherRefusal) {
    EXPECT_EQ(refusal(module("refusing")), L"refusing.xmod could not start: it answered 7 to being loaded.");
    EXPECT_EQ(refusal(module("throwing")), L"throwing.xmod could not start: it failed while it was loaded.");
}

TEST_F(ModuleLoaderTest, AnAddOnThatCantAddItsCommandIsntLoaded) {
    const std::wstring path = (programFolder() / "TrelUiBase.xmod").wstring();
    instruments::watch(true);
    instruments::failCall("addCommand", 1, Vorn::eOutOfMemory);
    EXPECT_EQ(refusal(path), L"TrelUiBase.xmod could not start: it failed while it was loaded.");
    EXPECT_EQ(runtime::commandStack().count(), 0);
    instruments::watch(false);
    EXPECT_EQ(loader.load(path), L"");
    EXPECT_EQ(runtime::commandStack().count(), 1);
}

TEST_F(ModuleLoaderTest, TheLayerStatesModuleStartsOnlyWithItsResourceFile) {
    const fs::path real = programFolder() / "KelLayerApps.xmod";
    // Under another name the module looks for another resource file, which isn't there. Its extension is .xmod too,
    // because the module takes five characters off its own name for that of the resource file.
    const fs::path alone = programFolder() / "test-modules" / "Lonesome.xmod";
    fs::copy_file(real, alone, fs::copy_options::overwrite_existing);
    EXPECT_EQ(refusal(alone),
              L"Lonesome.xmod could not start: its resource file LonesomeRes.dll is missing beside it.");
    fs::remove(alone);
    EXPECT_EQ(loader.load(real.wstring()), L"");
    EXPECT_TRUE(kelrtServiceIsRegistered(L"KelLayerApps"));
}
