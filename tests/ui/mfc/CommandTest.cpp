// Commands and control notifications: which message map gets them, in which order, and who may decline.
#include "MfcTestIds.h"
#include "Program.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr UINT kPlain = 200;
constexpr UINT kFirst = 210;
constexpr UINT kLast = 219;
constexpr UINT kDeclined = 230;
constexpr UINT kDisabled = 240;
constexpr UINT kInBaseOnly = 250;
constexpr UINT kRouted = 255;
constexpr UINT kEdit = 260;
constexpr UINT kOwners = 0x8001;
constexpr UINT kPrograms = 0x8002;

class Base : public Frame {
  public:
    Log* log = nullptr;

  protected:
    void OnPlain() { log->push_back("base plain"); }
    void OnInBaseOnly() { log->push_back("base only"); }
    BOOL OnDeclinedInBase(UINT) {
        log->push_back("base declined");
        return TRUE;
    }
    DECLARE_MESSAGE_MAP()
};

class Derived : public Base {
  protected:
    void OnPlain() { log->push_back("plain"); }
    void OnRange(UINT id) { log->push_back("range " + std::to_string(id - kFirst)); }
    BOOL OnDeclined(UINT id) {
        log->push_back("declined " + std::to_string(id));
        return FALSE;
    }
    void OnDisabled() { log->push_back("disabled"); }
    void OnUpdateDisabled(CCmdUI* ui) {
        log->push_back("update");
        ui->Enable(FALSE);
    }
    void OnUpdatePlain(CCmdUI* ui) {
        ui->Enable(TRUE);
        ui->SetCheck(1);
        ui->SetText(L"Changed");
    }
    void OnUpdateRouted(CCmdUI* ui) {
        log->push_back("update routed");
        ui->ContinueRouting();
    }
    void OnEditChange() { log->push_back("edit change"); }
    void OnEditRange(UINT id) { log->push_back("edit range " + std::to_string(id - kEdit)); }
    DECLARE_MESSAGE_MAP()
};

// clang-format off
BEGIN_MESSAGE_MAP(Base, Frame)
    ON_COMMAND(kPlain, &Base::OnPlain)
    ON_COMMAND(kInBaseOnly, &Base::OnInBaseOnly)
    ON_COMMAND_EX(kDeclined, &Base::OnDeclinedInBase)
END_MESSAGE_MAP()

BEGIN_MESSAGE_MAP(Derived, Base)
    ON_COMMAND(kPlain, &Derived::OnPlain)
    ON_COMMAND_RANGE(kFirst, kLast, &Derived::OnRange)
    ON_COMMAND_EX(kDeclined, &Derived::OnDeclined)
    ON_COMMAND(kDisabled, &Derived::OnDisabled)
    ON_UPDATE_COMMAND_UI(kDisabled, &Derived::OnUpdateDisabled)
    ON_UPDATE_COMMAND_UI(kPlain, &Derived::OnUpdatePlain)
    ON_UPDATE_COMMAND_UI(kRouted, &Derived::OnUpdateRouted)
    ON_EN_CHANGE(kEdit, &Derived::OnEditChange)
    ON_CONTROL_RANGE(EN_SETFOCUS, kEdit, kEdit + 5, &Derived::OnEditRange)
END_MESSAGE_MAP()
// clang-format on

class CommandTest : public MfcTest {
  protected:
    void SetUp() override {
        MfcTest::SetUp();
        frame.log = &log;
        ASSERT_TRUE(frame.Create());
    }
    void TearDown() override {
        frame.DestroyWindow();
        MfcTest::TearDown();
    }
    LRESULT send(UINT id) { return frame.SendMessage(WM_COMMAND, id); }

    Derived frame;
};

TEST_F(CommandTest, GoesToTheMostDerivedClassThatHasAnEntry) {
    EXPECT_EQ(send(kPlain), 1);
    EXPECT_EQ(send(kInBaseOnly), 1);
    EXPECT_THAT(log, ElementsAre("plain", "base only"));
}

TEST_F(CommandTest, OfARangeGetsItsIdUpToBothEnds) {
    send(kFirst);
    send(kFirst + 4);
    send(kLast);
    EXPECT_THAT(log, ElementsAre("range 0", "range 4", "range 9"));
    EXPECT_EQ(send(kLast + 1), 0);
    EXPECT_EQ(send(kFirst - 1), 0);
    EXPECT_EQ(log.size(), 3u);
}

TEST_F(CommandTest, ThatIsDeclinedCountsAsUnhandledWithoutAskingTheBase) {
    EXPECT_EQ(send(kDeclined), 0);
    EXPECT_THAT(log, ElementsAre("declined 230"));
}

