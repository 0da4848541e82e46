// Undo and redo of everything that can be changed.

#include "EngineTest.h"
#include "KelDbPointers.h"
#include "engine/UndoHistory.h"

using testing::ElementsAre;

class Undo : public EngineTest {
  protected:
    /// Runs `work` as one step.
    template <class Work> void step(Work work) {
        engine::beginUndoGroup(m_database);
        work();
        engine::endUndoGroup(m_database);
    }
    /// Everything that a person sees of the drawing, for comparison as a whole.
    std::string snapshot() {
        std::string text;
        const auto add = [&text](const auto&... items) {
            ((text += testing::PrintToString(items) + " "), ...);
            text += "\n";
        };
        for (std::size_t i = 0; i < drawing().layers.size(); ++i) {
            const engine::LayerValues row = engine::layerValues(m_database, i);
            const zdr::Layer& item = drawing().layers[i];
            add(drawing().names.text(item.name), item.description, row.flags, row.color, row.linetype, row.lineWeight,
                row.plotStyle, engine::layerId(m_database, i).handle().value());
        }
        for (const zdr::LayerState& state : drawing().states)
            add(state.name, state.description, state.mask, state.handle, state.currentLayer, state.hasViewportData,
                state.layers->names, state.columns.flags.values(), state.columns.colors.values());
        for (const zdr::Viewport& item : drawing().layouts[0].viewports) {
            add(item.frozen, item.viewCenter.x, item.viewCenter.y, item.scale);
            for (const zdr::ViewportOverride& layerOverride : item.overrides)
                add(layerOverride.layer, layerOverride.mask, layerOverride.color);
        }
        add(drawing().linetypeScale, drawing().currentLayer, drawing().lastRestored, drawing().activeLayout,
            drawing().currentViewport);
        for (const zdr::ExtendedData& data : drawing().extendedData)
            add(data.object, data.application, data.values.size());
        add(drawing().applications);
        return text;
    }
    /// Checks that `work` is undone and done again as one step.
    template <class Work> void checkStep(Work work) {
        const std::string before = snapshot();
        step(work);
        const std::string after = snapshot();
        ASSERT_NE(before, after);
        EXPECT_TRUE(engine::undo(m_database));
        EXPECT_EQ(snapshot(), before);
        EXPECT_TRUE(engine::redo(m_database));
        EXPECT_EQ(snapshot(), after);
        EXPECT_TRUE(engine::undo(m_database));
        EXPECT_EQ(snapshot(), before);
    }
};

TEST_F(Undo, TakesBackARestore) {
    engine::setCurrentLayer(m_database, layer(L"Doors"));
    states().saveLayerState(L"Plan", MaskAllProperties);
    setColor(L"Walls", 3);
    engine::setCurrentLayer(m_database, layer(L"Walls"));
    checkStep([this] { restore(L"Plan", RestoreFlagLayerNotFound); });
}

TEST_F(Undo, TakesBackARestoreAsOverrides) {
    states().saveLayerState(L"Plan", MaskAllProperties, viewportId());
    engine::setFrozenInViewport(m_database, viewport().handle, 1, true);
    checkStep([this] { restore(L"Plan", RestoreFlagAsOverrides, viewportId()); });
}

TEST_F(Undo, TakesBackWhatAViewportShows) {
    checkStep([this] { EXPECT_EQ(engine::setViewportView(m_database, viewport().handle, {12, 34}, 0.25), Vorn::eOk); });
}

TEST_F(Undo, TakesBackTwoRestoresAsOverridesInOneStep) {
    states().saveLayerState(L"Plan", MaskAllProperties);
    setColor(L"Walls", 3);
    states().saveLayerState(L"Red", MaskAllProperties);
    engine::setFrozenInViewport(m_database, viewport().handle, 1, true);
    checkStep([this] {
        restore(L"Plan", RestoreFlagAsOverrides, viewportId());
        restore(L"Red", RestoreFlagAsOverrides, viewportId());
    });
}

