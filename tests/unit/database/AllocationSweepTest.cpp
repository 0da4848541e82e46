// Reading and saving a drawing, and reading a layer states file into it, with each allocation failing once: all answer
// a failure, and leave what was there. Only natively.

#include "DrawingDifference.h"
#include "EngineTest.h"
#include "FailingAllocation.h"
#include "TemporaryFolder.h"
#include "files/DrawingFile.h"
#include "files/TextCoding.h"
#include "statefile/StateFile.h"

class AllocationSweep : public testing::Test {
  protected:
    AllocationSweep() { EXPECT_EQ(zdr::writeDrawingFile(m_path, m_old, m_reason, m_stamp), Vorn::eOk); }

    const TemporaryFolder m_folder;
    const std::wstring m_path = m_folder.file(L"plan.zdr");
    /// The drawing as a database holds it.
    static zdr::Drawing complete(zdr::Drawing drawing) {
        KelDbDatabase database(false, false);
        engine::replaceDrawing(database, std::move(drawing));
        return engine::drawingOf(database);
    }
    const zdr::Drawing m_old = complete(makeDrawing({{L"Walls"}}));
    const zdr::Drawing m_new = complete(makeDrawing({{L"Doors"}, {L"Furniture"}}));
    zdr::FileStamp m_stamp;
    std::wstring m_reason;
};

TEST_F(AllocationSweep, SavingKeepsTheOldFileWhicheverAllocationFails) {
    const std::vector<std::byte> before = bytesOf(m_path);
    for (int nth = 1;; ++nth) {
        m_reason.clear();
        Vorn::ErrorStatus status = Vorn::eOk;
        bool struck = false;
        {
            const FailingAllocation failing(nth);
            status = zdr::writeDrawingFile(m_path, m_new, m_reason, m_stamp);
            struck = failing.hasStruck();
        }
        if (!struck) {
            EXPECT_EQ(status, Vorn::eOk);
            EXPECT_NE(bytesOf(m_path), before);
            EXPECT_GT(nth, 50);
            return;
        }
        ASSERT_EQ(status, Vorn::eFileWriteFailed) << "allocation " << nth;
        ASSERT_NE(m_reason, L"");
        ASSERT_EQ(bytesOf(m_path), before) << "allocation " << nth;
        ASSERT_EQ(m_folder.entries(), 1u) << "allocation " << nth;
    }
}

TEST_F(AllocationSweep, ReadingLeavesTheDrawingAsItWasWhicheverAllocationFails) {
    zdr::Drawing drawing = m_new;
    for (int nth = 1;; ++nth) {
        m_reason.clear();
        Vorn::ErrorStatus status = Vorn::eOk;
        bool struck = false;
        {
            const FailingAllocation failing(nth);
            status = zdr::readDrawingFile(m_path, drawing, m_reason);
            struck = failing.hasStruck();
        }
        if (!struck) {
            EXPECT_EQ(status, Vorn::eOk);
            EXPECT_EQ(difference(drawing, m_old), "");
            EXPECT_GT(nth, 50);
            return;
        }
        ASSERT_EQ(status, Vorn::eFileUnreadable) << "allocation " << nth;
        ASSERT_NE(m_reason, L"");
        ASSERT_EQ(difference(drawing, m_new), "") << "allocation " << nth;
    }
}

TEST_F(AllocationSweep, ImportingAStateIsDoneWholeOrNotAtAllWhicheverAllocationFails) {
    const std::wstring path = zdr::widePath(TEST_DATA) + L"/state_version2.las";
    for (int nth = 1;; ++nth) {
        SCOPED_TRACE("allocation " + std::to_string(nth));
        KelDbDatabase database(false, false);
        engine::replaceDrawing(database, m_old);
        const zdr::Drawing before = engine::drawingOf(database);
        std::wstring name;
        Vorn::ErrorStatus status = Vorn::eOk;
        bool struck = false;
        {
            const FailingAllocation failing(nth);
            status = engine::readStateFile(engine::impOf(database), path, name);
            struck = failing.hasStruck();
        }
        zdr::Drawing after = engine::drawingOf(database);
        ASSERT_EQ(after.states.size(), status == Vorn::eOk ? 1u : 0u);
        if (!struck) {
            EXPECT_EQ(status, Vorn::eOk);
            EXPECT_GT(nth, 50);
            return;
        }
        if (status == Vorn::eOk) // an index can do without its memory
            continue;
        ASSERT_EQ(status, Vorn::eFileUnreadable);
        after.nextHandle = before.nextHandle; // one may be passed over
        ASSERT_EQ(difference(after, before), "");
    }
}
