// What UNDO and REDO tell: the names of the commands whose changes they take.

#include "CommandFixture.h"
#include "KelEditor.h"
#include "SystemRegistry.h"

#include "engine/DatabaseAccess.h"

using testing::EndsWith;

namespace {

class UndoTextTest : public CommandFixture {
  protected:
    UndoTextTest() { run(L"LAYER NEW Walls"); }
};

void addLayerA() {
    engine::addLayer(*keldbHostApplicationServices()->workingDatabase(), L"A");
}

} // namespace

TEST_F(UndoTextTest, NamesTheCommandWithItsOption) {
    run(L"la f walls");
    EXPECT_EQ(run(L"u"), L"Undone: LAYER FREEZE.\n");
    EXPECT_EQ(run(L"REDO"), L"Made again: LAYER FREEZE.\n");
    run(L"LAYER THAW Walls");
    EXPECT_EQ(run(L"UNDO"), L"Undone: LAYER THAW.\n");
    EXPECT_EQ(run(L"UNDO"), L"Undone: LAYER FREEZE.\n");
    EXPECT_EQ(run(L"UNDO"), L"Undone: LAYER NEW.\n");
    EXPECT_EQ(run(L"UNDO"), L"There is nothing to undo: change the drawing first.\n");
}

TEST_F(UndoTextTest, NamesTheVariableThatWasSet) {
    run(L"SETVAR ltscale 2");
    EXPECT_EQ(run(L"U"), L"Undone: SETVAR LTSCALE.\n");
    run(L"SETVAR clayer Walls");
    EXPECT_EQ(run(L"U"), L"Undone: SETVAR CLAYER.\n");
}

TEST_F(UndoTextTest, NamesWhatChangesAViewport) {
    run(L"LAYOUT Layout1");
    run(L"VPLAYER FREEZE Walls IN 2");
    EXPECT_EQ(run(L"U"), L"Undone: VPLAYER FREEZE.\n");
}

TEST_F(UndoTextTest, NamesTheCommandOfAModuleByItsGlobalName) {
    runtime::commandStack().addCommand(L"TEST", L"ADD", L"HINZU", 0, addLayerA);
    run(L"hinzu");
    EXPECT_EQ(run(L"U"), L"Undone: ADD.\n");
    EXPECT_EQ(run(L"REDO"), L"Made again: ADD.\n");
}

TEST_F(UndoTextTest, TellsAChangeThatNoCommandHasMade) {
    addLayerA();
    EXPECT_EQ(run(L"U"), L"Undone: a change without a name.\n");
}

TEST_F(UndoTextTest, TakesAsManyStepsAsTheNumberSaysAndNamesThem) {
    run(L"LAYER OFF Walls");
    run(L"LAYER LOCK Walls");
    const int changed = window.changed;
    EXPECT_EQ(run(L"UNDO 2"), L"Undone: 2 changes, LAYER LOCK, LAYER OFF.\n");
    EXPECT_EQ(window.changed, changed + 1) << "drawn once";
    EXPECT_EQ(flags(L"Walls") & (zdr::kLayerOn | zdr::kLayerLocked), zdr::kLayerOn);
    EXPECT_EQ(run(L"REDO 2"), L"Made again: 2 changes, LAYER OFF, LAYER LOCK.\n");
    EXPECT_EQ(run(L"UNDO 1"), L"Undone: LAYER LOCK.\n");
    EXPECT_TRUE(done);
}

TEST_F(UndoTextTest, TakesWhatThereIsWhenTheNumberIsGreater) {
    run(L"LAYER OFF Walls");
    EXPECT_EQ(run(L"UNDO 9999"), L"Undone: 2 changes, LAYER OFF, LAYER NEW. There are no more.\n");
    EXPECT_TRUE(done);
    EXPECT_EQ(run(L"REDO 3"), L"Made again: 2 changes, LAYER NEW, LAYER OFF. There are no more.\n");
    EXPECT_EQ(run(L"REDO 3"), L"There is nothing to redo: take a change back by UNDO first.\n");
    EXPECT_FALSE(done);
}

TEST_F(UndoTextTest, RefusesWhatIsNoNumberOfChanges) {
    for (const wchar_t* word : {L"0", L"-1", L"10000", L"two", L"1.5", L"\"\""}) {
        EXPECT_THAT(run(std::wstring(L"UNDO ") + word),
                    EndsWith(L"\" is no number of changes: give one from 1 to 9999.\n"));
        EXPECT_FALSE(done);
    }
    EXPECT_EQ(drawing().layers.size(), 2u);
}