TEST_F(Undo, TakesBackChangesOfStates) {
    states().saveLayerState(L"Plan", 1);
    states().saveLayerState(L"Section", 2);
    states().saveLayerState(L"Detail", 3);
    restore(L"Section");
    checkStep([this] { states().saveLayerState(L"New", 4); });
    checkStep([this] { states().saveLayerState(L"Plan", 4); });
    checkStep([this] { states().deleteLayerState(L"Section"); });
    checkStep([this] { states().renameLayerState(L"Section", L"Cut"); });
    checkStep([this] { states().setLayerStateMask(L"Plan", 77); });
    checkStep([this] { states().setLayerStateDescription(L"Plan", L"x"); });
    checkStep([this] {
        KelArray<KelString> names;
        names.append(L"Walls");
        states().removeLayerStateLayers(L"Plan", names);
    });
    checkStep([this] {
        KelDbLayerTableRecord record;
        record.setName(L"Walls");
        record.setIsFrozen(true);
        impStates().updateLayerStateLayer(L"Plan", &record, true);
    });
}

TEST_F(Undo, TakesBackManyChangesOfStatesInOneStep) {
    states().saveLayerState(L"Plan", 1);
    states().saveLayerState(L"Section", 2);
    checkStep([this] {
        states().setLayerStateMask(L"Section", 9);
        states().deleteLayerState(L"Plan");
        states().saveLayerState(L"New", 4);
        states().renameLayerState(L"New", L"Newer");
        states().deleteLayerState(L"Section");
        states().saveLayerState(L"Plan", 5);
        states().setLayerStateMask(L"Plan", 6);
    });
    EXPECT_TRUE(states().hasLayerState(L"PLAN"));
    EXPECT_FALSE(states().hasLayerState(L"Newer"));
}

TEST_F(Undo, TakesBackChangesOfLayers) {
    states().saveLayerState(L"Plan", MaskAllProperties);
    engine::setFrozenInViewport(m_database, viewport().handle, layer(L"Doors"), true);
    engine::setOverride(m_database, viewport().handle, {.layer = layer(L"Doors"), .mask = MaskColor, .color = 5});
    checkStep([this] { setColor(L"Walls", 3); });
    checkStep([this] { engine::addLayer(m_database, L"Notes"); });
    checkStep([this] { engine::removeLayer(m_database, layer(L"Doors")); });
    checkStep([this] { engine::renameLayer(m_database, layer(L"Doors"), L"Openings"); });
    checkStep([this] { engine::renameLayer(m_database, layer(L"Doors"), L"DOORS"); });
    checkStep([this] { engine::setCurrentLayer(m_database, layer(L"Walls")); });
    checkStep([this] {
        KelDbObjectPointer<KelDbLayerTableRecord> doors(layerId(L"Doors"), KelDb::kForWrite);
        EXPECT_EQ(doors->setDescription(L"single-leaf"), Vorn::eOk);
    });
    EXPECT_TRUE(matches(L"Plan"));
}

TEST_F(Undo, TakesBackChangesOfLayersMixedInOneStep) {
    engine::setOverride(m_database, viewport().handle, {.layer = layer(L"Furniture"), .mask = MaskColor, .color = 5});
    checkStep([this] {
        setColor(L"Walls", 3);
        engine::setFrozenInViewport(m_database, viewport().handle, layer(L"Doors"), true);
        engine::addLayer(m_database, L"Notes");
        engine::setCurrentLayer(m_database, layer(L"Notes"));
        setColor(L"Notes", 4);
        engine::removeLayer(m_database, layer(L"Doors"));
        setColor(L"Furniture", 5);
    });
}

TEST_F(Undo, TakesBackANewLayerThatBecameTheCurrentOne) {
    checkStep([this] {
        engine::setCurrentLayer(m_database, layer(L"Walls"));
        engine::addLayer(m_database, L"Notes");
        engine::setCurrentLayer(m_database, layer(L"Notes"));
    });
    engine::redo(m_database);
    EXPECT_EQ(drawing().currentLayer, layer(L"Notes"));
}

TEST_F(Undo, BringsALayerBackInItsOwnSpelling) {
    step([this] { engine::removeLayer(m_database, layer(L"Doors")); });
    step([this] { engine::addLayer(m_database, L"DOORS"); });
    EXPECT_EQ(drawing().names.text(drawing().layers.back().name), L"DOORS");
    engine::undo(m_database);
    engine::undo(m_database);
    EXPECT_EQ(drawing().names.text(drawing().layers[2].name), L"Doors");
    engine::redo(m_database);
    engine::redo(m_database);
    EXPECT_EQ(drawing().names.text(drawing().layers.back().name), L"DOORS");
}

