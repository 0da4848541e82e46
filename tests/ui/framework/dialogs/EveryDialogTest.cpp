// Every dialog of the framework and of the module, as it has to be for people who use the keyboard alone and for screen
// readers.

#include "FileDialogSteps.h"
#include "HostTest.h"
#include "KeyboardWalk.h"
#include "PickerFixture.h"
#include "TemporaryFolder.h"

#include "OrvUiPickers.h"
#include "base/ComponentFile.h"
#include "dialogs/TipFile.h"
#include "pickers/PickerIds.h"
#include "resource.h"

#include <objbase.h>

#include <set>

using testing::IsEmpty;
using testing::UnorderedElementsAreArray;

namespace {

/// Initialises COM while it lives, which the interfaces for assistive programs need.
class ComScope {
  public:
    ComScope() { CoInitialize(nullptr); }
    ~ComScope() { CoUninitialize(); }
    ComScope(const ComScope&) = delete;
    ComScope& operator=(const ComScope&) = delete;
};

std::vector<std::string> described(const std::vector<HWND>& controls) {
    std::vector<std::string> texts;
    for (const HWND control : controls)
        texts.push_back(keyboard::describe(control));
    return texts;
}

/// Appends a walk through the dialog, and a step that checks, while the dialog is still open, what the walk has found.
ui::Script& expectAllReached(ui::Script& script, keyboard::Walk& walked) {
    return script.then(keyboard::walk(walked)).look("what the walk has found", [&walked](const ui::View&) {
        EXPECT_THAT(walked.stops.size(), testing::Gt(1u));
        EXPECT_THAT(described(walked.visited), UnorderedElementsAreArray(described(walked.stops)));
        EXPECT_THAT(described(walked.unshown), IsEmpty()) << "the focus can't be seen";
        EXPECT_THAT(walked.slips, IsEmpty());
    });
}

class EveryPicker : public PickerFixture {
  protected:
    const ComScope com;
    keyboard::Walk walked;

    void SetUp() override { open(ui::TestDrawing().linetype(L"Dashed").drawing()); }
    /// Walks through what `pick` opens, and leaves it by Escape.
    void walkThrough(const std::function<void()>& pick, ui::Script script = {}) {
        expectAllReached(script, walked).press(VK_ESCAPE);
        answer(script, pick);
    }
};

TEST_F(EveryPicker, ofColorsOnBothPages) {
    KelCmColor color;
    const auto pick = [&] { EXPECT_EQ(keledSetColorDialogTrueColor(color, true, color, 7), 0); };
    walkThrough(pick);
    EXPECT_THAT(walked.stops, testing::SizeIs(6));
    walkThrough(pick, ui::Script().waitForControl(IDC_COLOR_PALETTE).press(VK_TAB, ui::holdControl));
    EXPECT_THAT(walked.stops, testing::SizeIs(7));
}

TEST_F(EveryPicker, ofLinetypes) {
    wchar_t* name = nullptr;
    KelDbObjectId id;
    walkThrough([&] { EXPECT_FALSE(keledLinetypeDialog(linetypeId(L"Dashed"), false, name, id)); });
}

TEST_F(EveryPicker, ofLineweights) {
    int weight = 0;
    walkThrough([&] { EXPECT_FALSE(keledLineWeightDialog(25, false, weight)); });
}

TEST_F(EveryPicker, ofPlotStyles) {
    wchar_t* name = nullptr;
    walkThrough([&] { EXPECT_FALSE(keledPlotstyleDialog(L"Normal", false, name)); });
}

/// Expects that the dialog in front has a tip for each control that Tab stops at, but for those that the dialog itself
/// has tips for, and a control for each tip.
void expectTipsOfAll(const ui::View& view, const std::wstring& dialog, const std::set<int>& itsOwn = {}) {
    const auto tips = framework::readTips(framework::kTipFile, dialog, framework::kTipPrefix);
    for (const auto& [control, text] : tips)
        EXPECT_TRUE(view.has(control)) << control << ": " << ui::narrow(text);
    for (const HWND control : keyboard::tabStops(view.window(), true))
        EXPECT_NE(tips.contains(GetDlgCtrlID(control)), itsOwn.contains(GetDlgCtrlID(control)))
            << keyboard::describe(control);
}

class EveryModuleDialog : public ui::HostTest {
  protected:
    const ComScope com;
    keyboard::Walk walked;

