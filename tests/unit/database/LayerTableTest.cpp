// The layer table and the linetype table: walking, finding, adding, and the commands on layers.

#include "EngineTest.h"
#include "KelDbPointers.h"

#include <memory>

using testing::ElementsAre;

class LayerTable : public EngineTest {
  protected:
    std::vector<std::wstring> walk() {
        std::vector<std::wstring> names;
        KelDbSymbolTablePointer<KelDbLayerTable> table(&m_database, KelDb::kForRead);
        KelDbLayerTableIterator* raw = nullptr;
        EXPECT_EQ(table->newIterator(raw, true, true), Vorn::eOk);
        const std::unique_ptr<KelDbLayerTableIterator> iterator(raw);
        for (; !iterator->done(); iterator->step(true, true)) {
            KelDbLayerTableRecord* record = nullptr;
            EXPECT_EQ(iterator->getRecord(record, KelDb::kForRead, false), Vorn::eOk);
            const wchar_t* name = nullptr;
            EXPECT_EQ(record->getName(name), Vorn::eOk);
            names.emplace_back(name);
            record->close();
        }
        return names;
    }
};

TEST_F(LayerTable, IsWalkedInTableOrder) {
    EXPECT_THAT(walk(), ElementsAre(L"Base", L"Walls", L"Doors", L"Furniture"));
}

TEST_F(LayerTable, TheUsualWalkIsTheseCalls) {
    use(makeDrawing({{L"Walls"}}));
    const std::string base = instruments::describe(layerId(L"Base")), walls = instruments::describe(layerId(L"Walls"));
    instruments::clearTrace();
    {
        KelDbSymbolTablePointer<KelDbLayerTable> table(&m_database, KelDb::kForRead);
        KelDbLayerTableIterator* iterator = nullptr;
        ASSERT_EQ(table->newIterator(iterator, true, true), Vorn::eOk);
        for (KelDbObjectId id; !iterator->done(); iterator->step(true, true))
            EXPECT_EQ(iterator->getRecordId(id), Vorn::eOk);
        delete iterator;
    }
    EXPECT_THAT(instruments::trace(),
                ElementsAre("getLayerTable(0) = 0", "layerTable.newIterator(true, true) = 0", "iterator.done() = false",
                            "iterator.getRecordId() = 0, id=" + base, "iterator.step(true, true)",
                            "iterator.done() = false", "iterator.getRecordId() = 0, id=" + walls,
                            "iterator.step(true, true)", "iterator.done() = true", "iterator.delete()",
                            "close(#layerTable) = 0"));
}

TEST_F(LayerTable, IsWalkedBackwardsFromTheEnd) {
    KelDbSymbolTablePointer<KelDbLayerTable> table(&m_database, KelDb::kForRead);
    KelDbLayerTableIterator* raw = nullptr;
    ASSERT_EQ(table->newIterator(raw, false, true), Vorn::eOk);
    const std::unique_ptr<KelDbLayerTableIterator> iterator(raw);
    KelDbObjectId id;
    EXPECT_EQ(iterator->getRecordId(id), Vorn::eOk);
    EXPECT_EQ(id, layerId(L"Furniture"));
    for (int i = 0; i < 3; ++i)
        iterator->step(false, true);
    EXPECT_EQ(iterator->getRecordId(id), Vorn::eOk);
    EXPECT_EQ(id, layerId(L"Base"));
    iterator->step(false, true);
    EXPECT_TRUE(iterator->done());
    EXPECT_EQ(iterator->getRecordId(id), Vorn::eNotApplicable);
    KelDbLayerTableRecord* record = nullptr;
    EXPECT_EQ(iterator->getRecord(record, KelDb::kForRead, false), Vorn::eNotApplicable);
}

TEST_F(LayerTable, AnIteratorStaysInTheLedgerUntilItIsDeleted) {
    KelDbLayerTableIterator* iterator = nullptr;
    {
        KelDbSymbolTablePointer<KelDbLayerTable> table(&m_database, KelDb::kForRead);
        table->newIterator(iterator, true, true);
    }
    EXPECT_THAT(instruments::ledger(), ElementsAre("iterator of the layer table"));
    delete iterator;
}

TEST_F(LayerTable, FindsLayersWithoutRegardToCase) {
    KelDbSymbolTablePointer<KelDbLayerTable> table(&m_database, KelDb::kForRead);
    KelDbObjectId id;
    EXPECT_EQ(table->getAt(L"WALLS", id), Vorn::eOk);
    EXPECT_EQ(id, layerId(L"Walls"));
    EXPECT_EQ(table->getAt(L"Roof", id), Vorn::eKeyNotFound);
    EXPECT_EQ(table->getAt(nullptr, id), Vorn::eKeyNotFound);
    EXPECT_EQ(id, layerId(L"Walls"));
    EXPECT_TRUE(table->has(L"doors"));
    EXPECT_FALSE(table->has(L"Roof"));
}

