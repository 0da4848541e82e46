// Texts from string resources, and formats that are texts from string resources.
#include "MfcTestIds.h"
#include "Program.h"

namespace {

TEST(StringResource, IsLoadedById) {
    CString text = L"before";
    EXPECT_TRUE(text.LoadString(IDS_PLAIN));
    EXPECT_EQ(text, L"A plain text.");
    EXPECT_EQ(CString(MAKEINTRESOURCE(IDS_PLAIN)), L"A plain text.");
}

TEST(StringResource, ThatIsMissingLeavesTheTextAsItWas) {
    CString text = L"before";
    EXPECT_FALSE(text.LoadString(IDS_NOWHERE));
    EXPECT_EQ(text, L"before");
    EXPECT_FALSE(text.LoadString(::GetModuleHandle(nullptr), IDS_NOWHERE));
    EXPECT_EQ(text, L"before");
    EXPECT_FALSE(text.LoadString(::GetModuleHandle(nullptr), IDS_NOWHERE, 0x0409));
    EXPECT_EQ(text, L"before");
}

TEST(StringResource, ThatIsLongIsWhole) {
    CString text;
    EXPECT_TRUE(text.LoadString(IDS_LONG));
    EXPECT_EQ(text.GetLength(), 280);
    EXPECT_EQ(text.Right(3), L"789");
    CString direct;
    EXPECT_TRUE(direct.LoadString(::GetModuleHandle(nullptr), IDS_LONG));
    EXPECT_EQ(direct, text);
}

TEST(StringResource, OfOneLanguageIsLoadedByIt) {
    const HINSTANCE program = ::GetModuleHandle(nullptr);
    CString text;
    EXPECT_TRUE(text.LoadString(program, IDS_GERMAN, MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN)));
    EXPECT_EQ(text, L"Ein Satz.");
    EXPECT_TRUE(text.LoadString(program, IDS_FORMAT, MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US)));
    EXPECT_EQ(text, L"%d layers in %s");
    EXPECT_FALSE(text.LoadString(program, IDS_FORMAT, MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN)));
}

TEST(StringResource, IntoABufferIsCutToIt) {
    wchar_t buffer[6] = L"xxxxx";
    EXPECT_EQ(AfxLoadString(IDS_PLAIN, buffer, 6), 5);
    EXPECT_STREQ(buffer, L"A pla");
    EXPECT_EQ(AfxLoadString(IDS_NOWHERE, buffer, 6), 0);
    EXPECT_STREQ(buffer, L"");
}

TEST(StringResource, IsAFormat) {
    CString text;
    text.Format(IDS_FORMAT, 12, L"house.zdr");
    EXPECT_EQ(text, L"12 layers in house.zdr");
    text.AppendFormat(IDS_FORMAT, 3, L"b");
    EXPECT_EQ(text, L"12 layers in house.zdr3 layers in b");
}

TEST(StringResource, IsAMessageWithNumberedPlaces) {
    CString text;
    text.FormatMessage(IDS_MESSAGE, 7, L"five");
    EXPECT_EQ(text, L"five before 7");
    text.FormatMessage(L"%1 and %2", L"a", L"b");
    EXPECT_EQ(text, L"a and b");
    text.FormatMessage(L"%1 twice", text.GetString());
    EXPECT_EQ(text, L"a and b twice");
}

TEST(StringResource, PlacesAreFilledByText) {
    CString text;
    AfxFormatString1(text, AFX_IDP_PARSE_STRING_SIZE, L"255");
    EXPECT_EQ(text, L"Please enter no more than 255 characters.");
    AfxFormatString2(text, AFX_IDP_PARSE_INT_RANGE, L"1", L"9");
    EXPECT_EQ(text, L"Please enter an integer between 1 and 9.");
    const LPCTSTR texts[] = {L"%2", L"b"};
    AfxFormatStrings(text, L"%1-%2-%3-100%", texts, 2);
    EXPECT_EQ(text, L"%2-b-%3-100%");
}

} // namespace
