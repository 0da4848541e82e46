// WM_NOTIFY and the other messages that a control sends to its parent: the control itself is asked first.
#include "Program.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr UINT kList = 300;
constexpr UINT kOtherList = 301;
constexpr UINT kButton = 310;

/// Reflects one notification to its end and lets the control decide about another.
class List : public CListCtrl {
  public:
    Log* log = nullptr;
    bool keeps = false;

  protected:
    void OnReflectedClick(NMHDR*, LRESULT* result) {
        log->push_back("list click");
        *result = 11;
    }
    BOOL OnReflectedDoubleClick(NMHDR*, LRESULT* result) {
        log->push_back("list double click");
        *result = 12;
        return keeps;
    }
    void OnHeaderClick(NMHDR*, LRESULT*) { log->push_back("header click"); }
    void DrawItem(LPDRAWITEMSTRUCT) override { log->push_back("list draws"); }
    DECLARE_MESSAGE_MAP()
};

class Button : public CButton {
  public:
    Log* log = nullptr;
    bool keeps = false;
    CBrush brush{RGB(255, 0, 0)};

  protected:
    void OnReflectedClick() { log->push_back("button click"); }
    BOOL OnReflectedDoubleClick() {
        log->push_back("button double click");
        return keeps;
    }
    HBRUSH CtlColor(CDC* dc, UINT kind) {
        log->push_back("button color " + std::to_string(kind));
        dc->SetBkMode(TRANSPARENT);
        return keeps ? static_cast<HBRUSH>(brush) : nullptr;
    }
    void DrawItem(LPDRAWITEMSTRUCT) override { log->push_back("button draws"); }
    DECLARE_MESSAGE_MAP()
};

class Parent : public Frame {
  public:
    Log* log = nullptr;
    HBRUSH OnCtlColor(CDC* dc, CWnd* window, UINT kind) {
        log->push_back("parent color");
        return Frame::OnCtlColor(dc, window, kind);
    }

  protected:
    void OnListClick(NMHDR*, LRESULT*) { log->push_back("parent click"); }
    void OnListDoubleClick(NMHDR* header, LRESULT* result) {
        log->push_back("parent double click " + std::to_string(header->idFrom));
        *result = 22;
    }
    void OnRange(UINT id, NMHDR*, LRESULT* result) {
        log->push_back("range " + std::to_string(id - kList));
        *result = 23;
    }
    BOOL OnEx(UINT id, NMHDR*, LRESULT*) {
        log->push_back("ex " + std::to_string(id - kList));
        return FALSE;
    }
    void OnButton() { log->push_back("parent button"); }
    void OnButtonDoubleClick() { log->push_back("parent button double click"); }
    DECLARE_MESSAGE_MAP()
};

// clang-format off
BEGIN_MESSAGE_MAP(List, CListCtrl)
    ON_NOTIFY_REFLECT(NM_CLICK, &List::OnReflectedClick)
    ON_NOTIFY_REFLECT_EX(NM_DBLCLK, &List::OnReflectedDoubleClick)
    ON_NOTIFY(HDN_ITEMCLICK, 0, &List::OnHeaderClick)
END_MESSAGE_MAP()

BEGIN_MESSAGE_MAP(Button, CButton)
    ON_CONTROL_REFLECT(BN_CLICKED, &Button::OnReflectedClick)
    ON_CONTROL_REFLECT_EX(BN_DOUBLECLICKED, &Button::OnReflectedDoubleClick)
    ON_WM_CTLCOLOR_REFLECT()
END_MESSAGE_MAP()

BEGIN_MESSAGE_MAP(Parent, Frame)
    ON_NOTIFY(NM_CLICK, kList, &Parent::OnListClick)
    ON_NOTIFY(NM_DBLCLK, kList, &Parent::OnListDoubleClick)
    ON_NOTIFY_RANGE(NM_RCLICK, kList, kOtherList, &Parent::OnRange)
    ON_NOTIFY_EX(NM_RDBLCLK, kList, &Parent::OnEx)
    ON_BN_CLICKED(kButton, &Parent::OnButton)
    ON_BN_DOUBLECLICKED(kButton, &Parent::OnButtonDoubleClick)
    ON_WM_CTLCOLOR()
