// Attached references: their layers and states among the drawing's, and what is done where a reference isn't there.

#include "EngineTest.h"
#include "KelDbPointers.h"

using testing::ElementsAre;

class AttachedReferences : public EngineTest {
  protected:
    /// A drawing with a reference "site" that isn't resolved yet.
    AttachedReferences() {
        zdr::Drawing withReference = makeDrawing({{L"Walls"}});
        withReference.references.push_back({.name = L"site", .path = L"site.zdr", .insertion = {}, .drawing = nullptr});
        use(std::move(withReference));
    }
    /// The drawing that is referred to: Base, Trees (red, Wavy); a state "Summer" in which Trees are green, with Trees
    /// current.
    static std::shared_ptr<const zdr::Drawing> site() {
        zdr::Drawing trees = makeDrawing({{.name = L"Trees", .color = 3, .linetype = L"Wavy"}});
        trees.linetypes.push_back({trees.names.find(L"Wavy"), trees.nextHandle++, L"", {2, -1}});
        KelDbDatabase database(false, false);
        engine::replaceDrawing(database, std::move(trees));
        engine::setCurrentLayer(database, 1);
        database.getLayerStateManager()->saveLayerState(L"Summer", MaskAllProperties);
        engine::setCurrentLayer(database, 0);
        engine::LayerValues red = engine::layerValues(database, 1);
        red.color = 1;
        EXPECT_EQ(engine::setLayerValues(database, 1, red), Vorn::eOk);
        return std::make_shared<zdr::Drawing>(engine::drawingOf(database));
    }
    void attach() { engine::attachReference(m_database, 0, site()); }
    void detach() { engine::attachReference(m_database, 0, nullptr); }
};

TEST_F(AttachedReferences, BringTheirLayersUnderTheirName) {
    attach();
    EXPECT_EQ(layer(L"site!Base"), 2u);
    EXPECT_EQ(layer(L"SITE!trees"), 3u);
    EXPECT_EQ(values(L"site!Trees").color, 1u);
    EXPECT_EQ(drawing().layers[3].reference, 0u);
    KelDbObjectPointer<KelDbLayerTableRecord> record(layerId(L"site!Trees"), KelDb::kForRead);
    EXPECT_TRUE(record->isDependent());
    EXPECT_TRUE(record->isResolved());
}

TEST_F(AttachedReferences, BringStylesThatTheDrawingLacksUnderTheirName) {
    attach();
    EXPECT_EQ(values(L"site!Trees").linetype, nameId(L"site!Wavy"));
    EXPECT_EQ(values(L"site!Base").linetype, nameId(L"Continuous"));
    KelDbObjectPointer<KelDbLinetypeTableRecord> linetype(engine::objectId(m_database, drawing().linetypes[3].handle),
                                                          KelDb::kForRead);
    EXPECT_TRUE(linetype->isDependent());
}

TEST_F(AttachedReferences, BringTheirStatesBehindTheDrawingsOwn) {
    states().saveLayerState(L"Plan", MaskAllProperties);
    attach();
    states().saveLayerState(L"Section", MaskAllProperties);
    EXPECT_THAT(stateNames(), ElementsAre(L"Plan", L"Section", L"site!Summer"));
    EXPECT_THAT(stateNames(false), ElementsAre(L"Plan", L"Section"));
    EXPECT_TRUE(states().isDependentLayerState(L"SITE!summer"));
    EXPECT_FALSE(states().isDependentLayerState(L"Plan"));
    EXPECT_THAT(layersOf(L"site!Summer"), ElementsAre(L"site!Base", L"site!Trees"));
}

