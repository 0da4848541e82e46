// VPLAYER: freezing and overrides in viewports.

#include "CommandFixture.h"
#include "LayerStateMask.h"

#include "engine/DatabaseAccess.h"

namespace {

class ViewportLayerCommandTest : public CommandFixture {
  protected:
    ViewportLayerCommandTest() {
        zdr::Drawing two = drawing();
        zdr::Viewport second = two.layouts[0].viewports[0];
        second.handle = 0;
        second.number = 3;
        two.layouts[0].viewports.push_back(second);
        zdr::Viewport off = second;
        off.number = -1;
        two.layouts[0].viewports.push_back(off);
        session.rebuild(two);
        run(L"LAYER NEW Walls,Windows");
        session.showTab(1);
        run(L"VPORT 2");
    }
    const zdr::Viewport& viewport(std::size_t index) const { return drawing().layouts[0].viewports[index]; }
    bool isFrozen(std::size_t index, const wchar_t* name) const {
        const auto& frozen = viewport(index).frozen;
        return layer(name) < frozen.size() && frozen[layer(name)];
    }
    const zdr::ViewportOverride* overrideOf(std::size_t index, const wchar_t* name) const {
        for (const zdr::ViewportOverride& own : viewport(index).overrides)
            if (own.layer == layer(name))
                return &own;
        return nullptr;
    }
};

} // namespace

TEST_F(ViewportLayerCommandTest, FreezesInTheCurrentViewportAlone) {
    EXPECT_EQ(run(L"VPLAYER FREEZE W*"), L"2 layers are frozen in the viewport.\n");
    EXPECT_TRUE(isFrozen(0, L"Walls"));
    EXPECT_TRUE(isFrozen(0, L"Windows"));
    EXPECT_FALSE(isFrozen(0, L"Base"));
    EXPECT_FALSE(isFrozen(1, L"Walls"));
    EXPECT_EQ(run(L"VPLAYER THAW Walls"), L"1 layer is thawed in the viewport.\n");
    EXPECT_FALSE(isFrozen(0, L"Walls"));
    EXPECT_TRUE(isFrozen(0, L"Windows"));
    run(L"UNDO");
    EXPECT_TRUE(isFrozen(0, L"Walls"));
}

TEST_F(ViewportLayerCommandTest, FreezesInAViewportGivenByNumberOrInAll) {
    run(L"VPLAYER FREEZE Walls IN 3");
    EXPECT_FALSE(isFrozen(0, L"Walls"));
    EXPECT_TRUE(isFrozen(1, L"Walls"));
    EXPECT_EQ(run(L"VPLAYER FREEZE Windows in all"), L"1 layer is frozen in 2 viewports.\n");
    EXPECT_TRUE(isFrozen(0, L"Windows"));
    EXPECT_TRUE(isFrozen(1, L"Windows"));
    EXPECT_FALSE(isFrozen(2, L"Windows")) << "that one isn't on";
}

TEST_F(ViewportLayerCommandTest, OverridesPropertiesOneByOne) {
    EXPECT_EQ(run(L"VPLAYER COLOUR red Walls"), L"1 layer is shown with red in the viewport.\n");
    run(L"VPLAYER LWEIGHT 0.7 Walls");
    run(L"VPLAYER LTYPE continuous Walls");
    run(L"VPLAYER PSTYLE normal Walls");
    const zdr::ViewportOverride* own = overrideOf(0, L"Walls");
    ASSERT_NE(own, nullptr);
    EXPECT_EQ(own->mask, MaskOverridable);
    EXPECT_EQ(own->color, 1u);
    EXPECT_EQ(own->lineWeight, 70);
    EXPECT_EQ(drawing().names.text(own->linetype), L"Continuous");
    EXPECT_EQ(drawing().names.text(own->plotStyle), L"Normal");
    EXPECT_EQ(overrideOf(1, L"Walls"), nullptr);
    run(L"UNDO");
    EXPECT_EQ(overrideOf(0, L"Walls")->mask, MaskOverridable & ~MaskPlotStyle) << "one step each";
}

TEST_F(ViewportLayerCommandTest, OverridesTheCurrentLayerWithoutAName) {
    run(L"VPLAYER COLOUR 5 IN 3");
    EXPECT_EQ(overrideOf(1, L"Base")->color, 5u);
    EXPECT_EQ(run(L"VPLAYER COLOUR IN 3"), L"VPLAYER lacks a value: give one before IN.\n");
}

TEST_F(ViewportLayerCommandTest, ResetTakesOverridesAwayAndLeavesTheFreezing) {
    run(L"VPLAYER COLOUR red W*");
    run(L"VPLAYER FREEZE Walls");
    EXPECT_EQ(run(L"VPLAYER RESET Walls"),
              L"1 layer is without overrides in the viewport, and frozen there or not as before.\n");
    EXPECT_EQ(overrideOf(0, L"Walls"), nullptr);
    EXPECT_NE(overrideOf(0, L"Windows"), nullptr);
    EXPECT_TRUE(isFrozen(0, L"Walls"));
}