END_MESSAGE_MAP()
// clang-format on

class NotifyTest : public MfcTest {
  protected:
    void SetUp() override {
        MfcTest::SetUp();
        parent.log = list.log = button.log = &log;
        ASSERT_TRUE(parent.Create());
        ASSERT_TRUE(list.Create(LVS_REPORT | WS_VISIBLE, CRect(0, 0, 200, 100), &parent, kList));
        ASSERT_TRUE(other.Create(LVS_REPORT | WS_VISIBLE, CRect(0, 100, 200, 200), &parent, kOtherList));
        ASSERT_TRUE(
            button.Create(L"B", BS_OWNERDRAW | BS_NOTIFY | WS_VISIBLE, CRect(200, 0, 300, 30), &parent, kButton));
        runUntilIdle();
        log.clear();
    }
    void TearDown() override {
        parent.DestroyWindow();
        MfcTest::TearDown();
    }
    LRESULT notify(const CWnd& from, UINT code) {
        NMHDR header = {from.m_hWnd, static_cast<UINT_PTR>(from.GetDlgCtrlID()), code};
        return parent.SendMessage(WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header));
    }
    LRESULT tell(UINT code) {
        return parent.SendMessage(WM_COMMAND, MAKEWPARAM(kButton, code), reinterpret_cast<LPARAM>(button.m_hWnd));
    }

    Parent parent;
    List list;
    CListCtrl other;
    Button button;
};

TEST_F(NotifyTest, ReflectedWithoutExEndsAtTheControlWithItsResult) {
    EXPECT_EQ(notify(list, NM_CLICK), 11);
    EXPECT_THAT(log, ElementsAre("list click"));
}

TEST_F(NotifyTest, ReflectedWithExGoesOnWhenTheControlDeclines) {
    EXPECT_EQ(notify(list, NM_DBLCLK), 22);
    EXPECT_THAT(log, ElementsAre("list double click", "parent double click 300"));
}

TEST_F(NotifyTest, ReflectedWithExEndsWhenTheControlKeepsIt) {
    list.keeps = true;
    EXPECT_EQ(notify(list, NM_DBLCLK), 12);
    EXPECT_THAT(log, ElementsAre("list double click"));
}

