// Restoring a state: what is written back, and what isn't.

#include "EngineTest.h"

class StateRestore : public EngineTest {
  protected:
    /// Saves the drawing as "Plan" with all properties, and then makes every property of Walls differ.
    void savePlanAndChangeWalls() {
        states().saveLayerState(L"Plan", MaskAllProperties);
        change(L"Walls", [this](engine::LayerValues& wall) {
            wall = {zdr::kLayerFrozen | zdr::kLayerLocked | zdr::kLayerNewViewportFrozen, 3, nameId(L"Dashed"), 50,
                    nameId(L"Fine")};
        });
        m_changed = values(L"Walls");
    }
    engine::LayerValues m_changed;
    const engine::LayerValues m_saved = values(L"Walls");
};

TEST_F(StateRestore, WritesAllPropertiesOfTheMaskBack) {
    savePlanAndChangeWalls();
    EXPECT_EQ(restore(L"Plan"), Vorn::eOk);
    EXPECT_EQ(values(L"Walls"), m_saved);
}

// Each bit of the mask on its own: what it restores, and that the rest stays.
struct MaskCase {
    const char* name;
    LayerStateMask mask;
    void (*expected)(engine::LayerValues& values, const engine::LayerValues& saved);
};
void PrintTo(const MaskCase& item, std::ostream* out) {
    *out << item.name;
}

class RestoreMask : public StateRestore, public testing::WithParamInterface<MaskCase> {};

void takeFlag(engine::LayerValues& values, const engine::LayerValues& saved, std::uint8_t flag) {
    values.flags = static_cast<std::uint8_t>((values.flags & ~flag) | (saved.flags & flag));
}

INSTANTIATE_TEST_SUITE_P(
    EachBit, RestoreMask,
    testing::Values(
        MaskCase{"nothing", 0, [](auto&, auto&) {}},
        MaskCase{"on", MaskOn, [](auto& values, auto& saved) { takeFlag(values, saved, zdr::kLayerOn); }},
        MaskCase{"frozen", MaskFrozen, [](auto& values, auto& saved) { takeFlag(values, saved, zdr::kLayerFrozen); }},
        MaskCase{"locked", MaskLocked, [](auto& values, auto& saved) { takeFlag(values, saved, zdr::kLayerLocked); }},
        MaskCase{"plot", MaskPlot, [](auto& values, auto& saved) { takeFlag(values, saved, zdr::kLayerPlot); }},
        MaskCase{"newViewports", MaskNewViewportFrozen,
                 [](auto& values, auto& saved) { takeFlag(values, saved, zdr::kLayerNewViewportFrozen); }},
        MaskCase{"color", MaskColor, [](auto& values, auto& saved) { values.color = saved.color; }},
        MaskCase{"linetype", MaskLinetype, [](auto& values, auto& saved) { values.linetype = saved.linetype; }},
        MaskCase{"lineWeight", MaskLineWeight, [](auto& values, auto& saved) { values.lineWeight = saved.lineWeight; }},
        MaskCase{"plotStyle", MaskPlotStyle, [](auto& values, auto& saved) { values.plotStyle = saved.plotStyle; }},
        MaskCase{"viewportFrozen", MaskViewportFrozen, [](auto&, auto&) {}}),
    [](const auto& test) { return std::string(test.param.name); });

TEST_P(RestoreMask, RestoresItsPropertyAlone) {
    savePlanAndChangeWalls();
    ASSERT_EQ(restore(L"Plan", GetParam().mask), Vorn::eOk);
    engine::LayerValues expected = m_changed;
    GetParam().expected(expected, m_saved);
    EXPECT_EQ(values(L"Walls"), expected);
}

TEST_P(RestoreMask, RestoresItsPropertyAloneAlsoWhenTheStateHoldsOtherLayersThanTheDrawing) {
    savePlanAndChangeWalls();
    engine::addLayer(m_database, L"Notes");
    engine::removeLayer(m_database, layer(L"Doors"));
    ASSERT_EQ(restore(L"Plan", GetParam().mask), Vorn::eOk);
    engine::LayerValues expected = m_changed;
    GetParam().expected(expected, m_saved);
    EXPECT_EQ(values(L"Walls"), expected);
}

