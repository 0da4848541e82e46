// The file dialog, as a person answers it.

#include "FileDialogFixture.h"

#include "instruments/HostCalls.h"
#include "persistence/DialogStore.h"

#include <commctrl.h>
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;
using testing::UnorderedElementsAre;

namespace {

using Texts = std::vector<std::wstring>;

HWND descendant(HWND window, const wchar_t* className) {
    HWND found = FindWindowExW(window, nullptr, className, nullptr);
    for (HWND child = nullptr; !found && (child = FindWindowExW(window, child, nullptr, nullptr));)
        found = descendant(child, className);
    return found;
}

/// The files and folders that the dialog shows.
Texts listed(const ui::View& view) {
    const HWND list = descendant(view.window(), WC_LISTVIEWW);
    Texts names;
    for (int row = 0; row < ListView_GetItemCount(list); ++row) {
        wchar_t name[MAX_PATH] = {};
        ListView_GetItemText(list, row, 0, name, MAX_PATH);
        names.emplace_back(name);
    }
    return names;
}

/// The kinds of files that the dialog offers.
Texts kinds(const ui::View& view) {
    const HWND box = view.control(cmb1);
    Texts kinds;
    for (WPARAM row = 0; row < static_cast<WPARAM>(SendMessageW(box, CB_GETCOUNT, 0, 0)); ++row) {
        wchar_t text[MAX_PATH] = {};
        SendMessageW(box, CB_GETLBTEXT, row, reinterpret_cast<LPARAM>(text));
        kinds.emplace_back(text);
    }
    return kinds;
}

bool exists(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

/// Answers the question that saving over a file brings.
ui::Script answered(ui::Script saving, int answer) {
    return saving.waitUntil("the question", [](const ui::View& view) { return view.has(IDNO); }).click(answer);
}

TEST_F(FileDialog, aChosenFileIsAnsweredAsAChainWithItsPath) {
    const std::wstring path = folder + L"\\plan.las";
    EXPECT_EQ(ask(0, ui::enterFileName(path)), kResultNormal);
    ASSERT_NE(chain, nullptr);
    EXPECT_EQ(chain->type, kVariableString);
    EXPECT_EQ(chain->value.string, path);
    EXPECT_EQ(chain->next, nullptr);
}

TEST_F(FileDialog, bearsItsTitle) {
    for (const wchar_t* wanted : {L"Import layer state", L"\u00c9tats"})
        for (const int flags : {0, 1}) {
            title = wanted;
            ask(flags, ui::Script()
                           .look("the title", [wanted](const ui::View& view) { EXPECT_EQ(view.title(), wanted); })
                           .press(VK_ESCAPE));
        }
}

TEST_F(FileDialog, offersAllKindsOfFilesAtOnceAndThenEachOne) {
    extensions = L"zdr;zds;zdt;las";
    ask(0, ui::Script()
               .look("the kinds",
                     [](const ui::View& view) {
                         EXPECT_THAT(kinds(view), ElementsAre(L"All supported files", L"Drawing (*.zdr)",
                                                              L"Drawing standards (*.zds)", L"Drawing template (*.zdt)",
                                                              L"Layer states (*.las)"));
                         EXPECT_EQ(view.text(cmb1), L"All supported files");
                     })
               .press(VK_ESCAPE));
}

TEST_F(FileDialog, listsTheFilesOfTheKindThatIsChosen) {
    ASSERT_TRUE(framework::DialogStore(key).setText(L"Folder", folder));
    for (const wchar_t* name : {L"house.zdr", L"notes.txt", L"OTHER.LAS"})
        makeFile(name);
    const auto shows = [](Texts names) {
        return [names](const ui::View& view) {
            return testing::Matches(testing::UnorderedElementsAreArray(names))(listed(view));
        };
    };
    ui::Script script;
    script.waitUntil("all kinds", shows({L"plan.las", L"OTHER.LAS", L"house.zdr"}))
        .click(cmb1)
        .press(VK_END)
        .press(VK_RETURN)
        .waitUntil("drawings alone", shows({L"house.zdr"}))
        .press(VK_ESCAPE);
    EXPECT_EQ(ask(0, script), kResultCancel);
    extensions = L"las";
    script = ui::Script();
    script.waitUntil("layer states alone", shows({L"plan.las", L"OTHER.LAS"})).press(VK_ESCAPE);
    EXPECT_EQ(ask(1, script), kResultCancel);
}

TEST_F(FileDialog, withoutExtensionsListsAllFilesAndAddsNone) {
    ASSERT_TRUE(framework::DialogStore(key).setText(L"Folder", folder));
    makeFile(L"notes.txt");
    for (const wchar_t* none : {static_cast<const wchar_t*>(nullptr), L"", L";;"}) {
        extensions = none;
        ui::Script script;
        script
            .waitUntil("both files",
                       [](const ui::View& view) {
                           return testing::Matches(UnorderedElementsAre(L"plan.las", L"notes.txt"))(listed(view));
                       })
            .look("no kinds", [](const ui::View& view) { EXPECT_THAT(kinds(view), IsEmpty()); })
            .then(ui::enterFileName(L"fresh"));
        EXPECT_EQ(ask(1, script), kResultNormal);
        EXPECT_EQ(chosen(), folder + L"\\fresh");
    }
}

TEST_F(FileDialog, cancellingAnswersSomethingElseAndNoChain) {
    EXPECT_EQ(ask(0, ui::Script().press(VK_ESCAPE)), kResultCancel);
    EXPECT_EQ(chain, nullptr);
}

TEST_F(FileDialog, theFolderOfTheLastFileIsKeptUnderTheKey) {
    ask(0, ui::enterFileName(folder + L"\\plan.las"));
    EXPECT_EQ(keptFolder(key), folder);
    // The name alone is found there.
    EXPECT_EQ(ask(0, ui::enterFileName(L"plan.las")), kResultNormal);
    EXPECT_EQ(chosen(), folder + L"\\plan.las");
}

TEST_F(FileDialog, eachKeyKeepsAFolderOfItsOwn) {
    const std::wstring inner = folder + L"\\inner";
    ASSERT_TRUE(CreateDirectoryW(inner.c_str(), nullptr));
    makeFile(L"inner\\plan.las");
    ask(0, ui::enterFileName(folder + L"\\plan.las"));
    key = L"FrameworkTestsOtherFileDialog";
    ask(0, ui::enterFileName(inner + L"\\plan.las"));
    EXPECT_EQ(keptFolder(L"FrameworkTestsFileDialog"), folder);
    EXPECT_EQ(keptFolder(L"FrameworkTestsOtherFileDialog"), inner);

    EXPECT_EQ(ask(0, ui::enterFileName(L"plan.las")), kResultNormal);
    EXPECT_EQ(chosen(), inner + L"\\plan.las");
    key = L"FrameworkTestsFileDialog";
    EXPECT_EQ(ask(0, ui::enterFileName(L"plan.las")), kResultNormal);
    EXPECT_EQ(chosen(), folder + L"\\plan.las");
    DeleteFileW((inner + L"\\plan.las").c_str());
    RemoveDirectoryW(inner.c_str());
}

TEST_F(FileDialog, withoutAKeyKeepsNoFolder) {
    for (const wchar_t* none : {static_cast<const wchar_t*>(nullptr), L""}) {
        key = none;
        EXPECT_EQ(ask(0, ui::enterFileName(folder + L"\\plan.las")), kResultNormal);
        EXPECT_EQ(chosen(), folder + L"\\plan.las");
        EXPECT_EQ(keptFolder(L""), std::nullopt);
    }
    HKEY root = nullptr;
    EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, framework::DialogStore::root().c_str(), 0, KEY_READ, &root),
              ERROR_FILE_NOT_FOUND);
}