TEST_F(Undo, TakesBackTheLinetypeScale) {
    checkStep([this] { EXPECT_EQ(engine::setLinetypeScale(m_database, 2.5), Vorn::eOk); });
    checkStep([this] {
        engine::setLinetypeScale(m_database, 3);
        engine::setCurrentLayer(m_database, layer(L"Walls"));
        engine::setLinetypeScale(m_database, 4);
    });
}

TEST_F(Undo, HasNothingToTakeBackOfALinetypeScaleThatIsRefused) {
    const double before = drawing().linetypeScale;
    for (const double scale : {0.0, -1.0, 1e300}) {
        EXPECT_EQ(engine::setLinetypeScale(m_database, scale), Vorn::eInvalidInput);
        EXPECT_EQ(drawing().linetypeScale, before);
    }
    EXPECT_FALSE(engine::canUndo(m_database));
}

TEST_F(Undo, IdsOfWhatComesBackAreGoodAgain) {
    states().saveLayerState(L"Plan", 1);
    const KelDbObjectId doors = layerId(L"Doors");
    const KelDbObjectId plan = engine::objectId(m_database, drawing().states[0].handle);
    step([this] {
        engine::removeLayer(m_database, layer(L"Doors"));
        states().deleteLayerState(L"Plan");
    });
    EXPECT_TRUE(doors.isErased());
    EXPECT_TRUE(plan.isErased());
    engine::undo(m_database);
    EXPECT_FALSE(doors.isErased());
    EXPECT_EQ(layerId(L"Doors"), doors);
    EXPECT_EQ(engine::objectId(m_database, drawing().states[0].handle), plan);
}

TEST_F(Undo, GroupsNestAndTheOutermostCounts) {
    const std::string before = snapshot();
    engine::beginUndoGroup(m_database);
    setColor(L"Walls", 3);
    step([this] { setColor(L"Walls", 4); });
    EXPECT_FALSE(engine::undo(m_database)); // not within a group
    setColor(L"Walls", 5);
    engine::endUndoGroup(m_database);
    EXPECT_TRUE(engine::undo(m_database));
    EXPECT_EQ(snapshot(), before);
    EXPECT_FALSE(engine::canUndo(m_database));
}

TEST_F(Undo, GoesBackStepByStep) {
    step([this] { setColor(L"Walls", 3); });
    step([this] { setColor(L"Walls", 4); });
    engine::undo(m_database);
    EXPECT_EQ(values(L"Walls").color, 3u);
    engine::undo(m_database);
    EXPECT_EQ(values(L"Walls").color, 7u);
    EXPECT_FALSE(engine::undo(m_database));
    engine::redo(m_database);
    engine::redo(m_database);
    EXPECT_EQ(values(L"Walls").color, 4u);
    EXPECT_FALSE(engine::redo(m_database));
}

TEST_F(Undo, GathersWhatHappensOutsideGroupsIntoOneStep) {
    step([this] { setColor(L"Walls", 3); });
    setColor(L"Walls", 4);
    setColor(L"Doors", 4);
    step([this] { setColor(L"Doors", 5); });
    engine::undo(m_database);
    EXPECT_EQ(values(L"Doors").color, 4u);
    engine::undo(m_database);
    EXPECT_EQ(values(L"Walls").color, 3u);
    EXPECT_EQ(values(L"Doors").color, 7u);
}

TEST_F(Undo, AnEmptyGroupIsNoStep) {
    step([] {});
    EXPECT_FALSE(engine::canUndo(m_database));
}

TEST_F(Undo, ANewChangeForgetsWhatWasUndone) {
    step([this] { setColor(L"Walls", 3); });
    engine::undo(m_database);
    EXPECT_TRUE(engine::canRedo(m_database));
    step([this] { setColor(L"Walls", 4); });
    EXPECT_FALSE(engine::canRedo(m_database));
    EXPECT_FALSE(engine::redo(m_database));
}

TEST_F(Undo, CountsAsAChange) {
    step([this] { setColor(L"Walls", 3); });
    const std::uint64_t before = engine::changeCount(m_database);
    engine::undo(m_database);
    EXPECT_GT(engine::changeCount(m_database), before);
}

