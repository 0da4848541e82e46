// The layers that a state holds: added, taken out, written over; states copied from other drawings; their records.

#include "EngineTest.h"
#include "KelDbPointers.h"

using testing::ElementsAre;

class StateEditing : public EngineTest {
  protected:
    StateEditing() { states().saveLayerState(L"Plan", MaskAllProperties); }
    Vorn::ErrorStatus remove(std::initializer_list<const wchar_t*> layers) {
        KelArray<KelString> names;
        for (const wchar_t* name : layers)
            names.append(name);
        return states().removeLayerStateLayers(L"Plan", names);
    }
    Vorn::ErrorStatus add(std::initializer_list<KelDbObjectId> layers) {
        KelArray<KelDbObjectId> ids;
        for (const KelDbObjectId id : layers)
            ids.append(id);
        return states().addLayerStateLayers(L"Plan", ids);
    }
    const zdr::LayerState& plan() const { return drawing().states.at(0); }
    /// What the state holds of a layer.
    engine::LayerValues held(const wchar_t* name) {
        const auto& names = plan().layers->names;
        const auto found = std::ranges::find(names, nameId(name));
        return engine::valuesAt(plan().columns, static_cast<std::size_t>(found - names.begin()));
    }
    KelDbObjectId dictionaryId() { return states().layerStatesDictionaryId(true); }
};

TEST_F(StateEditing, TakesLayersOutByName) {
    EXPECT_EQ(remove({L"DOORS", L"Base"}), Vorn::eOk);
    EXPECT_THAT(layersOf(L"Plan"), ElementsAre(L"Walls", L"Furniture"));
    EXPECT_THAT(layersOf(L"Plan", true), ElementsAre(L"Base", L"Doors"));
    EXPECT_TRUE(matches(L"Plan"));
}

TEST_F(StateEditing, PassesOverNamesThatTheStateDoesNotHold) {
    EXPECT_EQ(remove({L"Roof", L"", L"Doors"}), Vorn::eOk);
    EXPECT_THAT(layersOf(L"Plan"), ElementsAre(L"Base", L"Walls", L"Furniture"));
}

TEST_F(StateEditing, MayTakeOutAllLayers) {
    EXPECT_EQ(remove({L"Base", L"Walls", L"Doors", L"Furniture"}), Vorn::eOk);
    EXPECT_THAT(layersOf(L"Plan"), ElementsAre());
    EXPECT_TRUE(matches(L"Plan"));
    EXPECT_EQ(restore(L"Plan", RestoreFlagLayerNotFound), Vorn::eOk);
    EXPECT_FALSE(hasFlag(L"Walls", zdr::kLayerOn));
}

TEST_F(StateEditing, AStateWithoutItsCurrentLayerHasNone) {
    EXPECT_EQ(remove({L"Walls"}), Vorn::eOk);
    EXPECT_EQ(plan().currentLayer, nameId(L"Base"));
    EXPECT_EQ(remove({L"Base"}), Vorn::eOk);
    EXPECT_EQ(plan().currentLayer, zdr::kNoName);
}

TEST_F(StateEditing, AddsLayersWithTheirPresentValues) {
    remove({L"Doors"});
    setColor(L"Doors", 5);
    setColor(L"Walls", 6);
    EXPECT_EQ(add({layerId(L"Doors"), layerId(L"Walls")}), Vorn::eOk);
    EXPECT_THAT(layersOf(L"Plan"), ElementsAre(L"Base", L"Walls", L"Furniture", L"Doors"));
    EXPECT_EQ(held(L"Doors").color, 5u);
    EXPECT_EQ(held(L"Walls").color, 7u); // held already
}

TEST_F(StateEditing, RefusesToAddWhatIsNoLayerOfTheDrawing) {
    remove({L"Doors"});
    EXPECT_EQ(add({layerId(L"Doors"), {}}), Vorn::eInvalidInput);
    EXPECT_EQ(add({m_database.layerTableId()}), Vorn::eInvalidInput);
    KelDbDatabase other(true, true);
    EXPECT_EQ(add({other.clayer()}), Vorn::eInvalidInput);
    EXPECT_THAT(layersOf(L"Plan"), ElementsAre(L"Base", L"Walls", L"Furniture"));
}

