// A window and its object: creation, subclassing, attaching, and what each end does.
#include "MfcTestIds.h"
#include "Program.h"

#include <algorithm>

namespace {

using testing::ElementsAre;

class Recorder : public Frame {
  public:
    std::vector<UINT> messages;
    Log log;
    bool refuses = false;

    BOOL PreCreateWindow(CREATESTRUCT& cs) override {
        log.push_back("pre-create");
        return !refuses && Frame::PreCreateWindow(cs);
    }
    void PreSubclassWindow() override { log.push_back(m_hWnd ? "pre-subclass" : "pre-subclass without window"); }
    void PostNcDestroy() override { log.push_back(m_hWnd ? "post with window" : "post"); }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        messages.push_back(message);
        return Frame::WindowProc(message, wParam, lParam);
    }
};

/// Counts what a control is told.
class Spy : public CEdit {
  public:
    int presses = 0;

  protected:
    void OnChar(UINT key, UINT repeat, UINT flags) {
        ++presses;
        CEdit::OnChar(key, repeat, flags);
    }
    DECLARE_MESSAGE_MAP()
};

// clang-format off
BEGIN_MESSAGE_MAP(Spy, CEdit)
    ON_WM_CHAR()
END_MESSAGE_MAP()
// clang-format on

class WindowTest : public MfcTest {
  protected:
    HWND makeEdit(CWnd& parent, int id) {
        return ::CreateWindow(L"EDIT", L"", WS_CHILD | WS_VISIBLE, 0, 0, 100, 20, parent.m_hWnd,
                              reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), AfxGetInstanceHandle(), nullptr);
    }
};

TEST_F(WindowTest, GetsAllMessagesFromItsCreationOn) {
    Recorder window;
    ASSERT_TRUE(window.Create());
    EXPECT_THAT(window.log, ElementsAre("pre-create", "pre-subclass"));
    ASSERT_FALSE(window.messages.empty());
    const auto created = std::find(window.messages.begin(), window.messages.end(), WM_NCCREATE);
    EXPECT_NE(created, window.messages.end());
    EXPECT_NE(std::find(created, window.messages.end(), WM_CREATE), window.messages.end());
    EXPECT_EQ(CWnd::FromHandlePermanent(window.m_hWnd), &window);
}

TEST_F(WindowTest, TellsItsObjectOfItsEndAfterTheHandleIsGone) {
    Recorder window;
    ASSERT_TRUE(window.Create());
    const HWND handle = window.m_hWnd;
    EXPECT_TRUE(window.DestroyWindow());
    EXPECT_EQ(window.m_hWnd, nullptr);
    EXPECT_EQ(window.log.back(), "post");
    EXPECT_EQ(window.messages.back(), static_cast<UINT>(WM_NCDESTROY));
    EXPECT_FALSE(::IsWindow(handle));
    EXPECT_EQ(CWnd::FromHandlePermanent(handle), nullptr);
    EXPECT_FALSE(window.DestroyWindow());
}

TEST_F(WindowTest, ThatIsRefusedBeforeItsCreationStillEndsItsObject) {
    Recorder window;
    window.refuses = true;
    EXPECT_FALSE(window.Create());
    EXPECT_THAT(window.log, ElementsAre("pre-create", "post"));
}

TEST_F(WindowTest, OfAClassThatIsNotRegisteredEndsItsObject) {
    Recorder window;
    EXPECT_FALSE(window.CreateEx(0, L"no such class", L"", WS_POPUP, CRect(0, 0, 10, 10), nullptr, 0));
    EXPECT_THAT(window.log, ElementsAre("pre-create", "post"));
    // The hook is gone: the next window that is created gets no object.
    Frame frame;
    ASSERT_TRUE(frame.Create());
    const HWND plain = makeEdit(frame, 1);
    EXPECT_EQ(CWnd::FromHandlePermanent(plain), nullptr);
    EXPECT_EQ(window.m_hWnd, nullptr);
}

TEST_F(WindowTest, MayDeleteItsObjectAtItsEnd) {
    struct SelfDeleting : Frame {
        explicit SelfDeleting(bool& gone) : m_gone(gone) {}
        ~SelfDeleting() override { m_gone = true; }
        void PostNcDestroy() override { delete this; }
        bool& m_gone;
    };
    bool gone = false;
    auto* const window = new SelfDeleting(gone);
    ASSERT_TRUE(window->Create());
    EXPECT_TRUE(window->DestroyWindow());
    EXPECT_TRUE(gone);
}