TEST_F(AttachedReferences, StatesOfThemCannotBeChanged) {
    attach();
    const wchar_t* summer = L"site!Summer";
    KelArray<KelDbObjectId> layers;
    layers.append(layerId(L"Walls"));
    KelArray<KelString> names;
    names.append(L"site!Trees");
    KelDbLayerTableRecord record;
    record.setName(L"site!Trees");
    EXPECT_EQ(states().saveLayerState(summer, 1), Vorn::eDependentRecord);
    EXPECT_EQ(states().deleteLayerState(summer), Vorn::eDependentRecord);
    EXPECT_EQ(states().renameLayerState(summer, L"Winter"), Vorn::eDependentRecord);
    EXPECT_EQ(states().setLayerStateMask(summer, 1), Vorn::eDependentRecord);
    EXPECT_EQ(states().setLayerStateDescription(summer, L"x"), Vorn::eDependentRecord);
    EXPECT_EQ(states().addLayerStateLayers(summer, layers), Vorn::eDependentRecord);
    EXPECT_EQ(states().removeLayerStateLayers(summer, names), Vorn::eDependentRecord);
    EXPECT_FALSE(impStates().updateLayerStateLayer(summer, &record, false));
    EXPECT_EQ(drawing().states[0].mask, MaskAllProperties);
}

TEST_F(AttachedReferences, StatesOfThemAreNotCopiedIntoOtherDrawings) {
    attach();
    KelDbDatabase other(false, true);
    engine::replaceDrawing(other, makeDrawing());
    EXPECT_EQ(other.getLayerStateManager()->importLayerStateFromDb(L"site!Summer", &m_database),
              Vorn::eDependentRecord);
    EXPECT_TRUE(engine::drawingOf(other).states.empty());
}

TEST_F(AttachedReferences, StatesOfThemCanBeComparedAndRestored) {
    attach();
    EXPECT_FALSE(matches(L"site!Summer"));
    EXPECT_EQ(restore(L"site!Summer"), Vorn::eOk);
    EXPECT_EQ(values(L"site!Trees").color, 3u);
    EXPECT_TRUE(matches(L"site!Summer"));
    EXPECT_EQ(drawing().lastRestored, L"site!Summer");
    EXPECT_EQ(drawing().currentLayer, 0u); // a layer of a reference is never the current one
}

TEST_F(AttachedReferences, LayersOfThemAreNotRenamedRemovedOrMadeCurrent) {
    attach();
    EXPECT_EQ(engine::renameLayer(m_database, layer(L"site!Trees"), L"Shrubs"), Vorn::eDependentRecord);
    EXPECT_EQ(engine::removeLayer(m_database, layer(L"site!Trees")), Vorn::eDependentRecord);
    EXPECT_EQ(m_database.setClayer(layerId(L"site!Trees")), Vorn::eDependentRecord);
}

TEST_F(AttachedReferences, AttachedAgainKeepTheDrawingsValuesOfTheirLayers) {
    attach();
    setColor(L"site!Trees", 5);
    attach();
    EXPECT_EQ(values(L"site!Trees").color, 5u);
    EXPECT_EQ(drawing().layers.size(), 4u);
    EXPECT_THAT(stateNames(), ElementsAre(L"site!Summer"));
}

TEST_F(AttachedReferences, ThatAreNotThereLeaveTheirLayersUnresolved) {
    attach();
    detach();
    KelDbObjectPointer<KelDbLayerTableRecord> record(layerId(L"site!Trees"), KelDb::kForRead);
    EXPECT_TRUE(record->isDependent());
    EXPECT_FALSE(record->isResolved());
    EXPECT_THAT(stateNames(), ElementsAre());
}

TEST_F(AttachedReferences, AreUnloadedUntilTheyAreAttachedAgain) {
    EXPECT_FALSE(drawing().references[0].unloaded) << "missing so far, and nobody has left it out";
    attach();
    EXPECT_FALSE(drawing().references[0].unloaded);
    const std::uint64_t loaded = engine::contentNumber(m_database);
    detach();
    EXPECT_TRUE(drawing().references[0].unloaded);
    EXPECT_NE(engine::contentNumber(m_database), loaded) << "the file has to be told";
    attach();
    EXPECT_FALSE(drawing().references[0].unloaded);
}

TEST_F(AttachedReferences, ARestoreThatWouldChangeAnUnresolvedLayerSaysSoAndDoesTheRest) {
    attach();
    states().saveLayerState(L"Plan", MaskAllProperties);
    setColor(L"site!Trees", 5);
    setColor(L"Walls", 5);
    detach();
    EXPECT_EQ(restore(L"Plan"), Vorn::eLayerUnresolved);
    EXPECT_EQ(values(L"site!Trees").color, 5u);
    EXPECT_EQ(values(L"Walls").color, 7u);
    EXPECT_EQ(drawing().lastRestored, L"Plan");
}

