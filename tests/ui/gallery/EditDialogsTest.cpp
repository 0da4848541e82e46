// The dialog that edits a state's layers, and the one that adds layers to it.

#include "GalleryTest.h"

#include "resources/resource.h"

using gallery::GalleryTest;
using ui::Script;

namespace {

class EditDialogs : public GalleryTest {
  protected:
    /// Opens the edit dialog on that state from the manager, runs the script in it, and closes both.
    void edit(const std::wstring& state, const Script& script) {
        Script whole;
        whole.clickCellOf(IDC_LSTATE_RES_LIST, state)
            .click(IDC_LSTATE_RES_EDIT)
            .waitForControl(IDC_ADD_LAYERS)
            .then(script)
            .press(VK_ESCAPE)
            .click(IDC_LSTATE_RES_CLOSE);
        showDialog(std::move(whole), [this] { run(L"LAYERSTATE"); });
    }
};

TEST_F(EditDialogs, theLayersOfAState) {
    edit(L"Presentation", Script()
                              .then(pictureOfOurs("edit-state"))
                              .clickCell(IDC_LAYER_GRID, 2, 0)
                              .clickCell(IDC_LAYER_GRID, 4, 0, ui::holdShift)
                              .then(pictureOfOurs("edit-state-selected")));
}

TEST_F(EditDialogs, theLayersToAdd) {
    edit(L"Structural frame",
         Script()
             .click(IDC_ADD_LAYERS)
             .waitUntil("the dialog", [](const ui::View& view) { return !view.has(IDC_ADD_LAYERS); })
             .then(pictureOfOurs("add-layers"))
             .press(VK_ESCAPE));
}

TEST_F(EditDialogs, noLayerIsLeftToAdd) {
    edit(L"Working drawing",
         Script()
             .click(IDC_ADD_LAYERS)
             .waitUntil("the dialog", [](const ui::View& view) { return !view.has(IDC_ADD_LAYERS); })
             .clickCell(IDC_LAYER_GRID, 0, 0)
             .press(VK_END, ui::holdShift)
             .click(IDOK)
             .click(IDC_ADD_LAYERS)
             .waitUntil("the task dialog", [](const ui::View& view) { return !view.has(IDC_LAYER_GRID); })
             .then(picture("add-layers-none-left"))
             .press(VK_ESCAPE)
             .waitForControl(IDC_ADD_LAYERS));
}

} // namespace
