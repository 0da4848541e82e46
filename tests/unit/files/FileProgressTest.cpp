// What is shown while a file is read or written, and what a user's cancelling leaves.
#include "SampleDrawing.h"
#include "TemporaryFolder.h"
#include "files/DrawingFile.h"
#include "files/FileProgress.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace zdr;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// What has been shown; one for the process, since the shower has no object.
struct Shown {
    std::vector<std::wstring> begun;
    std::uint64_t done = 0;
    std::uint64_t total = 0;
    int open = 0; ///< work that has begun and not ended
    bool goesOn = true;
    bool canBeShown = true;
} g_shown;

constexpr ProgressShower kShower = {
    [](FileWork kind, const std::wstring& path) -> void* {
        g_shown.begun.push_back((kind == FileWork::Reading ? L"read " : L"write ") + path);
        if (!g_shown.canBeShown)
            return nullptr;
        ++g_shown.open;
        return &g_shown;
    },
    [](void* work, std::uint64_t done, std::uint64_t total) {
        EXPECT_EQ(work, &g_shown);
        EXPECT_GE(done, g_shown.done);
        g_shown.done = done;
        g_shown.total = total;
        return g_shown.goesOn;
    },
    [](void*) { --g_shown.open; },
};

class Progress : public testing::Test {
  protected:
    Progress() {
        EXPECT_EQ(save(), Vorn::eOk);
        g_shown = {};
        setProgressShower(&kShower);
    }
    ~Progress() override {
        setProgressShower(nullptr);
        EXPECT_EQ(g_shown.open, 0);
        EXPECT_EQ(m_folder.entries(), 1u) << "a file was left";
    }
    Vorn::ErrorStatus save() { return writeDrawingFile(m_path, sampleDrawing(), m_reason, m_stamp); }
    Vorn::ErrorStatus read(Drawing& drawing) { return readDrawingFile(m_path, drawing, m_reason, &m_stamp); }
    std::uint64_t size() const { return bytesOf(m_path).size(); }

    TemporaryFolder m_folder;
    std::wstring m_path = m_folder.file(L"drawing.zdr");
    std::wstring m_reason;
    FileStamp m_stamp;
};

TEST_F(Progress, ofReadingIsShownToItsEnd) {
    Drawing drawing;
    EXPECT_EQ(read(drawing), Vorn::eOk);
    EXPECT_THAT(g_shown.begun, ElementsAre(L"read " + m_path));
    EXPECT_EQ(g_shown.done, size());
    EXPECT_EQ(g_shown.total, size());
}

TEST_F(Progress, ofWritingIsShownToItsEnd) {
    EXPECT_EQ(save(), Vorn::eOk);
    EXPECT_THAT(g_shown.begun, ElementsAre(L"write " + m_path));
    EXPECT_EQ(g_shown.done, size());
    EXPECT_EQ(g_shown.total, size());
}

TEST_F(Progress, aCancelledReadingLeavesTheDrawingAsItWas) {
    g_shown.goesOn = false;
    Drawing drawing;
    drawing.defaultLineWeight = 77;
    EXPECT_EQ(read(drawing), Vorn::eCancelled);
    EXPECT_EQ(drawing.defaultLineWeight, 77);
    EXPECT_THAT(drawing.layers, IsEmpty());
    EXPECT_EQ(m_reason, L"The file \"" + m_path + L"\" isn't read, because that was cancelled.");
}

TEST_F(Progress, aCancelledWritingLeavesTheFileAsItWas) {
    const std::vector<std::byte> before = bytesOf(m_path);
    g_shown.goesOn = false;
    EXPECT_EQ(save(), Vorn::eCancelled);
    EXPECT_EQ(bytesOf(m_path), before);
    EXPECT_EQ(m_reason, L"The file \"" + m_path + L"\" stays as it is, because writing it was cancelled.");
    g_shown.goesOn = true;
    g_shown.done = 0;
    EXPECT_EQ(save(), Vorn::eOk) << "it can be saved afterwards";
}

TEST_F(Progress, whatCannotBeShownIsDoneAllTheSame) {
    g_shown.canBeShown = false;
    g_shown.goesOn = false;
    Drawing drawing;
    EXPECT_EQ(read(drawing), Vorn::eOk);
    EXPECT_EQ(save(), Vorn::eOk);
}

} // namespace
