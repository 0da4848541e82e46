// Window messages: by number, by registered name, by handler macro, with the arguments that the handlers get.
#include "Program.h"

namespace {

using testing::ElementsAre;

constexpr UINT kMine = WM_APP + 1;
constexpr UINT kBases = WM_APP + 2;
const UINT kRegistered = ::RegisterWindowMessage(L"MFC tests: hello");
const UINT kOtherRegistered = ::RegisterWindowMessage(L"MFC tests: good-bye");

class BaseReceiver : public Frame {
  public:
    Log log;

  protected:
    LRESULT OnMine(WPARAM, LPARAM) {
        log.push_back("base mine");
        return 1;
    }
    LRESULT OnBases(WPARAM, LPARAM) {
        log.push_back("base");
        return 2;
    }
    DECLARE_MESSAGE_MAP()
};

class Receiver : public BaseReceiver {
  public:
    CPoint point;
    CSize size;

  protected:
    LRESULT OnMine(WPARAM wParam, LPARAM lParam) {
        log.push_back("mine " + std::to_string(wParam) + " " + std::to_string(lParam));
        return 42;
    }
    LRESULT OnRegistered(WPARAM wParam, LPARAM) {
        log.push_back("registered " + std::to_string(wParam));
        return 7;
    }
    void OnLButtonDown(UINT flags, CPoint at) {
        log.push_back("down " + std::to_string(flags));
        point = at;
    }
    BOOL OnMouseWheel(UINT flags, short delta, CPoint) {
        log.push_back("wheel " + std::to_string(flags) + " " + std::to_string(delta));
        return TRUE;
    }
    void OnKeyDown(UINT key, UINT repeat, UINT flags) {
        log.push_back("key " + std::to_string(key) + " " + std::to_string(repeat) + " " + std::to_string(flags));
    }
    void OnSize(UINT type, int cx, int cy) {
        BaseReceiver::OnSize(type, cx, cy);
        size = CSize(cx, cy);
    }
    void OnTimer(UINT_PTR id) { log.push_back("timer " + std::to_string(id)); }
    UINT OnGetDlgCode() { return DLGC_WANTARROWS; }
    void OnGetMinMaxInfo(MINMAXINFO* info) { info->ptMinTrackSize = {333, 222}; }
    BOOL OnSetCursor(CWnd* window, UINT hit, UINT message) {
        log.push_back("cursor " + std::to_string(window == this) + " " + std::to_string(hit) + " " +
                      std::to_string(message));
        return TRUE;
    }
    void OnSetFocus(CWnd* before) { log.push_back(before ? "focus from a window" : "focus from none"); }
    void OnContextMenu(CWnd* window, CPoint at) {
        log.push_back(std::string("menu ") + (window == this ? "own" : "other"));
        point = at;
    }
    void OnActivate(UINT state, CWnd*, BOOL minimized) {
        log.push_back("activate " + std::to_string(state) + " " + std::to_string(minimized));
    }
    DECLARE_MESSAGE_MAP()
};

// clang-format off
BEGIN_MESSAGE_MAP(BaseReceiver, Frame)
    ON_MESSAGE(kMine, &BaseReceiver::OnMine)
    ON_MESSAGE(kBases, &BaseReceiver::OnBases)
END_MESSAGE_MAP()

BEGIN_MESSAGE_MAP(Receiver, BaseReceiver)
    ON_MESSAGE(kMine, &Receiver::OnMine)
    ON_REGISTERED_MESSAGE(kRegistered, &Receiver::OnRegistered)
    ON_WM_LBUTTONDOWN()
    ON_WM_MOUSEWHEEL()
    ON_WM_KEYDOWN()
    ON_WM_SIZE()
    ON_WM_TIMER()
    ON_WM_GETDLGCODE()
    ON_WM_GETMINMAXINFO()
    ON_WM_SETCURSOR()
    ON_WM_SETFOCUS()
    ON_WM_CONTEXTMENU()
    ON_WM_ACTIVATE()
END_MESSAGE_MAP()
// clang-format on

class MessageTest : public MfcTest {
  protected:
    void SetUp() override {
        MfcTest::SetUp();
        ASSERT_TRUE(window.Create());
        runUntilIdle();
        window.log.clear();
    }
    void TearDown() override {
        window.DestroyWindow();
        MfcTest::TearDown();
    }
    LPARAM handle() const { return reinterpret_cast<LPARAM>(window.m_hWnd); }

