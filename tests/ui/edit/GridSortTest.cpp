// Sorting the rows by clicks on the headings.

#include "EditClicksTest.h"

#include <algorithm>
#include <clocale>
#include <string>

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using ui::Script;
using ui::TestDrawing;
using ui::View;

using Names = std::vector<std::wstring>;

class GridSort : public EditClicksTest {
  protected:
    /// Four rows, Dark, Cold, Bulk, Base from the top, whose values differ in every column; none of the orders is the
    /// one that the rows have at first.
    void openFour() { open(fourRows()); }
    static TestDrawing fourRows() {
        TestDrawing drawing;
        drawing.layer(L"Bulk").layer(L"Cold").layer(L"Dark");
        return drawing.state(L"State", MaskAllProperties);
    }
    /// Gives the records values in which the middle rows stand out.
    Script spread() {
        return look("values", [this] {
            CLayerRcd& dark = record(0);
            CLayerRcd& cold = record(1);
            CLayerRcd& bulk = record(2);
            CLayerRcd& base = record(3);
            for (CLayerRcd* each : {&cold, &base})
                each->m_isOff = each->m_isFrozen = each->m_isLocked = each->m_isNewVpFrozen = true;
            for (CLayerRcd* each : {&dark, &bulk})
                each->m_isPlottable = false;
            static_cast<void>(dark.m_color.setColorIndex(30));
            static_cast<void>(cold.m_color.setColorIndex(9));
            static_cast<void>(bulk.m_color.setRGB(1, 2, 3));
            static_cast<void>(base.m_color.setColorIndex(20));
            dark.m_linetypeName = L"Hidden";
            cold.m_linetypeName = L"Continuous";
            bulk.m_linetypeName = L"Zigzag";
            base.m_linetypeName = L"Dashed";
            dark.m_lineWeight = 100;
            cold.m_lineWeight = -3;
            bulk.m_lineWeight = 25;
            base.m_lineWeight = -1;
            dark.m_plotStyleName = L"Normal";
            cold.m_plotStyleName = L"Fine";
            bulk.m_plotStyleName = L"Screened";
            base.m_plotStyleName = L"Gray";
        });
    }
    Names namesOfRecords() const {
        Names names;
        for (int row = 0; row < 4; ++row)
            names.push_back(record(row).m_name.GetString());
        return names;
    }
    const Names kInOrder = {L"\u00C4pfel", L"apple", L"Box", L"Zebra"};
};

struct Order {
    int column;
    Names ascending;
};

const Order orders[] = {
    {nameGridColumn, {L"Base", L"Bulk", L"Cold", L"Dark"}},
    {colorGridColumn, {L"Bulk", L"Cold", L"Base", L"Dark"}},
    {linetypeGridColumn, {L"Cold", L"Base", L"Dark", L"Bulk"}},
    {lineWeightGridColumn, {L"Cold", L"Base", L"Bulk", L"Dark"}},
    {plotStyleGridColumn, {L"Cold", L"Base", L"Dark", L"Bulk"}},
};

/// The columns of flags, in which two rows each are alike, and the control decides their order.
constexpr int flagColumns[] = {onGridColumn, freezeGridColumn, lockGridColumn, plotGridColumn, newVpFreezeGridColumn};

TEST_F(GridSort, OpensUnsorted) {
    openFour();
    run(Script().look("the rows", [this](const View& view) {
        EXPECT_THAT(rows(view), ElementsAre(L"Dark", L"Cold", L"Bulk", L"Base"));
        EXPECT_EQ(dialog().m_sortKey, 0);
    }));
}

TEST_F(GridSort, GoesUpAndDownAndUpAgainByEachColumnOfValues) {
    openFour();
    Script script = spread();
    for (const Order& order : orders) {
        Names down = order.ascending;
        std::reverse(down.begin(), down.end());
        int key = order.column + 1;
        for (const Names& expected : {order.ascending, down, order.ascending}) {
            script.clickHeading(grid, order.column).look("the rows", [=, this](const View& view) {
                EXPECT_THAT(rows(view), ElementsAreArray(expected)) << order.column;
                EXPECT_EQ(dialog().m_sortKey, key);
            });
            key = -key;
        }
    }
    run(script);
}

TEST_F(GridSort, PutsTheFalseFlagsFirstAndThenTheTrueOnes) {
    openFour();
    Script script = spread();
    for (const int column : flagColumns) {
        const auto flag = flagOfKind(columnKind[column]);
        script.clickHeading(grid, column)
            .then(look("up", [=, this] { EXPECT_THAT(rowsWith(flag), ElementsAre(2, 3)) << column; }))
            .clickHeading(grid, column)
            .then(look("down", [=, this] { EXPECT_THAT(rowsWith(flag), ElementsAre(0, 1)) << column; }));
    }
    run(script);
}

TEST_F(GridSort, StartsUpwardsOnAnotherColumnAfterOneThatWentDown) {
    openFour();
    run(spread()
            .clickHeading(grid, lockGridColumn)
            .clickHeading(grid, lockGridColumn)
            .then(look("down", [this] { EXPECT_EQ(dialog().m_sortKey, -(lockGridColumn + 1)); }))
            .clickHeading(grid, freezeGridColumn)
            .then(look("up", [this] {
                EXPECT_EQ(dialog().m_sortKey, freezeGridColumn + 1);
                EXPECT_THAT(rowsWith(&CLayerRcd::m_isFrozen), ElementsAre(2, 3));
            })));
}

TEST_F(GridSort, GoesByTheRecordsAndNotByTheTexts) {
    openFour();
    run(look("a text that differs",
             [this] {
                 record(0).m_isLocked = true;
                 for (int row = 1; row < 4; ++row)
                     dialog().m_layerGrid.SetItemText(row, lockGridColumn, L"1");
             })
            .clickHeading(grid, lockGridColumn)
            .look("the locked one is last", [](const View& view) { EXPECT_EQ(rows(view).back(), L"Dark"); }));
}