TEST_F(AttachedReferences, ARestoreThatWouldNotChangeAnUnresolvedLayerIsAFullOne) {
    attach();
    states().saveLayerState(L"Plan", MaskAllProperties);
    setColor(L"Walls", 5);
    detach();
    EXPECT_EQ(restore(L"Plan"), Vorn::eOk);
    EXPECT_TRUE(matches(L"Plan"));
}

TEST_F(AttachedReferences, AnUnresolvedLayerIsNotOverriddenEither) {
    attach();
    states().saveLayerState(L"Plan", MaskColor);
    setColor(L"site!Trees", 5);
    detach();
    EXPECT_EQ(restore(L"Plan", RestoreFlagAsOverrides, viewportId()), Vorn::eLayerUnresolved);
    const auto& shown = engine::shownColumns(m_database, &viewport());
    EXPECT_EQ(shown.colors[layer(L"site!Trees")], 5u);
}

TEST_F(AttachedReferences, TheFreezingOfAnUnresolvedLayerInAViewportIsKeptToo) {
    attach();
    states().saveLayerState(L"Plan", MaskViewportFrozen, viewportId());
    for (const wchar_t* name : {L"site!Trees", L"Walls"})
        engine::setFrozenInViewport(m_database, viewport().handle, layer(name), true);
    detach();
    EXPECT_EQ(restore(L"Plan", 0, viewportId()), Vorn::eLayerUnresolved);
    EXPECT_TRUE(viewport().frozen[layer(L"site!Trees")]);
    EXPECT_FALSE(viewport().frozen[layer(L"Walls")]);
}

TEST_F(AttachedReferences, LayersThatTheStateDoesNotHoldAreTurnedOffUnresolvedOrNot) {
    states().saveLayerState(L"Plan", MaskColor);
    attach();
    detach();
    EXPECT_EQ(restore(L"Plan", RestoreFlagLayerNotFound), Vorn::eOk);
    EXPECT_FALSE(hasFlag(L"site!Trees", zdr::kLayerOn));
    EXPECT_FALSE(hasFlag(L"site!Base", zdr::kLayerOn));
    EXPECT_TRUE(hasFlag(L"Walls", zdr::kLayerOn));
}

TEST_F(AttachedReferences, HeldByANewDrawingAreAttachedWithIt) {
    zdr::Drawing withReference = makeDrawing();
    withReference.references.push_back({.name = L"site", .path = L"site.zdr", .insertion = {}, .drawing = site()});
    use(std::move(withReference));
    EXPECT_THAT(stateNames(), ElementsAre(L"site!Summer"));
    EXPECT_FALSE(engine::canUndo(m_database));
}

TEST_F(AttachedReferences, StatesOfThemAreNotInTheDictionary) {
    attach();
    KelDbObjectPointer<KelDbDictionary> dictionary(states().layerStatesDictionaryId(true), KelDb::kForRead);
    KelDbObjectId id;
    EXPECT_EQ(dictionary->getAt(L"site!Summer", id), Vorn::eKeyNotFound);
}

class NestedReferences : public AttachedReferences {
  protected:
    /// A drawing that refers to others.
    static std::shared_ptr<const zdr::Drawing>
    showing(std::vector<std::pair<const wchar_t*, std::shared_ptr<const zdr::Drawing>>> shown) {
        zdr::Drawing drawing = makeDrawing({{L"Roof"}});
        for (auto& [name, inner] : shown)
            drawing.references.push_back(
                {.name = name, .path = L"x.zdr", .insertion = {}, .drawing = std::move(inner)});
        return std::make_shared<const zdr::Drawing>(std::move(drawing));
    }
    bool isResolved(const wchar_t* name) {
        KelDbObjectPointer<KelDbLayerTableRecord> record(layerId(name), KelDb::kForRead);
        EXPECT_TRUE(record->isDependent());
        return record->isResolved();
    }
};

