// Reading a layer that enters a state with each of its allocations failing once. Only natively.

#include "DomainTest.h"
#include "FailingAllocation.h"
#include "StateReading.h"
#include "engine/DatabaseAccess.h"

#include <new>

class AddedLayerMemory : public DomainTest {
  protected:
    // The instruments use memory for their lines, which isn't what is to fail here.
    AddedLayerMemory() { instruments::watch(false); }

    struct Reading {
        bool struck = false;
        bool outOfMemory = false;
        bool thrown = false;
        std::unique_ptr<CLayerRcd> record;
    };
    /// With the n-th allocation failing.
    Reading read(int nth) {
        const KelDbObjectId walls = engine::layerId(m_database, 1);
        Reading reading;
        const FailingAllocation failing(nth);
        try {
            reading.record = readAddedLayer(m_database, walls, reading.outOfMemory);
        } catch (CMemoryException* exception) {
            exception->Delete();
            reading.thrown = true;
        } catch (const std::bad_alloc&) {
            reading.thrown = true;
        }
        reading.struck = failing.hasStruck();
        return reading;
    }
};

TEST_F(AddedLayerMemory, IsToldOfOnceWhereItLacksForTheRecord) {
    int told = 0;
    for (int nth = 1;; ++nth) {
        const Reading reading = read(nth);
        told += reading.outOfMemory;
        ASSERT_FALSE(reading.outOfMemory && (reading.record || reading.thrown)) << "allocation " << nth;
        if (!reading.struck) {
            EXPECT_TRUE(reading.record && reading.record->m_isAdded);
            break;
        }
    }
    EXPECT_EQ(told, 1);
}
