// Saving replaces a file as a whole or not at all, and never what someone else wrote.
#include "DrawingDifference.h"
#include "SampleDrawing.h"
#include "TemporaryFolder.h"
#include "files/DrawingFile.h"
#include "files/SystemFile.h"
#include "files/TextCoding.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

using namespace zdr;
using testing::HasSubstr;

namespace {

class Saving : public testing::Test {
  protected:
    Vorn::ErrorStatus save(const Drawing& drawing, Overwrite overwrite = Overwrite::IfUnchanged) {
        std::wstring wide;
        const Vorn::ErrorStatus status = writeDrawingFile(m_path, drawing, wide, m_stamp, overwrite);
        m_reason = toUtf8(wide);
        return status;
    }
    void read() {
        std::wstring reason;
        ASSERT_EQ(readDrawingFile(m_path, m_drawing, reason, &m_stamp), Vorn::eOk) << toUtf8(reason);
    }
    /// Writes the file as another program would, with its own idea of the time.
    void writeAsAnother(std::span<const std::byte> bytes) { writeBytes(m_path, bytes); }

    TemporaryFolder m_folder;
    std::wstring m_path = m_folder.file(L"drawing.zdr");
    FileStamp m_stamp;
    Drawing m_drawing;
    std::string m_reason;
};

std::vector<std::byte> someBytes(std::size_t size) {
    return std::vector<std::byte>(size, std::byte{42});
}

/// Folders within folders, too deep for the 260 characters of old programs; removed with the file "drawing.zdr" in
/// them.
class LongFolder {
  public:
    explicit LongFolder(const std::filesystem::path& parent) {
        std::filesystem::path folder = parent;
        for (const char letter : {'a', 'b', 'c', 'd'}) {
            folder /= std::string(80, letter);
            m_folders.push_back(folder);
            std::filesystem::create_directory(extended(folder));
        }
    }
    ~LongFolder() {
        // One by one, because the library's own way down a tree takes no long paths on Windows.
        std::error_code error;
        std::filesystem::remove(extended(path() / "drawing.zdr"), error);
        for (auto folder = m_folders.rbegin(); folder != m_folders.rend(); ++folder)
            std::filesystem::remove(extended(*folder), error);
    }
    LongFolder(const LongFolder&) = delete;
    LongFolder& operator=(const LongFolder&) = delete;
    const std::filesystem::path& path() const { return m_folders.back(); }

  private:
    /// The form in which Windows takes long paths from the library.
    static std::filesystem::path extended(const std::filesystem::path& path) {
#if defined(_WIN32)
        return L"\\\\?\\" + path.wstring();
#else
        return path;
#endif
    }
    std::vector<std::filesystem::path> m_folders;
};

} // namespace

TEST_F(Saving, aNewFileIsTheOnlyOneInItsFolder) {
    ASSERT_EQ(save(sampleDrawing()), Vorn::eOk) << m_reason;
    EXPECT_EQ(m_folder.entries(), 1u);
    read();
    EXPECT_EQ(difference(m_drawing, sampleDrawing()), "");
}

TEST_F(Saving, aSecondSaveReplacesTheFirst) {
    ASSERT_EQ(save(sampleDrawing()), Vorn::eOk) << m_reason;
    ASSERT_EQ(save(plainDrawing()), Vorn::eOk) << m_reason;
    EXPECT_EQ(m_folder.entries(), 1u);
    read();
    EXPECT_EQ(difference(m_drawing, plainDrawing()), "");
}

TEST_F(Saving, aReadDrawingIsSavedOverItsOwnFileWhileItLooksAtItsBytes) {
    ASSERT_EQ(save(sampleDrawing()), Vorn::eOk) << m_reason;
    read();
    m_drawing.states[0].columns.colors.set(0, 99);
    ASSERT_EQ(save(m_drawing), Vorn::eOk) << m_reason;
    const Drawing kept = m_drawing;
    read();
    EXPECT_EQ(difference(m_drawing, kept), "");
    EXPECT_EQ(m_drawing.states[0].columns.colors[0], 99u);
}

TEST_F(Saving, aFileThatWasNotThereBeforeIsNotOverwritten) {
    writeAsAnother(someBytes(10));
    EXPECT_EQ(save(plainDrawing()), Vorn::eFileChangedOnDisk);
    EXPECT_THAT(m_reason, HasSubstr("drawing.zdr\" stands there already"));
    EXPECT_EQ(bytesOf(m_path), someBytes(10));
    EXPECT_EQ(m_folder.entries(), 1u);
}

TEST_F(Saving, aFileOfAnotherLengthIsNotOverwritten) {
    ASSERT_EQ(save(sampleDrawing()), Vorn::eOk) << m_reason;
    writeAsAnother(someBytes(10));
    EXPECT_EQ(save(plainDrawing()), Vorn::eFileChangedOnDisk);
    EXPECT_THAT(m_reason, HasSubstr("drawing.zdr\" was changed by another program"));
    EXPECT_EQ(bytesOf(m_path), someBytes(10));
}

TEST_F(Saving, aFileOfTheSameLengthIsNotOverwrittenEvenInTheSameTick) {
    ASSERT_EQ(save(sampleDrawing()), Vorn::eOk) << m_reason;
    const auto time = std::filesystem::last_write_time(systemPath(m_path));
    std::vector<std::byte> bytes = bytesOf(m_path);
    bytes.back() ^= std::byte{1};
    writeAsAnother(bytes);
    std::filesystem::last_write_time(systemPath(m_path), time);
    EXPECT_EQ(save(plainDrawing()), Vorn::eFileChangedOnDisk);
    EXPECT_EQ(bytesOf(m_path), bytes);
}

