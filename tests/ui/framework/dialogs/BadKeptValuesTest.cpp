// Kept values that this program can't have written: of the wrong type or size, or numbers beyond reason. Each counts as
// missing, and the next good value takes its place.

#include "DialogFixture.h"

#include "OrvUiPickers.h"
#include "persistence/DialogStore.h"

#include <climits>

using testing::ElementsAre;

namespace {

struct BadValue {
    const char* what;
    DWORD type;
    std::string bytes;
};
void PrintTo(const BadValue& value, std::ostream* out) {
    *out << value.what;
}

std::string bytesOf(std::wstring_view text) {
    return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t)};
}

/// What the registry may hold in the place of a 32-bit number.
const BadValue kNoNumbers[] = {
    {"a text", REG_SZ, bytesOf(L"222")},
    {"an empty text", REG_SZ, {}},
    {"a text of one byte", REG_SZ, "2"},
    {"texts", REG_MULTI_SZ, bytesOf(std::wstring_view(L"2\0002\0\0", 5))},
    {"binary data of a number's size", REG_BINARY, std::string("\336\0\0\0", 4)},
    {"no binary data", REG_BINARY, {}},
    {"much binary data", REG_BINARY, std::string(100'000, 'x')},
    {"a number of no bytes", REG_DWORD, {}},
    {"a number of two bytes", REG_DWORD, std::string("\336\0", 2)},
    {"a number of eight bytes", REG_DWORD, std::string("\336\0\0\0\0\0\0\0", 8)},
    {"a 64-bit number", REG_QWORD, std::string("\336\0\0\0\0\0\0\0", 8)},
    {"a number written backwards", REG_DWORD_BIG_ENDIAN, std::string("\0\0\0\336", 4)},
    {"no type", REG_NONE, std::string("\336\0\0\0", 4)},
};

void put(const std::wstring& path, const std::wstring& name, const BadValue& value) {
    ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, path.c_str(), name.c_str(), value.type, value.bytes.data(),
                              static_cast<DWORD>(value.bytes.size())),
              ERROR_SUCCESS);
}

class InThePlaceOfANumber : public DialogFixture, public testing::WithParamInterface<BadValue> {
  protected:
    TestDialog dialog{IDD_RESIZABLE};

    /// Opens the dialog and answers where it stood.
    RECT open() {
        RECT stood = {};
        dialog.setUp = [this] { dialog.SetPersistency(1); };
        dialog.run(look("where it stands", [&] { stood = screenRect(dialog.GetSafeHwnd()); }));
        return stood;
    }
    /// Where the dialog stands after keepAll() if only the position is of use.
    RECT keptPlaceOfTheTemplatesSize() {
        RECT place = open();
        OffsetRect(&place, 77 - place.left, 77 - place.top);
        return place;
    }
    void keepAll() {
        for (const wchar_t* name : {L"Left", L"Top"})
            writeNumber(kept(L"\\Placement"), name, 77);
        for (const wchar_t* name : {L"Width", L"Height"})
            writeNumber(kept(L"\\Placement"), name, 500);
    }
    static std::vector<int> widths(CListCtrl& list) {
        return {list.GetColumnWidth(0), list.GetColumnWidth(1), list.GetColumnWidth(2)};
    }
};

TEST_P(InThePlaceOfANumber, leavesTheDefaultOfDialogDataUntilTheNextIsStored) {
    put(kept(), L"Expanded", GetParam());
    dialog.SetDialogName(L"FrameworkTests:Dialog");
    unsigned long value = 7;
    EXPECT_FALSE(dialog.GetDialogData(L"Expanded", value));
    EXPECT_EQ(value, 7u);
    EXPECT_TRUE(dialog.SetDialogData(L"Expanded", 1));
    EXPECT_TRUE(dialog.GetDialogData(L"Expanded", value));
    EXPECT_EQ(value, 1u);
}

