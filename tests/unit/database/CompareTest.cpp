// Whether a state matches what the drawing shows.

#include "EngineTest.h"

class Compare : public EngineTest {
  protected:
    Compare() { states().saveLayerState(L"Plan", MaskAllProperties); }
};

TEST_F(Compare, AFreshlySavedStateMatches) {
    EXPECT_TRUE(matches(L"Plan"));
    EXPECT_TRUE(matches(L"PLAN"));
}

TEST_F(Compare, ADifferenceAndItsReturnAreSeen) {
    setColor(L"Doors", 2);
    EXPECT_FALSE(matches(L"Plan"));
    setColor(L"Doors", 7);
    EXPECT_TRUE(matches(L"Plan"));
}

struct Difference {
    const char* name;
    LayerStateMask mask;
    void (*make)(engine::LayerValues& values, zdr::NameId linetype, zdr::NameId plotStyle);
};
void PrintTo(const Difference& item, std::ostream* out) {
    *out << item.name;
}

void toggle(engine::LayerValues& values, int flag) {
    values.flags = static_cast<std::uint8_t>(values.flags ^ flag);
}

class CompareMask : public Compare, public testing::WithParamInterface<Difference> {
  protected:
    void differ() {
        change(L"Furniture", [this](engine::LayerValues& layerValues) {
            GetParam().make(layerValues, nameId(L"Dashed"), nameId(L"Fine"));
        });
    }
};

INSTANTIATE_TEST_SUITE_P(
    EachBit, CompareMask,
    testing::Values(
        Difference{"on", MaskOn, [](auto& values, auto, auto) { toggle(values, zdr::kLayerOn); }},
        Difference{"frozen", MaskFrozen, [](auto& values, auto, auto) { toggle(values, zdr::kLayerFrozen); }},
        Difference{"locked", MaskLocked, [](auto& values, auto, auto) { toggle(values, zdr::kLayerLocked); }},
        Difference{"plot", MaskPlot, [](auto& values, auto, auto) { toggle(values, zdr::kLayerPlot); }},
        Difference{"newViewports", MaskNewViewportFrozen,
                   [](auto& values, auto, auto) { toggle(values, zdr::kLayerNewViewportFrozen); }},
        Difference{"color", MaskColor, [](auto& values, auto, auto) { values.color = 3; }},
        Difference{"linetype", MaskLinetype, [](auto& values, auto linetype, auto) { values.linetype = linetype; }},
        Difference{"lineWeight", MaskLineWeight, [](auto& values, auto, auto) { values.lineWeight = 25; }},
        Difference{"plotStyle", MaskPlotStyle, [](auto& values, auto, auto style) { values.plotStyle = style; }}),
    [](const auto& test) { return std::string(test.param.name); });

TEST_P(CompareMask, SeesTheDifferenceWithItsBitAndNotWithoutIt) {
    differ();
    EXPECT_FALSE(matches(L"Plan"));
    states().setLayerStateMask(L"Plan", GetParam().mask);
    EXPECT_FALSE(matches(L"Plan"));
    states().setLayerStateMask(L"Plan", MaskAllProperties & ~GetParam().mask);
    EXPECT_TRUE(matches(L"Plan"));
}

TEST_P(CompareMask, SeesTheDifferenceAlsoAmongOtherLayersThanTheDrawings) {
    engine::addLayer(m_database, L"Notes");
    EXPECT_TRUE(matches(L"Plan"));
    differ();
    EXPECT_FALSE(matches(L"Plan"));
    states().setLayerStateMask(L"Plan", MaskAllProperties & ~GetParam().mask);
    EXPECT_TRUE(matches(L"Plan"));
}

TEST_F(Compare, ALayerThatTheDrawingLacksIsADifference) {
    engine::removeLayer(m_database, layer(L"Furniture"));
    EXPECT_FALSE(matches(L"Plan"));
    states().setLayerStateMask(L"Plan", 0);
    EXPECT_FALSE(matches(L"Plan"));
}

TEST_F(Compare, ALayerThatTheStateDoesNotHoldIsNone) {
    engine::addLayer(m_database, L"Notes");
    EXPECT_TRUE(matches(L"Plan"));
}

TEST_F(Compare, AnotherCurrentLayerIsNone) {
    engine::setCurrentLayer(m_database, layer(L"Walls"));
    EXPECT_TRUE(matches(L"Plan"));
}

TEST_F(Compare, ARestoredStateMatches) {
    setColor(L"Walls", 3);
    setFlag(L"Doors", zdr::kLayerLocked, true);
    EXPECT_FALSE(matches(L"Plan"));
    restore(L"Plan");
    EXPECT_TRUE(matches(L"Plan"));
}

