// The cells that a click turns from one value to the other, and those where it is refused.

#include "EditClicksTest.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using ui::Script;
using ui::TestDrawing;
using ui::View;

/// A column and the flag that it turns.
struct FlagColumn {
    int column;
    bool CLayerRcd::*flag;
    std::uint8_t bit;   ///< as a state keeps it
    bool bitWhenTrue;   ///< whether the state's bit is set when the record's flag is
    bool mayBeReserved; ///< refused for a reserved layer
};
const FlagColumn flagColumns[] = {
    {onGridColumn, &CLayerRcd::m_isOff, zdr::kLayerOn, false, false},
    {freezeGridColumn, &CLayerRcd::m_isFrozen, zdr::kLayerFrozen, true, true},
    {lockGridColumn, &CLayerRcd::m_isLocked, zdr::kLayerLocked, true, false},
    {plotGridColumn, &CLayerRcd::m_isPlottable, zdr::kLayerPlot, true, true},
    {newVpFreezeGridColumn, &CLayerRcd::m_isNewVpFrozen, zdr::kLayerNewViewportFrozen, true, false},
};

void PrintTo(const FlagColumn& each, std::ostream* out) {
    *out << "column " << each.column;
}

constexpr int kRow = 3;
constexpr int kCurrentRow = 9;

class EachFlag : public EditClicksTest, public testing::WithParamInterface<FlagColumn> {
  protected:
    /// The row's flags in the order of the columns.
    std::vector<bool> flags(int row) const {
        std::vector<bool> values;
        for (const FlagColumn& each : flagColumns)
            values.push_back(record(row).*each.flag);
        return values;
    }
    /// The same with the flag of this test's column the other way round.
    static std::vector<bool> turned(std::vector<bool> values) {
        for (std::size_t i = 0; i < values.size(); ++i)
            if (flagColumns[i].column == GetParam().column)
                values[i] = !values[i];
        return values;
    }
    std::vector<bool> m_before;
};

INSTANTIATE_TEST_SUITE_P(Columns, EachFlag, testing::ValuesIn(flagColumns));

TEST_P(EachFlag, IsTurnedByAClickAndTurnedBackByTheNext) {
    const int column = GetParam().column;
    open(tenRows());
    run(look("before", [this] { m_before = flags(kRow); })
            .clickCell(grid, kRow, column)
            .then(look("turned",
                       [=, this] {
                           EXPECT_EQ(flags(kRow), turned(m_before));
                           EXPECT_EQ(dialog().m_layerGrid.GetItemText(kRow, column),
                                     flagText(record(kRow).*GetParam().flag));
                           EXPECT_THAT(markedRows(), ElementsAre(kRow));
                       }))
            .clickCell(grid, kRow, column)
            .then(look("turned back", [=, this] {
                EXPECT_EQ(flags(kRow), m_before);
                EXPECT_EQ(dialog().m_layerGrid.GetItemText(kRow, column), flagText(record(kRow).*GetParam().flag));
                EXPECT_THAT(markedRows(), ElementsAre(kRow)) << "marked for good";
            })));
}

TEST_P(EachFlag, ShowsItsNewValueAtOnce) {
    const int column = GetParam().column;
    open(tenRows());
    std::vector<COLORREF> before;
    run(Script()
            .clickCell(grid, kRow, nameGridColumn)
            .pointAway()
            .waitUntil("the cell is drawn as the same one of the next row",
                       [&](const View& view) {
                           before = cellPixels(view, kRow, column);
                           return before == cellPixels(view, kRow + 1, column);
                       })
            .clickCell(grid, kRow, column)
            .waitUntil("it shows something else",
                       [&](const View& view) { return cellPixels(view, kRow, column) != before; })
            .clickCell(grid, kRow, column)
            .waitUntil("it shows what it showed",
                       [&](const View& view) { return cellPixels(view, kRow, column) == before; }));
}

TEST_P(EachFlag, AsksTheHostForNothingButWhetherTheNameIsReservedWhereThatCounts) {
    open(tenRows());
    run(Script().then(countFromHere()).clickCell(grid, kRow, GetParam().column).then(look("the calls", [this] {
        if (GetParam().mayBeReserved)
            EXPECT_THAT(callsBesideDrawing(), ElementsAre("isReservedLayerName(\"Row 3\") = false"));
        else
            EXPECT_THAT(callsBesideDrawing(), IsEmpty());
        EXPECT_THAT(markedRows(), SizeIs(1));
    })));
}

