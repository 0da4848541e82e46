// Layer states in a viewport: its overrides and its freezing.

#include "EngineTest.h"
#include "KelDbPointers.h"

#include <cmath>
#include <limits>

class Viewports : public EngineTest {
  protected:
    /// What the viewport shows of a layer.
    engine::LayerValues shown(const wchar_t* name) {
        return engine::valuesAt(engine::shownColumns(m_database, &viewport()), layer(name));
    }
    void overrideColor(const wchar_t* name, std::uint32_t color) {
        engine::setOverride(m_database, viewport().handle, {.layer = layer(name), .mask = MaskColor, .color = color});
    }
    void freeze(const wchar_t* name, bool frozen) {
        engine::setFrozenInViewport(m_database, viewport().handle, layer(name), frozen);
    }
};

TEST(NewDrawing, HasASheetWithAViewportThatLeavesAMarginAllAround) {
    const zdr::Drawing drawing = engine::makeNewDrawing();
    ASSERT_EQ(drawing.layouts.size(), 1u);
    const zdr::Layout& sheet = drawing.layouts[0];
    ASSERT_EQ(sheet.viewports.size(), 1u);
    const zdr::Viewport& viewport = sheet.viewports[0];
    EXPECT_EQ(viewport.number, 2) << "the sheet itself is 1";
    const double margin = viewport.corner.x;
    EXPECT_GT(margin, 0);
    EXPECT_EQ(viewport.corner.y, margin);
    EXPECT_EQ(margin + viewport.width + margin, sheet.paperWidth);
    EXPECT_EQ(margin + viewport.height + margin, sheet.paperHeight);
}

TEST_F(Viewports, ShowTheLayersOwnValuesWithoutOverrides) {
    EXPECT_EQ(engine::shownColumns(m_database, &viewport()).colors.values().data(),
              drawing().columns.colors.values().data());
}

TEST_F(Viewports, ShowTheirOverridesAndFreezing) {
    overrideColor(L"Walls", 5);
    freeze(L"Doors", true);
    EXPECT_EQ(shown(L"Walls").color, 5u);
    EXPECT_EQ(values(L"Walls").color, 7u);
    EXPECT_TRUE(shown(L"Doors").flags & zdr::kLayerViewportFrozen);
    EXPECT_FALSE(values(L"Doors").flags & zdr::kLayerViewportFrozen);
    overrideColor(L"Walls", 6);
    EXPECT_EQ(shown(L"Walls").color, 6u);
    engine::setOverride(m_database, viewport().handle, {.layer = layer(L"Walls")});
    EXPECT_EQ(shown(L"Walls").color, 7u);
}

TEST_F(Viewports, ShowAnotherPartOfModelSpaceAtAnotherScale) {
    const zdr::Handle handle = viewport().handle;
    EXPECT_EQ(engine::setViewportView(m_database, handle, {12, 34}, 0.25), Vorn::eOk);
    EXPECT_EQ(viewport().viewCenter, (zdr::Point{12, 34}));
    EXPECT_EQ(viewport().scale, 0.25);
    const std::uint64_t changes = engine::changeCount(m_database);
    EXPECT_EQ(engine::setViewportView(m_database, handle, {12, 34}, 0.25), Vorn::eOk);
    EXPECT_EQ(engine::changeCount(m_database), changes) << "it shows that already";
    EXPECT_EQ(engine::setViewportView(m_database, handle, {12, 35}, 0.25), Vorn::eOk);
    EXPECT_EQ(engine::setViewportView(m_database, handle, {12, 35}, 0.5), Vorn::eOk);
    EXPECT_NE(engine::changeCount(m_database), changes);
}

TEST_F(Viewports, ShowNothingThatADrawingCantKeep) {
    constexpr double infinite = std::numeric_limits<double>::infinity();
    const zdr::Handle handle = viewport().handle;
    const zdr::Viewport before = viewport();
    const std::uint64_t changes = engine::changeCount(m_database);
    for (const double scale : {0.0, -1.0, infinite, std::nan("")})
        EXPECT_EQ(engine::setViewportView(m_database, handle, {1, 2}, scale), Vorn::eInvalidInput) << scale;
    for (const zdr::Point center : {zdr::Point{infinite, 0}, zdr::Point{0, -infinite}, zdr::Point{std::nan(""), 0}})
        EXPECT_EQ(engine::setViewportView(m_database, handle, center, 1), Vorn::eInvalidInput);
    EXPECT_EQ(engine::setViewportView(m_database, drawing().nextHandle, {1, 2}, 1), Vorn::eInvalidInput);
    EXPECT_EQ(viewport().viewCenter, before.viewCenter);
    EXPECT_EQ(viewport().scale, before.scale);
    EXPECT_EQ(engine::changeCount(m_database), changes);
}

