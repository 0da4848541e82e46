// Blocks of the older layer tool: which states they make, what comes back of one, and how one is taken out.

#include "LegacyTest.h"

#include "KelDbPointers.h"

#include <functional>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class LegacyBlocks : public LegacyTest {
  protected:
    std::vector<std::wstring> names() {
        CQSETList list(&m_database);
        std::vector<std::wstring> found;
        while (list.takeNextName())
            found.emplace_back(list.currentName().GetString());
        return found;
    }
    bool restore(const wchar_t* name) { return CQSETList(&m_database).applyToLayers(CQSETList::OpRestore, name); }
    bool remove(const wchar_t* name) { return CQSETList(&m_database).applyToLayers(CQSETList::OpDelete, name); }
    /// Puts a block of that state on Walls.
    void setBlock(const LegacyBlock& block) { setData(L"Walls", nodesOf(L"PLAN", block)); }
};

TEST_F(LegacyBlocks, MakeAStateOfEachNameInTheOrderOfFirstSight) {
    setData(L"Base", nodesOf(L"SITE"));
    setData(L"Walls", nodesOf(L"PLAN") + nodesOf(L"site") + nodesOf(L"ROOF"));
    setData(L"Doors", nodesOf(L"Plan"));
    EXPECT_THAT(names(), ElementsAre(L"SITE", L"PLAN", L"ROOF"));
}

TEST_F(LegacyBlocks, AreSeenByAnyTextThatBeginsWithABrace) {
    setData(L"Walls", {int16(5), text(L"between"), text(L"{UNCLOSED"), int16(0), int16(7), text(L"{LINETYPE"),
                       text(L"{"), handle(L"1F")});
    EXPECT_THAT(names(), ElementsAre(L"UNCLOSED", L"LINETYPE", L""));
}

TEST_F(LegacyBlocks, AreNoneInADrawingWithoutThem) {
    EXPECT_THAT(names(), IsEmpty());
    EXPECT_EQ(CQSETList(nullptr).count(), 0);
}

TEST_F(LegacyBlocks, OfALayerThatCannotBeReadAreMissed) {
    setData(L"Base", nodesOf(L"SITE"));
    setData(L"Walls", nodesOf(L"PLAN"));
    instruments::failCall("openObject", 1);
    EXPECT_THAT(names(), ElementsAre(L"PLAN"));
}

TEST_F(LegacyBlocks, AreNotSeenWhenTheLayersCannotBeWalked) {
    setData(L"Walls", nodesOf(L"PLAN"));
    for (const char* operation : {"getLayerTable", "layerTable.newIterator"}) {
        instruments::failCall(operation, 1);
        EXPECT_THAT(names(), IsEmpty()) << operation;
        EXPECT_TRUE(instruments::faultStruck()) << operation;
    }
}

TEST_F(LegacyBlocks, ComeBackWithEachProperty) {
    setBlock({.flags = 1 | 2 | 4,
              .color = -5,
              .linetype = L"Dashed",
              .lineWeight = 211,
              .plottable = 0,
              .plotStyle = styleHandle(L"Walls")});
    EXPECT_TRUE(restore(L"PLAN"));
    const engine::LayerValues walls = values(L"Walls");
    EXPECT_EQ(walls.color, 5u);
    EXPECT_EQ(drawing().names.text(walls.linetype), L"Dashed");
    EXPECT_EQ(walls.lineWeight, 211);
    for (const std::uint8_t flag : {zdr::kLayerFrozen, zdr::kLayerNewViewportFrozen, zdr::kLayerLocked})
        EXPECT_TRUE(hasFlag(L"Walls", flag)) << int{flag};
    for (const std::uint8_t flag : {zdr::kLayerOn, zdr::kLayerPlot})
        EXPECT_FALSE(hasFlag(L"Walls", flag)) << int{flag};
}

TEST_F(LegacyBlocks, ComeBackByOneBitForEachFlag) {
    const std::vector<std::pair<int, std::uint8_t>> bits = {
        {1, zdr::kLayerFrozen}, {2, zdr::kLayerNewViewportFrozen}, {4, zdr::kLayerLocked}};
    for (const auto& [bit, flag] : bits) {
        setBlock({.flags = bit});
        EXPECT_TRUE(restore(L"PLAN"));
        for (const auto& [otherBit, otherFlag] : bits)
            EXPECT_EQ(hasFlag(L"Walls", otherFlag), otherBit == bit) << bit << ", " << otherBit;
    }
    setBlock({.flags = 8 | 16 | 32});
    EXPECT_TRUE(restore(L"PLAN"));
    for (const auto& [bit, flag] : bits)
        EXPECT_FALSE(hasFlag(L"Walls", flag)) << bit;
}

