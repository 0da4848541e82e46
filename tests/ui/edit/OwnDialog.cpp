#include "OwnDialog.h"

#include "CResourceScope.h"
#include "ModuleHandles.h"

// The module's own ones belong to the module.
HINSTANCE g_moduleInstance = nullptr;
HINSTANCE g_resourceModule = nullptr;

using ui::Script;
using ui::View;

void OwnDialogTest::SetUp() {
    EditTest::SetUp();
    g_resourceModule = GetModuleHandleW(L"KelLayerAppsRes.dll");
    ASSERT_NE(g_resourceModule, nullptr);
    open(house());
}

void OwnDialogTest::run(CEditLayerStateDlg& dialog, const Script& script) {
    const CResourceScope scope;
    ui::bringPointerAway();
    ui::perform(Script().waitForControl(grid).then(script).press(VK_ESCAPE), [&dialog] { dialog.DoModal(); });
}

void OwnDialogTest::look(CEditLayerStateDlg& dialog, const std::function<void()>& see) {
    run(dialog, Script().look("the dialog", [see](const View&) { see(); }));
}

ui::TestDrawing OwnDialogTest::towerOf(int layers) {
    ui::TestDrawing drawing;
    for (int i = 1; i <= layers; ++i)
        drawing.layer(L"Floor " + std::to_wstring(i));
    return drawing.state(L"Ground floor", MaskAllProperties);
}