    void SetUp() override {
        HostTest::SetUp();
        loadModule();
        open(ui::TestDrawing()
                 .layer(L"Walls")
                 .state(L"Ground floor", MaskAllProperties)
                 .state(L"Upper floor", MaskAllProperties)
                 .layer(L"Roof"));
    }
    /// Opens the manager with the new layer state dialog over it.
    static ui::Script newState() {
        ui::Script script;
        return script.click(IDC_LSTATE_RES_NEW).waitForControl(IDC_LSTATE_SAVE_NAME);
    }
    /// Opens the delete confirmation over the manager.
    static ui::Script deleteTwo() {
        ui::Script script;
        return script.clickCell(IDC_LSTATE_RES_LIST, 0, 0)
            .press(VK_DOWN, ui::holdShift)
            .click(IDC_LSTATE_RES_DELETE)
            .waitForControl(IDC_LSTATE_DEL_PROMPT);
    }
    /// Opens the edit dialog over the manager.
    static ui::Script editFirst() {
        ui::Script script;
        return script.clickCell(IDC_LSTATE_RES_LIST, 0, 0).click(IDC_LSTATE_RES_EDIT).waitForControl(IDC_REMOVE_LAYERS);
    }
    /// Opens the dialog that adds layers, over the edit dialog.
    static ui::Script addLayers() {
        return editFirst().click(IDC_ADD_LAYERS).waitUntil("the layers to add are shown", [](const ui::View& view) {
            return view.has(IDC_LAYER_GRID) && !view.has(IDC_ADD_LAYERS);
        });
    }
    /// Opens the import selection over the manager.
    ui::Script importFrom(const std::wstring& path) const {
        ui::TestDrawing().state(L"Attic", MaskOn).state(L"Cellar", MaskOn).save(path);
        ui::Script script;
        return script.click(IDC_LSTATE_RES_IMPORT)
            .waitForControl(ui::kFileNameBox)
            .then(ui::enterFileName(path))
            .waitForControl(IDHELP);
    }
    /// Leaves the dialog in front, and those behind it up to the manager.
    void manage(ui::Script script, int dialogsInFront = 1) {
        for (int i = 0; i < dialogsInFront; ++i)
            script.press(VK_ESCAPE);
        script.waitForControl(IDC_LSTATE_RES_LIST).press(VK_ESCAPE);
        ui::perform(script, [this] { runCommand(L"LAYERSTATE"); });
    }
};

TEST_F(EveryModuleDialog, managerWithItsPanelOpenAndClosed) {
    for (const unsigned long expanded : {1ul, 0ul}) {
        keep(L"KelLayerApps:LayerStatesManager", L"Expanded", expanded);
        ui::Script script;
        script.waitUntil("the panel is as it was left", [expanded](const ui::View& view) {
            return view.isVisible(IDC_LSTATE_RES_PANEL) == (expanded != 0);
        });
        expectAllReached(script, walked).press(VK_ESCAPE);
        ui::perform(script, [this] { runCommand(L"LAYERSTATE"); });
    }
}

TEST_F(EveryModuleDialog, managerHasAControlForEachOfItsTips) {
    const auto tips =
        framework::readTips(framework::kTipFile, L"KelLayerApps:LayerStatesManager", framework::kTipPrefix);
    EXPECT_THAT(tips, testing::Not(IsEmpty()));
    ui::Script script;
    script.waitForControl(IDC_LSTATE_RES_LIST)
        .look("its controls",
              [&tips](const ui::View& view) {
                  for (const auto& [control, text] : tips)
                      EXPECT_TRUE(view.has(control)) << control << ": " << ui::narrow(text);
              })
        .press(VK_ESCAPE);
    ui::perform(script, [this] { runCommand(L"LAYERSTATE"); });
}

TEST_F(EveryModuleDialog, newLayerState) {
    ui::Script script = newState();
    script.type(L"Lights"); // OK can be used then
    expectAllReached(script, walked);
    manage(script);
    EXPECT_THAT(walked.stops, testing::SizeIs(5));
}

TEST_F(EveryModuleDialog, newLayerStateHasATipForEachControl) {
    ui::Script script = newState();
    manage(script.look("the tips",
                       [](const ui::View& view) { expectTipsOfAll(view, L"KelLayerApps:SaveLayerStatesDialog"); }));
}

TEST_F(EveryModuleDialog, deleteConfirmation) {
    ui::Script script = deleteTwo();
    expectAllReached(script, walked);
    manage(script);
    EXPECT_THAT(walked.stops, testing::SizeIs(4));
}

TEST_F(EveryModuleDialog, deleteConfirmationHasATipForEachControl) {
    ui::Script script = deleteTwo();
    manage(script.look("the tips",
                       [](const ui::View& view) { expectTipsOfAll(view, L"KelLayerApps:LayerStatesDelete"); }));
}

TEST_F(EveryModuleDialog, editLayerState) {
    ui::Script script = editFirst();
    expectAllReached(script, walked);
    manage(script);
    EXPECT_THAT(walked.stops, testing::SizeIs(6));
}

TEST_F(EveryModuleDialog, editLayerStateHasATipForEachControlThatHasNoneOfItsOwn) {
    manage(editFirst().look("the tips", [](const ui::View& view) {
        expectTipsOfAll(view, L"KelLayerApps:LayerStatesEdit", {IDC_LAYER_GRID, IDC_ADD_LAYERS, IDC_REMOVE_LAYERS});
    }));
}

TEST_F(EveryModuleDialog, layersToAdd) {
    ui::Script script = addLayers();
    expectAllReached(script, walked);
    manage(script, 2);
    EXPECT_THAT(walked.stops, testing::SizeIs(4));
}

TEST_F(EveryModuleDialog, layersToAddHaveATipForEachControl) {
    manage(addLayers().look("the tips",
                            [](const ui::View& view) { expectTipsOfAll(view, L"KelLayerApps:LayerStatesAddLayers"); }),
           2);
}

TEST_F(EveryModuleDialog, importSelection) {
    const TemporaryFolder folder;
    ui::Script script = importFrom(folder.file(L"other.zdr"));
    expectAllReached(script, walked);
    manage(script);
    EXPECT_THAT(walked.stops, testing::SizeIs(4));
}

TEST_F(EveryModuleDialog, importSelectionHasATipForEachControl) {
    const TemporaryFolder folder;
    ui::Script script = importFrom(folder.file(L"other.zdr"));
    manage(script.look("the tips",
                       [](const ui::View& view) { expectTipsOfAll(view, L"KelLayerApps:ImportLayerStates"); }));
}

/// One dialog template of one language.
struct Template {
    HMODULE module;
    std::wstring file;
    WORD id;
    WORD language;
};

BOOL CALLBACK addLanguage(HMODULE module, LPCWSTR, LPCWSTR name, WORD language, LONG_PTR found) {
    auto& templates = *reinterpret_cast<std::vector<Template>*>(found);
    templates.push_back({module, {}, static_cast<WORD>(reinterpret_cast<ULONG_PTR>(name)), language});
    return TRUE;
}
BOOL CALLBACK addDialog(HMODULE module, LPCWSTR type, LPWSTR name, LONG_PTR found) {
    return EnumResourceLanguagesW(module, type, name, addLanguage, found);
}

std::vector<Template> templatesOf(const std::wstring& file) {
    std::vector<Template> templates;
    const HMODULE module = LoadLibraryW((framework::frameworkFolder() + file).c_str());
    EnumResourceNamesW(module, MAKEINTRESOURCEW(5), addDialog, reinterpret_cast<LONG_PTR>(&templates));
    for (Template& each : templates)
        each.file = file;
    return templates;
}

/// The dialog of a template, not shown and with nothing filled in; null when it can't be made.
HWND create(const Template& each, HWND parent) {
    const HRSRC found = FindResourceExW(each.module, MAKEINTRESOURCEW(5), MAKEINTRESOURCEW(each.id), each.language);
    auto* const bytes = static_cast<LPCDLGTEMPLATEW>(LockResource(LoadResource(each.module, found)));
    return CreateDialogIndirectParamW(each.module, bytes, parent, nullptr, 0);
}

class EveryTemplate : public testing::TestWithParam<const wchar_t*> {};

TEST_P(EveryTemplate, hasUniqueKeysNamesAndAReadingOrderInEachLanguage) {
    const ComScope com;
    // The window class of the palette field, which the framework registers only when it opens the colour dialog.
    WNDCLASSW field = {};
    field.style = CS_GLOBALCLASS;
    field.lpfnWndProc = DefWindowProcW;
    field.lpszClassName = PALETTE_FIELD_CLASS;
    RegisterClassW(&field);
    const HWND parent = CreateWindowW(L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
    const std::vector<Template> templates = templatesOf(GetParam());
    EXPECT_FALSE(templates.empty());
    for (const Template& each : templates) {
        SCOPED_TRACE("template " + std::to_string(each.id) + ", language " + std::to_string(each.language));
        const HWND dialog = create(each, parent);
        ASSERT_NE(dialog, nullptr);
        EXPECT_THAT(keyboard::slips(dialog, true), IsEmpty());
        DestroyWindow(dialog);
    }
    DestroyWindow(parent);
    UnregisterClassW(PALETTE_FIELD_CLASS, GetModuleHandleW(nullptr));
}

INSTANTIATE_TEST_SUITE_P(Of, EveryTemplate, testing::Values(L"kelui.dll", L"KelLayerAppsRes.dll"),
                         [](const auto& test) { return test.index == 0 ? "theFramework" : "theModule"; });

} // namespace
