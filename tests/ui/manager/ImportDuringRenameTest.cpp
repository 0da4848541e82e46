// Import and export while a name is being edited in the list.

#include "TransferTest.h"

#include "FileDialogSteps.h"

namespace {

using testing::IsEmpty;
using ui::Script;
using ui::TestDrawing;
using ui::View;

constexpr int kList = IDC_LSTATE_RES_LIST;

class ImportDuringRename : public TransferTest {
  protected:
    void SetUp() override {
        TransferTest::SetUp();
        open(TestDrawing().state(L"One", MaskColor).state(L"Two", MaskColor));
        saveStateFile(L"three.las", TestDrawing().state(L"Three", MaskColor), L"Three");
        saveDrawing(L"other.zdr", TestDrawing().state(L"Three", MaskColor));
    }
    /// Types a name over that of the first state.
    static Script typeName(const std::wstring& name) {
        Script script;
        return script.press(VK_F2)
            .waitUntil("the box is open", [](const View& view) { return view.labelEditorText(kList).has_value(); })
            .type(name)
            .waitUntil("the name is in it", [name](const View& view) { return view.labelEditorText(kList) == name; });
    }
    /// The name is taken, which the user is told wherever the rename ends.
    static Script refusal() {
        Script script;
        return script.waitForText(textWithName(IDS_LSTATE_NAME_TAKEN, L"Two")).press(VK_RETURN);
    }
    /// With the name of before; Esc leaves it.
    static Script boxIsOpenAgain() {
        Script script;
        return script.waitUntil("the box again", [](const View& view) { return view.labelEditorText(kList) == L"One"; })
            .press(VK_ESCAPE);
    }
    static Script unchanged() { return backInManager({L"One", L"Two"}, L"One"); }
};

TEST_F(ImportDuringRename, APressOfImportEndsTheRenameFirst) {
    manage(typeName(L"Ground")
               .then(import(L"three.las"))
               .then(leaveTaskDialog(kImported))
               .then(backInManager({L"Ground", L"Two", L"Three"}, L"Three")));
    EXPECT_EQ(stateNames(), Texts({L"Ground", L"Two", L"Three"}));
}

TEST_F(ImportDuringRename, APressOfExportEndsTheRenameFirst) {
    manage(typeName(L"Ground")
               .then(exportTo(L"out.las"))
               .waitUntil("it is exported", [](const View&) { return !ui::callsOf("exportLayerState").empty(); })
               .then(backInManager({L"Ground", L"Two"}, L"Ground")));
    EXPECT_EQ(ui::callsOf("exportLayerState").front(),
              "exportLayerState(\"Ground\", " + instruments::describe(file(L"out.las")) + ") = 0");
}

TEST_F(ImportDuringRename, APressWhileTheNameIsRefusedOpensTheBoxAgainAndNothingElse) {
    for (const int button : {IDC_LSTATE_RES_IMPORT, IDC_LSTATE_RES_EXPORT}) {
        Script script = typeName(L"Two");
        script.then(countCalls()).click(button).then(refusal()).then(boxIsOpenAgain());
        manage(script.then(unchanged()));
        EXPECT_THAT(ui::callsOf("keledGetFileNavDialog"), IsEmpty());
    }
}

TEST_F(ImportDuringRename, ImportByItsKeyImportsNothingWhileTheNameIsRefused) {
    for (const wchar_t* name : {L"three.las", L"other.zdr"}) {
        Script script = typeName(L"Two");
        script.then(countCalls())
            .pressMnemonicOf(IDC_LSTATE_RES_IMPORT)
            .then(refusal())
            .waitForControl(ui::kFileNameBox)
            .then(ui::enterFileName(file(name)));
        if (std::wstring_view(name).ends_with(L"zdr"))
            script.waitForControl(IDHELP)
                .look("the box waits behind the import selection",
                      [](const View& view) {
                          const View manager(GetWindow(view.window(), GW_OWNER));
                          EXPECT_EQ(manager.labelEditorText(kList), std::nullopt);
                      })
                .then(takeTicked());
        script.then(answerMessage(resourceText(IDS_LSTATE_NOT_IMPORTED))).then(boxIsOpenAgain());
        manage(script.then(unchanged()));
        EXPECT_THAT(ui::callsOf("startTransaction"), IsEmpty());
    }
}

TEST_F(ImportDuringRename, ImportInvokedWhileTheBoxIsOpenAgainEndsTheRenameAndImports) {
    Script script = typeName(L"Two");
    script.press(VK_RETURN)
        .then(refusal())
        .waitUntil("the box again", [](const View& view) { return view.labelEditorText(kList) == L"One"; })
        .look("it is invoked, as a screen reader does it",
              [](const View& view) { PostMessageW(view.window(), WM_COMMAND, IDC_LSTATE_RES_IMPORT, 0); })
        .waitForControl(ui::kFileNameBox)
        .then(ui::enterFileName(file(L"three.las")))
        .then(leaveTaskDialog(kImported))
        .then(backInManager({L"One", L"Two", L"Three"}, L"Three"));
    manage(script);
}

TEST_F(ImportDuringRename, AFileDialogThatCannotBeShownEndsTheRenameToo) {
    Script script = typeName(L"Ground");
    script
        .look("it is invoked, as a screen reader does it",
              [](const View& view) {
                  instruments::failCall("keledGetFileNavDialog", 1);
                  PostMessageW(view.window(), WM_COMMAND, IDC_LSTATE_RES_IMPORT, 0);
              })
        .waitUntil("the box is gone", [](const View& view) { return !view.labelEditorText(kList); })
        .then(backInManager({L"Ground", L"Two"}, L"Ground"));
    manage(script);
    EXPECT_EQ(stateNames(), Texts({L"Ground", L"Two"}));
}

TEST_F(ImportDuringRename, ExportByItsKeyAsksForNoFileWhileTheNameIsRefused) {
    Script script = typeName(L"Two");
    script.then(countCalls()).pressMnemonicOf(IDC_LSTATE_RES_EXPORT).then(refusal()).then(boxIsOpenAgain());
    manage(script.then(unchanged()));
    EXPECT_THAT(ui::callsOf("keledGetFileNavDialog"), IsEmpty());
}

TEST_F(ImportDuringRename, ImportByItsKeyEndsAGoodRenameFirst) {
    Script script = typeName(L"Ground");
    script.pressMnemonicOf(IDC_LSTATE_RES_IMPORT)
        .waitForControl(ui::kFileNameBox)
        .then(ui::enterFileName(file(L"three.las")))
        .then(leaveTaskDialog(kImported))
        .then(backInManager({L"Ground", L"Two", L"Three"}, L"Three"));
    manage(script);
}

} // namespace