TEST_F(LegacyBlocks, OfAColourThatIsNotNegativeTurnTheLayerOn) {
    setFlag(L"Walls", zdr::kLayerOn, false);
    setBlock({.color = 0});
    EXPECT_TRUE(restore(L"PLAN"));
    EXPECT_TRUE(hasFlag(L"Walls", zdr::kLayerOn));
    EXPECT_EQ(values(L"Walls").color, 0u);
}

TEST_F(LegacyBlocks, PlotOnlyByTheValueOne) {
    for (const int plottable : {0, 2, -1}) {
        setBlock({.plottable = plottable});
        EXPECT_TRUE(restore(L"PLAN"));
        EXPECT_FALSE(hasFlag(L"Walls", zdr::kLayerPlot)) << plottable;
    }
    setBlock({.plottable = 1});
    EXPECT_TRUE(restore(L"PLAN"));
    EXPECT_TRUE(hasFlag(L"Walls", zdr::kLayerPlot));
}

TEST_F(LegacyBlocks, AreFoundWithoutRegardToCase) {
    setBlock({.color = 3});
    EXPECT_TRUE(restore(L"plan"));
    EXPECT_EQ(values(L"Walls").color, 3u);
}

TEST_F(LegacyBlocks, LeaveALayerThatHasNoneOfThatStateAsItIs) {
    setBlock({.color = 3});
    setData(L"Doors", nodesOf(L"ROOF", {.color = 4}));
    EXPECT_TRUE(restore(L"PLAN"));
    EXPECT_EQ(values(L"Doors").color, 7u);
    EXPECT_EQ(values(L"Base").color, 7u);
}

TEST_F(LegacyBlocks, OfANameThatTheListDoesNotHoldDoNothing) {
    setBlock({.color = 3});
    CQSETList list(&m_database);
    setData(L"Walls", nodesOf(L"LATE", {.color = 4}));
    EXPECT_TRUE(list.applyToLayers(CQSETList::OpRestore, L"LATE"));
    EXPECT_EQ(values(L"Walls").color, 7u);
}

TEST_F(LegacyBlocks, KeepTheLinetypeAndThePlotStyleThatTheDrawingLacks) {
    change(L"Walls", [this](engine::LayerValues& each) { each.linetype = nameId(L"Dotted"); });
    const auto before = values(L"Walls").plotStyle;
    setBlock({.color = 3, .linetype = L"Missing", .plotStyle = L"FFFF"});
    EXPECT_TRUE(restore(L"PLAN"));
    EXPECT_EQ(drawing().names.text(values(L"Walls").linetype), L"Dotted");
    EXPECT_EQ(values(L"Walls").plotStyle, before);
    EXPECT_EQ(values(L"Walls").color, 3u);
}

TEST_F(LegacyBlocks, GiveThePlotStyleOfTheirHandle) {
    change(L"Doors", [this](engine::LayerValues& each) { each.plotStyle = nameId(L"Fine"); });
    setBlock({.plotStyle = styleHandle(L"Doors")});
    EXPECT_TRUE(restore(L"PLAN"));
    EXPECT_EQ(drawing().names.text(values(L"Walls").plotStyle), L"Fine");
}

TEST_F(LegacyBlocks, WithTheMarksOfTheCurrentLayerAndOfAViewportStillGiveTheLineweight) {
    for (const bool frozen : {false, true}) {
        setBlock({.current = true, .frozenInViewport = frozen ? L"Walls" : L"", .lineWeight = 50, .plottable = 0});
        EXPECT_EQ(m_database.setClayer(layerId(L"Base")), Vorn::eOk);
        EXPECT_TRUE(restore(L"PLAN"));
        EXPECT_EQ(m_database.clayer(), layerId(L"Walls"));
        EXPECT_EQ(values(L"Walls").lineWeight, 50);
        EXPECT_FALSE(hasFlag(L"Walls", zdr::kLayerPlot));
    }
}

