// The driver's own tests, on a plain dialog, a message box and a task dialog.

#include "Driver.h"

#include "SampleDialog.h"
#include "Watchdog.h"

#include <commctrl.h>
#include <gmock/gmock.h>
#include <gtest/gtest-spi.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using ui::Script;
using ui::View;

// What happened in the sample dialog, in the order in which it happened.
std::vector<std::string> g_events;
bool g_refusesToClose = false;

void fillList(HWND dialog) {
    const HWND list = GetDlgItem(dialog, IDC_SAMPLE_LIST);
    ListView_SetExtendedListViewStyle(list, LVS_EX_FULLROWSELECT);
    for (int column = 0; column < 2; ++column) {
        LVCOLUMNW header{};
        header.mask = LVCF_TEXT | LVCF_WIDTH;
        wchar_t text[] = L"A";
        text[0] = static_cast<wchar_t>(L'A' + column);
        header.pszText = text;
        header.cx = 100;
        SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&header));
    }
    for (int row = 0; row < 3; ++row) {
        LVITEMW item{};
        item.mask = LVIF_TEXT;
        item.iItem = row;
        std::wstring text = L"row " + std::to_wstring(row);
        item.pszText = text.data();
        SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
        ListView_SetItemText(list, row, 1, const_cast<wchar_t*>(L"more"));
    }
}

void onNotify(const NMHDR& header) {
    if (header.idFrom != IDC_SAMPLE_LIST)
        return;
    const int row = reinterpret_cast<const NMITEMACTIVATE&>(header).iItem;
    if (header.code == NM_CLICK)
        g_events.push_back("click on row " + std::to_string(row));
    else if (header.code == NM_DBLCLK)
        g_events.push_back("double click on row " + std::to_string(row));
}

void onCommand(HWND dialog, int control) {
    g_events.push_back("command " + std::to_string(control));
    if (control == IDC_SAMPLE_ASK)
        g_events.push_back("answer " +
                           std::to_string(MessageBoxW(dialog, L"Really?", L"Question", MB_YESNO | MB_ICONEXCLAMATION)));
    if ((control == IDOK || control == IDCANCEL) && !g_refusesToClose)
        EndDialog(dialog, control);
}

INT_PTR CALLBACK sampleProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG)
        fillList(dialog);
    else if (message == WM_NOTIFY)
        onNotify(*reinterpret_cast<const NMHDR*>(lParam));
    else if (message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED)
        onCommand(dialog, LOWORD(wParam));
    return message == WM_INITDIALOG;
}

void runSample() {
    DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_SAMPLE), nullptr, sampleProcedure, 0);
}

class DriverTest : public testing::Test {
  protected:
    void SetUp() override {
        g_events.clear();
        g_refusesToClose = false;
    }
};

TEST_F(DriverTest, ClicksTicksAndTypesAsAPersonWould) {
    ui::perform(Script()
                    .click(IDC_SAMPLE_EDIT)
                    .type(L"Wall-1 <x> é")
                    .click(IDC_SAMPLE_CHECK)
                    .look("what was typed",
                          [](const View& view) {
                              EXPECT_EQ(view.title(), L"Sample");
                              EXPECT_EQ(view.text(IDC_SAMPLE_EDIT), L"Wall-1 <x> é");
                              EXPECT_TRUE(view.isTicked(IDC_SAMPLE_CHECK));
                              EXPECT_FALSE(view.isEnabled(IDC_SAMPLE_DISABLED));
                              EXPECT_TRUE(view.isVisible(IDC_SAMPLE_DISABLED));
                              EXPECT_EQ(view.focusedControl(), IDC_SAMPLE_CHECK);
                          })
                    .click(IDOK),
                runSample);
    EXPECT_THAT(g_events, ElementsAre("command 102", "command 1"));
}

