// What the database answers while a part of the drawing is being written, and after an exception ended the writing.
// Only natively, where the inside of the engine can be reached.

#include "EngineTest.h"
#include "FailingAllocation.h"
#include "engine/DatabaseImp.h"
#include "WholeDrawing.h"

using testing::IsEmpty;

class EditorTest : public EngineTest {
  protected:
    EditorTest() { EXPECT_EQ(states().saveLayerState(L"Plan", MaskAllProperties), Vorn::eOk); }

    engine::DatabaseImp& imp() { return engine::impOf(m_database); }
};

TEST_F(EditorTest, AComparisonAskedWhileLayersAreWrittenIsNeverStale) {
    ASSERT_TRUE(matches(L"Plan"));
    {
        const auto columns = imp().editColumns();
        EXPECT_TRUE(matches(L"Plan"));
        columns->colors.set(1, 3);
        EXPECT_FALSE(matches(L"Plan")) << "the answer of before";
        columns->colors.set(1, 7);
        EXPECT_TRUE(matches(L"Plan")) << "the answer of a moment ago";
        columns->colors.set(1, 4);
    }
    EXPECT_FALSE(matches(L"Plan")) << "the answer of while it was written";
}

TEST_F(EditorTest, AnInnerEditorsEndLeavesTheOuterOneStanding) {
    const auto columns = imp().editColumns();
    imp().editColumns()->colors.set(1, 3);
    EXPECT_FALSE(matches(L"Plan"));
    columns->colors.set(1, 7);
    EXPECT_TRUE(matches(L"Plan"));
}

TEST_F(EditorTest, AComparisonAskedWhileTheStateIsWrittenIsNeverStale) {
    setColor(L"Walls", 3);
    ASSERT_FALSE(matches(L"Plan"));
    {
        const auto state = imp().editState(0);
        state->mask = MaskLocked;
        EXPECT_TRUE(matches(L"Plan"));
        state->mask = MaskColor;
        EXPECT_FALSE(matches(L"Plan"));
        state->mask = 0;
    }
    EXPECT_TRUE(matches(L"Plan"));
}

TEST_F(EditorTest, WhatAViewportShowsIsNeverStale) {
    const auto shows = [&] {
        return engine::shownColumns(m_database, &viewport()).flags[1] & zdr::kLayerViewportFrozen;
    };
    ASSERT_FALSE(shows());
    {
        const auto edited = imp().editViewport(viewport());
        edited->frozen = {false, true};
        EXPECT_TRUE(shows());
        edited->frozen = {};
        EXPECT_FALSE(shows());
        edited->frozen = {false, true};
    }
    EXPECT_TRUE(shows());
}

TEST_F(EditorTest, AStateIsFoundUnderTheNameThatWasWritten) {
    imp().editState(0)->name = L"Sketch";
    EXPECT_TRUE(states().hasLayerState(L"Sketch"));
    EXPECT_FALSE(states().hasLayerState(L"Plan"));
}

TEST_F(EditorTest, StatesAreEnteredInTheIndexOnlyOnceUntilTheyChange) {
    const auto bytesToFind = [this] {
        const std::size_t before = allocatedBytes();
        EXPECT_NE(imp().findState(L"Plan"), zdr::kNone);
        return allocatedBytes() - before;
    };
    use(zdr::Drawing(drawing()));
    EXPECT_GT(bytesToFind(), 0u) << "the index of the drawing that has come";
    EXPECT_EQ(bytesToFind(), 0u);
}

TEST_F(EditorTest, TheChangeIsCountedAtTheEnd) {
    std::uint64_t during = 0;
    {
        const auto columns = imp().editColumns();
        columns->colors.set(1, 3);
        during = engine::changeCount(m_database);
    }
    EXPECT_GT(engine::changeCount(m_database), during);
}

TEST_F(EditorTest, WritingThatIsBrokenOffCanBeUndone) {
    ASSERT_TRUE(matches(L"Plan"));
    engine::beginUndoGroup(m_database);
    try {
        const auto columns = imp().editColumns();
        columns->colors.set(1, 3);
        throw std::bad_alloc();
    } catch (const std::bad_alloc&) {
        engine::endUndoGroup(m_database);
    }
    EXPECT_FALSE(matches(L"Plan"));
    EXPECT_THAT(wholenessProblems(m_database), IsEmpty());
    ASSERT_TRUE(engine::undo(m_database));
    EXPECT_TRUE(matches(L"Plan"));
}

TEST_F(EditorTest, ARenamingThatIsBrokenOffLeavesTheStateFound) {
    try {
        const auto state = imp().editState(0);
        state->name = L"Sketch";
        throw std::bad_alloc();
    } catch (const std::bad_alloc&) {
        EXPECT_THAT(wholenessProblems(m_database), IsEmpty());
    }
}
