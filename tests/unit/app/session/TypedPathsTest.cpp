// Which file a typed path means: from the drawing's folder, and from that in which the program was started.

#include "CommandFixture.h"
#include "StartFolder.h"

#include "engine/DatabaseAccess.h"
#include "files/DrawingFile.h"
#include "files/TextCoding.h"

#include <gmock/gmock.h>

using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

/// A drawing in the folder "plans" is open, and the program was started in the folder "started".
class TypedPathsTest : public CommandFixture {
  protected:
    TypedPathsTest() : m_started(folder / "started") {
        std::filesystem::create_directory(folder / "plans");
        run(L"SAVEAS \"" + path("plans/house.zdr") + L"\"");
    }
    std::wstring full(const char* name) const { return zdr::widePath((folder / name).make_preferred()); }
    /// Writes a drawing with a layer of that name.
    void writePlan(const char* name, const wchar_t* layer) const {
        KelDbDatabase database(true, true);
        EXPECT_EQ(engine::addLayer(database, layer), Vorn::eOk);
        writeDrawing(name, engine::drawingOf(database));
    }

  private:
    StartFolder m_started;
};

} // namespace

TEST_F(TypedPathsTest, AreLookedForInTheDrawingsFolderFirst) {
    writePlan("plans/hut.zdr", L"Here");
    writePlan("started/hut.zdr", L"There");
    writePlan("started/barn.zdr", L"There");
    EXPECT_THAT(run(L"OPEN hut"), EndsWith(L"Opened " + full("plans/hut.zdr") + L".\n"));
    EXPECT_THAT(run(L"OPEN barn"), EndsWith(L"Opened " + full("started/barn.zdr") + L".\n"));
    EXPECT_THAT(run(L"OPEN hut"), EndsWith(L"Opened " + full("started/hut.zdr") + L".\n"))
        << "another drawing is open now, in another folder";
}

TEST_F(TypedPathsTest, OfANewDrawingCountFromTheFolderOfTheStart) {
    writePlan("plans/hut.zdr", L"Here");
    run(L"NEW");
    run(L"OPEN hut");
    EXPECT_THAT(window.failures, testing::ElementsAre(L"The file \"" + full("started/hut.zdr") +
                                                      L"\" doesn't exist: check its name and folder."));
    run(L"SAVEAS own");
    EXPECT_EQ(session.path(), full("started/own.zdr"));
}

TEST_F(TypedPathsTest, ThatLeadNowhereAreToldWithEveryFolder) {
    run(L"OPEN hut");
    ASSERT_EQ(window.failures.size(), 1u);
    EXPECT_EQ(window.failures[0], L"The file \"" + full("plans/hut.zdr") + L"\" doesn't exist, nor is it in \"" +
                                      full("started") + L"\": check its name and folder.");
    EXPECT_EQ(run(L"ATTACH sub\\hut"), L"The file \"" + full("plans/sub/hut.zdr") +
                                           L"\" doesn't exist, nor is it in \"" + full("started/sub") +
                                           L"\": check the path, or attach another one.\n");
    EXPECT_THAT(run(L"SCRIPT lines.scr"),
                EndsWith(L" isn't there, nor is it in \"" + full("started") + L"\": check its name and folder.\n"));
    const std::wstring whole = path("hut.zdr");
    EXPECT_EQ(run(L"ATTACH " + whole),
              L"The file \"" + full("hut.zdr") + L"\" doesn't exist: check the path, or attach another one.\n");
}

TEST_F(TypedPathsTest, OfWhatIsSavedCountFromTheDrawingsFolder) {
    run(L"SAVEAS copy");
    EXPECT_EQ(session.path(), full("plans/copy.zdr"));
    run(L"SAVEAS ..\\other.zdr");
    EXPECT_EQ(session.path(), full("other.zdr"));
    run(L"SAVEAS \"" + path("started/third.zdr") + L"\"");
    EXPECT_EQ(session.path(), full("started/third.zdr"));
    EXPECT_THAT(window.failures, IsEmpty());
}

TEST_F(TypedPathsTest, OfScriptsAreLookedForInBothFolders) {
    writeBytes("plans/here.scr", "MODEL\n");
    writeBytes("started/here.scr", "REGEN\n");
    writeBytes("started/there.scr", "REGEN\n");
    std::filesystem::create_directory(folder / "plans/there.scr"); // no file
    EXPECT_EQ(run(L"SCRIPT here.scr"), L"Running " + full("plans/here.scr") + L".\n");
    EXPECT_THAT(window.scriptLines, testing::ElementsAre(L"MODEL"));
    EXPECT_EQ(run(L"SCRIPT --keep-going there.scr"), L"Running " + full("started/there.scr") + L".\n");
    EXPECT_THAT(window.scriptLines, testing::ElementsAre(L"REGEN"));
}

TEST_F(TypedPathsTest, OfReferencesAreKeptShortOnlyFromTheDrawingsFolder) {
    writePlan("plans/hut.zdr", L"Here");
    writePlan("barn.zdr", L"Here");
    writePlan("started/shed.zdr", L"There");
    for (const wchar_t* line : {L"ATTACH hut", L"ATTACH ..\\barn.zdr", L"ATTACH shed"})
        EXPECT_THAT(run(line), HasSubstr(L"is attached."));
    EXPECT_EQ(drawing().references.at(0).path, L"hut.zdr");
    EXPECT_EQ(drawing().references.at(1).path, zdr::widePath(std::filesystem::path("../barn.zdr").make_preferred()));
    EXPECT_EQ(drawing().references.at(2).path, full("started/shed.zdr"));
    run(L"SAVE");
    EXPECT_THAT(run(L"OPEN house"), Not(HasSubstr(L"is not shown")));
}

TEST_F(TypedPathsTest, ThatEndInNoNameOfAFileAreRefusedBeforeAnythingIsWritten) {
    for (const wchar_t* name : {L"a|b.zdr", L"a?b", L"plan*", L"<plan>",
                                L"a\x0001"
                                L"b"}) {
        window.failures.clear();
        run(std::wstring(L"SAVEAS ") + name);
        ASSERT_EQ(window.failures.size(), 1u);
        EXPECT_THAT(window.failures[0],
                    EndsWith(L"\" can't be the name of a file: give one without < > : \" / \\ | ? *."));
        EXPECT_FALSE(done);
    }
    EXPECT_THAT(window.questions, IsEmpty());
    EXPECT_EQ(session.path(), full("plans/house.zdr"));
    EXPECT_EQ(workbench::fileNameProblem(L"a|b.zdr"),
              L"\"a|b.zdr\" can't be the name of a file: give one without < > : \" / \\ | ? *.");
    EXPECT_EQ(workbench::fileNameProblem(full("plans/ok (1).zdr")), L"");
}