TEST_F(LegacyBlocks, WithAnotherNumberThanOneInThePlaceOfTheMarkMakeNoLayerCurrent) {
    setData(L"Walls", {text(L"{PLAN"), int16(0), int16(7), text(L"Continuous"), int16(2), int32(50), text(L"PLAN}")});
    EXPECT_TRUE(restore(L"PLAN"));
    EXPECT_EQ(m_database.clayer(), layerId(L"Base"));
    EXPECT_EQ(values(L"Walls").lineWeight, 50);
}

TEST_F(LegacyBlocks, AskTheHostForTheCurrentLayerOnlyWhenItCouldBeMadeReadable) {
    setBlock({.current = true, .lineWeight = 50});
    instruments::failCall("downgradeOpen", 1);
    EXPECT_TRUE(restore(L"PLAN"));
    EXPECT_EQ(m_database.clayer(), layerId(L"Base"));
    EXPECT_EQ(values(L"Walls").lineWeight, 50);
    EXPECT_THAT(instruments::trace(), testing::Not(testing::Contains(testing::StartsWith("upgradeOpen"))));
}

TEST_F(LegacyBlocks, CutShortGiveWhatTheyHave) {
    setData(L"Walls", {text(L"{PLAN"), int16(4), int16(-3), text(L"PLAN}"), int32(50), int32(0)});
    EXPECT_TRUE(restore(L"PLAN"));
    EXPECT_TRUE(hasFlag(L"Walls", zdr::kLayerLocked));
    EXPECT_EQ(values(L"Walls").color, 3u);
    EXPECT_EQ(values(L"Walls").lineWeight, -3);
    EXPECT_TRUE(hasFlag(L"Walls", zdr::kLayerPlot));
}

TEST_F(LegacyBlocks, ThatAreNotClosedAreReadToTheEndOfTheChain) {
    setData(L"Walls", {text(L"{PLAN"), int16(0), int16(3), text(L"Dashed"), int32(50), int32(0)});
    EXPECT_TRUE(restore(L"PLAN"));
    EXPECT_EQ(values(L"Walls").lineWeight, 50);
    EXPECT_FALSE(hasFlag(L"Walls", zdr::kLayerPlot));
}

TEST_F(LegacyBlocks, WithANodeOfAnotherKindLoseThatPropertyAlone) {
    setData(L"Walls", {text(L"{PLAN"), int32(4), int16(-3), int16(9), int32(50), int16(0), handle(L"0"), int32(0),
                       int16(4), text(L"PLAN}")});
    EXPECT_TRUE(restore(L"PLAN"));
    EXPECT_FALSE(hasFlag(L"Walls", zdr::kLayerLocked));
    EXPECT_EQ(values(L"Walls").color, 3u);
    EXPECT_EQ(drawing().names.text(values(L"Walls").linetype), L"Continuous");
    EXPECT_EQ(values(L"Walls").lineWeight, 50);
    EXPECT_TRUE(hasFlag(L"Walls", zdr::kLayerPlot)) << "its node was no number of 32 bits";
}

TEST_F(LegacyBlocks, LeaveTheExtendedDataAsItIsWhenTheyComeBack) {
    const LegacyNodes nodes = nodesOf(L"PLAN", {.color = 3});
    setData(L"Walls", nodes);
    EXPECT_TRUE(restore(L"PLAN"));
    EXPECT_EQ(data(L"Walls"), lines(nodes));
    EXPECT_THAT(instruments::trace(), testing::Not(testing::Contains(testing::StartsWith("setExtendedData"))));
}

TEST_F(LegacyBlocks, GoWithoutWhatIsBetweenThem) {
    const LegacyNodes between = {int16(5), text(L"kept")};
    setData(L"Walls", between + nodesOf(L"SITE") + between + nodesOf(L"PLAN") + between);
    EXPECT_TRUE(remove(L"plan"));
    EXPECT_EQ(data(L"Walls"), lines(between + nodesOf(L"SITE") + between + between));
}

TEST_F(LegacyBlocks, ThatAreOnALayerTwiceGoBoth) {
    setData(L"Walls", nodesOf(L"PLAN") + nodesOf(L"PLAN", {.color = 2}) + nodesOf(L"SITE") + nodesOf(L"Plan"));
    EXPECT_TRUE(remove(L"PLAN"));
    EXPECT_EQ(data(L"Walls"), lines(nodesOf(L"SITE")));
}

TEST_F(LegacyBlocks, ThatAreNotClosedStay) {
    const LegacyNodes nodes = LegacyNodes{text(L"{PLAN"), int16(0)} + nodesOf(L"SITE");
    setData(L"Walls", nodes);
    EXPECT_TRUE(remove(L"PLAN"));
    EXPECT_EQ(data(L"Walls"), lines(nodes));
}