/// The order of letters that the host sets at its start: the user's. Tests run in the one that goes by code.
class UsersLetters {
  public:
    UsersLetters() : m_before(std::setlocale(LC_COLLATE, nullptr)) {
        EXPECT_NE(std::setlocale(LC_COLLATE, "English_United States.1252"), nullptr);
    }
    ~UsersLetters() { std::setlocale(LC_COLLATE, m_before.c_str()); }
    UsersLetters(const UsersLetters&) = delete;
    UsersLetters& operator=(const UsersLetters&) = delete;

  private:
    std::string m_before;
};

TEST_F(GridSort, OrdersTextsAsTheUsersAlphabetDoes) {
    const UsersLetters letters;
    openFour();
    run(look("names",
             [this] {
                 constexpr const wchar_t* kNames[] = {L"Zebra", L"apple", L"\u00C4pfel", L"Box"};
                 for (int row = 0; row < 4; ++row)
                     record(row).m_name = record(row).m_linetypeName = record(row).m_plotStyleName = kNames[row];
             })
            .clickHeading(grid, nameGridColumn)
            .then(look("by name", [this] { EXPECT_EQ(namesOfRecords(), kInOrder); }))
            .clickHeading(grid, linetypeGridColumn)
            .clickHeading(grid, linetypeGridColumn)
            .then(look("by linetype, down",
                       [this] { EXPECT_EQ(namesOfRecords(), Names(kInOrder.rbegin(), kInOrder.rend())); }))
            .clickHeading(grid, plotStyleGridColumn)
            .then(look("by plot style", [this] { EXPECT_EQ(namesOfRecords(), kInOrder); })));
}

TEST_F(GridSort, AsksTheHostForNothing) {
    openFour();
    run(Script().then(countFromHere()).clickHeading(grid, colorGridColumn).then(look("the calls", [] {
        EXPECT_THAT(callsBesideDrawing(), IsEmpty());
    })));
}

TEST_F(GridSort, TakesRecordsAlongSoThatAnEditChangesTheLayerThatIsSeen) {
    open(house());
    edit(
        Script()
            .clickHeading(grid, nameGridColumn)
            .look("in order",
                  [](const View& view) { EXPECT_THAT(rows(view), ElementsAre(L"Base", L"Doors", L"Pipes", L"Walls")); })
            .clickCell(grid, 2, lockGridColumn)
            .click(IDOK));
    EXPECT_THAT(ui::callsOf("record.setName"), ElementsAre("record.setName(null, \"Pipes\") = 0"));
    const zdr::LayerState state = *stored(L"Ground floor");
    std::vector<std::size_t> locked;
    for (std::size_t i = 0; i < state.layers->names.size(); ++i)
        if (state.columns.flags[i] & zdr::kLayerLocked)
            locked.push_back(i);
    EXPECT_THAT(locked, ElementsAre(3u));
}

TEST_F(GridSort, TakesTheSelectionAlong) {
    openFour();
    run(Script()
            .then(select({0, 2}))
            .clickHeading(grid, nameGridColumn)
            .then(expectSelected({1, 3}))
            .look("the same rows",
                  [](const View& view) {
                      EXPECT_EQ(view.cell(grid, 1, 0), L"Bulk");
                      EXPECT_EQ(view.cell(grid, 3, 0), L"Dark");
                  })
            .clickCell(grid, 3, lockGridColumn)
            .then(look("both edited", [this] {
                EXPECT_TRUE(record(1).m_isLocked);
                EXPECT_TRUE(record(3).m_isLocked);
                EXPECT_THAT(markedRows(), ElementsAre(1, 3));
            })));
}

TEST_F(GridSort, IsNotDoneAgainWhenAnEditChangesTheColumnsValues) {
    openFour();
    run(Script()
            .clickHeading(grid, lockGridColumn)
            .clickCell(grid, 0, lockGridColumn)
            .then(look("in its place", [this] { EXPECT_THAT(rowsWith(&CLayerRcd::m_isLocked), ElementsAre(0)); })));
}

TEST_F(GridSort, IsLostWhenTheRowsAreMadeAnewButItsDirectionIsRemembered) {
    TestDrawing drawing = fourRows();
    drawing.layer(L"Edge");
    open(drawing);
    run(Script()
            .clickHeading(grid, nameGridColumn)
            .look("sorted", [](const View& view) { EXPECT_EQ(rows(view).front(), L"Base"); })
            .click(IDC_ADD_LAYERS)
            .waitUntil("the layer is offered",
                       [](const View& view) { return rows(view) == Names{L"Edge"} && !view.has(IDC_ADD_LAYERS); })
            .clickCell(grid, 0, 0)
            .click(IDOK)
            .waitForControl(IDC_ADD_LAYERS)
            .look("in the list's order again",
                  [this](const View& view) {
                      EXPECT_THAT(rows(view), ElementsAre(L"Edge", L"Dark", L"Cold", L"Bulk", L"Base"));
                      EXPECT_EQ(dialog().m_sortKey, nameGridColumn + 1);
                  })
            .clickHeading(grid, nameGridColumn)
            .look("down",
                  [](const View& view) {
                      EXPECT_THAT(rows(view), ElementsAre(L"Edge", L"Dark", L"Cold", L"Bulk", L"Base"));
                  })
            .clickHeading(grid, nameGridColumn)
            .look("up", [](const View& view) {
                EXPECT_THAT(rows(view), ElementsAre(L"Base", L"Bulk", L"Cold", L"Dark", L"Edge"));
            }));
}

} // namespace
