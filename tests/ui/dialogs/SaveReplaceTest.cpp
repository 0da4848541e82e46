// A name that a state bears already: the dialog offers to replace the state.

#include "SaveDialogTest.h"

namespace {

using testing::ElementsAreArray;
using testing::IsEmpty;
using ui::Script;
using ui::View;

class SaveReplace : public SaveDialogTest {
  protected:
    static Script prompt() {
        Script script;
        return script.waitForControl(1001);
    }
};

TEST_F(SaveReplace, ReplacingDeletesTheStateAndSavesItAnew) {
    open(house());
    save(countFromHere().type(L"Plan").pressAlt(L'd').type(L"Mine").press(VK_RETURN).click(1001));
    EXPECT_THAT(instruments::trace(), ElementsAreArray(joined({checking("Plan", true),
                                                               asking("Plan", 1001),
                                                               {"deleteLayerState(\"Plan\") = 0"},
                                                               saving("Plan", 1023, "Mine"),
                                                               restoring("Plan")})));
    EXPECT_EQ(storedNames(), (std::vector<std::wstring>{L"Bare", L"Plan"}));
    EXPECT_EQ(stored(L"Plan")->description, L"Mine");
}

TEST_F(SaveReplace, CancellingThePromptLeadsBackToTheName) {
    open(house());
    save(countFromHere()
             .type(L" Plan ")
             .press(VK_RETURN)
             .then(prompt())
             .press(VK_ESCAPE)
             .then(nameIsSelected(L"Plan"))
             .look("what was asked",
                   [](const View&) {
                       EXPECT_THAT(instruments::trace(),
                                   ElementsAreArray(joined({checking("Plan", true), asking("Plan", IDCANCEL)})));
                   })
             .type(L"New")
             .press(VK_RETURN));
    EXPECT_EQ(storedNames(), (std::vector<std::wstring>{L"Plan", L"Bare", L"New"}));
    EXPECT_EQ(stored(L"Plan")->description, L"All of it");
}

TEST_F(SaveReplace, ThePromptNamesTheStateLiterallyAndTheFieldBehindItIsTrimmed) {
    const std::wstring name = L"100 % & %s it's \x4E2D";
    open(house().state(name, MaskOn));
    HWND dialog = nullptr;
    save(Script()
             .type(L"  " + name + L" ")
             .look("the dialog", [&dialog](const View& view) { dialog = view.window(); })
             .press(VK_RETURN)
             .then(prompt())
             .look("its texts",
                   [&](const View& view) {
                       std::wstring all;
                       for (const std::wstring& text : view.texts())
                           all += ui::withoutMnemonic(text) + L"\n";
                       EXPECT_NE(all.find(name), std::wstring::npos) << ui::narrow(all);
                       EXPECT_NE(all.find(resourceText(IDS_LSTATE_KIND)), std::wstring::npos) << ui::narrow(all);
                       EXPECT_EQ(View(dialog).text(IDC_LSTATE_SAVE_NAME), name);
                   })
             .press(VK_ESCAPE)
             .waitForControl(IDC_LSTATE_SAVE_NAME)
             .press(VK_ESCAPE));
}

TEST_F(SaveReplace, ThePromptBelongsToTheMainWindowAndNothingElseCanBeUsedMeanwhile) {
    open(house());
    CWnd mainWindow;
    ASSERT_TRUE(mainWindow.CreateEx(0, AfxRegisterWndClass(0), L"Main window", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                    CRect(0, 0, 600, 400), nullptr, 0));
    AfxGetThread()->m_pMainWnd = &mainWindow;
    HWND dialog = nullptr;
    save(Script()
             .type(L"Plan")
             .look("the dialog", [&dialog](const View& view) { dialog = view.window(); })
             .press(VK_RETURN)
             .then(prompt())
             .look("its owner and the others",
                   [&](const View& view) {
                       EXPECT_EQ(GetWindow(view.window(), GW_OWNER), mainWindow.m_hWnd);
                       EXPECT_FALSE(IsWindowEnabled(mainWindow.m_hWnd));
                       EXPECT_FALSE(IsWindowEnabled(dialog));
                   })
             .press(VK_ESCAPE)
             .then(nameIsSelected(L"Plan"))
             .press(VK_ESCAPE));
    AfxGetThread()->m_pMainWnd = nullptr;
    EXPECT_TRUE(IsWindowEnabled(mainWindow.m_hWnd));
    mainWindow.DestroyWindow();
}

TEST_F(SaveReplace, APromptThatCantBeShownReplacesNothing) {
    open(house());
    instruments::failCall("ShowDuplicateNameReplaceCancelDialog", 1);
    save(Script().type(L"Plan").press(VK_RETURN).then(nameIsSelected(L"Plan")).press(VK_ESCAPE));
    EXPECT_TRUE(instruments::faultStruck());
    EXPECT_THAT(ui::callsOf("deleteLayerState"), IsEmpty());
}

TEST_F(SaveReplace, WhetherTheNameIsThereIsForTheHostToSayWhateverTheListHolds) {
    open(house());
    instruments::failCall("hasLayerState", 1);
    save(Script().then(countFromHere()).type(L"Plan").press(VK_RETURN));
    EXPECT_THAT(instruments::trace(),
                ElementsAreArray(joined({checking("Plan", false), saving("Plan", 1023, ""), restoring("Plan")})));

    instruments::failCall("getLayerStateNames", 1);
    save(Script()
             .look("the list is empty", [](const View& view) { EXPECT_THAT(listedNames(view), IsEmpty()); })
             .type(L"bARE")
             .press(VK_RETURN)
             .then(prompt())
             .press(VK_ESCAPE)
             .then(nameIsSelected(L"bARE"))
             .press(VK_ESCAPE));
    EXPECT_EQ(storedNames(), (std::vector<std::wstring>{L"Plan", L"Bare"}));
}

TEST_F(SaveReplace, AnotherCaseOfTheNameReplacesTheStateAndIsTaken) {
    open(house());
    save(Script().type(L"PLAN").press(VK_RETURN).click(1001));
    EXPECT_EQ(storedNames(), (std::vector<std::wstring>{L"Bare", L"PLAN"}));
}

} // namespace