TEST_F(NestedReferences, BringTheirLayersAndStatesUnderAllTheirNames) {
    engine::attachReference(m_database, 0, showing({{L"plot", showing({{L"garden", site()}})}}));
    EXPECT_NE(layer(L"site!Roof"), zdr::kNone);
    EXPECT_NE(layer(L"site!plot!Roof"), zdr::kNone);
    EXPECT_EQ(values(L"site!plot!garden!Trees").color, 1u);
    EXPECT_EQ(values(L"site!plot!garden!Trees").linetype, nameId(L"site!plot!garden!Wavy"));
    EXPECT_TRUE(isResolved(L"site!plot!garden!Trees"));
    EXPECT_THAT(stateNames(), ElementsAre(L"site!plot!garden!Summer"));
    EXPECT_TRUE(states().isDependentLayerState(L"site!plot!garden!Summer"));
    EXPECT_EQ(states().deleteLayerState(L"site!plot!garden!Summer"), Vorn::eDependentRecord);
    EXPECT_EQ(restore(L"site!plot!garden!Summer"), Vorn::eOk);
    EXPECT_EQ(values(L"site!plot!garden!Trees").color, 3u);
}

// For the view: it looks up how an entity of a nested drawing looks in the layers of the drawing around it.
TEST_F(NestedReferences, StandInEachDrawingOnTheWay) {
    engine::attachReference(m_database, 0, showing({{L"garden", site()}}));
    const zdr::Drawing& middle = *drawing().references[0].drawing;
    ASSERT_EQ(middle.layers.size(), 4u);
    EXPECT_EQ(middle.names.text(middle.layers[3].name), L"garden!Trees");
    EXPECT_EQ(middle.layers[3].reference, 0u);
}

TEST_F(NestedReferences, TwoOfTheSameDrawingAreToldApart) {
    const auto garden = site();
    engine::attachReference(m_database, 0, showing({{L"north", garden}, {L"south", garden}}));
    EXPECT_THAT(stateNames(), ElementsAre(L"site!north!Summer", L"site!south!Summer"));
    EXPECT_NE(layer(L"site!north!Trees"), layer(L"site!south!Trees"));
}

TEST_F(NestedReferences, ThatAreNotThereLeaveTheirLayersUnresolved) {
    engine::attachReference(m_database, 0, showing({{L"garden", site()}}));
    states().saveLayerState(L"Plan", MaskAllProperties);
    setColor(L"site!garden!Trees", 5);
    // The middle drawing is there and knows the garden's layers, the garden itself isn't.
    zdr::Drawing middle = *drawing().references[0].drawing;
    middle.references[0].drawing = nullptr;
    std::erase_if(middle.states, [](const zdr::LayerState& state) { return state.reference != zdr::kNone; });
    engine::attachReference(m_database, 0, std::make_shared<const zdr::Drawing>(std::move(middle)));
    EXPECT_FALSE(isResolved(L"site!garden!Trees"));
    EXPECT_TRUE(isResolved(L"site!Roof"));
    EXPECT_EQ(restore(L"Plan"), Vorn::eLayerUnresolved);
    EXPECT_EQ(values(L"site!garden!Trees").color, 5u);
    engine::attachReference(m_database, 0, showing({{L"garden", site()}}));
    EXPECT_TRUE(isResolved(L"site!garden!Trees"));
    EXPECT_EQ(restore(L"Plan"), Vorn::eOk);
}

TEST_F(NestedReferences, TellWhichOfTheirStatesTheirFilesCallOtherwise) {
    zdr::Drawing garden = *site(), plot = *showing({{L"garden", nullptr}});
    garden.mendedNames = {{L"Sum/mer", L"Summer"}};
    plot.references[0].drawing = std::make_shared<const zdr::Drawing>(garden);
    plot.mendedNames = {{L"a:b", L"a_b"}};
    const auto told = [this] {
        std::vector<std::wstring> names;
        for (const zdr::MendedName& name : drawing().mendedNames)
            names.push_back(name.was + L" " + name.now);
        return names;
    };
    for (int time = 0; time < 2; ++time) {
        engine::attachReference(m_database, 0, std::make_shared<const zdr::Drawing>(plot));
        EXPECT_THAT(told(), ElementsAre(L"site!a:b site!a_b", L"site!garden!Sum/mer site!garden!Summer"));
    }
    zdr::Drawing again = drawing();
    again.mendedNames.insert(again.mendedNames.begin(), {L"own?", L"own_"});
    again.mendedNames.insert(again.mendedNames.begin(), {L"missing!a/b", L"missing!a_b"});
    use(std::move(again));
    EXPECT_THAT(told(), ElementsAre(L"missing!a/b missing!a_b", L"own? own_", L"site!a:b site!a_b",
                                    L"site!garden!Sum/mer site!garden!Summer"));
    detach();
    EXPECT_THAT(told(), ElementsAre(L"missing!a/b missing!a_b", L"own? own_"));
}

