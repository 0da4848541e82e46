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

/// A file with that content, while it lives.
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

TEST(TaskDialogFile, isRefusedWhereItIsBroken) {
    EXPECT_TRUE(loads("<T><TaskDialog Key='K'><Instruction>x</Instruction></TaskDialog></T>"));
    EXPECT_FALSE(loads("")) << "empty";
    EXPECT_FALSE(loads("<T><TaskDialog Key='K'><Instruction>x</Instruction></TaskDialog>")) << "no end";
    EXPECT_FALSE(loads("<T><TaskDialog Key='K'></T></TaskDialog>")) << "crossed elements";
    EXPECT_FALSE(loads("<T><TaskDialog Key='K'/></T>")) << "nothing to say";
    EXPECT_FALSE(loads("<T><TaskDialog Key='K' Icon='Skull'><Instruction>x</Instruction></TaskDialog></T>"));
    EXPECT_FALSE(loads("<T><TaskDialog Key='K' Buttons='OK Perhaps'><Instruction>x</Instruction></TaskDialog></T>"));
    EXPECT_FALSE(loads("<T><Other Key='K'><Instruction>x</Instruction></Other></T>"));
}

class TaskDialog : public DialogFixture {
  protected:
    COrvTaskDialog dialog;

    /// The control of that number in the active window, which is the task dialog.
    static HWND button(int id) {
        struct Search {
            int id;
            HWND found;
        } search = {id, nullptr};
        EnumChildWindows(
            GetActiveWindow(),
            [](HWND window, LPARAM parameter) -> BOOL {
                auto& wanted = *reinterpret_cast<Search*>(parameter);
                if (GetDlgCtrlID(window) == wanted.id && IsWindowVisible(window))
                    wanted.found = window;
                return wanted.found == nullptr;
            },
            reinterpret_cast<LPARAM>(&search));
        return search.found;
    }
    static Step waitFor(int id) {
        return {"the button " + std::to_string(id) + " is there", [id] { return button(id) != nullptr; }};
    }
};

TEST_F(TaskDialog, aClickOnACommandAnswersItsNumber) {
    const TASKDIALOG_KEYVALUE pairs[] = {{L"FileName", L"C:\\plan.las"}};
    ASSERT_TRUE(dialog.LoadFromFile(kFile, kImported, pairs, 1));
    {
        Steps steps({waitFor(1001), act("click", [] { click(button(1001)); })});
        EXPECT_EQ(dialog.ShowDialog(nullptr), kTaskDialogFirstCommand);
    }
    {
        Steps steps({waitFor(1002), act("click", [] { click(button(1002)); })});
        EXPECT_EQ(dialog.ShowDialog(nullptr), kTaskDialogFirstCommand + 1);
    }
}

TEST_F(TaskDialog, escapeAnswersCancel) {
    ASSERT_TRUE(dialog.LoadFromFile(kFile, L"KelLayerApps.CannotRestoreLayerState", nullptr, 0));
    Steps steps({waitFor(IDCLOSE), act("Escape", [] { pressKey(VK_ESCAPE); })});
    EXPECT_EQ(dialog.ShowDialog(nullptr), IDCANCEL);
}

TEST_F(TaskDialog, itsTextsAreShown) {
    ASSERT_TRUE(dialog.LoadFromFile(kFile, L"KelLayerApps.CannotRestoreLayerState", nullptr, 0));
    std::wstring title;
    Steps steps({waitFor(IDCLOSE), act("read and close", [&] {
                     title = textOf(GetActiveWindow());
                     click(button(IDCLOSE));
                 })});
    EXPECT_EQ(dialog.ShowDialog(nullptr), IDCLOSE);
    EXPECT_EQ(title, L"Layer States");
}

TEST_F(TaskDialog, itsParentCannotBeUsedMeanwhile) {
    TestDialog parent{IDD_FIXED};
    ASSERT_TRUE(dialog.LoadFromFile(kFile, L"KelLayerApps.LayerStateNoneFound", nullptr, 0));
    bool enabled = true;
    Steps steps({act("show it", [&] { dialog.ShowDialog(parent.GetSafeHwnd()); }),
                 waitFor(IDCLOSE),
                 act("look and close",
                     [&] {
                         enabled = IsWindowEnabled(parent.GetSafeHwnd());
                         click(button(IDCLOSE));
                     }),
                 {"the parent is usable again", [&] { return IsWindowEnabled(parent.GetSafeHwnd()) != 0; }},
                 parent.close()});
    parent.DoModal();
    EXPECT_FALSE(enabled);
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

using Refusal = unsigned int (*)(const wchar_t*, const wchar_t*, CWnd*);

TEST_F(TaskDialog, replacingAnExistingNameIsTheFirstCommand) {
    std::wstring title;
    Steps steps({waitFor(1001), act("replace", [&] {
                     title = textOf(GetActiveWindow());
                     click(button(1001));
                 })});
    EXPECT_EQ(CKelStandardTaskDialog::ShowDuplicateNameReplaceCancelDialog(L"Layer state", L"Plan", nullptr),
              static_cast<unsigned int>(kTaskDialogFirstCommand));
    EXPECT_EQ(title, L"Name Exists");
    EXPECT_THAT(instruments::trace(),
                ElementsAre("ShowDuplicateNameReplaceCancelDialog(\"Layer state\", \"Plan\") = 1001"));
}

TEST_F(TaskDialog, notReplacingAnExistingNameIsAnythingElse) {
    Steps steps({waitFor(IDCANCEL), act("Escape", [] { pressKey(VK_ESCAPE); })});
    EXPECT_NE(CKelStandardTaskDialog::ShowDuplicateNameReplaceCancelDialog(L"Layer state", L"Plan", nullptr),
              static_cast<unsigned int>(kTaskDialogFirstCommand));
}

TEST_F(TaskDialog, eachRefusalOfANameIsShown) {
    for (const Refusal refuse : {&CKelStandardTaskDialog::ShowInvalidNameEmptyNameDialog,
                                 &CKelStandardTaskDialog::ShowInvalidNameTooLongDialog,
                                 &CKelStandardTaskDialog::ShowInvalidNameUnsupportedCharacters}) {
        std::wstring title;
        Steps steps({waitFor(IDCLOSE), act("close", [&] {
                         title = textOf(GetActiveWindow());
                         pressKey(VK_ESCAPE);
                     })});
        refuse(L"Layer state", L"", nullptr);
        EXPECT_EQ(title, L"Invalid Name");
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
