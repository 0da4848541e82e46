// Dialog data exchange: each kind of control in both directions, what is refused, and what is heard meanwhile.
#include "MfcTestIds.h"
#include "Program.h"

#include <functional>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ExchangeDialog : public CDialog {
  public:
    std::function<void(CDataExchange*)> exchange = [](CDataExchange*) {};
    int changes = 0;
    CEdit control;

    void DoDataExchange(CDataExchange* dx) override { exchange(dx); }

  protected:
    void OnChange() { ++changes; }
    DECLARE_MESSAGE_MAP()
};

// clang-format off
BEGIN_MESSAGE_MAP(ExchangeDialog, CDialog)
    ON_EN_CHANGE(IDC_TEXT, &ExchangeDialog::OnChange)
END_MESSAGE_MAP()
// clang-format on

class DataExchangeTest : public MfcTest {
  protected:
    void SetUp() override {
        MfcTest::SetUp();
        ASSERT_TRUE(dialog.Create(IDD_FORM));
    }
    void TearDown() override {
        dialog.DestroyWindow();
        MfcTest::TearDown();
    }
    CString text(int id = IDC_TEXT) {
        CString shown;
        dialog.GetDlgItemText(id, shown);
        return shown;
    }
    template <class Value> void exchange(void (*how)(CDataExchange*, int, Value&), int id, Value& value) {
        dialog.exchange = [how, id, &value](CDataExchange* dx) { how(dx, id, value); };
    }
    bool reads(LPCTSTR typed) {
        dialog.SetDlgItemText(IDC_TEXT, typed);
        return dialog.UpdateData(TRUE);
    }

    ExchangeDialog dialog;
};

TEST_F(DataExchangeTest, TextGoesBothWays) {
    CString value = L"shown";
    exchange<CString>(DDX_Text, IDC_TEXT, value);
    EXPECT_TRUE(dialog.UpdateData(FALSE));
    EXPECT_EQ(text(), L"shown");
    EXPECT_TRUE(reads(L"typed"));
    EXPECT_EQ(value, L"typed");
    EXPECT_TRUE(reads(L""));
    EXPECT_TRUE(value.IsEmpty());
}

TEST_F(DataExchangeTest, IntegersGoBothWays) {
    int value = -42;
    exchange<int>(DDX_Text, IDC_TEXT, value);
    EXPECT_TRUE(dialog.UpdateData(FALSE));
    EXPECT_EQ(text(), L"-42");
    EXPECT_TRUE(reads(L"  17 "));
    EXPECT_EQ(value, 17);
    EXPECT_TRUE(reads(L"2147483647"));
    EXPECT_EQ(value, 2147483647);
}

TEST_F(DataExchangeTest, WhatIsNoIntegerIsRefusedWithAWordAndTheTextSelected) {
    int value = 5;
    exchange<int>(DDX_Text, IDC_TEXT, value);
    dialog.ShowWindow(SW_SHOW);
    dialog.GetDlgItem(IDOK)->SetFocus();
    for (const LPCTSTR typed : {L"", L"x", L"1x", L"1.5", L"2147483648", L"99999999999999999999"}) {
        theProgram().prompts.clear();
        EXPECT_FALSE(reads(typed));
        EXPECT_THAT(theProgram().prompts, ElementsAre(CString(L"Please enter an integer.")));
        EXPECT_EQ(value, 5);
    }
    EXPECT_EQ(::GetFocus(), ::GetDlgItem(dialog.m_hWnd, IDC_TEXT));
    const DWORD selection = static_cast<DWORD>(dialog.SendDlgItemMessage(IDC_TEXT, EM_GETSEL));
    EXPECT_EQ(LOWORD(selection), 0);
    EXPECT_EQ(HIWORD(selection), 20);
}

TEST_F(DataExchangeTest, UnsignedIntegersRefuseASign) {
    UINT value = 4000000000u;
    exchange<UINT>(DDX_Text, IDC_TEXT, value);
    EXPECT_TRUE(dialog.UpdateData(FALSE));
    EXPECT_EQ(text(), L"4000000000");
    EXPECT_TRUE(reads(L"4294967295"));
    EXPECT_EQ(value, 4294967295u);
    EXPECT_FALSE(reads(L"-1"));
    EXPECT_FALSE(reads(L"4294967296"));
    EXPECT_EQ(theProgram().prompts.back(), L"Please enter a positive integer.");
}

