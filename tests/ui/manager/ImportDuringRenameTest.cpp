// Import and export while a name is being edited in the list.

#include "TransferTest.h"

#include "FileDialogSteps.h"

namespace {

using testing::IsEmpty;
using testing::SizeIs;
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

TEST_F(ImportDuringRename, Smoke) {
    manage(typeName(L"Two")
               .then(countCalls())
               .click(IDC_LSTATE_RES_IMPORT)
               .then(refusal())
               .look("dbg",
                     [](const View& view) {
                         printf("DBG %s box %d\n", ui::narrow(view.title()).c_str(),
                                view.labelEditorText(kList).has_value());
                         for (auto& l : instruments::trace())
                             printf("DBG %s\n", l.c_str());
                         ui::screenshotOfTest();
                     })
               .press(VK_ESCAPE)
               .press(VK_ESCAPE));
}
TEST_F(ImportDuringRename, SmokeKey) {
    manage(typeName(L"Two")
               .then(countCalls())
               .pressMnemonicOf(IDC_LSTATE_RES_IMPORT)
               .waitUntil("something", [](const View& view) { return !view.has(kList); })
               .look("dbg",
                     [](const View& view) {
                         printf("DBG %s box %d\n", ui::narrow(view.title()).c_str(),
                                view.labelEditorText(kList).has_value());
                         for (auto& l : instruments::trace())
                             printf("DBG %s\n", l.c_str());
                         ui::screenshotOfTest();
                     })
               .press(VK_ESCAPE)
               .press(VK_ESCAPE)
               .press(VK_ESCAPE));
}

} // namespace
