// A disk that is full leaves the old file, nothing beside it, and a sentence with the path and the reason. A real small
// disk where this program may mount one; the limit on the size of its files, which fails a write in the same way,
// anywhere.
#include "SampleDrawing.h"
#include "TemporaryFolder.h"
#include "engine/DatabaseAccess.h"
#include "files/DrawingFile.h"
#include "files/TextCoding.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <fstream>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>

using namespace zdr;
using testing::HasSubstr;

namespace {

/// No file grows beyond `bytes` while it lives: the same as a full disk, but for this program only.
class FileSizeLimit {
  public:
    explicit FileSizeLimit(rlim_t bytes) {
        m_signal = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit limit = m_before;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_signal);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

  private:
    rlimit m_before{};
    void (*m_signal)(int);
};

/// A disk of 64 KB in the memory, seen by this program alone, so that nothing stays mounted whatever happens.
class SmallDisk {
  public:
    explicit SmallDisk(const std::filesystem::path& folder) : m_folder(folder.string()) {
        m_mounted = unshare(CLONE_NEWNS) == 0 && mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
                    mount("none", m_folder.c_str(), "tmpfs", 0, "size=64k") == 0;
    }
    ~SmallDisk() {
        if (m_mounted)
            umount2(m_folder.c_str(), MNT_DETACH);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;
    bool isMounted() const { return m_mounted; }

  private:
    std::string m_folder;
    bool m_mounted;
};

/// A drawing, and a layer state in it, that have room only once on a small disk.
Drawing largeDrawing() {
    Drawing drawing = sampleDrawing();
    drawing.states[0].description = std::wstring(40'000, L'x');
    return drawing;
}

class FullDisk : public testing::Test {
  protected:
    void SetUp() override {
        engine::replaceDrawing(m_database, largeDrawing());
        ASSERT_EQ(saveDrawing(), Vorn::eOk) << m_reason;
        m_oldDrawing = bytesOf(m_drawing);
    }
    Vorn::ErrorStatus saveDrawing() {
        std::wstring reason;
        const Vorn::ErrorStatus status = writeDrawingFile(m_drawing, largeDrawing(), reason, m_stamp);
        m_reason = toUtf8(reason);
        return status;
    }
    Vorn::ErrorStatus exportState() {
        const Vorn::ErrorStatus status =
            m_database.getLayerStateManager()->exportLayerState(L"As drawn", m_state.c_str());
        m_reason = toUtf8(engine::lastFileProblem(m_database));
        return status;
    }
    void expectFailure(const std::wstring& path, const char* reason, std::size_t entries) {
        EXPECT_THAT(m_reason, HasSubstr("The file \"" + toUtf8(path) + "\" can't be written: "));
        EXPECT_THAT(m_reason, HasSubstr(reason));
        EXPECT_EQ(m_folder.entries(), entries) << "something was left beside the file";
    }

    TemporaryFolder m_folder;
    KelDbDatabase m_database{false, false};
    const std::wstring m_drawing = m_folder.file(L"drawing.zdr"), m_state = m_folder.file(L"state.las");
    FileStamp m_stamp;
    std::vector<std::byte> m_oldDrawing;
    std::string m_reason;
};

/// The same on a disk that has room for one of the files.
class FullSmallDisk : public FullDisk {
  protected:
    void SetUp() override {
        if (!m_disk.isMounted())
            GTEST_SKIP() << "mounting a small disk isn't allowed here";
        FullDisk::SetUp();
    }
    SmallDisk m_disk{m_folder.path()};
};

} // namespace

TEST_F(FullSmallDisk, aDrawingThatHasNoRoomLeavesTheOldOne) {
    const FileStamp before = m_stamp;
    EXPECT_EQ(saveDrawing(), Vorn::eFileWriteFailed);
    expectFailure(m_drawing, "because of \"No space left on device\"", 1);
    EXPECT_EQ(bytesOf(m_drawing), m_oldDrawing);
    EXPECT_EQ(m_stamp.content, before.content);
}

TEST_F(FullSmallDisk, aLayerStatesFileThatHasNoRoomLeavesTheOldOne) {
    std::ofstream(systemPath(m_state)) << "old";
    const std::vector<std::byte> old = bytesOf(m_state);
    EXPECT_EQ(exportState(), Vorn::eFileWriteFailed);
    expectFailure(m_state, "because of \"No space left on device\"", 2);
    EXPECT_EQ(bytesOf(m_state), old);
    std::filesystem::remove(systemPath(m_drawing));
    EXPECT_EQ(exportState(), Vorn::eOk) << m_reason;
}

TEST_F(FullDisk, aWriteThatFailsAnywhereLeavesTheOldFile) {
    ASSERT_EQ(exportState(), Vorn::eOk) << m_reason;
    const std::vector<std::byte> oldState = bytesOf(m_state);
    for (const rlim_t room : {rlim_t{0}, rlim_t{1}, rlim_t{100}, rlim_t{40'000}, rlim_t{m_oldDrawing.size() - 1}}) {
        SCOPED_TRACE(room);
        const FileSizeLimit limit(room);
        EXPECT_EQ(saveDrawing(), Vorn::eFileWriteFailed);
        expectFailure(m_drawing, "writing failed, because of \"", 2);
    }
    {
        const FileSizeLimit limit(oldState.size() - 1);
        EXPECT_EQ(exportState(), Vorn::eFileWriteFailed);
        expectFailure(m_state, "writing failed, because of \"", 2);
    }
    EXPECT_EQ(bytesOf(m_drawing), m_oldDrawing);
    EXPECT_EQ(bytesOf(m_state), oldState);
}
