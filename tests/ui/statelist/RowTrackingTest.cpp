// Which row of the list of states a click may open, and what a click then does.
#include "ListTest.h"

#include <array>

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using ui::Script;
using ui::View;

namespace {

class RowTracking : public ListTest {
  protected:
    void select(int row) {
        m_list.SetItemState(-1, 0, LVIS_SELECTED);
        m_list.SetItemState(row, LVIS_SELECTED, LVIS_SELECTED);
    }
    Script expectTracked(int row) {
        return look("the tracked row", [=, this] { EXPECT_EQ(m_list.m_trackedRow, row); });
    }
    Script forgetNotifications() {
        return look("from here", [this] {
            m_list.notifications.clear();
            instruments::clearTrace();
        });
    }
    /// The click has been answered so, and didn't reach the dialog.
    Script expectClickAnswered(LRESULT answer) {
        return look("the answer to the click", [=, this] {
            std::vector<Notification> clicks;
            for (const Notification& each : m_list.notifications)
                if (each.code == NM_CLICK)
                    clicks.push_back(each);
            EXPECT_THAT(clicks, ElementsAre(Notification{NM_CLICK, answer, true}));
        });
    }
    Script expectShown(bool shown) {
        return look("the editor", [=, this] { EXPECT_EQ(m_list.isEditorShown(), shown); });
    }
    /// A notification as the platform sends it, through the dialog; its answer.
    LRESULT notify(UINT code, int row, UINT newState) {
        NMLISTVIEW told = {};
        told.hdr = {m_list.m_hWnd, IDC_TEST_LIST, code};
        told.iItem = row;
        told.uNewState = newState;
        return m_list.GetParent()->SendMessage(WM_NOTIFY, IDC_TEST_LIST, reinterpret_cast<LPARAM>(&told));
    }
    /// The platform tells that it opens a name's box; the answer is whether that is refused.
    LRESULT beginLabelEdit() {
        NMLVDISPINFOW told = {};
        told.hdr = {m_list.m_hWnd, IDC_TEST_LIST, static_cast<UINT>(LVN_BEGINLABELEDITW)};
        return m_list.GetParent()->SendMessage(WM_NOTIFY, IDC_TEST_LIST, reinterpret_cast<LPARAM>(&told));
    }
};

/// Makes the left button's state word what a test wants, for as long as it lives.
class LeftButtonState {
  public:
    explicit LeftButtonState(BYTE state) {
        GetKeyboardState(m_before.data());
        std::array<BYTE, 256> now = m_before;
        now[VK_LBUTTON] = state;
        SetKeyboardState(now.data());
    }
    ~LeftButtonState() { SetKeyboardState(m_before.data()); }
    LeftButtonState(const LeftButtonState&) = delete;
    LeftButtonState& operator=(const LeftButtonState&) = delete;

  private:
    std::array<BYTE, 256> m_before{};
};

} // namespace

TEST_F(RowTracking, ABoxThatOpensWithoutAFocusedRowBeginsNoRename) {
    lookAt(fourStates(), [this] {
        select(1);
        m_list.SetItemState(-1, 0, LVIS_FOCUSED);
        const int tracked = m_list.m_trackedRow;
        EXPECT_EQ(beginLabelEdit(), 0);
        EXPECT_EQ(m_list.m_labelEditActive, 0);
        EXPECT_EQ(m_list.m_trackedRow, tracked);
        EXPECT_THAT(instruments::trace(), IsEmpty());
        m_list.SetItemState(1, LVIS_FOCUSED, LVIS_FOCUSED);
        EXPECT_EQ(beginLabelEdit(), 0);
        EXPECT_EQ(m_list.m_labelEditActive, 1);
        EXPECT_EQ(m_list.m_trackedRow, 1);
    });
}

