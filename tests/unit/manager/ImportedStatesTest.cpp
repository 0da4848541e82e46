// What an import has brought, over the real engine: finding it, copying its record and entering that again.

#include "ImportedStates.h"

#include "DomainTest.h"
#include "FaultSweep.h"
#include "KelDbPointers.h"

namespace {

using testing::ElementsAre;

/// A drawing with the states Plan, Roof and Attic.
class ImportedStates : public DomainTest {
  protected:
    ImportedStates() {
        for (const wchar_t* name : {L"Plan", L"Roof", L"Attic"})
            EXPECT_EQ(states().saveLayerState(name, MaskColor), Vorn::eOk);
        states().setLayerStateDescription(L"Roof", L"with tiles");
        instruments::clearTrace();
    }
    /// The name that is found where these have rows; "-" for none.
    std::wstring found(std::initializer_list<const wchar_t*> rows, LayerStateMask& mask) {
        CString name;
        RowNames shown;
        for (const wchar_t* row : rows)
            shown.add(row);
        const int answer = findStateWithoutRow(states(), shown, name, mask);
        EXPECT_EQ(answer, name.IsEmpty() ? 0 : 1);
        return name.IsEmpty() ? L"-" : name.GetString();
    }
    std::wstring found(std::initializer_list<const wchar_t*> rows) {
        LayerStateMask mask = 0;
        return found(rows, mask);
    }
};

TEST_F(ImportedStates, TheNewOneIsTheFirstWithoutARow) {
    EXPECT_EQ(found({}), L"Plan");
    EXPECT_EQ(found({L"Plan"}), L"Roof");
    EXPECT_EQ(found({L"plan", L"ATTIC"}), L"Roof");
    EXPECT_EQ(found({L"Roof", L"Plan"}), L"Attic");
    EXPECT_EQ(found({L"", L"Plans"}), L"Plan");
    EXPECT_EQ(found({L"Roof", L"Plan", L"Attic"}), L"-");
}

TEST_F(ImportedStates, TheNewOnesMaskComesAlong) {
    states().setLayerStateMask(L"Roof", MaskOn | MaskPlot);
    LayerStateMask mask = 0;
    EXPECT_EQ(found({L"Plan"}, mask), L"Roof");
    EXPECT_EQ(mask, MaskOn | MaskPlot);
    instruments::failCall("getLayerStateMask", 1);
    mask = 77;
    EXPECT_EQ(found({L"Plan"}, mask), L"Roof");
    EXPECT_EQ(mask, 77u);
}

TEST_F(ImportedStates, NamesThatCannotBeReadAreNoneNew) {
    instruments::failCall("getLayerStateNames", 1);
    EXPECT_EQ(found({}), L"-");
    EXPECT_THAT(instruments::trace(),
                ElementsAre("getLayerStateManager() = object", "getLayerStateNames(true, true) = 3"));
}

TEST_F(ImportedStates, ACopyIsARecordInMemory) {
    const std::unique_ptr<KelDbXrecord> copy(copyStateRecord(kCloneRecord, L"ROOF", nullptr));
    ASSERT_NE(copy, nullptr);
    EXPECT_TRUE(copy->objectId().isNull());
    EXPECT_TRUE(copy->isKindOf(KelDbXrecord::desc()));
}

TEST_F(ImportedStates, ThereIsNoCopyOfAMissingState) {
    EXPECT_EQ(copyStateRecord(kCloneRecord, L"Cellar", nullptr), nullptr);
    makeCurrent(nullptr);
    EXPECT_EQ(copyStateRecord(kCloneRecord, L"Roof", nullptr), nullptr);
}

TEST_F(ImportedStates, OtherModesDoNothing) {
    EXPECT_EQ(copyStateRecord(2, L"Roof", nullptr), nullptr);
    EXPECT_EQ(copyStateRecord(-1, L"Roof", nullptr), nullptr);
    EXPECT_EQ(copyStateRecord(kEnterRecord, L"Roof", nullptr), nullptr);
    EXPECT_EQ(stateNames().size(), 3u);
}

TEST_F(ImportedStates, AnEnteredCopyIsTheStateAsItWasWhenItWasCopied) {
    std::unique_ptr<KelDbXrecord> copy(copyStateRecord(kCloneRecord, L"Roof", nullptr));
    ASSERT_NE(copy, nullptr);
    states().setLayerStateDescription(L"Roof", L"changed");
    EXPECT_TRUE(enterStateRecord(L"Roof", std::move(copy)));
    EXPECT_EQ(stateNames(), std::vector<std::wstring>({L"Plan", L"Roof", L"Attic"}));
    EXPECT_EQ(drawing().states[1].description, L"with tiles");
}

TEST_F(ImportedStates, AnEnteredCopyBringsADeletedStateBack) {
    std::unique_ptr<KelDbXrecord> copy(copyStateRecord(kCloneRecord, L"Roof", nullptr));
    states().deleteLayerState(L"Roof");
    KelDbXrecord* record = copy.release(); // the drawing's from here on
    EXPECT_EQ(copyStateRecord(kEnterRecord, L"Roof", record), record);
    EXPECT_TRUE(states().hasLayerState(L"Roof"));
}

TEST_F(ImportedStates, ARecordThatCannotBeEnteredIsDeletedAndTheStateStays) {
    for (const char* operation : {"layerStatesDictionaryId", "openObject", "dictionary.setAt"}) {
        std::unique_ptr<KelDbXrecord> copy(copyStateRecord(kCloneRecord, L"Roof", nullptr));
        ASSERT_NE(copy, nullptr);
        instruments::failCall(operation, 1);
        EXPECT_FALSE(enterStateRecord(L"Roof", std::move(copy))) << operation;
        EXPECT_EQ(stateNames().size(), 3u) << operation;
    }
}

TEST_F(ImportedStates, WhereTheRecordCannotBeCopiedThereIsNone) {
    for (const char* operation : {"clone", "openObject"}) {
        instruments::failCall(operation, 1);
        EXPECT_EQ(copyStateRecord(kCloneRecord, L"Roof", nullptr), nullptr) << operation;
    }
}

// The engine's own sweep makes the database; no fixture's may be the current one meanwhile.
void prepare(KelDbDatabase& database) {
    engine::replaceDrawing(database, makeDrawing({{.name = L"Walls", .color = 1}}));
    for (const wchar_t* name : {L"Plan", L"Roof"})
        EXPECT_EQ(database.getLayerStateManager()->saveLayerState(name, MaskColor), Vorn::eOk);
}

void copyAndEnter(KelDbDatabase& database) {
    KelDbLayerStateManager* states = database.getLayerStateManager();
    CString name;
    LayerStateMask mask = 0;
    RowNames plan;
    plan.add(L"Plan");
    if (!states || !findStateWithoutRow(*states, plan, name, mask))
        return;
    std::unique_ptr<KelDbXrecord> record(copyStateRecord(kCloneRecord, name, nullptr));
    if (record)
        enterStateRecord(name, std::move(record));
}

bool hasBoth(KelDbDatabase& database) {
    KelDbLayerStateManager* states = database.getLayerStateManager();
    return states->hasLayerState(L"Plan") && states->hasLayerState(L"Roof");
}

const sweep::Scenario kCopyAndEnter = {prepare, copyAndEnter, hasBoth, hasBoth};

TEST(ImportedStatesSweep, NoStateIsLostWhateverCallFails) {
    const sweep::Result result = sweep::failEachCall(kCopyAndEnter);
    EXPECT_THAT(result.problems, testing::IsEmpty());
    EXPECT_GT(result.failures, 12);
}

} // namespace
