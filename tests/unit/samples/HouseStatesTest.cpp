// The sample house's layer states: enough and varied enough that each of them visibly does something.
#include "SampleHouse.h"

#include "LayerStateMask.h"

#include <algorithm>
#include <map>
#include <set>

namespace {

class HouseStatesTest : public SampleHouse {
  protected:
    /// The state's layers that the drawing shows otherwise than the state has them, by the properties of its mask.
    static std::size_t differences(const zdr::LayerState& state) {
        std::map<zdr::NameId, std::size_t> rows;
        for (std::size_t i = 0; i < s_house.layers.size(); ++i)
            rows[s_house.layers[i].name] = i;
        std::size_t count = 0;
        for (std::size_t i = 0; i < state.layers->names.size(); ++i)
            count += differs(state, i, rows.at(state.layers->names[i]));
        return count;
    }

    static const zdr::LayerState& state(const wchar_t* wanted) {
        const auto found = std::ranges::find(s_house.states, wanted, &zdr::LayerState::name);
        if (found == s_house.states.end())
            throw std::runtime_error("no such state");
        return *found;
    }

  private:
    static bool differs(const zdr::LayerState& state, std::size_t row, std::size_t layer) {
        const auto &mine = state.columns, &shown = s_house.columns;
        const auto flags = state.mask & (MaskOn | MaskFrozen | MaskLocked | MaskPlot | MaskNewViewportFrozen);
        return ((mine.flags[row] ^ shown.flags[layer]) & flags) != 0 ||
               ((state.mask & MaskColor) != 0 && mine.colors[row] != shown.colors[layer]) ||
               ((state.mask & MaskLinetype) != 0 && mine.linetypes[row] != shown.linetypes[layer]) ||
               ((state.mask & MaskLineWeight) != 0 && mine.lineWeights[row] != shown.lineWeights[layer]) ||
               ((state.mask & MaskPlotStyle) != 0 && mine.plotStyles[row] != shown.plotStyles[layer]);
    }
};

bool isViewportFrozen(std::uint8_t flags) {
    return (flags & zdr::kLayerViewportFrozen) != 0;
}

} // namespace

TEST_F(HouseStatesTest, AreTwelveWithDescriptions) {
    std::set<std::wstring> names;
    for (const auto& state : s_house.states) {
        names.insert(state.name);
        EXPECT_FALSE(state.description.empty());
    }
    EXPECT_EQ(s_house.states.size(), 12u);
    EXPECT_EQ(names.size(), 12u);
    for (const auto* wanted : {L"Plumbing plan", L"Presentation", L"Electrical plan", L"Demolition"})
        EXPECT_TRUE(names.contains(wanted));
}

TEST_F(HouseStatesTest, HaveNamesThatAStateMayHave) {
    for (const auto& state : s_house.states)
        EXPECT_EQ(state.name.find_first_of(L"<>:\"/\\|?*!"), std::wstring::npos);
}

TEST_F(HouseStatesTest, RestoreDifferentProperties) {
    std::set<std::uint32_t> masks;
    for (const auto& state : s_house.states) {
        masks.insert(state.mask);
        EXPECT_NE(state.mask, 0u);
        EXPECT_EQ(state.mask & ~MaskAllProperties, 0u);
    }
    EXPECT_GE(masks.size(), 6u);
}

TEST_F(HouseStatesTest, OneIsTheDrawingAsItStandsAndWasRestoredLast) {
    ASSERT_TRUE(s_house.lastRestored.has_value());
    EXPECT_EQ(*s_house.lastRestored, L"Working drawing");
    EXPECT_EQ(state(L"Working drawing").layers->names.size(), s_house.layers.size());
    for (const auto& state : s_house.states)
        EXPECT_EQ(differences(state) == 0, state.name == *s_house.lastRestored);
}

TEST_F(HouseStatesTest, ThePresentationHasAColorOfItsOwnName) {
    const auto& presentation = state(L"Presentation");
    const auto row = std::ranges::find(presentation.layers->names, s_house.names.find(L"A-CASE")) -
                     presentation.layers->names.begin();
    const KelCmColor color = s_house.namedColors.color(presentation.columns.colors[static_cast<std::size_t>(row)]);
    EXPECT_STREQ(color.colorNameForDisplay(), L"Walnut");
    EXPECT_FALSE(color.hasBookName());
}

TEST_F(HouseStatesTest, TwoWereSavedWithAViewport) {
    const auto saved = std::ranges::count(s_house.states, true, &zdr::LayerState::hasViewportData);
    EXPECT_EQ(saved, 2);
    for (const auto& state : s_house.states) {
        EXPECT_EQ(std::ranges::any_of(state.columns.flags.values(), isViewportFrozen), state.hasViewportData);
        EXPECT_EQ((state.mask & MaskViewportFrozen) != 0, state.hasViewportData);
    }
}

TEST_F(HouseStatesTest, OneIsOlderThanSomeLayers) {
    for (const auto& state : s_house.states) {
        const auto missing = s_house.layers.size() - state.layers->names.size();
        EXPECT_EQ(missing, state.name == L"Structural frame" ? 5u : 0u);
    }
}

TEST_F(HouseStatesTest, NoneFreezesTheCurrentLayer) {
    const auto current = s_house.layers.at(s_house.currentLayer).name;
    for (const auto& state : s_house.states) {
        const auto row = std::ranges::find(state.layers->names, current) - state.layers->names.begin();
        EXPECT_EQ(state.columns.flags[static_cast<std::size_t>(row)] & zdr::kLayerFrozen, 0);
    }
}

TEST_F(HouseStatesTest, ThePlumbingPlanShowsPipesOverAPaleBuilding) {
    const auto& plan = state(L"Plumbing plan");
    std::size_t pipes = 0, furniture = 0;
    for (std::size_t i = 0; i < plan.layers->names.size(); ++i) {
        const auto& layer = name(plan.layers->names[i]);
        const bool shown = (plan.columns.flags[i] & (zdr::kLayerOn | zdr::kLayerFrozen)) == zdr::kLayerOn;
        if (layer.starts_with(L"P-")) {
            EXPECT_TRUE(shown);
            ++pipes;
        }
        if (layer.starts_with(L"A-FURN") || layer.starts_with(L"E-")) {
            EXPECT_FALSE(shown);
            ++furniture;
        }
    }
    EXPECT_GE(pipes, 6u);
    EXPECT_GE(furniture, 8u);
    EXPECT_GE(differences(plan), 30u);
}