TEST_F(FileDialog, savingAddsTheFirstExtensionToANewName) {
    const std::pair<const wchar_t*, const wchar_t*> rows[] = {
        {L"fresh", L"fresh.las"},
        {L"fresh.las", L"fresh.las"},
        {L"FRESH.LAS", L"FRESH.LAS"},
        {L"fresh.zdr", L"fresh.zdr"},
    };
    for (const auto& [typed, saved] : rows) {
        EXPECT_EQ(ask(1, ui::enterFileName(folder + L'\\' + typed)), kResultNormal);
        EXPECT_EQ(chosen(), folder + L'\\' + saved);
    }
    extensions = L"zdr;las";
    EXPECT_EQ(ask(1, ui::enterFileName(folder + L"\\fresh")), kResultNormal);
    EXPECT_EQ(chosen(), folder + L"\\fresh.zdr");
}

TEST_F(FileDialog, savingOverAFileIsAskedFirstAndNoStaysInTheDialog) {
    ui::Script script = answered(ui::enterFileName(folder + L"\\plan.las"), IDNO);
    untilDialogAgain(script);
    EXPECT_EQ(ask(1, script.press(VK_ESCAPE)), kResultCancel);
    EXPECT_EQ(chain, nullptr);
    EXPECT_EQ(keptFolder(key), std::nullopt);
}

