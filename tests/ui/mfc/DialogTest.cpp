// Dialogs from templates: end values, nesting, missing templates, where templates are found, owners, and what a message
// meets before it is dispatched.
#include "Driver.h"
#include "MfcTestIds.h"
#include "Program.h"

#include <functional>

namespace {

using testing::ElementsAre;
using ui::Script;
using ui::View;

/// Does at its start, or on a message, what a test wants.
class Form : public CDialog {
  public:
    explicit Form(UINT id = IDD_NESTED, CWnd* parent = nullptr) : CDialog(id, parent) {}

    std::function<BOOL(Form&)> atStart = [](Form&) { return TRUE; };
    std::function<void(Form&)> onOpen = [](Form&) {};

    BOOL OnInitDialog() override {
        CDialog::OnInitDialog();
        return atStart(*this);
    }

  protected:
    void OnOpen() { onOpen(*this); }
    DECLARE_MESSAGE_MAP()
};

// clang-format off
BEGIN_MESSAGE_MAP(Form, CDialog)
    ON_BN_CLICKED(IDC_OPEN, &Form::OnOpen)
END_MESSAGE_MAP()
// clang-format on

class DialogTest : public MfcTest {
  protected:
    void SetUp() override {
        MfcTest::SetUp();
        ASSERT_TRUE(frame.Create());
        theProgram().m_pMainWnd = &frame;
    }
    Frame frame;
};

TEST_F(DialogTest, AnswersWhatItWasEndedWith) {
    Form form;
    ui::perform(Script().click(IDOK), [&] { EXPECT_EQ(form.DoModal(), IDOK); });
    ui::perform(Script().click(IDCANCEL), [&] { EXPECT_EQ(form.DoModal(), IDCANCEL); });
    form.onOpen = [](Form& self) { self.EndDialog(4711); };
    ui::perform(Script().click(IDC_OPEN), [&] { EXPECT_EQ(form.DoModal(), 4711); });
    EXPECT_EQ(form.m_hWnd, nullptr);
}

TEST_F(DialogTest, ClosedByItsCaptionIsCancelled) {
    Form form;
    form.onOpen = [](Form& self) { self.PostMessage(WM_CLOSE); };
    ui::perform(Script().click(IDC_OPEN), [&] { EXPECT_EQ(form.DoModal(), IDCANCEL); });
}

TEST_F(DialogTest, WithoutTemplateAnswersMinusOne) {
    Form form(IDD_NOWHERE);
    EXPECT_EQ(form.DoModal(), -1);
    Form modeless(IDD_NOWHERE);
    EXPECT_FALSE(modeless.Create(IDD_NOWHERE, &frame));
    CDialog nothing;
    EXPECT_EQ(nothing.DoModal(), -1);
    EXPECT_TRUE(frame.IsWindowEnabled());
}

TEST_F(DialogTest, EndedWhileItIsSetUpIsNeverShown) {
    Form form;
    form.atStart = [](Form& self) {
        self.EndDialog(33);
        return TRUE;
    };
    EXPECT_EQ(form.DoModal(), 33);
    EXPECT_EQ(form.m_hWnd, nullptr);
    EXPECT_TRUE(frame.IsWindowEnabled());
}

TEST_F(DialogTest, NestedEndInnermostFirstEachWithItsOwnValue) {
    Form outer;
    Form middle;
    Form inner;
    INT_PTR answers[3] = {};
    outer.onOpen = [&](Form&) { answers[1] = middle.DoModal(); };
    middle.onOpen = [&](Form&) { answers[2] = inner.DoModal(); };
    inner.onOpen = [&](Form& self) {
        EXPECT_FALSE(middle.IsWindowEnabled());
        self.EndDialog(3);
    };
    ui::perform(Script().click(IDC_OPEN).click(IDC_OPEN).click(IDC_OPEN).click(IDCANCEL).click(IDOK),
                [&] { answers[0] = outer.DoModal(); });
    EXPECT_THAT(answers, ElementsAre(IDOK, IDCANCEL, 3));
}

TEST_F(DialogTest, DisablesItsOwnerWhileItRuns) {
    Form form(IDD_NESTED, &frame);
    ui::perform(Script()
                    .look("the owner is disabled", [&](const View&) { EXPECT_FALSE(frame.IsWindowEnabled()); })
                    .look("the dialog is owned",
                          [&](const View& view) { EXPECT_EQ(::GetWindow(view.window(), GW_OWNER), frame.m_hWnd); })
                    .click(IDOK),
                [&] { form.DoModal(); });
    EXPECT_TRUE(frame.IsWindowEnabled());
    EXPECT_EQ(::GetActiveWindow(), frame.m_hWnd);
}

TEST_F(DialogTest, LeavesADisabledOwnerDisabled) {
    frame.EnableWindow(FALSE);
    Form form(IDD_NESTED, &frame);
    ui::perform(Script().click(IDOK), [&] { form.DoModal(); });
    EXPECT_FALSE(frame.IsWindowEnabled());
}

TEST_F(DialogTest, WithAChildAsItsParentIsOwnedByTheWindowAround) {
    CStatic child;
    ASSERT_TRUE(child.Create(L"", WS_VISIBLE, CRect(0, 0, 10, 10), &frame));
    Form form(IDD_NESTED, &child);
    ui::perform(
        Script()
            .look("the owner", [&](const View& view) { EXPECT_EQ(::GetWindow(view.window(), GW_OWNER), frame.m_hWnd); })
            .click(IDOK),
        [&] { form.DoModal(); });
}

TEST_F(DialogTest, FromAPlaceOfZeroIsCenteredOverItsOwner) {
    CDialog form;
    ASSERT_TRUE(form.Create(IDD_FORM, &frame));
    CRect own;
    CRect owner;
    form.GetWindowRect(own);
    frame.GetWindowRect(owner);
    EXPECT_NEAR(own.CenterPoint().x, owner.CenterPoint().x, 1);
    EXPECT_NEAR(own.CenterPoint().y, owner.CenterPoint().y, 1);
    form.DestroyWindow();
    CDialog placed;
    ASSERT_TRUE(placed.Create(IDD_NESTED, &frame));
    placed.GetWindowRect(own);
    EXPECT_GT(abs(own.CenterPoint().x - owner.CenterPoint().x), 1);
}

TEST_F(DialogTest, TemplateIsFoundInTheCurrentResourceModule) {
    const HMODULE extension = ::LoadLibraryEx(L"mfc_test_extension.dll", nullptr, LOAD_LIBRARY_AS_DATAFILE);
    ASSERT_TRUE(extension);
    CDialog own;
    ASSERT_TRUE(own.Create(IDD_FORM, &frame));
    CString caption;
    own.GetWindowText(caption);
    EXPECT_EQ(caption, L"Program's form");
    AfxSetResourceHandle(extension);
    CDialog other;
    ASSERT_TRUE(other.Create(IDD_FORM, &frame));
    other.GetWindowText(caption);
    EXPECT_EQ(caption, L"Extension's form");
    AfxSetResourceHandle(nullptr);
    other.DestroyWindow();
    ::FreeLibrary(extension);
}

TEST_F(DialogTest, TemplateIsSearchedWhenTheDialogIsMadeAndNotBefore) {
    const HMODULE extension = ::LoadLibraryEx(L"mfc_test_extension.dll", nullptr, LOAD_LIBRARY_AS_DATAFILE);
    ASSERT_TRUE(extension);
    Form form(IDD_ONLY_EXTENSION);
    EXPECT_EQ(form.DoModal(), -1);
    AfxSetResourceHandle(extension);
    ui::perform(Script()
                    .look("the caption", [](const View& view) { EXPECT_EQ(view.title(), L"Only in the extension"); })
                    .click(IDOK),
                [&] { EXPECT_EQ(form.DoModal(), IDOK); });
    AfxSetResourceHandle(nullptr);
    ::FreeLibrary(extension);
}

TEST_F(DialogTest, FromATemplateInMemoryRunsWithoutControls) {
    struct Template {
        DLGTEMPLATE header;
        WORD menu, windowClass, title;
    };
    alignas(4) static const Template memory = {{WS_POPUP | WS_CAPTION, 0, 0, 10, 10, 100, 50}, 0, 0, 0};
    Form form;
    CDialog direct;
    ASSERT_TRUE(direct.CreateIndirect(&memory.header, &frame));
    EXPECT_TRUE(::IsWindow(direct.m_hWnd));
    direct.DestroyWindow();
    ASSERT_TRUE(form.InitModalIndirect(&memory.header, &frame));
    form.atStart = [](Form& self) {
        self.EndDialog(5);
        return TRUE;
    };
    EXPECT_EQ(form.DoModal(), 5);
}

TEST_F(DialogTest, ModelessLivesUntilItIsDestroyed) {
    Form form;
    ASSERT_TRUE(form.Create(IDD_NESTED, &frame));
    EXPECT_TRUE(frame.IsWindowEnabled());
    form.ShowWindow(SW_SHOW);
    runUntilIdle();
    EXPECT_TRUE(form.IsWindowVisible());
    frame.EnableWindow(FALSE);
    form.EndDialog(1);
    EXPECT_FALSE(frame.IsWindowEnabled());
    EXPECT_FALSE(form.IsWindowVisible());
    EXPECT_TRUE(::IsWindow(form.m_hWnd));
    form.DestroyWindow();
    EXPECT_EQ(form.m_hWnd, nullptr);
}

TEST_F(DialogTest, EndsWithTheProgramsLoop) {
    Form form;
    form.onOpen = [](Form&) { ::PostQuitMessage(9); };
    ui::perform(Script().click(IDC_OPEN), [&] { EXPECT_EQ(form.DoModal(), -1); });
    EXPECT_EQ(form.m_hWnd, nullptr);
    EXPECT_TRUE(frame.IsWindowEnabled());
    MSG message;
    EXPECT_TRUE(::PeekMessage(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)); // for the outer loop
}

TEST_F(DialogTest, HandsItsFontToItsObject) {
    struct FontForm : CDialog {
        HFONT font = nullptr;
        void OnSetFont(CFont* given) override { font = static_cast<HFONT>(*given); }
    } form;
    ASSERT_TRUE(form.Create(IDD_NESTED, &frame));
    EXPECT_NE(form.font, nullptr);
    EXPECT_EQ(form.font, static_cast<HFONT>(*form.GetFont()));
}

constexpr UINT kMine = WM_APP + 5;

/// Writes down the messages that it is offered before they are dispatched.
template <class Base> class Offered : public Base {
  public:
    using Base::Base;
    Log* log = nullptr;
    std::string name;
    bool takes = false;

    BOOL PreTranslateMessage(MSG* message) override {
        if (message->message != kMine)
            return Base::PreTranslateMessage(message);
        log->push_back(name);
        return takes;
    }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == kMine)
            log->push_back(name + " dispatched");
        return Base::WindowProc(message, wParam, lParam);
    }
};

