// What the user is asked about references that lead out of this computer, and the answers that are kept.

#include "AccessWatch.h"
#include "CommandFixture.h"

#include "files/TextCoding.h"

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;
using workbench::FolderAnswer;
using workbench::LookAnswer;
using workbench::SaveAnswer;

namespace {

/// The answers that were kept, as text.
std::vector<std::wstring> texts(const std::vector<FolderAnswer>& answers) {
    std::vector<std::wstring> all;
    for (const FolderAnswer& answer : answers)
        all.push_back((answer.mayLook ? L"look into " : L"leave ") + answer.folder);
    return all;
}

class OutsideReferencesTest : public CommandFixture {
  protected:
    OutsideReferencesTest() {
        std::filesystem::create_directory(folder / "more");
        writeDrawing("site.zdr", session.drawing());
        writeDrawing("garden.zdr", session.drawing());
        writeDrawing("more/trees.zdr", session.drawing());
        writeReferring("house.zdr", {outside("site.zdr"), outside("garden.zdr"), outside("more/trees.zdr")});
        writeReferring("watched.zdr", {watch.path()});
    }
    /// Writes a drawing with references to these paths, named "r0" and so on.
    void writeReferring(const char* name, const std::vector<std::wstring>& paths) {
        zdr::Drawing drawing = session.drawing();
        for (const std::wstring& path : paths)
            drawing.references.push_back({L"r" + std::to_wstring(drawing.references.size()), path, {}, 1, 0, nullptr});
        writeDrawing(name, drawing);
    }
    std::wstring outside(const char* name) const {
        std::wstring path = outsideSpelling(zdr::widePath((folder / name).make_preferred()));
        return path;
    }
    /// The folder of a file outside, as it is kept.
    std::wstring folderOf(const char* name) const {
        std::wstring path = outside(name);
        std::ranges::replace(path, L'/', L'\\');
        return path.substr(0, path.rfind(L'\\'));
    }
    bool isShown(std::size_t reference) const { return drawing().references.at(reference).drawing != nullptr; }
    std::wstring openHouse() { return run(L"OPEN " + path("house.zdr")); }

    AccessWatch watch;
};

} // namespace

TEST_F(OutsideReferencesTest, YesIsKeptForTheFolder) {
    window.lookAnswer = LookAnswer::Yes;
    EXPECT_EQ(openHouse(), L"Opened " + path("house.zdr") + L".\n");
    EXPECT_THAT(window.questions, SizeIs(2)) << "one for each folder";
    EXPECT_TRUE(isShown(0));
    EXPECT_TRUE(isShown(1));
    EXPECT_TRUE(isShown(2));
    EXPECT_THAT(texts(window.answers),
                ElementsAre(L"look into " + folderOf("site.zdr"), L"look into " + folderOf("more/trees.zdr")));
    openHouse();
    EXPECT_THAT(window.questions, SizeIs(2)) << "the answers are kept";
    EXPECT_TRUE(isShown(2));
}

TEST_F(OutsideReferencesTest, NoIsKeptForTheFolder) {
    window.lookAnswer = LookAnswer::No;
    const std::wstring said = openHouse();
    EXPECT_THAT(window.questions, SizeIs(2));
    EXPECT_EQ(said.substr(0, said.find(L'\n') + 1),
              L"Reference \"r0\" is not shown: The file \"" + outside("site.zdr") +
                  L"\" is outside this computer, and you have chosen not to look for files in its folder: OUTSIDE "
                  L"FORGET takes that back.\n");
    EXPECT_THAT(said, EndsWith(L"Opened " + path("house.zdr") + L".\n"));
    EXPECT_THAT(texts(window.answers),
                ElementsAre(L"leave " + folderOf("site.zdr"), L"leave " + folderOf("more/trees.zdr")));
    window.lookAnswer = LookAnswer::Yes;
    EXPECT_EQ(openHouse(), said);
    EXPECT_THAT(window.questions, SizeIs(2));
    EXPECT_FALSE(isShown(0));
}