TEST_F(Saving, aFileThatWasOnlyTouchedIsOverwritten) {
    ASSERT_EQ(save(sampleDrawing()), Vorn::eOk) << m_reason;
    const auto later = std::filesystem::last_write_time(systemPath(m_path)) + std::chrono::hours(1);
    std::filesystem::last_write_time(systemPath(m_path), later);
    EXPECT_EQ(save(plainDrawing()), Vorn::eOk) << m_reason;
}

TEST_F(Saving, aFileThatWasReplacedByItsCopyIsOverwritten) {
    ASSERT_EQ(save(sampleDrawing()), Vorn::eOk) << m_reason;
    const std::vector<std::byte> bytes = bytesOf(m_path);
    std::filesystem::remove(systemPath(m_path));
    writeAsAnother(bytes);
    EXPECT_EQ(save(plainDrawing()), Vorn::eOk) << m_reason;
}

TEST_F(Saving, anOldFileIsKnownByItsFactsAlone) {
    ASSERT_EQ(save(sampleDrawing()), Vorn::eOk) << m_reason;
    const auto longAgo = std::filesystem::last_write_time(systemPath(m_path)) - std::chrono::hours(1);
    std::filesystem::last_write_time(systemPath(m_path), longAgo);
    read();
    m_stamp.content ^= 1; // would be a changed file if its bytes were looked at
    EXPECT_FALSE(isFileChanged(m_path, m_stamp));
}

TEST_F(Saving, aFileThatIsGoneIsWrittenAgain) {
    ASSERT_EQ(save(sampleDrawing()), Vorn::eOk) << m_reason;
    std::filesystem::remove(systemPath(m_path));
    EXPECT_EQ(save(plainDrawing()), Vorn::eOk) << m_reason;
}

TEST_F(Saving, aChangedFileIsOverwrittenWhenThatIsAskedFor) {
    ASSERT_EQ(save(sampleDrawing()), Vorn::eOk) << m_reason;
    writeAsAnother(someBytes(10));
    EXPECT_EQ(save(plainDrawing(), Overwrite::Always), Vorn::eOk) << m_reason;
    EXPECT_EQ(save(sampleDrawing()), Vorn::eOk) << "the stamp is of the file just written: " << m_reason;
}

TEST_F(Saving, aFolderThatIsMissingIsTold) {
    m_path = m_folder.file(L"missing\\drawing.zdr");
    EXPECT_EQ(save(plainDrawing()), Vorn::eFileWriteFailed);
    EXPECT_THAT(m_reason, HasSubstr("can't be written: making a file in its folder failed"));
    EXPECT_FALSE(m_stamp.known);
}

TEST_F(Saving, aFolderIsNotReplacedByAFile) {
    std::filesystem::create_directory(systemPath(m_path));
    EXPECT_EQ(save(plainDrawing(), Overwrite::Always), Vorn::eFileWriteFailed);
    EXPECT_THAT(m_reason, HasSubstr("can't be written"));
    EXPECT_TRUE(std::filesystem::is_directory(systemPath(m_path)));
    EXPECT_EQ(m_folder.entries(), 1u);
}

TEST_F(Saving, aSingleByteIsWrittenOnce) {
    ReplacementFile file(m_path);
    file.write(someBytes(1));
    EXPECT_EQ(file.flush().size, 1u);
    file.replace();
    EXPECT_EQ(bytesOf(m_path), someBytes(1));
}

TEST_F(Saving, anotherNameOfTheFileKeepsTheOldDrawing) {
    ASSERT_EQ(save(sampleDrawing()), Vorn::eOk) << m_reason;
    const std::vector<std::byte> old = bytesOf(m_path);
    const std::wstring other = m_folder.file(L"other.zdr");
    std::filesystem::create_hard_link(systemPath(m_path), systemPath(other));
    ASSERT_EQ(save(plainDrawing()), Vorn::eOk) << m_reason;
    EXPECT_EQ(bytesOf(other), old);
    EXPECT_NE(bytesOf(m_path), old);
}

TEST_F(Saving, aVeryLongPathWorks) {
    const LongFolder folder(m_folder.path());
    m_path = widePath(folder.path() / "drawing.zdr");
    ASSERT_GT(m_path.size(), 320u);
    ASSERT_EQ(save(sampleDrawing()), Vorn::eOk) << m_reason;
    ASSERT_EQ(save(sampleDrawing()), Vorn::eOk) << m_reason;
    read();
    EXPECT_EQ(difference(m_drawing, sampleDrawing()), "");
}

TEST_F(Saving, aReaderAtAnyMomentFindsAWholeDrawing) {
    ASSERT_EQ(save(sampleDrawing()), Vorn::eOk) << m_reason;
    std::string problems;
    int reads = 0;
    std::jthread reader([&](std::stop_token stop) {
        while (!stop.stop_requested()) {
            Drawing drawing;
            std::wstring reason;
            if (readDrawingFile(m_path, drawing, reason) != Vorn::eOk)
                problems += toUtf8(reason) + "\n";
            ++reads;
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
    });
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(300);
    int saves = 0;
    while (std::chrono::steady_clock::now() < end)
        saves += save(saves % 2 == 0 ? plainDrawing() : sampleDrawing()) == Vorn::eOk;
    reader.request_stop();
    reader.join();
    EXPECT_EQ(problems, "");
    EXPECT_GT(saves, 0);
    EXPECT_GT(reads, 0);
}