TEST_F(DriverTest, AltAndALetterReachesTheControlWithThatMnemonic) {
    ui::perform(Script()
                    .pressAlt(L't')
                    .look("the tick", [](const View& view) { EXPECT_TRUE(view.isTicked(IDC_SAMPLE_CHECK)); })
                    .press(VK_ESCAPE),
                runSample);
    EXPECT_THAT(g_events, ElementsAre("command 102", "command 2"));
}

TEST_F(DriverTest, AMnemonicIsTakenFromTheControlsText) {
    ui::perform(Script().pressMnemonicOf(IDC_SAMPLE_CHECK).press(VK_ESCAPE), runSample);
    EXPECT_THAT(g_events, ElementsAre("command 102", "command 2"));
}

TEST_F(DriverTest, KeysMoveTheFocusAndTheSelection) {
    ui::perform(Script()
                    .clickCell(IDC_SAMPLE_LIST, 0, 1)
                    .press(VK_DOWN)
                    .press(VK_DOWN, ui::holdShift)
                    .look("the rows",
                          [](const View& view) {
                              EXPECT_THAT(view.selectedRows(IDC_SAMPLE_LIST), ElementsAre(1, 2));
                              EXPECT_EQ(view.focusedRow(IDC_SAMPLE_LIST), 2);
                          })
                    .press(VK_TAB)
                    .look("the focus", [](const View& view) { EXPECT_EQ(view.focusedControl(), IDC_SAMPLE_ASK); })
                    .press(VK_ESCAPE),
                runSample);
}

TEST_F(DriverTest, ListsAreReadAndClickedByRowAndColumn) {
    ui::perform(Script()
                    .clickCell(IDC_SAMPLE_LIST, 2, 1)
                    .clickCell(IDC_SAMPLE_LIST, 0, 0, ui::holdControl)
                    .look("the list",
                          [](const View& view) {
                              EXPECT_THAT(view.headings(IDC_SAMPLE_LIST), ElementsAre(L"A", L"B"));
                              EXPECT_THAT(view.columnWidths(IDC_SAMPLE_LIST), ElementsAre(100, 100));
                              EXPECT_THAT(view.column(IDC_SAMPLE_LIST, 0), ElementsAre(L"row 0", L"row 1", L"row 2"));
                              EXPECT_THAT(view.cells(IDC_SAMPLE_LIST, 1), ElementsAre(L"row 1", L"more"));
                              EXPECT_THAT(view.selectedRows(IDC_SAMPLE_LIST), ElementsAre(0, 2));
                          })
                    .clickEmptySpace(IDC_SAMPLE_LIST)
                    .look("nothing selected",
                          [](const View& view) { EXPECT_THAT(view.selectedRows(IDC_SAMPLE_LIST), IsEmpty()); })
                    .press(VK_ESCAPE),
                runSample);
    EXPECT_THAT(g_events, ElementsAre("click on row 2", "click on row 0", "click on row -1", "command 2"));
}

TEST_F(DriverTest, TwoClicksOnOnePlaceAreNoDoubleClickAndADoubleClickIsOne) {
    ui::perform(Script()
                    .clickCell(IDC_SAMPLE_LIST, 1, 0)
                    .clickCell(IDC_SAMPLE_LIST, 1, 0)
                    .doubleClickCell(IDC_SAMPLE_LIST, 1, 0)
                    .press(VK_ESCAPE),
                runSample);
    EXPECT_THAT(g_events, ElementsAre("click on row 1", "click on row 1", "click on row 1", "double click on row 1",
                                      "command 2"));
}

TEST_F(DriverTest, TheButtonIsPressedOverOneCellWithAKeyHeldAndReleasedOverAnother) {
    ui::perform(Script()
                    .clickCell(IDC_SAMPLE_LIST, 2, 0)
                    .pressCell(IDC_SAMPLE_LIST, 0, 0, ui::holdControl)
                    .look("pressed but not yet released",
                          [](const View& view) {
                              EXPECT_THAT(view.selectedRows(IDC_SAMPLE_LIST), ElementsAre(0, 2));
                              EXPECT_THAT(g_events, ElementsAre("click on row 2"));
                              EXPECT_LT(GetKeyState(VK_LBUTTON), 0);
                              EXPECT_GE(GetKeyState(VK_CONTROL), 0);
                          })
                    .releaseOverCell(IDC_SAMPLE_LIST, 0, 1)
                    .press(VK_ESCAPE),
                runSample);
    EXPECT_THAT(g_events, ElementsAre("click on row 2", "click on row 0", "command 2"));
}