TEST_F(OutsideReferencesTest, CancelIsForAllThatAreLeftButNotKept) {
    const std::wstring said = openHouse();
    EXPECT_THAT(window.questions, SizeIs(1));
    for (const wchar_t* name : {L"r0", L"r1", L"r2"})
        EXPECT_THAT(said, HasSubstr(L"Reference \"" + std::wstring(name) + L"\" is not shown: "));
    EXPECT_THAT(said, HasSubstr(L"is outside this computer, and wasn't looked for this time.\n"));
    EXPECT_THAT(window.answers, IsEmpty());
    openHouse();
    EXPECT_THAT(window.questions, SizeIs(2)) << "it is asked again";
}

TEST_F(OutsideReferencesTest, TheQuestionTellsWhereToAndWhoSees) {
    window.lookAnswer = LookAnswer::No;
    openHouse();
    EXPECT_EQ(window.questions.at(0),
              L"The reference \"r0\" leads out of this computer, to\n\n" + outside("site.zdr") +
                  L"\n\nWhoever has the computer there sees that you look for this file. Look for it?\n\n"
                  L"Yes and No are kept for the folder " +
                  folderOf("site.zdr") + L". Cancel leaves out all that is outside, this time.");
}

TEST_F(OutsideReferencesTest, AScriptAsksNothingAndTellsIt) {
    window.attended = false;
    window.lookAnswer = LookAnswer::Yes;
    EXPECT_EQ(run(L"OPEN " + path("watched.zdr")),
              L"Reference \"r0\" is not shown: The file \"" + watch.path() +
                  L"\" is outside this computer, and a script isn't asked whether to look for it: open the drawing "
                  L"yourself once, and answer.\nOpened " +
                  path("watched.zdr") + L".\n");
    EXPECT_TRUE(done) << "the drawing is open";
    EXPECT_THAT(window.questions, IsEmpty());
    EXPECT_THAT(window.answers, IsEmpty());
    EXPECT_FALSE(watch.isTouched());
}

TEST_F(OutsideReferencesTest, AScriptFollowsAnswersThatAreKept) {
    window.lookAnswer = LookAnswer::Yes;
    openHouse();
    window.attended = false;
    run(L"NEW");
    EXPECT_EQ(openHouse(), L"Opened " + path("house.zdr") + L".\n");
    EXPECT_TRUE(isShown(0));
}

TEST_F(OutsideReferencesTest, TheCaseOfTheFolderDoesntMatter) {
    std::wstring upper = folderOf("site.zdr");
    std::ranges::transform(upper, upper.begin(),
                           [](wchar_t letter) { return letter >= L'a' && letter <= L'z' ? letter - 32 : letter; });
    window.answers = {{upper, true}};
    window.lookAnswer = LookAnswer::No;
    openHouse();
    EXPECT_TRUE(isShown(0));
    EXPECT_THAT(window.questions, SizeIs(1)) << "about the other folder";
}

TEST_F(OutsideReferencesTest, NothingIsAskedOfTheOtherComputerBeforeTheAnswer) {
    for (const LookAnswer answer : {LookAnswer::Cancel, LookAnswer::No}) {
        window.lookAnswer = answer;
        run(L"OPEN " + path("watched.zdr"));
        EXPECT_FALSE(watch.isTouched());
    }
    run(L"SAVE");
    run(L"UNLOAD *");
    run(L"RELOAD *");
    run(L"OUTSIDE LIST");
    run(L"DETACH *");
    EXPECT_FALSE(watch.isTouched());
    run(L"OUTSIDE FORGET *");
    window.lookAnswer = LookAnswer::Yes;
    window.saveAnswer = SaveAnswer::Discard;
    run(L"OPEN " + path("watched.zdr"));
    EXPECT_TRUE(watch.isTouched()) << "the watch sees it";
}