TEST_P(EachFlag, OfSeveralRowsGoesByTheFirstOneAndNotByTheOneUnderThePointer) {
    const FlagColumn& each = GetParam();
    open(tenRows([&](zdr::LayerColumns& columns) {
        const std::size_t row = indexOfRow(2);
        columns.flags.set(row, static_cast<std::uint8_t>(columns.flags[row] ^ each.bit));
    }));
    bool first = false;
    run(look("the first row differs",
             [&] {
                 first = record(2).*each.flag;
                 ASSERT_NE(first, record(5).*each.flag);
                 ASSERT_NE(first, record(7).*each.flag);
             })
            .then(select({2, 5, 7}))
            .clickCell(grid, 5, each.column)
            .then(look("all alike",
                       [&] {
                           for (const int row : {2, 5, 7}) {
                               EXPECT_NE(record(row).*each.flag, first) << row;
                               EXPECT_EQ(dialog().m_layerGrid.GetItemText(row, each.column), flagText(!first)) << row;
                           }
                           EXPECT_THAT(markedRows(), ElementsAre(2, 5, 7)) << "also those that had the value before";
                       }))
            .clickCell(grid, 7, each.column)
            .then(look("all back", [&] {
                for (const int row : {2, 5, 7})
                    EXPECT_EQ(record(row).*each.flag, first) << row;
            })));
}

TEST_P(EachFlag, IsWrittenIntoTheStateByOk) {
    const FlagColumn& each = GetParam();
    open(house());
    const std::uint8_t before = stored(L"Ground floor")->columns.flags[2];
    edit(Script().clickCell(grid, 1, each.column).click(IDOK));
    const zdr::LayerState state = *stored(L"Ground floor");
    EXPECT_EQ(state.columns.flags[2], before ^ each.bit);
    for (const std::size_t other : {0u, 1u, 3u})
        EXPECT_EQ(state.columns.flags[other], before) << other;
    EXPECT_THAT(ui::callsOf("imp.updateLayerStateLayer"),
                ElementsAre("imp.updateLayerStateLayer(\"Ground floor\", object, false) = true"));
    EXPECT_THAT(ui::callsOf("record.setName"), ElementsAre("record.setName(null, \"Doors\") = 0"));
}

TEST_P(EachFlag, OfAReferencesLayerIsTurnedAsAnyOther) {
    open(tenRows());
    run(look("a layer of a reference", [this] { record(kRow).m_isDependent = true; })
            .clickCell(grid, kRow, GetParam().column)
            .then(look("turned", [this] { EXPECT_THAT(markedRows(), ElementsAre(kRow)); })));
}

class Toggle : public EditClicksTest {
  protected:
    /// "Row 0" to "Row 2", the reserved layer in row 3, and Base in row 4.
    static TestDrawing withReservedLayer() {
        TestDrawing drawing;
        for (const wchar_t* name : {L"ReferencePoints", L"Row 2", L"Row 1", L"Row 0"})
            drawing.layer(name);
        return drawing.state(L"State", MaskAllProperties);
    }
    static Script noMessageIsShown() {
        return Script().look("the dialog is in front", [](const View& view) { EXPECT_TRUE(view.has(grid)); });
    }
};

TEST_F(Toggle, GoesByTheTextOfTheCellOfWhichAnythingButZeroIsTurnedOff) {
    open(tenRows());
    run(look("texts that differ from the flags",
             [this] {
                 dialog().m_layerGrid.SetItemText(2, lockGridColumn, L"1");
                 record(4).m_isLocked = true;
                 dialog().m_layerGrid.SetItemText(5, lockGridColumn, L"");
                 record(5).m_isLocked = true;
             })
            .clickCell(grid, 2, lockGridColumn)
            .clickCell(grid, 4, lockGridColumn)
            .clickCell(grid, 5, lockGridColumn)
            .then(look("what the texts said", [this] {
                EXPECT_FALSE(record(2).m_isLocked);
                EXPECT_TRUE(record(4).m_isLocked);
                EXPECT_FALSE(record(5).m_isLocked);
                EXPECT_THAT(markedRows(), ElementsAre(2, 4, 5));
            })));
}

TEST_F(Toggle, TheCurrentLayerIsNotFrozen) {
    open(tenRows());
    run(Script()
            .then(countFromHere())
            .clickCell(grid, kCurrentRow, freezeGridColumn)
            .then(refusalIsShown(IDS_LSTATE_CURRENT_LAYER_NO_FREEZE))
            .then(look("nothing", [this] {
                EXPECT_FALSE(record(kCurrentRow).m_isFrozen);
                EXPECT_THAT(markedRows(), IsEmpty());
                EXPECT_THAT(callsBesideDrawing(), IsEmpty()) << "refused before its name counts";
            })));
}