TEST_F(LegacyBlocks, AreClosedByTheirOwnName) {
    setData(L"Walls", {text(L"{PLAN"), int16(0), text(L"SITE}"), int16(1), text(L"plan}"), int16(2)});
    EXPECT_TRUE(remove(L"PLAN"));
    EXPECT_EQ(data(L"Walls"), lines({int16(2)}));
}

TEST_F(LegacyBlocks, TakeTheDataOfTheLayerWithTheLastOfThem) {
    setData(L"Walls", nodesOf(L"PLAN"));
    EXPECT_TRUE(remove(L"PLAN"));
    EXPECT_THAT(drawing().extendedData, IsEmpty());
}

TEST_F(LegacyBlocks, AreWalkedOverTheDrawingThatIsCurrentThen) {
    setBlock({.color = 3});
    CQSETList list(&m_database);
    makeCurrent(nullptr);
    EXPECT_FALSE(list.applyToLayers(CQSETList::OpRestore, L"PLAN"));
    makeCurrent(&m_database);
    EXPECT_EQ(values(L"Walls").color, 7u);
}

TEST_F(LegacyBlocks, AreNotWalkedWhenTheTableOrItsIteratorIsRefused) {
    setBlock({.color = 3});
    CQSETList list(&m_database);
    for (const char* operation : {"getLayerTable", "layerTable.newIterator"}) {
        instruments::failCall(operation, 1);
        EXPECT_FALSE(list.applyToLayers(CQSETList::OpRestore, L"PLAN")) << operation;
    }
    EXPECT_EQ(values(L"Walls").color, 7u);
}

TEST_F(LegacyBlocks, StopAtTheFirstLayerThatCannotBeOpened) {
    setData(L"Base", nodesOf(L"PLAN", {.color = 3}));
    setData(L"Walls", nodesOf(L"PLAN", {.color = 3}));
    setData(L"Doors", nodesOf(L"PLAN", {.color = 3}));
    CQSETList list(&m_database);
    instruments::failCall("iterator.getRecord", 2);
    EXPECT_FALSE(list.applyToLayers(CQSETList::OpRestore, L"PLAN"));
    EXPECT_EQ(values(L"Base").color, 3u);
    EXPECT_EQ(values(L"Walls").color, 7u);
    EXPECT_EQ(values(L"Doors").color, 7u);
}

TEST_F(LegacyBlocks, StopAtTheFirstLayerThatDoesNotTakeItsData) {
    for (const wchar_t* each : {L"Base", L"Walls", L"Doors"})
        setData(each, nodesOf(L"PLAN"));
    CQSETList list(&m_database);
    instruments::failCall("setExtendedData", 2);
    EXPECT_FALSE(list.applyToLayers(CQSETList::OpDelete, L"PLAN"));
    EXPECT_THAT(data(L"Base"), IsEmpty());
    EXPECT_EQ(data(L"Walls"), lines(nodesOf(L"PLAN")));
    EXPECT_EQ(data(L"Doors"), lines(nodesOf(L"PLAN")));
}

TEST_F(LegacyBlocks, AreWalkedWithTheChainOfTheLastLayerAloneGivenBack) {
    for (const wchar_t* each : {L"Base", L"Walls", L"Doors"})
        setData(each, nodesOf(L"PLAN"));
    CQSETList list(&m_database);
    EXPECT_TRUE(list.applyToLayers(CQSETList::OpRestore, L"PLAN"));
    EXPECT_EQ(releaseKeptChains(), 2u);
}

TEST_F(LegacyBlocks, DoNothingByAnUnknownOperation) {
    setBlock({.color = 3});
    EXPECT_FALSE(CQSETList(&m_database).applyToLayers(4, L"PLAN"));
    EXPECT_EQ(values(L"Walls").color, 7u);
}

using LegacyBlocksDeathTest = LegacyBlocks;

TEST_F(LegacyBlocksDeathTest, EndTheProgramWhenALayerCannotBeClosed) {
    setBlock({});
    EXPECT_DEATH(
        {
            CQSETList list(&m_database);
            instruments::failCall("close", 1);
            list.applyToLayers(CQSETList::OpRestore, L"PLAN");
        },
        "!Utility@66: ");
}

} // namespace
