// The list of recent files, and how its paths stand in the menu.

#include "RecentFiles.h"

#include "CommandFixture.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using workbench::RecentFiles;
using workbench::recentFileText;
using workbench::shortenedPath;

namespace {

class UsedFilesTest : public CommandFixture {};

} // namespace

TEST(RecentFiles, TheLatestStandsFirstAndEachOnce) {
    RecentFiles files;
    for (const wchar_t* path : {L"C:\\a.zdr", L"C:\\b.zdr", L"C:\\A.ZDR"})
        files.add(path);
    EXPECT_THAT(files.paths(), ElementsAre(L"C:\\A.ZDR", L"C:\\b.zdr"));
}

TEST(RecentFiles, TheTenthIsForgotten) {
    RecentFiles files;
    for (int i = 1; i <= 10; ++i)
        files.add(L"C:\\" + std::to_wstring(i) + L".zdr");
    EXPECT_THAT(files.paths(), SizeIs(9));
    EXPECT_EQ(files.paths().front(), L"C:\\10.zdr");
    EXPECT_EQ(files.paths().back(), L"C:\\2.zdr");
}

TEST(RecentFiles, OneFileInTwoSpellingsIsListedOnce) {
    RecentFiles files(std::vector<std::wstring>{L"//server/plans/a.zdr", L"\\\\server\\plans\\A.zdr"});
    EXPECT_THAT(files.paths(), ElementsAre(L"//server/plans/a.zdr"));
    files.add(L"\\\\SERVER\\plans\\a.zdr");
    EXPECT_THAT(files.paths(), ElementsAre(L"\\\\SERVER\\plans\\a.zdr"));
}

TEST(RecentFiles, OneIsTakenOffWithoutRegardToCase) {
    RecentFiles files(std::vector<std::wstring>{L"C:\\a.zdr", L"C:\\b.zdr"});
    EXPECT_TRUE(files.remove(L"c:\\B.zdr"));
    EXPECT_FALSE(files.remove(L"C:\\b.zdr"));
    EXPECT_THAT(files.paths(), ElementsAre(L"C:\\a.zdr"));
}

TEST(RecentFiles, WhatWasKeptIsNotTrusted) {
    const std::vector<std::wstring> kept{
        L"",          L"C:\\a\nQUIT", L"C:\\\" QUIT",           std::wstring(32768, L'x'),
        L"C:\\a.zdr", L"c:\\A.zdr",   L"C:\\House plans\\b.zdr"};
    EXPECT_THAT(RecentFiles(kept).paths(), ElementsAre(L"C:\\a.zdr", L"C:\\House plans\\b.zdr"));
    std::vector<std::wstring> many;
    for (int i = 0; i < 20; ++i)
        many.push_back(std::to_wstring(i));
    EXPECT_THAT(RecentFiles(many).paths(), SizeIs(9));
    RecentFiles files;
    files.add(L"a\"b");
    EXPECT_THAT(files.paths(), IsEmpty());
}

TEST(RecentFiles, APathThatIsShortEnoughStaysAsItIs) {
    EXPECT_EQ(shortenedPath(L"C:\\House plans\\a.zdr", 20), L"C:\\House plans\\a.zdr");
}

TEST(RecentFiles, ALongPathLosesTheFoldersInItsMiddle) {
    EXPECT_EQ(shortenedPath(L"C:\\House plans\\2026\\a.zdr", 23), L"C:\\...\\2026\\a.zdr");
    EXPECT_EQ(shortenedPath(L"C:\\House plans\\2026\\a.zdr", 20), L"C:\\...\\2026\\a.zdr");
    EXPECT_EQ(shortenedPath(L"C:\\House plans\\2026 and before\\a.zdr", 20), L"C:\\...\\a.zdr");
    EXPECT_EQ(shortenedPath(L"\\\\server\\plans\\old\\older\\a.zdr", 26), L"\\\\server\\plans\\...\\a.zdr");
    EXPECT_EQ(shortenedPath(L"//server/plans/old/older/a.zdr", 26), L"//server/plans/.../a.zdr");
}

