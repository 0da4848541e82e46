// Task dialogs, prompts and the help, replayed with each of their calls failing once.

#include "SweepFixture.h"

#include "OrvUiServices.h"

using testing::IsSupersetOf;

namespace {

constexpr const wchar_t* kTaskFile = L"/KelTaskDialogs;component/TaskDialogs.xaml";

TEST_F(FrameworkSweep, ofATaskDialog) {
    scenario = [] {
        const auto dialog = made<COrvTaskDialog>();
        if (!dialog)
            return false;
        const TASKDIALOG_KEYVALUE pairs[] = {{L"FileName", L"C:\\plan.las"}};
        const bool loaded = dialog->LoadFromFile(kTaskFile, L"KelLayerApps.LayerStateSuccessfulImport", pairs, 1);
        int answer = -1;
        answered([&] { answer = dialog->ShowDialog(GetActiveWindow()); });
        EXPECT_TRUE(answer == 0 || (loaded && answer == kTaskDialogFirstCommand) || answer == IDCANCEL) << answer;
        return answer == kTaskDialogFirstCommand;
    };
    EXPECT_THAT(sweep(kFewCalls),
                IsSupersetOf({kHostCall, "_Znwy", "GetModuleHandleExW", "CreateFileW", "GetFileSizeEx", "ReadFile",
                              "GetProcAddress", "CreateXmlReader", "GetModuleHandleW", "TaskDialogIndirect"}));
}

TEST_F(FrameworkSweep, ofThePromptsForNames) {
    using Prompt = unsigned int (*)(const wchar_t*, const wchar_t*, CWnd*);
    const Prompt kPrompts[] = {&CKelStandardTaskDialog::ShowDuplicateNameReplaceCancelDialog,
                               &CKelStandardTaskDialog::ShowInvalidNameEmptyNameDialog,
                               &CKelStandardTaskDialog::ShowInvalidNameTooLongDialog,
                               &CKelStandardTaskDialog::ShowInvalidNameUnsupportedCharacters};
    for (const Prompt prompt : kPrompts) {
        const bool asks = prompt == kPrompts[0];
        const unsigned int done = asks ? unsigned{kTaskDialogFirstCommand} : unsigned{IDCLOSE};
        scenario = [prompt, asks, done] {
            unsigned int answer = 999;
            answered([&] { answer = prompt(L"Layer state", L"Plan", CWnd::GetActiveWindow()); });
            EXPECT_TRUE(answer == done || answer == IDCANCEL || (answer == 0 && !asks)) << answer;
            return answer == done;
        };
        EXPECT_THAT(sweep(2),
                    IsSupersetOf({kHostCall, "_Znwy", "GetModuleHandleExW", "CreateFileW", "GetFileSizeEx", "ReadFile",
                                  "GetProcAddress", "CreateXmlReader", "GetModuleHandleW", "TaskDialogIndirect"}));
    }
}

TEST_F(FrameworkSweep, ofTheHelp) {
    scenario = [] {
        answered([] { keledHelp(nullptr, L"NEWLAYERSTATEDIALOG", 0); });
        return true;
    };
    EXPECT_THAT(sweep(kEveryCall), IsSupersetOf({"_Znwy", "GetModuleHandleExW", "GetModuleFileNameW",
                                                 "GetFileAttributesW", "ShellExecuteExW"}));
}

} // namespace
