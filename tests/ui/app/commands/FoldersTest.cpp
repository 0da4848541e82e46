// Names that are typed without a folder, in the command line and in the system's file dialogs: they count from the
// folder of the open drawing, and where nothing is there, from that in which the program was started.

#include "FileDialogSteps.h"
#include "StartFolder.h"
#include "WorkbenchFixture.h"
#include "WorkbenchIds.h"

#include <fstream>

namespace fs = std::filesystem;
using ui::Script;
using ui::View;

namespace {

/// A drawing in the folder "plans" is open, and the program was started in the folder "started".
class FoldersTest : public WorkbenchTest {
  protected:
    FoldersTest() : m_started(folder / "started") {
        fs::create_directory(folder / "plans");
        for (const char* name : {"plans/house.zdr", "plans/site.zdr", "started/site.zdr", "started/barn.zdr"})
            writeSample(name);
        std::ofstream(folder / "plans/lines.scr") << "LAYER NEW Scripted\n";
    }
    std::wstring full(const char* name) const { return (folder / name).make_preferred().wstring(); }
    Script open() const {
        return command(L"OPEN \"" + full("plans/house.zdr") + L'"').then(said(L"Opened " + full("plans/house.zdr")));
    }
    /// Types a name into the file dialog.
    static Script choose(const wchar_t* title, const std::wstring& name) {
        Script script;
        script.waitUntil("the file dialog", [title](const View& view) { return view.title() == title; })
            .then(ui::enterFileName(name));
        return script;
    }

  private:
    StartFolder m_started;
};

} // namespace

TEST_F(FoldersTest, NamesAreLookedForInTheDrawingsFolderAndThenInThatOfTheStart) {
    Script script;
    script.then(open())
        .then(command(L"OPEN site"))
        .then(said(L"Opened " + full("plans/site.zdr") + L"."))
        .then(command(L"SCRIPT lines.scr"))
        .then(said(L"Running " + full("plans/lines.scr") + L"."))
        .then(said(L"1 line done."))
        .then(command(L"SAVEAS copy"))
        .then(said(L"Saved " + full("plans/copy.zdr") + L"."))
        .then(command(L"OPEN barn"))
        .then(said(L"Opened " + full("started/barn.zdr") + L"."))
        .then(command(L"QUIT"));
    runWith(script);
    EXPECT_TRUE(fs::exists(folder / "plans/copy.zdr"));
}

TEST_F(FoldersTest, WhatIsInNoFolderIsToldWithAllOfThem) {
    const std::wstring places =
        full("plans/gone.zdr") + L"\" doesn't exist, nor is it in \"" + full("started") + L"\": ";
    Script script;
    script.then(open())
        .then(command(L"ATTACH gone"))
        .then(said(L"The file \"" + places + L"check the path, or attach another one."))
        .then(command(L"OPEN gone"))
        .then(answerBox(L"The file \"" + places + L"check its name and folder.", IDOK))
        .then(command(L"QUIT"));
    runWith(script);
}

// The system would open them in the folder of the last choice, which is another one here.
TEST_F(FoldersTest, TheFileDialogsOpenInTheDrawingsFolder) {
    Script script;
    script.then(command(L"OPEN"))
        .then(choose(L"Open", full("started/barn.zdr")))
        .then(said(L"Opened " + full("started/barn.zdr") + L"."))
        .then(open())
        .then(command(L"OPEN"))
        .then(choose(L"Open", L"site.zdr"))
        .then(said(L"Opened " + full("plans/site.zdr") + L"."))
        .then(command(L"SCRIPT"))
        .then(choose(L"Open", L"lines.scr"))
        .then(said(L"Running " + full("plans/lines.scr") + L"."))
        .then(command(L"ATTACH"))
        .then(choose(L"Open", L"house.zdr"))
        .then(said(L"\"house\" is attached."))
        .then(command(L"SAVEAS"))
        .then(choose(L"Save As", L"copy"))
        .then(said(L"Saved " + full("plans/copy.zdr") + L"."))
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(FoldersTest, TabCompletesNamesOfTheDrawingsFolder) {
    Script script;
    script.then(open()).type(L"SCRIPT --keep-going li").press(VK_TAB).press(VK_RETURN);
    script.then(said(L"Command: SCRIPT --keep-going lines.scr"))
        .then(said(L"Running " + full("plans/lines.scr") + L"."))
        .then(said(L"1 line done."));
    runAndThrowAway(script);
}

TEST_F(FoldersTest, AReferenceThatIsUnloadedStaysSoInTheFileAndIsTold) {
    const std::wstring told = L"Reference \"site\" is unloaded: RELOAD shows it.\r\nOpened ";
    Script script;
    script.then(open())
        .then(command(L"ATTACH site"))
        .then(said(L"\"site\" is attached."))
        .then(command(L"UNLOAD site"))
        .then(said(L"\"site\" is left out until RELOAD."))
        .then(command(L"SAVE"))
        .then(said(L"Saved " + full("plans/house.zdr")))
        .then(command(L"SAVEAS \"" + full("started/house.zdr") + L'"'))
        .then(said(L"Saved " + full("started/house.zdr")))
        .then(command(L"OPEN \"" + full("plans/house.zdr") + L'"'))
        .then(said(told + full("plans/house.zdr")))
        .then(command(L"OPEN \"" + full("started/house.zdr") + L'"'))
        .then(said(told + full("started/house.zdr")))
        .look("it isn't shown",
              [this](const View&) { EXPECT_EQ(session().drawing().references.at(0).drawing, nullptr); })
        .then(command(L"RELOAD site"))
        .then(said(L"1 reference is read again."))
        .then(command(L"SAVE"))
        .then(said(L"Command: SAVE\r\nSaved " + full("started/house.zdr")))
        .then(command(L"OPEN house"))
        .then(said(L"Command: OPEN house\r\nOpened "))
        .look("it is shown", [this](const View&) { EXPECT_NE(session().drawing().references.at(0).drawing, nullptr); })
        .then(command(L"QUIT"));
    runWith(script);
}
