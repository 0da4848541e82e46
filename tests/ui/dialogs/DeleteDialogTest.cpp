// The delete confirmation: what it shows, and what each way out of it answers.

#include "CLayerStatesDeleteDlg.h"
#include "CResourceScope.h"
#include "Driver.h"
#include "HostTest.h"
#include "ModuleHandles.h"
#include "instruments/HostCalls.h"
#include "resource.h"

#include <gmock/gmock.h>

HINSTANCE g_moduleInstance = nullptr;
HINSTANCE g_resourceModule = nullptr;

// The system has no question icon while this is set.
static bool g_iconIsMissing = false;

extern "C" {
using IconLoader = HICON(WINAPI*)(HINSTANCE, LPCWSTR);
extern IconLoader __real___imp_LoadIconW;
static HICON WINAPI loadIcon(HINSTANCE module, LPCWSTR name) {
    return g_iconIsMissing && name == IDI_QUESTION ? nullptr : __real___imp_LoadIconW(module, name);
}
IconLoader __wrap___imp_LoadIconW = loadIcon;
}

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using ui::Script;
using ui::View;

/// What a run of the dialog leaves: its answer and its fields.
struct Answer {
    INT_PTR result;
    int applyToAll;
    int deleteThis;
    int cancelled;

    bool operator==(const Answer&) const = default;
};

void PrintTo(const Answer& answer, std::ostream* out) {
    *out << "result " << answer.result << ", all " << answer.applyToAll << ", this " << answer.deleteThis
         << ", cancelled " << answer.cancelled;
}

constexpr Answer deletesThis = {IDOK, 0, 1, 0};
constexpr Answer deletesAll = {IDOK, 1, 1, 0};
constexpr Answer keepsThis = {IDOK, 0, 0, 0};
constexpr Answer cancels = {IDCANCEL, 0, 0, 1};

HICON iconOf(const View& view) {
    return reinterpret_cast<HICON>(SendMessageW(view.control(IDC_LSTATE_DEL_ICON), STM_GETICON, 0, 0));
}

/// As a template without the icon would make it.
class DialogWithoutIcon : public CLayerStatesDeleteDlg {
  public:
    DialogWithoutIcon() : CLayerStatesDeleteDlg(nullptr) {}
    BOOL OnInitDialog() override {
        GetDlgItem(IDC_LSTATE_DEL_ICON)->DestroyWindow();
        return CLayerStatesDeleteDlg::OnInitDialog();
    }
};

/// Keeps whether the system was asked to place the focus. Wine does so unasked.
class DialogWithFocus : public CLayerStatesDeleteDlg {
  public:
    DialogWithFocus() : CLayerStatesDeleteDlg(nullptr) {}
    BOOL OnInitDialog() override { return m_asksForFocus = CLayerStatesDeleteDlg::OnInitDialog(); }
    BOOL m_asksForFocus = FALSE;
};

class DeleteDialog : public ui::HostTest {
  protected:
    void SetUp() override {
        HostTest::SetUp();
        g_resourceModule = LoadLibraryW(L"KelLayerAppsRes.dll");
        ASSERT_NE(g_resourceModule, nullptr);
    }
    void TearDown() override {
        FreeLibrary(g_resourceModule);
        HostTest::TearDown();
    }

    static Answer run(CLayerStatesDeleteDlg& dialog, const Script& script) {
        const CResourceScope scope;
        INT_PTR result = 0;
        ui::perform(script, [&] { result = dialog.DoModal(); });
        return {result, dialog.m_applyToAll, dialog.m_deleteThis, dialog.m_cancelled};
    }
    /// Asks about a state, with values in the fields that no answer gives.
    static Answer ask(const Script& script, const wchar_t* name = L"Plan") {
        CLayerStatesDeleteDlg dialog(nullptr);
        dialog.m_stateName = name;
        dialog.m_applyToAll = dialog.m_deleteThis = dialog.m_cancelled = 7;
        return run(dialog, script);
    }
    static Script expectFocus(int control) {
        return Script().look("the focus", [control](const View& view) { EXPECT_EQ(view.focusedControl(), control); });
    }
    /// The prompt of the template with that name in it.
    static std::wstring promptAbout(const std::wstring& name) {
        const CResourceScope scope;
        CDialog plain(IDD_LSTATE_DEL);
        std::wstring prompt;
        ui::perform(Script()
                        .look("the template's prompt",
                              [&prompt](const View& view) { prompt = view.text(IDC_LSTATE_DEL_PROMPT); })
                        .press(VK_ESCAPE),
                    [&plain] { plain.DoModal(); });
        const std::size_t place = prompt.find(L"%s");
        EXPECT_NE(place, std::wstring::npos);
        return place == std::wstring::npos ? prompt : prompt.replace(place, 2, name);
    }
};

TEST_F(DeleteDialog, BeginsAsIfOneStateWereToGo) {
    const CLayerStatesDeleteDlg dialog(nullptr);
    EXPECT_TRUE(dialog.m_stateName.IsEmpty());
    EXPECT_EQ(dialog.m_applyToAll, 0);
    EXPECT_EQ(dialog.m_deleteThis, 1);
    EXPECT_EQ(dialog.m_cancelled, 0);
}

