// Task dialogs: their file, and their windows as a person answers them.

#include "DialogFixture.h"

#include "OrvUiServices.h"
#include "instruments/HostCalls.h"
#include "tasks/TaskDialogFile.h"

using framework::readTaskDialog;
using framework::substituted;
using framework::TaskIcon;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

namespace {

constexpr const wchar_t* kFile = L"/KelTaskDialogs;component/TaskDialogs.xaml";
constexpr const wchar_t* kImported = L"KelLayerApps.LayerStateSuccessfulImport";

TEST(Substitution, replacesEachPlaceholder) {
    EXPECT_EQ(substituted(L"{A} and {B}, {A}", {{L"A", L"1"}, {L"B", L"2"}}), L"1 and 2, 1");
}

TEST(Substitution, whatAValueContainsIsNotLookedAtAgain) {
    EXPECT_EQ(substituted(L"{FileName}", {{L"FileName", L"C:\\{B}\\{FileName}"}, {L"B", L"no"}}),
              L"C:\\{B}\\{FileName}");
}

TEST(Substitution, leavesWhatHasNoValueOrNoEnd) {
    EXPECT_EQ(substituted(L"{X} {A", {{L"A", L"1"}}), L"{X} {A");
    EXPECT_EQ(substituted(L"{{A}", {{L"A", L"1"}}), L"{1");
    EXPECT_EQ(substituted(L"", {{L"A", L"1"}}), L"");
}

TEST(TaskDialogFile, holdsEveryDialogOfTheModule) {
    for (const wchar_t* key : {L"LayerStateAddLayer", L"LayerStateDuplicates", L"CannotRestoreLayerState",
                               L"LayerStateNoneFound", L"LayerStateSuccessfulImport", L"LayerStateNoneSelected"}) {
        const auto dialog = readTaskDialog(kFile, std::wstring(L"KelLayerApps.") + key, {});
        ASSERT_TRUE(dialog) << testing::PrintToString(std::wstring(key));
        EXPECT_THAT(dialog->title, Not(IsEmpty()));
        EXPECT_THAT(dialog->instruction, Not(IsEmpty()));
        EXPECT_NE(dialog->icon, TaskIcon::none);
        EXPECT_TRUE(dialog->commonButtons != 0 || !dialog->commands.empty());
    }
}

TEST(TaskDialogFile, theFirstCommandOfTheImportsDialogRestores) {
    const auto dialog = readTaskDialog(kFile, kImported, {{L"FileName", L"C:\\a.las"}});
    ASSERT_TRUE(dialog);
    ASSERT_THAT(dialog->commands, SizeIs(2));
    EXPECT_THAT(dialog->commands[0], HasSubstr(L"Restore the layer state\n"));
    EXPECT_EQ(dialog->content, L"C:\\a.las");
}

/// Writes a file with that content, and deletes it at its own end.
class WrittenFile {
  public:
    explicit WrittenFile(const std::string& content) {
        wchar_t folder[MAX_PATH];
        wchar_t path[MAX_PATH];
        GetTempPathW(MAX_PATH, folder);
        GetTempFileNameW(folder, L"kel", 0, path);
        m_path = path;
        const HANDLE file = CreateFileW(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
        DWORD written = 0;
        WriteFile(file, content.data(), static_cast<DWORD>(content.size()), &written, nullptr);
        CloseHandle(file);
    }
    ~WrittenFile() { DeleteFileW(m_path.c_str()); }
    WrittenFile(const WrittenFile&) = delete;
    WrittenFile& operator=(const WrittenFile&) = delete;
    const std::wstring& path() const { return m_path; }

  private:
    std::wstring m_path;
};

bool loads(const std::string& content) {
    const WrittenFile file(content);
    COrvTaskDialog dialog;
    return dialog.LoadFromFile(file.path().c_str(), L"K", nullptr, 0) != 0;
}

/// The text of a file with a dialog, and beside it elements nested `depth` deep.
std::string nested(int depth) {
    std::string content = "<T><TaskDialog Key='K'><Instruction>x</Instruction></TaskDialog>";
    for (const char* part : {"<a>", "</a>"})
        for (int level = 0; level < depth; ++level)
            content += part;
    return content + "</T>";
}

std::string wide(const std::string& content) {
    std::string bytes = "\xFF\xFE";
    for (const char character : content)
        bytes.append({character, '\0'});
    return bytes;
}

TEST(TaskDialogFile, isRefusedWhereItIsBroken) {
    EXPECT_TRUE(loads("<T><TaskDialog Key='K'><Instruction>x</Instruction></TaskDialog></T>"));
    EXPECT_FALSE(loads("")) << "empty";
    EXPECT_FALSE(loads("<T><TaskDialog Key='K'><Instruction>x</Instruction></TaskDia")) << "cut off";
    EXPECT_FALSE(loads("<T><TaskDialog Key='K'></T></TaskDialog>")) << "crossed elements";
    const std::string whole = "<T><TaskDialog Key='K'><Instruction>x</Instruction></TaskDialog>";
    for (const char* end : {"", "x", "x>", "<!-- x", "<!-- x -> >", "<![CDATA[x", "<![CDATA[x]]", "&amp", "&#x41",
                            "<?x y", "</", "</T", "<a b='"})
        EXPECT_FALSE(loads(whole + end)) << "ends with " << end;
    EXPECT_TRUE(loads(whole + "</T>"));
    EXPECT_TRUE(loads(whole + "\n</T>\n<!-- x -->\n"));
    EXPECT_FALSE(loads(wide(whole + "<!-- x"))) << "16 bits a character";
    EXPECT_TRUE(loads(wide(whole + "</T>"))) << "16 bits a character";
    EXPECT_FALSE(loads("<T><TaskDialog Key='K'/></T>")) << "nothing to say";
    EXPECT_FALSE(loads("<T><TaskDialog Key='K' Icon='Skull'><Instruction>x</Instruction></TaskDialog></T>"));
    EXPECT_FALSE(loads("<T><TaskDialog Key='K' Buttons='OK Perhaps'><Instruction>x</Instruction></TaskDialog></T>"));
    EXPECT_FALSE(loads("no XML at all"));
    EXPECT_FALSE(loads(std::string(1000, '\0'))) << "zeros";
    EXPECT_FALSE(loads("\xFF\xFE<T>")) << "bytes of another coding";
    EXPECT_FALSE(loads("<!DOCTYPE T [<!ENTITY a 'aaaa'><!ENTITY b '&a;&a;&a;&a;'>]>"
                       "<T><TaskDialog Key='K'><Instruction>&b;</Instruction></TaskDialog></T>"))
        << "entities that grow";
    EXPECT_FALSE(loads("<T><TaskDialog Key='K'><Instruction>x</Instruction></TaskDialog></T><!--" +
                       std::string(5 << 20, 'x') + "-->"))
        << "larger than any file of dialogs";
    EXPECT_TRUE(loads(nested(40)));
    EXPECT_FALSE(loads(nested(100)));
    EXPECT_FALSE(loads(nested(500'000))) << "deeper than any stack";
    EXPECT_FALSE(loads("<T><Other Key='K'><Instruction>x</Instruction></Other></T>"));
}

TEST(TaskDialogFile, thatIsAFolderIsRefused) {
    wchar_t folder[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    COrvTaskDialog dialog;
    EXPECT_FALSE(dialog.LoadFromFile(folder, L"K", nullptr, 0));
}

TEST(TaskDialogFile, pairsWithoutKeyOrValueAreLeftOut) {
    const WrittenFile file("<T><TaskDialog Key='K'><Instruction>{A}{B}</Instruction></TaskDialog></T>");
    const TASKDIALOG_KEYVALUE pairs[] = {{nullptr, L"1"}, {L"A", nullptr}, {L"B", L"2"}};
    COrvTaskDialog dialog;
    ASSERT_TRUE(dialog.LoadFromFile(file.path().c_str(), L"K", pairs, 3));
    ui::Script script;
    script.waitForText(L"{A}2").press(VK_RETURN);
    int answer = 0;
    EXPECT_TRUE(ui::perform(script, [&] { answer = dialog.ShowDialog(nullptr); }));
    EXPECT_EQ(answer, IDOK) << "where no button is named, there is OK";
}

class TaskDialog : public DialogFixture {
  protected:
    COrvTaskDialog dialog;

    /// Shows what was loaded, and answers it by the script.
    int show(ui::Script script) {
        int answer = -1;
        ui::perform(std::move(script), [&] { answer = dialog.ShowDialog(nullptr); });
        return answer;
    }
    /// Lets a button of the parent show the message that no state was found.
    void showFromButtonOf(TestDialog& parent) {
        ASSERT_TRUE(dialog.LoadFromFile(kFile, L"KelLayerApps.LayerStateNoneFound", nullptr, 0));
        parent.onCommand = [this, &parent](UINT id) {
            if (id == IDC_TEST_BUTTON)
                dialog.ShowDialog(parent.GetSafeHwnd());
        };
    }
};

TEST_F(TaskDialog, aClickOnACommandAnswersItsNumber) {
    const TASKDIALOG_KEYVALUE pairs[] = {{L"FileName", L"C:\\plan.las"}};
    ASSERT_TRUE(dialog.LoadFromFile(kFile, kImported, pairs, 1));
    EXPECT_EQ(show(ui::Script().waitForControl(1001).click(1001)), kTaskDialogFirstCommand);
    EXPECT_EQ(show(ui::Script().waitForControl(1002).click(1002)), kTaskDialogFirstCommand + 1);
}

TEST_F(TaskDialog, theThirdCommandAnswersTheThirdNumber) {
    const WrittenFile file("<T><TaskDialog Key='K'><Instruction>x</Instruction><Command>One</Command>"
                           "<Command>Two</Command><Command>Three</Command></TaskDialog></T>");
    ASSERT_TRUE(dialog.LoadFromFile(file.path().c_str(), L"K", nullptr, 0));
    EXPECT_EQ(show(ui::Script().waitForControl(1003).click(1003)), 1003);
}

TEST_F(TaskDialog, asManyPairsAreReadAsAreCounted) {
    const WrittenFile file("<T><TaskDialog Key='K'><Instruction>{A}{B}</Instruction></TaskDialog></T>");
    const TASKDIALOG_KEYVALUE pairs[] = {{L"A", L"1"}, {L"B", L"2"}};
    const wchar_t* const shown[] = {L"{A}{B}", L"1{B}", L"12"};
    for (int count = 0; count <= 2; ++count) {
        ASSERT_TRUE(dialog.LoadFromFile(file.path().c_str(), L"K", pairs, count));
        EXPECT_EQ(show(ui::Script().waitForText(shown[count]).press(VK_RETURN)), IDOK) << count;
    }
    ASSERT_TRUE(dialog.LoadFromFile(file.path().c_str(), L"K", pairs, -1));
    EXPECT_EQ(show(ui::Script().waitForText(shown[0]).press(VK_RETURN)), IDOK) << "a count below 0 counts none";
}

TEST_F(TaskDialog, escapeAnswersCancel) {
    ASSERT_TRUE(dialog.LoadFromFile(kFile, L"KelLayerApps.CannotRestoreLayerState", nullptr, 0));
    EXPECT_EQ(show(ui::Script().waitForControl(IDCLOSE).press(VK_ESCAPE)), IDCANCEL);
}

TEST_F(TaskDialog, itsTitleIsShownAndItsButtonAnswersItsNumber) {
    ASSERT_TRUE(dialog.LoadFromFile(kFile, L"KelLayerApps.CannotRestoreLayerState", nullptr, 0));
    ui::Script script;
    script.waitForControl(IDCLOSE)
        .look("its title", [](const ui::View& view) { EXPECT_EQ(view.title(), L"Layer States"); })
        .click(IDCLOSE);
    EXPECT_EQ(show(script), IDCLOSE);
}

TEST_F(TaskDialog, itsParentCannotBeUsedMeanwhile) {
    TestDialog parent{IDD_FIXED};
    showFromButtonOf(parent);
    ui::Script script;
    script.click(IDC_TEST_BUTTON)
        .waitForControl(IDCLOSE)
        .look("the parent", [&](const ui::View&) { EXPECT_FALSE(IsWindowEnabled(parent.GetSafeHwnd())); })
        .click(IDCLOSE)
        .waitForControl(IDC_TEST_BUTTON)
        .look("the parent", [&](const ui::View&) { EXPECT_TRUE(IsWindowEnabled(parent.GetSafeHwnd())); });
    parent.run(script);
}

TEST_F(TaskDialog, itStandsInTheMiddleOfItsParentEachTime) {
    TestDialog parent{IDD_FIXED};
    showFromButtonOf(parent);
    ui::Script script;
    for (int time = 0; time < 2; ++time)
        script.click(IDC_TEST_BUTTON)
            .waitForControl(IDCLOSE)
            .look("the place",
                  [&parent](const ui::View& view) {
                      const POINT middle = ui::middleOf(view.rect());
                      const POINT wanted = ui::middleOf(screenRect(parent.GetSafeHwnd()));
                      EXPECT_NEAR(middle.x, wanted.x, 1);
                      EXPECT_NEAR(middle.y, wanted.y, 1);
                  })
            .click(IDCLOSE)
            .waitForControl(IDC_TEST_BUTTON);
    parent.run(script);
}

TEST_F(TaskDialog, nullPairsStandForNoneWhateverTheCount) {
    EXPECT_TRUE(dialog.LoadFromFile(kFile, L"KelLayerApps.LayerStateAddLayer", nullptr, 1));
}

TEST_F(TaskDialog, aMissingKeyOrFileAnswersZeroAndShowsNothing) {
    EXPECT_FALSE(dialog.LoadFromFile(kFile, L"KelLayerApps.NoSuchDialog", nullptr, 0));
    EXPECT_EQ(dialog.ShowDialog(nullptr), 0);
    EXPECT_FALSE(dialog.LoadFromFile(L"/X;component/NoSuchFile.xaml", kImported, nullptr, 0));
    EXPECT_EQ(dialog.ShowDialog(nullptr), 0);
    EXPECT_FALSE(dialog.LoadFromFile(nullptr, nullptr, nullptr, 0));
}

TEST_F(TaskDialog, aFailedLoadForgetsTheDialogBefore) {
    EXPECT_TRUE(dialog.LoadFromFile(kFile, kImported, nullptr, 0));
    EXPECT_FALSE(dialog.LoadFromFile(kFile, L"KelLayerApps.NoSuchDialog", nullptr, 0));
    EXPECT_EQ(dialog.ShowDialog(nullptr), 0);
    EXPECT_TRUE(dialog.LoadFromFile(kFile, kImported, nullptr, 0));
    EXPECT_FALSE(dialog.LoadFromFile(kFile, nullptr, nullptr, 0));
    ui::perform({}, [&] { EXPECT_EQ(dialog.ShowDialog(nullptr), 0); });
}

TEST_F(TaskDialog, itsCallsStandInTheTraceAndCanBeMadeToFail) {
    instruments::failCall("taskDialog.LoadFromFile", 2);
    EXPECT_TRUE(dialog.LoadFromFile(kFile, kImported, nullptr, 0));
    instruments::failCall("taskDialog.ShowDialog", 1);
    EXPECT_EQ(dialog.ShowDialog(nullptr), 0);
    EXPECT_FALSE(dialog.LoadFromFile(kFile, kImported, nullptr, 0));
    EXPECT_THAT(instruments::trace(),
                ElementsAre("taskDialog.LoadFromFile(\"/KelTaskDialogs;component/TaskDialogs.xaml\", "
                            "\"KelLayerApps.LayerStateSuccessfulImport\", null, 0) = true",
                            "taskDialog.ShowDialog(null) = 0",
                            "taskDialog.LoadFromFile(\"/KelTaskDialogs;component/TaskDialogs.xaml\", "
                            "\"KelLayerApps.LayerStateSuccessfulImport\", null, 0) = false"));
}

TEST_F(TaskDialog, replacingAnExistingNameIsTheFirstCommand) {
    unsigned int answer = 0;
    ui::Script script;
    script.waitForControl(1001)
        .look("its title", [](const ui::View& view) { EXPECT_EQ(view.title(), L"Name Exists"); })
        .click(1001);
    ui::perform(script, [&] {
        answer = CKelStandardTaskDialog::ShowDuplicateNameReplaceCancelDialog(L"Layer state", L"Plan", nullptr);
    });
    EXPECT_EQ(answer, static_cast<unsigned int>(kTaskDialogFirstCommand));
    EXPECT_THAT(instruments::trace(),
                ElementsAre("ShowDuplicateNameReplaceCancelDialog(\"Layer state\", \"Plan\") = 1001"));
}

TEST_F(TaskDialog, notReplacingAnExistingNameIsAnythingElse) {
    unsigned int answer = kTaskDialogFirstCommand;
    ui::perform(ui::Script().waitForControl(IDCANCEL).press(VK_ESCAPE), [&] {
        answer = CKelStandardTaskDialog::ShowDuplicateNameReplaceCancelDialog(L"Layer state", L"Plan", nullptr);
    });
    EXPECT_EQ(answer, static_cast<unsigned int>(IDCANCEL));
}

TEST_F(TaskDialog, anAmpersandInAnInsertedTextIsShown) {
    const std::wstring texts = L"Heating & water && gas";
    std::wstring shown;
    ui::Script script;
    script.waitForControl(IDCANCEL)
        .look("its texts",
              [&](const ui::View& view) {
                  for (const HWND control : ui::visibleControls(view.window())) {
                      const bool marks = (GetWindowLongPtrW(control, GWL_STYLE) & SS_NOPREFIX) == 0;
                      shown += marks ? ui::withoutMnemonic(ui::textOf(control)) : ui::textOf(control);
                  }
              })
        .press(VK_ESCAPE);
    ui::perform(script, [&] {
        CKelStandardTaskDialog::ShowDuplicateNameReplaceCancelDialog((L"Kind " + texts).c_str(),
                                                                     (L"Name " + texts).c_str(), nullptr);
    });
    EXPECT_NE(shown.find(L"Kind " + texts), std::wstring::npos) << ui::narrow(shown);
    EXPECT_NE(shown.find(L"Name " + texts), std::wstring::npos) << ui::narrow(shown);
}

TEST_F(TaskDialog, nothingIsReplacedWhenTheQuestionCannotBeShown) {
    instruments::failCall("ShowDuplicateNameReplaceCancelDialog", 1);
    EXPECT_EQ(CKelStandardTaskDialog::ShowDuplicateNameReplaceCancelDialog(L"Layer state", L"Plan", nullptr),
              static_cast<unsigned int>(IDCANCEL));
    EXPECT_TRUE(instruments::faultStruck());
}

TEST_F(TaskDialog, noOtherWindowCanBeUsedMeanwhileWhateverTheParent) {
    TestDialog other{IDD_FIXED};
    other.onCommand = [&other](UINT id) {
        if (id != IDC_TEST_BUTTON)
            return;
        CKelStandardTaskDialog::ShowDuplicateNameReplaceCancelDialog(L"Layer state", L"Plan", nullptr);
        EXPECT_EQ(GetActiveWindow(), other.GetSafeHwnd()) << "the input goes back to it at once";
    };
    for (const bool replace : {true, false}) {
        ui::Script script;
        script.click(IDC_TEST_BUTTON).waitForControl(1001).look("the other window", [&](const ui::View&) {
            EXPECT_FALSE(IsWindowEnabled(other.GetSafeHwnd()));
        });
        if (replace)
            script.click(1001);
        else
            script.press(VK_ESCAPE);
        script.waitUntil("the other window again",
                         [&](const ui::View& view) { return view.window() == other.GetSafeHwnd(); });
        other.run(
            script.look("it can be used", [&](const ui::View&) { EXPECT_TRUE(IsWindowEnabled(other.GetSafeHwnd())); }));
    }
}

using Refusal = unsigned int (*)(const wchar_t*, const wchar_t*, CWnd*);

TEST_F(TaskDialog, eachRefusalOfANameIsShown) {
    for (const Refusal refuse : {&CKelStandardTaskDialog::ShowInvalidNameEmptyNameDialog,
                                 &CKelStandardTaskDialog::ShowInvalidNameTooLongDialog,
                                 &CKelStandardTaskDialog::ShowInvalidNameUnsupportedCharacters}) {
        ui::Script script;
        script.waitForControl(IDCLOSE)
            .look("its title", [](const ui::View& view) { EXPECT_EQ(view.title(), L"Invalid Name"); })
            .press(VK_ESCAPE);
        ui::perform(script, [&] { refuse(L"Layer state", L"", nullptr); });
    }
}

TEST_F(TaskDialog, thePromptsForNamesSayTheirTextsAndTheirParentCannotBeUsedMeanwhile) {
    for (const Refusal prompt : {&CKelStandardTaskDialog::ShowDuplicateNameReplaceCancelDialog,
                                 &CKelStandardTaskDialog::ShowInvalidNameEmptyNameDialog,
                                 &CKelStandardTaskDialog::ShowInvalidNameTooLongDialog,
                                 &CKelStandardTaskDialog::ShowInvalidNameUnsupportedCharacters}) {
        TestDialog parent{IDD_FIXED};
        parent.onCommand = [&](UINT id) {
            if (id == IDC_TEST_BUTTON)
                prompt(L"Layer state", L"The very text", &parent);
        };
        ui::Script script;
        script.click(IDC_TEST_BUTTON)
            .waitUntil("the prompt",
                       [&](const ui::View& view) {
                           return view.window() != parent.GetSafeHwnd() && !testing::Matches(IsEmpty())(view.texts());
                       })
            .look("what it says",
                  [&](const ui::View& view) {
                      EXPECT_THAT(view.texts(), testing::Contains(HasSubstr(L"The very text")));
                      EXPECT_FALSE(IsWindowEnabled(parent.GetSafeHwnd()));
                  })
            .press(VK_ESCAPE)
            .waitUntil("the parent again", [&](const ui::View& view) { return view.window() == parent.GetSafeHwnd(); })
            .look("it can be used", [&](const ui::View&) { EXPECT_TRUE(IsWindowEnabled(parent.GetSafeHwnd())); });
        parent.run(script);
    }
}

TEST(TaskDialogFile, theRefusalsSayWhatIsNamed) {
    for (const wchar_t* key : {L"Kel.EmptyName", L"Kel.NameTooLong", L"Kel.NameCharacters"}) {
        const auto dialog = readTaskDialog(kFile, key, {{L"Kind", L"Layer state"}, {L"Detail", L"More."}});
        ASSERT_TRUE(dialog);
        EXPECT_THAT(dialog->content, HasSubstr(L"Layer state"));
        EXPECT_THAT(dialog->content, HasSubstr(L"More."));
    }
}

} // namespace
