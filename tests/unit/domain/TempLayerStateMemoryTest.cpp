// The guard around work on the real layers with each of its allocations failing once: it never ends the process, and
// the layers are as before, unless the throw-away state couldn't be saved, or is still there. Only natively.

#include "CTempLayerState.h"
#include "DomainTest.h"
#include "FailingAllocation.h"

#include <memory>
#include <new>

namespace {

constexpr std::uint32_t kBefore = 7, kByTheTask = 3;

} // namespace

class TempLayerStateMemory : public DomainTest {
  protected:
    // The instruments use memory for their lines, which isn't what is to fail here.
    TempLayerStateMemory() { instruments::watch(false); }
    bool layersAreBack() const { return values(L"Walls").color == kBefore; }
    /// Puts everything as it was before the guard.
    void clear() {
        for (const std::wstring& name : stateNames())
            states().deleteLayerState(name.c_str());
        setColor(L"Walls", kBefore);
    }
};

TEST_F(TempLayerStateMemory, ItsEndPutsTheLayersBackOrLeavesTheStateWhicheverAllocationFails) {
    bool struck = true;
    int kept = 0;
    for (int nth = 1; struck; ++nth) {
        auto guard = std::make_unique<CTempLayerState>();
        ASSERT_EQ(stateNames().size(), 1u);
        setColor(L"Walls", kByTheTask);
        {
            const FailingAllocation failing(nth);
            guard.reset();
            struck = failing.hasStruck();
        }
        const bool stateStays = !stateNames().empty();
        ASSERT_TRUE(layersAreBack() || stateStays) << "allocation " << nth;
        kept += stateStays && !layersAreBack();
        if (stateStays) {
            const std::wstring name = stateNames().front();
            EXPECT_EQ(states().restoreLayerState(name.c_str(), {}, 0, nullptr), Vorn::eOk) << "allocation " << nth;
            EXPECT_TRUE(layersAreBack()) << "it is the copy of the user's layers; allocation " << nth;
        }
        EXPECT_TRUE(struck || !stateStays);
        clear();
    }
    EXPECT_GT(kept, 0) << "the restore asks for memory";
}

TEST_F(TempLayerStateMemory, ItsBeginningSavesTheLayersOrLeavesTheTaskUnprotectedOrThrows) {
    bool struck = true;
    int unprotected = 0;
    for (int nth = 1; struck; ++nth) {
        std::unique_ptr<CTempLayerState> guard;
        {
            const FailingAllocation failing(nth);
            try {
                guard.reset(new CTempLayerState);
            } catch (const std::bad_alloc&) {
                // The task doesn't begin then.
            } catch (CMemoryException* exception) {
                exception->Delete();
            }
            struck = failing.hasStruck();
        }
        const bool saved = !stateNames().empty();
        unprotected += guard && !saved;
        if (guard) {
            setColor(L"Walls", kByTheTask);
            guard.reset();
            EXPECT_EQ(layersAreBack(), saved) << "allocation " << nth;
        }
        EXPECT_EQ(stateNames().size(), 0u) << "allocation " << nth;
        clear();
    }
    EXPECT_GT(unprotected, 0) << "the save asks for memory";
}