TEST_F(WindowTest, EndsWithItsObject) {
    HWND handle = nullptr;
    {
        Frame window;
        ASSERT_TRUE(window.Create());
        handle = window.m_hWnd;
    }
    EXPECT_FALSE(::IsWindow(handle));
}

TEST_F(WindowTest, SubclassedGetsItsMessagesFirstAndTheControlAfterwards) {
    Frame frame;
    ASSERT_TRUE(frame.Create());
    makeEdit(frame, 7);
    Spy spy;
    ASSERT_TRUE(spy.SubclassDlgItem(7, &frame));
    spy.SendMessage(WM_CHAR, L'a');
    EXPECT_EQ(spy.presses, 1);
    CString text;
    spy.GetWindowText(text);
    EXPECT_EQ(text, L"a");
}

TEST_F(WindowTest, UnsubclassedIsAsBefore) {
    Frame frame;
    ASSERT_TRUE(frame.Create());
    const HWND edit = makeEdit(frame, 7);
    const auto before = ::GetWindowLongPtr(edit, GWLP_WNDPROC);
    Spy spy;
    ASSERT_TRUE(spy.SubclassWindow(edit));
    EXPECT_NE(::GetWindowLongPtr(edit, GWLP_WNDPROC), before);
    EXPECT_EQ(spy.UnsubclassWindow(), edit);
    EXPECT_EQ(::GetWindowLongPtr(edit, GWLP_WNDPROC), before);
    EXPECT_EQ(spy.m_hWnd, nullptr);
    ::SendMessage(edit, WM_CHAR, L'a', 0);
    EXPECT_EQ(spy.presses, 0);
    ASSERT_TRUE(spy.SubclassWindow(edit));
    ::SendMessage(edit, WM_CHAR, L'b', 0);
    EXPECT_EQ(spy.presses, 1);
}

TEST_F(WindowTest, UnsubclassedObjectServesAControlOfAnotherKind) {
    Frame frame;
    ASSERT_TRUE(frame.Create());
    CWnd object;
    ASSERT_TRUE(object.SubclassWindow(makeEdit(frame, 7)));
    object.UnsubclassWindow();
    CButton button;
    ASSERT_TRUE(button.Create(L"", BS_PUSHBUTTON, CRect(0, 0, 10, 10), &frame, 8));
    ASSERT_TRUE(object.SubclassWindow(button.UnsubclassWindow()));
    EXPECT_TRUE(object.SendMessage(WM_GETDLGCODE) & DLGC_BUTTON);
}

TEST_F(WindowTest, IsSubclassedByOneObjectOnly) {
    Frame frame;
    ASSERT_TRUE(frame.Create());
    const HWND edit = makeEdit(frame, 7);
    Spy first;
    Spy second;
    EXPECT_TRUE(first.SubclassWindow(edit));
    EXPECT_FALSE(second.SubclassWindow(edit));
    EXPECT_FALSE(first.SubclassWindow(makeEdit(frame, 8)));
    EXPECT_FALSE(second.SubclassDlgItem(99, &frame));
    EXPECT_EQ(second.m_hWnd, nullptr);
}

TEST_F(WindowTest, SubclassedTellsItsObjectOfItsEnd) {
    Frame frame;
    ASSERT_TRUE(frame.Create());
    makeEdit(frame, 7);
    Spy spy;
    ASSERT_TRUE(spy.SubclassDlgItem(7, &frame));
    frame.DestroyWindow();
    EXPECT_EQ(spy.m_hWnd, nullptr);
}

TEST_F(WindowTest, AttachedIsKnownAndDetachedLivesOn) {
    Frame frame;
    ASSERT_TRUE(frame.Create());
    const HWND edit = makeEdit(frame, 7);
    {
        CWnd window;
        ASSERT_TRUE(window.Attach(edit));
        EXPECT_EQ(CWnd::FromHandle(edit), &window);
        EXPECT_FALSE(window.Attach(edit));
        EXPECT_EQ(window.Detach(), edit);
        EXPECT_EQ(window.Detach(), nullptr);
    }
    EXPECT_TRUE(::IsWindow(edit));
    EXPECT_EQ(CWnd::FromHandlePermanent(edit), nullptr);
}

