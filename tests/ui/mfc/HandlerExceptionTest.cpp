// Exceptions in handlers: stopped at the window procedure, told to the user, answered by the kind of the message.
#include "MfcTestIds.h"
#include "Program.h"

#include <stdexcept>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr UINT kThrows = 200;
constexpr UINT kThrowsUser = 201;
constexpr UINT kThrowsStandard = 202;
constexpr UINT kThrowsOther = 203;
constexpr UINT kMine = WM_APP + 9;

/// Says when the exception object is gone.
class Counted : public CException {
  public:
    static int alive;
    Counted() { ++alive; }
    ~Counted() override { --alive; }
    BOOL GetErrorMessage(LPTSTR text, UINT room, UINT*) const override {
        lstrcpyn(text, L"The layer is locked.", static_cast<int>(room));
        return TRUE;
    }
};
int Counted::alive = 0;

class Thrower : public Frame {
  public:
    bool throwsAtCreation = false;
    bool throwsAtPaint = false;
    int paints = 0;

  protected:
    void OnThrow() { throw new Counted; }
    void OnThrowUser() { AfxThrowUserException(); }
    void OnThrowStandard() { throw std::runtime_error("out of range"); }
    void OnThrowOther() { throw 42; }
    LRESULT OnMine(WPARAM, LPARAM) { AfxThrowResourceException(); }
    int OnCreate(LPCREATESTRUCT create) {
        if (throwsAtCreation)
            AfxThrowMemoryException();
        return Frame::OnCreate(create);
    }
    void OnPaint() {
        ++paints;
        if (throwsAtPaint)
            throw new Counted;
        CPaintDC dc(this);
    }
    DECLARE_MESSAGE_MAP()
};

// clang-format off
BEGIN_MESSAGE_MAP(Thrower, Frame)
    ON_COMMAND(kThrows, &Thrower::OnThrow)
    ON_COMMAND(kThrowsUser, &Thrower::OnThrowUser)
    ON_COMMAND(kThrowsStandard, &Thrower::OnThrowStandard)
    ON_COMMAND(kThrowsOther, &Thrower::OnThrowOther)
    ON_MESSAGE(kMine, &Thrower::OnMine)
    ON_WM_CREATE()
    ON_WM_PAINT()
END_MESSAGE_MAP()
// clang-format on

class HandlerExceptionTest : public MfcTest {
  protected:
    void SetUp() override {
        MfcTest::SetUp();
        ASSERT_TRUE(window.Create());
        runUntilIdle();
    }
    Thrower window;
};

TEST_F(HandlerExceptionTest, OfACommandIsToldAndTheCommandCountsAsHandled) {
    EXPECT_EQ(window.SendMessage(WM_COMMAND, kThrows), 1);
    EXPECT_THAT(theProgram().prompts, ElementsAre(CString(L"The layer is locked.")));
    EXPECT_EQ(Counted::alive, 0);
}

TEST_F(HandlerExceptionTest, OfTheUserIsSilent) {
    EXPECT_EQ(window.SendMessage(WM_COMMAND, kThrowsUser), 1);
    EXPECT_THAT(theProgram().prompts, IsEmpty());
}

TEST_F(HandlerExceptionTest, OfTheStandardLibraryIsToldWithItsText) {
    EXPECT_EQ(window.SendMessage(WM_COMMAND, kThrowsStandard), 1);
    EXPECT_THAT(theProgram().prompts, ElementsAre(CString(L"out of range")));
}

TEST_F(HandlerExceptionTest, OfAnyOtherTypeIsToldByTheLibrarysText) {
    EXPECT_EQ(window.SendMessage(WM_COMMAND, kThrowsOther), 1);
    EXPECT_THAT(theProgram().prompts, ElementsAre(CString(L"The command failed.")));
}

TEST_F(HandlerExceptionTest, OfAMessageAnswersZero) {
    EXPECT_EQ(window.SendMessage(kMine), 0);
    EXPECT_THAT(theProgram().prompts, ElementsAre(CString(L"A required resource was unavailable.")));
}

TEST_F(HandlerExceptionTest, LeavesTheMessageOutsideAsItWas) {
    struct Outer : Frame {
        Thrower* thrower = nullptr;
        UINT after = 0;
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message == kMine) {
                thrower->SendMessage(kMine);
                after = GetCurrentMessage()->message;
                return 5;
            }
            return Frame::WindowProc(message, wParam, lParam);
        }
    } outer;
    outer.thrower = &window;
    ASSERT_TRUE(outer.Create());
    EXPECT_EQ(outer.SendMessage(kMine), 5);
    EXPECT_EQ(outer.after, kMine);
}

TEST_F(HandlerExceptionTest, DuringCreationMeansNoWindow) {
    Thrower failing;
    failing.throwsAtCreation = true;
    EXPECT_FALSE(failing.Create());
    EXPECT_EQ(failing.m_hWnd, nullptr);
    EXPECT_THAT(theProgram().prompts, IsEmpty());
}

/// Throws when it is bound to its window, before the window's first message.
template <class Base> struct Unbindable : Base {
    using Base::Base;
    void PreSubclassWindow() override { throw new Counted; }
};