TEST_F(StateEditing, AnotherOrderOfLayersIsFoundByName) {
    remove({L"Walls"});
    add({layerId(L"Walls")});
    EXPECT_TRUE(matches(L"Plan"));
    setColor(L"Walls", 5);
    setColor(L"Furniture", 6);
    EXPECT_FALSE(matches(L"Plan"));
    restore(L"Plan");
    EXPECT_EQ(values(L"Walls").color, 7u);
    EXPECT_EQ(values(L"Furniture").color, 7u);
}

TEST_F(StateEditing, WritesARecordFromMemoryOverALayer) {
    KelDbLayerTableRecord record;
    record.setName(L"WALLS");
    record.setIsFrozen(true);
    record.setIsOff(true);
    record.setVPDFLT(true);
    record.setIsLocked(true);
    record.setIsPlottable(false);
    KelCmColor color;
    color.setRGB(1, 2, 3);
    record.setColor(color);
    record.setLinetypeObjectId(engine::objectId(m_database, drawing().linetypes[1].handle));
    record.setLineWeight(70);
    record.setPlotStyleName(L"Fine");
    EXPECT_TRUE(impStates().updateLayerStateLayer(L"plan", &record, true));
    const engine::LayerValues expected{zdr::kLayerFrozen | zdr::kLayerLocked | zdr::kLayerNewViewportFrozen,
                                       color.packed(), nameId(L"Dashed"), 70, nameId(L"Fine")};
    EXPECT_EQ(held(L"Walls"), expected);
    EXPECT_EQ(plan().currentLayer, nameId(L"Walls"));
    EXPECT_EQ(values(L"Walls").color, 7u);
}

TEST_F(StateEditing, KeepsStylesThatTheRecordDoesNotName) {
    change(L"Walls", [this](engine::LayerValues& wall) {
        wall.linetype = nameId(L"Dashed");
        wall.plotStyle = nameId(L"Fine");
    });
    states().saveLayerState(L"Plan", MaskAllProperties);
    KelDbLayerTableRecord record;
    record.setName(L"Walls");
    EXPECT_TRUE(impStates().updateLayerStateLayer(L"Plan", &record, false));
    EXPECT_EQ(held(L"Walls").linetype, nameId(L"Dashed"));
    EXPECT_EQ(held(L"Walls").plotStyle, nameId(L"Fine"));
    EXPECT_EQ(plan().currentLayer, nameId(L"Base"));
}

TEST_F(StateEditing, KeepsTheViewportsFreezingOfALayerWrittenOver) {
    engine::setFrozenInViewport(m_database, viewport().handle, layer(L"Walls"), true);
    states().saveLayerState(L"Plan", MaskAllProperties, viewportId());
    KelDbLayerTableRecord record;
    record.setName(L"Walls");
    EXPECT_TRUE(impStates().updateLayerStateLayer(L"Plan", &record, false));
    EXPECT_TRUE(held(L"Walls").flags & zdr::kLayerViewportFrozen);
}

TEST_F(StateEditing, RefusesToWriteOverWhatIsNotThere) {
    KelDbLayerTableRecord record;
    record.setName(L"Roof");
    EXPECT_FALSE(impStates().updateLayerStateLayer(L"Plan", &record, false));
    EXPECT_FALSE(impStates().updateLayerStateLayer(L"Section", &record, false));
    EXPECT_FALSE(impStates().updateLayerStateLayer(L"Plan", nullptr, false));
    KelDbLayerTableRecord nameless;
    EXPECT_FALSE(impStates().updateLayerStateLayer(L"Plan", &nameless, false));
}

TEST_F(StateEditing, CopiesAStateOfAnotherDrawingByNames) {
    KelDbDatabase other(false, true);
    engine::replaceDrawing(other,
                           makeDrawing({{.name = L"Extra"}, {.name = L"DOORS", .color = 5, .linetype = L"Dotted"}}));
    other.getLayerStateManager()->saveLayerState(L"Detail", 33);
    other.getLayerStateManager()->setLayerStateDescription(L"Detail", L"big");
    ASSERT_EQ(states().importLayerStateFromDb(L"detail", &other), Vorn::eOk);
    EXPECT_THAT(stateNames(), ElementsAre(L"Plan", L"Detail"));
    EXPECT_THAT(layersOf(L"Detail"), ElementsAre(L"Base", L"Extra", L"Doors"));
    const zdr::LayerState& detail = drawing().states[1];
    EXPECT_EQ(detail.mask, 33u);
    EXPECT_EQ(detail.description, L"big");
    EXPECT_EQ(restore(L"Detail", MaskColor | MaskLinetype), Vorn::eOk);
    EXPECT_EQ(values(L"Doors").color, 5u);
    EXPECT_EQ(values(L"Doors").linetype, nameId(L"Dotted"));
}

