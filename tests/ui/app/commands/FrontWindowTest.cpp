// A question or a message of a dialog, owned by the main window, gives the input back to that dialog: the main window
// stays disabled behind it, and doesn't come to lie over it.

#include "FileDialogSteps.h"
#include "LayerStatesTest.h"
#include "OrvUiServices.h"

#include "engine/DatabaseAccess.h"
#include "resources/resource.h"

using ui::Script;
using ui::View;

namespace {

class FrontWindow : public LayerStatesTest {
  protected:
    FrontWindow() {
        KelDbDatabase database(true, true);
        EXPECT_EQ(database.getLayerStateManager()->saveLayerState(L"Attic", MaskOn), Vorn::eOk);
        EXPECT_EQ(database.getLayerStateManager()->saveLayerState(L"Roof", MaskOn), Vorn::eOk);
        for (const wchar_t* name : {L"Attic", L"Roof"})
            EXPECT_EQ(database.getLayerStateManager()->exportLayerState(name, stateFile(name).c_str()), Vorn::eOk);
        writeDrawing("other.zdr", engine::drawingOf(database));
    }
    std::wstring stateFile(const std::wstring& state) const { return path("") + state + L".las"; }
    static Script import(const std::wstring& file) {
        Script script;
        return script.click(IDC_LSTATE_RES_IMPORT).waitForControl(ui::kFileNameBox).then(ui::enterFileName(file));
    }
    Script questionAboutAttic() const {
        return import(stateFile(L"Attic")).waitForText(L"\u201cAttic\u201d exists already.");
    }
    /// Clicks into the manager, which is to be in front. Twice, because it keeps what is ticked.
    static Script managerIsInFront() {
        Script script;
        return script.waitForControl(IDC_LSTATE_RES_HIDEXREFS)
            .click(IDC_LSTATE_RES_HIDEXREFS)
            .click(IDC_LSTATE_RES_HIDEXREFS)
            .look("the windows", [](const View& view) {
                EXPECT_TRUE(view.has(IDC_LSTATE_RES_HIDEXREFS));
                EXPECT_FALSE(AfxGetMainWnd()->IsWindowEnabled());
            });
    }
    static Script leave() {
        Script script;
        return script.waitForControl(IDC_LSTATE_RES_HIDEXREFS).click(IDC_LSTATE_RES_CLOSE).then(command(L"QUIT"));
    }
    static Script leaveUnsaved() { return leave().then(answerBox(L"Save the changes to states.zdr?", IDNO)); }
};

} // namespace

TEST_F(FrontWindow, IsTheManagerAfterARefusedName) {
    Script script = openManager();
    script.clickCell(IDC_LSTATE_RES_LIST, 0, 0)
        .press(VK_F2)
        .waitUntil("the name is being edited",
                   [](const View& view) { return view.labelEditorText(IDC_LSTATE_RES_LIST).has_value(); })
        .type(L"  ")
        .press(VK_RETURN)
        .waitUntil("the refusal", [](const View& view) { return view.has(IDCLOSE) && !view.has(IDC_LSTATE_RES_LIST); })
        .click(IDCLOSE)
        .then(managerIsInFront());
    runWith(script.then(leave()));
}

TEST_F(FrontWindow, IsTheManagerAfterAReplacedName) {
    Script script = openManager();
    script.then(questionAboutAttic()).click(kTaskDialogFirstCommand).then(managerIsInFront());
    runWith(script.then(leaveUnsaved()));
}

TEST_F(FrontWindow, IsTheManagerAfterANameThatIsLeft) {
    Script script = openManager();
    script.then(questionAboutAttic()).press(VK_ESCAPE).then(managerIsInFront());
    runWith(script.then(leave()));
}

TEST_F(FrontWindow, IsTheManagerAfterTheSuccessOfAnImport) {
    Script script = openManager();
    script.then(import(stateFile(L"Roof")))
        .waitForText(L"The layer state was imported.")
        .click(kTaskDialogFirstCommand + 1)
        .then(managerIsInFront());
    runWith(script.then(leaveUnsaved()));
}

TEST_F(FrontWindow, IsTheImportSelectionAfterItsRefusal) {
    Script script = openManager();
    script.then(import(path("other.zdr")))
        .waitForControl(IDHELP)
        .clickCell(IDC_LSTATE_IMPORT_LIST, 1, 0)
        .press(VK_SPACE) // which takes the one tick away
        .click(IDOK)
        .waitForText(L"No layer state is selected.")
        .click(IDCLOSE)
        .waitForControl(IDHELP)
        .clickCell(IDC_LSTATE_IMPORT_LIST, 0, 0)
        .look("the windows", [](const View& view) {
            EXPECT_EQ(view.selectedRows(IDC_LSTATE_IMPORT_LIST), std::vector<int>{0});
            EXPECT_FALSE(AfxGetMainWnd()->IsWindowEnabled());
            EXPECT_FALSE(IsWindowEnabled(GetWindow(view.window(), GW_OWNER))) << "the manager";
        });
    runWith(script.press(VK_ESCAPE).then(managerIsInFront()).then(leave()));
}
