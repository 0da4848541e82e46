#include "SaveDialogTest.h"

#include "engine/DatabaseAccess.h"

#include <algorithm>

using ui::Script;
using ui::TestDrawing;
using ui::View;

namespace {

std::string quoted(const std::string& text) {
    return instruments::describe(std::wstring(text.begin(), text.end()));
}

} // namespace

Calls joined(std::initializer_list<Calls> parts) {
    Calls all;
    for (const Calls& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

void SaveDialogTest::SetUp() {
    HostTest::SetUp();
    loadModule();
}

TestDrawing SaveDialogTest::house() {
    TestDrawing drawing;
    drawing.layer(L"Walls").layer(L"Doors", 3);
    drawing.state(L"Plan", MaskAllProperties, L"All of it").state(L"Bare", MaskOn | MaskFrozen);
    return drawing;
}

TestDrawing SaveDialogTest::houseOnSite() {
    TestDrawing site;
    site.layer(L"Grass").state(L"Survey", MaskOn, L"By laser").state(L"Trees", MaskColor);
    return house().reference(L"site", site);
}

bool SaveDialogTest::save(Script script) {
    using Export = void (*)(CWnd*);
    const HMODULE module = GetModuleHandleW(L"KelLayerApps.xmod");
    const auto open =
        reinterpret_cast<Export>(reinterpret_cast<void*>(GetProcAddress(module, "keldbLayerStateSaveDialog")));
    instruments::clearTrace();
    return ui::perform(std::move(script), [open] { open(nullptr); });
}

bool SaveDialogTest::saveFromManager(const Script& script) {
    Script whole = countFromHere();
    whole.click(IDC_LSTATE_RES_NEW)
        .waitForControl(IDC_LSTATE_SAVE_NAME)
        .then(script)
        .waitForControl(IDC_LSTATE_RES_LIST)
        .press(VK_ESCAPE);
    return ui::perform(std::move(whole), [this] { runCommand(L"LAYERSTATE"); });
}

Calls SaveDialogTest::stateManager() {
    return {"keldbHostApplicationServices()", "workingDatabase() = object", "getLayerStateManager() = object"};
}

Calls SaveDialogTest::opening(const std::string& names) {
    const Calls setUp = {"CKelUiDialog(200)",
                         // The name comes before the base's set-up, which restores what was kept under it.
                         "SetDialogName(\"KelLayerApps:SaveLayerStatesDialog\")", "OnInitDialog()",
                         "SetContextHelpPrefix(\"LAST\")",
                         "SetContextHelpFileName(\"/KelDialogToolTips;Component/DialogToolTips.xaml\")",
                         "SetUseTips(2)", "keldbHostApplicationServices()", "workingDatabase() = object",
                         "extendedNamesMode(object) = true", "maxNameLength(true, true), length=255"};
    return joined({setUp, stateManager(), {"getLayerStateNames(true, true) = 0, names=" + names}});
}

Calls SaveDialogTest::picking(const std::string& name, LayerStateMask mask, const std::string& description) {
    return joined({stateManager(),
                   {"getLayerStateMask(" + quoted(name) + ") = 0, mask=" + std::to_string(mask),
                    "getLayerStateDescription(" + quoted(name) + ") = 0, description=" + quoted(description),
                    "keldbFree(" + quoted(description) + ")"}});
}

Calls SaveDialogTest::checking(const std::string& name, bool exists) {
    const Calls rules = {"keldbHostApplicationServices()", "workingDatabase() = object",
                         "extendedNamesMode(object) = true", "maxNameLength(true, true), length=255",
                         "validateNameCharacters(" + quoted(name) + ", true, false, true) = 0"};
    return joined({rules, stateManager(), {"hasLayerState(" + quoted(name) + ") = " + (exists ? "true" : "false")}});
}

Calls SaveDialogTest::asking(const std::string& name, int answer) {
    return {"ShowDuplicateNameReplaceCancelDialog(" + quoted(ui::narrow(resourceText(IDS_LSTATE_KIND))) + ", " +
            quoted(name) + ") = " + std::to_string(answer)};
}

Calls SaveDialogTest::saving(const std::string& name, LayerStateMask mask, const std::string& description,
                             const std::string& viewport) {
    return {"keledGetCurViewportObjectId() = " + viewport,
            "saveLayerState(" + quoted(name) + ", " + std::to_string(mask) + ", " + viewport + ") = 0",
            "setLayerStateDescription(" + quoted(name) + ", " + quoted(description) + ") = 0"};
}

Calls SaveDialogTest::restoring(const std::string& name, const std::string& viewport) {
    return joined({stateManager(),
                   {"keledGetCurViewportObjectId() = " + viewport,
                    "restoreLayerState(" + quoted(name) + ", " + viewport + ", 0, null) = 0"}});
}

Calls SaveDialogTest::callsUpTo(const std::string& operation) {
    Calls calls = instruments::trace();
    const auto last = std::find_if(calls.rbegin(), calls.rend(),
                                   [&operation](const std::string& line) { return line.starts_with(operation + "("); });
    calls.erase(last.base(), calls.end());
    return calls;
}

std::optional<zdr::LayerState> SaveDialogTest::stored(const std::wstring& name) const {
    for (const zdr::LayerState& state : engine::drawingOf(database()).states)
        if (state.name == name)
            return state;
    return std::nullopt;
}

std::vector<std::wstring> SaveDialogTest::storedNames() const {
    std::vector<std::wstring> names;
    for (const zdr::LayerState& state : engine::drawingOf(database()).states)
        names.push_back(state.name);
    return names;
}

Script SaveDialogTest::countFromHere() {
    Script script;
    return script.look("the calls count from here", [](const View&) { instruments::clearTrace(); });
}

Script SaveDialogTest::pick(int entry) {
    Script script;
    script.step("open the list of names and click the entry " + std::to_string(entry),
                [entry](const View& view) -> ui::Obstacle {
                    COMBOBOXINFO box{};
                    box.cbSize = sizeof box;
                    if (!GetComboBoxInfo(view.control(IDC_LSTATE_SAVE_NAME), &box))
                        return "there is no box with names";
                    RECT& place = box.rcButton;
                    if (!IsWindowVisible(box.hwndList)) {
                        MapWindowPoints(box.hwndCombo, nullptr, reinterpret_cast<POINT*>(&place), 2);
                        if (ui::pointerRestsAt(ui::middleOf(place)))
                            ui::click();
                        return "its list isn't open";
                    }
                    if (SendMessageW(box.hwndList, LB_GETITEMRECT, static_cast<WPARAM>(entry),
                                     reinterpret_cast<LPARAM>(&place)) == LB_ERR)
                        return "its list has no such entry";
                    MapWindowPoints(box.hwndList, nullptr, reinterpret_cast<POINT*>(&place), 2);
                    if (!ui::pointerRestsAt(ui::middleOf(place)))
                        return "the pointer hasn't come to rest at the entry";
                    ui::click();
                    return std::nullopt;
                });
    return script.waitUntil("the list is closed", [](const View& view) {
        return SendMessageW(view.control(IDC_LSTATE_SAVE_NAME), CB_GETDROPPEDSTATE, 0, 0) == FALSE;
    });
}

Script SaveDialogTest::nameIsSelected(const std::wstring& name) {
    Script script;
    return script.waitForControl(IDC_LSTATE_SAVE_NAME).look("the name is selected", [name](const View& view) {
        EXPECT_EQ(view.text(IDC_LSTATE_SAVE_NAME), name);
        DWORD begin = 99, end = 99;
        SendMessageW(view.control(IDC_LSTATE_SAVE_NAME), CB_GETEDITSEL, reinterpret_cast<WPARAM>(&begin),
                     reinterpret_cast<LPARAM>(&end));
        EXPECT_EQ(begin, 0u);
        EXPECT_EQ(end, name.size());
        EXPECT_TRUE(nameHasFocus(view));
        EXPECT_TRUE(IsWindowEnabled(view.window()));
    });
}

Script SaveDialogTest::refusalIsTold() {
    Script script;
    return script.waitForText(resourceText(IDS_LSTATE_NOT_SAVED))
        .look("the message belongs to the dialog",
              [](const View& view) {
                  EXPECT_EQ(view.icon(), LoadIconW(nullptr, IDI_EXCLAMATION));
                  EXPECT_TRUE(View(GetWindow(view.window(), GW_OWNER)).has(IDC_LSTATE_SAVE_NAME));
              })
        .press(VK_RETURN);
}

bool SaveDialogTest::nameHasFocus(const View& view) {
    return IsChild(view.control(IDC_LSTATE_SAVE_NAME), GetFocus());
}

std::vector<std::wstring> SaveDialogTest::listedNames(const View& view) {
    const HWND box = view.control(IDC_LSTATE_SAVE_NAME);
    std::vector<std::wstring> names;
    const LRESULT count = SendMessageW(box, CB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        std::wstring name(static_cast<std::size_t>(SendMessageW(box, CB_GETLBTEXTLEN, static_cast<WPARAM>(i), 0)),
                          L'\0');
        SendMessageW(box, CB_GETLBTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(name.data()));
        names.push_back(std::move(name));
    }
    return names;
}
