// Copying a state's record and entering it again with each allocation failing once: no state is lost, and nothing stays
// open, so that the same goes well afterwards. Only natively.

#include "ImportedStates.h"

#include "DomainTest.h"
#include "FailingAllocation.h"
#include "WholeDrawing.h"

#include <new>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class ImportedStatesMemory : public DomainTest {
  protected:
    // The instruments use memory for their lines, which isn't what is to fail here.
    ImportedStatesMemory() { instruments::watch(false); }

    /// Takes "Roof" for the state that has come.
    bool copyAndEnter() {
        CString name;
        LayerStateMask mask = 0;
        RowNames plan;
        plan.add(L"Plan");
        if (!findStateWithoutRow(states(), plan, name, mask))
            return false;
        std::unique_ptr<KelDbXrecord> record(copyStateRecord(kCloneRecord, name, nullptr));
        return record && enterStateRecord(name, std::move(record));
    }
    bool copyAndEnterWithFailing(int nth, bool& struck) {
        const FailingAllocation failing(nth);
        bool done = false;
        try {
            done = copyAndEnter();
        } catch (const std::bad_alloc&) {
            // The module has no memory; the import ends.
        } catch (CMemoryException* exception) {
            exception->Delete();
        }
        struck = failing.hasStruck();
        return done;
    }
};

TEST_F(ImportedStatesMemory, NoStateIsLostWhicheverAllocationFails) {
    for (const wchar_t* name : {L"Plan", L"Roof"})
        EXPECT_EQ(states().saveLayerState(name, MaskColor), Vorn::eOk);
    const zdr::Drawing before = drawing();
    bool struck = true;
    int failures = 0;
    for (int nth = 1; struck; ++nth) {
        use(before);
        const bool done = copyAndEnterWithFailing(nth, struck);
        ASSERT_TRUE(done || struck) << "allocation " << nth;
        ASSERT_THAT(stateNames(), ElementsAre(L"Plan", L"Roof")) << "allocation " << nth;
        ASSERT_THAT(wholenessProblems(m_database), IsEmpty()) << "allocation " << nth;
        ASSERT_TRUE(copyAndEnter()) << "the next time, after allocation " << nth;
        failures += !done;
    }
    EXPECT_GT(failures, 0) << "it asks for memory";
}

} // namespace
