// Sorting the list of states: what a click on a heading does, and that all of a row goes with it.
#include "ListTest.h"
#include "ReferenceSort.h"

#include <algorithm>
#include <random>

using testing::ElementsAre;
using testing::IsEmpty;
using ui::Script;

namespace {

using Texts = std::vector<std::wstring>;

/// All that belongs to a row.
struct RowFacts {
    Texts texts;
    DWORD_PTR data;
    int image;
    UINT state;

    bool operator==(const RowFacts&) const = default;
};

void PrintTo(const RowFacts& row, std::ostream* out) {
    *out << "{" << ui::narrow(row.texts.front()) << ", data " << row.data << ", image " << row.image << ", state "
         << std::hex << row.state << std::dec << "}";
}

/// A list on a hidden window, whose rows are no states.
class SortedList : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(m_list.CreateEx(0, WC_LISTVIEW, L"", WS_POPUP | LVS_REPORT, CRect(0, 0, 400, 200), nullptr, 0));
        for (int column = 0; column < 4; ++column)
            m_list.InsertColumn(column, L"", LVCFMT_LEFT, 80, column);
    }
    void TearDown() override { m_list.DestroyWindow(); }

    void addRow(const RowFacts& row) {
        const int index = m_list.InsertItem(LVIF_TEXT | LVIF_IMAGE | LVIF_PARAM, m_list.GetItemCount(),
                                            row.texts.front().c_str(), 0, 0, row.image, static_cast<LPARAM>(row.data));
        for (int column = 1; column < static_cast<int>(row.texts.size()); ++column)
            m_list.SetItemText(index, column, row.texts[static_cast<std::size_t>(column)].c_str());
        m_list.SetItemState(index, row.state, kWholeState);
    }
    void addNames(const Texts& names) {
        for (const std::wstring& name : names)
            addRow({{name, L"", L"", L""}, 0, 0, 0});
    }
    RowFacts row(int index) const {
        RowFacts facts = {};
        for (int column = 0; column < m_list.GetHeaderCtrl()->GetItemCount(); ++column)
            facts.texts.emplace_back(m_list.GetItemText(index, column).GetString());
        LVITEM item = {};
        item.mask = LVIF_IMAGE | LVIF_PARAM | LVIF_STATE;
        item.stateMask = kWholeState;
        item.iItem = index;
        EXPECT_TRUE(m_list.GetItem(&item));
        facts.data = static_cast<DWORD_PTR>(item.lParam);
        facts.image = item.iImage;
        facts.state = item.state;
        return facts;
    }
    std::vector<RowFacts> rows() const {
        std::vector<RowFacts> all;
        for (int index = 0; index < m_list.GetItemCount(); ++index)
            all.push_back(row(index));
        return all;
    }

    /// Everything that the control keeps in a row's state.
    static constexpr UINT kWholeState = 0xFF0F;

    OpenList m_list;
};

/// A click on a heading in a dialog.
class HeadingClick : public ListTest {
  protected:
    Script click(int column) { return Script().clickHeading(IDC_TEST_LIST, column); }
    /// The list's memory of the last click, and its first column.
    Script expectSorted(int column, int ascending, const Texts& names) {
        return look("the rows", [=, this] {
            EXPECT_EQ(m_list.m_sortColumn, column);
            EXPECT_EQ(m_list.m_sortAscending, ascending);
            EXPECT_EQ(m_list.column(nameColumn), names);
        });
    }
};

} // namespace

TEST_F(SortedList, SortsByCharacterCode) {
    addNames({L"alpha", L"Beta", L"beta"});
    EXPECT_TRUE(m_list.SortRows(0, true));
    EXPECT_EQ(m_list.column(0), (Texts{L"Beta", L"alpha", L"beta"}));
    EXPECT_TRUE(m_list.SortRows(0, false));
    EXPECT_EQ(m_list.column(0), (Texts{L"beta", L"alpha", L"Beta"}));
}