TEST_F(OutsideReferencesTest, APathThatIsTypedIsNotAskedAboutButWhatItBringsIs) {
    writeReferring("bringing.zdr", {watch.path()});
    const std::wstring said = run(L"ATTACH " + outside("bringing.zdr"));
    EXPECT_TRUE(isShown(0));
    ASSERT_THAT(window.questions, SizeIs(1));
    EXPECT_THAT(window.questions[0],
                StartsWith(L"The reference \"bringing!r0\" leads out of this computer, to\n\n" + watch.path()));
    EXPECT_THAT(said, StartsWith(L"Reference \"bringing!r0\" is not shown: "));
    EXPECT_THAT(said, HasSubstr(L"\"bringing\" is attached."));
    EXPECT_FALSE(watch.isTouched());
    run(L"ATTACH " + outside("site.zdr"));
    EXPECT_TRUE(isShown(1));
    EXPECT_THAT(window.questions, SizeIs(1));
    EXPECT_THAT(window.answers, IsEmpty());
}

TEST_F(OutsideReferencesTest, AReferenceThatIsNamedIsReloadedWithoutAQuestion) {
    window.lookAnswer = LookAnswer::No;
    openHouse();
    window.questions.clear();
    EXPECT_THAT(run(L"RELOAD R0"), StartsWith(L"1 reference is read again."));
    EXPECT_TRUE(isShown(0));
    EXPECT_FALSE(isShown(1));
    EXPECT_THAT(window.questions, IsEmpty());
    EXPECT_THAT(texts(window.answers), Not(testing::Contains(StartsWith(L"look"))));
}

// Whoever types a pattern may not think of each.
TEST_F(OutsideReferencesTest, APatternReloadsOnlyWhatMayBe) {
    window.answers = {{folderOf("site.zdr"), true}};
    window.lookAnswer = LookAnswer::Cancel;
    openHouse();
    window.questions.clear();
    const std::wstring said = run(L"RELOAD r*");
    EXPECT_EQ(said.substr(0, said.find(L'\n') + 1), L"\"r2\" stays as it is: The file \"" + outside("more/trees.zdr") +
                                                        L"\" is outside this computer, and wasn't looked for this "
                                                        L"time.\n");
    EXPECT_THAT(said, HasSubstr(L"2 references are read again."));
    EXPECT_THAT(window.questions, SizeIs(1));
    EXPECT_FALSE(done);
}

TEST_F(OutsideReferencesTest, OutsideListsAndForgetsTheAnswers) {
    EXPECT_EQ(run(L"OUTSIDE LIST"), L"You have been asked about no folder outside this computer.\n");
    EXPECT_EQ(run(L"OUTSIDE FORGET *"), L"No answer is kept for \"*\": OUTSIDE LIST names the folders.\n");
    EXPECT_FALSE(done);
    window.answers = {{L"\\\\server\\plans", true}, {L"\\\\server\\our sites", false}, {L"\\\\evil\\trap", false}};
    EXPECT_EQ(run(L"OUTSIDE LIST"), L"\\\\server\\plans - looked into\n\"\\\\server\\our sites\" - left alone\n"
                                    L"\\\\evil\\trap - left alone\n");
    EXPECT_EQ(run(L"OUTSIDE FORGET \"\\\\SERVER\\our sites\""), L"1 answer is forgotten: you are asked again.\n");
    EXPECT_THAT(texts(window.answers), ElementsAre(L"look into \\\\server\\plans", L"leave \\\\evil\\trap"));
    EXPECT_EQ(run(L"OUTSIDE FORGET *"), L"2 answers are forgotten: you are asked again.\n");
    EXPECT_THAT(window.answers, IsEmpty());
}

TEST_F(OutsideReferencesTest, AFolderThatWasForgottenIsAskedAboutAgain) {
    window.lookAnswer = LookAnswer::No;
    openHouse();
    run(L"OUTSIDE FORGET *");
    window.lookAnswer = LookAnswer::Yes;
    openHouse();
    EXPECT_THAT(window.questions, SizeIs(4));
    EXPECT_TRUE(isShown(0));
}
