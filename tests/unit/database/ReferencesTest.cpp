// Attached references: their layers and states among the drawing's, and what is done where a reference isn't there.

#include "EngineTest.h"
#include "KelDbPointers.h"

using testing::ElementsAre;

class References : public EngineTest {
  protected:
    /// A drawing with a reference "site" that isn't resolved yet.
    References() {
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

TEST_F(References, BringTheirLayersUnderTheirName) {
    attach();
    EXPECT_EQ(layer(L"site!Base"), 2u);
    EXPECT_EQ(layer(L"SITE!trees"), 3u);
    EXPECT_EQ(values(L"site!Trees").color, 1u);
    EXPECT_EQ(drawing().layers[3].reference, 0u);
    KelDbObjectPointer<KelDbLayerTableRecord> record(layerId(L"site!Trees"), KelDb::kForRead);
    EXPECT_TRUE(record->isDependent());
    EXPECT_TRUE(record->isResolved());
}

TEST_F(References, BringStylesThatTheDrawingLacksUnderTheirName) {
    attach();
    EXPECT_EQ(values(L"site!Trees").linetype, nameId(L"site!Wavy"));
    EXPECT_EQ(values(L"site!Base").linetype, nameId(L"Continuous"));
    KelDbObjectPointer<KelDbLinetypeTableRecord> linetype(engine::objectId(m_database, drawing().linetypes[3].handle),
                                                          KelDb::kForRead);
    EXPECT_TRUE(linetype->isDependent());
}

TEST_F(References, BringTheirStatesBehindTheDrawingsOwn) {
    states().saveLayerState(L"Plan", MaskAllProperties);
    attach();
    states().saveLayerState(L"Section", MaskAllProperties);
    EXPECT_THAT(stateNames(), ElementsAre(L"Plan", L"Section", L"site!Summer"));
    EXPECT_THAT(stateNames(false), ElementsAre(L"Plan", L"Section"));
    EXPECT_TRUE(states().isDependentLayerState(L"SITE!summer"));
    EXPECT_FALSE(states().isDependentLayerState(L"Plan"));
    EXPECT_THAT(layersOf(L"site!Summer"), ElementsAre(L"site!Base", L"site!Trees"));
}

TEST_F(References, StatesOfThemCannotBeChanged) {
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

TEST_F(References, StatesOfThemCanBeComparedAndRestored) {
    attach();
    EXPECT_FALSE(matches(L"site!Summer"));
    EXPECT_EQ(restore(L"site!Summer"), Vorn::eOk);
    EXPECT_EQ(values(L"site!Trees").color, 3u);
    EXPECT_TRUE(matches(L"site!Summer"));
    EXPECT_EQ(drawing().lastRestored, L"site!Summer");
    EXPECT_EQ(drawing().currentLayer, 0u); // a layer of a reference is never the current one
}

TEST_F(References, LayersOfThemAreNotRenamedRemovedOrMadeCurrent) {
    attach();
    EXPECT_EQ(engine::renameLayer(m_database, layer(L"site!Trees"), L"Shrubs"), Vorn::eDependentRecord);
    EXPECT_EQ(engine::removeLayer(m_database, layer(L"site!Trees")), Vorn::eDependentRecord);
    EXPECT_EQ(m_database.setClayer(layerId(L"site!Trees")), Vorn::eDependentRecord);
}

TEST_F(References, AttachedAgainKeepTheDrawingsValuesOfTheirLayers) {
    attach();
    setColor(L"site!Trees", 5);
    attach();
    EXPECT_EQ(values(L"site!Trees").color, 5u);
    EXPECT_EQ(drawing().layers.size(), 4u);
    EXPECT_THAT(stateNames(), ElementsAre(L"site!Summer"));
}

TEST_F(References, ThatAreNotThereLeaveTheirLayersUnresolved) {
    attach();
    detach();
    KelDbObjectPointer<KelDbLayerTableRecord> record(layerId(L"site!Trees"), KelDb::kForRead);
    EXPECT_TRUE(record->isDependent());
    EXPECT_FALSE(record->isResolved());
    EXPECT_THAT(stateNames(), ElementsAre());
}

TEST_F(References, ARestoreThatWouldChangeAnUnresolvedLayerSaysSoAndDoesTheRest) {
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

TEST_F(References, ARestoreThatWouldNotChangeAnUnresolvedLayerIsAFullOne) {
    attach();
    states().saveLayerState(L"Plan", MaskAllProperties);
    setColor(L"Walls", 5);
    detach();
    EXPECT_EQ(restore(L"Plan"), Vorn::eOk);
    EXPECT_TRUE(matches(L"Plan"));
}

TEST_F(References, AnUnresolvedLayerIsNotOverriddenEither) {
    attach();
    states().saveLayerState(L"Plan", MaskColor);
    setColor(L"site!Trees", 5);
    detach();
    EXPECT_EQ(restore(L"Plan", RestoreFlagAsOverrides, viewportId()), Vorn::eLayerUnresolved);
    const auto& shown = engine::shownColumns(m_database, &viewport());
    EXPECT_EQ(shown.colors[layer(L"site!Trees")], 5u);
}

TEST_F(References, HeldByANewDrawingAreAttachedWithIt) {
    zdr::Drawing withReference = makeDrawing();
    withReference.references.push_back({.name = L"site", .path = L"site.zdr", .insertion = {}, .drawing = site()});
    use(std::move(withReference));
    EXPECT_THAT(stateNames(), ElementsAre(L"site!Summer"));
    EXPECT_FALSE(engine::canUndo(m_database));
}

TEST_F(References, StatesOfThemAreNotInTheDictionary) {
    attach();
    KelDbObjectPointer<KelDbDictionary> dictionary(states().layerStatesDictionaryId(true), KelDb::kForRead);
    KelDbObjectId id;
    EXPECT_EQ(dictionary->getAt(L"site!Summer", id), Vorn::eKeyNotFound);
}
