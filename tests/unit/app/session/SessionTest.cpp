// The drawing at work, through the commands that a user types.

#include "CommandDispatch.h"
#include "Documents.h"
#include "HandmadeDrawing.h"
#include "KelEditor.h"
#include "RuntimeTest.h"
#include "ScriptedWindow.h"
#include "SystemRegistry.h"
#include "TemporaryFolder.h"

#include "files/DrawingFile.h"
#include "files/FileFormat.h"
#include "files/FileProgress.h"
#include "files/TextCoding.h"

#include "drawing_generated.h"

#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using workbench::SaveAnswer;

namespace {

void turnBaseLayerOff() {
    KelDbDatabase* database = keldbHostApplicationServices()->workingDatabase();
    KelDbLayerTable* table = nullptr;
    if (database->getSymbolTable(table, KelDb::kForRead) != Vorn::eOk)
        return;
    KelDbLayerTableRecord* record = nullptr;
    if (table->getAt(L"Base", record, KelDb::kForWrite) == Vorn::eOk) {
        record->setIsOff(!record->isOff());
        record->close();
    }
    table->close();
}

std::wstring argumentsSeen;
void seeArguments() {
    argumentsSeen = keledCommandArguments();
}

void failWithoutWord() {
    throw 1;
}

/// A file as a newer program might write it.
std::string drawingOfNewerVersion() {
    flatbuffers::FlatBufferBuilder builder;
    const auto start = builder.StartTable();
    builder.AddElement<std::uint32_t>(zdr::file::Drawing::VT_VERSION, zdr::kFileVersion + 1, 0);
    builder.Finish(flatbuffers::Offset<zdr::file::Drawing>(builder.EndTable(start)), zdr::file::DrawingIdentifier());
    return {reinterpret_cast<const char*>(builder.GetBufferPointer()), builder.GetSize()};
}

class SessionTest : public RuntimeTest {
  protected:
    SessionTest() : session(window) {
        runtime::commandStack().addCommand(L"TEST", L"TURNOFF", L"AUSSCHALTEN", 0, turnBaseLayerOff);
        runtime::commandStack().addCommand(L"TEST", L"THROW", L"THROW", 0, failWithoutWord);
        runtime::commandStack().addCommand(L"TEST", L"SEE", L"SEHEN", 0, seeArguments);
    }

    void run(const std::wstring& line) {
        window.printed.clear();
        workbench::runLine(session, line);
    }
    std::wstring path(const char* name) const { return zdr::widePath(folder / name); }
    void writeBytes(const char* name, const std::string& bytes) {
        std::ofstream(folder / name, std::ios::binary) << bytes;
    }
    bool isBaseOn() const { return session.drawing().columns.flags[0] & zdr::kLayerOn; }

    TemporaryFolder temporary; // goes after the session, which has a file in it open
    fs::path folder{temporary.path()};
    ScriptedWindow window;
    workbench::Session session;
};

} // namespace

TEST_F(SessionTest, StartsWithANewUnmodifiedDrawing) {
    EXPECT_FALSE(session.isModified());
    EXPECT_EQ(session.path(), L"");
    EXPECT_EQ(runtime::documentCount(), 1u);
}

TEST_F(SessionTest, AnswersAnUnknownCommandInOneSentence) {
    run(L"foo bar");
    EXPECT_EQ(window.printed, L"Command: foo bar\nUnknown command \"FOO\": HELP lists the commands.\n");
}

TEST_F(SessionTest, SaysNothingToAnEmptyLine) {
    run(L"   ");
    EXPECT_EQ(window.printed, L"");
}

TEST_F(SessionTest, ListsItsOwnCommandsAndThoseOfModules) {
    run(L"help");
    EXPECT_THAT(window.printed, HasSubstr(L"OPEN [path] - Opens a drawing; without a path, asks for one.\n"));
    EXPECT_THAT(window.printed, HasSubstr(L"TURNOFF - From the module group TEST.\n"));
}