TEST_F(DriverTest, APointIsDoubleClicked) {
    const auto secondRow = [](const View& view) -> std::optional<POINT> {
        const std::optional<RECT> cell = view.cellRect(IDC_SAMPLE_LIST, 1, 0);
        return cell ? std::optional(ui::middleOf(*cell)) : std::nullopt;
    };
    ui::perform(Script().doubleClickPoint("the second row", secondRow).press(VK_ESCAPE), runSample);
    EXPECT_THAT(g_events, ElementsAre("click on row 1", "double click on row 1", "command 2"));
}

TEST_F(DriverTest, AMessageBoxIsReadAndAnswered) {
    ui::perform(Script()
                    .click(IDC_SAMPLE_ASK)
                    .waitForText(L"Really?")
                    .look("the icon",
                          [](const View& view) {
                              EXPECT_EQ(view.icon(), LoadIconW(nullptr, MAKEINTRESOURCEW(32515))); // exclamation
                              EXPECT_EQ(view.title(), L"Question");
                          })
                    .click(IDNO)
                    .click(IDCANCEL),
                runSample);
    EXPECT_THAT(g_events, ElementsAre("command 105", "answer 7", "command 2"));
}

TEST_F(DriverTest, ATaskDialogIsReadAndAnsweredByTheTextOfItsButton) {
    int pressed = 0;
    ui::perform(Script().waitForText(L"What now?").clickText(L"Replace it"), [&pressed] {
        const TASKDIALOG_BUTTON buttons[] = {{1001, L"Replace it"}, {1002, L"Keep it"}};
        TASKDIALOGCONFIG config{};
        config.cbSize = sizeof config;
        config.pszMainInstruction = L"What now?";
        config.cButtons = 2;
        config.pButtons = buttons;
        config.dwFlags = TDF_USE_COMMAND_LINKS;
        TaskDialogIndirect(&config, &pressed, nullptr, nullptr);
    });
    EXPECT_EQ(pressed, 1001);
}

TEST_F(DriverTest, AStepThatCantBeDoneWithinItsBoundIsAFailureAndTheDialogIsClosed) {
    bool well = true;
    EXPECT_NONFATAL_FAILURE(well = ui::perform(Script().waitForControl(IDOK).step(
                                                   "a step that can't be done", [](const View&) { return "so it is"; },
                                                   std::chrono::milliseconds(100)),
                                               runSample),
                            "so it is");
    EXPECT_FALSE(well);
    EXPECT_THAT(g_events, ElementsAre("command 2")); // the dialog was closed all the same
}

TEST_F(DriverTest, AnAssertionThatFailsInsideADialogIsToldWithItsStep) {
    testing::TestPartResultArray results;
    {
        testing::ScopedFakeTestPartResultReporter reporter(
            testing::ScopedFakeTestPartResultReporter::INTERCEPT_ONLY_CURRENT_THREAD, &results);
        ui::perform(Script().look("the title", [](const View& view) { EXPECT_EQ(view.title(), L"Other"); }).click(IDOK),
                    runSample);
    }
    ASSERT_EQ(results.size(), 1);
    EXPECT_THAT(results.GetTestPartResult(0).message(), testing::HasSubstr("Other"));
    EXPECT_THAT(g_events, ElementsAre("command 1")); // the steps after it went on
}

TEST_F(DriverTest, StepsThatAreLeftWhenTheDialogHasEndedAreAFailure) {
    EXPECT_NONFATAL_FAILURE(ui::perform(Script().click(IDOK).click(IDC_SAMPLE_CHECK), runSample),
                            "had ended before this step: click control 102");
}

