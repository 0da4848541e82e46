// References that lead out of this computer: nothing is asked about their files before that is allowed.
#include "AccessWatch.h"
#include "KelDbDatabase.h"
#include "SampleDrawing.h"
#include "TemporaryFolder.h"
#include "files/DrawingFile.h"
#include "files/References.h"
#include "files/TextCoding.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace zdr;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class OutsideReferences : public testing::Test {
  protected:
    /// Writes a drawing that refers to others by path, under the names "r0" and so on.
    void write(const std::wstring& file, const std::vector<std::wstring>& paths) {
        Drawing drawing = plainDrawing();
        for (const std::wstring& path : paths)
            drawing.references.push_back({L"r" + std::to_wstring(drawing.references.size()), path, {}, 1, 0, nullptr});
        std::wstring reason;
        FileStamp stamp;
        ASSERT_EQ(writeDrawingFile(m_folder.file(file), drawing, reason, stamp), Vorn::eOk) << toUtf8(reason);
    }
    /// Opens the drawing at a path. `m_answer` says why not, for each reference that is asked about.
    Drawing openAt(const std::wstring& path) {
        Drawing drawing;
        std::wstring reason;
        EXPECT_EQ(readDrawingFile(path, drawing, reason), Vorn::eOk) << toUtf8(reason);
        m_problems.clear();
        m_asked.clear();
        resolveReferences(drawing, path, m_problems, [this](const OutsideReference& reference) {
            EXPECT_FALSE(m_watch.isTouched()) << "touched before the answer";
            m_asked.push_back(reference.name);
            m_last = reference;
            return m_answer;
        });
        return drawing;
    }
    Drawing open(const std::wstring& file) { return openAt(m_folder.file(file)); }

    TemporaryFolder m_folder;
    AccessWatch m_watch;
    std::wstring m_answer = L"and stays there";
    std::vector<std::wstring> m_asked;
    OutsideReference m_last;
    std::vector<ReferenceProblem> m_problems;
};

} // namespace

TEST_F(OutsideReferences, anAnswerThatRefusesKeepsTheFileUntouched) {
    write(L"main.zdr", {m_watch.path()});
    const Drawing main = open(L"main.zdr");
    EXPECT_EQ(main.references[0].drawing, nullptr);
    EXPECT_FALSE(m_watch.isTouched());
    EXPECT_EQ(m_last.name, L"r0");
    EXPECT_EQ(m_last.path, m_watch.path());
    ASSERT_EQ(m_problems.size(), 1u);
    EXPECT_EQ(m_problems[0].path, m_watch.path());
    EXPECT_EQ(m_problems[0].reason, L"The file \"" + m_watch.path() + L"\" is outside this computer, and stays there.");
}

TEST_F(OutsideReferences, anAnswerThatAllowsHasTheFileLookedFor) {
    write(L"main.zdr", {m_watch.path()});
    m_answer.clear();
    open(L"main.zdr");
    EXPECT_TRUE(m_watch.isTouched()) << "the watch sees it";
    EXPECT_EQ(m_problems.size(), 1u) << "there is nothing to read";
}

TEST_F(OutsideReferences, whoeverGivesNoAnswerRefuses) {
    write(L"main.zdr", {m_watch.path()});
    Drawing main;
    std::wstring reason;
    ASSERT_EQ(readDrawingFile(m_folder.file(L"main.zdr"), main, reason), Vorn::eOk);
    resolveReferences(main, m_folder.file(L"main.zdr"), m_problems);
    EXPECT_FALSE(m_watch.isTouched());
    ASSERT_EQ(m_problems.size(), 1u);
    EXPECT_EQ(m_problems[0].reason, L"The file \"" + m_watch.path() +
                                        L"\" is outside this computer, and nobody was asked whether to look for it.");
}

TEST_F(OutsideReferences, onesThatAreAllowedAreShown) {
    write(L"site.zdr", {});
    write(L"main.zdr", {outsideSpelling(m_folder.file(L"site.zdr"))});
    m_answer.clear();
    EXPECT_NE(open(L"main.zdr").references[0].drawing, nullptr);
    EXPECT_THAT(m_problems, IsEmpty());
}

TEST_F(OutsideReferences, aFileIsReadOnceWhicheverSeparatorsItsPathsHave) {
    write(L"site.zdr", {});
    std::wstring slashes = outsideSpelling(m_folder.file(L"site.zdr"));
    write(L"main.zdr", {slashes, slashes.replace(slashes.find_last_of(L"\\/"), 1, L"/")});
    m_answer.clear();
    const Drawing main = open(L"main.zdr");
    ASSERT_NE(main.references[0].drawing, nullptr);
    EXPECT_EQ(main.references[0].drawing, main.references[1].drawing);
}