TEST_F(LayerTable, OpensALayerByName) {
    KelDbSymbolTablePointer<KelDbLayerTable> table(&m_database, KelDb::kForRead);
    KelDbLayerTableRecord* record = nullptr;
    ASSERT_EQ(table->getAt(L"walls", record, KelDb::kForWrite, false), Vorn::eOk);
    EXPECT_EQ(record->setLineWeight(35), Vorn::eOk);
    KelDbLayerTableRecord* second = nullptr;
    EXPECT_EQ(table->getAt(L"Walls", second, KelDb::kForRead, false), Vorn::eWasOpenForWrite);
    EXPECT_EQ(table->getAt(L"Roof", second, KelDb::kForRead, false), Vorn::eKeyNotFound);
    record->close();
    EXPECT_EQ(values(L"Walls").lineWeight, 35);
}

TEST_F(LayerTable, LinetypesAreFoundByName) {
    KelDbSymbolTablePointer<KelDbLinetypeTable> table(&m_database, KelDb::kForRead);
    KelDbObjectId id;
    EXPECT_EQ(table->getAt(L"dashed", id, false), Vorn::eOk);
    KelDbObjectPointer<KelDbLinetypeTableRecord> linetype(id, KelDb::kForRead);
    const wchar_t* name = nullptr;
    EXPECT_EQ(linetype->getName(name), Vorn::eOk);
    EXPECT_STREQ(name, L"Dashed");
    EXPECT_EQ(table->getAt(L"Wavy", id, false), Vorn::eKeyNotFound);
    EXPECT_EQ(table->getAt(L"Walls", id, false), Vorn::eKeyNotFound);
}

TEST_F(LayerTable, TakesOverALayerFromMemory) {
    {
        KelDbSymbolTablePointer<KelDbLayerTable> table(&m_database, KelDb::kForWrite);
        auto* record = new KelDbLayerTableRecord;
        record->setName(L"Roof");
        KelCmColor red;
        red.setColorIndex(1);
        record->setColor(red);
        KelDbObjectId id;
        ASSERT_EQ(table->add(id, record), Vorn::eOk);
        EXPECT_EQ(record->objectId(), id);
        EXPECT_EQ(record->setLineWeight(50), Vorn::eOk);
        record->close();
    }
    EXPECT_THAT(walk(), ElementsAre(L"Base", L"Walls", L"Doors", L"Furniture", L"Roof"));
    EXPECT_EQ(values(L"Roof").color, 1u);
    EXPECT_EQ(values(L"Roof").lineWeight, 50);
}

TEST_F(LayerTable, ALayerWhoseLinetypeIsNoneIsTakenOverWithoutOne) {
    auto* record = new KelDbLayerTableRecord;
    record->setName(L"Roof");
    record->setLinetypeObjectId(layerId(L"Walls"));
    KelDbSymbolTablePointer<KelDbLayerTable> table(&m_database, KelDb::kForWrite);
    KelDbObjectId id;
    ASSERT_EQ(table->add(id, record), Vorn::eOk);
    EXPECT_EQ(values(L"Roof").linetype, zdr::kNoName);
    EXPECT_TRUE(record->linetypeObjectId().isNull());
    record->close();
}

TEST_F(LayerTable, RefusesALayerThatItCannotTake) {
    KelDbLayerTableRecord record;
    record.setName(L"Roof");
    KelDbObjectId id;
    {
        KelDbSymbolTablePointer<KelDbLayerTable> readOnly(&m_database, KelDb::kForRead);
        EXPECT_EQ(readOnly->add(id, &record), Vorn::eNotOpenForWrite);
    }
    KelDbSymbolTablePointer<KelDbLayerTable> table(&m_database, KelDb::kForWrite);
    EXPECT_EQ(table->add(id, nullptr), Vorn::eInvalidInput);
    record.setName(L"WALLS");
    EXPECT_EQ(table->add(id, &record), Vorn::eDuplicateRecordName);
    record.setName(L"a!b");
    EXPECT_EQ(table->add(id, &record), Vorn::eInvalidInput);
    EXPECT_TRUE(id.isNull());
    EXPECT_TRUE(record.objectId().isNull());
}