TEST_F(WindowTest, AttachedIsDestroyedThroughItsObject) {
    Frame frame;
    ASSERT_TRUE(frame.Create());
    const HWND edit = makeEdit(frame, 7);
    CWnd window;
    ASSERT_TRUE(window.Attach(edit));
    EXPECT_TRUE(window.DestroyWindow());
    EXPECT_EQ(window.m_hWnd, nullptr);
    EXPECT_FALSE(::IsWindow(edit));
}

TEST_F(WindowTest, MainWindowsEndEndsTheLoop) {
    Frame frame;
    ASSERT_TRUE(frame.Create());
    runUntilIdle();
    theProgram().m_pMainWnd = &frame;
    EXPECT_EQ(AfxGetMainWnd(), &frame);
    frame.DestroyWindow();
    EXPECT_EQ(theProgram().m_pMainWnd, nullptr);
    MSG message;
    EXPECT_TRUE(::PeekMessage(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
}

TEST_F(WindowTest, StylesChangeOnlyWhenTheyDiffer) {
    Frame frame;
    ASSERT_TRUE(frame.Create());
    EXPECT_TRUE(frame.ModifyStyle(WS_MAXIMIZEBOX, 0));
    EXPECT_FALSE(frame.GetStyle() & WS_MAXIMIZEBOX);
    EXPECT_FALSE(frame.ModifyStyle(WS_MAXIMIZEBOX, 0));
    EXPECT_TRUE(frame.ModifyStyleEx(0, WS_EX_TOOLWINDOW, SWP_FRAMECHANGED));
    EXPECT_TRUE(frame.GetExStyle() & WS_EX_TOOLWINDOW);
    EXPECT_FALSE(frame.ModifyStyleEx(0, WS_EX_TOOLWINDOW));
}

TEST_F(WindowTest, CoordinatesOfRectanglesAreMapped) {
    Frame frame;
    ASSERT_TRUE(frame.Create());
    CPoint origin(0, 0);
    frame.ClientToScreen(&origin);
    CRect rect(1, 2, 3, 4);
    frame.ClientToScreen(rect);
    EXPECT_EQ(rect, CRect(1, 2, 3, 4) + origin);
    frame.ScreenToClient(rect);
    EXPECT_EQ(rect, CRect(1, 2, 3, 4));
}

TEST_F(WindowTest, CentersOverItsOwner) {
    Frame owner;
    ASSERT_TRUE(owner.CreateAt(CRect(200, 200, 600, 600)));
    CWnd popup;
    ASSERT_TRUE(popup.CreateEx(0, AfxRegisterWndClass(0), L"", WS_POPUP, CRect(0, 0, 100, 60), &owner, 0));
    popup.CenterWindow();
    CRect rect;
    popup.GetWindowRect(rect);
    EXPECT_EQ(rect, CRect(350, 370, 450, 430));
}

TEST_F(WindowTest, RelativesAreFoundUpToTheTop) {
    Frame frame;
    Frame child;
    ASSERT_TRUE(frame.Create());
    ASSERT_TRUE(child.CWnd::Create(AfxRegisterWndClass(0), L"", WS_VISIBLE, CRect(0, 0, 50, 50), &frame, 5));
    EXPECT_EQ(child.GetParent(), &frame);
    EXPECT_EQ(child.GetOwner(), &frame);
    EXPECT_EQ(child.GetTopLevelParent(), &frame);
    EXPECT_EQ(frame.GetDlgItem(5), &child);
    EXPECT_EQ(frame.GetDlgItem(6), nullptr);
    EXPECT_TRUE(frame.IsChild(&child));
    Frame other;
    ASSERT_TRUE(other.Create());
    child.SetOwner(&other);
    EXPECT_EQ(child.GetOwner(), &other);
}

TEST_F(WindowTest, ClassesOfTheSameValuesHaveTheSameName) {
    const CString name = AfxRegisterWndClass(CS_DBLCLKS);
    EXPECT_EQ(name, AfxRegisterWndClass(CS_DBLCLKS));
    EXPECT_NE(name, AfxRegisterWndClass(CS_DBLCLKS | CS_HREDRAW));
}

} // namespace
