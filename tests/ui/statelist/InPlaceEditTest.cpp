// The box that opens over a cell: what it looks like, and how it reports the end of an edit.
#include "CInPlaceEdit.h"
#include "resource.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <vector>

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

/// The window that the box stands in; notes what the box reports.
class Parent : public CWnd {
  public:
    std::vector<UINT> codes;
    std::vector<HWND> senders;
    std::vector<UINT_PTR> ids;
    std::function<void()> onReport = [] {};

  protected:
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT*) override {
        const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
        EXPECT_EQ(wParam, header.idFrom);
        codes.push_back(header.code);
        senders.push_back(header.hwndFrom);
        ids.push_back(header.idFrom);
        onReport();
        return TRUE;
    }
};

/// A box that notes which messages it passes on to the platform's edit control.
class WatchedBox : public CInPlaceEdit {
  public:
    std::vector<UINT> passedOn;
    /// The style that its window was asked for. Wine draws the border itself, and takes it out of the window's style.
    DWORD askedStyle = 0;
    /// The font that it was given last was to be drawn at once.
    bool fontDrawn = false;

  protected:
    BOOL PreCreateWindow(CREATESTRUCT& window) override {
        const BOOL made = CInPlaceEdit::PreCreateWindow(window);
        askedStyle = static_cast<DWORD>(window.style);
        return made;
    }
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        passedOn.push_back(message);
        if (message == WM_SETFONT)
            fontDrawn = lParam != 0;
        return CInPlaceEdit::DefWindowProc(message, wParam, lParam);
    }
};

class InPlaceEdit : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(parent.CreateEx(0, AfxRegisterWndClass(0), L"Parent", WS_POPUP | WS_VISIBLE,
                                    CRect(100, 100, 400, 300), nullptr, 0));
        parent.SetFocus();
        ASSERT_TRUE(box.Create(&parent));
    }
    void TearDown() override { parent.DestroyWindow(); }

    /// Shows the box with that text in it and the focus.
    void showWith(const wchar_t* text) {
        box.SetWindowText(text);
        box.SetWindowPos(nullptr, 10, 10, 120, 24, 0);
        box.ShowWindow(SW_SHOW);
        box.SetFocus();
        ASSERT_EQ(::GetFocus(), box.m_hWnd);
    }
    std::vector<int> selection() const {
        int start = 0;
        int end = 0;
        box.GetSel(start, end);
        return {start, end};
    }
    BOOL translates(UINT message, WPARAM key) {
        MSG given = {};
        given.hwnd = box.m_hWnd;
        given.message = message;
        given.wParam = key;
        return box.PreTranslateMessage(&given);
    }
    /// What the box wants of a message, as a dialog asks.
    UINT wantsOf(UINT message, WPARAM key) {
        MSG given = {};
        given.hwnd = box.m_hWnd;
        given.message = message;
        given.wParam = key;
        return static_cast<UINT>(box.SendMessage(WM_GETDLGCODE, key, reinterpret_cast<LPARAM>(&given)));
    }

    Parent parent;
    WatchedBox box;
};

TEST_F(InPlaceEdit, IsMadeHiddenAndEmptyWithABorderAndForSeveralLines) {
    EXPECT_EQ(box.askedStyle,
              static_cast<DWORD>(WS_CHILD | WS_BORDER | ES_WANTRETURN | ES_NOHIDESEL | ES_AUTOHSCROLL | ES_MULTILINE));
    EXPECT_EQ(box.GetDlgCtrlID(), IDC_LSTATE_INPLACE_EDIT);
    EXPECT_EQ(::GetParent(box.m_hWnd), parent.m_hWnd);
    CRect place;
    box.GetWindowRect(&place);
    EXPECT_EQ(place.Width(), 0);
    EXPECT_EQ(place.Height(), 0);
    EXPECT_EQ(::GetFocus(), parent.m_hWnd);
}

