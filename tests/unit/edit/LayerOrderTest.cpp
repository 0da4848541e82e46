// The orders in which layers are sorted by a click on a heading.

#include "LayerOrder.h"

#include "CLayerRcd.h"

#include <gtest/gtest.h>

#include <map>

namespace {

/// The sign of the order of two records that a column tells apart as the first one being smaller.
class LayerOrder : public testing::TestWithParam<int> {
  protected:
    LayerOrder() {
        m_less.m_name = L"a";
        m_greater.m_name = L"b";
        m_greater.m_isOff = m_greater.m_isFrozen = m_greater.m_isLocked = true;
        m_greater.m_isPlottable = m_greater.m_isNewVpFrozen = true;
        static_cast<void>(m_less.m_color.setColorIndex(1));
        static_cast<void>(m_greater.m_color.setColorIndex(2));
        m_less.m_linetypeName = L"Continuous";
        m_greater.m_linetypeName = L"Dashed";
        m_less.m_lineWeight = 13;
        m_greater.m_lineWeight = 100;
        m_less.m_plotStyleName = L"Fine";
        m_greater.m_plotStyleName = L"Normal";
    }
    CLayerRcd m_less;
    CLayerRcd m_greater;
};

INSTANTIATE_TEST_SUITE_P(EachColumn, LayerOrder, testing::Range(1, 11));

TEST_P(LayerOrder, ComparesTheColumnsProperty) {
    EXPECT_LT(compareLayerRows(&m_less, &m_greater, GetParam()), 0);
    EXPECT_GT(compareLayerRows(&m_greater, &m_less, GetParam()), 0);
}

TEST_P(LayerOrder, IsReversedByANegativeKey) {
    EXPECT_GT(compareLayerRows(&m_less, &m_greater, -GetParam()), 0);
    EXPECT_LT(compareLayerRows(&m_greater, &m_less, -GetParam()), 0);
}

/// Gives a record the value that another one has in the column of a key.
void copyColumn(const CLayerRcd& from, CLayerRcd& to, int key) {
    switch (key) {
    case 1:
        to.m_name = from.m_name;
        return;
    case 5:
        to.m_color = from.m_color;
        return;
    case 6:
        to.m_linetypeName = from.m_linetypeName;
        return;
    case 7:
        to.m_lineWeight = from.m_lineWeight;
        return;
    case 8:
        to.m_plotStyleName = from.m_plotStyleName;
        return;
    default:
        const std::map<int, bool CLayerRcd::*> flags = {{2, &CLayerRcd::m_isOff},
                                                        {3, &CLayerRcd::m_isFrozen},
                                                        {4, &CLayerRcd::m_isLocked},
                                                        {9, &CLayerRcd::m_isPlottable},
                                                        {10, &CLayerRcd::m_isNewVpFrozen}};
        to.*flags.at(key) = from.*flags.at(key);
    }
}

TEST_P(LayerOrder, LooksAtNothingButItsColumn) {
    // All other values differ.
    copyColumn(m_less, m_greater, GetParam());
    EXPECT_EQ(compareLayerRows(&m_less, &m_greater, GetParam()), 0);
    EXPECT_EQ(compareLayerRows(&m_less, &m_greater, -GetParam()), 0);
}

TEST(LayerOrderTest, IsNoOrderWithoutARecordOrAColumn) {
    CLayerRcd a;
    CLayerRcd b;
    a.m_name = L"a";
    b.m_name = L"b";
    EXPECT_EQ(compareLayerRows(nullptr, &b, 1), 0);
    EXPECT_EQ(compareLayerRows(&a, nullptr, 1), 0);
    for (const int key : {0, 11, -11, 100})
        EXPECT_EQ(compareLayerRows(&a, &b, key), 0) << key;
}

TEST(LayerOrderTest, PutsWhatIsNoWidthBeforeAllWidths) {
    CLayerRcd byDefault;
    byDefault.m_lineWeight = -3;
    CLayerRcd byLayer;
    byLayer.m_lineWeight = -1;
    CLayerRcd thinnest;
    thinnest.m_lineWeight = 0;
    EXPECT_LT(compareLayerRows(&byDefault, &byLayer, 7), 0);
    EXPECT_LT(compareLayerRows(&byLayer, &thinnest, 7), 0);
    EXPECT_LT(compareLayerRows(&byDefault, &thinnest, 7), 0);
}

TEST(AddLayerOrder, ComparesNamesInTheFirstColumn) {
    CLayerRcd a;
    CLayerRcd b;
    a.m_name = L"a";
    b.m_name = L"b";
    EXPECT_LT(compareAddLayerRows(&a, &b, 1), 0);
    EXPECT_GT(compareAddLayerRows(&a, &b, -1), 0);
}

TEST(AddLayerOrder, ComparesADescriptionWithTheOthersNameInTheSecond) {
    CLayerRcd a;
    CLayerRcd b;
    a.m_name = L"m";
    a.m_description = L"n";
    b.m_name = L"o";
    b.m_description = L"a";
    EXPECT_LT(compareAddLayerRows(&a, &b, 2), 0); // n before o, although its description comes after
    EXPECT_LT(compareAddLayerRows(&b, &a, 2), 0); // a before m
    EXPECT_GT(compareAddLayerRows(&a, &b, -2), 0);
}

TEST(AddLayerOrder, IsNoOrderWithoutARecordOrAColumn) {
    CLayerRcd a;
    CLayerRcd b;
    a.m_name = a.m_description = L"a";
    b.m_name = b.m_description = L"b";
    EXPECT_EQ(compareAddLayerRows(nullptr, &b, 1), 0);
    EXPECT_EQ(compareAddLayerRows(&a, nullptr, 2), 0);
    for (const int key : {0, 3, -3})
        EXPECT_EQ(compareAddLayerRows(&a, &b, key), 0) << key;
}

TEST(SortKey, TurnsRoundOnTheSameColumnAndStartsAscendingOnAnother) {
    int key = sortKeyAfterClick(0, 3);
    EXPECT_EQ(key, 4);
    key = sortKeyAfterClick(key, 3);
    EXPECT_EQ(key, -4);
    EXPECT_EQ(sortKeyAfterClick(key, 3), 4);
    EXPECT_EQ(sortKeyAfterClick(key, 2), 3);
}

} // namespace
