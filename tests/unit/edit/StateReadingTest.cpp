// Reading a state by way of the drawing's own layers, which are as before afterwards.

#include "StateReading.h"

#include "DomainTest.h"
#include "LayerRecords.h"

#include <algorithm>

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

class StateReading : public DomainTest {
  protected:
    StateReading() {
        use(makeDrawing({{L"Walls", zdr::kLayerOn | zdr::kLayerPlot, 3, L"Dashed", 50, L"Fine"}, {L"Doors"}}));
        EXPECT_EQ(states().saveLayerState(L"Plan", MaskAllProperties), Vorn::eOk);
        setColor(L"Walls", 5);
        setFlag(L"Doors", zdr::kLayerFrozen, true);
    }
    ~StateReading() override { deleteRecords(m_layers); }

    bool read(const wchar_t* state = L"Plan") { return readStateLayers(&m_database, state, m_layers); }
    std::vector<std::wstring> names() {
        std::vector<std::wstring> found;
        forEachRecord(m_layers, [&](const CLayerRcd& record) { found.emplace_back(record.m_name.GetString()); });
        return found;
    }
    const CLayerRcd& record(const wchar_t* name) {
        const CLayerRcd* found = nullptr;
        forEachRecord(m_layers, [&](const CLayerRcd& each) {
            if (each.m_name == name)
                found = &each;
        });
        return *found;
    }
    void expectDrawingAsBefore() {
        EXPECT_EQ(values(L"Walls").color, 5u);
        EXPECT_TRUE(hasFlag(L"Doors", zdr::kLayerFrozen));
        EXPECT_THAT(stateNames(), ElementsAre(L"Plan"));
    }

    CObList m_layers;
};

TEST_F(StateReading, GivesTheValuesThatTheStateHolds) {
    EXPECT_TRUE(read());
    EXPECT_THAT(names(), ElementsAre(L"Base", L"Walls", L"Doors"));
    const CLayerRcd& walls = record(L"Walls");
    EXPECT_EQ(walls.m_color.colorIndex(), 3);
    EXPECT_EQ(walls.m_linetypeName, L"Dashed");
    EXPECT_EQ(walls.m_lineWeight, 50);
    EXPECT_EQ(walls.m_plotStyleName, L"Fine");
    EXPECT_TRUE(walls.m_isPlottable);
    EXPECT_FALSE(walls.m_isOff || walls.m_isFrozen || walls.m_isLocked || walls.m_isNewVpFrozen);
    EXPECT_FALSE(record(L"Doors").m_isFrozen);
}

TEST_F(StateReading, LeavesTheDrawingAsItWas) {
    read();
    expectDrawingAsBefore();
}

TEST_F(StateReading, MarksTheCurrentLayerAndNoOther) {
    read();
    EXPECT_TRUE(record(L"Base").m_isCurrent);
    EXPECT_FALSE(record(L"Walls").m_isCurrent);
}

TEST_F(StateReading, MarksNothingAsDoneAndKnowsNoIdOfTheLayers) {
    read();
    forEachRecord(m_layers, [](const CLayerRcd& each) {
        EXPECT_TRUE(each.m_layerId.isNull());
        EXPECT_FALSE(each.m_isAdded || each.m_isRemoved || each.m_isModified || each.m_isDependent);
    });
}

TEST_F(StateReading, LeavesPlotStylesOutWhereTheyFollowTheColour) {
    zdr::Drawing other = drawing();
    other.colorDependentPlotStyles = true;
    use(std::move(other));
    read();
    EXPECT_TRUE(record(L"Walls").m_plotStyleName.IsEmpty());
    EXPECT_TRUE(record(L"Walls").m_plotStyleId.isNull());
}

TEST_F(StateReading, MakesTheseCallsInThisOrder) {
    instruments::clearTrace();
    read();
    std::vector<std::string> operations;
    for (const std::string& line : instruments::trace())
        operations.push_back(line.substr(0, line.find('(')));
    const std::vector<std::string> ofALayer = {"getLayerTable",
                                               "layerTable.getAt",
                                               "close",
                                               "record.isDependent",
                                               "record.getName",
                                               "record.isFrozen",
                                               "record.isOff",
                                               "record.isLocked",
                                               "record.VPDFLT",
                                               "record.isPlottable",
                                               "record.color",
                                               "record.linetypeObjectId",
                                               "openObject",
                                               "record.getName",
                                               "close",
                                               "record.lineWeight",
                                               "plotStyleMode",
                                               "record.plotStyleNameId",
                                               "record.plotStyleName",
                                               "close"};
    std::vector<std::string> expected = {"keldbHostApplicationServices",
                                         "workingDatabase",
                                         "getLayerStateManager",
                                         "saveLayerState",
                                         "impDatabase",
                                         "getImpLayerStateManager",
                                         "imp.restoreLayerState",
                                         "getLayerStateManager",
                                         "getLayerStateLayers",
                                         "clayer"};
    for (int layer = 0; layer < 3; ++layer)
        expected.insert(expected.end(), ofALayer.begin(), ofALayer.end());
    for (const char* last : {"keldbHostApplicationServices", "workingDatabase", "impDatabase",
                             "getImpLayerStateManager", "imp.restoreLayerState", "keldbHostApplicationServices",
                             "workingDatabase", "getLayerStateManager", "deleteLayerState"})
        expected.emplace_back(last);
    EXPECT_EQ(operations, expected);
}

