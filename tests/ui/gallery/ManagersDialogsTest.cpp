// The dialogs that the manager opens for one question.

#include "GalleryTest.h"

#include "FileDialogSteps.h"
#include "resources/resource.h"

using gallery::GalleryTest;
using ui::Script;

namespace {

class ManagersDialogs : public GalleryTest {};

TEST_F(ManagersDialogs, theNewLayerState) {
    Script script;
    script.click(IDC_LSTATE_RES_NEW)
        .waitForControl(IDC_LSTATE_SAVE_NAME)
        .then(pictureOfOurs("new-state-empty"))
        .type(L"Ground floor, lights")
        .press(VK_TAB)
        .type(L"Lamps, switches and sockets, without the furniture")
        .then(pictureOfOurs("new-state"))
        .press(VK_TAB, ui::holdShift)
        .press(VK_F4)
        .then(pictureOfOurs("new-state-names"))
        .press(VK_ESCAPE)
        .press(VK_ESCAPE)
        .click(IDC_LSTATE_RES_CLOSE);
    showDialog(std::move(script), [this] { run(L"LAYERSTATE"); });
}

TEST_F(ManagersDialogs, theConfirmationOfADelete) {
    Script script;
    script.waitForControl(IDC_LSTATE_RES_LIST)
        .clickCell(IDC_LSTATE_RES_LIST, 0, 0)
        .press(VK_DOWN, ui::holdShift)
        .click(IDC_LSTATE_RES_DELETE)
        .waitForControl(IDC_LSTATE_DEL_PROMPT)
        .then(pictureOfOurs("delete-states"))
        .press(VK_ESCAPE)
        .click(IDC_LSTATE_RES_CLOSE);
    showDialog(std::move(script), [this] { run(L"LAYERSTATE"); });
}

TEST_F(ManagersDialogs, theImportSelection) {
    Script script;
    script.click(IDC_LSTATE_RES_IMPORT)
        .waitForControl(ui::kFileNameBox)
        .then(ui::enterFileName(L"site.zdr"))
        .waitForControl(IDHELP)
        .then(pictureOfOurs("import-states"))
        .press(VK_ESCAPE)
        .click(IDC_LSTATE_RES_CLOSE);
    showDialog(std::move(script), [this] { run(L"LAYERSTATE"); });
}

} // namespace
