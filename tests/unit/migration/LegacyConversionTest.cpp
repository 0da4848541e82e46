// The whole conversion of the older tool's states.

#include "LegacyStates.h"

#include "LegacyTest.h"

#include <set>

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

class LegacyConversion : public LegacyTest {
  protected:
    bool convert() { return convertLegacyStates(m_count); }
    /// The colours of Base, Walls and Doors in a state.
    std::vector<std::uint32_t> colors(const wchar_t* state) {
        std::vector<std::uint32_t> found;
        EXPECT_EQ(restore(state), Vorn::eOk);
        for (const wchar_t* each : {L"Base", L"Walls", L"Doors"})
            found.push_back(values(each).color);
        return found;
    }
    /// A layer that can't be closed ends the program, which is tested elsewhere: here closing goes well.
    static Vorn::ErrorStatus statusOf(std::string_view operation) {
        return operation == "close" ? Vorn::eOk : Vorn::eInvalidInput;
    }
    int m_count = 0;
};

TEST_F(LegacyConversion, MakesAStateOfEachAndTakesThemOutOfTheLayers) {
    setData(L"Walls", nodesOf(L"PLAN", {.color = 3}) + nodesOf(L"SITE", {.color = 4}));
    setData(L"Doors", nodesOf(L"SITE", {.color = 5}));
    EXPECT_TRUE(convert());
    EXPECT_EQ(m_count, 2);
    EXPECT_THAT(stateNames(), ElementsAre(L"PLAN", L"SITE"));
    EXPECT_THAT(drawing().extendedData, IsEmpty());
    EXPECT_THAT(colors(L"SITE"), ElementsAre(7u, 4u, 5u));
}

TEST_F(LegacyConversion, LeavesTheLayersAndTheCurrentOneAsTheyWere) {
    setData(L"Walls", nodesOf(L"PLAN", {.flags = 4, .color = -3, .linetype = L"Dashed", .current = true}));
    EXPECT_TRUE(convert());
    EXPECT_EQ(values(L"Walls").color, 7u);
    EXPECT_TRUE(hasFlag(L"Walls", zdr::kLayerOn));
    EXPECT_FALSE(hasFlag(L"Walls", zdr::kLayerLocked));
    EXPECT_EQ(drawing().names.text(values(L"Walls").linetype), L"Continuous");
    EXPECT_EQ(m_database.clayer(), layerId(L"Base"));
}

TEST_F(LegacyConversion, CountsAllPropertiesOfItsStates) {
    setData(L"Walls", nodesOf(L"PLAN"));
    EXPECT_TRUE(convert());
    LayerStateMask mask = 0;
    EXPECT_EQ(states().getLayerStateMask(L"PLAN", mask), Vorn::eOk);
    EXPECT_EQ(mask, 1023u);
}

TEST_F(LegacyConversion, KeepsWhatTheStateBeforeLeftOnALayerWithoutABlock) {
    setData(L"Walls", nodesOf(L"PLAN", {.color = 3}));
    setData(L"Doors", nodesOf(L"SITE", {.color = 5}));
    EXPECT_TRUE(convert());
    EXPECT_THAT(colors(L"PLAN"), ElementsAre(7u, 3u, 7u));
    EXPECT_THAT(colors(L"SITE"), ElementsAre(7u, 3u, 5u));
}

TEST_F(LegacyConversion, HoldsLayersThatTookNoPart) {
    setData(L"Walls", nodesOf(L"PLAN"));
    EXPECT_TRUE(convert());
    EXPECT_THAT(layersOf(L"PLAN"), ElementsAre(L"Base", L"Walls", L"Doors"));
}

TEST_F(LegacyConversion, PrefixesItsNamesInADrawingThatHasStates) {
    EXPECT_EQ(states().saveLayerState(L"Own", MaskOn), Vorn::eOk);
    setData(L"Walls", nodesOf(L"A") + nodesOf(L"B"));
    EXPECT_TRUE(convert());
    EXPECT_THAT(stateNames(), ElementsAre(L"Own", L"QSET_A", L"QSET_B"));
}

TEST_F(LegacyConversion, NumbersNamesThatTheRulesRefuse) {
    setData(L"Walls", nodesOf(L"A|B") + nodesOf(L"C|D") + nodesOf(L"E|F"));
    EXPECT_TRUE(convert());
    EXPECT_THAT(stateNames(), ElementsAre(L"QSET_INVALIDNAME", L"QSET_INVALIDNAME (1)", L"QSET_INVALIDNAME (2)"));
}

TEST_F(LegacyConversion, CostsADrawingWithoutThemOneWalkOverItsLayers) {
    instruments::clearTrace();
    EXPECT_FALSE(convert());
    EXPECT_EQ(m_count, 0);
    EXPECT_THAT(instruments::trace(), Not(Contains(StartsWith("saveLayerState"))));
    EXPECT_THAT(instruments::trace(), Not(Contains(StartsWith("getLayerStateManager"))));
}

