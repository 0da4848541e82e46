// Reading a state with each allocation failing once: what has been read stands. Only natively.

#include "StateReading.h"

#include "DomainTest.h"
#include "FailingAllocation.h"
#include "LayerRecords.h"

#include <algorithm>
#include <new>

namespace {

class StateReadingMemory : public DomainTest {
  protected:
    StateReadingMemory() {
        EXPECT_EQ(states().saveLayerState(L"Plan", MaskAllProperties), Vorn::eOk);
        // The instruments use memory for their lines, which isn't what is to fail here.
        instruments::watch(false);
    }
    ~StateReadingMemory() override { deleteRecords(m_layers); }
    /// Whether the task ended without an exception for lack of memory.
    template <class Task> static bool runShortOfMemory(Task task) {
        try {
            task();
            return true;
        } catch (const std::bad_alloc&) {
            return false;
        } catch (CMemoryException* exception) {
            exception->Delete();
            return false;
        }
    }
    std::vector<std::wstring> namesRead() {
        std::vector<std::wstring> found;
        forEachRecord(m_layers, [&](const CLayerRcd& record) { found.emplace_back(record.m_name.GetString()); });
        return found;
    }
    CObList m_layers;
};

TEST_F(StateReadingMemory, GivesLayersOfTheStateInItsOrderWhicheverAllocationFails) {
    const std::vector<std::wstring> all = layersOf(L"Plan");
    bool struck = true;
    std::size_t cutShort = 0;
    for (int nth = 1; struck; ++nth) {
        deleteRecords(m_layers);
        {
            const FailingAllocation failing(nth);
            runShortOfMemory([this] { readStateLayers(&m_database, L"Plan", m_layers); });
            struck = failing.hasStruck();
        }
        const std::vector<std::wstring> read = namesRead();
        auto next = all.begin();
        for (const std::wstring& name : read) {
            next = std::find(next, all.end(), name);
            ASSERT_NE(next, all.end()) << "allocation " << nth;
            ++next;
        }
        cutShort += !read.empty() && read.size() < all.size();
    }
    EXPECT_EQ(namesRead(), all);
    EXPECT_GT(cutShort, 0u);
}

TEST_F(StateReadingMemory, TellsWhenThereIsNoRecordForAnAddedLayer) {
    const KelDbObjectId doors = layerId(L"Doors");
    int told = 0;
    bool struck = true;
    for (int nth = 1; struck; ++nth) {
        std::unique_ptr<CLayerRcd> record;
        bool outOfMemory = false;
        bool thrown = false;
        {
            const FailingAllocation failing(nth);
            thrown = !runShortOfMemory([&] { record = readAddedLayer(m_database, doors, outOfMemory); });
            struck = failing.hasStruck();
        }
        EXPECT_FALSE(record && (thrown || outOfMemory)) << "allocation " << nth;
        EXPECT_TRUE(struck || (record && record->m_isAdded));
        told += outOfMemory;
    }
    EXPECT_EQ(told, 1) << "the record's own";
}

} // namespace