TEST_F(FileDialog, yesToTheQuestionAnswersThePath) {
    EXPECT_EQ(ask(1, answered(ui::enterFileName(folder + L"\\plan.las"), IDYES)), kResultNormal);
    EXPECT_EQ(chosen(), folder + L"\\plan.las");
    EXPECT_TRUE(exists(folder + L"\\plan.las")) << "writing over it is the caller's";
    // The question is about the name with its extension.
    EXPECT_EQ(ask(1, answered(ui::enterFileName(folder + L"\\plan"), IDYES)), kResultNormal);
    EXPECT_EQ(chosen(), folder + L"\\plan.las");
}

TEST_F(FileDialog, beginsWithTheNameWithoutWhatAPathCantHold) {
    ASSERT_TRUE(framework::DialogStore(key).setText(L"Folder", folder));
    EXPECT_EQ(ask(1, ui::Script().press(VK_RETURN), L"Pl|an: <one>\t/\"two\"\n\\*?"), kResultNormal);
    EXPECT_EQ(chosen(), folder + L"\\Plan onetwo.las");
}

TEST_F(FileDialog, aNameLongerThanAnyPathIsCut) {
    EXPECT_EQ(ask(1, ui::Script().press(VK_ESCAPE), std::wstring(100'000, L'x').c_str()), kResultCancel);
}

TEST_F(FileDialog, aFileThatIsMissingIsNotOpened) {
    ui::Script script;
    script.then(ui::enterFileName(folder + L"\\missing.las")).waitUntil("a message", [](const ui::View& view) {
        return !view.has(ui::kFileNameBox);
    });
    script.press(VK_RETURN);
    untilDialogAgain(script);
    EXPECT_EQ(ask(0, script.press(VK_ESCAPE)), kResultCancel);
    EXPECT_EQ(chain, nullptr);
}

TEST_F(FileDialog, theRootOfADriveIsKeptAsAFolder) {
    EXPECT_EQ(ask(1, ui::enterFileName(L"C:\\framework-tests.las")), kResultNormal);
    EXPECT_EQ(keptFolder(key), L"C:\\");
}

TEST_F(FileDialog, aPlannedFailureShowsNothing) {
    instruments::failCall("keledGetFileNavDialog", 1);
    EXPECT_EQ(keledGetFileNavDialog(L"Pick", L"name", L"las", L"FrameworkTestsFileDialog", 1, &chain), kResultError);
    EXPECT_EQ(chain, nullptr);
    EXPECT_THAT(instruments::trace().front(), StartsWith("keledGetFileNavDialog(\"Pick\", \"name\", \"las\""));
}

} // namespace
