// The samples to take over the border: a drawing with states of the older layer tool, one to import from, and a layer
// states file written by hand.
#include "SampleHouse.h"

#include "CQSETList.h"
#include "KelDbDatabase.h"
#include "LegacyStates.h"
#include "engine/DatabaseAccess.h"
#include "instruments/HostCalls.h"

#include <gmock/gmock.h>

#include <algorithm>

using testing::ElementsAre;

namespace {

class LegacySamples : public SampleHouse {
  protected:
    LegacySamples() { instruments::watch(true); }
    ~LegacySamples() override {
        keldbHostApplicationServices()->setWorkingDatabase(nullptr);
        // The walks over the layers keep all chains but the last on purpose.
        for (const void* head : instruments::keysOf("chain node of type 1001"))
            kelutRelRb(static_cast<ResultBuffer*>(const_cast<void*>(head)));
        instruments::watch(false);
    }
    void open(const wchar_t* name) {
        ASSERT_EQ(m_database.readZdrFile((L"samples/" + std::wstring(name)).c_str(), 64, false, nullptr), Vorn::eOk);
        keldbHostApplicationServices()->setWorkingDatabase(&m_database);
    }
    KelDbLayerStateManager& states() { return *m_database.getLayerStateManager(); }
    std::vector<std::wstring> stateNames() {
        std::vector<std::wstring> names;
        for (const zdr::LayerState& state : engine::drawingOf(m_database).states)
            names.push_back(state.name);
        return names;
    }
    engine::LayerValues layer(const wchar_t* name) {
        return engine::layerValues(m_database, engine::layerIndex(m_database, name));
    }
    KelDbDatabase m_database{false, true};
};

} // namespace

TEST_F(LegacySamples, TheShedsOldStatesBecomeLayerStates) {
    open(L"legacy.zdr");
    EXPECT_TRUE(stateNames().empty());
    int count = 0;
    EXPECT_TRUE(convertLegacyStates(count));
    EXPECT_EQ(count, 3);
    EXPECT_THAT(stateNames(), ElementsAre(L"DIMENSIONS", L"QSET_INVALIDNAME", L"CUT SHORT"));
    EXPECT_EQ(CQSETList(&m_database).count(), 0) << "none is left";
}

TEST_F(LegacySamples, EachOfThemShowsWhatItsBlocksSay) {
    open(L"legacy.zdr");
    int count = 0;
    ASSERT_TRUE(convertLegacyStates(count));
    const auto color = [this](const wchar_t* name) { return layer(name).color; };
    ASSERT_EQ(states().restoreLayerState(L"DIMENSIONS", {}, 0, nullptr), Vorn::eOk);
    EXPECT_EQ(engine::drawingOf(m_database).currentLayer, engine::layerIndex(m_database, L"A-WALL"));
    EXPECT_TRUE(layer(L"A-WALL").flags & zdr::kLayerLocked);
    EXPECT_EQ(layer(L"A-WALL").lineWeight, 35) << "behind the mark of the current layer";
    EXPECT_EQ(color(L"A-DOOR"), 30u);
    EXPECT_FALSE(layer(L"A-DOOR").flags & (zdr::kLayerOn | zdr::kLayerPlot));
    EXPECT_EQ(layer(L"A-ROOF").lineWeight, 18) << "behind the mark of the viewport";
    EXPECT_TRUE(layer(L"G-ANNO-DIMS").flags & zdr::kLayerNewViewportFrozen);
    ASSERT_EQ(states().restoreLayerState(L"QSET_INVALIDNAME", {}, 0, nullptr), Vorn::eOk);
    EXPECT_EQ(color(L"A-WALL"), 5u);
    EXPECT_TRUE(layer(L"A-ROOF").flags & zdr::kLayerFrozen);
    ASSERT_EQ(states().restoreLayerState(L"CUT SHORT", {}, 0, nullptr), Vorn::eOk);
    EXPECT_EQ(color(L"A-DOOR"), 1u);
    EXPECT_TRUE(layer(L"A-DOOR").flags & zdr::kLayerOn);
    EXPECT_EQ(layer(L"A-DOOR").lineWeight, 25) << "which its block doesn't say";
}

TEST_F(LegacySamples, TheAnnexHasFiveStatesTwoOfThemUnderNamesOfTheHouse) {
    open(L"annex.zdr");
    std::vector<std::wstring> ofHouse;
    for (const zdr::LayerState& state : s_house.states)
        ofHouse.push_back(state.name);
    std::vector<std::wstring> shared;
    for (const std::wstring& name : stateNames())
        if (std::ranges::find(ofHouse, name) != ofHouse.end())
            shared.push_back(name);
    EXPECT_EQ(stateNames().size(), 5u);
    EXPECT_THAT(shared, ElementsAre(L"Plumbing plan", L"Presentation"));
}

TEST_F(LegacySamples, TheFileWrittenByHandIsAStateOfTheHouse) {
    open(L"house.zdr");
    const std::size_t before = stateNames().size();
    KelString name;
    ASSERT_EQ(states().importLayerState(L"samples/winter.las", name), Vorn::eOk);
    EXPECT_STREQ(name.kwszPtr(), L"Winter");
    EXPECT_EQ(stateNames().size(), before + 1);
    ASSERT_EQ(states().restoreLayerState(L"Winter", {}, 0, nullptr), Vorn::eOk);
    EXPECT_FALSE(layer(L"L-WATR").flags & zdr::kLayerOn);
    EXPECT_EQ(layer(L"L-HARD-PATT").color, 0xC2BEC2C8u);
}
