// What dialogs keep as numbers, and the order of their set-up.

#include "DialogFixture.h"

#include "instruments/HostCalls.h"
#include "persistence/DialogStore.h"

using testing::ElementsAre;

namespace {

class DialogData : public DialogFixture {
  protected:
    TestDialog dialog{IDD_FIXED};

    void nameIt() { dialog.SetDialogName(L"FrameworkTests:Dialog"); }
};

TEST_F(DialogData, aKeyThatWasNeverStoredLeavesTheDefaultAndAnswersZero) {
    nameIt();
    unsigned long value = 7;
    EXPECT_FALSE(dialog.GetDialogData(L"Expanded", value));
    EXPECT_EQ(value, 7u);
}

TEST_F(DialogData, aStoredNumberComesBackInTheNextDialogOfThatName) {
    nameIt();
    EXPECT_TRUE(dialog.SetDialogData(L"Expanded", 0xFFFFFFFF));
    TestDialog next{IDD_FIXED};
    next.SetDialogName(L"FrameworkTests:Dialog");
    unsigned long value = 7;
    EXPECT_TRUE(next.GetDialogData(L"Expanded", value));
    EXPECT_EQ(value, 0xFFFFFFFFu);
}

TEST_F(DialogData, aDialogOfAnotherNameDoesNotSeeIt) {
    nameIt();
    EXPECT_TRUE(dialog.SetDialogData(L"Expanded", 1));
    TestDialog other{IDD_FIXED};
    other.SetDialogName(L"FrameworkTests:Other");
    unsigned long value = 7;
    EXPECT_FALSE(other.GetDialogData(L"Expanded", value));
    EXPECT_EQ(value, 7u);
}

TEST_F(DialogData, aDialogWithoutANameKeepsNothing) {
    EXPECT_FALSE(dialog.SetDialogData(L"Expanded", 1));
    unsigned long value = 7;
    EXPECT_FALSE(dialog.GetDialogData(L"Expanded", value));
    EXPECT_EQ(value, 7u);
}

TEST_F(DialogData, aValueOfAnotherTypeCountsAsMissing) {
    nameIt();
    writeValue(kept(), L"Expanded", REG_SZ, L"1", 4);
    unsigned long value = 7;
    EXPECT_FALSE(dialog.GetDialogData(L"Expanded", value));
    EXPECT_EQ(value, 7u);
}

TEST_F(DialogData, aNumberOfAnotherSizeCountsAsMissing) {
    nameIt();
    const unsigned long long large = 1;
    writeValue(kept(), L"Large", REG_DWORD, &large, sizeof large);
    writeValue(kept(), L"Small", REG_DWORD, &large, 1);
    unsigned long value = 7;
    EXPECT_FALSE(dialog.GetDialogData(L"Large", value));
    EXPECT_FALSE(dialog.GetDialogData(L"Small", value));
    EXPECT_EQ(value, 7u);
}

TEST_F(DialogData, aPlannedFailureStoresNothing) {
    nameIt();
    instruments::failCall("SetDialogData", 1);
    EXPECT_FALSE(dialog.SetDialogData(L"Expanded", 1));
    unsigned long value = 7;
    EXPECT_FALSE(dialog.GetDialogData(L"Expanded", value));
}

TEST_F(DialogData, aBackslashInANameMakesNoKeyWithinAKey) {
    dialog.SetDialogName(L"FrameworkTests\\Dialog");
    EXPECT_TRUE(dialog.SetDialogData(L"Expanded", 1));
    DWORD value = 0;
    DWORD size = sizeof value;
    const std::wstring path = framework::DialogStore::root() + L"\\FrameworkTests/Dialog";
    EXPECT_EQ(RegGetValueW(HKEY_CURRENT_USER, path.c_str(), L"Expanded", RRF_RT_REG_DWORD, nullptr, &value, &size),
              ERROR_SUCCESS);
}

TEST_F(DialogData, aNameLongerThanAnyKeyKeepsNothing) {
    dialog.SetDialogName(std::wstring(10'000, L'x').c_str());
    EXPECT_FALSE(dialog.SetDialogData(L"Expanded", 1));
    unsigned long value = 7;
    EXPECT_FALSE(dialog.GetDialogData(L"Expanded", value));
    EXPECT_EQ(value, 7u);
    EXPECT_EQ(dialog.run(), IDOK);
}

TEST_F(DialogData, theWorkbenchKeepsItUnderItsOwnKey) {
    framework::DialogStore::setRoot({});
    EXPECT_EQ(framework::DialogStore::root(), L"Software\\KelWorkbench\\Dialogs");
}

TEST_F(DialogData, theSetUpStandsInTheTraceInItsOrder) {
    dialog.setUp = [this] {
        _dlgControlTag rows[] = {{IDOK, kOrvUiResizeFollowCorner, 100}};
        dialog.SetControlProperty(rows, 1);
        dialog.SetContextHelpPrefix(L"LAST");
        dialog.SetContextHelpFileName(L"/Tips;Component/Missing.xaml");
        dialog.SetUseTips(2);
        unsigned long value = 0;
        dialog.SetDialogData(L"Expanded", 1);
        dialog.GetDialogData(L"Expanded", value);
        dialog.GetDialogData(L"ShowXrefs", value);
        CListCtrl list;
        list.Attach(dialog.control(IDC_TEST_LIST));
        dialog.GetColumnSizes(&list);
        dialog.SetPersistency(1);
        dialog.SaveColumnSizes(&list);
        list.Detach();
    };
    EXPECT_EQ(dialog.run(), IDOK);
    EXPECT_THAT(instruments::trace(),
                ElementsAre("CKelUiDialog(300)", "SetDialogName(\"FrameworkTests:Dialog\")", "OnInitDialog()",
                            "SetControlProperty(1)", "SetContextHelpPrefix(\"LAST\")",
                            "SetContextHelpFileName(\"/Tips;Component/Missing.xaml\")", "SetUseTips(2)",
                            "SetDialogData(\"Expanded\", 1) = true", "GetDialogData(\"Expanded\") = true, value=1",
                            "GetDialogData(\"ShowXrefs\") = false", "GetColumnSizes(1104)", "SetPersistency(1)",
                            "SaveColumnSizes(1104)"));
}

TEST_F(DialogData, itsOkAndCancelAnswerOneAndTwo) {
    const auto answerTo = [this](WORD key) {
        INT_PTR answer = 0;
        ui::perform(ui::Script().waitForControl(IDOK).press(key), [&] { answer = dialog.DoModal(); });
        return answer;
    };
    EXPECT_EQ(answerTo(VK_RETURN), 1);
    EXPECT_EQ(answerTo(VK_ESCAPE), 2);
}

TEST_F(DialogData, theTemplateComesFromTheCurrentResourceModuleUnlessOneIsNamed) {
    const HINSTANCE own = AfxGetResourceHandle();
    CKelUiDialog named(IDD_FIXED, nullptr, own);
    CKelUiDialog current(IDD_FIXED);
    const auto titleOf = [](CDialog& shown) {
        std::wstring title;
        ui::Script script;
        script.ifStillOpen();
        script.look("its title", [&](const ui::View& view) { title = view.title(); }).press(VK_ESCAPE);
        ui::perform(script, [&] { shown.DoModal(); });
        return title;
    };
    EXPECT_EQ(titleOf(current), L"Fixed");
    AfxSetResourceHandle(GetModuleHandleW(L"kernel32.dll")); // a module that has no dialogs
    EXPECT_EQ(titleOf(current), L"");
    EXPECT_EQ(titleOf(named), L"Fixed");
    EXPECT_EQ(AfxGetResourceHandle(), GetModuleHandleW(L"kernel32.dll")) << "is current again afterwards";
    AfxSetResourceHandle(own);
}

TEST_F(DialogData, aTemplateThatIsMissingEndsTheDialogAsCancelled) {
    TestDialog missing{999};
    bool ran = false;
    missing.setUp = [&ran] { ran = true; };
    EXPECT_EQ(missing.DoModal(), IDCANCEL);
    EXPECT_FALSE(ran);
}

} // namespace