TEST_F(StateEditing, CopiesStylesByTheirNamesToo) {
    KelDbDatabase other(false, true);
    engine::replaceDrawing(other, makeDrawing({{.name = L"Doors", .linetype = L"Zigzag", .plotStyle = L"Bold"}}));
    other.getLayerStateManager()->saveLayerState(L"Detail", MaskAllProperties);
    ASSERT_EQ(states().importLayerStateFromDb(L"Detail", &other), Vorn::eOk);
    const zdr::LayerState& detail = drawing().states[1];
    EXPECT_THAT(detail.columns.linetypes.values(), ElementsAre(nameId(L"Continuous"), nameId(L"Zigzag")));
    EXPECT_THAT(detail.columns.plotStyles.values(), ElementsAre(nameId(L"Normal"), nameId(L"Bold")));
}

TEST_F(StateEditing, CopyingRefusesClashesAndMissingStates) {
    KelDbDatabase other(false, true);
    engine::replaceDrawing(other, makeDrawing());
    other.getLayerStateManager()->saveLayerState(L"PLAN", 33);
    EXPECT_EQ(states().importLayerStateFromDb(L"Plan", &other), Vorn::eDuplicateRecordName);
    EXPECT_EQ(states().importLayerStateFromDb(L"Detail", &other), Vorn::eKeyNotFound);
    EXPECT_EQ(states().importLayerStateFromDb(L"Plan", nullptr), Vorn::eNoDatabase);
    EXPECT_EQ(states().importLayerStateFromDb(nullptr, &other), Vorn::eKeyNotFound);
    EXPECT_EQ(plan().mask, MaskAllProperties);
}

TEST_F(StateEditing, AStateOutlivesTheDrawingThatItWasCopiedFrom) {
    {
        KelDbDatabase other(false, true);
        engine::replaceDrawing(other, makeDrawing({{.name = L"Walls", .color = 5}}));
        other.getLayerStateManager()->saveLayerState(L"Detail", MaskColor);
        ASSERT_EQ(states().importLayerStateFromDb(L"Detail", &other), Vorn::eOk);
    }
    restore(L"Detail");
    EXPECT_EQ(values(L"Walls").color, 5u);
}

TEST_F(StateEditing, TheDictionaryIsMadeOnRequest) {
    states().deleteLayerState(L"Plan");
    EXPECT_TRUE(states().layerStatesDictionaryId(false).isNull());
    EXPECT_FALSE(dictionaryId().isNull());
    EXPECT_EQ(states().layerStatesDictionaryId(false), dictionaryId());
}

TEST_F(StateEditing, TheDictionaryIsThereUnaskedWhereTheDrawingHasAStateOfItsOwn) {
    const KelDbObjectId there = states().layerStatesDictionaryId(false);
    EXPECT_FALSE(there.isNull());
    EXPECT_EQ(there, dictionaryId());
}

TEST_F(StateEditing, TheDictionaryLeadsFromNamesToRecords) {
    KelDbObjectPointer<KelDbDictionary> dictionary(dictionaryId(), KelDb::kForRead);
    KelDbObjectId id;
    EXPECT_EQ(dictionary->getAt(L"PLAN", id), Vorn::eOk);
    EXPECT_EQ(id.handle().value(), plan().handle);
    EXPECT_EQ(dictionary->getAt(L"Section", id), Vorn::eKeyNotFound);
    KelDbObjectPointer<KelDbXrecord> record(id, KelDb::kForRead);
    EXPECT_EQ(record.openStatus(), Vorn::eOk);
}

