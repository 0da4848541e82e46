// The table of property boxes, and masks read from boxes.
#include "PropertyTable.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

namespace {

template <class Chosen> std::vector<int> boxesThat(Chosen chosen) {
    std::vector<int> controls;
    for (const PropertyBox& box : kPropertyTable)
        if (chosen(box))
            controls.push_back(box.control);
    return controls;
}

LayerStateMask maskOf(const std::set<int>& ticked) {
    return maskFromBoxes([&](int control) { return ticked.contains(control); });
}

} // namespace

TEST(PropertyTable, PairsTheTenBoxesWithTheirBitsInTheOrderOfTheBoxes) {
    const std::vector<std::pair<int, LayerStateMask>> expected = {{1008, 1},   {1009, 2},  {1012, 512}, {1010, 4},
                                                                  {1011, 8},   {1013, 16}, {1014, 32},  {1015, 64},
                                                                  {1016, 128}, {1017, 256}};
    std::vector<std::pair<int, LayerStateMask>> actual;
    for (const PropertyBox& box : kPropertyTable)
        actual.emplace_back(box.control, box.bit);
    EXPECT_EQ(actual, expected);
}

TEST(PropertyTable, HoldsEveryPropertyOnce) {
    LayerStateMask all = 0;
    for (const PropertyBox& box : kPropertyTable) {
        EXPECT_EQ(all & box.bit, 0u);
        all |= box.bit;
    }
    EXPECT_EQ(all, MaskAllProperties);
}

TEST(PropertyTable, CallsColorLinetypeLineweightAndPlotStyleOverridable) {
    EXPECT_EQ(boxesThat([](const PropertyBox& box) { return box.isOverridable(); }),
              (std::vector{1014, 1015, 1016, 1017}));
}

TEST(PropertyTable, LeavesTheThreeBoxesThatLookAtTheViewportOutOfTheCommonRule) {
    EXPECT_EQ(boxesThat([](const PropertyBox& box) { return box.rule == EnableRule::oneRow; }),
              (std::vector{1010, 1011, 1013, 1014, 1015, 1016, 1017}));
}

TEST(MaskFromBoxes, IsZeroWithoutATick) {
    EXPECT_EQ(maskOf({}), 0u);
}

TEST(MaskFromBoxes, AddsTheBitOfEachTickedBox) {
    EXPECT_EQ(maskOf({1008}), MaskOn);
    EXPECT_EQ(maskOf({1012, 1014}), MaskViewportFrozen | MaskColor);
    EXPECT_EQ(maskOf({1008, 1009, 1010, 1011, 1012, 1013, 1014, 1015, 1016, 1017}), MaskAllProperties);
}

TEST(MaskFromBoxes, ComesBackFromTheBoxesThatItTicks) {
    for (LayerStateMask mask = 0; mask <= MaskAllProperties; ++mask) {
        std::set<int> ticked;
        for (const PropertyBox& box : kPropertyTable)
            if (isTickedBy(mask, box.bit))
                ticked.insert(box.control);
        ASSERT_EQ(maskOf(ticked), mask);
    }
}

TEST(IsTickedBy, LooksAtTheBoxsOwnBitAlone) {
    EXPECT_TRUE(isTickedBy(MaskOn | 0x8000, MaskOn));
    EXPECT_FALSE(isTickedBy(MaskAllProperties & ~MaskOn, MaskOn));
}

TEST(AnyOverridableBoxTicked, IsTrueForEachOfTheFourAndForNoOther) {
    for (const PropertyBox& box : kPropertyTable) {
        const int only = box.control;
        EXPECT_EQ(anyOverridableBoxTicked([&](int control) { return control == only; }), only >= 1014) << only;
    }
    EXPECT_FALSE(anyOverridableBoxTicked([](int) { return false; }));
}
