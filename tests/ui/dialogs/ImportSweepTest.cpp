// The import selection, opened, ticked and confirmed again and again with each of its calls failing once: it ends as if
// cancelled, or goes on with less, and answers no names but those of the file.

// First, since it names some of the ids that resource.h names too.
#include <afxwin.h>

#include "SweepFixture.h"

#include "CLayerStatesImportDlg.h"
#include "CResourceScope.h"
#include "ModuleHandles.h"
#include "TemporaryFolder.h"
#include "base/ComponentFile.h"
#include "engine/DatabaseAccess.h"

// The module's own ones belong to the module.
HINSTANCE g_moduleInstance = nullptr;
HINSTANCE g_resourceModule = nullptr;

namespace {

using testing::IsSubsetOf;
using testing::IsSupersetOf;
using ui::Script;

class ImportDialogSweep : public FrameworkSweep {
  protected:
    void SetUp() override {
        g_resourceModule = LoadLibraryW((framework::frameworkFolder() + L"KelLayerAppsRes.dll").c_str());
        ASSERT_NE(g_resourceModule, nullptr);
        FrameworkSweep::SetUp();
        engine::replaceDrawing(database(), ui::TestDrawing().state(L"Plan", MaskOn).drawing());
        ui::TestDrawing().state(L"One", MaskOn).state(L"Plan", MaskOn).save(file());
    }
    void TearDown() override {
        FrameworkSweep::TearDown();
        FreeLibrary(g_resourceModule);
    }

    std::wstring file() const { return m_folder.file(L"offered.zdr"); }
    std::size_t storedStates() const { return engine::drawingOf(database()).states.size(); }
    /// Selects all rows, and ticks the last, which has the focus then, and with it the others.
    static Script tickAll() {
        Script script;
        return script.ifStillOpen().press('A', ui::holdControl).ifStillOpen().press(VK_SPACE);
    }

  private:
    TemporaryFolder m_folder;
};

TEST_F(ImportDialogSweep, OfAChoice) {
    const HINSTANCE resources = AfxGetResourceHandle();
    const std::vector<std::wstring> offered = {L"One", L"Plan"};
    scenario = [&] {
        std::vector<std::wstring> chosen;
        {
            const CResourceScope scope;
            if (const auto dialog = made<CLayerStatesImportDlg>(CWnd::GetActiveWindow(), file().c_str())) {
                INT_PTR answer = 0;
                ui::perform(tickAll().then(confirmOrLeave()), [&] { answer = dialog->DoModal(); });
                if (answer == IDOK)
                    for (const KelString& name : dialog->m_selectedNames)
                        chosen.emplace_back(name.kwszPtr());
                EXPECT_TRUE(answer == IDOK ? !chosen.empty() : answer == IDCANCEL || answer == -1) << answer;
            }
        }
        EXPECT_THAT(chosen, IsSubsetOf(offered));
        EXPECT_EQ(AfxGetResourceHandle(), resources);
        EXPECT_EQ(storedStates(), 1u) << "nothing is imported here";
        return chosen == offered;
    };
    EXPECT_THAT(sweep(kManyCalls), IsSupersetOf({kHostCall, "_Znwy", "FindResourceW", "LoadResource", "LockResource",
                                                 "CreateDialogIndirectParamW", "SetWindowsHookExW", "CreateFileW",
                                                 "ReadFile", "CreateXmlReader", "CreateWindowExW", "LoadStringW"}));
}

} // namespace