TEST_F(OutsideReferences, onesOnThisComputerAreNotAskedAbout) {
    write(L"site.zdr", {});
    write(L"main.zdr", {L"site.zdr", m_folder.file(L"site.zdr")});
    const Drawing main = open(L"main.zdr");
    EXPECT_NE(main.references[0].drawing, nullptr);
    EXPECT_NE(main.references[1].drawing, nullptr);
    EXPECT_THAT(m_asked, IsEmpty());
}

// Its computer has seen who opens the drawing.
TEST_F(OutsideReferences, onesOnTheComputerOfTheDrawingAreNotAskedAbout) {
    write(L"site.zdr", {});
    write(L"main.zdr", {L"site.zdr", m_watch.path()});
    const Drawing main = openAt(outsideSpelling(m_folder.file(L"main.zdr")));
    EXPECT_NE(main.references[0].drawing, nullptr);
    EXPECT_EQ(main.references[1].drawing, nullptr);
    EXPECT_THAT(m_asked, ElementsAre(L"r1"));
}

TEST_F(OutsideReferences, onesWithinReferencesAreAskedAboutToo) {
    write(L"grid.zdr", {});
    write(L"site.zdr", {m_watch.path(), L"grid.zdr"});
    write(L"main.zdr", {L"site.zdr"});
    const Drawing main = open(L"main.zdr");
    EXPECT_THAT(m_asked, ElementsAre(L"r0!r0"));
    EXPECT_FALSE(m_watch.isTouched());
    ASSERT_EQ(m_problems.size(), 1u);
    EXPECT_EQ(m_problems[0].name, L"r0!r0");
    EXPECT_NE(main.references[0].drawing->references[1].drawing, nullptr) << "the others are shown";
}

TEST_F(OutsideReferences, oneThatIsAllowedBringsThoseBesideIt) {
    write(L"grid.zdr", {});
    write(L"site.zdr", {L"grid.zdr"});
    write(L"main.zdr", {outsideSpelling(m_folder.file(L"site.zdr"))});
    m_answer.clear();
    const Drawing main = open(L"main.zdr");
    EXPECT_THAT(m_asked, ElementsAre(L"r0"));
    ASSERT_NE(main.references[0].drawing, nullptr);
    EXPECT_NE(main.references[0].drawing->references[0].drawing, nullptr);
}

TEST_F(OutsideReferences, circlesOutsideEndWhereTheyWouldBeginAgain) {
#if defined(_WIN32)
    const std::wstring here; // behind `\\.\` a `.` counts as a folder of its own
#else
    const std::wstring here = L".\\";
#endif
    write(L"a.zdr", {here + L"b.zdr"});
    write(L"b.zdr", {here + L"a.zdr"});
    m_answer.clear();
    openAt(outsideSpelling(m_folder.file(L"a.zdr")));
    ASSERT_EQ(m_problems.size(), 1u);
    EXPECT_EQ(m_problems[0].name, L"r0!r0");
    EXPECT_NE(m_problems[0].reason.find(L"because it refers to itself"), std::wstring::npos);
}

TEST_F(OutsideReferences, addressesAreNeitherAskedAboutNorFollowed) {
    write(L"main.zdr", {L"http://server/x.zdr", L"file://server/share/x.zdr"});
    m_answer.clear();
    open(L"main.zdr");
    EXPECT_THAT(m_asked, IsEmpty());
    ASSERT_EQ(m_problems.size(), 2u);
    EXPECT_EQ(m_problems[0].reason,
              L"The file \"http://server/x.zdr\" isn't looked for, because an address is no path.");
}

TEST_F(OutsideReferences, whatCantBeSeenInAPathIsShownAsSuch) {
    write(L"main.zdr", {L"\\\\server\\share\\\u202Erdz.\n.zdr"});
    open(L"main.zdr");
    ASSERT_EQ(m_problems.size(), 1u);
    EXPECT_NE(m_problems[0].reason.find(L"\uFFFDrdz.\uFFFD.zdr\" is outside"), std::wstring::npos)
        << toUtf8(m_problems[0].reason);
}

TEST_F(OutsideReferences, aDrawingThatStatesAreTakenFromLeavesItsReferencesAlone) {
    write(L"main.zdr", {m_watch.path()});
    KelDbDatabase side(false, true);
    ASSERT_EQ(side.readZdrFile(m_folder.file(L"main.zdr").c_str(), 64, false, nullptr), Vorn::eOk);
    EXPECT_FALSE(m_watch.isTouched());
}
