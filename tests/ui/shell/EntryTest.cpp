// The ways into the manager: the command, and the export that other parts of the host call.

// First, since it names some of the ids that resource.h names too.
#include <afxwin.h>

#include "Driver.h"
#include "HostTest.h"
#include "instruments/CallObserver.h"
#include "instruments/HostCalls.h"
#include "resource.h"

#include <gmock/gmock.h>

#include <functional>
#include <memory>
#include <new>
#include <utility>

namespace {

using testing::Each;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using ui::Script;
using ui::View;

using DialogExport = void (*)(CWnd*);

/// An exception of the framework, which somebody has to delete.
class Counted : public CException {
  public:
    Counted() { ++living; }
    ~Counted() override { --living; }
    static inline int living = 0;
};

/// Has the first host call after the command was found throw.
void throwInFirstCall(const std::function<void()>& thrower) {
    const auto thrown = std::make_shared<bool>(false);
    instruments::observeCalls([thrower, thrown](const std::string& call) {
        if (call.starts_with("lookup(") || std::exchange(*thrown, true))
            return;
        thrower();
    });
}

class Entry : public ui::HostTest {
  protected:
    void SetUp() override {
        HostTest::SetUp();
        loadModule();
        openHouse();
    }
    void openHouse() {
        open(ui::TestDrawing().layer(L"Walls").state(L"Ground floor", MaskAllProperties));
        forgetDialogs();
    }
    static DialogExport exported(const char* name) {
        const HMODULE module = GetModuleHandleW(L"KelLayerApps.xmod");
        return reinterpret_cast<DialogExport>(reinterpret_cast<void*>(GetProcAddress(module, name)));
    }
    static DialogExport managerExport() { return exported("keldbLayerStateManagerDialog"); }
    /// The host calls while `entry` ran with the script, from the dialog's construction on.
    static std::vector<std::string> callsOf(Script script, const std::function<void()>& entry) {
        instruments::clearTrace();
        EXPECT_TRUE(ui::perform(std::move(script), entry));
        std::vector<std::string> calls = instruments::trace();
        if (!calls.empty() && calls.front().starts_with("lookup("))
            calls.erase(calls.begin()); // the command line's own
        return calls;
    }
};

TEST_F(Entry, TheExportWithoutAParentDoesJustWhatTheCommandDoes) {
    ASSERT_NE(managerExport(), nullptr);
    for (const int button : {IDC_LSTATE_RES_CLOSE, IDC_LSTATE_RES_RESTORE}) {
        openHouse();
        const auto byCommand = callsOf(Script().click(button), [this] { runCommand(L"LAYERSTATE"); });
        openHouse();
        const auto byExport = callsOf(Script().click(button), [] { managerExport()(nullptr); });
        EXPECT_THAT(byCommand, Not(IsEmpty()));
        EXPECT_EQ(byExport, byCommand) << button;
    }
}

TEST_F(Entry, TheExportOpensTheManagerOverItsParent) {
    CWnd parent;
    ASSERT_TRUE(parent.CreateEx(0, AfxRegisterWndClass(0), L"Parent", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                CRect(0, 0, 600, 400), nullptr, 0));
    const HWND parentWindow = parent.m_hWnd;
    callsOf(Script()
                .waitForControl(IDC_LSTATE_RES_LIST)
                .look("the owner",
                      [parentWindow](const View& view) {
                          EXPECT_EQ(GetWindow(view.window(), GW_OWNER), parentWindow);
                          EXPECT_FALSE(IsWindowEnabled(parentWindow));
                      })
                .press(VK_ESCAPE),
            [&parent] { managerExport()(&parent); });
    EXPECT_TRUE(IsWindowEnabled(parentWindow));
    parent.DestroyWindow();
}

TEST_F(Entry, OkAndCancelEndTheCommandAlike) {
    const HINSTANCE resources = AfxGetResourceHandle();
    for (const bool cancel : {false, true}) {
        Script script;
        if (cancel)
            script.press(VK_ESCAPE);
        else
            script.click(IDC_LSTATE_RES_CLOSE);
        bool ended = false;
        callsOf(script, [&] {
            runCommand(L"LAYERSTATE");
            ended = true;
        });
        EXPECT_TRUE(ended);
        EXPECT_EQ(AfxGetResourceHandle(), resources);
        EXPECT_THAT(instruments::ledger(), IsEmpty());
    }
}

TEST_F(Entry, TheResourceModuleIsCurrentForTheWholeRunAndNotBeyond) {
    const HINSTANCE before = AfxGetResourceHandle();
    callsOf(Script()
                .look("inside",
                      [](const View&) { EXPECT_EQ(AfxGetResourceHandle(), GetModuleHandleW(L"KelLayerAppsRes.dll")); })
                .press(VK_ESCAPE),
            [this] { runCommand(L"LAYERSTATE"); });
    EXPECT_EQ(AfxGetResourceHandle(), before);
}

TEST_F(Entry, TheCommandIsFoundUnderItsGlobalNameWhateverTheCase) {
    callsOf(Script().press(VK_ESCAPE), [this] { runCommand(L"layerstate"); });
}

TEST_F(Entry, ADialogThatCantStartEndsTheCommandWithoutAWord) {
    // The dialog's own window can't be made; any later one, of a message box for example, could.
    struct FirstWindow {
        static LRESULT CALLBACK refuse(int code, WPARAM wParam, LPARAM lParam) {
            if (code == HCBT_CREATEWND && isNext()) {
                isNext() = false;
                return 1;
            }
            return CallNextHookEx(nullptr, code, wParam, lParam);
        }
        static bool& isNext() {
            static bool next = true;
            return next;
        }
    };
    const HHOOK hook = SetWindowsHookExW(WH_CBT, FirstWindow::refuse, nullptr, GetCurrentThreadId());
    ASSERT_NE(hook, nullptr);
    callsOf(Script(), [this] { runCommand(L"LAYERSTATE"); });
    UnhookWindowsHookEx(hook);
    EXPECT_FALSE(FirstWindow::isNext());
    EXPECT_THAT(instruments::ledger(), IsEmpty());
}

TEST_F(Entry, WhatIsThrownEndsARunLikeACancelledOneAndIsNotKept) {
    const HINSTANCE resources = AfxGetResourceHandle();
    const std::function<void()> throwers[] = {[] { throw new Counted; }, [] { throw std::bad_alloc(); }};
    const std::function<void()> doors[] = {[this] { runCommand(L"LAYERSTATE"); }, [] { managerExport()(nullptr); },
                                           [] { exported("keldbLayerStateSaveDialog")(nullptr); }};
    for (const auto& thrower : throwers)
        for (const auto& door : doors) {
            throwInFirstCall(thrower);
            const std::vector<std::string> calls = callsOf(Script(), door);
            instruments::observeCalls({});
            EXPECT_THAT(calls, testing::SizeIs(1));
            EXPECT_EQ(Counted::living, 0);
            EXPECT_EQ(AfxGetResourceHandle(), resources);
            EXPECT_THAT(instruments::ledger(), IsEmpty());
        }
}

} // namespace