TEST_F(CommandTest, OfNobodyIsUnhandled) {
    EXPECT_EQ(send(999), 0);
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(CommandTest, ThatItsUpdateHandlerDisablesIsNotCalled) {
    EXPECT_EQ(send(kDisabled), 1);
    EXPECT_THAT(log, ElementsAre("update"));
}

TEST_F(CommandTest, HandlerIsNamedWithoutBeingCalled) {
    AFX_CMDHANDLERINFO info{};
    EXPECT_TRUE(frame.OnCmdMsg(kPlain, CN_COMMAND, nullptr, &info));
    EXPECT_EQ(info.pTarget, &frame);
    EXPECT_FALSE(frame.OnCmdMsg(999, CN_COMMAND, nullptr, &info));
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(CommandTest, UpdateSetsTheMenuItem) {
    CMenu menu;
    ASSERT_TRUE(menu.CreatePopupMenu());
    menu.AppendMenu(MF_STRING, kPlain, L"Plain");
    CCmdUI ui;
    ui.m_nID = kPlain;
    ui.m_pMenu = &menu;
    EXPECT_TRUE(ui.DoUpdate(&frame, TRUE));
    CString text;
    menu.GetMenuString(0, text, MF_BYPOSITION);
    EXPECT_EQ(text, L"Changed");
    EXPECT_TRUE(menu.GetMenuState(0, MF_BYPOSITION) & MF_CHECKED);
    EXPECT_FALSE(menu.GetMenuState(0, MF_BYPOSITION) & MF_GRAYED);
}

TEST_F(CommandTest, UpdateDisablesAnItemWithoutAnyHandlerIfAsked) {
    CMenu menu;
    ASSERT_TRUE(menu.CreatePopupMenu());
    menu.AppendMenu(MF_STRING, 999, L"Nobody's");
    menu.AppendMenu(MF_STRING, kInBaseOnly, L"Handled");
    CCmdUI ui;
    ui.m_nID = 999;
    ui.m_pMenu = &menu;
    ui.DoUpdate(&frame, FALSE);
    EXPECT_FALSE(menu.GetMenuState(0, MF_BYPOSITION) & MF_GRAYED);
    ui.DoUpdate(&frame, TRUE);
    EXPECT_TRUE(menu.GetMenuState(0, MF_BYPOSITION) & MF_GRAYED);
    ui.m_nID = kInBaseOnly;
    ui.m_nIndex = 1;
    ui.DoUpdate(&frame, TRUE);
    EXPECT_FALSE(menu.GetMenuState(1, MF_BYPOSITION) & MF_GRAYED);
}

TEST_F(CommandTest, UpdateThatContinuesRoutingCountsAsUnanswered) {
    CCmdUI ui;
    ui.m_nID = kRouted;
    EXPECT_FALSE(ui.DoUpdate(&frame, FALSE));
    EXPECT_THAT(log, ElementsAre("update routed"));
}

TEST_F(CommandTest, NotificationOfAControlIsRoutedByItsCodeAndId) {
    CEdit edit;
    ASSERT_TRUE(edit.Create(WS_VISIBLE, CRect(0, 0, 100, 20), &frame, kEdit));
    edit.SetWindowText(L"x");
    EXPECT_THAT(log, ElementsAre("edit change"));
    log.clear();
    frame.SendMessage(WM_COMMAND, MAKEWPARAM(kEdit + 5, EN_SETFOCUS), reinterpret_cast<LPARAM>(edit.m_hWnd));
    EXPECT_THAT(log, ElementsAre("edit range 5"));
    edit.DestroyWindow();
}

class Owner : public Frame {
  public:
    Log* log = nullptr;

  protected:
    void OnOwners() { log->push_back("owner"); }
    void OnLow() { log->push_back("low"); }
    void OnChange() { log->push_back("change"); }
    DECLARE_MESSAGE_MAP()
};

// clang-format off
BEGIN_MESSAGE_MAP(Owner, Frame)
    ON_COMMAND(kOwners, &Owner::OnOwners)
    ON_COMMAND(kPlain, &Owner::OnLow)
    ON_EN_CHANGE(kOwners, &Owner::OnChange)
END_MESSAGE_MAP()
// clang-format on

class DialogCommandTest : public MfcTest {
  protected:
    void SetUp() override {
        MfcTest::SetUp();
        owner.log = &log;
        ASSERT_TRUE(owner.Create());
        ASSERT_TRUE(dialog.Create(IDD_NESTED, &owner));
    }
    void TearDown() override {
        dialog.DestroyWindow();
        owner.DestroyWindow();
        MfcTest::TearDown();
    }
    Owner owner;
    CDialog dialog;
};

TEST_F(DialogCommandTest, GoesOnToTheOwnerAndThenToTheProgram) {
    theProgram().command = kPrograms;
    EXPECT_EQ(dialog.SendMessage(WM_COMMAND, kOwners), 1);
    EXPECT_THAT(log, ElementsAre("owner"));
    EXPECT_EQ(dialog.SendMessage(WM_COMMAND, kPrograms), 1);
    EXPECT_EQ(theProgram().commandCount, 1);
}

TEST_F(DialogCommandTest, OfAControlsIdStaysInTheDialog) {
    EXPECT_EQ(dialog.SendMessage(WM_COMMAND, kPlain), 0);
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(DialogCommandTest, ControlNotificationsStayInTheDialog) {
    const LPARAM control = reinterpret_cast<LPARAM>(dialog.GetDlgItem(IDC_OPEN)->m_hWnd);
    dialog.SendMessage(WM_COMMAND, MAKEWPARAM(kOwners, EN_CHANGE), control);
    EXPECT_THAT(log, IsEmpty());
}

} // namespace