TEST_F(Undo, TheOldestStepIsForgotten) {
    for (std::size_t i = 0; i <= engine::kMaxUndoSteps; ++i)
        step([this, i] { setColor(L"Walls", static_cast<std::uint32_t>(i + 10)); });
    std::size_t undone = 0;
    while (engine::undo(m_database))
        ++undone;
    EXPECT_EQ(undone, engine::kMaxUndoSteps);
    EXPECT_EQ(values(L"Walls").color, 10u) << "what the first step left";
}

TEST_F(Undo, ReadingIsNoChange) {
    states().saveLayerState(L"Plan", 1);
    const std::uint64_t before = engine::changeCount(m_database);
    matches(L"Plan");
    stateNames();
    layersOf(L"Plan");
    states().setLayerStateMask(L"Plan", 1); // the mask that it has
    EXPECT_EQ(engine::changeCount(m_database), before);
}

TEST_F(Undo, HasNoStepOfAGroupThatLeavesTheDrawingAsItWas) {
    states().saveLayerState(L"Plan", MaskAllProperties);
    step([this] { setColor(L"Walls", 3); });
    const std::uint64_t before = engine::contentNumber(m_database);
    step([this] {
        // What reading a state by way of the layers does.
        states().saveLayerState(L"Throwaway", MaskAllProperties);
        const LayerStateMask all = MaskAllProperties;
        EXPECT_EQ(impStates().restoreLayerState(L"Plan", {}, 0, &all, false), Vorn::eOk);
        EXPECT_EQ(impStates().restoreLayerState(L"Throwaway", {}, 0, &all, false), Vorn::eOk);
        EXPECT_EQ(states().deleteLayerState(L"Throwaway"), Vorn::eOk);
    });
    EXPECT_EQ(engine::contentNumber(m_database), before);
    EXPECT_EQ(values(L"Walls").color, 3u);
    EXPECT_TRUE(engine::undo(m_database));
    EXPECT_EQ(values(L"Walls").color, 7u) << "the step before it is the one that is undone";
}

TEST_F(Undo, HasNoStepOfAGroupThatPutsEachSettingBack) {
    const std::uint64_t before = engine::contentNumber(m_database);
    const double scale = drawing().linetypeScale;
    step([&] {
        engine::setCurrentLayer(m_database, layer(L"Doors"));
        engine::setLinetypeScale(m_database, scale + 1);
        engine::setCurrentLayer(m_database, layer(L"Base"));
        engine::setLinetypeScale(m_database, scale);
    });
    EXPECT_FALSE(engine::canUndo(m_database));
    EXPECT_EQ(engine::contentNumber(m_database), before);
}

TEST_F(Undo, KeepsWhatCanBeDoneAgainOverAGroupThatLeavesTheDrawingAsItWas) {
    step([this] { setColor(L"Walls", 3); });
    EXPECT_TRUE(engine::undo(m_database));
    step([this] {
        setColor(L"Walls", 4);
        EXPECT_FALSE(engine::canRedo(m_database));
        engine::setCurrentLayer(m_database, layer(L"Doors"));
        engine::setCurrentLayer(m_database, layer(L"Base"));
        setColor(L"Walls", 7);
    });
    EXPECT_TRUE(engine::redo(m_database));
    EXPECT_EQ(values(L"Walls").color, 3u);
}

TEST_F(Undo, ForgetsWhatCouldBeDoneAgainAfterAGroupThatChangesSomething) {
    step([this] { setColor(L"Walls", 3); });
    EXPECT_TRUE(engine::undo(m_database));
    const std::uint64_t before = engine::contentNumber(m_database);
    step([this] { setColor(L"Walls", 4); });
    EXPECT_FALSE(engine::canRedo(m_database));
    EXPECT_NE(engine::contentNumber(m_database), before);
}

TEST_F(Undo, LooksAtTheOutermostGroupAlone) {
    const std::uint64_t before = engine::contentNumber(m_database);
    step([&] {
        step([this] { setColor(L"Walls", 3); });
        EXPECT_NE(engine::contentNumber(m_database), before);
        step([this] { setColor(L"Walls", 7); });
    });
    EXPECT_EQ(engine::contentNumber(m_database), before);
    EXPECT_FALSE(engine::canUndo(m_database));
}