TEST(RecentFiles, AFileNameThatIsTooLongLosesItsOwnMiddle) {
    const std::wstring shortened = shortenedPath(L"C:\\" + std::wstring(300, L'x') + L".zdr", 20);
    EXPECT_EQ(shortened, L"C:\\xxxxx...xxxxx.zdr");
    EXPECT_EQ(shortenedPath(std::wstring(30, L'y'), 20), L"yyyyyyyy...yyyyyyyyy");
    EXPECT_EQ(shortenedPath(L"\\\\" + std::wstring(30, L's') + L"\\share\\a.zdr", 20), L"\\\\ssssss...are\\a.zdr");
}

TEST(RecentFiles, ACharacterOfTwoHalvesIsNotCut) {
    std::wstring name;
    for (int i = 0; i < 20; ++i)
        name += L"\xD83D\xDE00";
    EXPECT_EQ(shortenedPath(name, 20), name.substr(0, 8) + L"..." + name.substr(0, 8));
    EXPECT_EQ(shortenedPath(L"x" + name, 20), L"x" + name.substr(0, 6) + L"..." + name.substr(0, 8));
}

TEST(RecentFiles, AnItemOfTheMenuHasItsNumberForItsKey) {
    EXPECT_EQ(recentFileText(3, L"C:\\a.zdr"), L"&3 C:\\a.zdr");
    EXPECT_EQ(recentFileText(9, L"C:\\R&D & more.zdr"), L"&9 C:\\R&&D && more.zdr");
    EXPECT_EQ(recentFileText(1, L"C:\\" + std::wstring(80, L'x') + L"\\a.zdr"), L"&1 C:\\...\\a.zdr");
}

TEST_F(UsedFilesTest, AFileIsToldAsUsedWhenItIsOpenedOrSavedUnderAnotherName) {
    writeDrawing("plan.zdr", drawing());
    run(L"OPEN " + path("plan.zdr"));
    EXPECT_THAT(window.opened, ElementsAre(path("plan.zdr")));
    run(L"SAVE");
    EXPECT_THAT(window.opened, SizeIs(1));
    run(L"SAVEAS " + path("other"));
    EXPECT_THAT(window.opened, ElementsAre(path("plan.zdr"), path("other.zdr")));
    run(L"NEW");
    EXPECT_THAT(window.opened, SizeIs(2));
    EXPECT_THAT(window.missing, IsEmpty());
}

TEST_F(UsedFilesTest, AFileThatIsntThereIsToldAsMissingAndOneThatCantBeReadIsnt) {
    run(L"OPEN " + path("nowhere.zdr"));
    EXPECT_THAT(window.missing, ElementsAre(path("nowhere.zdr")));
    EXPECT_THAT(window.failures, SizeIs(1));
    writeBytes("text.zdr", "This is no drawing.");
    run(L"OPEN " + path("text.zdr"));
    EXPECT_THAT(window.missing, SizeIs(1));
    EXPECT_THAT(window.failures, SizeIs(2));
    EXPECT_THAT(window.opened, IsEmpty());
}

TEST_F(UsedFilesTest, ScriptsUseNoFilesForThePerson) {
    writeDrawing("plan.zdr", drawing());
    window.attended = false;
    run(L"OPEN " + path("plan.zdr"));
    EXPECT_TRUE(done);
    run(L"SAVEAS " + path("other.zdr"));
    EXPECT_TRUE(done);
    run(L"OPEN " + path("nowhere.zdr"));
    EXPECT_FALSE(done);
    EXPECT_THAT(window.opened, IsEmpty());
    EXPECT_THAT(window.missing, IsEmpty());
    window.attended = true;
    run(L"OPEN " + path("plan.zdr"));
    EXPECT_THAT(window.opened, ElementsAre(path("plan.zdr")));
}