TEST_F(Viewports, AreReadThroughTheirObject) {
    freeze(L"Doors", true);
    KelDbObjectPointer<KelDbViewport> object(viewportId(), KelDb::kForRead);
    ASSERT_EQ(object.openStatus(), Vorn::eOk);
    EXPECT_EQ(object->number(), 2);
    EXPECT_TRUE(object->isLayerFrozenInViewport(layerId(L"Doors")));
    EXPECT_FALSE(object->isLayerFrozenInViewport(layerId(L"Walls")));
    EXPECT_FALSE(object->isLayerFrozenInViewport(layerId(L"Furniture")));
    EXPECT_FALSE(object->isLayerFrozenInViewport({}));
    KelDbObjectPointer<KelDbViewport> off(engine::objectId(m_database, drawing().layouts[0].viewports[1].handle),
                                          KelDb::kForRead);
    EXPECT_EQ(off->number(), -1);
}

TEST_F(Viewports, ThatAreNotThereAreNotChanged) {
    const std::uint64_t before = engine::contentNumber(m_database);
    const zdr::Handle none = drawing().nextHandle;
    engine::setFrozenInViewport(m_database, none, layer(L"Doors"), true);
    engine::setOverride(m_database, none, {.layer = layer(L"Walls"), .mask = MaskColor, .color = 5});
    EXPECT_EQ(engine::contentNumber(m_database), before);
}

TEST_F(Viewports, AStateSavedInOneRecordsWhatItShows) {
    overrideColor(L"Walls", 5);
    freeze(L"Doors", true);
    ASSERT_EQ(states().saveLayerState(L"Plan", MaskAllProperties, viewportId()), Vorn::eOk);
    EXPECT_TRUE(states().layerStateHasViewportData(L"Plan"));
    EXPECT_TRUE(matches(L"Plan", viewportId()));
    EXPECT_FALSE(matches(L"Plan")); // the layer itself has another colour
    EXPECT_EQ(drawing().states[0].columns.colors[layer(L"Walls")], 5u);
    EXPECT_TRUE(drawing().states[0].columns.flags[layer(L"Doors")] & zdr::kLayerViewportFrozen);
}

TEST_F(Viewports, SavingWithTheNullIdIsSavingWithout) {
    ASSERT_EQ(states().saveLayerState(L"Plan", MaskAllProperties, {}), Vorn::eOk);
    EXPECT_FALSE(states().layerStateHasViewportData(L"Plan"));
}

TEST_F(Viewports, AnOverrideIsADifferenceInItsViewportAlone) {
    states().saveLayerState(L"Plan", MaskAllProperties);
    EXPECT_TRUE(matches(L"Plan", viewportId()));
    overrideColor(L"Walls", 5);
    EXPECT_FALSE(matches(L"Plan", viewportId()));
    EXPECT_TRUE(matches(L"Plan"));
    states().setLayerStateMask(L"Plan", MaskAllProperties & ~MaskColor);
    EXPECT_TRUE(matches(L"Plan", viewportId()));
}

TEST_F(Viewports, TheirFreezingCountsForStatesThatRecordIt) {
    states().saveLayerState(L"Without", MaskAllProperties);
    states().saveLayerState(L"With", MaskAllProperties, viewportId());
    freeze(L"Doors", true);
    EXPECT_TRUE(matches(L"Without", viewportId()));
    EXPECT_FALSE(matches(L"With", viewportId()));
    EXPECT_TRUE(matches(L"With"));
    states().setLayerStateMask(L"With", MaskAllProperties & ~MaskViewportFrozen);
    EXPECT_TRUE(matches(L"With", viewportId()));
}

TEST_F(Viewports, ARestoreAsOverridesLeavesTheLayersAlone) {
    setColor(L"Walls", 3);
    change(L"Walls", [this](engine::LayerValues& wall) {
        wall.linetype = nameId(L"Dashed");
        wall.lineWeight = 70;
        wall.plotStyle = nameId(L"Fine");
    });
    setFlag(L"Walls", zdr::kLayerLocked, true);
    const engine::LayerValues saved = values(L"Walls");
    states().saveLayerState(L"Plan", MaskAllProperties);
    change(L"Walls", [this](engine::LayerValues& wall) { wall = values(L"Doors"); });
    ASSERT_EQ(restore(L"Plan", RestoreFlagAsOverrides, viewportId()), Vorn::eOk);
    EXPECT_EQ(values(L"Walls").color, 7u);
    EXPECT_EQ(values(L"Walls").linetype, nameId(L"Continuous"));
    EXPECT_TRUE(hasFlag(L"Walls", zdr::kLayerLocked)); // not a property that a viewport can override
    EXPECT_EQ(shown(L"Walls"), saved);
    EXPECT_TRUE(matches(L"Plan", viewportId()));
}

