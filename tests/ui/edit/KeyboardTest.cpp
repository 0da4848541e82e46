// The edit dialogs worked by keys alone, and the names that a screen reader has for their controls.

#include "EditTest.h"

#include "Accessibility.h"

namespace {

using testing::ElementsAre;
using ui::Script;
using ui::View;

class EditKeyboard : public EditTest {
  protected:
    void SetUp() override {
        EditTest::SetUp();
        open(house().layer(L"Roof"));
    }
    static Script focusIs(int control) {
        return Script().waitUntil("the focus is at control " + std::to_string(control),
                                  [control](const View& view) { return view.focusedControl() == control; });
    }
    static Script addLayersIsOpen() {
        return Script().waitUntil("the layers to add are shown",
                                  [](const View& view) { return view.has(grid) && !view.has(IDC_ADD_LAYERS); });
    }
    bool wallsAreOff() const { return !(stored(L"Ground floor")->columns.flags[1] & zdr::kLayerOn); }
    /// Turns the layer Walls off.
    static Script turnOff() { return Script().clickCell(grid, 2, 1); }
};

TEST_F(EditKeyboard, TabLeadsThroughTheControlsInTheirOrderAndBack) {
    const int order[] = {IDC_ADD_LAYERS, IDC_REMOVE_LAYERS, IDOK, IDCANCEL, ID_HELP, grid};
    Script script = focusIs(grid);
    for (const int control : order)
        script.press(VK_TAB).then(focusIs(control));
    script.press(VK_TAB, ui::holdShift).then(focusIs(ID_HELP));
    edit(script.press(VK_ESCAPE));
}

TEST_F(EditKeyboard, EnterIsOkFromTheGridAndEscapeCancelsFromAnywhere) {
    edit(Script().then(turnOff()).press(VK_RETURN));
    EXPECT_TRUE(wallsAreOff());
    edit(L"Bare", Script().then(turnOff()).press(VK_TAB).then(focusIs(IDC_ADD_LAYERS)).press(VK_ESCAPE));
    EXPECT_TRUE(stored(L"Bare")->columns.flags[1] & zdr::kLayerOn);
}

TEST_F(EditKeyboard, EnterPressesTheButtonWithTheFocus) {
    edit(Script()
             .then(turnOff())
             .press(VK_TAB, ui::holdShift)
             .then(focusIs(ID_HELP))
             .press(VK_TAB, ui::holdShift)
             .then(focusIs(IDCANCEL))
             .press(VK_RETURN));
    EXPECT_FALSE(wallsAreOff());
}

TEST_F(EditKeyboard, TheAccessKeysLeadToTheListAndPressTheButtons) {
    edit(Script()
             .press(VK_TAB)
             .then(focusIs(IDC_ADD_LAYERS))
             .pressAlt(L'l')
             .then(focusIs(grid))
             .clickCellOf(grid, L"Doors")
             .pressMnemonicOf(IDC_REMOVE_LAYERS)
             .waitUntil("the row is gone", [](const View& view) { return view.rowOf(grid, L"Doors") < 0; })
             .pressMnemonicOf(IDC_ADD_LAYERS)
             .then(addLayersIsOpen())
             .press(VK_TAB)
             .then(focusIs(IDOK))
             .pressAlt(L'l')
             .then(focusIs(grid))
             .press(VK_ESCAPE)
             .waitForControl(IDC_ADD_LAYERS)
             .press(VK_ESCAPE));
}

TEST_F(EditKeyboard, ALayerIsAddedByKeysAlone) {
    edit(Script()
             .pressMnemonicOf(IDC_ADD_LAYERS)
             .then(addLayersIsOpen())
             .look("no row is selected yet",
                   [](const View& view) {
                       EXPECT_THAT(rows(view), ElementsAre(L"Roof"));
                       EXPECT_THAT(view.selectedRows(grid), testing::IsEmpty());
                       EXPECT_EQ(view.focusedRow(grid), 0);
                   })
             .press(VK_SPACE)
             .waitUntil("the row is selected", [](const View& view) { return view.selectedRows(grid).size() == 1; })
             .press(VK_RETURN)
             .waitForControl(IDC_ADD_LAYERS)
             .look("the rows", [](const View& view) { EXPECT_GE(view.rowOf(grid, L"Roof"), 0); })
             .press(VK_ESCAPE));
}

TEST_F(EditKeyboard, F1AndTheHelpButtonOpenTheDialogsTopic) {
    const auto opens = [](const char* topic) {
        return Script()
            .waitUntil("the help is opened", [](const View&) { return !ui::callsOf("keledHelp").empty(); })
            .look("its topic", [topic](const View&) {
                EXPECT_THAT(ui::callsOf("keledHelp"),
                            ElementsAre("keledHelp(null, \"" + std::string(topic) + "\", 0)"));
                instruments::clearTrace();
            });
    };
    const Script editTopic = opens("EDITLAYERSTATESDIALOG"), addTopic = opens("SELECTLAYERSTOADDDIALOG");
    edit(Script()
             .press(VK_F1)
             .then(editTopic)
             .click(ID_HELP)
             .then(editTopic)
             .click(IDC_ADD_LAYERS)
             .then(addLayersIsOpen())
             .press(VK_F1)
             .then(addTopic)
             .press(VK_ESCAPE)
             .waitForControl(IDC_ADD_LAYERS)
             .press(VK_ESCAPE));
}

TEST_F(EditKeyboard, AScreenReaderHasANameForTheIconButtons) {
    edit(Script()
             .look("their names",
                   [](const View& view) {
                       for (const auto& [button, name] :
                            {std::pair{IDC_ADD_LAYERS, L"Add layers"}, std::pair{IDC_REMOVE_LAYERS, L"Remove layers"}})
                           EXPECT_EQ(ui::toldAbout(view.control(button)).name, name);
                       // A list's name is the text of the label in front of it.
                       EXPECT_EQ(ui::textOf(GetWindow(view.control(grid), GW_HWNDPREV)),
                                 L"&Layers of the layer state:");
                   })
             .press(VK_ESCAPE));
}

} // namespace