TEST_F(InPlaceEdit, TakesTheFontOfItsParentAndDrawsIt) {
    class ParentWithFont : public CWnd {
      public:
        HFONT font = ::CreateFontW(17, 0, 0, 0, 400, TRUE, 0, 0, 0, 0, 0, 0, 0, L"Tahoma");
        ~ParentWithFont() override { ::DeleteObject(font); }

      protected:
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            return message == WM_GETFONT ? reinterpret_cast<LRESULT>(font) : CWnd::WindowProc(message, wParam, lParam);
        }
    };
    ParentWithFont other;
    ASSERT_TRUE(other.CreateEx(0, AfxRegisterWndClass(0), L"", WS_POPUP, CRect(0, 0, 10, 10), nullptr, 0));
    WatchedBox inOther;
    ASSERT_TRUE(inOther.Create(&other));
    EXPECT_EQ(inOther.SendMessage(WM_GETFONT), reinterpret_cast<LRESULT>(other.font));
    EXPECT_TRUE(inOther.fontDrawn);
    other.DestroyWindow();
}

TEST_F(InPlaceEdit, IsNotMadeWithoutAParentsWindow) {
    CWnd none;
    CInPlaceEdit inNone;
    EXPECT_FALSE(inNone.Create(&none));
    EXPECT_EQ(inNone.m_hWnd, nullptr);
}

TEST_F(InPlaceEdit, ShowsItsTextSelectedBehindAMarginOfTwoPixels) {
    const int rightMargin = HIWORD(box.GetMargins());
    showWith(L"as built");
    EXPECT_EQ(LOWORD(box.GetMargins()), 2);
    EXPECT_EQ(HIWORD(box.GetMargins()), rightMargin);
    EXPECT_THAT(selection(), ElementsAre(0, 8));
}

TEST_F(InPlaceEdit, ShowsTheEndOfALongTextWhereTheCaretIs) {
    const CString text(L'w', 200);
    showWith(text);
    const auto last = static_cast<DWORD>(box.SendMessage(EM_POSFROMCHAR, 199));
    CRect client;
    box.GetClientRect(&client);
    EXPECT_LT(static_cast<short>(LOWORD(last)), client.right);
    // Wine scrolls there by itself, other platforms when they are asked.
    const auto asked = std::find(box.passedOn.begin(), box.passedOn.end(), static_cast<UINT>(EM_SETSEL));
    EXPECT_NE(std::find(asked, box.passedOn.end(), static_cast<UINT>(EM_SCROLLCARET)), box.passedOn.end());
}

TEST_F(InPlaceEdit, LetsThePlatformSeeThatItIsShownButNotThatItIsHidden) {
    showWith(L"as built");
    EXPECT_THAT(box.passedOn, Contains(static_cast<UINT>(WM_SHOWWINDOW)));
    box.SetSel(2, 3);
    box.passedOn.clear();
    box.ShowWindow(SW_HIDE);
    EXPECT_FALSE(box.IsWindowVisible());
    EXPECT_THAT(box.passedOn, Not(Contains(static_cast<UINT>(WM_SHOWWINDOW))));
    EXPECT_THAT(selection(), ElementsAre(2, 3));
}

TEST_F(InPlaceEdit, GivesTheFocusToItsParentAtEnterAndSoReportsOnceThatItLostIt) {
    showWith(L"as built");
    EXPECT_TRUE(translates(WM_KEYDOWN, VK_RETURN));
    EXPECT_EQ(::GetFocus(), parent.m_hWnd);
    EXPECT_THAT(parent.codes, ElementsAre(kInPlaceEditLeft));
    EXPECT_THAT(parent.senders, ElementsAre(box.m_hWnd));
    EXPECT_THAT(parent.ids, ElementsAre(static_cast<UINT_PTR>(IDC_LSTATE_INPLACE_EDIT)));
}

