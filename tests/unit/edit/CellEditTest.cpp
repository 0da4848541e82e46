// What a click on a cell does to which records.

#include "CellEdit.h"

#include "DomainTest.h"
#include "GridColumns.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

class CellEditing : public DomainTest {
  protected:
    CellEditing() { m_record.m_name = L"Walls"; }
    CellEdit click(int column) const { return cellEditOf(m_record, column, m_database); }
    void followTheColour() {
        zdr::Drawing other = drawing();
        other.colorDependentPlotStyles = true;
        use(std::move(other));
    }
    CLayerRcd m_record;
};

TEST_F(CellEditing, GoesByTheColumn) {
    const std::vector<CellEdit> expected = {CellEdit::none,           CellEdit::toggle,        CellEdit::toggle,
                                            CellEdit::toggle,         CellEdit::pickColor,     CellEdit::pickLinetype,
                                            CellEdit::pickLineWeight, CellEdit::pickPlotStyle, CellEdit::toggle,
                                            CellEdit::toggle};
    for (int column = 0; column < gridColumnCount; ++column)
        EXPECT_EQ(click(column), expected[static_cast<std::size_t>(column)]) << column;
}

TEST_F(CellEditing, DoesNothingBesideTheColumns) {
    EXPECT_EQ(click(-1), CellEdit::none);
    EXPECT_EQ(click(gridColumnCount), CellEdit::none);
}

TEST_F(CellEditing, RefusesToFreezeTheCurrentLayerAndAlsoToThawIt) {
    m_record.m_isCurrent = true;
    EXPECT_EQ(click(freezeGridColumn), CellEdit::refuseFreeze);
    m_record.m_isFrozen = true;
    EXPECT_EQ(click(freezeGridColumn), CellEdit::refuseFreeze);
    EXPECT_EQ(click(onGridColumn), CellEdit::toggle);
    EXPECT_EQ(click(newVpFreezeGridColumn), CellEdit::toggle);
}

TEST_F(CellEditing, RefusesTheCurrentLayerBeforeItAsksWhetherTheNameIsReserved) {
    m_record.m_isCurrent = true;
    m_record.m_name = L"ReferencePoints";
    instruments::clearTrace();
    EXPECT_EQ(click(freezeGridColumn), CellEdit::refuseFreeze);
    EXPECT_THAT(instruments::trace(), IsEmpty());
}

TEST_F(CellEditing, LeavesReservedLayersThawedAndUnplottedWithoutAWord) {
    m_record.m_name = L"ReferencePoints";
    EXPECT_EQ(click(freezeGridColumn), CellEdit::none);
    EXPECT_EQ(click(plotGridColumn), CellEdit::none);
    for (const int column : {onGridColumn, lockGridColumn, newVpFreezeGridColumn})
        EXPECT_EQ(click(column), CellEdit::toggle) << column;
}

TEST_F(CellEditing, AsksForReservedNamesInNoOtherColumn) {
    instruments::clearTrace();
    for (const int column : {onGridColumn, lockGridColumn, newVpFreezeGridColumn, colorGridColumn, linetypeGridColumn,
                             lineWeightGridColumn, plotStyleGridColumn})
        static_cast<void>(click(column));
    EXPECT_THAT(instruments::trace(), Not(Contains(testing::HasSubstr("isReservedLayerName"))));
}

TEST_F(CellEditing, PicksNoPlotStyleWhereItFollowsTheColour) {
    followTheColour();
    EXPECT_EQ(click(plotStyleGridColumn), CellEdit::none);
    EXPECT_EQ(click(colorGridColumn), CellEdit::pickColor);
}

TEST_F(CellEditing, OfAReferencesLayerIsAsOfAnyOther) {
    m_record.m_isDependent = true;
    for (int column = onGridColumn; column < gridColumnCount; ++column)
        EXPECT_NE(click(column), CellEdit::none) << column;
}

