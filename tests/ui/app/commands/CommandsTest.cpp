// Every command, typed into the command line of the real window.

#include "KelDbDatabase.h"
#include "WorkbenchFixture.h"
#include "WorkbenchIds.h"

#include "engine/DatabaseAccess.h"
#include "files/DrawingFile.h"

#include <fstream>

namespace fs = std::filesystem;
using ui::Script;
using ui::View;

namespace {

class CommandsTest : public WorkbenchTest {
  protected:
    /// Types a line and waits for the answer.
    Script ask(const std::wstring& line, const std::wstring& answer) {
        return command(line).then(said(L"Command: " + line + L"\r\n" + answer));
    }
    unsigned flags(const wchar_t* layer) const {
        const std::size_t index = engine::layerIndex(window->session().database(), layer);
        return index == zdr::kNone ? 0xFFu : window->session().drawing().columns.flags[index];
    }
    const zdr::Drawing& drawing() const { return window->session().drawing(); }
    double scale() const {
        auto* view = static_cast<workbench::DrawingView*>(
            CWnd::FromHandlePermanent(GetDlgItem(window->m_hWnd, IDC_DRAWING_VIEW)));
        return view->view().scale();
    }
    void writeText(const char* name, const std::string& text) {
        std::ofstream(folder / name, std::ios::binary) << text;
    }
};

} // namespace

TEST_F(CommandsTest, LayersAreMadeAndChanged) {
    Script script;
    script.then(ask(L"LAYER MAKE Walls", L"\"Walls\" is made and is the current layer."))
        .then(ask(L"LAYER NEW Windows,\"Ground floor\"", L"2 layers are made."))
        .then(ask(L"LAYER SET Base", L"\"Base\" is the current layer."))
        .then(ask(L"LAYER OFF w*", L"2 layers are off."))
        .look("both are off", [this](const View&) { EXPECT_FALSE(flags(L"Windows") & zdr::kLayerOn); })
        .then(ask(L"UNDO", L"Undone: LAYER OFF."))
        .look("both are on", [this](const View&) { EXPECT_TRUE(flags(L"Windows") & zdr::kLayerOn); })
        .then(ask(L"REDO", L"Made again: LAYER OFF."))
        .then(ask(L"LAYER ON Walls", L"1 layer is on."))
        .then(ask(L"LAYER FREEZE \"Ground floor\"", L"1 layer is frozen."))
        .then(ask(L"LAYER THAW *", L"4 layers are thawed."))
        .then(ask(L"LAYER LOCK Walls", L"1 layer is locked."))
        .then(ask(L"LAYER UNLOCK Walls", L"1 layer is unlocked."))
        .then(ask(L"LAYER COLOUR blue Walls", L"1 layer is given the color blue."))
        .then(ask(L"LAYER LINETYPE Continuous Walls", L"1 layer is given the linetype Continuous."))
        .then(ask(L"LAYER LINEWEIGHT 0.5 Walls", L"1 layer is given the lineweight 0.5."))
        .then(ask(L"LAYER PLOTSTYLE Normal Walls", L"1 layer is given the plot style Normal."))
        .then(ask(L"LAYER PLOT no Walls", L"1 layer is not plotted."))
        .then(ask(L"LAYER NEWVIEWPORTS no Walls", L"1 layer is frozen in new viewports."))
        .then(ask(L"LAYER DESCRIPTION \"to stay\" Walls", L"1 layer is described."))
        .then(ask(L"LAYER LIST Walls", L"Walls: on, not plotted, frozen in new viewports, Blue, Continuous, 0.50 mm"
                                       L" - to stay"))
        .then(ask(L"LAYER RENAME Walls Mauern", L"\"Walls\" is called \"Mauern\" now."))
        .then(ask(L"LAYER DELETE Mauern", L"1 layer is deleted."))
        .then(ask(L"LAYER NEW \" Attic \"", L"1 layer is made."))
        .look("without the blanks", [this](const View&) { EXPECT_TRUE(flags(L"Attic") & zdr::kLayerOn); })
        .then(ask(L"UNDO 2", L"Undone: 2 changes, LAYER NEW, LAYER DELETE."))
        .look("the title shows the change",
              [](const View& view) { EXPECT_EQ(view.title(), L"Drawing1* - Kel Workbench"); });
    runAndThrowAway(script);
}

