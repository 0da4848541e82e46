// The message loops: being idle in the program's loop and in modal ones, and how they end.
#include "MfcTestIds.h"
#include "Program.h"

namespace {

/// Counts what an idle modal loop tells it.
class IdleWindow : public CDialog {
  public:
    using CDialog::CDialog;
    std::vector<LPARAM> kicks;
    int wanted = 0;

  protected:
    LRESULT OnKickIdle(WPARAM code, LPARAM count) {
        EXPECT_EQ(code, static_cast<WPARAM>(MSGF_DIALOGBOX));
        kicks.push_back(count);
        if (static_cast<int>(kicks.size()) >= wanted)
            EndDialog(IDOK);
        return static_cast<int>(kicks.size()) < wanted;
    }
    DECLARE_MESSAGE_MAP()
};

// clang-format off
BEGIN_MESSAGE_MAP(IdleWindow, CDialog)
    ON_MESSAGE(WM_KICKIDLE, &IdleWindow::OnKickIdle)
END_MESSAGE_MAP()
// clang-format on

class Owner : public Frame {
  public:
    int idleMessages = 0;

  protected:
    void OnEnterIdle(UINT why, CWnd*) {
        if (why == MSGF_DIALOGBOX)
            ++idleMessages;
    }
    DECLARE_MESSAGE_MAP()
};

// clang-format off
BEGIN_MESSAGE_MAP(Owner, Frame)
    ON_WM_ENTERIDLE()
END_MESSAGE_MAP()
// clang-format on

class LoopTest : public MfcTest {
  protected:
    void SetUp() override {
        MfcTest::SetUp();
        ASSERT_TRUE(owner.Create());
        runUntilIdle();
    }
    Owner owner;
};

TEST_F(LoopTest, AModalLoopIsIdleUntilNobodyWantsMore) {
    IdleWindow dialog(IDD_NESTED, &owner);
    dialog.wanted = 3;
    const LONG before = theProgram().idleCalls;
    EXPECT_EQ(dialog.DoModal(), IDOK);
    ASSERT_GE(dialog.kicks.size(), 3u);
    EXPECT_GE(owner.idleMessages, 1);
    EXPECT_GE(theProgram().idleCalls - before, 3);
}

TEST_F(LoopTest, AModalLoopOfAPlainWindowAnswersItsResult) {
    struct Modal : Frame {
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message == WM_APP)
                EndModalLoop(17);
            return Frame::WindowProc(message, wParam, lParam);
        }
    } window;
    ASSERT_TRUE(window.Create());
    window.PostMessage(WM_APP);
    EXPECT_EQ(window.RunModalLoop(), 17);
    EXPECT_FALSE(window.ContinueModal());
}

TEST_F(LoopTest, TheProgramsLoopEndsWithTheQuitMessagesCode) {
    ::PostQuitMessage(23);
    EXPECT_EQ(theProgram().CWinThread::Run(), 23);
}

TEST_F(LoopTest, TheProgramWithoutAMainWindowEndsAtOnce) {
    EXPECT_EQ(theProgram().Run(), 0);
}

TEST_F(LoopTest, TheProgramsLoopIsIdleOnceAndAgainWhenAsked) {
    struct Idling : Frame {
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message == WM_APP)
                ::PostQuitMessage(0);
            return Frame::WindowProc(message, wParam, lParam);
        }
    } window;
    ASSERT_TRUE(window.Create());
    runUntilIdle();
    const LONG before = theProgram().idleCalls;
    // The loop is empty at first, so it is idle; the posted timer of the window then ends it.
    window.SetTimer(1, 30, [](HWND handle, UINT, UINT_PTR, DWORD) { ::PostMessage(handle, WM_APP, 0, 0); });
    theProgram().CWinThread::Run();
    EXPECT_GE(theProgram().idleCalls - before, 1);
}

TEST_F(LoopTest, AMouseMoveWithoutMovementIsNoNews) {
    MSG message{};
    message.message = WM_MOUSEMOVE;
    message.pt = {50, 60};
    EXPECT_TRUE(theProgram().IsIdleMessage(&message));
    EXPECT_FALSE(theProgram().IsIdleMessage(&message));
    message.pt = {51, 60};
    EXPECT_TRUE(theProgram().IsIdleMessage(&message));
    message.message = WM_PAINT;
    EXPECT_FALSE(theProgram().IsIdleMessage(&message));
    message.message = WM_KEYDOWN;
    EXPECT_TRUE(theProgram().IsIdleMessage(&message));
}

} // namespace