TEST_F(LayerTable, HandlesLeadBackToObjects) {
    KelDbObjectId id;
    const KelDbHandle handle = layerId(L"Doors").handle();
    EXPECT_EQ(m_database.getKelDbObjectId(id, false, handle, 0), Vorn::eOk);
    EXPECT_EQ(id, layerId(L"Doors"));
    EXPECT_EQ(id.database(), &m_database);
    EXPECT_EQ(m_database.getKelDbObjectId(id, false, KelDbHandle(0xABCDEF), 0), Vorn::eKeyNotFound);
}

TEST_F(LayerTable, TheCurrentLayerCanBeReadAndSet) {
    EXPECT_EQ(m_database.clayer(), layerId(L"Base"));
    EXPECT_EQ(m_database.setClayer(layerId(L"Doors")), Vorn::eOk);
    EXPECT_EQ(m_database.clayer(), layerId(L"Doors"));
}

TEST_F(LayerTable, TheCurrentLayerIsNotSetWhereItCannotBe) {
    EXPECT_EQ(m_database.setClayer({}), Vorn::eInvalidInput);
    EXPECT_EQ(m_database.setClayer(m_database.layerTableId()), Vorn::eInvalidInput);
    setFlag(L"Doors", zdr::kLayerFrozen, true);
    EXPECT_EQ(m_database.setClayer(layerId(L"Doors")), Vorn::eCannotFreezeCurrentLayer);
    KelDbObjectPointer<KelDbLayerTableRecord> writer(layerId(L"Walls"), KelDb::kForWrite);
    EXPECT_EQ(m_database.setClayer(layerId(L"Walls")), Vorn::eWasOpenForWrite);
    EXPECT_EQ(writer->downgradeOpen(), Vorn::eOk);
    EXPECT_EQ(m_database.setClayer(layerId(L"Walls")), Vorn::eOk);
    EXPECT_EQ(writer->upgradeOpen(), Vorn::eOk);
    const KelDbObjectId furniture = layerId(L"Furniture");
    ASSERT_EQ(engine::removeLayer(m_database, layer(L"Furniture")), Vorn::eOk);
    EXPECT_EQ(m_database.setClayer(furniture), Vorn::eWasErased);
    EXPECT_EQ(m_database.clayer(), layerId(L"Walls"));
}

TEST_F(LayerTable, RenamingALayerIsFollowedByTheStates) {
    engine::setCurrentLayer(m_database, layer(L"Walls"));
    states().saveLayerState(L"Plan", MaskAllProperties);
    states().saveLayerState(L"Section", MaskAllProperties);
    EXPECT_EQ(engine::renameLayer(m_database, layer(L"Walls"), L"Masonry"), Vorn::eOk);
    EXPECT_THAT(walk(), ElementsAre(L"Base", L"Masonry", L"Doors", L"Furniture"));
    EXPECT_THAT(layersOf(L"Plan"), ElementsAre(L"Base", L"Masonry", L"Doors", L"Furniture"));
    EXPECT_EQ(drawing().states[0].layers, drawing().layerSet);
    EXPECT_EQ(drawing().states[0].currentLayer, nameId(L"Masonry"));
    EXPECT_TRUE(matches(L"Section"));
}

TEST_F(LayerTable, RenamingALayerLeavesStatesAloneThatDoNotHoldIt) {
    states().saveLayerState(L"Plan", MaskAllProperties);
    ASSERT_EQ(engine::addLayer(m_database, L"Roof"), Vorn::eOk);
    const zdr::LayerState before = drawing().states[0];
    ASSERT_EQ(engine::renameLayer(m_database, layer(L"Roof"), L"Eaves"), Vorn::eOk);
    EXPECT_EQ(drawing().states[0].layers, before.layers);
    EXPECT_EQ(drawing().states[0].columns.colors.values().data(), before.columns.colors.values().data());
}

TEST_F(LayerTable, RenamingMayChangeTheSpellingAlone) {
    EXPECT_EQ(engine::renameLayer(m_database, layer(L"Walls"), L"WALLS"), Vorn::eOk);
    EXPECT_THAT(walk(), ElementsAre(L"Base", L"WALLS", L"Doors", L"Furniture"));
}

TEST_F(LayerTable, RenamingRefusesTheBaseLayerUsedNamesAndInvalidOnes) {
    EXPECT_EQ(engine::renameLayer(m_database, layer(L"Base"), L"Ground"), Vorn::eReservedName);
    EXPECT_EQ(engine::renameLayer(m_database, layer(L"Walls"), L"DOORS"), Vorn::eDuplicateRecordName);
    EXPECT_EQ(engine::renameLayer(m_database, layer(L"Walls"), L"a/b"), Vorn::eInvalidInput);
    EXPECT_EQ(engine::renameLayer(m_database, layer(L"Walls"), std::wstring(256, L'x')), Vorn::eNameTooLong);
}