TEST_F(Toggle, TheCurrentLayerIsNotThawedEither) {
    open(tenRows());
    run(look("it is frozen",
             [this] {
                 record(kCurrentRow).m_isFrozen = true;
                 dialog().m_layerGrid.SetItemText(kCurrentRow, freezeGridColumn, L"1");
             })
            .clickCell(grid, kCurrentRow, freezeGridColumn)
            .then(refusalIsShown(IDS_LSTATE_CURRENT_LAYER_NO_FREEZE))
            .then(look("nothing", [this] {
                EXPECT_TRUE(record(kCurrentRow).m_isFrozen);
                EXPECT_THAT(rowsShowing(freezeGridColumn, L"1"), ElementsAre(kCurrentRow));
                EXPECT_THAT(markedRows(), IsEmpty());
            })));
}

TEST_F(Toggle, TheCurrentLayerIsFrozenAlongBehindAnotherFirstRow) {
    open(tenRows());
    run(Script()
            .then(select({4, kCurrentRow}))
            .clickCell(grid, kCurrentRow, freezeGridColumn)
            .then(noMessageIsShown())
            .then(look("both", [this] {
                EXPECT_THAT(rowsWith(&CLayerRcd::m_isFrozen), ElementsAre(4, kCurrentRow));
                EXPECT_THAT(markedRows(), ElementsAre(4, kCurrentRow));
                EXPECT_THAT(rowsWith(&CLayerRcd::m_isCurrent), ElementsAre(kCurrentRow));
            })));
}

TEST_F(Toggle, TheCurrentLayerAsTheFirstRowKeepsAllFromBeingFrozen) {
    open(tenRows());
    run(Script()
            .doubleClickCell(grid, 1, nameGridColumn)
            .then(look("forget that", [this] { record(1).m_isModified = false; }))
            .then(select({1, 4, 6}))
            .clickCell(grid, 4, freezeGridColumn)
            .then(refusalIsShown(IDS_LSTATE_CURRENT_LAYER_NO_FREEZE))
            .then(expectSelected({1, 4, 6}))
            .then(look("none", [this] {
                EXPECT_THAT(rowsWith(&CLayerRcd::m_isFrozen), IsEmpty());
                EXPECT_THAT(markedRows(), IsEmpty());
            })));
}

TEST_F(Toggle, TheCurrentLayersOtherFlagsAreTurned) {
    open(tenRows());
    Script script;
    for (const FlagColumn& each : flagColumns)
        if (each.column != freezeGridColumn)
            script.clickCell(grid, kCurrentRow, each.column);
    run(script.then(look("all", [this] {
        const CLayerRcd& current = record(kCurrentRow);
        EXPECT_TRUE(current.m_isOff && current.m_isLocked && !current.m_isPlottable && current.m_isNewVpFrozen);
        EXPECT_THAT(markedRows(), ElementsAre(kCurrentRow));
    })));
}

TEST_F(Toggle, AReservedLayerIsNeitherFrozenNorPlottedWithoutAWord) {
    open(withReservedLayer());
    run(Script()
            .then(countFromHere())
            .clickCell(grid, 3, freezeGridColumn)
            .then(noMessageIsShown())
            .clickCell(grid, 3, plotGridColumn)
            .then(noMessageIsShown())
            .then(look("nothing", [this] {
                EXPECT_FALSE(record(3).m_isFrozen);
                EXPECT_TRUE(record(3).m_isPlottable);
                EXPECT_EQ(dialog().m_layerGrid.GetItemText(3, freezeGridColumn), L"0");
                EXPECT_EQ(dialog().m_layerGrid.GetItemText(3, plotGridColumn), L"1");
                EXPECT_THAT(markedRows(), IsEmpty());
                EXPECT_THAT(callsBesideDrawing(), ElementsAre("isReservedLayerName(\"ReferencePoints\") = true",
                                                              "isReservedLayerName(\"ReferencePoints\") = true"));
            })));
}

