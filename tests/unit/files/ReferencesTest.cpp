// Drawings that show other drawings.
#include "FilePatch.h"
#include "SampleDrawing.h"
#include "TemporaryFolder.h"
#include "files/DrawingFile.h"
#include "files/References.h"
#include "files/TextCoding.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace zdr;
using testing::HasSubstr;

namespace {

class References : public testing::Test {
  protected:
    void writeDrawing(const std::wstring& file, const Drawing& drawing) {
        std::wstring reason;
        FileStamp stamp;
        ASSERT_EQ(writeDrawingFile(m_folder.file(file), drawing, reason, stamp, Overwrite::Always), Vorn::eOk)
            << toUtf8(reason);
    }
    /// Writes a drawing that refers to others; names are those of the files without ".zdr".
    void write(const std::wstring& file, const std::vector<std::wstring>& paths) {
        Drawing drawing = plainDrawing();
        for (const std::wstring& path : paths)
            drawing.references.push_back({systemPath(path).stem().wstring(), path, {}, 1, 0, nullptr});
        writeDrawing(file, drawing);
    }
    Drawing open(const std::wstring& file) {
        Drawing drawing;
        std::wstring reason;
        EXPECT_EQ(readDrawingFile(m_folder.file(file), drawing, reason), Vorn::eOk) << toUtf8(reason);
        m_problems.clear();
        resolveReferences(drawing, m_folder.file(file), m_problems);
        return drawing;
    }

    TemporaryFolder m_folder;
    std::vector<ReferenceProblem> m_problems;
};

} // namespace

TEST_F(References, aRelativePathCountsFromTheFolderOfTheDrawing) {
    std::filesystem::create_directory(m_folder.path() / "plans");
    write(L"plans\\ground.zdr", {L"..\\grid.zdr"});
    write(L"grid.zdr", {});
    write(L"main.zdr", {L"plans\\ground.zdr"});
    const Drawing main = open(L"main.zdr");
    EXPECT_TRUE(m_problems.empty());
    ASSERT_NE(main.references[0].drawing, nullptr);
    ASSERT_EQ(main.references[0].drawing->references.size(), 1u);
    EXPECT_NE(main.references[0].drawing->references[0].drawing, nullptr) << "a reference of a reference";
}

TEST_F(References, anAbsolutePathIsTakenAsItIs) {
    const TemporaryFolder elsewhere;
    write(L"grid.zdr", {});
    write(L"main.zdr", {m_folder.file(L"grid.zdr")});
    Drawing drawing;
    std::wstring reason;
    ASSERT_EQ(readDrawingFile(m_folder.file(L"main.zdr"), drawing, reason), Vorn::eOk);
    resolveReferences(drawing, elsewhere.file(L"main.zdr"), m_problems);
    EXPECT_TRUE(m_problems.empty());
    EXPECT_NE(drawing.references[0].drawing, nullptr);
}

TEST_F(References, oneThatIsMissingIsToldAndTheOthersAreResolved) {
    write(L"grid.zdr", {L"lost.zdr"});
    write(L"main.zdr", {L"gone.zdr", L"grid.zdr"});
    const Drawing main = open(L"main.zdr");
    EXPECT_EQ(main.references[0].drawing, nullptr);
    EXPECT_NE(main.references[1].drawing, nullptr);
    ASSERT_EQ(m_problems.size(), 2u);
    EXPECT_EQ(m_problems[0].name, L"gone");
    EXPECT_EQ(m_problems[0].path, m_folder.file(L"gone.zdr"));
    EXPECT_THAT(toUtf8(m_problems[0].reason), HasSubstr("gone.zdr\" doesn't exist."));
    EXPECT_EQ(m_problems[1].name, L"grid!lost");
}

TEST_F(References, oneThatIsNoDrawingIsTold) {
    writeBytes(m_folder.file(L"text.zdr"), std::vector<std::byte>(100));
    write(L"main.zdr", {L"text.zdr"});
    EXPECT_EQ(open(L"main.zdr").references[0].drawing, nullptr);
    ASSERT_EQ(m_problems.size(), 1u);
    EXPECT_THAT(toUtf8(m_problems[0].reason), HasSubstr("isn't a drawing"));
}