TEST(CurrentLayer, IsNeitherFrozenNorAReferences) {
    CLayerRcd record;
    EXPECT_EQ(currentLayerChange(record), CurrentLayerChange::allowed);
    record.m_isDependent = true;
    EXPECT_EQ(currentLayerChange(record), CurrentLayerChange::refusedDependent);
    record.m_isFrozen = true;
    EXPECT_EQ(currentLayerChange(record), CurrentLayerChange::refusedFrozen);
    record.m_isDependent = false;
    EXPECT_EQ(currentLayerChange(record), CurrentLayerChange::refusedFrozen);
    record.m_isFrozen = false;
    record.m_isOff = record.m_isLocked = true;
    EXPECT_EQ(currentLayerChange(record), CurrentLayerChange::allowed);
}

TEST(KeptSelection, IsForAPressOnACellOfOneOfSeveralSelectedRows) {
    EXPECT_TRUE(keepsSelection({2, 5, 7}, 5, 1));
    EXPECT_TRUE(keepsSelection({2, 5}, 2, 9));
    EXPECT_TRUE(keepsSelection({0, 5}, 0, 1));
    EXPECT_FALSE(keepsSelection({2, 5, 7}, 5, 0)) << "on the name";
    EXPECT_FALSE(keepsSelection({2, 5, 7}, 4, 1)) << "outside";
    EXPECT_FALSE(keepsSelection({2, 5, 7}, -1, 1)) << "on no row";
    EXPECT_FALSE(keepsSelection({5}, 5, 1)) << "one row";
    EXPECT_FALSE(keepsSelection({}, 5, 1));
}

TEST(RowsOfClick, AreAllThatWereSelectedIfTheFirstOfNowIsAmongThem) {
    std::vector<int> rows = {2, 5, 7};
    keepRowsOfClick(rows, 5);
    EXPECT_THAT(rows, ElementsAre(2, 5, 7));
    keepRowsOfClick(rows, 9);
    EXPECT_THAT(rows, IsEmpty());
    rows = {2};
    keepRowsOfClick(rows, -1);
    EXPECT_THAT(rows, IsEmpty());
}

TEST(CellValues, OfFlagsGoToTheFlagOfTheirKindAlone) {
    for (const int kind : {onKind, freezeKind, lockKind, plotKind, newVpFreezeKind}) {
        CLayerRcd record;
        setFlag(record, kind, true);
        for (const int other : {onKind, freezeKind, lockKind, plotKind, newVpFreezeKind})
            EXPECT_EQ(record.*flagOfKind(other), other == kind) << kind << ", " << other;
        EXPECT_TRUE(record.m_isModified);
        setFlag(record, kind, false);
        EXPECT_FALSE(record.*flagOfKind(kind)) << kind;
    }
    CLayerRcd untouched;
    setFlag(untouched, nameKind, true);
    EXPECT_FALSE(untouched.m_isOff || untouched.m_isFrozen || untouched.m_isLocked || untouched.m_isPlottable ||
                 untouched.m_isNewVpFrozen || untouched.m_isModified);
}

TEST_F(CellEditing, GivesAPickedValueAndMarksTheRecord) {
    KelCmColor red;
    red.setColorIndex(1);
    ::setColor(m_record, red);
    EXPECT_EQ(m_record.m_color.colorIndex(), 1);
    EXPECT_TRUE(m_record.m_isModified);

    CLayerRcd dashed;
    setLinetype(dashed, layerId(L"Doors"), L"Dashed");
    EXPECT_EQ(dashed.m_linetypeId, layerId(L"Doors"));
    EXPECT_EQ(dashed.m_linetypeName, L"Dashed");
    EXPECT_TRUE(dashed.m_isModified);

    CLayerRcd thick;
    setLineWeight(thick, 211);
    EXPECT_EQ(thick.m_lineWeight, 211);
    EXPECT_TRUE(thick.m_isModified);
}

TEST_F(CellEditing, GivesAPlotStyleAndLeavesTheMarkToItsCaller) {
    setPlotStyle(m_record, layerId(L"Doors"), L"Fine");
    EXPECT_EQ(m_record.m_plotStyleId, layerId(L"Doors"));
    EXPECT_EQ(m_record.m_plotStyleName, L"Fine");
    EXPECT_FALSE(m_record.m_isModified);
}

} // namespace