TEST_F(Toggle, AReservedLayersOtherFlagsAreTurned) {
    open(withReservedLayer());
    run(Script()
            .clickCell(grid, 3, onGridColumn)
            .clickCell(grid, 3, lockGridColumn)
            .clickCell(grid, 3, newVpFreezeGridColumn)
            .then(look("all", [this] {
                EXPECT_TRUE(record(3).m_isOff && record(3).m_isLocked && record(3).m_isNewVpFrozen);
                EXPECT_THAT(markedRows(), ElementsAre(3));
            })));
}

TEST_F(Toggle, AReservedLayerIsFrozenAlongBehindAnotherFirstRow) {
    open(withReservedLayer());
    run(Script().then(select({1, 3})).clickCell(grid, 3, freezeGridColumn).then(look("both", [this] {
        EXPECT_THAT(rowsWith(&CLayerRcd::m_isFrozen), ElementsAre(1, 3));
        EXPECT_THAT(markedRows(), ElementsAre(1, 3));
    })));
}

TEST_F(Toggle, AReservedLayerAsTheFirstRowKeepsTheOthersAsTheyAre) {
    open(withReservedLayer());
    run(Script().then(select({3, 4})).clickCell(grid, 4, plotGridColumn).then(look("none", [this] {
        EXPECT_THAT(rowsWith(&CLayerRcd::m_isPlottable), ElementsAre(0, 1, 2, 3, 4));
        EXPECT_THAT(markedRows(), IsEmpty());
    })));
}

TEST_F(Toggle, ADoubleClickOnACellCountsAsOneClick) {
    open(tenRows());
    run(Script().doubleClickCell(grid, 2, lockGridColumn).then(look("turned once", [this] {
        EXPECT_THAT(rowsWith(&CLayerRcd::m_isLocked), ElementsAre(2));
        EXPECT_THAT(rowsWith(&CLayerRcd::m_isCurrent), ElementsAre(kCurrentRow));
    })));
}

TEST_F(Toggle, AnotherButtonEditsNothing) {
    open(tenRows());
    run(Script()
            .then(select({2, 4}))
            .step("click with the right button",
                  [](const View& view) -> ui::Obstacle {
                      const std::optional<RECT> cell = view.cellRect(grid, 4, lockGridColumn);
                      if (!cell || !ui::pointerRestsAt(ui::middleOf(*cell)))
                          return "the pointer isn't there";
                      ui::click(ui::OtherButton::right);
                      return std::nullopt;
                  })
            .then(look("nothing", [this] {
                EXPECT_THAT(markedRows(), IsEmpty());
                EXPECT_THAT(dialog().m_selectedRows, ElementsAre(2)) << "as it was at the left button's last press";
            })));
}

TEST_F(Toggle, AClickGoesByTheColumnUnderThePointerAlsoInAGridThatIsScrolledSideways) {
    open(tenRows());
    run(Script()
            .look("scrolled by more than a column",
                  [this](const View& view) {
                      dialog().m_layerGrid.SetColumnWidth(nameGridColumn, 500);
                      SendMessageW(view.control(grid), LVM_SCROLL, 300, 0);
                  })
            .clickCell(grid, kRow, lockGridColumn)
            .clickCell(grid, 5, newVpFreezeGridColumn)
            .then(look("two cells", [this] {
                EXPECT_THAT(rowsWith(&CLayerRcd::m_isLocked), ElementsAre(kRow));
                EXPECT_THAT(rowsWith(&CLayerRcd::m_isNewVpFrozen), ElementsAre(5));
                EXPECT_THAT(markedRows(), ElementsAre(kRow, 5));
            })));
}

TEST_F(Toggle, AClickBesideTheLastColumnEditsNothing) {
    open(tenRows());
    run(Script()
            .clickPoint("beside the last column",
                        [](const View& view) -> std::optional<POINT> {
                            const std::optional<RECT> last = view.cellRect(grid, kRow, newVpFreezeGridColumn);
                            if (!last || last->right + 10 >= view.rect(grid).right)
                                return std::nullopt;
                            return POINT{last->right + 8, (last->top + last->bottom) / 2};
                        })
            .then(look("nothing", [this] { EXPECT_THAT(markedRows(), IsEmpty()); })));
}

TEST_F(Toggle, AClickTakesBackThatTheRowWasRemoved) {
    open(tenRows());
    run(look("as if removed, with its row still there", [this] { record(2).m_isRemoved = true; })
            .clickCell(grid, 2, lockGridColumn)
            .then(look("it is back", [this] {
                EXPECT_FALSE(record(2).m_isRemoved);
                EXPECT_THAT(markedRows(), ElementsAre(2));
            })));
}

} // namespace