class PreTranslateTest : public DialogTest {
  protected:
    void SetUp() override {
        DialogTest::SetUp();
        main.name = "main";
        dialog.name = "dialog";
        edit.name = "edit";
        main.log = dialog.log = edit.log = &log;
        ASSERT_TRUE(main.Create());
        theProgram().m_pMainWnd = &main;
        ASSERT_TRUE(dialog.Create(IDD_FORM, &main));
        ASSERT_TRUE(edit.SubclassDlgItem(IDC_TEXT, &dialog));
        runUntilIdle();
    }
    void TearDown() override {
        dialog.DestroyWindow();
        theProgram().m_pMainWnd = nullptr;
        DialogTest::TearDown();
    }
    void post() {
        edit.PostMessage(kMine);
        runUntilIdle();
    }
    Offered<Frame> main;
    Offered<CDialog> dialog;
    Offered<CEdit> edit;
};

TEST_F(PreTranslateTest, AsksFromTheTargetUpToTheDialogAndTheMainWindow) {
    post();
    ASSERT_GE(log.size(), 4u);
    EXPECT_THAT(Log(log.begin(), log.begin() + 3), ElementsAre("edit", "dialog", "main"));
    EXPECT_EQ(log.back(), "edit dispatched");
}

TEST_F(PreTranslateTest, StopsWhereAWindowTakesTheMessage) {
    dialog.takes = true;
    post();
    EXPECT_THAT(log, ElementsAre("edit", "dialog"));
    log.clear();
    edit.takes = true;
    post();
    EXPECT_THAT(log, ElementsAre("edit"));
}

TEST_F(PreTranslateTest, HappensInAModalDialogToo) {
    dialog.DestroyWindow();
    log.clear();
    struct Modal : Offered<CDialog> {
        explicit Modal(CWnd* parent) : Offered<CDialog>(IDD_FORM, parent) {}
        Offered<CEdit> edit;
        BOOL OnInitDialog() override {
            edit.name = "edit";
            edit.log = log;
            edit.SubclassDlgItem(IDC_TEXT, this);
            edit.PostMessage(kMine);
            return CDialog::OnInitDialog();
        }
    } modal(&main);
    modal.name = "dialog";
    modal.log = &log;
    ui::perform(Script().click(IDOK), [&] { EXPECT_EQ(modal.DoModal(), IDOK); });
    ASSERT_GE(log.size(), 3u);
    EXPECT_THAT(Log(log.begin(), log.begin() + 2), ElementsAre("edit", "dialog"));
    EXPECT_EQ(log.back(), "edit dispatched");
}

} // namespace