TEST_F(SessionTest, TellsAModulesCommandWhatStandsBehindItsName) {
    run(L"  see   SAVE \"Ground floor\"  ");
    EXPECT_EQ(argumentsSeen, L"SAVE \"Ground floor\"");
    EXPECT_STREQ(keledCommandArguments(), L"") << "no command is running";
    run(L"sehen");
    EXPECT_EQ(argumentsSeen, L"");
}

TEST_F(SessionTest, RunsAModulesCommandByEitherName) {
    run(L"turnoff");
    EXPECT_FALSE(isBaseOn());
    run(L"Ausschalten");
    EXPECT_TRUE(isBaseOn());
}

TEST_F(SessionTest, AModulesCommandIsOneStepOfUndo) {
    run(L"TURNOFF");
    run(L"UNDO");
    EXPECT_TRUE(isBaseOn());
    run(L"REDO");
    EXPECT_FALSE(isBaseOn());
    EXPECT_EQ(window.changed, 2);
}

TEST_F(SessionTest, SaysWhenThereIsNothingToUndo) {
    run(L"U");
    EXPECT_THAT(window.printed, EndsWith(L"There is nothing to undo: change the drawing first.\n"));
    run(L"REDO");
    EXPECT_THAT(window.printed, EndsWith(L"There is nothing to redo: take a change back by UNDO first.\n"));
}

TEST_F(SessionTest, AnExceptionEndsTheCommandAndNothingElse) {
    run(L"THROW");
    EXPECT_THAT(window.failures, ElementsAre(L"THROW failed for an unknown reason."));
    run(L"TURNOFF");
    EXPECT_FALSE(isBaseOn());
}

TEST_F(SessionTest, SavesAndOpensAgain) {
    run(L"TURNOFF");
    EXPECT_TRUE(session.isModified());
    run(L"SAVEAS \"" + path("a b") + L"\"");
    EXPECT_THAT(window.failures, IsEmpty());
    EXPECT_EQ(session.name(), L"a b.zdr");
    EXPECT_FALSE(session.isModified());
    run(L"TURNOFF");
    run(L"SAVE");
    EXPECT_FALSE(session.isModified());
    window.saveAnswer = SaveAnswer::Discard;
    run(L"TURNOFF");
    run(L"OPEN " + path("a b.zdr"));
    EXPECT_TRUE(isBaseOn());
    EXPECT_EQ(runtime::documentCount(), 1u);
    EXPECT_THAT(window.printed, EndsWith(L"Opened " + path("a b.zdr") + L".\n"));
}

TEST_F(SessionTest, IsUnmodifiedOnceWhatWasSavedIsBack) {
    run(L"TURNOFF");
    run(L"UNDO");
    EXPECT_FALSE(session.isModified());
    run(L"REDO");
    EXPECT_TRUE(session.isModified());
    run(L"SAVEAS " + path("off.zdr"));
    run(L"UNDO");
    EXPECT_TRUE(session.isModified()) << "the file holds what was taken back";
    run(L"REDO");
    EXPECT_FALSE(session.isModified());
    run(L"UNDO");
    run(L"TURNOFF");
    EXPECT_TRUE(session.isModified()) << "nothing tells that this is the change that was saved";
    EXPECT_THAT(window.questions, IsEmpty());
}

TEST_F(SessionTest, ADrawingThatCantBeReadLeavesTheOpenOneUntouched) {
    run(L"TURNOFF");
    run(L"SAVEAS " + path("good.zdr"));
    const auto size = fs::file_size(folder / "good.zdr");
    fs::copy_file(folder / "good.zdr", folder / "cut.zdr");
    fs::resize_file(folder / "cut.zdr", size / 2);
    writeBytes("text.zdr", "This is no drawing.");
    writeBytes("newer.zdr", drawingOfNewerVersion());
    run(L"TURNOFF");
    const int before = window.replaced;
    const std::pair<const char*, const wchar_t*> refusals[] = {
        {"missing.zdr", L"doesn't exist"},
        {"text.zdr", L"isn't a drawing"},
        {"cut.zdr", L"is cut off"},
        {"newer.zdr", L"was written by a newer version of this program"},
    };
    for (const auto& [name, reason] : refusals) {
        window.failures.clear();
        run(L"OPEN " + path(name));
        ASSERT_EQ(window.failures.size(), 1u) << name;
        EXPECT_THAT(window.failures[0], StartsWith(L"The file \"" + path(name) + L"\" " + reason));
        EXPECT_THAT(window.failures[0], EndsWith(L"."));
    }
    EXPECT_THAT(window.questions, IsEmpty()) << "nothing is asked for a file that can't be opened";
    EXPECT_EQ(session.path(), path("good.zdr"));
    EXPECT_TRUE(session.isModified());
    EXPECT_TRUE(isBaseOn());
    EXPECT_EQ(window.replaced, before);
}

