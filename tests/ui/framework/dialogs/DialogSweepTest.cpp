// Dialogs, their lists and their buttons, replayed with each of their calls failing once.

#include "SweepFixture.h"

using testing::IsSupersetOf;

namespace {

DWORD numberAt(const std::wstring& path, const wchar_t* name) {
    DWORD value = 0;
    DWORD size = sizeof value;
    RegGetValueW(HKEY_CURRENT_USER, path.c_str(), name, RRF_RT_REG_DWORD, nullptr, &value, &size);
    return value;
}

/// A dialog that ends by Enter wherever its focus is.
class SweptDialog : public TestDialog {
  public:
    SweptDialog(UINT templateId, std::function<void(SweptDialog&)> fill) : TestDialog(templateId) {
        setUp = [this, fill = std::move(fill)] { fill(*this); };
        onCommand = [this](UINT id) {
            if (id == IDC_TEST_BUTTON)
                EndDialog(IDOK);
        };
    }
};

TEST_F(FrameworkSweep, ofADialogWithPlacementResizingTipsAndHelp) {
    wchar_t folder[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, folder);
    const std::wstring tips = std::wstring(folder) + L"framework-sweep-tips.xaml";
    std::FILE* const file = _wfopen(tips.c_str(), L"wb");
    std::fputs("<T><Dialog Name='FrameworkTests:Dialog' Prefix='LAST'><Tip Control='1'>x</Tip></Dialog></T>", file);
    std::fclose(file);
    scenario = [&tips] {
        unsigned long value = 7;
        bool stored = false;
        bool found = false;
        const auto dialog = made<SweptDialog>(IDD_RESIZABLE, [&](SweptDialog& self) {
            _dlgControlTag rows[] = {{IDC_TEST_STRETCH, kOrvUiResizeStretch, 100},
                                     {IDOK, kOrvUiResizeFollowCorner, 100}};
            self.SetControlProperty(rows, 2);
            self.SetContextHelpPrefix(L"LAST");
            self.SetContextHelpFileName(tips.c_str());
            self.SetUseTips(2);
            stored = self.SetDialogData(L"Expanded", 9);
            found = self.GetDialogData(L"Expanded", value);
            self.SetPersistency(1);
        });
        if (!dialog)
            return false;
        INT_PTR answer = 0;
        answered([&] { answer = dialog->DoModal(); });
        EXPECT_TRUE(answer == IDOK || answer == IDCANCEL) << answer;
        EXPECT_EQ(value, found ? 9u : 7u);
        EXPECT_GT(numberAt(kept(L"\\Placement"), L"Width"), 0u) << "a place that is none was kept";
        return answer == IDOK && stored && found;
    };
    EXPECT_THAT(sweep(kManyCalls), IsSupersetOf({kHostCall,
                                                 "_Znwy",
                                                 "RegOpenKeyExW",
                                                 "RegQueryValueExW",
                                                 "RegCreateKeyExW",
                                                 "RegSetValueExW",
                                                 "FindResourceW",
                                                 "LoadResource",
                                                 "LockResource",
                                                 "CreateDialogIndirectParamW",
                                                 "SetWindowsHookExW",
                                                 "SetWindowPos",
                                                 "GetWindowRect",
                                                 "GetModuleHandleExW",
                                                 "CreateFileW",
                                                 "GetFileSizeEx",
                                                 "ReadFile",
                                                 "GetProcAddress",
                                                 "CreateXmlReader",
                                                 "BeginDeferWindowPos",
                                                 "DeferWindowPos",
                                                 "EndDeferWindowPos",
                                                 "EnumDisplayMonitors",
                                                 "GetMonitorInfoW",
                                                 "CreateWindowExW"}));
    _wremove(tips.c_str());
}

TEST_F(FrameworkSweep, ofAListWithColumns) {
    scenario = [] {
        const auto owned = made<COrvUiListCtrl>();
        if (!owned)
            return false;
        COrvUiListCtrl& list = *owned;
        const auto dialog = made<SweptDialog>(IDD_FIXED, [&](SweptDialog& self) {
            if (!list.SubclassDlgItem(IDC_TEST_LIST, &self))
                return;
            for (int column = 0; column < 3; ++column)
                list.InsertColumn(column, L"A column", LVCFMT_LEFT, 50, column);
            list.InsertItem(0, L"Row");
            self.GetColumnSizes(&list);
            list.SetOrvUiParent(&self);
            self.SaveColumnSizes(&list);
        });
        if (!dialog)
            return false;
        INT_PTR answer = 0;
        answered([&] { answer = dialog->DoModal(); });
        EXPECT_TRUE(answer == IDOK || answer == IDCANCEL) << answer;
        return answer == IDOK;
    };
    EXPECT_THAT(sweep(kManyCalls), IsSupersetOf({"_Znwy", "RegOpenKeyExW", "RegQueryValueExW", "RegCreateKeyExW",
                                                 "RegSetValueExW", "FindResourceW", "LoadResource", "LockResource",
                                                 "CreateDialogIndirectParamW", "SetWindowsHookExW", "SetWindowPos",
                                                 "GetWindowRect", "RegDeleteValueW", "GetClientRect"}));
}

TEST_F(FrameworkSweep, ofABitmapButton) {
    scenario = [] {
        const auto owned = made<COrvUiBitmapButton>();
        if (!owned)
            return false;
        COrvUiBitmapButton& button = *owned;
        bool loaded = false;
        const auto dialog = made<SweptDialog>(IDD_FIXED, [&](SweptDialog& self) {
            button.SubclassDlgItem(IDC_TEST_WIDE_FACE, &self);
            loaded = button.GetSafeHwnd() && button.OnReload(L"RED_FACE") != 0;
            self.SetDlgItemText(IDC_TEST_WIDE_FACE, L"A text beside it");
            self.SetUseTips(2);
        });
        if (!dialog)
            return false;
        INT_PTR answer = 0;
        answered([&] { answer = dialog->DoModal(); });
        EXPECT_TRUE(answer == IDOK || answer == IDCANCEL) << answer;
        return answer == IDOK && loaded;
    };
    EXPECT_THAT(sweep(kFewCalls), IsSupersetOf({kHostCall, "_Znwy", "FindResourceW", "LoadResource", "LockResource",
                                                "CreateDialogIndirectParamW", "SetWindowsHookExW", "SetWindowPos",
                                                "GetWindowRect", "LoadImageW", "GetObjectW", "GetDC", "GetDIBits",
                                                "CreateCompatibleDC", "CreateDIBSection", "SelectObject",
                                                "GdiAlphaBlend", "OpenThemeData", "DrawThemeBackground"}));
}

/// Opens no window, so that no message loop of a dialog catches an exception that an operation lets out.
TEST_F(FrameworkSweep, ofOperationsThatAreCalledOutsideOfAnyLoop) {
    const std::wstring longText(200, L'x');
    scenario = [&longText] {
        const auto dialog = made<CKelUiDialog>(UINT{IDD_FIXED});
        const auto button = made<COrvUiBitmapButton>();
        if (!dialog || !button)
            return false;
        dialog->SetDialogName(longText.c_str());
        dialog->SetContextHelpPrefix(longText.c_str());
        dialog->SetContextHelpFileName(longText.c_str());
        dialog->SetUseTips(2);
        dialog->SetPersistency(1);
        const bool red = button->OnReload(L"RED_FACE");
        const bool blue = button->OnReload(L"BLUE_FACE");
        EXPECT_EQ(button->TipText(), CString());
        return red && blue;
    };
    EXPECT_THAT(sweep(kEveryCall),
                IsSupersetOf({kHostCall, "_Znwy", "LoadImageW", "GetObjectW", "GetDC", "GetDIBits"}));
}

} // namespace
