// The layer states command in the Workbench: from the typed line to the changed drawing, and back by UNDO.

#include "DrawingDifference.h"
#include "FileDialogSteps.h"
#include "KelEditor.h"
#include "LayerStatesTest.h"
#include "WorkbenchIds.h"

#include "engine/DatabaseAccess.h"
#include "resources/resource.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>

using ui::Script;
using ui::View;

namespace {

class LayerStateCommand : public LayerStatesTest {
  protected:
    static Script expectRed(bool shown) {
        Script script;
        script.waitUntil(shown ? "the red line is shown" : "the red line is hidden", [shown](const View& view) {
            const auto pixels = view.pixels(IDC_DRAWING_VIEW);
            return !pixels.empty() && (std::count(pixels.begin(), pixels.end(), RGB(255, 0, 0)) > 100) == shown;
        });
        return script;
    }

    /// What makes the open drawing another one than that; a handle that was given away once isn't given again.
    std::string differenceTo(zdr::Drawing drawing) {
        drawing.nextHandle = session().drawing().nextHandle;
        return difference(drawing, session().drawing());
    }
    /// Does something in the manager, and sees that one UNDO takes all of it back, and one REDO does it again.
    void expectOneStep(const Script& action) {
        zdr::Drawing before, after;
        Script script;
        script.then(command(L"OPEN " + path("states.zdr")))
            .then(said(L"states.zdr"))
            .look("the drawing before", [&](const View&) { before = session().drawing(); })
            .then(command(L"LAYERSTATE"))
            .waitForControl(IDC_LSTATE_RES_LIST)
            .then(action)
            .waitForControl(IDC_LSTATE_RES_LIST)
            .click(IDC_LSTATE_RES_CLOSE)
            .then(said(L"Command: LAYERSTATE"))
            .look("the drawing after",
                  [&](const View&) {
                      after = session().drawing();
                      EXPECT_NE(differenceTo(before), "");
                  })
            .then(command(L"UNDO"))
            .then(said(L"Undone: LAYERSTATE."))
            .look("as before", [&](const View&) { EXPECT_EQ(differenceTo(before), ""); })
            .then(command(L"REDO"))
            .then(said(L"Made again: LAYERSTATE."))
            .look("as after", [&](const View&) { EXPECT_EQ(differenceTo(after), ""); })
            .then(command(L"UNDO"))
            .then(command(L"UNDO"))
            .then(said(L"There is nothing to undo"))
            .look("nothing is left to be saved",
                  [](const View& view) { EXPECT_EQ(view.title(), L"states.zdr - Kel Workbench"); })
            .then(command(L"QUIT"));
        runWith(script);
    }
};

} // namespace

TEST_F(LayerStateCommand, ARestoreChangesTheDrawingAndUndoTakesItBack) {
    Script script;
    script.then(command(L"OPEN " + path("states.zdr")))
        .then(expectRed(true))
        .then(command(L"layerstate"))
        .waitForControl(IDC_LSTATE_RES_RESTORE)
        .clickCell(IDC_LSTATE_RES_LIST, 0, 0)
        .click(IDC_LSTATE_RES_RESTORE)
        .then(expectRed(false))
        .look("the title shows the change",
              [](const View& view) { EXPECT_EQ(view.title(), L"states.zdr* - Kel Workbench"); })
        .then(command(L"UNDO"))
        .then(expectRed(true))
        .then(command(L"REDO"))
        .then(expectRed(false))
        .then(command(L"QUIT"))
        .then(answerBox(L"Save the changes to states.zdr?", IDNO));
    runWith(script);
}

TEST_F(LayerStateCommand, ACancelledEditIsNoChange) {
    Script script;
    script.then(command(L"OPEN " + path("states.zdr")))
        .then(said(L"states.zdr"))
        .then(command(L"LAYER COLOR 3 Red"))
        .then(command(L"UNDO"))
        .then(command(L"SAVE"))
        .then(command(L"LAYERSTATE"))
        .waitForControl(IDC_LSTATE_RES_EDIT)
        .clickCell(IDC_LSTATE_RES_LIST, 0, 0)
        .click(IDC_LSTATE_RES_EDIT)
        .waitForControl(IDC_LAYER_GRID)
        .press(VK_ESCAPE)
        .waitForControl(IDC_LSTATE_RES_CLOSE)
        .click(IDC_LSTATE_RES_CLOSE)
        .then(said(L"Command: LAYERSTATE"))
        .look("the title shows no change",
              [](const View& view) { EXPECT_EQ(view.title(), L"states.zdr - Kel Workbench"); })
        .then(command(L"REDO"))
        .then(said(L"Made again: LAYER COLOR."))
        .then(command(L"QUIT"))
        .then(answerBox(L"Save the changes to states.zdr?", IDNO));
    runWith(script);
}