TEST_F(LegacyConversion, FindsNothingTheSecondTime) {
    setData(L"Walls", nodesOf(L"PLAN"));
    EXPECT_TRUE(convert());
    EXPECT_FALSE(convert());
    EXPECT_EQ(m_count, 1);
    EXPECT_THAT(stateNames(), ElementsAre(L"PLAN"));
}

TEST_F(LegacyConversion, ConvertsAStateThatIsNotClosedAnewEachTime) {
    setData(L"Walls", {text(L"{PLAN"), int16(0), int16(3)});
    EXPECT_TRUE(convert());
    EXPECT_TRUE(convert());
    EXPECT_EQ(m_count, 2);
    EXPECT_THAT(stateNames(), ElementsAre(L"PLAN", L"QSET_PLAN"));
}

TEST_F(LegacyConversion, DoesNothingWithoutADrawingOrItsStates) {
    setData(L"Walls", nodesOf(L"PLAN"));
    makeCurrent(nullptr);
    EXPECT_FALSE(convert());
    makeCurrent(&m_database);
    instruments::failCall("getLayerStateManager", 1);
    EXPECT_FALSE(convert());
    EXPECT_EQ(data(L"Walls"), lines(nodesOf(L"PLAN")));
    EXPECT_EQ(m_count, 0);
}

TEST_F(LegacyConversion, StopsAtAStateThatCannotBeSaved) {
    setData(L"Walls", nodesOf(L"PLAN", {.color = 3}) + nodesOf(L"SITE", {.color = 4}) + nodesOf(L"ROOF"));
    instruments::failCall("saveLayerState", 3); // the first is the guard's
    EXPECT_FALSE(convert());
    EXPECT_EQ(m_count, 1);
    EXPECT_THAT(stateNames(), ElementsAre(L"PLAN"));
    EXPECT_EQ(data(L"Walls"), lines(nodesOf(L"SITE", {.color = 4}) + nodesOf(L"ROOF")));
    EXPECT_EQ(values(L"Walls").color, 7u);
}

TEST_F(LegacyConversion, StopsAtAStateThatCannotBePutOnTheLayers) {
    setData(L"Walls", nodesOf(L"PLAN", {.color = 3}));
    instruments::failCall("iterator.getRecord", 1);
    EXPECT_FALSE(convert());
    EXPECT_EQ(m_count, 0);
    EXPECT_THAT(stateNames(), IsEmpty());
    EXPECT_EQ(data(L"Walls"), lines(nodesOf(L"PLAN", {.color = 3})));
}

TEST_F(LegacyConversion, GoesOnAfterAStateThatCannotBeTakenOut) {
    setData(L"Walls", nodesOf(L"PLAN", {.color = 3}) + nodesOf(L"SITE"));
    instruments::failCall("setExtendedData", 1);
    EXPECT_TRUE(convert());
    EXPECT_EQ(m_count, 2);
    EXPECT_EQ(data(L"Walls"), lines(nodesOf(L"PLAN", {.color = 3})));
    EXPECT_THAT(stateNames(), ElementsAre(L"PLAN", L"SITE"));
}

TEST_F(LegacyConversion, KeepsTheLastStateOnTheLayersWhenTheyCouldNotBeSavedBefore) {
    setData(L"Walls", nodesOf(L"PLAN", {.color = 3}));
    instruments::failCall("saveLayerState", 1);
    EXPECT_TRUE(convert());
    EXPECT_EQ(values(L"Walls").color, 3u);
    EXPECT_THAT(stateNames(), ElementsAre(L"PLAN"));
}

// Whatever fails, a state of the old store is afterwards there, in the drawing, or in both.
TEST_F(LegacyConversion, LosesNoStateWhicheverCallFails) {
    const LegacyNodes plan = nodesOf(L"PLAN", {.color = 3, .current = true});
    const LegacyNodes site = nodesOf(L"SITE", {.color = 4});
    bool struck = true;
    int call = 0;
    for (; struck; ++call) {
        setData(L"Walls", {});
        setData(L"Doors", {});
        for (const std::wstring& state : stateNames())
            states().deleteLayerState(state.c_str());
        setData(L"Walls", plan + site);
        setData(L"Doors", site);
        instruments::failAnyCall(call + 1, statusOf);
        convert();
        struck = instruments::faultStruck();
        const std::string operation = instruments::struckOperation();
        instruments::clearFaults();
        const auto names = stateNames();
        for (const wchar_t* state : {L"PLAN", L"SITE"}) {
            const bool inDrawing = std::any_of(names.begin(), names.end(), [state](const std::wstring& each) {
                return each.find(state) != std::wstring::npos || each.find(L"INVALIDNAME") != std::wstring::npos;
            });
            CQSETList list(&m_database);
            bool inLayers = false;
            while (list.takeNextName())
                inLayers = inLayers || list.currentName() == state;
            EXPECT_TRUE(inDrawing || inLayers) << "call " << call + 1 << ", " << operation;
        }
        releaseKeptChains();
    }
    EXPECT_GT(call, 30);
}

} // namespace