TEST_F(RowTracking, TracksASelectedRowOnlyWhenTheLeftButtonsWholeStateIsZero) {
    constexpr BYTE kToggled = 0x01;
    constexpr BYTE kPressed = 0x80;
    lookAt(fourStates(), [this] {
        for (const BYTE state : std::initializer_list<BYTE>{0, kToggled, kPressed, kPressed | kToggled}) {
            const LeftButtonState button(state);
            m_list.m_trackedRow = 0;
            select(2);
            EXPECT_EQ(m_list.m_trackedRow, state == 0 ? 2 : -1) << static_cast<int>(state);
        }
    });
}

TEST_F(RowTracking, LeavesTheTrackedRowAtAnyChangeThatSelectsNoRow) {
    lookAt(fourStates(), [this] {
        const LeftButtonState button(0);
        select(1);
        ASSERT_EQ(m_list.m_trackedRow, 1);
        m_list.SetItemState(2, LVIS_FOCUSED, LVIS_FOCUSED);
        m_list.SetItemState(2, LVIS_CUT, LVIS_CUT);
        m_list.SetItemState(1, 0, LVIS_SELECTED);
        m_list.SetItemData(3, 7);
        notify(LVN_ITEMCHANGED, -1, LVIS_SELECTED); // all rows at once
        EXPECT_EQ(m_list.m_trackedRow, 1);
        notify(LVN_ITEMCHANGED, 0, LVIS_SELECTED);
        EXPECT_EQ(m_list.m_trackedRow, 0);
        notify(LVN_ITEMCHANGED, 3, LVIS_SELECTED | LVIS_FOCUSED);
        EXPECT_EQ(m_list.m_trackedRow, 3);
    });
}

TEST_F(RowTracking, LetsEveryChangeGoOnToTheDialog) {
    lookAt(fourStates(), [this] {
        m_list.notifications.clear();
        select(1);
        m_list.SetItemState(2, LVIS_FOCUSED, LVIS_FOCUSED);
        EXPECT_THAT(m_list.notifications, testing::Not(IsEmpty()));
        EXPECT_THAT(m_list.notifications, testing::Each(Notification{LVN_ITEMCHANGED, 0, false}));
    });
}

TEST_F(RowTracking, TheClickThatSelectsARowOpensNothingAndTheNextOneOpensTheCell) {
    open(fourStates());
    show(Script()
             .clickCell(IDC_TEST_LIST, 1, descriptionColumn)
             .then(expectTracked(1))
             .then(expectClickAnswered(0))
             .then(expectShown(false))
             .then(forgetNotifications())
             .clickCell(IDC_TEST_LIST, 1, descriptionColumn)
             .then(expectTracked(1))
             .then(expectClickAnswered(1))
             .then(expectShown(true)));
}

TEST_F(RowTracking, TheSelectedRowOpensAtTheFirstClickWhenTheProgramSelectedIt) {
    open(fourStates());
    show(look("selected without the mouse",
              [this] {
                  const LeftButtonState button(0);
                  m_list.SelectRow(1);
              })
             .then(expectTracked(1))
             .clickCell(IDC_TEST_LIST, 1, descriptionColumn)
             .then(expectClickAnswered(1))
             .then(expectShown(true)));
}

TEST_F(RowTracking, AClickBesideTheRowsEndsTheTracking) {
    open(fourStates());
    show(Script()
             .clickCell(IDC_TEST_LIST, 1, nameColumn)
             .then(expectTracked(1))
             .then(forgetNotifications())
             .clickEmptySpace(IDC_TEST_LIST)
             .then(expectClickAnswered(0))
             .then(expectTracked(-1))
             .clickCell(IDC_TEST_LIST, 1, descriptionColumn)
             .then(expectShown(false)));
}