TEST_F(Viewports, ARestoreAsOverridesLeavesTheViewAlone) {
    states().saveLayerState(L"Plan", MaskAllProperties);
    setColor(L"Walls", 3);
    ASSERT_EQ(engine::setViewportView(m_database, viewport().handle, {12, 34}, 0.25), Vorn::eOk);
    EXPECT_EQ(restore(L"Plan", RestoreFlagAsOverrides, viewportId()), Vorn::eOk);
    EXPECT_EQ(viewport().viewCenter.x, 12);
    EXPECT_EQ(viewport().viewCenter.y, 34);
    EXPECT_EQ(viewport().scale, 0.25);
    EXPECT_FALSE(viewport().overrides.empty());
}

TEST_F(Viewports, ARestoreAsOverridesTakesThePropertiesOfTheMaskAndKeepsTheOthers) {
    setColor(L"Walls", 3);
    states().saveLayerState(L"Plan", MaskColor);
    setColor(L"Walls", 7);
    engine::setOverride(m_database, viewport().handle,
                        {.layer = layer(L"Walls"), .mask = MaskLineWeight, .lineWeight = 50});
    ASSERT_EQ(restore(L"Plan", RestoreFlagAsOverrides, viewportId()), Vorn::eOk);
    EXPECT_EQ(shown(L"Walls").color, 3u);
    EXPECT_EQ(shown(L"Walls").lineWeight, 50);
    EXPECT_EQ(viewport().overrides.at(1).mask, MaskColor | MaskLineWeight);
}

TEST_F(Viewports, OverridesStandForAllLayersOfTheStateInOrder) {
    states().saveLayerState(L"Plan", MaskColor);
    engine::addLayer(m_database, L"Notes");
    ASSERT_EQ(restore(L"Plan", RestoreFlagAsOverrides, viewportId()), Vorn::eOk);
    ASSERT_EQ(viewport().overrides.size(), 4u);
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(viewport().overrides[i].layer, i);
    setColor(L"Walls", 1); // the viewport goes on showing the state
    EXPECT_EQ(shown(L"Walls").color, 7u);
}

TEST_F(Viewports, ARestoreWithoutTheFlagWritesTheLayersAndKeepsOverrides) {
    setColor(L"Walls", 3);
    states().saveLayerState(L"Plan", MaskColor);
    setColor(L"Walls", 7);
    overrideColor(L"Walls", 5);
    ASSERT_EQ(restore(L"Plan", 0, viewportId()), Vorn::eOk);
    EXPECT_EQ(values(L"Walls").color, 3u);
    EXPECT_EQ(shown(L"Walls").color, 5u);
}

TEST_F(Viewports, ARestoreWritesTheViewportsFreezingWhereTheStateRecordsIt) {
    freeze(L"Doors", true);
    states().saveLayerState(L"Plan", MaskAllProperties, viewportId());
    freeze(L"Doors", false);
    freeze(L"Walls", true);
    ASSERT_EQ(restore(L"Plan", MaskAllProperties & ~MaskViewportFrozen, 0, viewportId()), Vorn::eOk);
    EXPECT_FALSE(viewport().frozen[layer(L"Doors")]);
    ASSERT_EQ(restore(L"Plan", 0, viewportId()), Vorn::eOk);
    EXPECT_TRUE(viewport().frozen[layer(L"Doors")]);
    EXPECT_FALSE(viewport().frozen[layer(L"Walls")]);
    EXPECT_FALSE(hasFlag(L"Doors", zdr::kLayerViewportFrozen)); // never in the layers themselves
}

TEST_F(Viewports, ARestoreLeavesTheFreezingOfLayersAloneThatTheStateDoesNotHold) {
    states().saveLayerState(L"Plan", MaskAllProperties, viewportId());
    ASSERT_EQ(engine::addLayer(m_database, L"Roof"), Vorn::eOk);
    freeze(L"Roof", true);
    freeze(L"Doors", true);
    ASSERT_EQ(restore(L"Plan", 0, viewportId()), Vorn::eOk);
    EXPECT_TRUE(viewport().frozen[layer(L"Roof")]);
    EXPECT_FALSE(viewport().frozen[layer(L"Doors")]);
}