TEST_F(Compare, WorksOverColumnsLongerThanAnyBlockOfMemory) {
    std::vector<TestLayer> many;
    std::deque<std::wstring> names;
    for (int i = 0; i < 2000; ++i) {
        names.push_back(L"L" + std::to_wstring(i));
        many.push_back({names.back().c_str()});
    }
    use(makeDrawing(many));
    states().saveLayerState(L"Plan", MaskLocked);
    for (const wchar_t* name : {L"L0", L"L511", L"L512", L"L1998", L"L1999"}) {
        setFlag(name, zdr::kLayerLocked, true);
        EXPECT_FALSE(matches(L"Plan")) << testing::PrintToString(std::wstring(name));
        setFlag(name, zdr::kLayerLocked, false);
        EXPECT_TRUE(matches(L"Plan"));
    }
}

// An answer is kept until something that it rests on changes; each test asks before and after one such change.
class KeptAnswer : public Compare {
  protected:
    void expectMatch(bool expected) {
        for (int times = 0; times < 2; ++times)
            EXPECT_EQ(matches(L"Plan"), expected);
    }
    bool matchesInViewport() { return matches(L"Plan", viewportId()); }
};

TEST_F(KeptAnswer, EndsWithAChangeOfALayer) {
    expectMatch(true);
    setColor(L"Doors", 2);
    expectMatch(false);
}

TEST_F(KeptAnswer, EndsWithUndoAndRedo) {
    engine::beginUndoGroup(m_database);
    setColor(L"Doors", 2);
    engine::endUndoGroup(m_database);
    expectMatch(false);
    engine::undo(m_database);
    expectMatch(true);
    engine::redo(m_database);
    expectMatch(false);
}

TEST_F(KeptAnswer, EndsWithALayerRemovedAndOneAdded) {
    expectMatch(true);
    engine::removeLayer(m_database, layer(L"Furniture"));
    expectMatch(false);
    engine::addLayer(m_database, L"Furniture");
    expectMatch(true);
}

TEST_F(KeptAnswer, EndsWithAChangeOfTheState) {
    setColor(L"Doors", 2);
    expectMatch(false);
    states().setLayerStateMask(L"Plan", MaskOn);
    expectMatch(true);
    states().setLayerStateMask(L"Plan", MaskColor);
    expectMatch(false);
    KelDbLayerTableRecord record;
    record.setName(L"Doors");
    KelCmColor color;
    color.setColorIndex(2);
    record.setColor(color);
    EXPECT_TRUE(impStates().updateLayerStateLayer(L"Plan", &record, false));
    expectMatch(true);
}

TEST_F(KeptAnswer, IsOfOneViewportAndEndsWithAChangeOfIt) {
    expectMatch(true);
    EXPECT_TRUE(matchesInViewport());
    engine::setOverride(m_database, viewport().handle, {.layer = layer(L"Walls"), .mask = MaskColor, .color = 5});
    EXPECT_FALSE(matchesInViewport());
    expectMatch(true);
    EXPECT_FALSE(matchesInViewport());
    engine::setOverride(m_database, viewport().handle, {.layer = layer(L"Walls")});
    EXPECT_TRUE(matchesInViewport());
}

TEST_F(KeptAnswer, IsNotAnotherStatesOfTheSameName) {
    expectMatch(true);
    states().deleteLayerState(L"Plan");
    expectMatch(false);
    states().saveLayerState(L"Plan", MaskAllProperties);
    expectMatch(true);
}

TEST_F(KeptAnswer, EndsWithTheDrawing) {
    expectMatch(true);
    zdr::Drawing other = drawing();
    other.columns.colors.set(1, 4);
    use(std::move(other));
    expectMatch(false);
}

TEST_F(Compare, EachOfManySetsOfLayersIsMatchedByItsOwn) {
    const auto name = [](int number) { return L"Plan" + std::to_wstring(number); };
    constexpr int kSets = 150; // many more than the engine keeps mappings of
    for (int i = 0; i < kSets; ++i) {
        ASSERT_EQ(engine::addLayer(m_database, L"Layer" + std::to_wstring(i)), Vorn::eOk);
        ASSERT_EQ(states().saveLayerState(name(i).c_str(), MaskColor), Vorn::eOk);
        EXPECT_TRUE(matches(name(i).c_str())) << i;
        if (i % 2 == 0)
            states().deleteLayerState(name(i).c_str());
    }
    setColor(L"Layer100", 3);
    for (int i = 1; i < kSets; i += 2)
        EXPECT_EQ(matches(name(i).c_str()), i < 100) << i;
}