TEST_F(SortedList, SortsByTheTextOfAnyColumn) {
    addRow({{L"a", L"2", L"1", L"3"}, 0, 0, 0});
    addRow({{L"b", L"3", L"2", L"1"}, 0, 0, 0});
    addRow({{L"c", L"1", L"3", L"2"}, 0, 0, 0});
    const Texts expected[] = {{L"a", L"b", L"c"}, {L"c", L"a", L"b"}, {L"a", L"b", L"c"}, {L"b", L"c", L"a"}};
    for (int column = 0; column < 4; ++column) {
        EXPECT_TRUE(m_list.SortRows(column, true)) << column;
        EXPECT_EQ(m_list.column(0), expected[column]) << column;
    }
}

TEST_F(SortedList, RefusesAColumnThatItDoesntHave) {
    addNames({L"b", L"a"});
    EXPECT_FALSE(m_list.SortRows(4, true));
    EXPECT_FALSE(m_list.SortRows(5, true));
    EXPECT_EQ(m_list.column(0), (Texts{L"b", L"a"}));
    m_list.DeleteColumn(3);
    EXPECT_FALSE(m_list.SortRows(3, true));
    EXPECT_TRUE(m_list.SortRows(2, true));
}

TEST_F(SortedList, HasNothingToSortInNoneOrOneRow) {
    EXPECT_FALSE(m_list.SortRows(0, true));
    addNames({L"b"});
    EXPECT_FALSE(m_list.SortRows(0, true));
    addNames({L"a"});
    EXPECT_TRUE(m_list.SortRows(0, true));
}

TEST_F(SortedList, SortsARangeOfItsRowsAndTakesMinusOneForTheLast) {
    addNames({L"e", L"d", L"c", L"b", L"a"});
    EXPECT_TRUE(m_list.SortRows(0, true, 1, 3));
    EXPECT_EQ(m_list.column(0), (Texts{L"e", L"b", L"c", L"d", L"a"}));
    EXPECT_FALSE(m_list.SortRows(0, true, 2, 2));
    EXPECT_FALSE(m_list.SortRows(0, true, 3, 2));
    EXPECT_FALSE(m_list.SortRows(0, true, 4));
    EXPECT_EQ(m_list.column(0), (Texts{L"e", L"b", L"c", L"d", L"a"}));
    EXPECT_TRUE(m_list.SortRows(0, true, 2));
    EXPECT_EQ(m_list.column(0), (Texts{L"e", L"b", L"a", L"c", L"d"}));
    EXPECT_TRUE(m_list.SortRows(0, true, 0, -1));
    EXPECT_EQ(m_list.column(0), (Texts{L"a", L"b", L"c", L"d", L"e"}));
}

TEST_F(SortedList, MovesAllOfARow) {
    const std::vector<RowFacts> before = {
        {{L"c", L"c1", L"c2", L"c3"}, 30, 3, LVIS_SELECTED | INDEXTOSTATEIMAGEMASK(2)},
        {{L"a", L"a1", L"", L"a3"}, static_cast<DWORD_PTR>(-1), 1, LVIS_CUT | INDEXTOOVERLAYMASK(2)},
        {{L"d", L"d1", L"d2", L""}, 40, 4, LVIS_FOCUSED | LVIS_SELECTED | LVIS_DROPHILITED},
        {{L"b", L"", L"b2", std::wstring(5000, L'x')}, 20, 2, INDEXTOSTATEIMAGEMASK(1)}};
    for (const RowFacts& each : before)
        addRow(each);
    ASSERT_EQ(rows(), before);
    m_list.SortRows(0, true);
    EXPECT_THAT(rows(), ElementsAre(before[1], before[3], before[0], before[2]));
    m_list.SortRows(0, false);
    EXPECT_THAT(rows(), ElementsAre(before[2], before[0], before[3], before[1]));
}

