// Saving, naming, describing and deleting layer states.

#include "EngineTest.h"

using testing::ElementsAre;

using LayerStates = EngineTest;

TEST_F(LayerStates, ANewDrawingHasNone) {
    EXPECT_THAT(stateNames(), ElementsAre());
    EXPECT_FALSE(states().hasLayerState(L"Plan"));
}

TEST_F(LayerStates, AreListedInTheOrderInWhichTheyWereSaved) {
    ASSERT_EQ(states().saveLayerState(L"Plan", 5), Vorn::eOk);
    ASSERT_EQ(states().saveLayerState(L"Alpha", 1023), Vorn::eOk);
    EXPECT_THAT(stateNames(), ElementsAre(L"Plan", L"Alpha"));
}

TEST_F(LayerStates, ListingReplacesWhatTheArrayHeld) {
    states().saveLayerState(L"Plan", 5);
    KelArray<KelString> names;
    names.append(L"old");
    states().getLayerStateNames(names, true, true);
    EXPECT_THAT(toVector(names), ElementsAre(L"Plan"));
}

TEST_F(LayerStates, HiddenOnesAreListedOnRequestOnly) {
    zdr::Drawing withHidden = makeDrawing();
    zdr::LayerState hidden;
    hidden.name = L"*auto";
    withHidden.states.push_back(hidden);
    use(std::move(withHidden));
    KelArray<KelString> names;
    states().getLayerStateNames(names, false, true);
    EXPECT_TRUE(names.isEmpty());
    states().getLayerStateNames(names, true, true);
    EXPECT_THAT(toVector(names), ElementsAre(L"*auto"));
}

TEST_F(LayerStates, AreFoundWithoutRegardToCase) {
    states().saveLayerState(L"Plan", 5);
    EXPECT_TRUE(states().hasLayerState(L"PLAN"));
    LayerStateMask mask = 0;
    EXPECT_EQ(states().getLayerStateMask(L"plan", mask), Vorn::eOk);
    EXPECT_EQ(mask, 5u);
}

TEST_F(LayerStates, SavingRefusesNamesThatNoStateMayBear) {
    EXPECT_EQ(states().saveLayerState(L"", 5), Vorn::eInvalidInput);
    EXPECT_EQ(states().saveLayerState(nullptr, 5), Vorn::eInvalidInput);
    EXPECT_EQ(states().saveLayerState(L"a!b", 5), Vorn::eInvalidInput);
    EXPECT_EQ(states().saveLayerState(L"a*b", 5), Vorn::eInvalidInput);
    EXPECT_EQ(states().saveLayerState(std::wstring(256, L'x').c_str(), 5), Vorn::eNameTooLong);
    EXPECT_EQ(states().saveLayerState(std::wstring(255, L'x').c_str(), 5), Vorn::eOk);
}

TEST_F(LayerStates, SavingRecordsAllLayersAndTheCurrentOne) {
    engine::setCurrentLayer(m_database, layer(L"Doors"));
    states().saveLayerState(L"Plan", 5);
    EXPECT_THAT(layersOf(L"Plan"), ElementsAre(L"Base", L"Walls", L"Doors", L"Furniture"));
    EXPECT_EQ(drawing().states[0].currentLayer, nameId(L"Doors"));
    EXPECT_FALSE(states().layerStateHasViewportData(L"Plan"));
}

TEST_F(LayerStates, SavingSharesTheDrawingsColumns) {
    states().saveLayerState(L"Plan", 5);
    EXPECT_EQ(drawing().states[0].columns.colors.values().data(), drawing().columns.colors.values().data());
    EXPECT_EQ(drawing().states[0].layers, drawing().layerSet);
}

TEST_F(LayerStates, AChangeOfALayerLeavesTheStateAsItWasSaved) {
    states().saveLayerState(L"Plan", 1023);
    setColor(L"Walls", 3);
    EXPECT_EQ(drawing().states[0].columns.colors[1], 7u);
    EXPECT_EQ(values(L"Walls").color, 3u);
}

