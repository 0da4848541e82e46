// Registry access, expanded strings, paths, and the file dialog's types.

#include "DialogFixture.h"

#include "KelDbDatabase.h"
#include "OrvUiUtilities.h"
#include "instruments/HostCalls.h"
#include "pickers/FileFilter.h"

using framework::fileFilter;
using framework::splitExtensions;
using testing::ElementsAre;
using testing::IsEmpty;
using namespace std::string_literals;

namespace {

class RegistryAccess : public DialogFixture {
  protected:
    const std::wstring path = kept();

    RegistryAccess() {
        writeValue(path, L"Text", REG_SZ, L"value", 12);
        writeValue(path, nullptr, REG_SZ, L"default", 16);
        writeNumber(path, L"Number", 42);
    }
};

TEST_F(RegistryAccess, readsTextsNumbersAndTypes) {
    const COrvUiRegistryAccess key(HKEY_CURRENT_USER, path.c_str());
    ASSERT_TRUE(key.IsOpen());
    EXPECT_STREQ(key.GetString(L"Text"), L"value");
    EXPECT_STREQ(key.GetString(L""), L"default");
    EXPECT_EQ(key.GetDWord(L"Number"), 42u);
    EXPECT_EQ(key.ValueType(L"Text", nullptr), static_cast<unsigned long>(REG_SZ));
    unsigned long size = 0;
    EXPECT_EQ(key.ValueType(L"Number", &size), static_cast<unsigned long>(REG_DWORD));
    EXPECT_EQ(size, 4u);
}

TEST_F(RegistryAccess, aMissingValueIsEmptyZeroAndOfNoType) {
    const COrvUiRegistryAccess key(HKEY_CURRENT_USER, path.c_str());
    EXPECT_TRUE(key.GetString(L"Missing").IsEmpty());
    EXPECT_EQ(key.GetDWord(L"Missing"), 0u);
    EXPECT_EQ(key.ValueType(L"Missing", nullptr), 0u);
}

TEST_F(RegistryAccess, aValueOfTheOtherTypeIsEmptyOrZero) {
    const COrvUiRegistryAccess key(HKEY_CURRENT_USER, path.c_str());
    EXPECT_TRUE(key.GetString(L"Number").IsEmpty());
    EXPECT_EQ(key.GetDWord(L"Text"), 0u);
}

TEST_F(RegistryAccess, aNumberOfAnotherSizeIsNoneAndATextNeedsNoEnd) {
    writeValue(path, L"Short", REG_DWORD, L"a", 2);
    writeValue(path, L"Long", REG_DWORD, L"abcd", 8);
    writeValue(path, L"Endless", REG_SZ, L"text", 8);
    writeValue(path, L"Odd", REG_SZ, L"text", 5);
    writeValue(path, L"Nothing", REG_SZ, L"", 0);
    const COrvUiRegistryAccess key(HKEY_CURRENT_USER, path.c_str());
    EXPECT_EQ(key.GetDWord(L"Short"), 0u);
    EXPECT_EQ(key.GetDWord(L"Long"), 0u);
    EXPECT_STREQ(key.GetString(L"Endless"), L"text");
    EXPECT_EQ(key.GetString(L"Odd").Left(2), L"te");
    EXPECT_TRUE(key.GetString(L"Nothing").IsEmpty());
}

TEST_F(RegistryAccess, aMissingOrClosedKeyAnswersAsIfNothingWereThere) {
    const COrvUiRegistryAccess missing(HKEY_CURRENT_USER, L"Software\\KelWorkbenchTests\\NoSuchKey");
    EXPECT_FALSE(missing.IsOpen());
    EXPECT_TRUE(missing.GetString(L"Text").IsEmpty());
    COrvUiRegistryAccess closed(HKEY_CURRENT_USER, path.c_str());
    closed.Close();
    EXPECT_FALSE(closed.IsOpen());
    EXPECT_TRUE(closed.GetString(L"Text").IsEmpty());
    EXPECT_EQ(closed.GetDWord(L"Number"), 0u);
    EXPECT_EQ(closed.ValueType(L"Number", nullptr), 0u);
}

TEST_F(RegistryAccess, theProductsKeyIsCutToTheBuffer) {
    wchar_t buffer[512] = {};
    const unsigned int length = GetProductRegistryRootKey(buffer, 512);
    EXPECT_STREQ(buffer, L"Software\\KelWorkbench");
    EXPECT_EQ(wcslen(buffer), length);
    wchar_t small[4] = {L'x', L'x', L'x', L'x'};
    EXPECT_EQ(GetProductRegistryRootKey(small, 4), 3u);
    EXPECT_EQ(std::wstring(small), std::wstring(buffer).substr(0, 3));
}

TEST_F(RegistryAccess, theProductsKeyNeedsABuffer) {
    EXPECT_EQ(GetProductRegistryRootKey(nullptr, 512), 0u);
    wchar_t untouched = L'x';
    EXPECT_EQ(GetProductRegistryRootKey(&untouched, 0), 0u);
    EXPECT_EQ(untouched, L'x');
    EXPECT_EQ(GetProductRegistryRootKey(&untouched, 1), 0u);
    EXPECT_EQ(untouched, L'\0');
}

TEST_F(RegistryAccess, aTextMayBeOfAnyLength) {
    const std::wstring text(100'000, L'x');
    writeValue(path, L"Large", REG_SZ, text.c_str(), static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
    EXPECT_EQ(COrvUiRegistryAccess(HKEY_CURRENT_USER, path.c_str()).GetString(L"Large").GetString(), text);
}

TEST_F(RegistryAccess, valuesOfOtherTypesAreNeitherTextNorNumber) {
    for (const DWORD type : {REG_BINARY, REG_MULTI_SZ, REG_QWORD, REG_DWORD_BIG_ENDIAN}) {
        writeValue(path, L"Other", type, L"a\0b\0", 8);
        const COrvUiRegistryAccess key(HKEY_CURRENT_USER, path.c_str());
        EXPECT_TRUE(key.GetString(L"Other").IsEmpty()) << type;
        EXPECT_EQ(key.GetDWord(L"Other"), 0u) << type;
        EXPECT_EQ(key.ValueType(L"Other", nullptr), type);
    }
}

TEST_F(RegistryAccess, aTextWithVariablesIsATextAndReadAsItStands) {
    writeValue(path, L"Variables", REG_EXPAND_SZ, L"%OS%\\plan", 22);
    const COrvUiRegistryAccess key(HKEY_CURRENT_USER, path.c_str());
    EXPECT_STREQ(key.GetString(L"Variables"), L"%OS%\\plan");
    EXPECT_EQ(key.ValueType(L"Variables", nullptr), static_cast<unsigned long>(REG_EXPAND_SZ));
    EXPECT_EQ(key.GetDWord(L"Variables"), 0u);
}

TEST_F(RegistryAccess, aHiveThatIsNoneIsNotOpened) {
    EXPECT_FALSE(COrvUiRegistryAccess(nullptr, path.c_str()).IsOpen());
}

TEST_F(RegistryAccess, aPlannedFailureLeavesTheKeyClosed) {
    instruments::failCall("COrvUiRegistryAccess", 1);
    EXPECT_FALSE(COrvUiRegistryAccess(HKEY_CURRENT_USER, path.c_str()).IsOpen());
    EXPECT_TRUE(COrvUiRegistryAccess(HKEY_CURRENT_USER, path.c_str()).IsOpen());
}

TEST(StringExp, fillsInTheProductsName) {
    const std::wstring product = keldbHostApplicationServices()->productName();
    EXPECT_EQ(CKelUiStringExp(CString(L"{Product}: %d states")).GetString().GetString(), product + L": %d states");
}

TEST(StringExp, aLoadedStringIsExpandedToo) {
    CKelUiStringExp text;
    EXPECT_STREQ(text, L"");
    EXPECT_TRUE(text.LoadString(IDS_TEST_PRODUCT));
    EXPECT_EQ(std::wstring(text), std::wstring(keldbHostApplicationServices()->productName()) + L" of the tests");
}

TEST(StringExp, aStringThatIsMissingLeavesItEmpty) {
    CKelUiStringExp text(CString(L"before"));
    EXPECT_FALSE(text.LoadString(54321));
    EXPECT_STREQ(text, L"");
}

TEST(XrefString, comparesWithoutRegardToCase) {
    EXPECT_EQ(OrvXREFString(L"C:\\Plan.ZDR").CollateNoCase(OrvXREFString(L"c:\\plan.zdr")), 0);
    EXPECT_EQ(OrvXREFString(L"\u00c4.zdr").CollateNoCase(OrvXREFString(L"\u00e4.zdr")), 0);
    EXPECT_LT(OrvXREFString(L"a").CollateNoCase(OrvXREFString(L"B")), 0);
    EXPECT_GT(OrvXREFString(L"b").CollateNoCase(OrvXREFString(L"")), 0);
    EXPECT_EQ(OrvXREFString().CollateNoCase(OrvXREFString(L"")), 0);
}

TEST(XrefString, takesAndGivesWideStrings) {
    OrvXREFString path;
    EXPECT_STREQ(path, L"");
    path = L"C:\\a.zdr";
    EXPECT_STREQ(path, L"C:\\a.zdr");
}

TEST(FileFilter, aListIsSplitAtSemicolons) {
    EXPECT_THAT(splitExtensions(L"zdr;zds;zdt;las"), ElementsAre(L"zdr", L"zds", L"zdt", L"las"));
    EXPECT_THAT(splitExtensions(L";las;;las;"), ElementsAre(L"las"));
    EXPECT_THAT(splitExtensions(L""), IsEmpty());
}

TEST(FileFilter, severalTypesBeginWithAllOfThem) {
    EXPECT_EQ(fileFilter({L"zdr", L"las"}), L"All supported files\0*.zdr;*.las\0Drawing (*.zdr)\0*.zdr\0"
                                            L"Layer states (*.las)\0*.las\0"s);
}

TEST(FileFilter, oneTypeStandsAlone) {
    EXPECT_EQ(fileFilter({L"xyz"}), L"*.xyz\0*.xyz\0"s);
}

} // namespace