TEST_F(StateEditing, APutBackCopyOfARecordBringsTheStateBack) {
    KelDbObjectId id = engine::objectId(m_database, plan().handle);
    KelDbObject* copy = nullptr;
    {
        KelDbObjectPointer<KelDbXrecord> record(id, KelDb::kForRead);
        copy = record->clone();
        ASSERT_TRUE(kelrtCast<KelDbXrecord>(copy));
        EXPECT_EQ(copy->close(), Vorn::eNotApplicable); // it stays a copy in memory
    }
    setColor(L"Walls", 5);
    states().deleteLayerState(L"Plan");
    {
        KelDbObjectPointer<KelDbDictionary> dictionary(dictionaryId(), KelDb::kForWrite);
        ASSERT_EQ(dictionary->setAt(L"Plan", copy, id), Vorn::eOk);
        EXPECT_EQ(copy->objectId(), id);
        EXPECT_EQ(copy->close(), Vorn::eOk);
    }
    EXPECT_EQ(id.handle().value(), plan().handle);
    EXPECT_EQ(restore(L"Plan"), Vorn::eOk);
    EXPECT_EQ(values(L"Walls").color, 7u);
}

TEST_F(StateEditing, ACopyOfACopyBringsTheStateBackToo) {
    KelDbObjectPointer<KelDbXrecord> record(engine::objectId(m_database, plan().handle), KelDb::kForRead);
    KelDbObjectPointer<KelDbObject> copy;
    copy.acquire(record->clone());
    KelDbObject* second = copy->clone();
    record.open({}, KelDb::kForRead);
    setColor(L"Walls", 5);
    states().deleteLayerState(L"Plan");
    KelDbObjectPointer<KelDbDictionary> dictionary(dictionaryId(), KelDb::kForWrite);
    KelDbObjectId id;
    ASSERT_EQ(dictionary->setAt(L"Plan", second, id), Vorn::eOk);
    EXPECT_EQ(second->close(), Vorn::eOk);
    EXPECT_EQ(restore(L"Plan"), Vorn::eOk);
    EXPECT_EQ(values(L"Walls").color, 7u);
}

TEST_F(StateEditing, LayersThatAreHeldAlreadyOrNotHeldChangeNothing) {
    const std::uint64_t before = engine::contentNumber(m_database);
    EXPECT_EQ(add({layerId(L"Walls"), layerId(L"Doors")}), Vorn::eOk);
    EXPECT_EQ(remove({L"Roof"}), Vorn::eOk);
    EXPECT_EQ(engine::contentNumber(m_database), before);
}

TEST_F(StateEditing, CopiedStatesOfOneSetOfLayersShareIt) {
    KelDbDatabase other(false, true);
    engine::replaceDrawing(other, makeDrawing({{L"Pipes"}, {L"Ducts"}}));
    for (const wchar_t* name : {L"Summer", L"Winter"}) {
        other.getLayerStateManager()->saveLayerState(name, MaskAllProperties);
        ASSERT_EQ(states().importLayerStateFromDb(name, &other), Vorn::eOk);
    }
    ASSERT_EQ(drawing().states.size(), 3u);
    EXPECT_EQ(drawing().states[1].layers, drawing().states[2].layers);
    EXPECT_NE(drawing().states[1].layers, plan().layers);
    EXPECT_THAT(layersOf(L"Winter"), ElementsAre(L"Base", L"Pipes", L"Ducts"));
}

TEST_F(StateEditing, APutBackCopyTakesThePlaceOfTheStateOfItsName) {
    states().saveLayerState(L"Section", 2);
    const KelDbObjectId old = engine::objectId(m_database, plan().handle);
    KelDbObjectPointer<KelDbXrecord> record(old, KelDb::kForRead);
    auto* copy = static_cast<KelDbXrecord*>(record->clone());
    record.open({}, KelDb::kForRead);
    states().setLayerStateMask(L"Plan", 1);
    KelDbObjectPointer<KelDbDictionary> dictionary(dictionaryId(), KelDb::kForWrite);
    KelDbObjectId id;
    ASSERT_EQ(dictionary->setAt(L"PLAN", copy, id), Vorn::eOk);
    copy->close();
    EXPECT_THAT(stateNames(), ElementsAre(L"PLAN", L"Section"));
    EXPECT_EQ(plan().mask, MaskAllProperties);
    EXPECT_TRUE(old.isErased());
    EXPECT_NE(id, old);
}