TEST_F(LayerStateCommand, TheKeyAndTheMenuRunTheCommandToo) {
    Script script;
    script.press('L', ui::holdControl)
        .waitForControl(IDC_LSTATE_RES_CLOSE)
        .click(IDC_LSTATE_RES_CLOSE)
        .then(said(L"Command: LAYERSTATE"))
        .pressAlt(L'o')
        .press('L')
        .waitForControl(IDC_LSTATE_RES_CLOSE)
        .click(IDC_LSTATE_RES_CLOSE)
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(LayerStateCommand, KeysOfTheCommandLineDoNothingBehindTheDialog) {
    Script script;
    script.then(command(L"LAYERSTATE"))
        .waitForControl(IDC_LSTATE_RES_CLOSE)
        .press('E', ui::holdControl)
        .press('S', ui::holdControl)
        .look("the dialog is still in front", [](const View& view) { EXPECT_TRUE(view.has(IDC_LSTATE_RES_CLOSE)); })
        .click(IDC_LSTATE_RES_CLOSE)
        .then(command(L"QUIT"));
    runWith(script);
    EXPECT_EQ(session().path(), L"") << "nothing was saved";
}

TEST_F(LayerStateCommand, AnUpdateIsOneStepOfUndo) {
    expectOneStep(Script().click(IDC_LSTATE_RES_UPDATE).waitForControl(IDYES).click(IDYES));
}

TEST_F(LayerStateCommand, ANewStateIsOneStepOfUndo) {
    expectOneStep(Script()
                      .click(IDC_LSTATE_RES_NEW)
                      .waitForControl(IDC_LSTATE_SAVE_NAME)
                      .type(L"Roof")
                      .press(VK_TAB)
                      .type(L"Beams")
                      .click(IDOK));
}

TEST_F(LayerStateCommand, ADeleteOfSeveralIsOneStepOfUndo) {
    expectOneStep(Script()
                      .press(VK_DOWN, ui::holdShift)
                      .press(VK_DOWN, ui::holdShift)
                      .click(IDC_LSTATE_RES_DELETE)
                      .waitForControl(IDC_LSTATE_DEL_ALL)
                      .click(IDC_LSTATE_DEL_THIS)
                      .waitForControl(IDC_LSTATE_DEL_ALL)
                      .click(IDC_LSTATE_DEL_ALL));
}

TEST_F(LayerStateCommand, AllThatOneRunOfTheManagerDidIsOneStepOfUndo) {
    expectOneStep(Script()
                      .click(IDC_LSTATE_RES_UPDATE)
                      .waitForControl(IDYES)
                      .click(IDYES)
                      .waitForControl(IDC_LSTATE_RES_LIST)
                      .clickCellOf(IDC_LSTATE_RES_LIST, L"Cellar")
                      .click(IDC_LSTATE_RES_DELETE)
                      .waitForControl(IDYES)
                      .click(IDYES));
}

TEST_F(LayerStateCommand, TheOldStatesOfTheSampleComeOverAndUndoTakesThemBack) {
    const std::wstring message = L"Kel Workbench has found layer states of an older layer tool in this drawing and "
                                 L"turned them into current layer states.\n\nLayer states converted: 3";
    std::filesystem::copy_file(BUILT_SAMPLES "/legacy.zdr", folder / "legacy.zdr");
    zdr::Drawing before;
    Script script;
    script.then(command(L"OPEN " + path("legacy.zdr")))
        .then(said(L"legacy.zdr"))
        .look("the drawing before", [&](const View&) { before = session().drawing(); })
        .then(command(L"LAYERSTATE"))
        .waitForText(message)
        .press(VK_RETURN)
        .waitForControl(IDC_LSTATE_RES_LIST)
        .look("the states",
              [](const View& view) {
                  EXPECT_THAT(view.column(IDC_LSTATE_RES_LIST, 0),
                              testing::UnorderedElementsAre(L"DIMENSIONS", L"QSET_INVALIDNAME", L"CUT SHORT"));
              })
        .click(IDC_LSTATE_RES_CLOSE)
        .then(command(L"LAYERSTATE"))
        .waitForControl(IDC_LSTATE_RES_LIST)
        .click(IDC_LSTATE_RES_CLOSE)
        .then(command(L"UNDO"))
        .then(said(L"Undone: LAYERSTATE."))
        .look("as before, and nothing is left to be saved",
              [&](const View& view) {
                  EXPECT_EQ(differenceTo(before), "");
                  EXPECT_EQ(view.title(), L"legacy.zdr - Kel Workbench");
              })
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(LayerStateCommand, WhyAFileCannotBeImportedStandsInTheCommandLine) {
    std::ofstream(folder / "cut.las") << "{\"layerStateFile\": 1,";
    Script script = openManager();
    script.click(IDC_LSTATE_RES_IMPORT)
        .waitForControl(ui::kFileNameBox)
        .then(ui::enterFileName(path("cut.las")))
        .waitForText(L"The layer state could not be restored.")
        .press(VK_ESCAPE)
        .waitForControl(IDC_LSTATE_RES_HIDEXREFS)
        .click(IDC_LSTATE_RES_CLOSE)
        .then(said(L"The file \"" + path("cut.las") + L"\" isn't a layer states file, or is cut off"))
        .then(command(L"QUIT"));
    runWith(script);
}