TEST_F(StateReading, PassesOverALayerThatTheDrawingLacks) {
    zdr::Drawing other = drawing();
    auto layers = std::make_shared<zdr::LayerSet>(*other.states[0].layers);
    layers->names.back() = other.names.intern(L"Gone");
    other.states[0].layers = layers;
    use(std::move(other));
    EXPECT_TRUE(read());
    EXPECT_THAT(names(), ElementsAre(L"Base", L"Walls"));
}

TEST_F(StateReading, TakesTheStatesNameOfALayerThatDoesntTellItsOwn) {
    instruments::failCall("record.getName", 3); // after the one of Base and of its linetype
    EXPECT_TRUE(read());
    EXPECT_THAT(names(), ElementsAre(L"Base", L"Walls", L"Doors"));
}

TEST_F(StateReading, KeepsTheLinetypesIdWhereItsNameCantBeHad) {
    instruments::failCall("openObject", 2); // the linetype of Walls
    EXPECT_TRUE(read());
    EXPECT_TRUE(record(L"Walls").m_linetypeName.IsEmpty());
    EXPECT_FALSE(record(L"Walls").m_linetypeId.isNull());
    EXPECT_EQ(record(L"Doors").m_linetypeName, L"Continuous");
}

TEST_F(StateReading, ShowsTheDrawingsLinetypeWhereTheStatesIsMissing) {
    zdr::Drawing other = drawing();
    other.states[0].columns.linetypes.set(2, other.names.intern(L"Nowhere"));
    use(std::move(other));
    EXPECT_TRUE(read());
    EXPECT_EQ(record(L"Doors").m_linetypeName, L"Continuous");
    expectDrawingAsBefore();
}

TEST_F(StateReading, MarksTheLayerThatTheRestoreMadeCurrent) {
    ASSERT_EQ(engine::setCurrentLayer(m_database, layer(L"Walls")), Vorn::eOk);
    EXPECT_TRUE(read()); // the state was saved with Base
    EXPECT_TRUE(record(L"Base").m_isCurrent);
    EXPECT_FALSE(record(L"Walls").m_isCurrent);
    EXPECT_EQ(drawing().currentLayer, layer(L"Walls"));
}

TEST_F(StateReading, MarksNoLayerOfAReferenceAsTheCurrentOne) {
    zdr::Drawing other = drawing();
    zdr::Reference site;
    site.name = L"site";
    site.drawing = std::make_shared<const zdr::Drawing>(makeDrawing({{L"Trees"}}));
    other.references.push_back(std::move(site));
    use(std::move(other));
    ASSERT_EQ(states().saveLayerState(L"All", MaskAllProperties), Vorn::eOk);
    zdr::Drawing changed = drawing();
    changed.states.back().currentLayer = changed.names.find(L"site!Trees");
    ASSERT_NE(changed.states.back().currentLayer, zdr::kNoName);
    use(std::move(changed));
    EXPECT_TRUE(read(L"All"));
    EXPECT_TRUE(record(L"site!Trees").m_isDependent);
    EXPECT_FALSE(record(L"site!Trees").m_isCurrent);
    EXPECT_TRUE(record(L"Base").m_isCurrent);
    EXPECT_FALSE(record(L"Base").m_isDependent);
}

TEST_F(StateReading, OfNoDrawingReadsNothing) {
    EXPECT_FALSE(readStateLayers(nullptr, L"Plan", m_layers));
    EXPECT_TRUE(m_layers.IsEmpty());
}

TEST_F(StateReading, WithoutTheInternalServiceReadsNothing) {
    instruments::failCall("getImpLayerStateManager", 1);
    EXPECT_FALSE(read());
    EXPECT_TRUE(instruments::faultStruck());
    EXPECT_TRUE(m_layers.IsEmpty());
    expectDrawingAsBefore();
}

TEST_F(StateReading, OfAStateWithoutLayersReadsNothing) {
    instruments::failCall("getLayerStateLayers", 1);
    EXPECT_FALSE(read());
    EXPECT_TRUE(m_layers.IsEmpty());
    expectDrawingAsBefore();
}

TEST_F(StateReading, OfAStateThatIsntThereReadsNothing) {
    EXPECT_FALSE(read(L"Nothing"));
    EXPECT_TRUE(m_layers.IsEmpty());
    expectDrawingAsBefore();
}

TEST_F(StateReading, TakesAPartialRestoreForOne) {
    for (const int status : {162, 173, 384}) {
        instruments::failCall("imp.restoreLayerState", 1, static_cast<Vorn::ErrorStatus>(status));
        EXPECT_TRUE(read()) << status;
    }
    for (const int status : {1, 3, 8, 160}) {
        instruments::failCall("imp.restoreLayerState", 1, static_cast<Vorn::ErrorStatus>(status));
        EXPECT_FALSE(read()) << status;
    }
}

} // namespace