TEST_F(CommandsTest, SpacesAndViewportsAreShownAndZoomed) {
    double before = 0;
    Script script;
    script.then(ask(L"LAYOUT Layout1", L"The layout \"Layout1\" is shown."))
        .then(ask(L"VPORT 2", L"Viewport 2 is current."))
        .then(ask(L"VPLAYER FREEZE Base", L"1 layer is frozen in the viewport."))
        .then(ask(L"VPLAYER THAW Base IN ALL", L"1 layer is thawed in the viewport."))
        .then(ask(L"VPLAYER COLOUR red Base", L"1 layer is shown with red in the viewport."))
        .then(ask(L"VPLAYER LINETYPE Continuous", L"1 layer is shown with Continuous in the viewport."))
        .then(ask(L"VPLAYER LINEWEIGHT 1", L"1 layer is shown with 1 in the viewport."))
        .then(ask(L"VPLAYER PLOTSTYLE Normal", L"1 layer is shown with Normal in the viewport."))
        .then(ask(L"VPLAYER RESET Base",
                  L"1 layer is without overrides in the viewport, and frozen there or not as before."))
        .then(ask(L"VPORT none", L"The paper of the layout is current."))
        .look("the sheet", [&](const View&) { before = scale(); })
        .then(ask(L"ZOOM IN", L"Zoomed in."))
        .look("twice as large", [&](const View&) { EXPECT_NEAR(scale(), 2 * before, 1e-9); })
        .then(ask(L"ZOOM OUT", L"Zoomed out."))
        .then(ask(L"Z OUT", L"Zoomed out."))
        .look("half as large", [&](const View&) { EXPECT_NEAR(scale(), before / 2, 1e-9); })
        .then(ask(L"ZOOM EXTENTS", L"All of the drawing is shown."))
        .look("as before", [&](const View&) { EXPECT_NEAR(scale(), before, 1e-9); })
        .then(ask(L"REGEN", L"Everything is drawn anew."))
        .then(ask(L"MODEL", L"Model space is shown."));
    runAndThrowAway(script);
}

TEST_F(CommandsTest, DrawingsAreAttachedAndDetached) {
    writeSample("site.zdr");
    Script script;
    script.then(ask(L"ATTACH " + path("site.zdr") + L" site 0 0 2", L"\"site\" is attached."))
        .look("its layer is there", [this](const View&) { EXPECT_NE(flags(L"site!Base"), 0xFFu); })
        .then(ask(L"RELOAD site", L"1 reference is read again."))
        .then(ask(L"UNLOAD site", L"\"site\" is left out until RELOAD."))
        .then(ask(L"DETACH site", L"\"site\" is detached."))
        .look("its layer is gone", [this](const View&) { EXPECT_EQ(flags(L"site!Base"), 0xFFu); });
    runAndThrowAway(script);
}

TEST_F(CommandsTest, AttachAsksForAFile) {
    writeSample("site.zdr");
    Script script;
    script.then(command(L"ATTACH"))
        .waitUntil("the file dialog", [](const View& view) { return view.title() == L"Open"; })
        .type(path("site.zdr"))
        .press(VK_RETURN)
        .then(said(L"\"site\" is attached."));
    runAndThrowAway(script);
}