TEST_F(DeleteDialog, SetsItselfUpInThisOrderAndAsksTheHostForNothingElse) {
    EXPECT_EQ(ask(Script().click(IDC_LSTATE_DEL_ALL)), deletesAll);
    EXPECT_THAT(instruments::trace(),
                ElementsAre("CKelUiDialog(202)", "SetDialogName(\"KelLayerApps:LayerStatesDelete\")", "OnInitDialog()",
                            "SetContextHelpPrefix(\"LAST\")",
                            "SetContextHelpFileName(\"/KelDialogToolTips;Component/DialogToolTips.xaml\")",
                            "SetUseTips(2)"));
}

TEST_F(DeleteDialog, AnswersByItsButtons) {
    EXPECT_EQ(ask(Script().click(IDC_LSTATE_DEL_THIS)), deletesThis);
    EXPECT_EQ(ask(Script().click(IDC_LSTATE_DEL_ALL)), deletesAll);
    EXPECT_EQ(ask(Script().click(IDC_LSTATE_KEEP_THIS)), keepsThis);
    EXPECT_EQ(ask(Script().click(IDCANCEL)), cancels);
}

TEST_F(DeleteDialog, AnswersByItsAccessKeys) {
    EXPECT_EQ(ask(Script().pressMnemonicOf(IDC_LSTATE_DEL_THIS)), deletesThis);
    EXPECT_EQ(ask(Script().pressMnemonicOf(IDC_LSTATE_DEL_ALL)), deletesAll);
    EXPECT_EQ(ask(Script().pressMnemonicOf(IDC_LSTATE_KEEP_THIS)), keepsThis);
}

TEST_F(DeleteDialog, IsCancelledByEscapeAndByItsCloseButton) {
    EXPECT_EQ(ask(Script().press(VK_ESCAPE)), cancels);
    EXPECT_EQ(ask(Script().press(VK_F4, ui::holdAlt)), cancels);
}

TEST_F(DeleteDialog, HasDeleteAsItsDefaultButtonAndFirstStop) {
    Script script = expectFocus(IDC_LSTATE_DEL_THIS);
    script.look("the default button", [](const View& view) {
        EXPECT_EQ(SendMessageW(view.window(), DM_GETDEFID, 0, 0), MAKELONG(IDC_LSTATE_DEL_THIS, DC_HASDEFID));
    });
    EXPECT_EQ(ask(script.press(VK_RETURN)), deletesThis);
}

TEST_F(DeleteDialog, LetsTheSystemPlaceTheFocus) {
    DialogWithFocus dialog;
    EXPECT_EQ(run(dialog, Script().press(VK_ESCAPE)), cancels);
    EXPECT_TRUE(dialog.m_asksForFocus);
}

TEST_F(DeleteDialog, IsWalkedThroughByTabInTheOrderOfItsButtons) {
    Script script;
    for (const int next : {IDC_LSTATE_DEL_ALL, IDC_LSTATE_KEEP_THIS, IDCANCEL, IDC_LSTATE_DEL_THIS})
        script.press(VK_TAB).then(expectFocus(next));
    script.press(VK_TAB, ui::holdShift).then(expectFocus(IDCANCEL));
    EXPECT_EQ(ask(script.press(VK_TAB, ui::holdShift).press(VK_RETURN)), keepsThis);
}

TEST_F(DeleteDialog, RemembersNoAnswer) {
    EXPECT_EQ(ask(Script().click(IDC_LSTATE_DEL_ALL)), deletesAll);
    EXPECT_EQ(ask(Script().waitForText(promptAbout(L"Plan")).press(VK_RETURN)), deletesThis);
    EXPECT_EQ(ask(Script().click(IDC_LSTATE_KEEP_THIS)), keepsThis);
    EXPECT_EQ(ask(Script().press(VK_RETURN)), deletesThis);
}

TEST_F(DeleteDialog, AsksWithTheSystemsQuestionIcon) {
    const HICON question = ::LoadIconW(nullptr, IDI_QUESTION);
    ASSERT_NE(question, nullptr);
    ask(Script()
            .look("the icon", [question](const View& view) { EXPECT_EQ(iconOf(view), question); })
            .press(VK_ESCAPE));
}

TEST_F(DeleteDialog, AsksAllTheSameWithoutAnIcon) {
    g_iconIsMissing = true;
    const Script look = Script()
                            .waitForText(promptAbout(L"Plan"))
                            .look("no icon", [](const View& view) { EXPECT_EQ(iconOf(view), nullptr); })
                            .click(IDC_LSTATE_KEEP_THIS);
    EXPECT_EQ(ask(look), keepsThis);
    g_iconIsMissing = false;
    DialogWithoutIcon dialog;
    dialog.m_stateName = L"Plan";
    EXPECT_EQ(run(dialog, look), keepsThis);
}

TEST_F(DeleteDialog, NamesTheStateAsItIs) {
    const std::wstring names[] = {
        L"Plan",          L"100 %s of 5 % %d %n", L"\"Quoted\" 'name'", L"Pipes & drains && more",
        L"Grüße, 图层 1", std::wstring(255, L'W')};
    for (const std::wstring& name : names)
        ask(Script()
                .waitForText(promptAbout(name))
                .look("no character is taken for the mark of an access key",
                      [](const View& view) {
                          const LONG style = GetWindowLongW(view.control(IDC_LSTATE_DEL_PROMPT), GWL_STYLE);
                          EXPECT_EQ(style & SS_NOPREFIX, SS_NOPREFIX);
                      })
                .press(VK_ESCAPE),
            name.c_str());
}

} // namespace