TEST_F(DataExchangeTest, LongAndDoubleWordGoBothWays) {
    long number = -7;
    exchange<long>(DDX_Text, IDC_TEXT, number);
    EXPECT_TRUE(dialog.UpdateData(FALSE));
    EXPECT_EQ(text(), L"-7");
    DWORD word = 0xFFFFFFFF;
    exchange<DWORD>(DDX_Text, IDC_TEXT, word);
    EXPECT_TRUE(dialog.UpdateData(FALSE));
    EXPECT_EQ(text(), L"4294967295");
    EXPECT_TRUE(reads(L"12"));
    EXPECT_EQ(word, 12u);
}

TEST_F(DataExchangeTest, NumbersWithAFractionGoBothWays) {
    double value = 0.1;
    exchange<double>(DDX_Text, IDC_TEXT, value);
    EXPECT_TRUE(dialog.UpdateData(FALSE));
    EXPECT_EQ(text(), L"0.1");
    EXPECT_TRUE(reads(L" -2.5e3 "));
    EXPECT_EQ(value, -2500.0);
    EXPECT_FALSE(reads(L"two"));
    EXPECT_FALSE(reads(L"1,5"));
    EXPECT_EQ(theProgram().prompts.back(), L"Please enter a number.");
    EXPECT_EQ(value, -2500.0);
}

TEST_F(DataExchangeTest, TextsLongerThanAllowedAreRefused) {
    CString value = L"abc";
    dialog.exchange = [&](CDataExchange* dx) {
        DDX_Text(dx, IDC_TEXT, value);
        DDV_MaxChars(dx, value, 3);
    };
    EXPECT_TRUE(dialog.UpdateData(FALSE));
    EXPECT_EQ(dialog.SendDlgItemMessage(IDC_TEXT, EM_GETLIMITTEXT), 3);
    EXPECT_TRUE(reads(L"xyz"));
    EXPECT_FALSE(reads(L"wxyz"));
    EXPECT_EQ(theProgram().prompts.back(), L"Please enter no more than 3 characters.");
}

TEST_F(DataExchangeTest, NumbersOutsideTheirRangeAreRefusedWhenReadOnly) {
    int value = 99;
    dialog.exchange = [&](CDataExchange* dx) {
        DDX_Text(dx, IDC_TEXT, value);
        DDV_MinMaxInt(dx, value, 1, 10);
    };
    EXPECT_TRUE(dialog.UpdateData(FALSE));
    EXPECT_TRUE(reads(L"1"));
    EXPECT_TRUE(reads(L"10"));
    EXPECT_THAT(theProgram().prompts, IsEmpty());
    EXPECT_FALSE(reads(L"0"));
    EXPECT_FALSE(reads(L"11"));
    EXPECT_EQ(theProgram().prompts.back(), L"Please enter an integer between 1 and 10.");
}

TEST_F(DataExchangeTest, CheckBoxesHaveThreeStates) {
    int value = BST_INDETERMINATE;
    exchange<int>(DDX_Check, IDC_CHECK, value);
    dialog.UpdateData(FALSE);
    EXPECT_EQ(dialog.IsDlgButtonChecked(IDC_CHECK), static_cast<UINT>(BST_INDETERMINATE));
    value = 77;
    dialog.UpdateData(FALSE);
    EXPECT_EQ(dialog.IsDlgButtonChecked(IDC_CHECK), static_cast<UINT>(BST_UNCHECKED));
    dialog.CheckDlgButton(IDC_CHECK, BST_CHECKED);
    dialog.UpdateData(TRUE);
    EXPECT_EQ(value, BST_CHECKED);
}

TEST_F(DataExchangeTest, RadioButtonsOfAGroupAreCountedFromZero) {
    int value = 1;
    exchange<int>(DDX_Radio, IDC_RADIO_FIRST, value);
    dialog.UpdateData(FALSE);
    EXPECT_EQ(dialog.GetCheckedRadioButton(IDC_RADIO_FIRST, IDC_RADIO_THIRD), IDC_RADIO_SECOND);
    dialog.CheckRadioButton(IDC_RADIO_FIRST, IDC_RADIO_THIRD, IDC_RADIO_THIRD);
    dialog.UpdateData(TRUE);
    EXPECT_EQ(value, 2);
    value = -1;
    dialog.UpdateData(FALSE);
    EXPECT_EQ(dialog.GetCheckedRadioButton(IDC_RADIO_FIRST, IDC_RADIO_THIRD), 0);
    value = 5;
    dialog.UpdateData(TRUE);
    EXPECT_EQ(value, -1);
}