TEST_F(SessionTest, TellsWhenAnotherProgramHasTheDrawingOpen) {
    const wchar_t* told = L"Another program has \"a.zdr\" open too: whoever saves it later is asked before the other's "
                          L"changes go.\n";
    run(L"SAVEAS " + path("a.zdr"));
    EXPECT_TRUE(zdr::OpenMark(path("a.zdr")).isOthers()) << "seen by others from when it is saved there";
    run(L"OPEN " + path("a.zdr"));
    EXPECT_THAT(window.printed, Not(HasSubstr(told))) << "it is open here";
    run(L"NEW");
    {
        const zdr::OpenMark other(path("a.zdr"));
        EXPECT_FALSE(other.isOthers()) << "it isn't open any more";
        run(L"OPEN " + path("a.zdr"));
        EXPECT_THAT(window.printed, EndsWith(L"Opened " + path("a.zdr") + L".\n" + told));
        run(L"SAVE");
        EXPECT_THAT(window.printed, EndsWith(L"Saved " + path("a.zdr") + L".\n")) << "it has been told";
    }
    run(L"OPEN " + path("a.zdr"));
    EXPECT_THAT(window.printed, EndsWith(L"Opened " + path("a.zdr") + L".\n"));
    const zdr::OpenMark other(path("b.zdr"));
    run(L"SAVEAS " + path("b.zdr"));
    EXPECT_THAT(window.printed, HasSubstr(L"Another program has \"b.zdr\" open too"));
    EXPECT_FALSE(zdr::OpenMark(path("a.zdr")).isOthers());
}

TEST_F(SessionTest, KnowsWhetherThereIsSomethingToUndoOrRedo) {
    EXPECT_FALSE(session.canUndo() || session.canRedo());
    run(L"TURNOFF");
    EXPECT_TRUE(session.canUndo() && !session.canRedo());
    run(L"U");
    EXPECT_TRUE(!session.canUndo() && session.canRedo());
    run(L"REDO");
    EXPECT_TRUE(session.canUndo() && !session.canRedo());
}

TEST_F(SessionTest, AsksForAPathThatWasntGiven) {
    run(L"OPEN");
    run(L"SAVEAS");
    EXPECT_THAT(window.questions, ElementsAre(L"open", L"save as"));
    EXPECT_EQ(window.proposal, L"Drawing1.zdr");
    window.chosenFile = path("chosen.zdr");
    run(L"SAVE");
    EXPECT_EQ(session.path(), path("chosen.zdr"));
}

constexpr zdr::ProgressShower kCancelling = {
    [](zdr::FileWork, const std::wstring&) -> void* { return &argumentsSeen; },
    [](void*, std::uint64_t, std::uint64_t) { return false; },
    [](void*) {},
};

TEST_F(SessionTest, WhatTheUserCancelsIsToldWithoutABoxAndChangesNothing) {
    run(L"SAVEAS " + path("a.zdr"));
    run(L"TURNOFF");
    zdr::setProgressShower(&kCancelling);
    run(L"SAVE");
    EXPECT_THAT(window.printed,
                EndsWith(L"The file \"" + path("a.zdr") + L"\" stays as it is, because writing it was cancelled.\n"));
    EXPECT_TRUE(session.isModified());
    run(L"OPEN " + path("a.zdr"));
    EXPECT_THAT(window.printed,
                EndsWith(L"The file \"" + path("a.zdr") + L"\" isn't read, because that was cancelled.\n"));
    zdr::setProgressShower(nullptr);
    EXPECT_THAT(window.failures, IsEmpty());
    EXPECT_EQ(session.path(), path("a.zdr"));
    EXPECT_FALSE(isBaseOn()) << "the drawing is the one that was open";
}