TEST_F(LayerStates, SavingUnderAUsedNameReplacesTheContentAndKeepsTheDescription) {
    states().saveLayerState(L"Plan", 5);
    states().setLayerStateDescription(L"Plan", L"ground floor");
    states().saveLayerState(L"Section", 1);
    setColor(L"Walls", 3);
    ASSERT_EQ(states().saveLayerState(L"PLAN", 32), Vorn::eOk);
    EXPECT_THAT(stateNames(), ElementsAre(L"Plan", L"Section"));
    EXPECT_EQ(drawing().states[0].mask, 32u);
    EXPECT_EQ(drawing().states[0].description, L"ground floor");
    EXPECT_EQ(drawing().states[0].columns.colors[1], 3u);
}

TEST_F(LayerStates, FurtherBitsOfAMaskPassThrough) {
    states().saveLayerState(L"Plan", 0x80000005);
    LayerStateMask mask = 0;
    states().getLayerStateMask(L"Plan", mask);
    EXPECT_EQ(mask, 0x80000005u);
    EXPECT_EQ(states().setLayerStateMask(L"Plan", 0x10002), Vorn::eOk);
    states().getLayerStateMask(L"Plan", mask);
    EXPECT_EQ(mask, 0x10002u);
}

TEST_F(LayerStates, DescriptionsAreHandedOutAsCopies) {
    states().saveLayerState(L"Plan", 5);
    EXPECT_EQ(states().setLayerStateDescription(L"Plan", L"ground floor"), Vorn::eOk);
    wchar_t* description = nullptr;
    ASSERT_EQ(states().getLayerStateDescription(L"plan", description), Vorn::eOk);
    EXPECT_STREQ(description, L"ground floor");
    EXPECT_THAT(instruments::ledger(), ElementsAre("description of a state \"ground floor\""));
    keldbFree(description);
}

TEST_F(LayerStates, ADescriptionForWhichThereIsNoMemoryIsAnsweredAsSuch) {
    states().saveLayerState(L"Plan", 5);
    wchar_t* description = nullptr;
    instruments::failAllocation(1);
    EXPECT_EQ(states().getLayerStateDescription(L"Plan", description), Vorn::eOutOfMemory);
    EXPECT_EQ(description, nullptr);
}

TEST_F(LayerStates, ANullDescriptionEmptiesIt) {
    states().saveLayerState(L"Plan", 5);
    states().setLayerStateDescription(L"Plan", L"x");
    EXPECT_EQ(states().setLayerStateDescription(L"Plan", nullptr), Vorn::eOk);
    EXPECT_EQ(drawing().states[0].description, L"");
}

TEST_F(LayerStates, DeletingTakesTheStateOut) {
    states().saveLayerState(L"Plan", 5);
    states().saveLayerState(L"Section", 5);
    states().saveLayerState(L"Detail", 7);
    EXPECT_EQ(states().deleteLayerState(L"SECTION"), Vorn::eOk);
    EXPECT_THAT(stateNames(), ElementsAre(L"Plan", L"Detail"));
    LayerStateMask mask = 0;
    EXPECT_EQ(states().getLayerStateMask(L"Detail", mask), Vorn::eOk);
    EXPECT_EQ(mask, 7u);
}

TEST_F(LayerStates, DeletingTheLastRestoredOneForgetsIt) {
    states().saveLayerState(L"Plan", 5);
    restore(L"Plan");
    states().deleteLayerState(L"plan");
    states().saveLayerState(L"Plan", 5);
    KelString name;
    KelDbObjectId id;
    EXPECT_EQ(states().getLastRestoredLayerState(name, id), Vorn::eKeyNotFound);
}

TEST_F(LayerStates, RenamingKeepsThePlaceAndFollowsInTheLastRestoredOne) {
    states().saveLayerState(L"Plan", 5);
    states().saveLayerState(L"Section", 5);
    restore(L"Plan");
    EXPECT_EQ(states().renameLayerState(L"plan", L"Ground"), Vorn::eOk);
    EXPECT_THAT(stateNames(), ElementsAre(L"Ground", L"Section"));
    EXPECT_FALSE(states().hasLayerState(L"Plan"));
    KelString name;
    KelDbObjectId id;
    EXPECT_EQ(states().getLastRestoredLayerState(name, id), Vorn::eOk);
    EXPECT_STREQ(name.kwszPtr(), L"Ground");
}