TEST_F(InPlaceEdit, ReportsEscAndKeepsTheFocus) {
    showWith(L"as built");
    EXPECT_TRUE(translates(WM_KEYDOWN, VK_ESCAPE));
    EXPECT_EQ(::GetFocus(), box.m_hWnd);
    EXPECT_THAT(parent.codes, ElementsAre(kInPlaceEditCancelled));
    EXPECT_THAT(parent.senders, ElementsAre(box.m_hWnd));
    EXPECT_THAT(parent.ids, ElementsAre(static_cast<UINT_PTR>(IDC_LSTATE_INPLACE_EDIT)));
}

TEST_F(InPlaceEdit, LeavesEveryOtherKeyToTheDialog) {
    showWith(L"as built");
    for (const int key : {VK_TAB, VK_UP, VK_DOWN, VK_DELETE, VK_F2, VK_SPACE, int{'A'}})
        EXPECT_FALSE(translates(WM_KEYDOWN, static_cast<WPARAM>(key))) << key;
    for (const UINT message : {WM_KEYUP, WM_CHAR, WM_SYSKEYDOWN})
        for (const WPARAM key : {VK_RETURN, VK_ESCAPE})
            EXPECT_FALSE(translates(message, key)) << message << " " << key;
    EXPECT_EQ(::GetFocus(), box.m_hWnd);
    EXPECT_THAT(parent.codes, IsEmpty());
}

TEST_F(InPlaceEdit, WantsEveryKeyButTab) {
    constexpr UINT allKeys = DLGC_WANTALLKEYS;
    EXPECT_TRUE(wantsOf(WM_KEYDOWN, VK_UP) & allKeys);
    EXPECT_TRUE(wantsOf(WM_CHAR, 'x') & allKeys);
    EXPECT_TRUE(wantsOf(WM_KEYUP, VK_TAB) & allKeys) << "no key press";
    for (const UINT message : {WM_KEYDOWN, WM_CHAR}) {
        EXPECT_FALSE(wantsOf(message, VK_TAB) & (DLGC_WANTALLKEYS | DLGC_WANTTAB)) << message;
        EXPECT_TRUE(wantsOf(message, VK_TAB) & DLGC_WANTCHARS) << message;
    }
    EXPECT_TRUE(box.SendMessage(WM_GETDLGCODE) & allKeys) << "asked about no key";
}

TEST_F(InPlaceEdit, ReportsEveryLossOfTheFocusToSomethingOutside) {
    CEdit neighbour;
    ASSERT_TRUE(neighbour.Create(WS_CHILD | WS_VISIBLE, CRect(10, 60, 100, 80), &parent, 1));
    showWith(L"as built");
    neighbour.SetFocus();
    EXPECT_THAT(parent.codes, ElementsAre(kInPlaceEditLeft));
    box.SetFocus();
    ::SetFocus(nullptr);
    EXPECT_THAT(parent.codes, ElementsAre(kInPlaceEditLeft, kInPlaceEditLeft)) << "no window has the focus now";
}

TEST_F(InPlaceEdit, DoesntReportThatAWindowInItTakesTheFocus) {
    showWith(L"as built");
    CEdit inside;
    ASSERT_TRUE(inside.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 20, 10), &box, 1));
    inside.SetFocus();
    ASSERT_EQ(::GetFocus(), inside.m_hWnd);
    EXPECT_THAT(parent.codes, IsEmpty());
}

TEST_F(InPlaceEdit, DoesntReportALossOfTheFocusWhileItIsHidden) {
    showWith(L"as built");
    box.ShowWindow(SW_HIDE);
    parent.SetFocus();
    EXPECT_EQ(::GetFocus(), parent.m_hWnd);
    EXPECT_THAT(parent.codes, IsEmpty());
}

TEST_F(InPlaceEdit, HasThePlatformDealWithTheLossBeforeItReportsIt) {
    showWith(L"as built");
    std::vector<UINT> passedOnBefore;
    parent.onReport = [&] { passedOnBefore = box.passedOn; };
    parent.SetFocus();
    EXPECT_THAT(passedOnBefore, Contains(static_cast<UINT>(WM_KILLFOCUS)));
}

} // namespace
