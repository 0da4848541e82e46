// The command line, typed into by a scripted person.

#include "WorkbenchFixture.h"
#include "WorkbenchIds.h"

using CommandLineTest = WorkbenchTest;
using ui::Script;
using ui::View;

namespace {

std::wstring typed(const View& view) {
    return View(view.control(IDC_COMMAND_PANE)).text(IDC_COMMAND_EDIT);
}

Script expectTyped(const std::wstring& text) {
    Script script;
    script.waitUntil("the command line shows \"" + ui::narrow(text) + "\"",
                     [text](const View& view) { return typed(view) == text; });
    return script;
}

} // namespace

TEST_F(CommandLineTest, TakesTypingAtOnceAndEndsTheProgramByQuit) {
    runWith(command(L"quit"));
    EXPECT_EQ(window->m_hWnd, nullptr);
}

TEST_F(CommandLineTest, AnswersAnUnknownCommandAndShowsTheAnswerInTheStatusLine) {
    Script script;
    script.then(command(L"foo"))
        .then(said(L"Command: foo\r\nUnknown command \"FOO\": HELP lists the commands."))
        .look("the status line",
              [](const View& view) {
                  const std::wstring text = view.text(IDC_STATUS_LINE);
                  EXPECT_TRUE(text.starts_with(L"Base | Model | ")) << ui::narrow(text);
                  EXPECT_TRUE(text.ends_with(L"mm | Unknown command \"FOO\": HELP lists the commands."))
                      << ui::narrow(text);
              })
        .then(command(L"quit"));
    runWith(script);
}

TEST_F(CommandLineTest, RecallsWhatWasRunWithTheArrowKeys) {
    Script script;
    script.then(command(L"one")).then(command(L"two")).then(said(L"\"TWO\""));
    script.press(VK_UP).then(expectTyped(L"two"));
    script.press(VK_UP).then(expectTyped(L"one"));
    script.press(VK_DOWN).then(expectTyped(L"two"));
    script.press(VK_DOWN).then(expectTyped(L""));
    script.then(command(L"quit"));
    runWith(script);
}

TEST_F(CommandLineTest, EscClearsTheLine) {
    Script script;
    script.type(L"half a line").then(expectTyped(L"half a line")).press(VK_ESCAPE).then(expectTyped(L""));
    script.then(command(L"quit"));
    runWith(script);
}

TEST_F(CommandLineTest, AClickIntoTheDrawingLeavesTheTypingInTheCommandLine) {
    Script script;
    script.click(IDC_DRAWING_VIEW).then(command(L"quit"));
    runWith(script);
}

TEST_F(CommandLineTest, ListsTheCommandsOnF1) {
    Script script;
    script.press(VK_F1).then(said(L"QUIT - Ends the Workbench.")).then(command(L"quit"));
    runWith(script);
}

TEST_F(CommandLineTest, TabCompletesWhatStandsBeforeTheCaret) {
    Script script;
    script.type(L"laye").press(VK_TAB).then(expectTyped(L"LAYER "));
    script.type(L"th").press(VK_TAB).then(expectTyped(L"LAYER THAW "));
    script.type(L"b").press(VK_TAB).then(expectTyped(L"LAYER THAW Base "));
    // The layer was thawed already, so there is nothing to be saved.
    script.press(VK_RETURN).then(said(L"1 layer is thawed.")).then(command(L"QUIT"));
    runWith(script);
}

TEST_F(CommandLineTest, TabListsWhatItCouldBe) {
    Script script;
    script.type(L"RE").press(VK_TAB).then(said(L"REDO  REFERENCES  REGEN  RELOAD")).then(expectTyped(L"RE"));
    script.press(VK_ESCAPE).then(expectTyped(L"")).then(command(L"QUIT"));
    runWith(script);
}

TEST_F(CommandLineTest, EnterAloneRepeatsTheLastLine) {
    Script script;
    script.then(command(L"LAYER LIST")).then(said(L"Base: on"));
    script.press(VK_RETURN).then(said(L"(current)\r\nCommand: LAYER LIST\r\nBase: on")).then(command(L"QUIT"));
    runWith(script);
}

TEST_F(CommandLineTest, EnterAloneAtTheStartDoesNothing) {
    Script script;
    script.press(VK_RETURN).then(command(L"LAYER LIST")).then(said(L"Base: on"));
    script
        .look("nothing was said before",
              [](const View& view) {
                  EXPECT_TRUE(
                      View(view.control(IDC_COMMAND_PANE)).text(IDC_COMMAND_HISTORY).starts_with(L"Command: LAYER"));
              })
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(CommandLineTest, KeysAndMenuItemsRunCommands) {
    Script script;
    script.press('N', ui::holdControl).then(said(L"Command: NEW\r\nA new drawing is open."));
    script.press(VK_OEM_PLUS, ui::holdControl).then(said(L"Command: ZOOM IN"));
    script.press(VK_OEM_MINUS, ui::holdControl).then(said(L"Command: ZOOM OUT"));
    script.press(VK_F5).then(said(L"Command: REGEN"));
    script.pressAlt(L'o').press('Y').then(said(L"Command: LAYER LIST"));
    script.then(command(L"QUIT"));
    runWith(script);
}

TEST_F(CommandLineTest, LongNamesLeaveTheStatusLineRoomForTheMessage) {
    Script script;
    script.then(command(L"LAYER MAKE " + std::wstring(200, L'w')))
        .then(said(L"is made and is the current layer."))
        .waitUntil("the message is painted behind the names",
                   [](const View& view) {
                       const RECT rect = view.rect(IDC_STATUS_LINE);
                       const auto width = static_cast<std::size_t>(rect.right - rect.left);
                       const auto pixels = view.pixels(IDC_STATUS_LINE);
                       int painted = 0;
                       for (std::size_t i = 0; i < pixels.size(); ++i)
                           painted += i % width > width / 3 && pixels[i] == workbench::colors::kBarTextDim;
                       return painted > 100;
                   })
        .then(command(L"QUIT"))
        .then(answerBox(L"Save the changes", IDNO));
    runWith(script);
}