TEST_F(CommandsTest, VariablesHelpAndNew) {
    Script script;
    script.then(ask(L"SETVAR LTSCALE 2", L"LTSCALE = 2"))
        .then(ask(L"SETVAR CLAYER", L"CLAYER = \"Base\""))
        .then(ask(L"HELP VPORT", L"VPORT number|NONE - Makes a viewport"))
        .then(ask(L"LAYER OFF Base", L"1 layer is off."))
        .then(command(L"NEW"))
        .then(answerBox(L"Save the changes to Drawing1?", IDNO))
        .then(said(L"A new drawing is open."))
        .look("the title", [](const View& view) { EXPECT_EQ(view.title(), L"Drawing1 - Kel Workbench"); })
        .then(ask(L"SETVAR LTSCALE", L"LTSCALE = 1.0000"))
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(CommandsTest, AScriptRunsItsLinesInOrder) {
    writeText("inner.scr", "LAYER NEW Inner\n");
    writeText("outer.scr", "; a comment\nLAYER NEW First\nSCRIPT \"" + ui::narrow(path("inner.scr")) +
                               "\"\nLAYER DELETE Inner\nLAYER NEW Last\n");
    Script script;
    script.then(command(L"SCRIPT " + path("outer.scr")))
        .then(said(L"LAYER DELETE Inner\r\n1 layer is deleted."))
        .then(said(L"LAYER NEW Last\r\n1 layer is made."))
        .look("all lines were run", [this](const View&) { EXPECT_EQ(drawing().layers.size(), 3u); });
    runAndThrowAway(script);
}

TEST_F(CommandsTest, ScriptAsksForAFile) {
    writeText("lines.scr", "LAYER NEW Scripted\n");
    Script script;
    script.then(command(L"SCRIPT"))
        .waitUntil("the file dialog", [](const View& view) { return view.title() == L"Open"; })
        .type(path("lines.scr"))
        .press(VK_RETURN)
        .then(said(L"Running " + path("lines.scr") + L"."))
        .then(said(L"Command: LAYER NEW Scripted\r\n1 layer is made."))
        .pressAlt(L'f')
        .press('R')
        .waitUntil("the file dialog by the menu", [](const View& view) { return view.title() == L"Open"; })
        .press(VK_ESCAPE)
        .then(said(L"No file is chosen, and nothing has changed."))
        .look("nothing more was run", [this](const View&) { EXPECT_EQ(drawing().layers.size(), 2u); });
    runAndThrowAway(script);
}

TEST_F(CommandsTest, AScriptStopsAtALineThatCouldntBeDone) {
    writeText("stops.scr", "LAYER NEW First\nOPEN \"" + ui::narrow(path("missing.zdr")) + "\"\nLAYER DELETE First\n");
    Script script;
    script.then(command(L"SCRIPT " + path("stops.scr")))
        .then(answerBox(L"missing.zdr", IDOK))
        .then(said(L"has stopped, because a line couldn't be done: 1 line done, 1 failed, 1 not run."))
        .look("the last line wasn't run", [this](const View&) { EXPECT_EQ(drawing().layers.size(), 2u); })
        .then(command(L"SCRIPT --keep-going " + path("stops.scr")))
        .then(answerBox(L"missing.zdr", IDOK))
        .then(said(L"has ended: 2 lines done, 1 failed."))
        .look("now it was", [this](const View&) { EXPECT_EQ(drawing().layers.size(), 1u); });
    runAndThrowAway(script);
}

TEST_F(CommandsTest, AScriptStopsWhereTheChoiceOfADrawingIsCancelled) {
    writeText("stops.scr", "LAYER NEW First\nOPEN\nLAYER DELETE First\n");
    Script script;
    script.then(command(L"SCRIPT " + path("stops.scr")))
        .waitUntil("the file dialog", [](const View& view) { return view.title() == L"Open"; })
        .press(VK_ESCAPE)
        .then(said(L"No file is chosen, and nothing has changed.\r\nThe script "))
        .then(said(L": 1 line done, 1 failed, 1 not run."))
        .look("the last line wasn't run", [this](const View&) { EXPECT_EQ(drawing().layers.size(), 2u); });
    runAndThrowAway(script);
}

TEST_F(CommandsTest, ADrawingIsNoScript) {
    writeSample("plan.zdr");
    Script script;
    script.then(command(L"SCRIPT " + path("plan.zdr")))
        .then(said(L"plan.zdr\" isn't text: choose a file of command lines, saved as UTF-8."))
        .look("nothing was run",
              [](const View& view) {
                  const std::wstring history = View(view.control(IDC_COMMAND_PANE)).text(IDC_COMMAND_HISTORY);
                  EXPECT_EQ(history.find(L"Unknown command"), std::wstring::npos);
              })
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(CommandsTest, EscStopsAScript) {
    std::string lines;
    for (int i = 0; i < 100000; ++i)
        lines += "REGEN\n";
    writeText("long.scr", lines);
    Script script;
    script.then(command(L"SCRIPT " + path("long.scr")))
        .then(said(L"Command: REGEN"))
        .press(VK_ESCAPE)
        .then(said(L"The script is stopped; what it has done stays."))
        .then(said(L" not run."))
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(CommandsTest, AScriptThatRunsItselfEnds) {
    writeText("self.scr", "SCRIPT \"" + ui::narrow(path("self.scr")) + "\"\n");
    Script script;
    script.then(command(L"SCRIPT " + path("self.scr")))
        .then(said(L"too many scripts wait for each other: look for one that runs itself."))
        .then(command(L"QUIT"));
    runWith(script);
}
