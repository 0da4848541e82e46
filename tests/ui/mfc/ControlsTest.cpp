// The smaller controls: buttons, edits, list and combo boxes, tool tips, status bars, tabs, and menus.
#include "MfcTestIds.h"
#include "Program.h"

namespace {

using testing::ElementsAre;

class ControlsTest : public MfcTest {
  protected:
    void SetUp() override {
        MfcTest::SetUp();
        ASSERT_TRUE(frame.Create());
    }
    void TearDown() override {
        frame.DestroyWindow();
        MfcTest::TearDown();
    }
    Frame frame;
    const CRect rect{0, 0, 100, 100};
};

TEST_F(ControlsTest, ButtonsAreCheckedAndStyled) {
    CButton box;
    ASSERT_TRUE(box.Create(L"Frozen", BS_AUTO3STATE, rect, &frame, 1));
    EXPECT_EQ(box.GetCheck(), BST_UNCHECKED);
    box.SetCheck(BST_INDETERMINATE);
    EXPECT_EQ(box.GetCheck(), BST_INDETERMINATE);
    box.SetButtonStyle(BS_AUTOCHECKBOX);
    EXPECT_EQ(box.GetButtonStyle() & BS_TYPEMASK, static_cast<UINT>(BS_AUTOCHECKBOX));
    CButton push;
    ASSERT_TRUE(push.Create(L"", BS_ICON, rect, &frame, 2));
    const HICON icon = ::LoadIcon(nullptr, IDI_WARNING);
    EXPECT_EQ(push.SetIcon(icon), nullptr);
    EXPECT_EQ(push.GetIcon(), icon);
}

TEST_F(ControlsTest, StaticsShowTextAndIcons) {
    CStatic label;
    ASSERT_TRUE(label.Create(L"Name:", SS_LEFT, rect, &frame));
    CString text;
    label.GetWindowText(text);
    EXPECT_EQ(text, L"Name:");
    CStatic picture;
    ASSERT_TRUE(picture.Create(L"", SS_ICON, rect, &frame));
    const HICON icon = ::LoadIcon(nullptr, IDI_WARNING);
    picture.SetIcon(icon);
    EXPECT_EQ(picture.GetIcon(), icon);
}

TEST_F(ControlsTest, EditsSelectReplaceAndLimit) {
    CEdit edit;
    ASSERT_TRUE(edit.Create(ES_AUTOHSCROLL, rect, &frame, 1));
    edit.SetWindowText(L"layer one");
    edit.SetSel(6, 9);
    int start = 0;
    int end = 0;
    edit.GetSel(start, end);
    EXPECT_EQ(start, 6);
    EXPECT_EQ(end, 9);
    EXPECT_EQ(edit.GetSel(), static_cast<DWORD>(MAKELONG(6, 9)));
    edit.ReplaceSel(L"two");
    CString text;
    edit.GetWindowText(text);
    EXPECT_EQ(text, L"layer two");
    edit.SetSel(0, -1);
    edit.GetSel(start, end);
    EXPECT_EQ(end, 9);
    edit.SetLimitText(5);
    EXPECT_EQ(edit.GetLimitText(), 5u);
    edit.SetModify();
    EXPECT_TRUE(edit.GetModify());
    EXPECT_TRUE(edit.SetReadOnly());
    EXPECT_TRUE(edit.GetStyle() & ES_READONLY);
}

TEST_F(ControlsTest, EditsOfSeveralLinesCountThem) {
    CEdit edit;
    ASSERT_TRUE(edit.Create(ES_MULTILINE, rect, &frame, 1));
    edit.SetWindowText(L"a\r\nbcd\r\n");
    EXPECT_EQ(edit.GetLineCount(), 3);
    EXPECT_EQ(edit.LineIndex(1), 3);
    EXPECT_EQ(edit.LineLength(3), 3);
    EXPECT_EQ(edit.LineFromChar(4), 1);
}

TEST_F(ControlsTest, ListBoxesHoldTextsAndData) {
    CListBox list;
    ASSERT_TRUE(list.Create(LBS_EXTENDEDSEL, rect, &frame, 1));
    EXPECT_EQ(list.AddString(L"red"), 0);
    EXPECT_EQ(list.AddString(L"green"), 1);
    EXPECT_EQ(list.InsertString(0, L"blue"), 0);
    list.SetItemData(1, 12345);
    EXPECT_EQ(list.GetItemData(1), 12345u);
    CString text = L"before";
    list.GetText(2, text);
    EXPECT_EQ(text, L"green");
    list.GetText(9, text);
    EXPECT_EQ(text, L"");
    list.SetSel(0);
    list.SetSel(2);
    int selected[3] = {};
    EXPECT_EQ(list.GetSelCount(), 2);
    EXPECT_EQ(list.GetSelItems(3, selected), 2);
    EXPECT_EQ(selected[1], 2);
    EXPECT_EQ(list.FindString(-1, L"gr"), 2);
    EXPECT_EQ(list.FindStringExact(-1, L"gr"), LB_ERR);
    EXPECT_EQ(list.DeleteString(0), 2);
    list.ResetContent();
    EXPECT_EQ(list.GetCount(), 0);
}

TEST_F(ControlsTest, ComboBoxesHoldTextsAndData) {
    CComboBox combo;
    ASSERT_TRUE(combo.Create(CBS_DROPDOWN, rect, &frame, 1));
    combo.AddString(L"Continuous");
    combo.AddString(L"Dashed");
    EXPECT_EQ(combo.SelectString(-1, L"Da"), 1);
    EXPECT_EQ(combo.GetCurSel(), 1);
    CString text;
    combo.GetLBText(0, text);
    EXPECT_EQ(text, L"Continuous");
    combo.GetLBText(5, text);
    EXPECT_EQ(text, L"");
    combo.SetItemData(1, 9);
    EXPECT_EQ(combo.GetItemData(1), 9u);
    EXPECT_TRUE(combo.SetEditSel(1, 3));
    EXPECT_EQ(combo.GetEditSel(), static_cast<DWORD>(MAKELONG(1, 3)));
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    EXPECT_TRUE(combo.GetComboBoxInfo(&info));
    EXPECT_EQ(info.hwndCombo, combo.m_hWnd);
    combo.ShowDropDown();
    EXPECT_TRUE(combo.GetDroppedState());
    combo.ShowDropDown(FALSE);
    EXPECT_EQ(combo.DeleteString(0), 1);
}

TEST_F(ControlsTest, ToolTipsKnowWindowsAndPartsOfThem) {
    CToolTipCtrl tips;
    ASSERT_TRUE(tips.Create(&frame, TTS_ALWAYSTIP));
    CButton button;
    ASSERT_TRUE(button.Create(L"B", BS_PUSHBUTTON, rect, &frame, 1));
    EXPECT_TRUE(tips.AddTool(&button, L"Saves the state"));
    EXPECT_TRUE(tips.AddTool(&frame, IDS_PLAIN, CRect(0, 0, 10, 10), 7));
    EXPECT_FALSE(tips.AddTool(&frame, IDS_NOWHERE, CRect(0, 0, 10, 10), 8));
    EXPECT_EQ(tips.GetToolCount(), 2);
    CString text;
    tips.GetText(text, &button);
    EXPECT_EQ(text, L"Saves the state");
    tips.GetText(text, &frame, 7);
    EXPECT_EQ(text, L"A plain text.");
    tips.UpdateTipText(L"Restores", &button);
    tips.GetText(text, &button);
    EXPECT_EQ(text, L"Restores");
    tips.DelTool(&frame, 7);
    EXPECT_EQ(tips.GetToolCount(), 1);
    tips.SetMaxTipWidth(200);
    EXPECT_EQ(tips.GetMaxTipWidth(), 200);
    tips.SetDelayTime(TTDT_INITIAL, 150);
    EXPECT_EQ(tips.GetDelayTime(TTDT_INITIAL), 150);
}

TEST_F(ControlsTest, StatusBarsHaveTextsInTheirParts) {
    CStatusBarCtrl bar;
    ASSERT_TRUE(bar.Create(WS_VISIBLE, rect, &frame, 1));
    int edges[2] = {80, -1};
    EXPECT_TRUE(bar.SetParts(2, edges));
    EXPECT_EQ(bar.GetParts(0, nullptr), 2);
    EXPECT_TRUE(bar.SetText(L"Ready", 1, SBT_NOBORDERS));
    int type = 0;
    EXPECT_EQ(bar.GetText(1, &type), L"Ready");
    EXPECT_EQ(type, SBT_NOBORDERS);
    EXPECT_EQ(bar.GetText(0), L"");
    CRect part;
    EXPECT_TRUE(bar.GetRect(0, part));
    EXPECT_EQ(part.right, 80);
}

TEST_F(ControlsTest, TabsAreInsertedAndSelected) {
    CTabCtrl tabs;
    ASSERT_TRUE(tabs.Create(0, rect, &frame, 1));
    EXPECT_EQ(tabs.InsertItem(0, L"Model"), 0);
    EXPECT_EQ(tabs.InsertItem(1, L"Layout"), 1);
    EXPECT_EQ(tabs.GetItemCount(), 2);
    EXPECT_EQ(tabs.SetCurSel(1), 0);
    EXPECT_EQ(tabs.GetCurSel(), 1);
    TCITEM item{};
    wchar_t text[20] = {};
    item.mask = TCIF_TEXT;
    item.pszText = text;
    item.cchTextMax = 20;
    EXPECT_TRUE(tabs.GetItem(1, &item));
    EXPECT_STREQ(text, L"Layout");
}

TEST_F(ControlsTest, ProgressHasAPosition) {
    CProgressCtrl progress;
    ASSERT_TRUE(progress.Create(0, rect, &frame, 1));
    progress.SetRange32(0, 100000);
    progress.SetPos(70000);
    EXPECT_EQ(progress.GetPos(), 70000);
}

TEST_F(ControlsTest, MenusAreLoadedReadAndDestroyed) {
    CMenu menu;
    ASSERT_TRUE(menu.LoadMenu(IDR_MENU));
    const HMENU handle = menu.m_hMenu;
    EXPECT_EQ(menu.GetMenuItemCount(), 1);
    CMenu* const popup = menu.GetSubMenu(0);
    ASSERT_TRUE(popup);
    CString text;
    EXPECT_EQ(popup->GetMenuString(0x8001, text, MF_BYCOMMAND), 11);
    EXPECT_EQ(text, L"&New\tCtrl+N");
    EXPECT_EQ(popup->GetMenuString(7, text, MF_BYPOSITION), 0);
    EXPECT_EQ(text, L"");
    EXPECT_EQ(popup->GetMenuItemID(2), 0x8002u);
    EXPECT_EQ(menu.GetSubMenu(1), nullptr);
    EXPECT_EQ(CMenu::FromHandlePermanent(handle), &menu);
    EXPECT_TRUE(frame.SetMenu(&menu));
    EXPECT_EQ(frame.GetMenu(), &menu);
    frame.SetMenu(nullptr);
    EXPECT_TRUE(menu.DestroyMenu());
    EXPECT_FALSE(::IsMenu(handle));
    EXPECT_FALSE(menu.DestroyMenu());
}

TEST_F(ControlsTest, AMenuIsDestroyedWithItsObjectUnlessDetached) {
    HMENU destroyed = nullptr;
    HMENU kept = nullptr;
    {
        CMenu one;
        CMenu two;
        ASSERT_TRUE(one.CreatePopupMenu() && two.CreatePopupMenu());
        destroyed = one.m_hMenu;
        kept = two.Detach();
    }
    EXPECT_FALSE(::IsMenu(destroyed));
    EXPECT_TRUE(::DestroyMenu(kept));
}

} // namespace
