// Each thing that the framework does, replayed with each of its host calls and each of its system calls failing once.
// Whatever fails: nothing crashes or hangs, no window is left and the owner can be used, nothing is kept open or lost
// from what was kept before, and the operation answers what it answers for a failure.

#include "SweepFixture.h"

#include "HandleCount.h"
#include "ImportFaults.h"
#include "OrvUiPickers.h"
#include "OrvUiServices.h"
#include "OrvUiUtilities.h"
#include "persistence/DialogStore.h"

#include <new>

namespace {

constexpr const wchar_t* kTaskFile = L"/KelTaskDialogs;component/TaskDialogs.xaml";
DWORD numberAt(const std::wstring& path, const wchar_t* name) {
    DWORD value = 0;
    DWORD size = sizeof value;
    RegGetValueW(HKEY_CURRENT_USER, path.c_str(), name, RRF_RT_REG_DWORD, nullptr, &value, &size);
    return value;
}

/// Something of the framework whose making may find no memory, which is an exception; null then.
template <class Made, class... Arguments> std::unique_ptr<Made> made(Arguments&&... arguments) {
    try {
        return std::make_unique<Made>(std::forward<Arguments>(arguments)...);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
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
    EXPECT_GT(sweep(kManyCalls), 50);
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
    EXPECT_GT(sweep(kManyCalls), 20);
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
    EXPECT_GT(sweep(kFewCalls), 20);
}

TEST_F(FrameworkSweep, ofATaskDialog) {
    scenario = [] {
        const auto dialog = made<COrvTaskDialog>();
        if (!dialog)
            return false;
        const TASKDIALOG_KEYVALUE pairs[] = {{L"FileName", L"C:\\plan.las"}};
        const bool loaded = dialog->LoadFromFile(kTaskFile, L"KelLayerApps.LayerStateSuccessfulImport", pairs, 1);
        int answer = -1;
        answered([&] { answer = dialog->ShowDialog(GetActiveWindow()); });
        EXPECT_TRUE(answer == 0 || (loaded && answer == kTaskDialogFirstCommand) || answer == IDCANCEL) << answer;
        return answer == kTaskDialogFirstCommand;
    };
    EXPECT_GT(sweep(kFewCalls), 10);
}

TEST_F(FrameworkSweep, ofThePromptsForNames) {
    using Prompt = unsigned int (*)(const wchar_t*, const wchar_t*, CWnd*);
    constexpr Prompt kPrompts[] = {&CKelStandardTaskDialog::ShowDuplicateNameReplaceCancelDialog,
                                   &CKelStandardTaskDialog::ShowInvalidNameEmptyNameDialog,
                                   &CKelStandardTaskDialog::ShowInvalidNameTooLongDialog,
                                   &CKelStandardTaskDialog::ShowInvalidNameUnsupportedCharacters};
    for (const Prompt prompt : kPrompts) {
        const unsigned int done = prompt == kPrompts[0] ? unsigned{kTaskDialogFirstCommand} : unsigned{IDCLOSE};
        scenario = [prompt, done] {
            unsigned int answer = 999;
            answered([&] { answer = prompt(L"Layer state", L"Plan", CWnd::GetActiveWindow()); });
            EXPECT_TRUE(answer == 0 || answer == done || answer == IDCANCEL) << answer;
            return answer == done;
        };
        EXPECT_GT(sweep(2), 10);
    }
}

TEST_F(FrameworkSweep, ofTheFileDialog) {
    wchar_t folder[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, folder);
    const std::wstring path = std::wstring(folder) + L"framework-sweep.las";
    systemKeepsHandles = true; // Wine's file dialog does
    for (const int flags : {0, 1}) {
        std::fclose(_wfopen(path.c_str(), L"wb"));
        ASSERT_TRUE(framework::DialogStore(L"FrameworkTestsSweep").setText(L"Folder", folder));
        scenario = [&path, flags] {
            if (flags == 1)
                _wremove(path.c_str());
            ResultBuffer* chain = nullptr;
            int answer = 0;
            answered([&] {
                answer = keledGetFileNavDialog(L"Pick", L"framework-sweep.las", L"las", L"FrameworkTestsSweep", flags,
                                               &chain);
            });
            EXPECT_EQ(answer == kResultNormal, chain != nullptr);
            EXPECT_TRUE(!chain || chain->value.string) << "a chain without its path";
            const bool done = chain && chain->value.string;
            kelutRelRb(chain);
            return done;
        };
        EXPECT_GT(sweep(1), 5);
    }
    _wremove(path.c_str());
}

TEST_F(FrameworkSweep, ofAnAddressTypedIntoTheFileDialog) {
    systemKeepsHandles = true; // Wine's file dialog does
    for (const std::wstring typed : {L"https://server.example/a.las", L"ftp://server.example/a.las"}) {
        const bool isTaken = typed.starts_with(L"https");
        scenario = [&typed, isTaken] {
            ui::Script script;
            script.ifStillOpen().type(typed).then(confirmOrLeave());
            ResultBuffer* chain = nullptr;
            int answer = 0;
            ui::perform(script, [&] {
                answer = keledGetFileNavDialog(L"Pick", nullptr, L"las", L"FrameworkTestsSweep", 0, &chain);
            });
            EXPECT_EQ(answer == kResultNormal, chain != nullptr);
            EXPECT_TRUE(!chain || chain->value.string == typed);
            const bool done = isTaken == (chain != nullptr);
            kelutRelRb(chain);
            return done;
        };
        EXPECT_GT(sweep(1), 5);
    }
}

TEST_F(FrameworkSweep, aFileDialogThatDoesNotOpenKeepsNoHandle) {
    const ImportFaults faults;
    const auto ask = [] {
        ResultBuffer* chain = nullptr;
        ImportFaults::begin("GetOpenFileNameW", 1);
        EXPECT_EQ(keledGetFileNavDialog(L"Pick", nullptr, L"las", L"FrameworkTestsSweep", 0, &chain), kResultCancel);
        EXPECT_TRUE(ImportFaults::struck());
        ImportFaults::end();
        EXPECT_EQ(chain, nullptr);
    };
    ask();
    const auto before = countHandles();
    ask();
    EXPECT_EQ(countHandles(), before);
}

TEST_F(FrameworkSweep, ofTheColorPicker) {
    KelCmColor five;
    five.setColorIndex(5);
    scenario = [five] {
        KelCmColor color;
        color.setRGB(9, 9, 9);
        const KelCmColor untouched = color;
        int answer = -1;
        answered([&] { answer = keledSetColorDialogTrueColor(color, false, five, 7); });
        EXPECT_EQ(color, answer == kColorChosen ? five : untouched);
        return answer == kColorChosen;
    };
    EXPECT_GT(sweep(kFewCalls), 30);
}

TEST_F(FrameworkSweep, ofTheLinetypePicker) {
    scenario = [this] {
        wchar_t* name = nullptr;
        KelDbObjectId chosen;
        bool answer = false;
        answered([&] { answer = keledLinetypeDialog(linetypeId(L"Dashed"), false, name, chosen); });
        EXPECT_EQ(answer, name != nullptr);
        EXPECT_EQ(chosen.isNull(), !answer);
        kelutDelBuffer(name);
        return answer;
    };
    EXPECT_GT(sweep(2), 30);
}

TEST_F(FrameworkSweep, ofTheLineweightPicker) {
    scenario = [] {
        int chosen = -3;
        bool answer = false;
        answered([&] { answer = keledLineWeightDialog(25, false, chosen); });
        EXPECT_EQ(chosen, answer ? 25 : -3);
        return answer;
    };
    EXPECT_GT(sweep(2), 30);
}

TEST_F(FrameworkSweep, ofThePlotStylePicker) {
    scenario = [] {
        wchar_t* chosen = nullptr;
        bool answer = false;
        answered([&] { answer = keledPlotstyleDialog(L"Normal", false, chosen); });
        EXPECT_EQ(answer, chosen != nullptr);
        kelutDelBuffer(chosen);
        return answer;
    };
    EXPECT_GT(sweep(2), 30);
}

TEST_F(FrameworkSweep, ofTheHelp) {
    for (const wchar_t* topic : {L"NEWLAYERSTATEDIALOG", L"NOSUCHTOPIC"}) {
        scenario = [topic] {
            answered([&] { keledHelp(nullptr, topic, 0); });
            return true;
        };
        EXPECT_GT(sweep(kEveryCall), 3);
    }
}

TEST_F(FrameworkSweep, ofTheRegistryAccess) {
    writeValue(kept(), L"Text", REG_SZ, L"a longer value", 30);
    writeNumber(kept(), L"Number", 42);
    // Outside, since they use memory too.
    const CString keyPath(kept().c_str());
    const CString textName(L"Text");
    const CString numberName(L"Number");
    scenario = [&] {
        const auto key = made<COrvUiRegistryAccess>(HKEY_CURRENT_USER, keyPath);
        if (!key)
            return false;
        const CString text = key->GetString(textName);
        const unsigned int number = key->GetDWord(numberName);
        const unsigned long type = key->ValueType(numberName, nullptr);
        wchar_t path[64] = L"untouched";
        const unsigned int length = GetProductRegistryRootKey(path, 64);
        EXPECT_TRUE(text.IsEmpty() || text == L"a longer value");
        EXPECT_TRUE(number == 0 || number == 42u);
        EXPECT_TRUE(type == 0 || type == REG_DWORD);
        EXPECT_EQ(wcslen(path), length == 0 ? wcslen(path) : length);
        return !text.IsEmpty() && number == 42u && type == REG_DWORD && length > 0;
    };
    EXPECT_GT(sweep(kEveryCall), 10);
}

TEST_F(FrameworkSweep, ofExpandedStringsAndPaths) {
    const OrvXREFString path(L"C:\\Plan.zdr");
    const OrvXREFString same(L"c:\\plan.ZDR");
    scenario = [&] {
        CKelUiStringExp text;
        const bool loaded = text.LoadString(IDS_TEST_PRODUCT);
        EXPECT_EQ(loaded, !text.GetString().IsEmpty());
        const int order = path.CollateNoCase(same);
        EXPECT_LE(order, 0) << "a failed comparison finds no equality that isn't there";
        return loaded && order == 0;
    };
    EXPECT_GT(sweep(kEveryCall), 3);
}

} // namespace
