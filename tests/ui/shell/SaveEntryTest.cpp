// The export that opens the new layer state dialog without the manager, and restores what was saved there.

// First, since it names some of the ids that resource.h names too.
#include <afxwin.h>

#include "Driver.h"
#include "HostTest.h"
#include "instruments/HostCalls.h"
#include "resource.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using ui::Script;
using ui::View;

class SaveEntry : public ui::HostTest {
  protected:
    void SetUp() override {
        HostTest::SetUp();
        loadModule();
        open(ui::TestDrawing().layer(L"Walls").state(L"Ground floor", MaskAllProperties));
    }
    static void callExport(CWnd* parent) {
        const HMODULE module = GetModuleHandleW(L"KelLayerApps.xmod");
        const auto entry = reinterpret_cast<void (*)(CWnd*)>(
            reinterpret_cast<void*>(GetProcAddress(module, "keldbLayerStateSaveDialog")));
        ASSERT_NE(entry, nullptr);
        entry(parent);
    }
    /// Runs the export with the script. @return what it asks of the host after the description has been saved
    static std::vector<std::string> callsAfterSave(Script script) {
        EXPECT_TRUE(ui::perform(std::move(script), [] { callExport(nullptr); }));
        std::vector<std::string> calls = instruments::trace();
        const auto saved = std::find_if(calls.begin(), calls.end(), [](const std::string& line) {
            return line.starts_with("setLayerStateDescription(");
        });
        EXPECT_NE(saved, calls.end());
        calls.erase(calls.begin(), saved == calls.end() ? saved : std::next(saved));
        return calls;
    }
    static Script saveAs(const std::wstring& name) {
        Script script;
        return script.type(name).press(VK_RETURN);
    }
};

TEST_F(SaveEntry, RestoresTheSavedStateByOneHostCallAndDoesNothingElse) {
    EXPECT_THAT(callsAfterSave(saveAs(L" New ")),
                ElementsAre("keldbHostApplicationServices()", "workingDatabase() = object",
                            "getLayerStateManager() = object", "keledGetCurViewportObjectId() = null",
                            "restoreLayerState(\"New\", null, 0, null) = 0"));
    KelString restored;
    KelDbObjectId record;
    EXPECT_EQ(states().getLastRestoredLayerState(restored, record), Vorn::eOk);
    EXPECT_STREQ(restored.kwszPtr(), L"New");
}

TEST_F(SaveEntry, RestoresForTheCurrentViewport) {
    open(ui::TestDrawing().inViewport());
    EXPECT_THAT(callsAfterSave(saveAs(L"New")),
                ElementsAre("keldbHostApplicationServices()", "workingDatabase() = object",
                            "getLayerStateManager() = object", "keledGetCurViewportObjectId() = #F0",
                            "restoreLayerState(\"New\", #F0, 0, null) = 0"));
}

TEST_F(SaveEntry, ARestoreThatIsRefusedIsntTold) {
    instruments::failCall("restoreLayerState", 1, Vorn::eCannotFreezeCurrentLayer);
    const std::vector<std::string> calls = callsAfterSave(saveAs(L"New"));
    EXPECT_EQ(calls.back(),
              "restoreLayerState(\"New\", null, 0, null) = " + std::to_string(Vorn::eCannotFreezeCurrentLayer));
}

TEST_F(SaveEntry, WithoutAStateManagerAfterTheSaveNothingIsRestored) {
    instruments::failCall("getLayerStateManager", 3); // after those of the dialog's opening and of its save
    EXPECT_THAT(
        callsAfterSave(saveAs(L"New")),
        ElementsAre("keldbHostApplicationServices()", "workingDatabase() = object", "getLayerStateManager() = null"));
}

TEST_F(SaveEntry, CancelAsksNothingBeyondWhatTheDialogAskedToOpen) {
    for (const bool byButton : {true, false}) {
        Script script;
        script.type(L"New").look("the calls count from here", [](const View&) { instruments::clearTrace(); });
        if (byButton)
            script.click(IDCANCEL);
        else
            script.press(VK_ESCAPE);
        EXPECT_TRUE(ui::perform(std::move(script), [] { callExport(nullptr); }));
        EXPECT_THAT(instruments::trace(), IsEmpty());
    }
}

TEST_F(SaveEntry, AnEndByOkThatLeavesNoNameRestoresNothing) {
    Script script;
    script.look("the dialog ends with OK and no name", [](const View& view) {
        instruments::clearTrace();
        static_cast<CDialog*>(CWnd::FromHandlePermanent(view.window()))->EndDialog(IDOK);
    });
    EXPECT_TRUE(ui::perform(std::move(script), [] { callExport(nullptr); }));
    EXPECT_THAT(instruments::trace(), IsEmpty());
}

TEST_F(SaveEntry, OpensOverItsParentWhichCantBeUsedMeanwhile) {
    CWnd parent;
    ASSERT_TRUE(parent.CreateEx(0, AfxRegisterWndClass(0), L"Parent", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                CRect(0, 0, 600, 400), nullptr, 0));
    for (const bool cancel : {true, false}) {
        Script script;
        script.waitForControl(IDC_LSTATE_SAVE_NAME).look("the owner", [&parent](const View& view) {
            EXPECT_EQ(GetWindow(view.window(), GW_OWNER), parent.m_hWnd);
            EXPECT_FALSE(IsWindowEnabled(parent.m_hWnd));
        });
        if (cancel)
            script.press(VK_ESCAPE);
        else
            script.then(saveAs(L"New"));
        EXPECT_TRUE(ui::perform(std::move(script), [&parent] { callExport(&parent); }));
        EXPECT_TRUE(IsWindowEnabled(parent.m_hWnd));
    }
    parent.DestroyWindow();
}

TEST_F(SaveEntry, TheResourceModuleIsCurrentForTheWholeRunAndNotBeyond) {
    const HINSTANCE before = AfxGetResourceHandle();
    Script script;
    script
        .look("inside",
              [](const View&) { EXPECT_EQ(AfxGetResourceHandle(), GetModuleHandleW(L"KelLayerAppsRes.dll")); })
        .then(saveAs(L"New"));
    EXPECT_TRUE(ui::perform(std::move(script), [] { callExport(nullptr); }));
    EXPECT_EQ(AfxGetResourceHandle(), before);
}

} // namespace