TEST_F(SessionTest, AsksBeforeUnsavedChangesGo) {
    run(L"SAVEAS " + path("a.zdr"));
    run(L"TURNOFF");
    window.saveAnswer = SaveAnswer::Cancel;
    run(L"OPEN " + path("a.zdr"));
    run(L"QUIT");
    EXPECT_FALSE(isBaseOn());
    EXPECT_EQ(window.quits, 0);
    EXPECT_THAT(window.questions, ElementsAre(L"save a.zdr", L"save a.zdr"));
    window.saveAnswer = SaveAnswer::Save;
    run(L"OPEN " + path("a.zdr"));
    EXPECT_FALSE(isBaseOn()) << "saved first";
    run(L"QUIT");
    EXPECT_EQ(window.quits, 1);
}

TEST_F(SessionTest, StaysWhereItsChangesCantBeSavedFirst) {
    run(L"TURNOFF");
    window.saveAnswer = SaveAnswer::Save;
    run(L"QUIT");
    EXPECT_EQ(window.quits, 0) << "no name was chosen";
    window.chosenFile = zdr::widePath(folder / "missing" / "a.zdr");
    run(L"QUIT");
    EXPECT_EQ(window.quits, 0) << "the folder isn't there";
    window.chosenFile = path("a.zdr");
    zdr::setProgressShower(&kCancelling);
    run(L"QUIT");
    zdr::setProgressShower(nullptr);
    EXPECT_EQ(window.quits, 0) << "writing was cancelled";
    writeBytes("a.zdr", "someone else's");
    run(L"QUIT");
    EXPECT_EQ(window.quits, 0) << "the file is not to be written over";
    EXPECT_TRUE(session.isModified());
    window.overwrite = true;
    run(L"QUIT");
    EXPECT_EQ(window.quits, 1);
}

TEST_F(SessionTest, AsksBeforeItWritesOverAFileThatSomeoneElseHasChanged) {
    run(L"SAVEAS " + path("a.zdr"));
    writeBytes("a.zdr", "changed by someone else");
    run(L"TURNOFF");
    run(L"SAVE");
    ASSERT_EQ(window.questions.size(), 1u);
    EXPECT_THAT(window.questions[0], HasSubstr(path("a.zdr")));
    EXPECT_EQ(fs::file_size(folder / "a.zdr"), 23u) << "left alone";
    EXPECT_TRUE(session.isModified());
    window.overwrite = true;
    run(L"SAVE");
    EXPECT_FALSE(session.isModified());
    EXPECT_GT(fs::file_size(folder / "a.zdr"), 23u);
}

TEST_F(SessionTest, AsksBeforeItSavesUnderTheNameOfAFileThatIsThere) {
    writeBytes("other.zdr", "something");
    run(L"SAVEAS " + path("other.zdr"));
    EXPECT_EQ(window.questions.size(), 1u);
    EXPECT_EQ(session.path(), L"");
    EXPECT_EQ(fs::file_size(folder / "other.zdr"), 9u);
}

TEST_F(SessionTest, TellsAboutAFolderThatIsntThere) {
    run(L"SAVEAS " + zdr::widePath(folder / "missing" / "a.zdr"));
    EXPECT_EQ(window.failures.size(), 1u);
    EXPECT_EQ(session.path(), L"");
}