TEST_F(HandlerExceptionTest, WhileAWindowIsBoundMeansNoWindow) {
    Unbindable<CWnd> failing;
    EXPECT_FALSE(failing.CreateEx(0, L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr));
    EXPECT_EQ(failing.m_hWnd, nullptr);
    EXPECT_EQ(Counted::alive, 0);
    CWnd next;
    EXPECT_TRUE(next.CreateEx(0, L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr));
    next.DestroyWindow();
}

TEST_F(HandlerExceptionTest, WhileAModalDialogIsBoundEndsItAndLeavesItsOwnerUsable) {
    Unbindable<CDialog> failing(IDD_FORM, &window);
    EXPECT_EQ(failing.DoModal(), -1);
    EXPECT_EQ(failing.m_hWnd, nullptr);
    EXPECT_TRUE(window.IsWindowEnabled());
    EXPECT_EQ(Counted::alive, 0);
}

TEST_F(HandlerExceptionTest, OutOfAModalLoopEndsTheDialogAndLeavesItsOwnerUsable) {
    struct Failing : CDialog {
        using CDialog::CDialog;
        BOOL PreTranslateMessage(MSG*) override { throw new Counted; }
    } failing(IDD_FORM, &window);
    EXPECT_EQ(failing.DoModal(), -1);
    EXPECT_EQ(failing.m_hWnd, nullptr);
    EXPECT_TRUE(window.IsWindowEnabled());
    EXPECT_EQ(Counted::alive, 0);
}

/// A dialog whose command opens another over it, in whose loop an exception of the standard library is thrown.
class Nesting : public CDialog {
  public:
    using CDialog::CDialog;
    BOOL isUsableAfterwards = FALSE;

  protected:
    struct Failing : CDialog {
        using CDialog::CDialog;
        BOOL PreTranslateMessage(MSG*) override { throw std::runtime_error("out of range"); }
    };
    BOOL OnInitDialog() override {
        PostMessage(WM_COMMAND, kThrowsStandard);
        return CDialog::OnInitDialog();
    }
    void OnThrowStandard() {
        try {
            Failing(IDD_FORM, this).DoModal();
        } catch (...) {
            PostMessage(kMine);
            throw;
        }
    }
    LRESULT OnMine(WPARAM, LPARAM) {
        isUsableAfterwards = IsWindowEnabled() && GetActiveWindow() == this;
        EndDialog(7);
        return 0;
    }
    DECLARE_MESSAGE_MAP()
};

// clang-format off
BEGIN_MESSAGE_MAP(Nesting, CDialog)
    ON_COMMAND(kThrowsStandard, &Nesting::OnThrowStandard)
    ON_MESSAGE(kMine, &Nesting::OnMine)
END_MESSAGE_MAP()
// clang-format on

TEST_F(HandlerExceptionTest, OfTheStandardLibraryOutOfANestedLoopIsToldAndLeavesTheOuterDialogUsable) {
    Nesting outer(IDD_FORM, &window);
    EXPECT_EQ(outer.DoModal(), 7);
    EXPECT_TRUE(outer.isUsableAfterwards);
    EXPECT_TRUE(window.IsWindowEnabled());
    EXPECT_THAT(theProgram().prompts, ElementsAre(CString(L"out of range")));
}

TEST_F(HandlerExceptionTest, DuringPaintingIsSilentAndPaintsNotAgain) {
    window.throwsAtPaint = true;
    window.Invalidate();
    runUntilIdle();
    const int paints = window.paints;
    runUntilIdle();
    EXPECT_EQ(window.paints, paints);
    EXPECT_FALSE(window.GetUpdateRect(nullptr));
    EXPECT_THAT(theProgram().prompts, IsEmpty());
    EXPECT_EQ(Counted::alive, 0);
    window.throwsAtPaint = false;
}

TEST_F(HandlerExceptionTest, WhileADialogIsSetUpLeavesItOpenAndInItsPlace) {
    struct Failing : CDialog {
        BOOL OnInitDialog() override { throw new Counted; }
    } dialog;
    EXPECT_TRUE(dialog.Create(IDD_FORM, &window));
    // What comes after the handler still happens: the dialog is centered.
    CRect own;
    CRect owner;
    dialog.GetWindowRect(own);
    window.GetWindowRect(owner);
    EXPECT_NEAR(own.CenterPoint().x, owner.CenterPoint().x, 1);
    EXPECT_THAT(theProgram().prompts, ElementsAre(CString(L"The layer is locked.")));
    EXPECT_EQ(Counted::alive, 0);
}

TEST_F(HandlerExceptionTest, ReportHasATextOrAResourceOrTheLibrarysOwn) {
    CSimpleException(L"Own text.", FALSE).ReportError();
    CSimpleException(CString(), FALSE).ReportError(MB_OK, IDS_PLAIN);
    CSimpleException(CString(), FALSE).ReportError();
    EXPECT_THAT(theProgram().prompts, ElementsAre(CString(L"Own text."), CString(L"A plain text."),
                                                  CString(L"No error message is available.")));
}

} // namespace