TEST_F(SortedList, GivesRandomRowsTheOrderOfTheSimpleSortWithAllThatBelongsToThem) {
    std::mt19937 random(31);
    const auto below = [&random](unsigned int range) { return static_cast<unsigned int>(random()) % range; };
    for (int count = 0; count <= 300; count += 20) {
        m_list.DeleteAllItems();
        const unsigned int focused = below(static_cast<unsigned int>(count) + 1); // the last stands for none
        for (unsigned int i = 0; i < static_cast<unsigned int>(count); ++i) {
            const UINT state = (below(3) == 0 ? LVIS_SELECTED : 0) | (i == focused ? LVIS_FOCUSED : 0) |
                               INDEXTOSTATEIMAGEMASK(below(3));
            // Few letters, so that many texts are equal.
            const auto text = [&] { return std::wstring(1 + below(2), static_cast<wchar_t>(L'a' + below(9))); };
            addRow({{std::to_wstring(i), text(), text(), text()}, i, static_cast<int>(i), state});
        }
        const int column = static_cast<int>(1 + below(3));
        const bool ascending = below(2) == 0;
        SCOPED_TRACE(testing::Message() << count << " rows, column " << column << ", ascending " << ascending);
        const std::vector<RowFacts> before = rows();
        std::vector<NumberedRow> order;
        for (const RowFacts& each : before)
            order.push_back({each.texts[static_cast<std::size_t>(column)], static_cast<int>(order.size())});
        referenceSort(order, ascending);
        std::vector<RowFacts> expected;
        for (const NumberedRow& each : order)
            expected.push_back(before[static_cast<std::size_t>(each.number)]);
        EXPECT_EQ(m_list.SortRows(column, ascending), count > 1);
        ASSERT_EQ(rows(), expected);
    }
}

TEST_F(HeadingClick, SortsUpwardsAndTheSameHeadingAgainDownwards) {
    open(fourStates());
    show(look("unsorted",
              [this] {
                  EXPECT_EQ(m_list.m_sortColumn, -1);
                  EXPECT_EQ(m_list.column(nameColumn), (Texts{L"alpha", L"Beta", L"gamma", L"site!Survey"}));
              })
             .then(click(nameColumn))
             .then(expectSorted(nameColumn, 1, {L"Beta", L"alpha", L"gamma", L"site!Survey"}))
             .then(click(nameColumn))
             .then(expectSorted(nameColumn, 0, {L"site!Survey", L"gamma", L"alpha", L"Beta"}))
             .then(click(nameColumn))
             .then(expectSorted(nameColumn, 1, {L"Beta", L"alpha", L"gamma", L"site!Survey"})));
}

TEST_F(HeadingClick, StartsUpwardsOnAnotherHeading) {
    open(ui::TestDrawing().state(L"a", MaskOn, L"2").state(L"b", MaskOn, L"3").state(L"c", MaskOn, L"1"));
    show(Script()
             .then(click(nameColumn))
             .then(click(nameColumn))
             .then(expectSorted(nameColumn, 0, {L"c", L"b", L"a"}))
             .then(click(descriptionColumn))
             .then(expectSorted(descriptionColumn, 1, {L"c", L"a", L"b"}))
             .then(click(nameColumn))
             .then(expectSorted(nameColumn, 1, {L"a", L"b", L"c"})));
}

TEST_F(HeadingClick, RemembersColumnAndDirectionOverAFillButDoesntSortAgain) {
    open(ui::TestDrawing().state(L"b", MaskOn).state(L"c", MaskOn).state(L"a", MaskOn));
    show(Script()
             .then(click(nameColumn))
             .then(expectSorted(nameColumn, 1, {L"a", L"b", L"c"}))
             .then(look("filled anew", [this] { m_list.PopulateStates(&database(), true, true); }))
             .then(expectSorted(nameColumn, 1, {L"b", L"c", L"a"}))
             .then(click(nameColumn))
             .then(expectSorted(nameColumn, 0, {L"c", L"b", L"a"})));
}

TEST_F(HeadingClick, RemembersColumnAndDirectionAlsoWithoutRowsToSort) {
    for (const ui::TestDrawing& drawing : {ui::TestDrawing(), ui::TestDrawing().state(L"alone", MaskOn)}) {
        open(drawing);
        const Texts names = drawing.drawing().states.empty() ? Texts{} : Texts{L"alone"};
        show(Script()
                 .then(click(spaceColumn))
                 .then(expectSorted(spaceColumn, 1, names))
                 .then(click(spaceColumn))
                 .then(expectSorted(spaceColumn, 0, names)));
    }
}