TEST_F(Undo, TellsEachKindOfChangeThatStays) {
    states().saveLayerState(L"Plan", MaskOn);
    step([this] { setColor(L"Walls", 3); });
    KelArray<KelString> walls(0, 8);
    walls.append(L"Walls");
    const std::vector<std::pair<const char*, std::function<void()>>> changes = {
        {"a state's mask", [this] { states().setLayerStateMask(L"Plan", MaskColor); }},
        {"its description", [this] { states().setLayerStateDescription(L"Plan", L"All of it"); }},
        {"its name", [this] { states().renameLayerState(L"Plan", L"Plan B"); }},
        {"its layers", [&] { states().removeLayerStateLayers(L"Plan B", walls); }},
        {"its values", [this] { states().saveLayerState(L"Plan B", MaskColor); }},
        {"the current layer", [this] { engine::setCurrentLayer(m_database, layer(L"Doors")); }},
        {"the linetype scale", [this] { engine::setLinetypeScale(m_database, 2); }},
        {"a viewport", [this] { engine::setFrozenInViewport(m_database, viewport().handle, layer(L"Walls"), true); }},
        {"the scale of a viewport",
         [this] { engine::setViewportView(m_database, viewport().handle, viewport().viewCenter, 17); }},
        {"the middle of a viewport",
         [this] {
             engine::setViewportView(m_database, viewport().handle, {17, viewport().viewCenter.y}, 17);
         }},
        {"a layer's flag", [this] { setFlag(L"Walls", zdr::kLayerLocked, true); }},
        {"a state that goes", [this] { states().deleteLayerState(L"Plan B"); }},
    };
    for (const auto& [what, change] : changes) {
        const std::uint64_t before = engine::contentNumber(m_database);
        step(change);
        EXPECT_NE(engine::contentNumber(m_database), before) << what;
    }
}

TEST_F(Undo, TellsTheNameOfTheOutermostGroup) {
    const auto named = [this](const std::wstring& name, const wchar_t* state) {
        engine::beginUndoGroup(m_database, name);
        engine::beginUndoGroup(m_database, L"inner");
        states().saveLayerState(state, MaskAllProperties);
        engine::endUndoGroup(m_database);
        engine::endUndoGroup(m_database);
    };
    EXPECT_EQ(engine::undoName(m_database), L"");
    named(L"one", L"A");
    named(L"two", L"B");
    EXPECT_EQ(engine::undoName(m_database), L"two");
    EXPECT_EQ(engine::redoName(m_database), L"");
    engine::undo(m_database);
    EXPECT_EQ(engine::undoName(m_database), L"one");
    EXPECT_EQ(engine::redoName(m_database), L"two");
    engine::redo(m_database);
    EXPECT_EQ(engine::undoName(m_database), L"two");
    EXPECT_EQ(engine::redoName(m_database), L"");
}

TEST_F(Undo, ANameGoesToItsOwnStepAlone) {
    engine::beginUndoGroup(m_database, L"nothing");
    engine::endUndoGroup(m_database);
    states().saveLayerState(L"A", MaskAllProperties);
    EXPECT_EQ(engine::undoName(m_database), L"") << "changed outside of groups";
    engine::undo(m_database);
    EXPECT_EQ(engine::redoName(m_database), L"");
    engine::beginUndoGroup(m_database, L"some");
    states().saveLayerState(L"B", MaskAllProperties);
    EXPECT_EQ(engine::undoName(m_database), L"some");
    engine::endUndoGroup(m_database);
    states().saveLayerState(L"C", MaskAllProperties);
    EXPECT_EQ(engine::undoName(m_database), L"");
    engine::undo(m_database);
    EXPECT_EQ(engine::undoName(m_database), L"some");
    EXPECT_EQ(engine::redoName(m_database), L"");
}

TEST_F(Undo, SharesColumnsInsteadOfCopyingThem) {
    states().saveLayerState(L"Plan", MaskAllProperties);
    const void* columns = drawing().columns.colors.values().data();
    step([this] { restore(L"Plan"); });
    EXPECT_EQ(drawing().columns.colors.values().data(), columns);
    step([this] { setColor(L"Walls", 3); });
    engine::undo(m_database);
    EXPECT_EQ(drawing().columns.colors.values().data(), columns);
}
