// The number of what a drawing holds, by which it is known whether there is something to save, and what is looked at,
// which doesn't count.

#include "EngineTest.h"

#include <set>

class ContentNumberTest : public EngineTest {
  protected:
    /// Runs `work` as one step.
    template <class Work> void step(Work work) {
        engine::beginUndoGroup(m_database);
        work();
        engine::endUndoGroup(m_database);
    }
};

TEST_F(ContentNumberTest, IsTheSameWhateverIsLookedAtWhichIsNoStep) {
    step([this] { setColor(L"Walls", 3); });
    EXPECT_TRUE(engine::undo(m_database));
    const std::uint64_t before = engine::contentNumber(m_database);
    engine::setActiveLayout(m_database, 0);
    engine::setCurrentViewport(m_database, viewport().handle);
    EXPECT_EQ(engine::contentNumber(m_database), before);
    EXPECT_FALSE(engine::undo(m_database));
    EXPECT_TRUE(engine::redo(m_database));
    EXPECT_EQ(values(L"Walls").color, 3u);
    EXPECT_EQ(drawing().activeLayout, 0u);
    EXPECT_EQ(drawing().currentViewport, viewport().handle);
}

TEST_F(ContentNumberTest, WhatIsLookedAtWithinAStepStaysWhenItIsTakenBack) {
    step([this] {
        engine::setCurrentLayer(m_database, layer(L"Walls"));
        engine::setActiveLayout(m_database, 0);
        engine::setCurrentViewport(m_database, viewport().handle);
    });
    EXPECT_TRUE(engine::undo(m_database));
    EXPECT_EQ(drawing().currentLayer, 0u);
    EXPECT_EQ(drawing().activeLayout, 0u);
    EXPECT_EQ(drawing().currentViewport, viewport().handle);
}

TEST_F(ContentNumberTest, IsAnotherOneAfterEachChangeAndComesBackWithUndoAndRedo) {
    const std::uint64_t first = engine::contentNumber(m_database);
    step([this] { setColor(L"Walls", 3); });
    const std::uint64_t second = engine::contentNumber(m_database);
    step([this] { setColor(L"Walls", 4); });
    const std::uint64_t third = engine::contentNumber(m_database);
    EXPECT_EQ((std::set{first, second, third}.size()), 3u);
    engine::undo(m_database);
    EXPECT_EQ(engine::contentNumber(m_database), second);
    engine::undo(m_database);
    EXPECT_EQ(engine::contentNumber(m_database), first);
    engine::redo(m_database);
    EXPECT_EQ(engine::contentNumber(m_database), second);
    engine::redo(m_database);
    EXPECT_EQ(engine::contentNumber(m_database), third);
    engine::undo(m_database);
    step([this] { setColor(L"Walls", 5); });
    const std::uint64_t fourth = engine::contentNumber(m_database);
    EXPECT_EQ((std::set{first, second, third, fourth}.size()), 4u);
    engine::undo(m_database);
    EXPECT_EQ(engine::contentNumber(m_database), second);
}

TEST_F(ContentNumberTest, IsAnotherOneInTheMiddleOfAStepToo) {
    const std::uint64_t first = engine::contentNumber(m_database);
    setColor(L"Walls", 3);
    const std::uint64_t middle = engine::contentNumber(m_database);
    setColor(L"Walls", 4);
    const std::uint64_t last = engine::contentNumber(m_database);
    EXPECT_EQ((std::set{first, middle, last}.size()), 3u);
    engine::undo(m_database);
    EXPECT_EQ(engine::contentNumber(m_database), first);
    engine::redo(m_database);
    EXPECT_EQ(engine::contentNumber(m_database), last);
}

TEST_F(ContentNumberTest, ComesBackInADrawingThatWasReplaced) {
    engine::replaceDrawing(m_database, drawing());
    const std::uint64_t read = engine::contentNumber(m_database);
    step([this] { setColor(L"Walls", 3); });
    engine::undo(m_database);
    EXPECT_EQ(engine::contentNumber(m_database), read);
}
