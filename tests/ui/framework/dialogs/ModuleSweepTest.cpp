// The module's small dialogs, replayed with each of their calls failing once.

// First, since it names some of the ids that resource.h names too.
#include <afxwin.h>

#include "SweepFixture.h"

#include "CLayerStatesDeleteDlg.h"
#include "ModuleLoader.h"
#include "OrvUiServices.h"
#include "base/ComponentFile.h"
#include "engine/DatabaseAccess.h"
#include "instruments/HostCalls.h"
#include "resource.h"

#include <algorithm>

using testing::IsSupersetOf;

namespace {

class ModuleSweep : public FrameworkSweep {
  protected:
    void SetUp() override {
        ASSERT_EQ(m_modules.load(framework::frameworkFolder() + L"KelLayerApps.xmod"), L"");
        FrameworkSweep::SetUp();
        libraries.push_back(L"KelLayerApps.xmod");
    }
    void TearDown() override {
        FrameworkSweep::TearDown();
        m_modules.unloadAll();
    }

    /// A drawing with the state "Plan".
    static zdr::Drawing house() { return ui::TestDrawing().state(L"Plan", MaskOn, L"As it was").drawing(); }
    /// The names of the states that the drawing holds.
    std::vector<std::wstring> stored() const {
        std::vector<std::wstring> names;
        for (const zdr::LayerState& state : engine::drawingOf(database()).states)
            names.push_back(state.name);
        return names;
    }
    /// Types the name and confirms it, and a question that follows. Leaves by Escape what doesn't end by that, and what
    /// is told.
    static ui::Script saveAs(const std::wstring& name) {
        ui::Script script;
        script.ifStillOpen().type(name).press(VK_RETURN);
        const auto looks = std::make_shared<int>(0);
        return script.step("confirm or leave", [looks](const ui::View& view) -> ui::Obstacle {
            constexpr int kQuestion = 3; // when the prompt stands there, if it comes
            constexpr int kPatience = 10;
            if (++*looks == kQuestion && view.has(kTaskDialogFirstCommand))
                ui::pressKey(VK_RETURN);
            else if (*looks > kPatience)
                ui::pressKey(VK_ESCAPE);
            return "it is still open";
        });
    }
    /// Saves by the module's export, into the house as it was.
    void saveByExport(const std::wstring& name) {
        engine::replaceDrawing(database(), house());
        const auto entry = reinterpret_cast<void (*)(CWnd*)>(reinterpret_cast<void*>(
            GetProcAddress(GetModuleHandleW(L"KelLayerApps.xmod"), "keldbLayerStateSaveDialog")));
        ui::perform(saveAs(name), [entry] { entry(nullptr); });
    }

  private:
    runtime::ModuleLoader m_modules;
};

TEST_F(ModuleSweep, ofANewLayerState) {
    const HINSTANCE resources = AfxGetResourceHandle();
    scenario = [this, resources] {
        saveByExport(L"New");
        EXPECT_EQ(AfxGetResourceHandle(), resources);
        const std::vector<std::wstring> names = stored();
        EXPECT_THAT(names, testing::AnyOf(testing::ElementsAre(L"Plan"), testing::ElementsAre(L"Plan", L"New")));
        EXPECT_EQ(engine::drawingOf(database()).states.front().description, L"As it was");
        return names.size() == 2;
    };
    EXPECT_THAT(sweep(kManyCalls), IsSupersetOf({kHostCall, "_Znwy", "FindResourceW", "LoadResource", "LockResource",
                                                 "CreateDialogIndirectParamW", "SetWindowsHookExW", "CreateFileW",
                                                 "ReadFile", "CreateXmlReader", "CreateWindowExW", "SetWindowTextW"}));
}

TEST_F(ModuleSweep, ofAReplacedLayerState) {
    scenario = [this] {
        saveByExport(L"Plan");
        // It is lost only where the host refuses to save after it has deleted.
        const std::vector<std::wstring> names = stored();
        EXPECT_TRUE(names == std::vector<std::wstring>{L"Plan"} ||
                    (names.empty() && instruments::struckOperation() == "saveLayerState"));
        return !names.empty() && engine::drawingOf(database()).states.front().description.empty();
    };
    EXPECT_THAT(sweep(kFewCalls), IsSupersetOf({kHostCall, "_Znwy", "TaskDialogIndirect", "LoadStringW"}));
}

TEST_F(ModuleSweep, ofADeleteConfirmation) {
    scenario = [] {
        const HINSTANCE before = AfxGetResourceHandle();
        AfxSetResourceHandle(GetModuleHandleW(L"KelLayerAppsRes.dll"));
        INT_PTR answer = 0;
        bool wanted = false;
        if (const auto dialog = made<CLayerStatesDeleteDlg>(CWnd::GetActiveWindow())) {
            answered([&] { answer = dialog->DoModal(); });
            wanted = answer == IDOK && dialog->m_deleteThis && !dialog->m_applyToAll;
            EXPECT_TRUE(wanted || answer == IDCANCEL) << answer;
        }
        AfxSetResourceHandle(before);
        return wanted;
    };
    EXPECT_THAT(sweep(kManyCalls),
                IsSupersetOf({"_Znwy", "FindResourceW", "LoadResource", "LockResource", "CreateDialogIndirectParamW",
                              "SetWindowsHookExW", "CreateFileW", "ReadFile", "CreateXmlReader", "CreateWindowExW"}));
}

} // namespace