TEST_F(Viewports, ARestoreLeavesTheViewportsFreezingAloneWhereTheStateDoesNotRecordIt) {
    states().saveLayerState(L"Plan", MaskAllProperties);
    freeze(L"Doors", true);
    ASSERT_EQ(restore(L"Plan", 0, viewportId()), Vorn::eOk);
    EXPECT_TRUE(viewport().frozen[layer(L"Doors")]);
}

TEST_F(Viewports, AStateSavedInOneIsRestoredWithoutOneToTheLayers) {
    freeze(L"Doors", true);
    overrideColor(L"Walls", 5);
    states().saveLayerState(L"Plan", MaskAllProperties, viewportId());
    freeze(L"Doors", false);
    ASSERT_EQ(restore(L"Plan"), Vorn::eOk);
    EXPECT_EQ(values(L"Walls").color, 5u);
    EXPECT_FALSE(viewport().frozen[layer(L"Doors")]);
    EXPECT_FALSE(hasFlag(L"Doors", zdr::kLayerViewportFrozen));
}

TEST_F(Viewports, ALinetypeThatIsMissingIsNotMissedWhereTheViewportShowsItAlready) {
    zdr::Drawing source = drawing();
    source.names.intern(L"site!Wavy"); // the name of no linetype
    use(std::move(source));
    change(L"Walls", [this](engine::LayerValues& walls) { walls.linetype = nameId(L"site!Wavy"); });
    ASSERT_EQ(states().saveLayerState(L"Plan", MaskLinetype), Vorn::eOk);
    EXPECT_EQ(restore(L"Plan", RestoreFlagAsOverrides, viewportId()), Vorn::eOk);
    engine::setOverride(m_database, viewport().handle,
                        {.layer = 1, .mask = MaskLinetype, .linetype = nameId(L"Dotted")});
    EXPECT_EQ(restore(L"Plan", RestoreFlagAsOverrides, viewportId()), Vorn::eStyleMissing);
    engine::setOverride(m_database, viewport().handle,
                        {.layer = 1, .mask = MaskLinetype, .linetype = nameId(L"site!Wavy")});
    change(L"Walls", [this](engine::LayerValues& walls) { walls.linetype = nameId(L"Dotted"); });
    EXPECT_EQ(restore(L"Plan", RestoreFlagAsOverrides, viewportId()), Vorn::eOk);
}

TEST_F(Viewports, ALinetypeThatIsMissingIsNotOverridden) {
    zdr::Drawing source = makeDrawing({{.name = L"Walls", .color = 4, .linetype = L"Wavy"}});
    KelDbDatabase other(false, true);
    engine::replaceDrawing(other, std::move(source));
    other.getLayerStateManager()->saveLayerState(L"Plan", MaskAllProperties);
    ASSERT_EQ(states().importLayerStateFromDb(L"Plan", &other), Vorn::eOk);
    EXPECT_EQ(restore(L"Plan", RestoreFlagAsOverrides, viewportId()), Vorn::eStyleMissing);
    EXPECT_EQ(shown(L"Walls").linetype, nameId(L"Continuous"));
    EXPECT_EQ(shown(L"Walls").color, 4u);
}

TEST_F(Viewports, TheCurrentOneIsKnownOnItsLayoutOnly) {
    EXPECT_TRUE(m_database.tilemode());
    EXPECT_EQ(engine::setCurrentViewport(m_database, viewport().handle), Vorn::eInvalidInput);
    EXPECT_EQ(engine::setActiveLayout(m_database, 0), Vorn::eOk);
    EXPECT_FALSE(m_database.tilemode());
    EXPECT_TRUE(engine::currentViewportId(m_database).isNull());
    EXPECT_EQ(engine::setCurrentViewport(m_database, viewport().handle), Vorn::eOk);
    EXPECT_EQ(engine::currentViewportId(m_database), viewportId());
    EXPECT_EQ(engine::setCurrentViewport(m_database, drawing().layouts[0].viewports[1].handle), Vorn::eInvalidInput);
    EXPECT_EQ(engine::setCurrentViewport(m_database, drawing().layers[0].handle), Vorn::eInvalidInput);
    EXPECT_EQ(engine::setActiveLayout(m_database, 7), Vorn::eInvalidInput);
    EXPECT_EQ(engine::setActiveLayout(m_database, std::nullopt), Vorn::eOk);
    EXPECT_TRUE(engine::currentViewportId(m_database).isNull());
}