TEST_F(SessionTest, ShowsLayoutsByNameAndTab) {
    const std::wstring name = session.drawing().layouts.at(0).name;
    run(L"LAYOUT " + name);
    EXPECT_EQ(session.drawing().activeLayout, 0u);
    run(L"MODEL");
    EXPECT_EQ(session.drawing().activeLayout, std::nullopt);
    session.showTab(1);
    EXPECT_EQ(session.drawing().activeLayout, 0u);
    session.showTab(9);
    EXPECT_EQ(session.drawing().activeLayout, 0u);
    run(L"LAYOUT Nowhere");
    EXPECT_THAT(window.printed, EndsWith(L"The drawing has no layout \"Nowhere\": give one of \"Layout1\".\n"));
    EXPECT_FALSE(session.isModified()) << "looking at a drawing is no change that has to be saved";
}

TEST_F(SessionTest, MakesAViewportCurrent) {
    run(L"VPORT 2");
    EXPECT_THAT(window.printed, EndsWith(L"The model tab has no viewports: LAYOUT shows a layout.\n"));
    session.showTab(1);
    const auto& viewport = session.drawing().layouts.at(0).viewports.at(0);
    run(L"VPORT " + std::to_wstring(viewport.number));
    EXPECT_EQ(session.drawing().currentViewport, viewport.handle);
    EXPECT_EQ(keledGetCurViewportObjectId().handle().value(), viewport.handle);
    run(L"VPORT none");
    EXPECT_EQ(session.drawing().currentViewport, std::nullopt);
    EXPECT_TRUE(keledGetCurViewportObjectId().isNull());
    run(L"VPORT 77");
    EXPECT_THAT(window.printed, EndsWith(L"The layout has no viewport 77: give 2, or NONE.\n"));
    run(L"VPORT x");
    EXPECT_THAT(window.printed, EndsWith(L"VPORT takes the number of a viewport, or NONE.\n"));
}

TEST_F(SessionTest, ZoomsToTheExtents) {
    run(L"ZOOM E");
    run(L"z extents");
    EXPECT_EQ(window.zoomed, 2);
    EXPECT_THAT(window.printed, EndsWith(L"All of the drawing is shown.\n"));
    run(L"ZOOM w");
    EXPECT_EQ(window.zoomed, 2);
}

TEST_F(SessionTest, ZoomsInAndOut) {
    run(L"ZOOM in");
    EXPECT_EQ(window.scale, 2);
    run(L"ZOOM OUT");
    run(L"Z out");
    EXPECT_EQ(window.scale, 0.5);
}

TEST_F(SessionTest, RegenDrawsAnew) {
    run(L"REGEN");
    EXPECT_EQ(window.changed, 1);
    EXPECT_THAT(window.printed, EndsWith(L"Everything is drawn anew.\n"));
}

TEST_F(SessionTest, NewStartsANewDrawingAndAsksAboutUnsavedChanges) {
    run(L"SAVEAS " + path("a.zdr"));
    run(L"TURNOFF");
    run(L"NEW");
    EXPECT_FALSE(isBaseOn()) << "the question was answered by Cancel";
    window.saveAnswer = SaveAnswer::Discard;
    const int before = window.replaced;
    run(L"NEW");
    EXPECT_TRUE(isBaseOn());
    EXPECT_EQ(session.path(), L"");
    EXPECT_EQ(session.name(), L"Drawing1");
    EXPECT_FALSE(session.isModified());
    EXPECT_EQ(window.replaced, before + 1);
    EXPECT_EQ(runtime::documentCount(), 1u);
    EXPECT_THAT(window.printed, EndsWith(L"A new drawing is open.\n"));
}

TEST_F(SessionTest, TellsAboutReferencesThatCantBeShown) {
    zdr::Drawing drawing = session.drawing();
    drawing.references.push_back({L"site", L"gone.zdr", {}, 1, 0, nullptr});
    zdr::FileStamp stamp;
    std::wstring reason;
    ASSERT_EQ(zdr::writeDrawingFile(path("a.zdr"), drawing, reason, stamp), Vorn::eOk);
    run(L"OPEN " + path("a.zdr"));
    EXPECT_THAT(window.printed, HasSubstr(L"Reference \"site\" is not shown: "));
    EXPECT_EQ(session.path(), path("a.zdr"));
}