TEST_F(StateRestore, ANullMaskIsTheStatesOwn) {
    savePlanAndChangeWalls();
    states().setLayerStateMask(L"Plan", MaskColor);
    EXPECT_EQ(restore(L"Plan"), Vorn::eOk);
    EXPECT_EQ(values(L"Walls").color, 7u);
    EXPECT_EQ(values(L"Walls").lineWeight, 50);
}

TEST_F(StateRestore, LeavesTheStateItselfAsItWas) {
    savePlanAndChangeWalls();
    restore(L"Plan");
    setColor(L"Walls", 5);
    EXPECT_EQ(drawing().states[0].columns.colors[layer(L"Walls")], 7u);
}

TEST_F(StateRestore, PassesOverLayersThatTheDrawingLacks) {
    savePlanAndChangeWalls();
    engine::removeLayer(m_database, layer(L"Doors"));
    EXPECT_EQ(restore(L"Plan"), Vorn::eOk);
    EXPECT_EQ(values(L"Walls"), m_saved);
}

TEST_F(StateRestore, LeavesLayersAloneThatTheStateDoesNotHold) {
    savePlanAndChangeWalls();
    engine::addLayer(m_database, L"Notes");
    setColor(L"Notes", 4);
    EXPECT_EQ(restore(L"Plan"), Vorn::eOk);
    EXPECT_TRUE(hasFlag(L"Notes", zdr::kLayerOn));
    EXPECT_EQ(values(L"Notes").color, 4u);
}

TEST_F(StateRestore, TurnsLayersOffThatTheStateDoesNotHoldOnRequest) {
    savePlanAndChangeWalls();
    engine::addLayer(m_database, L"Notes");
    setFlag(L"Doors", zdr::kLayerOn, true);
    EXPECT_EQ(restore(L"Plan", RestoreFlagLayerNotFound), Vorn::eOk);
    EXPECT_FALSE(hasFlag(L"Notes", zdr::kLayerOn));
    EXPECT_TRUE(hasFlag(L"Doors", zdr::kLayerOn));
    EXPECT_TRUE(hasFlag(L"Walls", zdr::kLayerOn));
}

TEST_F(StateRestore, TurnsThoseLayersOffWhateverTheMask) {
    states().saveLayerState(L"Plan", 0);
    engine::addLayer(m_database, L"Notes");
    EXPECT_EQ(restore(L"Plan", RestoreFlagLayerNotFound), Vorn::eOk);
    EXPECT_FALSE(hasFlag(L"Notes", zdr::kLayerOn));
}

TEST_F(StateRestore, DoesNotFreezeTheCurrentLayerAndSaysSo) {
    setFlag(L"Walls", zdr::kLayerFrozen, true);
    setColor(L"Walls", 5);
    states().saveLayerState(L"Plan", MaskAllProperties);
    states().removeLayerStateLayers(L"Plan", [] {
        KelArray<KelString> names;
        names.append(L"Base"); // so that the state has no current layer of its own
        return names;
    }());
    setFlag(L"Walls", zdr::kLayerFrozen, false);
    setColor(L"Walls", 1);
    engine::setCurrentLayer(m_database, layer(L"Walls"));
    EXPECT_EQ(restore(L"Plan"), Vorn::eCannotFreezeCurrentLayer);
    EXPECT_FALSE(hasFlag(L"Walls", zdr::kLayerFrozen));
    EXPECT_EQ(values(L"Walls").color, 5u); // the rest was done
}

TEST_F(StateRestore, MakesTheStatesCurrentLayerCurrent) {
    engine::setCurrentLayer(m_database, layer(L"Doors"));
    states().saveLayerState(L"Plan", MaskColor);
    engine::setCurrentLayer(m_database, layer(L"Walls"));
    EXPECT_EQ(restore(L"Plan"), Vorn::eOk);
    EXPECT_EQ(drawing().currentLayer, layer(L"Doors"));
}