TEST_P(InThePlaceOfANumber, leavesThePlaceOfTheTemplateUntilTheNextIsKept) {
    const RECT plain = open();
    for (const wchar_t* name : {L"Left", L"Top"}) {
        keepAll();
        put(kept(L"\\Placement"), name, GetParam());
        const RECT stood = open();
        EXPECT_TRUE(EqualRect(&stood, &plain)) << ui::narrow(name);
        EXPECT_EQ(framework::DialogStore(L"FrameworkTests:Dialog", L"Placement").number(L"Left"),
                  static_cast<unsigned long>(plain.left));
    }
}

TEST_P(InThePlaceOfANumber, leavesTheSizeOfTheTemplateUntilTheNextIsKept) {
    const RECT expected = keptPlaceOfTheTemplatesSize();
    for (const wchar_t* name : {L"Width", L"Height"}) {
        keepAll();
        put(kept(L"\\Placement"), name, GetParam());
        const RECT stood = open();
        EXPECT_TRUE(EqualRect(&stood, &expected)) << ui::narrow(name);
        EXPECT_EQ(framework::DialogStore(L"FrameworkTests:Dialog", L"Placement").number(L"Width"),
                  static_cast<unsigned long>(expected.right - expected.left));
    }
}

TEST_P(InThePlaceOfANumber, standsForTheScalingThatIs) {
    keepAll();
    put(kept(L"\\Placement"), L"Dpi", GetParam());
    const RECT stood = open();
    EXPECT_EQ(stood.left, 77);
    EXPECT_EQ(stood.right, 577);
}

TEST_P(InThePlaceOfANumber, leavesTheWidthsOfTheColumns) {
    TestDialog withList{IDD_FIXED};
    CListCtrl list;
    withList.setUp = [&] {
        list.Attach(withList.control(IDC_TEST_LIST));
        for (int column = 0; column < 3; ++column)
            list.InsertColumn(column, L"Column", LVCFMT_LEFT, 50, column);
        for (const wchar_t* column : {L"0", L"1", L"2"}) {
            for (const wchar_t* each : {L"0", L"1", L"2"})
                writeNumber(kept(L"\\Columns 1104"), each, 99);
            put(kept(L"\\Columns 1104"), column, GetParam());
            withList.GetColumnSizes(&list);
            EXPECT_THAT(widths(list), ElementsAre(50, 50, 50)) << ui::narrow(column);
        }
        withList.SaveColumnSizes(&list);
        list.SetColumnWidth(1, 20);
        withList.GetColumnSizes(&list);
        EXPECT_THAT(widths(list), ElementsAre(50, 50, 50)) << "what was saved last";
        list.Detach();
    };
    withList.run();
}

INSTANTIATE_TEST_SUITE_P(Each, InThePlaceOfANumber, testing::ValuesIn(kNoNumbers),
                         [](const auto& test) { return std::to_string(test.index); });

class AbsurdNumbers : public InThePlaceOfANumber {};

TEST_F(AbsurdNumbers, areNoPlace) {
    const RECT plain = open();
    for (const wchar_t* name : {L"Left", L"Top"})
        for (const DWORD number : {static_cast<DWORD>(INT_MIN), static_cast<DWORD>(INT_MAX), 0x00100000ul}) {
            keepAll();
            writeNumber(kept(L"\\Placement"), name, number);
            const RECT stood = open();
            EXPECT_TRUE(EqualRect(&stood, &plain)) << ui::narrow(name) << ' ' << number;
        }
}

TEST_F(AbsurdNumbers, areNoSize) {
    const RECT expected = keptPlaceOfTheTemplatesSize();
    for (const wchar_t* name : {L"Width", L"Height"})
        for (const DWORD number : {static_cast<DWORD>(INT_MIN), static_cast<DWORD>(INT_MAX), 0x00100000ul, 0ul}) {
            keepAll();
            writeNumber(kept(L"\\Placement"), name, number);
            const RECT stood = open();
            EXPECT_TRUE(EqualRect(&stood, &expected)) << ui::narrow(name) << ' ' << number;
        }
}

