// Which references of a drawing are there.

#include "ReferenceStates.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using workbench::countText;
using workbench::isAnyMissing;
using workbench::referencesOf;

namespace {

zdr::Reference reference(const wchar_t* name, const wchar_t* path) {
    zdr::Reference made;
    made.name = name;
    made.path = path;
    return made;
}

/// Shows "plan", which holds "grid" and the missing "trees", and has left "site" out.
zdr::Drawing drawing() {
    zdr::Drawing plan;
    plan.references = {reference(L"grid", L"grid.zdr"), reference(L"trees", L"..\\trees.zdr")};
    plan.references[0].drawing = std::make_shared<zdr::Drawing>();
    zdr::Drawing made;
    made.references = {reference(L"plan", L"plan.zdr"), reference(L"site", L"C:\\site.zdr")};
    made.references[0].drawing = std::make_shared<zdr::Drawing>(plan);
    made.references[1].unloaded = true;
    return made;
}

std::vector<std::wstring> linesOf(const zdr::Drawing& drawing) {
    std::vector<std::wstring> lines;
    for (const workbench::ReferenceRow& row : referencesOf(drawing))
        lines.push_back(row.name + L" " + row.path + L" " + stateText(row.state));
    return lines;
}

} // namespace

TEST(ReferenceStates, AreToldOfEachReferenceAndBehindItOfThoseThatItHolds) {
    EXPECT_THAT(linesOf(drawing()), ElementsAre(L"plan plan.zdr loaded", L"plan!grid grid.zdr loaded",
                                                L"plan!trees ..\\trees.zdr missing", L"site C:\\site.zdr unloaded"));
}

TEST(ReferenceStates, AReferenceWithItsDrawingIsLoadedWhateverWasBefore) {
    zdr::Drawing made = drawing();
    made.references[1].drawing = std::make_shared<zdr::Drawing>();
    EXPECT_EQ(linesOf(made).back(), L"site C:\\site.zdr loaded");
}

TEST(ReferenceStates, AreCountedWithTheMissingOnes) {
    EXPECT_EQ(countText({}), L"");
    EXPECT_FALSE(isAnyMissing({}));
    zdr::Drawing made = drawing();
    EXPECT_EQ(countText(referencesOf(made)), L"4 references, 1 missing");
    EXPECT_TRUE(isAnyMissing(referencesOf(made)));
    made.references.erase(made.references.begin());
    EXPECT_EQ(countText(referencesOf(made)), L"1 reference");
    EXPECT_FALSE(isAnyMissing(referencesOf(made)));
    made.references[0].unloaded = false;
    EXPECT_EQ(countText(referencesOf(made)), L"1 reference, 1 missing");
}