TEST_F(DataExchangeTest, ListBoxesGoByIndexAndByText) {
    auto* const list = static_cast<CListBox*>(dialog.GetDlgItem(IDC_LIST));
    for (const LPCTSTR item : {L"red", L"green", L"blue"})
        list->AddString(item);
    int index = 1;
    exchange<int>(DDX_LBIndex, IDC_LIST, index);
    dialog.UpdateData(FALSE);
    CString value;
    exchange<CString>(DDX_LBString, IDC_LIST, value);
    dialog.UpdateData(TRUE);
    CString second;
    list->GetText(1, second);
    EXPECT_EQ(value, second);
    value = L"red";
    dialog.UpdateData(FALSE);
    exchange<int>(DDX_LBIndex, IDC_LIST, index);
    dialog.UpdateData(TRUE);
    EXPECT_EQ(index, list->FindStringExact(-1, L"red"));
    list->SetCurSel(-1);
    dialog.UpdateData(TRUE);
    EXPECT_EQ(index, -1);
    exchange<CString>(DDX_LBString, IDC_LIST, value);
    dialog.UpdateData(TRUE);
    EXPECT_TRUE(value.IsEmpty());
}

TEST_F(DataExchangeTest, ComboBoxesGoByIndexAndByText) {
    auto* const combo = static_cast<CComboBox*>(dialog.GetDlgItem(IDC_COMBO));
    for (const LPCTSTR item : {L"Continuous", L"Dashed"})
        combo->AddString(item);
    CString value = L"Dashed";
    exchange<CString>(DDX_CBString, IDC_COMBO, value);
    dialog.UpdateData(FALSE);
    EXPECT_EQ(combo->GetCurSel(), 1);
    value = L"Own";
    dialog.UpdateData(FALSE);
    EXPECT_EQ(text(IDC_COMBO), L"Own");
    combo->SetWindowText(L"Other");
    dialog.UpdateData(TRUE);
    EXPECT_EQ(value, L"Other");
    int index = 0;
    exchange<int>(DDX_CBIndex, IDC_COMBO, index);
    dialog.UpdateData(FALSE);
    EXPECT_EQ(text(IDC_COMBO), L"Continuous");
    combo->SetCurSel(1);
    dialog.UpdateData(TRUE);
    EXPECT_EQ(index, 1);
}

TEST_F(DataExchangeTest, ControlObjectsAreAttachedTheFirstTimeOnly) {
    dialog.exchange = [&](CDataExchange* dx) { DDX_Control(dx, IDC_TEXT, dialog.control); };
    EXPECT_TRUE(dialog.UpdateData(FALSE));
    EXPECT_EQ(dialog.control.m_hWnd, ::GetDlgItem(dialog.m_hWnd, IDC_TEXT));
    EXPECT_TRUE(dialog.UpdateData(TRUE));
    EXPECT_TRUE(dialog.UpdateData(FALSE));
    EXPECT_EQ(CWnd::FromHandlePermanent(dialog.control.m_hWnd), &dialog.control);
}

TEST_F(DataExchangeTest, ControlsAreNotHeardMeanwhileButAreAfterwards) {
    CString value = L"new";
    exchange<CString>(DDX_Text, IDC_TEXT, value);
    dialog.UpdateData(FALSE);
    EXPECT_EQ(dialog.changes, 0);
    dialog.SetDlgItemText(IDC_TEXT, L"newer");
    EXPECT_EQ(dialog.changes, 1);
}

TEST_F(DataExchangeTest, OfAMissingControlFailsWithAWord) {
    CString value;
    exchange<CString>(DDX_Text, 9999, value);
    EXPECT_FALSE(dialog.UpdateData(TRUE));
    EXPECT_THAT(theProgram().prompts, ElementsAre(CString(L"An unsupported operation was attempted.")));
    dialog.SetDlgItemText(IDC_TEXT, L"heard again");
    EXPECT_EQ(dialog.changes, 1);
}

TEST_F(DataExchangeTest, ThatFailsKeepsTheDialogOpen) {
    int value = 0;
    exchange<int>(DDX_Text, IDC_TEXT, value);
    dialog.ShowWindow(SW_SHOW);
    dialog.SetDlgItemText(IDC_TEXT, L"x");
    dialog.SendMessage(WM_COMMAND, IDOK);
    EXPECT_TRUE(dialog.IsWindowVisible());
    EXPECT_EQ(theProgram().prompts.size(), 1u);
    dialog.SetDlgItemText(IDC_TEXT, L"1");
    dialog.SendMessage(WM_COMMAND, IDOK);
    EXPECT_FALSE(dialog.IsWindowVisible());
    EXPECT_EQ(value, 1);
}

TEST_F(DataExchangeTest, ThatFailsAtTheStartEndsAModalDialog) {
    struct Modal : CDialog {
        Modal() : CDialog(IDD_FORM) {}
        void DoDataExchange(CDataExchange* dx) override {
            CString nothing;
            DDX_Text(dx, 9999, nothing);
        }
    } failing;
    EXPECT_EQ(failing.DoModal(), -1);
}

} // namespace