TEST_F(References, aDrawingThatShowsItselfIsNotFollowed) {
    write(L"main.zdr", {L"main.zdr"});
    EXPECT_EQ(open(L"main.zdr").references[0].drawing, nullptr);
    ASSERT_EQ(m_problems.size(), 1u);
    EXPECT_THAT(toUtf8(m_problems[0].reason), HasSubstr("because it refers to itself"));
}

TEST_F(References, aCircleEndsWhereItWouldBeginAgain) {
    write(L"a.zdr", {L"b.zdr"});
    write(L"b.zdr", {L"c.zdr"});
    write(L"c.zdr", {L".\\a.zdr"});
    const Drawing a = open(L"a.zdr");
    const auto& b = a.references[0].drawing;
    ASSERT_NE(b, nullptr);
    const auto& c = b->references[0].drawing;
    ASSERT_NE(c, nullptr);
    EXPECT_EQ(c->references[0].drawing, nullptr);
    ASSERT_EQ(m_problems.size(), 1u);
    EXPECT_EQ(m_problems[0].name, L"b!c!a");
}

TEST_F(References, aDrawingInACircleIsWholeWhereTheCircleIsEnteredElsewhere) {
    write(L"b.zdr", {L"c.zdr"});
    write(L"c.zdr", {L"b.zdr"});
    write(L"main.zdr", {L"b.zdr", L"c.zdr"});
    const Drawing main = open(L"main.zdr");
    // b shows c, and c shows b: each once, whichever came first.
    EXPECT_NE(main.references[0].drawing->references[0].drawing, nullptr);
    EXPECT_NE(main.references[1].drawing->references[0].drawing, nullptr);
    ASSERT_EQ(m_problems.size(), 2u);
    EXPECT_EQ(m_problems[0].name, L"b!c!b");
    EXPECT_EQ(m_problems[1].name, L"c!b!c");
}

TEST_F(References, aDrawingThatIsShownTwiceIsReadOnce) {
    write(L"grid.zdr", {});
    write(L"plan.zdr", {L"grid.zdr"});
    write(L"main.zdr", {L"grid.zdr", L"plan.zdr"});
    const Drawing main = open(L"main.zdr");
    EXPECT_TRUE(m_problems.empty());
    EXPECT_EQ(main.references[0].drawing, main.references[1].drawing->references[0].drawing);
}

TEST_F(References, drawingsThatAllShowEachOtherComeToAnEnd) {
    std::vector<std::wstring> names;
    for (int i = 0; i < 8; ++i)
        names.push_back(L"d" + std::to_wstring(i) + L".zdr");
    for (const std::wstring& name : names)
        write(name, names);
    open(names[0]);
    EXPECT_FALSE(m_problems.empty());
    EXPECT_THAT(toUtf8(m_problems.back().reason), HasSubstr("because too many references are nested"));
}

TEST_F(References, aLongChainIsFollowedToItsEnd) {
    constexpr int length = 100;
    for (int i = 0; i < length; ++i)
        write(L"c" + std::to_wstring(i) + L".zdr", {L"c" + std::to_wstring(i + 1) + L".zdr"});
    write(L"c" + std::to_wstring(length) + L".zdr", {});
    const Drawing first = open(L"c0.zdr");
    EXPECT_TRUE(m_problems.empty());
    int depth = 0;
    for (const Drawing* at = &first; !at->references.empty(); at = at->references[0].drawing.get(), ++depth)
        ASSERT_NE(at->references[0].drawing, nullptr) << depth;
    EXPECT_EQ(depth, length);
}

