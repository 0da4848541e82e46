// The edit dialog, opened, pointed at, edited and confirmed again and again with each of its calls failing once. What
// is thrown in a handler, or in the filter that all messages go through, must not reach the system: the dialog ends as
// if cancelled, or goes on with less.

// First, since it names some of the ids that resource.h names too.
#include <afxwin.h>

#include "SweepFixture.h"

#include "CEditLayerStateDlg.h"
#include "CResourceScope.h"
#include "GridColumns.h"
#include "Input.h"
#include "ModuleHandles.h"
#include "base/ComponentFile.h"
#include "engine/DatabaseAccess.h"
#include "instruments/HostCalls.h"

// The module's own ones belong to the module.
HINSTANCE g_moduleInstance = nullptr;
HINSTANCE g_resourceModule = nullptr;

namespace {

using testing::ElementsAre;
using testing::IsSupersetOf;
using ui::Script;
using ui::View;

class EditOfPlan : public CEditLayerStateDlg {
  public:
    explicit EditOfPlan(CWnd* parent) : CEditLayerStateDlg(parent) { m_stateName = L"Plan"; }
};

class EditDialogSweep : public FrameworkSweep {
  protected:
    void SetUp() override {
        g_resourceModule = LoadLibraryW((framework::frameworkFolder() + L"KelLayerAppsRes.dll").c_str());
        ASSERT_NE(g_resourceModule, nullptr);
        FrameworkSweep::SetUp();
    }
    void TearDown() override {
        FrameworkSweep::TearDown();
        FreeLibrary(g_resourceModule);
    }

    static zdr::Drawing house() { return ui::TestDrawing().layer(L"Walls", 3).state(L"Plan", 1023).drawing(); }
    /// Whether the state that is edited has the layer Walls on.
    bool wallsAreOn() const { return engine::drawingOf(database()).states[0].columns.flags[1] & zdr::kLayerOn; }

    /// Brings the pointer over a cell, and clicks it if wanted; where there is no such cell that is all.
    static Script pointAt(int column, bool click) {
        return Script().ifStillOpen().step("point at a cell", [column, click](const View& view) -> ui::Obstacle {
            const auto cell = view.cellRect(IDC_LAYER_GRID, 0, column);
            if (!cell)
                return std::nullopt;
            if (!ui::pointerRestsAt(ui::middleOf(*cell)))
                return "the pointer isn't there yet";
            if (click)
                ui::click();
            return std::nullopt;
        });
    }
    static Script leaveByOk() {
        const auto looks = std::make_shared<int>(0);
        return Script().ifStillOpen().press(VK_RETURN).step("leave", [looks](const View& view) -> ui::Obstacle {
            constexpr int kPatience = 10;
            if (++*looks > kPatience)
                ui::pressKey(VK_ESCAPE);
            return "the window \"" + ui::narrow(view.title()) + "\" is still open";
        });
    }
};

TEST_F(EditDialogSweep, OfOneEdit) {
    const HINSTANCE resources = AfxGetResourceHandle();
    scenario = [this, resources] {
        engine::replaceDrawing(database(), house());
        ui::bringPointerAway();
        {
            const CResourceScope scope;
            if (const auto dialog = made<EditOfPlan>(CWnd::GetActiveWindow()))
                ui::perform(Script()
                                .then(pointAt(nameGridColumn, false))
                                .then(pointAt(linetypeGridColumn, false))
                                .then(pointAt(onGridColumn, true))
                                .then(leaveByOk()),
                            [&dialog] { dialog->DoModal(); });
        }
        EXPECT_EQ(AfxGetResourceHandle(), resources);
        const zdr::Drawing& drawing = engine::drawingOf(database());
        EXPECT_EQ(drawing.states.front().columns.flags.size(), 2u) << "the state has its layers";
        return !wallsAreOn();
    };
    EXPECT_THAT(sweep(kFewCalls), IsSupersetOf({kHostCall, "_Znwy", "FindResourceW", "LoadResource", "LockResource",
                                                "CreateDialogIndirectParamW", "SetWindowsHookExW", "CreateFileW",
                                                "ReadFile", "CreateXmlReader", "CreateWindowExW", "LoadStringW"}));
}

} // namespace