TEST_F(DriverTest, StepsForAWindowThatIsStillOpenArePassedOverWhenItHasEnded) {
    EXPECT_TRUE(ui::perform(Script().click(IDOK).ifStillOpen().click(IDC_SAMPLE_CHECK), runSample));
    EXPECT_THAT(g_events, ElementsAre("command 1"));
    EXPECT_TRUE(ui::perform(Script().ifStillOpen().press(VK_ESCAPE), runSample));
    EXPECT_THAT(g_events, ElementsAre("command 1", "command 2"));
}

TEST_F(DriverTest, WhateverStandsInFrontIsAnsweredByEnter) {
    ui::perform(Script().click(IDC_SAMPLE_ASK).waitForText(L"Really?").answerAllUntil(IDC_SAMPLE_LIST).click(IDOK),
                runSample);
    EXPECT_THAT(g_events, ElementsAre("command 105", "answer 6", "command 1"));
}

TEST_F(DriverTest, AnActionThatOpensNoDialogLeavesItsStepsUndone) {
    EXPECT_NONFATAL_FAILURE(ui::perform(Script().click(IDOK), [] {}), "had ended before this step: click control 1");
}

TEST_F(DriverTest, ADialogLeftOpenAfterTheLastStepIsClosedAndAFailure) {
    EXPECT_NONFATAL_FAILURE(ui::perform(Script().click(IDC_SAMPLE_CHECK), runSample),
                            "the window \"Sample\" is still open");
    EXPECT_THAT(g_events, ElementsAre("command 102", "command 2"));
}

TEST_F(DriverTest, ADialogThatRefusesToCloseIsEndedByForce) {
    g_refusesToClose = true;
    EXPECT_NONFATAL_FAILURE(ui::perform(Script().click(IDC_SAMPLE_CHECK), runSample), "is still open");
}

TEST_F(DriverTest, AFailureSavesAPictureOfTheScreen) {
    DeleteFileW(ui::screenshotOfTest().c_str());
    EXPECT_NONFATAL_FAILURE(ui::perform(Script().step(
                                            "never", [](const View&) { return "no"; }, std::chrono::milliseconds(50)),
                                        runSample),
                            "DriverTest.AFailureSavesAPictureOfTheScreen.bmp");
    const std::wstring path = ui::screenshotFolder() + L"\\DriverTest.AFailureSavesAPictureOfTheScreen.bmp";
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    EXPECT_GT(GetFileSize(file, nullptr), 1280u * 1024u * 3u);
    CloseHandle(file);
}

TEST_F(DriverTest, ThePixelsOfAControlAreThoseOfTheScreen) {
    ui::perform(Script()
                    .click(IDC_SAMPLE_EDIT)
                    .look("an empty box",
                          [](const View& view) {
                              const std::vector<COLORREF> pixels = view.pixels(IDC_SAMPLE_EDIT);
                              const auto white = std::count(pixels.begin(), pixels.end(), GetSysColor(COLOR_WINDOW));
                              EXPECT_GT(white, static_cast<std::ptrdiff_t>(pixels.size() / 2));
                          })
                    .press(VK_ESCAPE),
                runSample);
}

TEST(WatchdogDeathTest, AStuckProgramSaysSoAndEnds) {
    EXPECT_EXIT(
        {
            const ui::Watchdog watchdog([] { std::fprintf(stderr, "stuck at step 7"); },
                                        std::chrono::milliseconds(300));
            Sleep(20000);
        },
        testing::ExitedWithCode(3), "stuck at step 7");
}

TEST(Watchdog, AProgramThatGetsOnLivesOn) {
    ui::Watchdog watchdog([] {}, std::chrono::milliseconds(500));
    for (int i = 0; i < 10; ++i) {
        Sleep(100);
        watchdog.progress();
    }
}

} // namespace