TEST_F(StateEditing, TheDictionaryRefusesWhatIsNoCopyOfItsOwnRecords) {
    KelDbObjectId id;
    KelDbXrecord empty;
    KelDbLayerTableRecord layerRecord;
    {
        KelDbObjectPointer<KelDbDictionary> readOnly(dictionaryId(), KelDb::kForRead);
        EXPECT_EQ(readOnly->setAt(L"New", &empty, id), Vorn::eNotOpenForWrite);
    }
    KelDbObjectPointer<KelDbDictionary> dictionary(dictionaryId(), KelDb::kForWrite);
    EXPECT_EQ(dictionary->setAt(L"New", &empty, id), Vorn::eInvalidInput);
    EXPECT_EQ(dictionary->setAt(L"New", &layerRecord, id), Vorn::eInvalidInput);
    EXPECT_EQ(dictionary->setAt(L"New", nullptr, id), Vorn::eInvalidInput);
    KelDbObjectPointer<KelDbXrecord> record(engine::objectId(m_database, plan().handle), KelDb::kForRead);
    const std::unique_ptr<KelDbObject> copy(record->clone());
    EXPECT_EQ(dictionary->setAt(L"a!b", copy.get(), id), Vorn::eInvalidInput);
    EXPECT_EQ(dictionary->setAt(nullptr, copy.get(), id), Vorn::eInvalidInput);
    EXPECT_TRUE(id.isNull());
}

TEST_F(StateEditing, ARecordOfAnotherDrawingIsRefused) {
    KelDbDatabase other(false, true);
    engine::replaceDrawing(other, makeDrawing());
    other.getLayerStateManager()->saveLayerState(L"Detail", 1);
    KelDbObjectPointer<KelDbXrecord> record(engine::objectId(other, engine::drawingOf(other).states[0].handle),
                                            KelDb::kForRead);
    const std::unique_ptr<KelDbObject> copy(record->clone());
    KelDbObjectPointer<KelDbDictionary> dictionary(dictionaryId(), KelDb::kForWrite);
    KelDbObjectId id;
    EXPECT_EQ(dictionary->setAt(L"Detail", copy.get(), id), Vorn::eInvalidInput);
}

TEST_F(StateEditing, ThePlotStylesStandInADictionaryWithADefault) {
    KelDbDictionaryWithDefault* dictionary = nullptr;
    ASSERT_EQ(m_database.getPlotStyleNameDictionary(dictionary, KelDb::kForRead), Vorn::eOk);
    KelDbObjectId id;
    EXPECT_EQ(dictionary->getAt(L"fine", id), Vorn::eOk);
    EXPECT_EQ(id.handle().value(), drawing().plotStyles[1].handle);
    EXPECT_EQ(dictionary->getAt(L"Bold", id), Vorn::eKeyNotFound);
    EXPECT_EQ(dictionary->getAt(nullptr, id), Vorn::eKeyNotFound);
    EXPECT_EQ(dictionary->defaultId().handle().value(), drawing().plotStyles[0].handle);
    dictionary->close();
}

TEST_F(StateEditing, HoldsARenamedLayerOnceAlsoWhenItTakesTheNameOfAGoneOne) {
    setColor(L"Walls", 3);
    states().saveLayerState(L"Plan", MaskAllProperties);
    engine::removeLayer(m_database, layer(L"Doors"));
    engine::beginUndoGroup(m_database);
    engine::renameLayer(m_database, layer(L"Walls"), L"Doors");
    engine::endUndoGroup(m_database);
    EXPECT_THAT(layersOf(L"Plan"), ElementsAre(L"Base", L"Doors", L"Furniture"));
    EXPECT_EQ(held(L"Doors").color, 3u);
    engine::undo(m_database);
    EXPECT_THAT(layersOf(L"Plan"), ElementsAre(L"Base", L"Walls", L"Doors", L"Furniture"));
}

TEST_F(StateEditing, LosesACurrentLayerThatIsGoneWhenItsNameIsTaken) {
    engine::setCurrentLayer(m_database, layer(L"Doors"));
    states().saveLayerState(L"Plan", MaskAllProperties);
    engine::setCurrentLayer(m_database, layer(L"Base"));
    engine::removeLayer(m_database, layer(L"Doors"));
    engine::renameLayer(m_database, layer(L"Walls"), L"Doors");
    EXPECT_EQ(plan().currentLayer, zdr::kNoName);
}