TEST_F(RowTracking, AsksTheSystemWhereThePointerIsAndNotTheNotification) {
    open(fourStates());
    show(Script()
             .clickCell(IDC_TEST_LIST, 1, descriptionColumn)
             .then(look("told of a click on another row",
                        [this] {
                            EXPECT_EQ(notify(NM_CLICK, 2, 0), 1);
                            EXPECT_EQ(m_list.m_editRow, 1);
                            EXPECT_EQ(m_list.m_editColumn, descriptionColumn);
                            EXPECT_EQ(m_list.m_trackedRow, 1);
                        }))
             .then(expectShown(true)));
}

TEST_F(RowTracking, OtherCellsOfTheTrackedRowOpenNothingButTheClickEndsAtTheList) {
    for (const int column : {nameColumn, spaceColumn, sameColumn}) {
        SCOPED_TRACE(column);
        open(fourStates());
        show(Script()
                 .clickCell(IDC_TEST_LIST, 1, nameColumn)
                 .then(forgetNotifications())
                 .clickCell(IDC_TEST_LIST, 1, column)
                 .then(expectClickAnswered(1))
                 .then(expectShown(false))
                 .then(look("the cell is noted", [=, this] {
                     EXPECT_EQ(m_list.m_editRow, 1);
                     EXPECT_EQ(m_list.m_editColumn, column);
                     EXPECT_EQ(m_list.m_activeEdit, nullptr);
                     EXPECT_EQ(instruments::trace(), withService({"isDependentLayerState(\"Beta\") = false"}));
                 })));
    }
}

TEST_F(RowTracking, ADependentStatesDescriptionOpensNothing) {
    open(fourStates());
    show(Script()
             .clickCell(IDC_TEST_LIST, 3, descriptionColumn)
             .then(forgetNotifications())
             .clickCell(IDC_TEST_LIST, 3, descriptionColumn)
             .then(expectClickAnswered(1))
             .then(expectShown(false))
             .then(look("the cell is noted", [this] {
                 EXPECT_EQ(m_list.m_editRow, 3);
                 EXPECT_EQ(m_list.m_editColumn, descriptionColumn);
                 EXPECT_EQ(m_list.m_activeEdit, nullptr);
                 EXPECT_EQ(instruments::trace(), withService({"isDependentLayerState(\"site!Survey\") = true"}));
             })));
}

TEST_F(RowTracking, NoCellOfAListWithThreeColumnsOpens) {
    open(fourStates());
    Script script;
    script.clickCell(IDC_TEST_LIST, 1, 0);
    for (const int column : {0, 1, 2})
        script.clickCell(IDC_TEST_LIST, 1, column).then(expectShown(false));
    script.then(look("the last cell is noted", [this] {
        EXPECT_EQ(m_list.m_editColumn, 2);
        EXPECT_EQ(m_list.m_activeEdit, nullptr);
    }));
    show(script, false);
}

TEST_F(RowTracking, AListWhoseCellsMustNotBeEditedIgnoresTheClick) {
    open(fourStates());
    show(look("the focus is elsewhere",
              [this] {
                  m_list.m_cellEditEnabled = 0;
                  m_list.m_trackedRow = 1;
                  m_list.GetParent()->GetDlgItem(IDC_TEST_BUTTON)->SetFocus();
                  EXPECT_EQ(notify(NM_CLICK, 1, 0), 0);
                  EXPECT_NE(::GetFocus(), m_list.m_hWnd);
                  EXPECT_EQ(m_list.m_trackedRow, 1);
                  m_list.m_cellEditEnabled = 1;
                  notify(NM_CLICK, 1, 0);
                  EXPECT_EQ(::GetFocus(), m_list.m_hWnd);
                  m_list.m_cellEditEnabled = 0;
              })
             .then(forgetNotifications())
             .then(openCell(1, descriptionColumn))
             .then(expectShown(false))
             .then(look("nothing is asked", [this] {
                 EXPECT_THAT(instruments::trace(), IsEmpty());
                 EXPECT_THAT(m_list.notifications, Contains(Notification{NM_CLICK, 0, true}));
             })));
}
