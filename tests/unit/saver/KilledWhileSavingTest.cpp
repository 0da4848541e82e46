// A program that is killed while it saves leaves the old file or the new one, whole.
#include "ChildProgram.h"
#include "SavedFiles.h"
#include "TemporaryFolder.h"
#include "files/TextCoding.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <random>
#include <thread>

namespace {

using namespace std::chrono_literals;

/// Natively a start costs some hundredths of a second, and under Wine some tenths.
#if defined(_WIN32)
constexpr int kDrawingKills = 20, kStateKills = 10;
#else
constexpr int kDrawingKills = 200, kStateKills = 60;
#endif

int kills(SavedKind kind) {
    const char* quick = std::getenv("KEL_TEST_QUICK");
    const int all = kind == SavedKind::Drawing ? kDrawingKills : kStateKills;
    return quick && std::string_view(quick) == "1" ? all / 10 : all;
}

class KilledWhileSaving : public testing::TestWithParam<SavedKind> {
  protected:
    void SetUp() override {
        for (const bool large : {false, true}) {
            ASSERT_EQ(save(GetParam(), large, m_path), "");
            m_whole[large] = bytesOf(m_path);
        }
        ASSERT_LT(m_whole[0].size(), m_whole[1].size());
    }
    void waitForStart(ChildProgram& program) const {
        const std::filesystem::path sign = zdr::systemPath(m_path + L".started");
        const auto patience = std::chrono::steady_clock::now() + 60s;
        while (!std::filesystem::exists(sign)) {
            ASSERT_EQ(program.end(), "") << "the program has ended before it began to save";
            ASSERT_LT(std::chrono::steady_clock::now(), patience) << "the program doesn't begin to save";
            std::this_thread::sleep_for(1ms);
        }
    }
    bool isWriting() const {
        const std::filesystem::directory_iterator files(m_folder.path());
        return std::any_of(begin(files), end(files),
                           [](const auto& entry) { return entry.path().extension() == ".tmp"; });
    }
    /// The program spends the smaller part of its time writing, so every second kill waits until a file is being
    /// written.
    void waitForTheMoment(int kill, std::mt19937& random, ChildProgram& program) const {
        const auto patience = std::chrono::steady_clock::now() + 60s;
        const bool aimed = kill % 2 == 0;
        while (aimed && !isWriting()) {
            ASSERT_EQ(program.end(), "") << "saving failed by itself";
            ASSERT_LT(std::chrono::steady_clock::now(), patience) << "the program doesn't write";
        }
        // This sleep waits for nothing: it picks the random moment of the kill.
        std::uniform_int_distribution<int> microseconds(0, aimed ? 500 : 20'000);
        std::this_thread::sleep_for(std::chrono::microseconds(microseconds(random)));
    }
    /// Removes what a killed program leaves beside the file; answers whether there was something.
    bool removeLeftBehind() const {
        bool found = false;
        for (const auto& entry : std::filesystem::directory_iterator(m_folder.path()))
            if (entry.path().extension() == ".tmp")
                found = std::filesystem::remove(entry.path()) || found;
        return found;
    }

    TemporaryFolder m_folder;
    const std::wstring m_path = m_folder.file(L"saved.file");
    std::vector<std::byte> m_whole[2];
};

TEST_P(KilledWhileSaving, theFileIsTheOldOrTheNewOneWhole) {
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const int count = kills(GetParam());
    int leftBehind = 0, found[2] = {};
    // Goes on until at least one kill has met a file being written: otherwise nothing would have been tried.
    for (int kill = 0; kill < count || leftBehind == 0; ++kill) {
        ASSERT_LT(kill, 20 * (count + 10)) << "no save was interrupted, so nothing was tried";
        ChildProgram program("saver", {nameOf(GetParam()), m_path});
        ASSERT_NO_FATAL_FAILURE(waitForStart(program));
        ASSERT_NO_FATAL_FAILURE(waitForTheMoment(kill, random, program));
        ASSERT_TRUE(program.kill()) << "saving failed by itself";
        std::filesystem::remove(zdr::systemPath(m_path + L".started"));
        const std::vector<std::byte> bytes = bytesOf(m_path);
        const bool isLarge = bytes == m_whole[1];
        ASSERT_TRUE(isLarge || bytes == m_whole[0])
            << "after kill " << kill + 1 << " the file has " << bytes.size() << " bytes, and is neither";
        ++found[isLarge];
        leftBehind += removeLeftBehind();
        ASSERT_EQ(m_folder.entries(), 1u);
    }
    std::printf(
        "%d kills, %d of them while a file was being written; the small file stood %d times, the large one %d\n",
        found[0] + found[1], leftBehind, found[0], found[1]);
}

std::string kindName(const testing::TestParamInfo<SavedKind>& info) {
    return info.param == SavedKind::Drawing ? "drawing" : "state";
}

INSTANTIATE_TEST_SUITE_P(Kinds, KilledWhileSaving, testing::Values(SavedKind::Drawing, SavedKind::State), kindName);

} // namespace
