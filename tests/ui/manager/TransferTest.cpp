#include "TransferTest.h"

#include "FileDialogSteps.h"
#include "OrvUiServices.h"
#include "engine/DatabaseAccess.h"

#include <commctrl.h>

using ui::Script;
using ui::TestDrawing;
using ui::View;

namespace {

std::string quoted(const std::string& text) {
    return "\"" + text + "\"";
}

Calls callsOfTransactions() {
    return {"kelDocManagerPtr()", "currentDocument() = object", "transactionManager() = object"};
}

Calls callsOfDictionary() {
    return joined({callsOfService(), {"layerStatesDictionaryId(true) = #layerStates"}});
}

std::string inBrackets(const std::vector<std::string>& names) {
    std::string text = "[";
    for (const std::string& name : names)
        text += (text.size() == 1 ? "" : ", ") + quoted(name);
    return text + "]";
}

} // namespace

void TransferTest::saveStateFile(const std::wstring& name, const TestDrawing& drawing, const wchar_t* state) const {
    KelDbDatabase source(false, true);
    engine::replaceDrawing(source, drawing.drawing());
    ASSERT_EQ(source.getLayerStateManager()->exportLayerState(state, file(name).c_str()), Vorn::eOk);
}

Calls TransferTest::callsOfImportDialog(const std::wstring& path) {
    return {
        "keledGetFileNavDialog(" + instruments::describe(resourceText(106)) +
            ", null, \"zdr;zds;zdt;las\", \"LayerStatesFileDialog\", 0) = 5100, path=" + instruments::describe(path),
        "kelutNewRb(5005) = object", "kelutRelRb(object)"};
}

Calls TransferTest::callsOfStart() {
    return joined({callsOfTransactions(), {"startTransaction() = object"}, callsOfService()});
}

Calls TransferTest::callsOfEnd() {
    return joined({callsOfTransactions(), {"endTransaction() = 0"}});
}

Calls TransferTest::callsOfPublishing() {
    return {"applyCurZdrLayerTableChanges() = 0", "keledUpdateDisplay()"};
}

Calls TransferTest::callsOfSearch(const std::string& names) {
    return joined({callsOfService(), {"getLayerStateNames(true, true) = 0, names=" + names}});
}

Calls TransferTest::callsOfEntering(const std::string& name, LayerStateMask mask, const char* id, const char* newId) {
    const std::string record = std::string("(") + id;
    return joined({{"getLayerStateMask(" + quoted(name) + ") = 0, mask=" + std::to_string(mask)},
                   callsOfDictionary(),
                   {"openObject(#layerStates, 0, false) = 0",
                    "dictionary.getAt(#layerStates, " + quoted(name) + ") = 0, id=" + id, "close(#layerStates) = 0",
                    "openObject" + record + ", 0, false) = 0", "clone" + record + ") = object",
                    "close(null) = 2", // an object in memory has nothing to close
                    "close" + record + ") = 0"},
                   callsOfEnd(),
                   callsOfDictionary(),
                   {"openObject(#layerStates, 1, false) = 0",
                    "dictionary.setAt(#layerStates, " + quoted(name) + ", object) = 0, id=" + newId,
                    std::string("close(") + newId + ") = 0", "close(#layerStates) = 0"}});
}

Calls TransferTest::callsOfList(const std::vector<std::string>& names) {
    Calls calls = joined({callsOfService(), {"getLayerStateNames(false, true) = 0, names=" + inBrackets(names)}});
    for (const std::string& name : names)
        calls = joined({calls, callsOfRow(name, MaskColor)});
    return calls;
}

Calls TransferTest::callsOfQuestion(const std::string& name, int answer) {
    return {"ShowDuplicateNameReplaceCancelDialog(" + instruments::describe(resourceText(IDS_LSTATE_KIND)) + ", " +
            quoted(name) + ") = " + std::to_string(answer)};
}

Calls TransferTest::callsOfReading(const std::wstring& path) {
    return {"database.new(false, true)", "readZdrFile(" + instruments::describe(path) + ", 64, false, null) = 0"};
}

Script TransferTest::choose(int button, const std::wstring& path) {
    Script script = countCalls();
    return script.click(button).waitForControl(ui::kFileNameBox).then(ui::enterFileName(path));
}

Script TransferTest::disableList() {
    Script script;
    return script.look("the list is disabled",
                       [](const View& view) { EnableWindow(view.control(IDC_LSTATE_RES_LIST), FALSE); });
}

Script TransferTest::takeTicked() {
    Script script;
    // The one control of the import selection whose id the manager doesn't have too.
    return script.waitForControl(IDHELP).click(IDOK);
}

Script TransferTest::tickAll() {
    Script script;
    return script.waitForControl(IDHELP).look("all are ticked", [](const View& view) {
        ListView_SetCheckState(view.control(IDC_LSTATE_IMPORT_LIST), -1, TRUE);
    });
}

Script TransferTest::answerMessage(const std::wstring& text, const wchar_t* icon) {
    Script script;
    return script.waitForText(text)
        .look("the icon, and whose box it is",
              [icon](const View& view) {
                  EXPECT_EQ(view.icon(), LoadIconW(nullptr, icon));
                  EXPECT_TRUE(View(GetWindow(view.window(), GW_OWNER)).has(IDC_LSTATE_RES_LIST));
              })
        .press(VK_RETURN);
}

Script TransferTest::leaveTaskDialog(const std::wstring& text) {
    Script script;
    return script.waitForText(text).press(VK_ESCAPE);
}

Script TransferTest::answerQuestion(const std::wstring& name, bool replace) {
    Script script;
    script.waitForText(L"\u201c" + name + L"\u201d exists already.");
    if (replace)
        return script.click(kTaskDialogFirstCommand);
    return script.press(VK_ESCAPE);
}

Script TransferTest::backInManager(std::function<void(const View&)> see) {
    Script script;
    return script.waitForControl(kManagersOwn)
        .look("the manager",
              [see = std::move(see)](const View& view) {
                  EXPECT_TRUE(IsWindowEnabled(view.window()));
                  EXPECT_TRUE(view.isEnabled(IDC_LSTATE_RES_LIST));
                  see(view);
              })
        .press(VK_ESCAPE);
}

Script TransferTest::backInManager(const Texts& names, const std::wstring& selected) {
    return backInManager([names, selected](const View& view) {
        EXPECT_EQ(view.column(IDC_LSTATE_RES_LIST, 0), names);
        Texts chosen;
        for (const int row : view.selectedRows(IDC_LSTATE_RES_LIST))
            chosen.push_back(view.cell(IDC_LSTATE_RES_LIST, row, 0));
        EXPECT_EQ(chosen, selected.empty() ? Texts() : Texts({selected}));
    });
}