TEST_F(NestedReferences, AreFollowedByTheLastRestoredStateWhereTheirFileCallsItOtherwise) {
    zdr::Drawing garden = *site();
    garden.mendedNames = {{L"Sum/mer", L"Summer"}};
    zdr::Drawing outer = drawing();
    outer.lastRestored = L"SITE!garden!sum/mer";
    outer.references[0].drawing = showing({{L"garden", std::make_shared<const zdr::Drawing>(garden)}});
    use(std::move(outer));
    EXPECT_EQ(drawing().lastRestored, L"site!garden!Summer");
    KelString name;
    KelDbObjectId id;
    EXPECT_EQ(states().getLastRestoredLayerState(name, id), Vorn::eOk);
    EXPECT_STREQ(name.kwszPtr(), L"site!garden!Summer");
}

TEST_F(NestedReferences, OfAnyDepthAreAttached) {
    constexpr int depth = 200;
    std::shared_ptr<const zdr::Drawing> drawing = site();
    std::wstring prefix = L"site!";
    for (int i = 0; i < depth; ++i, prefix += L"n!")
        drawing = showing({{L"n", drawing}});
    engine::attachReference(m_database, 0, drawing);
    EXPECT_THAT(stateNames(), ElementsAre(prefix + L"Summer"));
    EXPECT_NE(layer((prefix + L"Trees").c_str()), zdr::kNone);
}

TEST_F(AttachedReferences, LayersThatTheirFileNoLongerHasGo) {
    attach();
    states().saveLayerState(L"Plan", MaskAllProperties);
    zdr::Drawing bare = makeDrawing({{L"Lawn"}});
    bare.layers[1].description = L"cut weekly";
    engine::attachReference(m_database, 0, std::make_shared<const zdr::Drawing>(bare));
    EXPECT_EQ(layer(L"site!Trees"), zdr::kNone);
    EXPECT_EQ(drawing().layers[layer(L"site!Lawn")].description, L"cut weekly");
    EXPECT_FALSE(matches(L"Plan")) << "the state goes on holding the layer";
    bare.layers[1].description = L"wild";
    engine::attachReference(m_database, 0, std::make_shared<const zdr::Drawing>(bare));
    EXPECT_EQ(drawing().layers[layer(L"site!Lawn")].description, L"wild");
}

TEST_F(AttachedReferences, ALayerThatTheirFileNoLongerHasStaysUnresolvedWhileSomethingLiesOnIt) {
    attach();
    zdr::Drawing drawn = drawing();
    drawn.entities.push_back({.layer = layer(L"site!Trees"), .color = {}, .geometry = zdr::Line{{0, 0}, {1, 1}}});
    use(std::move(drawn));
    engine::attachReference(m_database, 0, std::make_shared<const zdr::Drawing>(makeDrawing()));
    KelDbObjectPointer<KelDbLayerTableRecord> record(layerId(L"site!Trees"), KelDb::kForRead);
    EXPECT_TRUE(record->isDependent());
    EXPECT_FALSE(record->isResolved());
}

