// What saving does about locked and protected files on Windows.
#include "SampleDrawing.h"
#include "TemporaryFolder.h"
#include "files/DrawingFile.h"
#include "files/TextCoding.h"

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace zdr;
using testing::HasSubstr;

namespace {

class SavingOnWindows : public testing::Test {
  protected:
    void SetUp() override { ASSERT_EQ(save(plainDrawing()), Vorn::eOk) << m_reason; }
    Vorn::ErrorStatus save(const Drawing& drawing) {
        std::wstring wide;
        const Vorn::ErrorStatus status = writeDrawingFile(m_path, drawing, wide, m_stamp);
        m_reason = toUtf8(wide);
        return status;
    }

    TemporaryFolder m_folder;
    std::wstring m_path = m_folder.file(L"drawing.zdr");
    FileStamp m_stamp;
    std::string m_reason;
};

} // namespace

TEST_F(SavingOnWindows, aFileHeldOpenByAnotherProgramStaysAsItIs) {
    const std::vector<std::byte> old = bytesOf(m_path);
    const HANDLE other = CreateFileW(m_path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(other, INVALID_HANDLE_VALUE);
    EXPECT_EQ(save(sampleDrawing()), Vorn::eFileWriteFailed);
    CloseHandle(other);
    EXPECT_THAT(m_reason, HasSubstr("can't be written: replacing the old file failed"));
    EXPECT_EQ(bytesOf(m_path), old);
    EXPECT_EQ(m_folder.entries(), 1u);
    EXPECT_EQ(save(sampleDrawing()), Vorn::eOk) << m_reason;
}

TEST_F(SavingOnWindows, aProtectedFileStaysAsItIs) {
    const std::vector<std::byte> old = bytesOf(m_path);
    SetFileAttributesW(m_path.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(save(sampleDrawing()), Vorn::eFileWriteFailed);
    SetFileAttributesW(m_path.c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(bytesOf(m_path), old);
    EXPECT_EQ(m_folder.entries(), 1u);
}

TEST_F(SavingOnWindows, aFileThatNobodyElseMayReadIsUnreadable) {
    const HANDLE other = CreateFileW(m_path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(other, INVALID_HANDLE_VALUE);
    Drawing drawing;
    std::wstring reason;
    EXPECT_EQ(readDrawingFile(m_path, drawing, reason), Vorn::eFileUnreadable);
    CloseHandle(other);
    EXPECT_THAT(toUtf8(reason), HasSubstr("can't be opened for reading"));
}
