// Reading and saving a drawing with each allocation failing once: both answer that, and leave what was there. Only
// natively, where this program's operator new is also the engine's.

#include "DrawingDifference.h"
#include "EngineTest.h"
#include "TemporaryFolder.h"
#include "files/DrawingFile.h"

#include <cstdlib>
#include <new>

namespace {

int g_allocationsLeft = 0; // until one fails; 0: none is to

/// Lets one allocation fail while it lives.
class FailingAllocation {
  public:
    explicit FailingAllocation(int nth) { g_allocationsLeft = nth; }
    ~FailingAllocation() { g_allocationsLeft = 0; }
    FailingAllocation(const FailingAllocation&) = delete;
    FailingAllocation& operator=(const FailingAllocation&) = delete;
    bool hasStruck() const { return g_allocationsLeft == 0; }
};

} // namespace

// All forms but the aligned ones, so that none of the sanitizer's own is mixed with these.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    if (g_allocationsLeft > 0 && --g_allocationsLeft == 0)
        return nullptr;
    return std::malloc(size == 0 ? 1 : size);
}
void* operator new(std::size_t size) {
    if (void* memory = operator new(size, std::nothrow))
        return memory;
    throw std::bad_alloc();
}
void* operator new[](std::size_t size) {
    return operator new(size);
}
void* operator new[](std::size_t size, const std::nothrow_t& nothrow) noexcept {
    return operator new(size, nothrow);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}

class AllocationSweep : public testing::Test {
  protected:
    AllocationSweep() { EXPECT_EQ(zdr::writeDrawingFile(m_path, m_old, m_reason, m_stamp), Vorn::eOk); }

    const TemporaryFolder m_folder;
    const std::wstring m_path = m_folder.file(L"plan.zdr");
    /// As it stands in a database.
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