    Receiver window;
};

TEST_F(MessageTest, ByNumberGoesToTheMostDerivedClassAndAnswersItsResult) {
    EXPECT_EQ(window.SendMessage(kMine, 3, -4), 42);
    EXPECT_EQ(window.SendMessage(kBases), 2);
    EXPECT_THAT(window.log, ElementsAre("mine 3 -4", "base"));
}

TEST_F(MessageTest, ByRegisteredNameReachesOnlyItsOwnEntry) {
    EXPECT_EQ(window.SendMessage(kRegistered, 5), 7);
    EXPECT_EQ(window.SendMessage(kOtherRegistered, 6), 0);
    EXPECT_EQ(window.SendMessage(0xC000, 7), 0);
    EXPECT_THAT(window.log, ElementsAre("registered 5"));
}

TEST_F(MessageTest, OfTheMouseHasSignedCoordinates) {
    window.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(-5, 7));
    EXPECT_EQ(window.point, CPoint(-5, 7));
    window.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, -120), 0);
    EXPECT_THAT(window.log, ElementsAre("down 1", "wheel 8 -120"));
}

TEST_F(MessageTest, OfTheContextMenuKeyHasNoPlace) {
    window.SendMessage(WM_CONTEXTMENU, static_cast<WPARAM>(handle()), -1);
    EXPECT_EQ(window.point, CPoint(-1, -1));
    EXPECT_THAT(window.log, ElementsAre("menu own"));
}

TEST_F(MessageTest, OfTheKeyboardIsSplitIntoKeyRepeatAndFlags) {
    window.SendMessage(WM_KEYDOWN, VK_F2, MAKELPARAM(2, 0x3C));
    EXPECT_THAT(window.log, ElementsAre("key 113 2 60"));
}

TEST_F(MessageTest, ResultsOfHandlersReachTheSender) {
    EXPECT_EQ(window.SendMessage(WM_GETDLGCODE), DLGC_WANTARROWS);
    MINMAXINFO info{};
    window.SendMessage(WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&info));
    EXPECT_EQ(CPoint(info.ptMinTrackSize), CPoint(333, 222));
    EXPECT_EQ(window.SendMessage(WM_SETCURSOR, static_cast<WPARAM>(handle()), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE)), 1);
    EXPECT_THAT(window.log, ElementsAre("cursor 1 1 512"));
}

TEST_F(MessageTest, OfFocusAndActivationNamesTheOtherWindow) {
    window.SendMessage(WM_SETFOCUS, 0);
    window.SendMessage(WM_SETFOCUS, reinterpret_cast<WPARAM>(::GetDesktopWindow()));
    window.SendMessage(WM_ACTIVATE, MAKEWPARAM(WA_CLICKACTIVE, 1), 0);
    EXPECT_THAT(window.log, ElementsAre("focus from none", "focus from a window", "activate 2 1"));
}

TEST_F(MessageTest, OfTimersArrivesThroughTheLoop) {
    window.SetTimer(9, 1, nullptr);
    for (int i = 0; i < 500 && window.log.empty(); ++i) {
        ::Sleep(1);
        runUntilIdle();
    }
    window.KillTimer(9);
    ASSERT_FALSE(window.log.empty());
    EXPECT_EQ(window.log.front(), "timer 9");
}

TEST_F(MessageTest, TheHandlersBaseDoesWhatWindowsDoes) {
    window.SetWindowPos(nullptr, 0, 0, 450, 350, SWP_NOMOVE | SWP_NOZORDER);
    CRect client;
    window.GetClientRect(&client);
    EXPECT_EQ(window.size, client.Size());
}

TEST_F(MessageTest, CurrentMessageIsTheInnermostAndComesBack) {
    struct Nesting : Frame {
        UINT during = 0;
        UINT after = 0;
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message == kMine) {
                SendMessage(kBases);
                after = GetCurrentMessage()->message;
            } else if (message == kBases) {
                during = GetCurrentMessage()->message;
            }
            return Frame::WindowProc(message, wParam, lParam);
        }
    } nesting;
    ASSERT_TRUE(nesting.Create());
    nesting.SendMessage(kMine);
    EXPECT_EQ(nesting.during, kBases);
    EXPECT_EQ(nesting.after, kMine);
}

TEST_F(MessageTest, ToDescendantsReachesChildrenAndGrandchildren) {
    Receiver outer;
    Receiver inner;
    ASSERT_TRUE(outer.CWnd::Create(AfxRegisterWndClass(0), L"", WS_VISIBLE, CRect(0, 0, 50, 50), &window, 1));
    ASSERT_TRUE(inner.CWnd::Create(AfxRegisterWndClass(0), L"", WS_VISIBLE, CRect(0, 0, 20, 20), &outer, 2));
    outer.log.clear();
    inner.log.clear();
    window.SendMessageToDescendants(kMine, 1, 2, FALSE);
    EXPECT_THAT(outer.log, ElementsAre("mine 1 2"));
    EXPECT_TRUE(inner.log.empty());
    window.SendMessageToDescendants(kMine, 1, 2, TRUE, TRUE);
    EXPECT_THAT(inner.log, ElementsAre("mine 1 2"));
    EXPECT_EQ(window.GetDescendantWindow(2), &inner);
    EXPECT_EQ(window.GetDescendantWindow(3), nullptr);
    outer.DestroyWindow();
}

} // namespace