TEST_F(StateRestore, FreezesTheLayerThatWasCurrentBefore) {
    setFlag(L"Walls", zdr::kLayerFrozen, true);
    states().saveLayerState(L"Plan", MaskAllProperties);
    setFlag(L"Walls", zdr::kLayerFrozen, false);
    engine::setCurrentLayer(m_database, layer(L"Walls"));
    EXPECT_EQ(restore(L"Plan"), Vorn::eOk);
    EXPECT_EQ(drawing().currentLayer, layer(L"Base"));
    EXPECT_TRUE(hasFlag(L"Walls", zdr::kLayerFrozen));
}

TEST_F(StateRestore, LeavesTheCurrentLayerWhenNoPropertyIsRestored) {
    states().saveLayerState(L"Plan", 0);
    engine::setCurrentLayer(m_database, layer(L"Walls"));
    EXPECT_EQ(restore(L"Plan"), Vorn::eOk);
    EXPECT_EQ(drawing().currentLayer, layer(L"Walls"));
}

TEST_F(StateRestore, LeavesTheCurrentLayerWhenTheStatesOwnIsFrozenAndStaysSo) {
    engine::setCurrentLayer(m_database, layer(L"Doors"));
    states().saveLayerState(L"Plan", MaskColor);
    engine::setCurrentLayer(m_database, layer(L"Walls"));
    setFlag(L"Doors", zdr::kLayerFrozen, true);
    EXPECT_EQ(restore(L"Plan"), Vorn::eOk);
    EXPECT_EQ(drawing().currentLayer, layer(L"Walls"));
}

TEST_F(StateRestore, ThawsTheStatesCurrentLayerAndMakesItCurrent) {
    engine::setCurrentLayer(m_database, layer(L"Doors"));
    states().saveLayerState(L"Plan", MaskFrozen);
    engine::setCurrentLayer(m_database, layer(L"Walls"));
    setFlag(L"Doors", zdr::kLayerFrozen, true);
    EXPECT_EQ(restore(L"Plan"), Vorn::eOk);
    EXPECT_EQ(drawing().currentLayer, layer(L"Doors"));
    EXPECT_FALSE(hasFlag(L"Doors", zdr::kLayerFrozen));
}

TEST_F(StateRestore, AnswersAMissingLinetypeAndDoesTheRest) {
    zdr::Drawing source =
        makeDrawing({{.name = L"Walls", .color = 4, .linetype = L"Wavy"}, {.name = L"Doors", .linetype = L"Dotted"}});
    source.linetypes.push_back({source.names.find(L"Wavy"), source.nextHandle++, L"", {2, -1}});
    KelDbDatabase other(false, true);
    engine::replaceDrawing(other, std::move(source));
    other.getLayerStateManager()->saveLayerState(L"Plan", MaskAllProperties);
    ASSERT_EQ(states().importLayerStateFromDb(L"Plan", &other), Vorn::eOk);
    EXPECT_EQ(restore(L"Plan"), Vorn::eStyleMissing);
    EXPECT_EQ(values(L"Walls").linetype, nameId(L"Continuous"));
    EXPECT_EQ(values(L"Walls").color, 4u);
    EXPECT_EQ(values(L"Doors").linetype, nameId(L"Dotted"));
    EXPECT_FALSE(matches(L"Plan"));
    EXPECT_EQ(restore(L"Plan", MaskColor), Vorn::eOk); // nothing is missing for colours
}

TEST_F(StateRestore, MissesNoStyleThatTheLayerHasAlready) {
    // Names that are known, but of no style.
    zdr::Drawing source = drawing();
    source.names.intern(L"site!Wavy");
    source.names.intern(L"site!Bold");
    use(std::move(source));
    change(L"Walls", [this](engine::LayerValues& walls) {
        walls.linetype = nameId(L"site!Wavy");
        walls.plotStyle = nameId(L"site!Bold");
    });
    ASSERT_EQ(states().saveLayerState(L"Plan", MaskAllProperties), Vorn::eOk);
    setColor(L"Walls", 3);
    EXPECT_EQ(restore(L"Plan"), Vorn::eOk);
    EXPECT_EQ(values(L"Walls").linetype, nameId(L"site!Wavy"));
    change(L"Walls", [this](engine::LayerValues& walls) { walls.linetype = nameId(L"Continuous"); });
    EXPECT_EQ(restore(L"Plan"), Vorn::eStyleMissing);
    EXPECT_EQ(values(L"Walls").linetype, nameId(L"Continuous"));
}

