// What becomes of the marks when the edit is accepted.

#include "StateCommit.h"

#include "DomainTest.h"
#include "LayerRecords.h"
#include "StateReading.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class StateCommit : public DomainTest {
  protected:
    StateCommit() {
        use(makeDrawing({{L"Walls"}, {L"Doors"}, {L"Pipes"}}));
        EXPECT_EQ(states().saveLayerState(L"Plan", MaskOn | MaskColor), Vorn::eOk);
        const KelArray<KelString> pipes = [] {
            KelArray<KelString> names(0, 8);
            names.append(L"Pipes");
            return names;
        }();
        EXPECT_EQ(states().removeLayerStateLayers(L"Plan", pipes), Vorn::eOk);
        readStateLayers(&m_database, L"Plan", m_layers);
        instruments::clearTrace();
    }
    ~StateCommit() override { deleteRecords(m_layers); }

    CLayerRcd& record(const wchar_t* name) {
        CLayerRcd* found = nullptr;
        forEachRecord(m_layers, [&](CLayerRcd& each) {
            if (each.m_name == name)
                found = &each;
        });
        return *found;
    }
    CLayerRcd& addPipes() {
        bool outOfMemory = false;
        std::unique_ptr<CLayerRcd> added = readAddedLayer(m_database, layerId(L"Pipes"), outOfMemory);
        EXPECT_FALSE(outOfMemory);
        m_layers.AddTail(added.get());
        return *added.release();
    }
    CObList m_layers;
    void commit() {
        instruments::clearTrace();
        commitRemovals(states(), L"Plan", m_layers);
        commitAdditions(states(), L"Plan", m_layers);
        commitChanges(m_database, L"Plan", m_layers);
    }
    /// The commit's calls on the state, without their answers.
    static std::vector<std::string> calls() {
        std::vector<std::string> found;
        for (const std::string& line : instruments::trace())
            if (line.find("LayerStateLayer") != std::string::npos)
                found.push_back(line.substr(0, line.rfind(" = ")));
        return found;
    }
};

TEST_F(StateCommit, OfNothingCallsNothing) {
    commit();
    EXPECT_THAT(calls(), IsEmpty());
    EXPECT_THAT(layersOf(L"Plan"), ElementsAre(L"Base", L"Walls", L"Doors"));
}

TEST_F(StateCommit, RemovesAllRemovedInOneCall) {
    record(L"Walls").markRemoved();
    record(L"Doors").markRemoved();
    commit();
    EXPECT_THAT(calls(), ElementsAre("removeLayerStateLayers(\"Plan\", [\"Walls\", \"Doors\"])"));
    EXPECT_THAT(layersOf(L"Plan"), ElementsAre(L"Base"));
}

TEST_F(StateCommit, AddsALayerByItsIdWithTheDrawingsValues) {
    setColor(L"Pipes", 6);
    addPipes();
    commit();
    EXPECT_THAT(calls(),
                ElementsAre("addLayerStateLayers(\"Plan\", [" + instruments::describe(layerId(L"Pipes")) + "])"));
    EXPECT_THAT(layersOf(L"Plan"), ElementsAre(L"Base", L"Walls", L"Doors", L"Pipes"));
    EXPECT_TRUE(matches(L"Plan"));
}

TEST_F(StateCommit, LeavesOutAnAdditionWithoutAnId) {
    addPipes().m_layerId = {};
    commit();
    EXPECT_THAT(calls(), IsEmpty());
}

TEST_F(StateCommit, WritesEachChangeByItself) {
    record(L"Walls").m_isOff = true;
    record(L"Walls").markModified();
    static_cast<void>(record(L"Doors").m_color.setColorIndex(5));
    record(L"Doors").markModified();
    commit();
    EXPECT_THAT(calls(), ElementsAre("imp.updateLayerStateLayer(\"Plan\", object, false)",
                                     "imp.updateLayerStateLayer(\"Plan\", object, false)"));
    restore(L"Plan");
    EXPECT_FALSE(hasFlag(L"Walls", zdr::kLayerOn));
    EXPECT_EQ(values(L"Doors").color, 5u);
    EXPECT_EQ(values(L"Walls").color, 7u);
}

TEST_F(StateCommit, CarriesEveryPropertyOfAChangedRow) {
    CLayerRcd& walls = record(L"Walls");
    walls.m_isFrozen = walls.m_isOff = walls.m_isLocked = walls.m_isNewVpFrozen = true;
    walls.m_isPlottable = false;
    static_cast<void>(walls.m_color.setColorIndex(3));
    walls.m_lineWeight = 70;
    const zdr::NameId dashed = nameId(L"Dashed");
    ASSERT_NE(dashed, zdr::NameId{});
    walls.markModified();
    commit();
    EXPECT_EQ(states().setLayerStateMask(L"Plan", MaskAllProperties), Vorn::eOk);
    restore(L"Plan");
    EXPECT_EQ(values(L"Walls").flags, zdr::kLayerFrozen | zdr::kLayerLocked | zdr::kLayerNewViewportFrozen);
    EXPECT_EQ(values(L"Walls").color, 3u);
    EXPECT_EQ(values(L"Walls").lineWeight, 70);
}

TEST_F(StateCommit, RemovesFirstThenAddsThenChanges) {
    record(L"Walls").markRemoved();
    record(L"Doors").markModified();
    addPipes().markModified();
    commit();
    EXPECT_THAT(calls(),
                ElementsAre("removeLayerStateLayers(\"Plan\", [\"Walls\"])",
                            "addLayerStateLayers(\"Plan\", [" + instruments::describe(layerId(L"Pipes")) + "])",
                            "imp.updateLayerStateLayer(\"Plan\", object, false)",
                            "imp.updateLayerStateLayer(\"Plan\", object, false)"));
}

TEST_F(StateCommit, SendsTheNameOfARowThatCameAndWentAgain) {
    addPipes().markRemoved();
    commit();
    EXPECT_THAT(calls(), ElementsAre("removeLayerStateLayers(\"Plan\", [\"Pipes\"])"));
    EXPECT_THAT(layersOf(L"Plan"), ElementsAre(L"Base", L"Walls", L"Doors"));
}

TEST_F(StateCommit, ForgetsTheChangesOfARowThatIsRemoved) {
    record(L"Walls").markModified();
    record(L"Walls").markRemoved();
    commit();
    EXPECT_THAT(calls(), ElementsAre("removeLayerStateLayers(\"Plan\", [\"Walls\"])"));
}

TEST_F(StateCommit, TellsTheHostOfTheNewCurrentLayerOnly) {
    ::makeCurrent(m_layers, record(L"Doors"));
    commit();
    EXPECT_THAT(calls(), ElementsAre("imp.updateLayerStateLayer(\"Plan\", object, true)"));
}

TEST_F(StateCommit, GoesOnAfterWhatTheHostRefuses) {
    record(L"Walls").markRemoved();
    addPipes();
    record(L"Doors").m_isOff = true;
    record(L"Doors").markModified();
    instruments::failCall("removeLayerStateLayers", 1);
    instruments::failCall("addLayerStateLayers", 1);
    instruments::failCall("imp.updateLayerStateLayer", 1);
    commit();
    EXPECT_EQ(calls().size(), 3u);
    EXPECT_THAT(layersOf(L"Plan"), ElementsAre(L"Base", L"Walls", L"Doors"));
}

} // namespace
