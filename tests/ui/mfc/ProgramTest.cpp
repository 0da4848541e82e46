// The program object: its names, its message boxes and its hourglass.
#include "Driver.h"
#include "MfcTestIds.h"
#include "Program.h"

namespace {

using ui::Script;
using ui::View;

class ProgramTest : public MfcTest {};

TEST_F(ProgramTest, IsTheOneThatTheLibraryKnows) {
    EXPECT_EQ(AfxGetApp(), &theProgram());
    EXPECT_EQ(AfxGetThread(), &theProgram());
    EXPECT_EQ(theProgram().m_hInstance, ::GetModuleHandle(nullptr));
    EXPECT_EQ(AfxGetInstanceHandle(), ::GetModuleHandle(nullptr));
    EXPECT_EQ(AfxGetResourceHandle(), ::GetModuleHandle(nullptr));
    EXPECT_STREQ(AfxGetAppName(), L"MFC tests");
    EXPECT_STREQ(theProgram().m_pszExeName, L"mfc_ui_tests");
}

TEST_F(ProgramTest, MessageBoxesShowTheProgramsNameAndAnIcon) {
    Frame frame;
    ASSERT_TRUE(frame.Create());
    theProgram().m_pMainWnd = &frame;
    theProgram().showsPrompts = true;
    int answer = 0;
    ui::perform(Script()
                    .waitForText(L"A plain text.")
                    .look("the box",
                          [&](const View& view) {
                              EXPECT_EQ(view.title(), L"MFC tests");
                              EXPECT_EQ(view.icon(), ::LoadIcon(nullptr, IDI_EXCLAMATION));
                              EXPECT_EQ(::GetWindow(view.window(), GW_OWNER), frame.m_hWnd);
                              EXPECT_FALSE(frame.IsWindowEnabled());
                          })
                    .click(IDCANCEL),
                [&] { answer = AfxMessageBox(IDS_PLAIN, MB_OKCANCEL); });
    EXPECT_EQ(answer, IDCANCEL);
    EXPECT_TRUE(frame.IsWindowEnabled());
}

TEST_F(ProgramTest, MessageBoxesStandOverTheInnermostDialog) {
    Frame frame;
    ASSERT_TRUE(frame.Create());
    theProgram().m_pMainWnd = &frame;
    theProgram().showsPrompts = true;
    struct Asking : CDialog {
        using CDialog::CDialog;
        void OnOK() override {
            AfxMessageBox(L"Really?", MB_YESNO);
            CDialog::OnOK();
        }
    } dialog(IDD_NESTED, &frame);
    ui::perform(Script()
                    .click(IDOK)
                    .waitForText(L"Really?")
                    .look("the owner",
                          [&](const View& view) {
                              EXPECT_EQ(::GetWindow(view.window(), GW_OWNER), dialog.m_hWnd);
                              EXPECT_FALSE(dialog.IsWindowEnabled());
                          })
                    .click(IDYES),
                [&] { EXPECT_EQ(dialog.DoModal(), IDOK); });
}

TEST_F(ProgramTest, TheHourglassStandsUntilTheLastIsGone) {
    const HCURSOR hourglass = ::LoadCursor(nullptr, IDC_WAIT);
    const HCURSOR arrow = ::LoadCursor(nullptr, IDC_ARROW);
    ::SetCursor(arrow);
    {
        CWaitCursor outer;
        EXPECT_EQ(::GetCursor(), hourglass);
        {
            CWaitCursor inner;
            EXPECT_EQ(::GetCursor(), hourglass);
        }
        EXPECT_EQ(::GetCursor(), hourglass);
        ::SetCursor(arrow);
        outer.Restore();
        EXPECT_EQ(::GetCursor(), hourglass);
        theProgram().BeginWaitCursor();
    }
    EXPECT_EQ(::GetCursor(), hourglass);
    theProgram().EndWaitCursor();
    EXPECT_EQ(::GetCursor(), arrow);
    theProgram().RestoreWaitCursor();
    EXPECT_EQ(::GetCursor(), arrow);
}

} // namespace