TEST_F(NotifyTest, OfAControlWithoutEntryGoesToTheParentOnly) {
    EXPECT_EQ(notify(other, NM_CLICK), 0);
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(NotifyTest, OfARangeNamesTheControl) {
    EXPECT_EQ(notify(list, NM_RCLICK), 23);
    EXPECT_EQ(notify(other, NM_RCLICK), 23);
    EXPECT_THAT(log, ElementsAre("range 0", "range 1"));
}

TEST_F(NotifyTest, ExHandlerThatDeclinesLeavesItUnhandled) {
    EXPECT_EQ(notify(list, NM_RDBLCLK), 0);
    EXPECT_THAT(log, ElementsAre("ex 0"));
}

TEST_F(NotifyTest, OfTheHeaderGoesToTheListItBelongsTo) {
    list.InsertColumn(0, L"A", LVCFMT_LEFT, 100);
    log.clear();
    NMHEADER header{};
    header.hdr = {list.GetHeaderCtrl()->m_hWnd, 0, static_cast<UINT>(HDN_ITEMCLICK)};
    list.SendMessage(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
    EXPECT_THAT(log, ElementsAre("header click"));
}

TEST_F(NotifyTest, CommandOfAControlIsReflectedFirstToo) {
    EXPECT_EQ(tell(BN_CLICKED), 1);
    EXPECT_EQ(tell(BN_DOUBLECLICKED), 1);
    button.keeps = true;
    EXPECT_EQ(tell(BN_DOUBLECLICKED), 1);
    EXPECT_THAT(
        log, ElementsAre("button click", "button double click", "parent button double click", "button double click"));
}

TEST_F(NotifyTest, ColorsAreAskedOfTheControlThroughTheParent) {
    button.keeps = true;
    CClientDC dc(&button);
    const LRESULT brush =
        parent.SendMessage(WM_CTLCOLORBTN, reinterpret_cast<WPARAM>(dc.m_hDC), reinterpret_cast<LPARAM>(button.m_hWnd));
    EXPECT_EQ(reinterpret_cast<HBRUSH>(brush), static_cast<HBRUSH>(button.brush));
    EXPECT_THAT(log, ElementsAre("parent color", "button color 3"));
    EXPECT_EQ(dc.GetBkMode(), TRANSPARENT);
}

TEST_F(NotifyTest, ColorsThatTheControlDeclinesAreTheSystems) {
    CClientDC dc(&button);
    const LRESULT brush =
        parent.SendMessage(WM_CTLCOLORBTN, reinterpret_cast<WPARAM>(dc.m_hDC), reinterpret_cast<LPARAM>(button.m_hWnd));
    EXPECT_EQ(reinterpret_cast<HBRUSH>(brush), ::GetSysColorBrush(COLOR_BTNFACE));
}

TEST_F(NotifyTest, OwnerDrawingComesBackToTheControl) {
    button.RedrawWindow();
    EXPECT_THAT(log, testing::Contains("button draws"));
    log.clear();
    DRAWITEMSTRUCT draw{};
    draw.CtlType = ODT_LISTVIEW;
    draw.CtlID = kList;
    draw.hwndItem = list.m_hWnd;
    EXPECT_EQ(parent.SendMessage(WM_DRAWITEM, kList, reinterpret_cast<LPARAM>(&draw)), 1);
    EXPECT_THAT(log, ElementsAre("list draws"));
}

TEST_F(NotifyTest, OfAWindowThatIsGoneFindsNobody) {
    other.DestroyWindow();
    NMHDR header = {nullptr, kList, static_cast<UINT>(NM_CLICK)};
    EXPECT_EQ(parent.SendMessage(WM_NOTIFY, kList, reinterpret_cast<LPARAM>(&header)), 0);
    EXPECT_THAT(log, IsEmpty());
}

/// Sorts itself by the numbers that its items hold as data.
class SortedList : public CListBox {
  public:
    int measured = 0;
    int deleted = 0;

    int CompareItem(LPCOMPAREITEMSTRUCT compare) override {
        return static_cast<int>(compare->itemData1) - static_cast<int>(compare->itemData2);
    }
    void DrawItem(LPDRAWITEMSTRUCT) override {}
    void MeasureItem(LPMEASUREITEMSTRUCT measure) override {
        ++measured;
        measure->itemHeight = 31;
    }
    void DeleteItem(LPDELETEITEMSTRUCT) override { ++deleted; }
};

TEST_F(NotifyTest, OwnerDrawnListBoxComparesMeasuresAndDeletesItsItems) {
    SortedList sorted;
    ASSERT_TRUE(sorted.Create(LBS_OWNERDRAWVARIABLE | LBS_SORT | WS_VISIBLE, CRect(0, 0, 100, 100), &parent, 320));
    for (const int number : {30, 10, 20})
        sorted.SendMessage(LB_ADDSTRING, 0, number);
    EXPECT_EQ(sorted.GetItemData(0), 10u);
    EXPECT_EQ(sorted.GetItemData(2), 30u);
    EXPECT_EQ(sorted.measured, 3);
    EXPECT_EQ(sorted.GetItemHeight(1), 31);
    sorted.ResetContent();
    EXPECT_EQ(sorted.deleted, 3);
    sorted.DestroyWindow();
}

} // namespace