TEST_F(AbsurdNumbers, areNoScaling) {
    for (const DWORD number : {0ul, 1ul, static_cast<DWORD>(INT_MIN), static_cast<DWORD>(INT_MAX), ULONG_MAX}) {
        keepAll();
        writeNumber(kept(L"\\Placement"), L"Dpi", number);
        EXPECT_EQ(open().right, 577) << number;
    }
}

TEST_F(AbsurdNumbers, areNoWidths) {
    TestDialog withList{IDD_FIXED};
    CListCtrl list;
    withList.setUp = [&] {
        list.Attach(withList.control(IDC_TEST_LIST));
        list.InsertColumn(0, L"Column", LVCFMT_LEFT, 50, 0);
        for (const DWORD number : {static_cast<DWORD>(INT_MIN), static_cast<DWORD>(INT_MAX), 0x8000ul, ULONG_MAX}) {
            writeNumber(kept(L"\\Columns 1104"), L"0", number);
            withList.GetColumnSizes(&list);
            EXPECT_EQ(list.GetColumnWidth(0), 50) << number;
        }
        list.Detach();
    };
    withList.run();
}

class InThePlaceOfAFolder : public DialogFixture, public testing::WithParamInterface<BadValue> {
  protected:
    std::wstring folder;

    InThePlaceOfAFolder() {
        wchar_t path[MAX_PATH] = {};
        GetTempPathW(MAX_PATH, path);
        folder = std::wstring(path) + L"framework-tests";
        CreateDirectoryW(folder.c_str(), nullptr);
    }
    ~InThePlaceOfAFolder() override { RemoveDirectoryW(folder.c_str()); }
};

const BadValue kNoFolders[] = {
    {"a number", REG_DWORD, std::string("\1\0\0\0", 4)},
    {"binary data", REG_BINARY, bytesOf(L"C:\\windows")},
    {"an empty text", REG_SZ, {}},
    {"half a character", REG_SZ, "C"},
    {"a text without an end", REG_SZ, bytesOf(L"C:\\windows")},
    {"a text longer than any path", REG_SZ, bytesOf(L"C:\\" + std::wstring(0x9000, L'x'))},
    {"a long text that could be a path", REG_SZ, bytesOf(L"C:\\" + std::wstring(0x7000, L'x') + L'\0')},
    {"a folder that is gone", REG_SZ, bytesOf(std::wstring_view(L"C:\\no such folder\\at all", 25))},
    {"what is no path", REG_SZ, bytesOf(std::wstring_view(L"<>|\"*?\r\n", 9))},
    {"a drive that is gone", REG_SZ, bytesOf(std::wstring_view(L"Q:\\", 4))},
};

TEST_P(InThePlaceOfAFolder, theFileDialogBeginsElsewhereAndKeepsTheNextFolder) {
    put(framework::DialogStore::root() + L"\\FrameworkTestsFileDialog", L"Folder", GetParam());
    ResultBuffer* chain = nullptr;
    ui::Script script;
    script.waitUntil("the dialog", [](const ui::View& view) { return view.title() == L"Pick"; })
        .type(folder + L"\\new.las")
        .press(VK_RETURN);
    int answer = 0;
    ui::perform(script, [&] {
        answer = keledGetFileNavDialog(L"Pick", nullptr, L"las", L"FrameworkTestsFileDialog", 1, &chain);
    });
    EXPECT_EQ(answer, kResultNormal);
    EXPECT_EQ(framework::DialogStore(L"FrameworkTestsFileDialog").text(L"Folder"), folder);
    kelutRelRb(chain);
}

INSTANTIATE_TEST_SUITE_P(Each, InThePlaceOfAFolder, testing::ValuesIn(kNoFolders),
                         [](const auto& test) { return std::to_string(test.index); });

} // namespace