TEST_F(StateRestore, AnswersAMissingPlotStyle) {
    zdr::Drawing source = makeDrawing({{.name = L"Walls", .plotStyle = L"Bold"}});
    source.plotStyles.push_back({source.names.find(L"Bold"), source.nextHandle++});
    KelDbDatabase other(false, true);
    engine::replaceDrawing(other, std::move(source));
    other.getLayerStateManager()->saveLayerState(L"Plan", MaskPlotStyle);
    ASSERT_EQ(states().importLayerStateFromDb(L"Plan", &other), Vorn::eOk);
    EXPECT_EQ(restore(L"Plan"), Vorn::eStyleMissing);
    EXPECT_EQ(values(L"Walls").plotStyle, nameId(L"Normal"));
}

TEST_F(StateRestore, LeavesPlotStylesAloneWhereTheyDependOnColours) {
    zdr::Drawing colorDependent = makeDrawing({{.name = L"Walls", .plotStyle = L"Fine"}});
    colorDependent.colorDependentPlotStyles = true;
    use(std::move(colorDependent));
    states().saveLayerState(L"Plan", MaskPlotStyle);
    change(L"Walls", [this](engine::LayerValues& wall) { wall.plotStyle = nameId(L"Normal"); });
    EXPECT_TRUE(matches(L"Plan"));
    EXPECT_EQ(restore(L"Plan"), Vorn::eOk);
    EXPECT_EQ(values(L"Walls").plotStyle, nameId(L"Normal"));
}

TEST_F(StateRestore, MakesTheStateTheLastRestoredOneAlsoWhenSomethingWasMissing) {
    engine::setCurrentLayer(m_database, layer(L"Walls"));
    states().saveLayerState(L"Plan", MaskAllProperties);
    KelDbLayerTableRecord frozen;
    frozen.setName(L"Walls");
    frozen.setIsFrozen(true);
    ASSERT_TRUE(impStates().updateLayerStateLayer(L"Plan", &frozen, false));
    EXPECT_EQ(restore(L"Plan"), Vorn::eCannotFreezeCurrentLayer);
    EXPECT_EQ(drawing().lastRestored, L"Plan");
}

TEST_F(StateRestore, TheQuietOneTakesTheMaskGivenAndIsNotRemembered) {
    savePlanAndChangeWalls();
    states().setLayerStateMask(L"Plan", 0);
    const LayerStateMask all = MaskAllProperties;
    EXPECT_EQ(impStates().restoreLayerState(L"Plan", {}, 0, &all, false), Vorn::eOk);
    EXPECT_EQ(values(L"Walls"), m_saved);
    EXPECT_FALSE(drawing().lastRestored);
    EXPECT_EQ(drawing().states[0].mask, 0u);
    EXPECT_EQ(impStates().restoreLayerState(L"Plan", {}, 0, &all, true), Vorn::eOk);
    EXPECT_EQ(drawing().lastRestored, L"Plan");
}

TEST_F(StateRestore, RefusesAnIdThatIsNoViewport) {
    states().saveLayerState(L"Plan", MaskAllProperties);
    EXPECT_EQ(restore(L"Plan", 0, layerId(L"Walls")), Vorn::eInvalidInput);
    EXPECT_EQ(states().saveLayerState(L"Plan", 1, layerId(L"Walls")), Vorn::eInvalidInput);
    EXPECT_FALSE(matches(L"Plan", layerId(L"Walls")));
}

TEST_F(StateRestore, FlagFourWithoutAViewportChangesTheLayersThemselves) {
    savePlanAndChangeWalls();
    EXPECT_EQ(restore(L"Plan", RestoreFlagAsOverrides), Vorn::eOk);
    EXPECT_EQ(values(L"Walls"), m_saved);
}