TEST_F(HeadingClick, KeepsTheOrderOfRowsThatShowTheSameText) {
    open(fourStates());
    show(Script()
             .then(click(sameColumn))
             .then(expectSorted(sameColumn, 1, {L"alpha", L"Beta", L"gamma", L"site!Survey"}))
             .then(click(sameColumn))
             .then(expectSorted(sameColumn, 0, {L"alpha", L"Beta", L"gamma", L"site!Survey"})));
}

TEST_F(HeadingClick, DoesNothingWithAnotherButton) {
    open(fourStates());
    const Texts unsorted = {L"alpha", L"Beta", L"gamma", L"site!Survey"};
    Script script;
    for (const ui::OtherButton button : {ui::OtherButton::right, ui::OtherButton::middle})
        script.clickHeading(IDC_TEST_LIST, nameColumn, button).then(expectSorted(-1, 1, unsorted));
    // The platform's heading says nothing of these clicks, but the interface has a place for the button.
    script.then(look("told of other buttons", [this] {
        for (const int button : {1, 2}) {
            NMHEADER told = {{m_list.GetHeaderCtrl()->m_hWnd, 0, HDN_ITEMCLICKW}, nameColumn, button, nullptr};
            m_list.SendMessage(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&told));
        }
        EXPECT_THAT(instruments::trace(), IsEmpty());
    }));
    show(script.then(expectSorted(-1, 1, unsorted)));
}

TEST_F(HeadingClick, SortsAlsoForTheNotificationOfANarrowHeading) {
    open(fourStates());
    show(look("told by a narrow heading", [this] {
             NMHEADER told = {{m_list.GetHeaderCtrl()->m_hWnd, 0, HDN_ITEMCLICKA}, nameColumn, 0, nullptr};
             EXPECT_EQ(m_list.SendMessage(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&told)), 0);
         }).then(expectSorted(nameColumn, 1, {L"Beta", L"alpha", L"gamma", L"site!Survey"})));
}

TEST_F(HeadingClick, ShowsTheWaitCursorForAsLongAsItSorts) {
    open(fourStates());
    std::vector<HCURSOR> whileSorting;
    Script script;
    script.then(look("watch", [&, this] {
        m_list.onMessage = [&](UINT message, WPARAM, LPARAM) {
            if (message == LVM_SETITEMTEXTW)
                whileSorting.push_back(GetCursor());
        };
    }));
    script.then(click(nameColumn)).then(look("what was shown", [&, this] {
        m_list.onMessage = [](UINT, WPARAM, LPARAM) {};
        EXPECT_THAT(instruments::trace(), ElementsAre("DoWaitCursor(1)", "DoWaitCursor(-1)"));
        EXPECT_THAT(whileSorting, testing::Not(IsEmpty()));
        EXPECT_THAT(whileSorting, testing::Each(LoadCursorW(nullptr, IDC_WAIT)));
    }));
    show(script);
}

TEST_F(HeadingClick, DrawsNoMarkIntoTheHeading) {
    open(fourStates());
    show(Script().then(click(nameColumn)).then(look("the heading", [this] {
        HDITEM heading = {};
        heading.mask = HDI_FORMAT;
        ASSERT_TRUE(m_list.GetHeaderCtrl()->GetItem(nameColumn, &heading));
        EXPECT_EQ(heading.fmt & (HDF_SORTUP | HDF_SORTDOWN | HDF_IMAGE | HDF_BITMAP), 0);
    })));
}

TEST_F(HeadingClick, KeepsTheSelectionWithItsRowsAndTellsTheDialogNothing) {
    open(fourStates());
    show(Script()
             .clickCell(IDC_TEST_LIST, 1, nameColumn)
             .clickCell(IDC_TEST_LIST, 2, nameColumn, ui::holdControl)
             .then(look("from here", [this] { m_list.notifications.clear(); }))
             .then(click(nameColumn))
             .look("two rows are selected",
                   [](const ui::View& view) {
                       EXPECT_THAT(view.selectedRows(IDC_TEST_LIST), ElementsAre(0, 2));
                       EXPECT_EQ(view.focusedRow(IDC_TEST_LIST), 2);
                   })
             .then(look("no change has gone on to the dialog", [this] {
                 for (const Notification& each : m_list.notifications)
                     EXPECT_TRUE(each.ended) << testing::PrintToString(each);
             })));
}
