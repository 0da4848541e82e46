// LAYOUT and VPORT in drawings with many, few and no layouts and viewports.

#include "CommandFixture.h"

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

namespace {

class SpacesTest : public CommandFixture {
  protected:
    /// The drawing with that many layouts, all of them like its first one.
    void makeLayouts(std::size_t count) {
        zdr::Drawing changed = drawing();
        const zdr::Layout first = changed.layouts.at(0);
        changed.layouts.clear();
        changed.activeLayout.reset();
        for (std::size_t i = 1; i <= count; ++i) {
            changed.layouts.push_back(first);
            changed.layouts.back().name = L"Sheet " + std::to_wstring(i);
            for (zdr::Viewport& viewport : changed.layouts.back().viewports)
                viewport.handle = changed.nextHandle++;
        }
        session.rebuild(changed);
    }
    void takeViewportsAway() {
        zdr::Drawing changed = drawing();
        changed.layouts.at(0).viewports.clear();
        session.rebuild(changed);
    }
};

} // namespace

TEST_F(SpacesTest, ModelIsATabByNameToo) {
    run(L"LAYOUT Layout1");
    EXPECT_EQ(run(L"LAYOUT model"), L"Model space is shown.\n");
    EXPECT_FALSE(drawing().activeLayout);
}

TEST_F(SpacesTest, AnUnknownNameIsToldWithAsManyOfTheOthersAsCanBeRead) {
    makeLayouts(3);
    EXPECT_EQ(run(L"LAYOUT x"),
              L"The drawing has no layout \"x\": give one of \"Sheet 1\", \"Sheet 2\", \"Sheet 3\".\n");
    makeLayouts(40);
    EXPECT_THAT(run(L"LAYOUT x"),
                AllOf(HasSubstr(L"\"Sheet 12\""), Not(HasSubstr(L"\"Sheet 13\"")), EndsWith(L" and more.\n")));
    makeLayouts(0);
    EXPECT_EQ(run(L"LAYOUT x"), L"The drawing has no layout \"x\": MODEL shows all that it has.\n");
}

TEST_F(SpacesTest, AnUnknownViewportIsToldWithTheOthers) {
    run(L"LAYOUT Layout1");
    EXPECT_EQ(run(L"VPORT 7"), L"The layout has no viewport 7: give 2, or NONE.\n");
    takeViewportsAway();
    EXPECT_EQ(run(L"VPORT 7"), L"The layout has no viewport 7: give NONE.\n");
}