TEST_F(LayerTable, RemovingRefusesWhatIsNeeded) {
    EXPECT_EQ(engine::removeLayer(m_database, layer(L"Base")), Vorn::eReservedName);
    engine::setCurrentLayer(m_database, layer(L"Walls"));
    EXPECT_EQ(engine::removeLayer(m_database, layer(L"Walls")), Vorn::eRecordInUse);
    zdr::Drawing drawn = makeDrawing({{L"Walls"}});
    drawn.entities.push_back({.layer = 1, .color = {}, .geometry = zdr::Line{{0, 0}, {1, 1}}});
    use(std::move(drawn));
    EXPECT_EQ(engine::removeLayer(m_database, layer(L"Walls")), Vorn::eRecordInUse);
}

TEST_F(LayerTable, RemovingMovesEverythingThatCountsLayers) {
    zdr::Drawing drawn = makeDrawing({{L"Walls"}, {.name = L"Doors", .color = 2}, {.name = L"Notes", .color = 3}});
    drawn.entities.push_back({.layer = 3, .color = {}, .geometry = zdr::Line{{0, 0}, {1, 1}}});
    drawn.layouts[0].entities.push_back({.layer = 3, .color = {}, .geometry = zdr::Line{{0, 0}, {1, 1}}});
    drawn.layouts[0].viewports[0].frozen = {false, false, true, true};
    drawn.layouts[0].viewports[0].overrides = {{.layer = 2, .mask = MaskColor, .color = 5},
                                               {.layer = 3, .mask = MaskColor, .color = 6}};
    use(std::move(drawn));
    engine::setCurrentLayer(m_database, layer(L"Notes"));
    const KelDbObjectId notes = layerId(L"Notes");
    ASSERT_EQ(engine::removeLayer(m_database, layer(L"Doors")), Vorn::eOk);
    EXPECT_EQ(drawing().entities[0].layer, 2u);
    EXPECT_EQ(drawing().layouts[0].entities[0].layer, 2u);
    EXPECT_EQ(drawing().currentLayer, 2u);
    EXPECT_EQ(layerId(L"Notes"), notes);
    EXPECT_EQ(values(L"Notes").color, 3u);
    EXPECT_THAT(viewport().frozen, ElementsAre(false, false, true));
    ASSERT_EQ(viewport().overrides.size(), 1u);
    EXPECT_EQ(viewport().overrides[0].layer, 2u);
    EXPECT_EQ(viewport().overrides[0].color, 6u);
}

TEST_F(LayerTable, AddingALayerRefusesNamesAsRenamingDoes) {
    EXPECT_EQ(engine::addLayer(m_database, L"walls"), Vorn::eDuplicateRecordName);
    EXPECT_EQ(engine::addLayer(m_database, L""), Vorn::eInvalidInput);
    EXPECT_EQ(engine::addLayer(m_database, L"Roof"), Vorn::eOk);
    EXPECT_EQ(values(L"Roof"), values(L"Walls"));
}

TEST_F(LayerTable, ASideDatabaseStaysInTheLedgerUntilItIsDeleted) {
    auto* side = new KelDbDatabase(false, true);
    EXPECT_THAT(instruments::ledger(), ElementsAre("side database"));
    EXPECT_TRUE(side->clayer().isNull());
    delete side;
}

TEST_F(LayerTable, ADatabaseThatCannotReadAFileStaysAsItWas) {
    EXPECT_EQ(m_database.readZdrFile(L"no such drawing.zdr", 64, false, nullptr), Vorn::eFileNotFound);
    EXPECT_EQ(m_database.readZdrFile(nullptr, 64, false, nullptr), Vorn::eFileNotFound);
    EXPECT_THAT(walk(), ElementsAre(L"Base", L"Walls", L"Doors", L"Furniture"));
    EXPECT_THAT(engine::lastFileProblem(m_database), testing::HasSubstr(L"no such drawing.zdr"));
}

TEST_F(LayerTable, ANewLayerIsSpelledAsItWasNamed) {
    ASSERT_EQ(engine::addLayer(m_database, L"DASHED"), Vorn::eOk); // there is a linetype Dashed
    EXPECT_EQ(drawing().names.text(drawing().layers.back().name), L"DASHED");
}
