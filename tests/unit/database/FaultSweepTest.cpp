// Every scenario of the engine with each of its host calls failing once, and with each allocation failing once; and the
// sweeps themselves over scenarios that aren't careful.

#include "EngineTest.h"
#include "KelDbPointers.h"
#include "SweepScenarios.h"
#include "WholeDrawing.h"

using testing::AllOf;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

std::string nameOf(const testing::TestParamInfo<NamedScenario>& test) {
    return test.param.name;
}

} // namespace

class EngineScenario : public testing::TestWithParam<NamedScenario> {};

TEST_P(EngineScenario, LeavesAWholeDrawingWhicheverCallFails) {
    const sweep::Result result = sweep::failEachCall(GetParam().scenario);
    EXPECT_THAT(result.problems, IsEmpty());
    EXPECT_GT(result.failures, 0);
}

TEST_P(EngineScenario, LeavesAWholeDrawingWhicheverAllocationFails) {
    EXPECT_THAT(sweep::failEachAllocation(GetParam().scenario).problems, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(OfStates, EngineScenario, testing::ValuesIn(stateScenarios()), nameOf);
INSTANTIATE_TEST_SUITE_P(OfObjects, EngineScenario, testing::ValuesIn(objectScenarios()), nameOf);

namespace {

void nothing(KelDbDatabase&) {}
bool always(KelDbDatabase&) {
    return true;
}

// Forgets its record when the layer can't be frozen.
void leaveOpen(KelDbDatabase& database) {
    KelDbLayerTableRecord* record = nullptr;
    if (keldbOpenObject(record, database.clayer(), KelDb::kForWrite) != Vorn::eOk)
        return;
    if (record->setLineWeight(25) == Vorn::eOk)
        record->close();
}

wchar_t* g_kept = nullptr;

// Doesn't give the name back when there is no memory for the description.
void keepText(KelDbDatabase& database) {
    KelDbLayerTableRecord* record = nullptr;
    if (keldbOpenObject(record, database.clayer(), KelDb::kForRead) != Vorn::eOk)
        return;
    wchar_t* name = nullptr;
    record->getName(name);
    wchar_t* description = record->description();
    record->close();
    if (!description) {
        g_kept = name;
        return;
    }
    kelutDelBuffer(description);
    kelutDelBuffer(name);
}

} // namespace

TEST(FaultSweep, FailsEachCallOnceAndThenNone) {
    int runs = 0;
    const sweep::Result result = sweep::failEachCall({prepareStates,
                                                      [&runs](KelDbDatabase& database) {
                                                          ++runs;
                                                          KelDbLayerStateManager* states =
                                                              database.getLayerStateManager();
                                                          if (states && states->hasLayerState(L"Plan"))
                                                              states->deleteLayerState(L"Plan");
                                                      },
                                                      always});
    EXPECT_THAT(result.problems, IsEmpty());
    EXPECT_EQ(result.failures, 3);
    EXPECT_EQ(runs, 5); // one without faults before, and one in which the fourth call would have failed
}

TEST(FaultSweep, TellsWhatAScenarioLeavesOpenAndAfterWhichCall) {
    EXPECT_THAT(sweep::failEachCall({nothing, leaveOpen, always}).problems,
                Contains(AllOf(HasSubstr("record.setLineWeight"), HasSubstr("open for write"))));
}

TEST(FaultSweep, TellsWhatAScenarioKeepsWhenMemoryRunsOut) {
    EXPECT_THAT(sweep::failEachAllocation({nothing, keepText, always}).problems,
                Contains(AllOf(HasSubstr("allocation"), HasSubstr("copy of the name"))));
    kelutDelBuffer(g_kept);
}

TEST(FaultSweep, TellsThatAScenarioDidNothing) {
    const sweep::Result result = sweep::failEachCall({nothing, nothing, [](KelDbDatabase&) { return false; }});
    EXPECT_THAT(result.problems, Contains(HasSubstr("isn't done")));
}

TEST(FaultSweep, TellsThatADrawingIsNotWhole) {
    const auto dropLayerSet = [](KelDbDatabase& database) {
        const auto& drawing = engine::drawingOf(database);
        const_cast<zdr::Drawing&>(drawing).layerSet = std::make_shared<zdr::LayerSet>();
    };
    EXPECT_THAT(sweep::failEachCall({nothing, dropLayerSet, always}).problems, Contains(HasSubstr("set of layers")));
}

using WholeDrawing = EngineTest;

TEST_F(WholeDrawing, HasNoProblem) {
    states().saveLayerState(L"Plan", 5, viewportId());
    restore(L"Plan", RestoreFlagAsOverrides, viewportId());
    EXPECT_THAT(wholenessProblems(m_database), IsEmpty());
}

TEST_F(WholeDrawing, HasEachLayerOnceInAState) {
    states().saveLayerState(L"Plan", 5);
    auto twice = std::make_shared<zdr::LayerSet>(*drawing().layerSet);
    twice->names[1] = twice->names[2];
    const_cast<zdr::Drawing&>(drawing()).states[0].layers = twice;
    EXPECT_THAT(wholenessProblems(m_database), Contains(HasSubstr("a layer once (Plan)")));
}

TEST_F(WholeDrawing, HasOneHandleForOneThing) {
    states().saveLayerState(L"Plan", 5);
    const_cast<zdr::Drawing&>(drawing()).states[0].handle = drawing().layers[0].handle;
    EXPECT_THAT(wholenessProblems(m_database), Contains(HasSubstr("a handle of its own")));
}

TEST_F(WholeDrawing, CanBeSaved) {
    const_cast<zdr::Drawing&>(drawing()).columns.flags.set(0, 64);
    EXPECT_THAT(wholenessProblems(m_database), Contains(HasSubstr("can be saved and read")));
}
