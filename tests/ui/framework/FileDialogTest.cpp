// The file dialog, as a person answers it.

#include "DialogFixture.h"

#include "OrvUiPickers.h"
#include "instruments/HostCalls.h"
#include "persistence/DialogStore.h"

using testing::StartsWith;

namespace {

class FileDialog : public DialogFixture {
  protected:
    ResultBuffer* chain = nullptr;
    std::wstring folder;

    FileDialog() {
        wchar_t path[MAX_PATH] = {};
        GetTempPathW(MAX_PATH, path);
        folder = std::wstring(path) + L"framework-tests";
        CreateDirectoryW(folder.c_str(), nullptr);
        CloseHandle(
            CreateFileW((folder + L"\\plan.las").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    }
    ~FileDialog() override {
        kelutRelRb(chain);
        DeleteFileW((folder + L"\\plan.las").c_str());
        RemoveDirectoryW(folder.c_str());
    }

    int ask(int flags, const ui::Script& script, const wchar_t* name = nullptr) {
        ui::Script whole;
        whole.waitUntil("the dialog", [](const ui::View& view) { return view.title() == L"Pick"; }).then(script);
        int answer = 0;
        ui::perform(whole, [&] {
            answer = keledGetFileNavDialog(L"Pick", name, L"las;zdr", L"FrameworkTestsFileDialog", flags, &chain);
        });
        return answer;
    }
};

TEST_F(FileDialog, aChosenFileIsAnsweredAsAChainWithItsPath) {
    const std::wstring path = folder + L"\\plan.las";
    EXPECT_EQ(ask(0, ui::Script().type(path).press(VK_RETURN)), kResultNormal);
    ASSERT_NE(chain, nullptr);
    EXPECT_EQ(chain->type, kVariableString);
    EXPECT_EQ(chain->value.string, path);
    EXPECT_EQ(chain->next, nullptr);
}

TEST_F(FileDialog, cancellingAnswersSomethingElseAndNoChain) {
    EXPECT_EQ(ask(0, ui::Script().press(VK_ESCAPE)), kResultCancel);
    EXPECT_EQ(chain, nullptr);
}

TEST_F(FileDialog, theFolderOfTheLastFileIsKeptUnderTheKey) {
    ask(0, ui::Script().type(folder + L"\\plan.las").press(VK_RETURN));
    EXPECT_EQ(framework::DialogStore(L"FrameworkTestsFileDialog").text(L"Folder"), folder);
    kelutRelRb(chain);
    chain = nullptr;
    // The name alone is found there.
    EXPECT_EQ(ask(0, ui::Script().type(L"plan.las").press(VK_RETURN)), kResultNormal);
    ASSERT_NE(chain, nullptr);
    EXPECT_EQ(chain->value.string, folder + L"\\plan.las");
}

TEST_F(FileDialog, savingAddsTheFirstExtensionToANewName) {
    EXPECT_EQ(ask(1, ui::Script().type(folder + L"\\fresh").press(VK_RETURN)), kResultNormal);
    ASSERT_NE(chain, nullptr);
    EXPECT_EQ(chain->value.string, folder + L"\\fresh.las");
}

TEST_F(FileDialog, savingOverAFileIsAskedFirst) {
    ui::Script script;
    script.type(folder + L"\\plan.las")
        .press(VK_RETURN)
        .waitUntil("the question", [](const ui::View& view) { return view.has(IDNO); })
        .click(IDNO)
        .waitUntil("the dialog again", [](const ui::View& view) { return view.title() == L"Pick"; })
        .press(VK_ESCAPE);
    EXPECT_EQ(ask(1, script), kResultCancel);
    EXPECT_EQ(chain, nullptr);
}

TEST_F(FileDialog, beginsWithTheNameWithoutWhatAPathCantHold) {
    const framework::DialogStore store(L"FrameworkTestsFileDialog");
    ASSERT_TRUE(store.setText(L"Folder", folder));
    EXPECT_EQ(ask(1, ui::Script().press(VK_RETURN), L"Pl|an: <one>\t/\"two\"\n\\*?"), kResultNormal);
    ASSERT_NE(chain, nullptr);
    EXPECT_EQ(chain->value.string, folder + L"\\Plan onetwo.las");
}

TEST_F(FileDialog, aNameLongerThanAnyPathIsCut) {
    EXPECT_EQ(ask(1, ui::Script().press(VK_ESCAPE), std::wstring(100'000, L'x').c_str()), kResultCancel);
}

TEST_F(FileDialog, aFileThatIsMissingIsNotOpened) {
    ui::Script script;
    script.type(folder + L"\\missing.las")
        .press(VK_RETURN)
        .waitUntil("a message", [](const ui::View& view) { return view.title() != L"Pick"; })
        .press(VK_RETURN)
        .waitUntil("the dialog again", [](const ui::View& view) { return view.title() == L"Pick"; })
        .press(VK_ESCAPE);
    EXPECT_EQ(ask(0, script), kResultCancel);
    EXPECT_EQ(chain, nullptr);
}

TEST_F(FileDialog, theRootOfADriveIsKeptAsAFolder) {
    EXPECT_EQ(ask(1, ui::Script().type(L"C:\\framework-tests.las").press(VK_RETURN)), kResultNormal);
    EXPECT_EQ(framework::DialogStore(L"FrameworkTestsFileDialog").text(L"Folder"), L"C:\\");
}

TEST_F(FileDialog, aPlannedFailureShowsNothing) {
    instruments::failCall("keledGetFileNavDialog", 1);
    EXPECT_EQ(keledGetFileNavDialog(L"Pick", L"name", L"las", L"FrameworkTestsFileDialog", 1, &chain), kResultError);
    EXPECT_EQ(chain, nullptr);
    EXPECT_THAT(instruments::trace().front(), StartsWith("keledGetFileNavDialog(\"Pick\", \"name\", \"las\""));
}

} // namespace
