// The enable table of the manager, over every combination of the facts: number of selected rows, viewport, dependence,
// mask.
#include "ControlRules.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace {

// One character for each combination of viewport (V) and dependence (D): "--", "-D", "V-", "VD"; 1 is enabled.
struct Row {
    int control;
    const char* noRow;
    const char* oneRow;
    const char* twoRows;
};
constexpr Row table[] = {
    {IDC_LSTATE_RES_NEW, "1111", "1111", "1111"},           {IDC_LSTATE_RES_DELETE, "0000", "1010", "1010"},
    {IDC_LSTATE_RES_RESTORE, "0000", "1111", "0000"},       {IDC_LSTATE_RES_EXPORT, "0000", "1010", "0000"},
    {IDC_LSTATE_RES_RENAME, "0000", "1010", "0000"},        {IDC_LSTATE_RES_EDIT, "0000", "1010", "0000"},
    {IDC_LSTATE_RES_UPDATE, "0000", "1010", "0000"},        {IDC_LSTATE_RES_IMPORT, "1111", "1111", "1111"},
    {IDC_LSTATE_RES_LAYERNOTFOUND, "0000", "1111", "1111"}, {IDC_LSTATE_RES_ON, "0000", "1100", "0000"},
    {IDC_LSTATE_RES_FROZEN, "0000", "1100", "0000"},        {IDC_LSTATE_RES_VPFROZEN, "0000", "0011", "0000"},
    {IDC_LSTATE_RES_LOCKED, "0000", "1111", "0000"},        {IDC_LSTATE_RES_PLOT, "0000", "1111", "0000"},
    {IDC_LSTATE_RES_NEWVP, "0000", "1111", "0000"},         {IDC_LSTATE_RES_COLOR, "0000", "1111", "0000"},
    {IDC_LSTATE_RES_LINETYPE, "0000", "1111", "0000"},      {IDC_LSTATE_RES_LINEWEIGHT, "0000", "1111", "0000"},
    {IDC_LSTATE_RES_PLOTSTYLE, "0000", "1111", "0000"},     {IDC_LSTATE_RES_PANEL, "0000", "1111", "0000"},
    {IDC_LSTATE_RES_SELECTALL, "0000", "1111", "0000"},     {IDC_LSTATE_RES_CLEARALL, "0000", "1111", "0000"},
};

// The option to restore as overrides looks at the mask as well.
struct OverridesRow {
    std::optional<LayerStateMask> mask;
    const char* noRow;
    const char* oneRow;
    const char* twoRows;
};
constexpr LayerStateMask noOverridable = MaskAllProperties & ~MaskOverridable;
const OverridesRow overridesTable[] = {
    {MaskAllProperties, "0000", "0011", "1111"}, {MaskColor, "0000", "0011", "1111"},
    {MaskLinetype, "0000", "0011", "1111"},      {MaskLineWeight, "0000", "0011", "1111"},
    {MaskPlotStyle, "0000", "0011", "1111"},     {noOverridable, "0000", "0000", "1111"},
    {LayerStateMask{0}, "0000", "0000", "1111"}, {std::nullopt, "0000", "1111", "1111"},
};

template <class Expected> bool expectedOf(const Expected& row, const SelectionFacts& facts) {
    const char* cells[] = {row.noRow, row.oneRow, row.twoRows};
    return cells[facts.selectedRows][(facts.inViewport ? 2 : 0) + (facts.dependentSelected ? 1 : 0)] == '1';
}

std::string describe(const SelectionFacts& facts) {
    return std::to_string(facts.selectedRows) + " rows, " + (facts.inViewport ? "viewport" : "model") + ", " +
           (facts.dependentSelected ? "dependent" : "own") + ", mask " +
           (facts.mask ? std::to_string(*facts.mask) : "unreadable");
}

template <class Check> void forEveryCombination(Check check) {
    for (const OverridesRow& row : overridesTable)
        for (int selected = 0; selected <= 2; ++selected)
            for (const bool inViewport : {false, true})
                for (const bool dependent : {false, true})
                    check(SelectionFacts{selected, inViewport, dependent, row.mask}, row);
}

std::map<int, bool> statesOf(const SelectionFacts& facts) {
    std::map<int, bool> states;
    for (const ControlRule& row : kControlRules)
        EXPECT_TRUE(states.emplace(row.control, isEnabled(row.rule, facts)).second) << row.control << " is there twice";
    return states;
}

} // namespace

TEST(ControlRules, AnswerTheTableForEveryCombinationOfTheFacts) {
    forEveryCombination([](const SelectionFacts& facts, const OverridesRow&) {
        const std::map<int, bool> states = statesOf(facts);
        for (const Row& row : table) {
            ASSERT_TRUE(states.contains(row.control)) << row.control;
            EXPECT_EQ(states.at(row.control), expectedOf(row, facts)) << row.control << " with " << describe(facts);
        }
    });
}

TEST(ControlRules, AnswerTheOverridesOptionByViewportAndMaskForEveryCombination) {
    forEveryCombination([](const SelectionFacts& facts, const OverridesRow& row) {
        EXPECT_EQ(statesOf(facts).at(IDC_LSTATE_RES_OVERRIDES), expectedOf(row, facts)) << describe(facts);
    });
}

TEST(ControlRules, AnswerNoOtherControl) {
    EXPECT_EQ(statesOf({}).size(), std::size(table) + 1);
    for (const int untouched : {IDC_LSTATE_RES_LIST, IDC_LSTATE_RES_CLOSE, IDC_LSTATE_RES_HIDEXREFS,
                                IDC_LSTATE_RES_EXPAND, IDC_LSTATE_RES_CURRENT, ID_HELP})
        EXPECT_FALSE(statesOf({}).contains(untouched)) << untouched;
}

TEST(ControlRules, KeepDeleteTheTwoOptionsNewAndImportForSeveralRows) {
    const std::map<int, bool> states = statesOf({7, false, false, std::nullopt});
    for (const auto& [control, enabled] : states) {
        const bool live = control == IDC_LSTATE_RES_NEW || control == IDC_LSTATE_RES_DELETE ||
                          control == IDC_LSTATE_RES_IMPORT || control == IDC_LSTATE_RES_LAYERNOTFOUND ||
                          control == IDC_LSTATE_RES_OVERRIDES;
        EXPECT_EQ(enabled, live) << control;
    }
}
