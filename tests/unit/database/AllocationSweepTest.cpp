// Reading and saving a drawing with each allocation failing once: both answer a failure, and leave what was there. Only
// natively.

#include "DrawingDifference.h"
#include "EngineTest.h"
#include "FailingAllocation.h"
#include "TemporaryFolder.h"
#include "files/DrawingFile.h"

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