TEST_F(LayerStates, RenamingMayChangeCaseAlone) {
    states().saveLayerState(L"Plan", 5);
    EXPECT_EQ(states().renameLayerState(L"Plan", L"PLAN"), Vorn::eOk);
    EXPECT_THAT(stateNames(), ElementsAre(L"PLAN"));
    EXPECT_TRUE(states().hasLayerState(L"plan"));
}

TEST_F(LayerStates, RenamingRefusesANameInUseAndAnInvalidOne) {
    states().saveLayerState(L"Plan", 5);
    states().saveLayerState(L"Section", 5);
    EXPECT_EQ(states().renameLayerState(L"Plan", L"SECTION"), Vorn::eDuplicateRecordName);
    EXPECT_EQ(states().renameLayerState(L"Plan", L"a|b"), Vorn::eInvalidInput);
    EXPECT_EQ(states().renameLayerState(L"Plan", nullptr), Vorn::eInvalidInput);
    EXPECT_EQ(states().renameLayerState(L"Plan", std::wstring(256, L'x').c_str()), Vorn::eNameTooLong);
    EXPECT_THAT(stateNames(), ElementsAre(L"Plan", L"Section"));
}

TEST_F(LayerStates, ANameThatNoStateBearsIsAnsweredAsSuchEverywhere) {
    LayerStateMask mask = 77;
    wchar_t* description = nullptr;
    KelArray<KelString> names;
    EXPECT_EQ(restore(L"Plan"), Vorn::eKeyNotFound);
    EXPECT_EQ(states().deleteLayerState(L"Plan"), Vorn::eKeyNotFound);
    EXPECT_EQ(states().renameLayerState(L"Plan", L"x"), Vorn::eKeyNotFound);
    EXPECT_EQ(states().getLayerStateMask(L"Plan", mask), Vorn::eKeyNotFound);
    EXPECT_EQ(states().setLayerStateMask(L"Plan", 5), Vorn::eKeyNotFound);
    EXPECT_EQ(states().getLayerStateDescription(L"Plan", description), Vorn::eKeyNotFound);
    EXPECT_EQ(states().setLayerStateDescription(L"Plan", L"x"), Vorn::eKeyNotFound);
    EXPECT_EQ(states().getLayerStateLayers(names, L"Plan", false), Vorn::eKeyNotFound);
    EXPECT_EQ(states().addLayerStateLayers(L"Plan", KelArray<KelDbObjectId>()), Vorn::eKeyNotFound);
    EXPECT_EQ(states().removeLayerStateLayers(L"Plan", KelArray<KelString>()), Vorn::eKeyNotFound);
    EXPECT_EQ(mask, 77u);
    EXPECT_EQ(description, nullptr);
    EXPECT_FALSE(states().compareLayerStateToDb(L"Plan", {}));
    EXPECT_FALSE(states().isDependentLayerState(L"Plan"));
    EXPECT_FALSE(states().layerStateHasViewportData(L"Plan"));
    EXPECT_EQ(states().deleteLayerState(nullptr), Vorn::eKeyNotFound);
}

TEST_F(LayerStates, TheLastRestoredOneComesWithItsRecord) {
    states().saveLayerState(L"Plan", 5);
    KelString name;
    KelDbObjectId id;
    EXPECT_EQ(states().getLastRestoredLayerState(name, id), Vorn::eKeyNotFound);
    restore(L"Plan");
    ASSERT_EQ(states().getLastRestoredLayerState(name, id), Vorn::eOk);
    EXPECT_STREQ(name.kwszPtr(), L"Plan");
    EXPECT_EQ(id.handle().value(), drawing().states[0].handle);
}

TEST_F(LayerStates, KnowWhichLayersTheyDoNotHold) {
    states().saveLayerState(L"Plan", 5);
    engine::addLayer(m_database, L"Notes");
    EXPECT_THAT(layersOf(L"Plan", true), ElementsAre(L"Notes"));
}

TEST_F(LayerStates, AThousandStatesShareOneSetOfColumns) {
    for (int i = 0; i < 1000; ++i)
        ASSERT_EQ(states().saveLayerState((L"S" + std::to_wstring(i)).c_str(), 5), Vorn::eOk);
    EXPECT_EQ(stateNames().size(), 1000u);
    EXPECT_EQ(drawing().states[999].columns.flags.values().data(), drawing().columns.flags.values().data());
    EXPECT_TRUE(states().hasLayerState(L"s777"));
}