TEST_F(References, oneThatIsUnloadedIsNeitherReadNorTold) {
    write(L"grid.zdr", {});
    write(L"plan.zdr", {L"grid.zdr"});
    Drawing drawing = plainDrawing();
    for (const wchar_t* name : {L"grid", L"gone", L"plan"})
        drawing.references.push_back({name, name + std::wstring(L".zdr"), {}, 1, 0, nullptr});
    drawing.references[0].unloaded = drawing.references[1].unloaded = true;
    std::wstring reason;
    FileStamp stamp;
    ASSERT_EQ(writeDrawingFile(m_folder.file(L"main.zdr"), drawing, reason, stamp), Vorn::eOk) << toUtf8(reason);
    const Drawing main = open(L"main.zdr");
    EXPECT_EQ(main.references[0].drawing, nullptr);
    EXPECT_TRUE(main.references[0].unloaded);
    EXPECT_FALSE(main.references[2].unloaded);
    ASSERT_NE(main.references[2].drawing, nullptr);
    EXPECT_NE(main.references[2].drawing->references[0].drawing, nullptr) << "it is loaded there";
    EXPECT_TRUE(m_problems.empty());
}

TEST_F(References, anUnloadedOneMakesAFileOfTheFourthVersion) {
    Drawing drawing = sampleDrawing();
    EXPECT_EQ(FilePatch(drawing).root().version(), 1u);
    drawing.references[1].unloaded = true;
    EXPECT_EQ(FilePatch(drawing).root().version(), 4u);
    drawing.linetypeScale = 2;
    EXPECT_EQ(FilePatch(drawing).root().version(), 4u);
}

TEST_F(References, aThousandAreShownAndNotOneMore) {
    write(L"grid.zdr", {});
    for (const std::size_t count : {1000u, 1001u}) {
        Drawing drawing = plainDrawing();
        for (std::size_t i = 0; i < count; ++i)
            drawing.references.push_back({L"r" + std::to_wstring(i), L"grid.zdr", {}, 1, 0, nullptr});
        writeDrawing(L"main.zdr", drawing);
        const Drawing main = open(L"main.zdr");
        EXPECT_NE(main.references[999].drawing, nullptr);
        ASSERT_EQ(m_problems.size(), count - 1000);
    }
    EXPECT_EQ(m_problems[0].name, L"r1000");
}

TEST_F(References, whatADrawingShowsCountsAgainWhereverItIsShown) {
    write(L"grid.zdr", {});
    write(L"plan.zdr", {L"grid.zdr"});
    Drawing drawing = plainDrawing();
    drawing.references.push_back({L"one", L"grid.zdr", {}, 1, 0, nullptr});
    for (int i = 0; i < 500; ++i) // two each, so that one has room for half of it
        drawing.references.push_back({L"r" + std::to_wstring(i), L"plan.zdr", {}, 1, 0, nullptr});
    writeDrawing(L"main.zdr", drawing);
    const Drawing main = open(L"main.zdr");
    EXPECT_NE(main.references[499].drawing, nullptr);
    ASSERT_EQ(m_problems.size(), 1u);
    EXPECT_EQ(m_problems[0].name, L"r499");
}

TEST_F(References, theyNestTwoHundredAndFiftySixDeepAndNotDeeper) {
    constexpr int kDeepest = 256;
    const auto file = [](int i) { return L"c" + std::to_wstring(i) + L".zdr"; };
    for (int i = 0; i <= kDeepest; ++i)
        write(file(i), {file(i + 1)});
    write(file(kDeepest + 1), {});
    open(file(1));
    EXPECT_TRUE(m_problems.empty());
    open(file(0));
    ASSERT_EQ(m_problems.size(), 1u);
    EXPECT_TRUE(m_problems[0].name.ends_with(L"!c256!c257")) << toUtf8(m_problems[0].name);
}

// Few files, each of them read once, but shown very often.
TEST_F(References, drawingsThatShowTheNextOneTwiceComeToAnEnd) {
    constexpr int length = 30;
    for (int i = 0; i < length; ++i) {
        Drawing drawing = plainDrawing();
        const std::wstring next = L"t" + std::to_wstring(i + 1) + L".zdr";
        drawing.references.push_back({L"left", next, {}, 1, 0, nullptr});
        drawing.references.push_back({L"right", next, {}, 1, 0, nullptr});
        writeDrawing(L"t" + std::to_wstring(i) + L".zdr", drawing);
    }
    write(L"t" + std::to_wstring(length) + L".zdr", {});
    open(L"t0.zdr");
    ASSERT_FALSE(m_problems.empty());
    EXPECT_THAT(toUtf8(m_problems.back().reason), HasSubstr("because too many references are nested"));
}