TEST_F(AttachedReferences, LayersThatGoTakeAlongOnlyWhatIsSaidOfThem) {
    attach();
    engine::addLayer(m_database, L"Last");
    engine::setCurrentLayer(m_database, layer(L"Last"));
    states().saveLayerState(L"Plan", MaskAllProperties);
    setColor(L"Last", 4);
    zdr::Drawing drawn = drawing();
    drawn.layouts[0].entities.push_back({.layer = layer(L"Last"), .color = {}, .geometry = zdr::Circle{}});
    use(std::move(drawn));
    const zdr::Handle seen = viewport().handle;
    for (const wchar_t* name : {L"site!Base", L"site!Trees", L"Last"}) {
        engine::setFrozenInViewport(m_database, seen, layer(name), true);
        engine::setOverride(m_database, seen, {layer(name), MaskColor, 6});
    }
    const KelDbObjectId last = layerId(L"Last"), trees = layerId(L"site!Trees");
    engine::attachReference(m_database, 0, std::make_shared<const zdr::Drawing>(makeDrawing()));
    ASSERT_EQ(drawing().layers.size(), 4u) << "Base, Walls, site!Base and Last";
    const std::size_t now = layer(L"Last");
    EXPECT_EQ(now, 3u);
    EXPECT_EQ(drawing().layerSet->names[now], nameId(L"Last"));
    EXPECT_EQ(drawing().currentLayer, now);
    EXPECT_EQ(drawing().layouts[0].entities[0].layer, now);
    EXPECT_EQ(values(L"Last").color, 4u);
    EXPECT_EQ(viewport().frozen, (std::vector<bool>{false, false, true, true}));
    EXPECT_THAT(viewport().overrides,
                ElementsAre(zdr::ViewportOverride{2, MaskColor, 6}, zdr::ViewportOverride{3, MaskColor, 6}));
    EXPECT_EQ(engine::layerIndex(m_database, last), now);
    EXPECT_EQ(engine::layerIndex(m_database, trees), zdr::kNone) << "erased";
    EXPECT_EQ(restore(L"Plan"), Vorn::eOk);
    EXPECT_EQ(values(L"Last").color, 7u);
}

TEST_F(AttachedReferences, StatesOfOthersStayWhenOneIsLeftOut) {
    zdr::Drawing two = makeDrawing();
    for (const wchar_t* name : {L"north", L"south"})
        two.references.push_back({.name = name, .path = L"site.zdr", .insertion = {}, .drawing = site()});
    use(std::move(two));
    states().saveLayerState(L"Plan", MaskAllProperties);
    engine::attachReference(m_database, 0, nullptr);
    EXPECT_THAT(stateNames(), ElementsAre(L"Plan", L"south!Summer"));
    EXPECT_EQ(restore(L"south!Summer"), Vorn::eOk);
    engine::attachReference(m_database, 0, site());
    EXPECT_THAT(stateNames(), ElementsAre(L"Plan", L"south!Summer", L"north!Summer"));
}

TEST_F(AttachedReferences, TheirLinetypesFollowTheirFile) {
    attach();
    zdr::Drawing changed = *site();
    changed.linetypes.back().pattern = {9, -9};
    engine::attachReference(m_database, 0, std::make_shared<const zdr::Drawing>(std::move(changed)));
    EXPECT_THAT(drawing().linetypes.back().pattern, ElementsAre(9, -9));
    EXPECT_EQ(drawing().linetypes.size(), 4u);
}

TEST_F(AttachedReferences, StylesThatTheirLayersNameAloneAreListedWithThem) {
    zdr::Drawing bare = makeDrawing({{.name = L"Trees", .linetype = L"Wavy", .plotStyle = L"Bold"}});
    engine::attachReference(m_database, 0, std::make_shared<const zdr::Drawing>(std::move(bare)));
    ASSERT_EQ(values(L"site!Trees").linetype, nameId(L"site!Wavy"));
    EXPECT_EQ(drawing().linetypes.back().name, nameId(L"site!Wavy"));
    EXPECT_TRUE(drawing().linetypes.back().pattern.empty());
    EXPECT_EQ(drawing().plotStyles.back().name, nameId(L"site!Bold"));
    states().saveLayerState(L"Plan", MaskAllProperties);
    change(L"site!Trees", [this](engine::LayerValues& trees) {
        trees.linetype = nameId(L"Dotted");
        trees.plotStyle = nameId(L"Fine");
    });
    EXPECT_EQ(restore(L"Plan"), Vorn::eOk);
    EXPECT_EQ(values(L"site!Trees").linetype, nameId(L"site!Wavy"));
    EXPECT_EQ(values(L"site!Trees").plotStyle, nameId(L"site!Bold"));
    attach();
    EXPECT_THAT(drawing().linetypes.back().pattern, ElementsAre(2, -1)) << "the file has it now";
}