TEST_F(ViewportLayerCommandTest, ListsWhatEachViewportFreezesAndOverrides) {
    run(L"VPLAYER FREEZE W*");
    run(L"VPLAYER COLOR 0,60,140 Walls");
    run(L"VPLAYER LWEIGHT 0.7 Walls");
    run(L"VPLAYER LTYPE continuous Base IN 3");
    run(L"VPLAYER PSTYLE normal Base IN 3");
    const std::uint64_t content = engine::contentNumber(session.database());
    const std::wstring second = L"Viewport 2 (current): 2 layers are frozen, 1 layer is shown otherwise.\n"
                                L"    Walls: frozen, color 0,60,140, lineweight 0.70 mm\n"
                                L"    Windows: frozen\n";
    const std::wstring third = L"Viewport 3: 0 layers are frozen, 1 layer is shown otherwise.\n"
                               L"    Base: linetype Continuous, plot style Normal\n";
    EXPECT_EQ(run(L"VPLAYER LIST"), second + third);
    EXPECT_EQ(run(L"VPLAYER LIST in all"), second + third);
    EXPECT_EQ(run(L"VPLAYER LIST IN 3"), third);
    EXPECT_EQ(run(L"VPLAYER ? Wi*,Base IN 2"),
              L"Viewport 2 (current): 1 layer is frozen, 0 layers are shown otherwise.\n    Windows: frozen\n");
    run(L"VPORT none");
    EXPECT_EQ(run(L"VPLAYER LIST Windows"),
              L"Viewport 2: 1 layer is frozen, 0 layers are shown otherwise.\n    Windows: frozen\n"
              L"Viewport 3: 0 layers are frozen, 0 layers are shown otherwise.\n");
    EXPECT_EQ(engine::contentNumber(session.database()), content);
}

TEST_F(ViewportLayerCommandTest, ListsNothingWhereThereIsNone) {
    EXPECT_EQ(run(L"VPLAYER LIST IN 9"), L"The layout has no viewport \"9\": give the number of one, or ALL.\n");
    EXPECT_EQ(run(L"VPLAYER LIST Roofs"),
              L"No layer is called \"Roofs\": LAYER LIST shows the names; one with blanks goes in quotes.\n");
    zdr::Drawing bare = drawing();
    bare.layouts[0].viewports.clear();
    bare.currentViewport.reset();
    session.rebuild(bare);
    EXPECT_EQ(run(L"VPLAYER LIST"), L"The layout has no viewports.\n");
    run(L"MODEL");
    EXPECT_EQ(run(L"VPLAYER LIST"), L"The model tab has no viewports: LAYOUT shows a layout.\n");
}

TEST_F(ViewportLayerCommandTest, ListsOfVeryManyLayersTheFirst) {
    std::wstring names = L"A000";
    for (int i = 1; i < 202; ++i)
        names += L",A" + std::to_wstring(1000 + i).substr(1);
    run(L"LAYER NEW " + names);
    run(L"VPLAYER FREEZE A*");
    EXPECT_THAT(
        run(L"VPLAYER LIST IN 2"),
        testing::AllOf(testing::StartsWith(L"Viewport 2 (current): 202 layers are frozen"),
                       testing::EndsWith(L"    A199: frozen\n    2 more: a pattern such as A* shows fewer.\n")));
    EXPECT_THAT(run(L"VPLAYER LIST A0*,A1* IN 2"), testing::EndsWith(L"    A199: frozen\n")) << "just as many";
}

TEST_F(ViewportLayerCommandTest, ListsNoOverrideThatIsNone) {
    zdr::Drawing changed = drawing();
    changed.layouts[0].viewports[0].overrides = {{.layer = layer(L"Walls"), .mask = MaskOn}};
    session.rebuild(changed);
    EXPECT_EQ(run(L"VPLAYER LIST IN 2"), L"Viewport 2 (current): 0 layers are frozen, 0 layers are shown otherwise.\n");
}

TEST_F(ViewportLayerCommandTest, NeedsAViewport) {
    EXPECT_EQ(run(L"VPLAYER FREEZE Walls IN 9"),
              L"The layout has no viewport \"9\": give the number of one, or ALL.\n");
    EXPECT_EQ(run(L"VPLAYER FREEZE Walls IN none"),
              L"The layout has no viewport \"none\": give the number of one, or ALL.\n");
    run(L"VPORT none");
    EXPECT_EQ(run(L"VPLAYER FREEZE Walls"),
              L"No viewport is current: VPORT makes one so, or end the line with IN and its number.\n");
    run(L"MODEL");
    EXPECT_EQ(run(L"VPLAYER FREEZE Walls IN 2"), L"The model tab has no viewports: LAYOUT shows a layout.\n");
}

TEST_F(ViewportLayerCommandTest, AFailingTransactionIsToldAndChangesNothing) {
    for (const wchar_t* line : {L"VPLAYER FREEZE Walls", L"VPLAYER COLOR red Walls", L"VPLAYER RESET *"}) {
        instruments::failCall("startTransaction", 1);
        EXPECT_EQ(run(line), L"The drawing can't be changed now: end what is under way and try again.\n");
        EXPECT_FALSE(done);
        EXPECT_FALSE(isFrozen(0, L"Walls"));
        EXPECT_EQ(overrideOf(0, L"Walls"), nullptr);
        instruments::clearFaults();
    }
}
