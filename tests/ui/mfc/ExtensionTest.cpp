// Extension DLLs: while they are loaded their resources are searched, after those of the current resource handle.
#include "MfcTestIds.h"
#include "Program.h"

namespace {

CString loaded(UINT id) {
    CString text;
    text.LoadString(id);
    return text;
}

class ExtensionTest : public MfcTest {
  protected:
    void SetUp() override {
        MfcTest::SetUp();
        extension = ::LoadLibrary(L"mfc_test_extension.dll");
        ASSERT_TRUE(extension);
    }
    void TearDown() override {
        MfcTest::TearDown();
        if (extension)
            ::FreeLibrary(extension);
    }
    void unload() {
        ::FreeLibrary(extension);
        extension = nullptr;
    }
    HMODULE extension = nullptr;
};

TEST_F(ExtensionTest, ItsTemplatesAreFoundWhileItIsLoaded) {
    EXPECT_EQ(AfxFindResourceHandle(MAKEINTRESOURCE(IDD_ONLY_EXTENSION), RT_DIALOG), extension);
    {
        CDialog dialog;
        EXPECT_TRUE(dialog.Create(IDD_ONLY_EXTENSION));
    }
    unload();
    EXPECT_EQ(AfxFindResourceHandle(MAKEINTRESOURCE(IDD_ONLY_EXTENSION), RT_DIALOG), AfxGetResourceHandle());
    CDialog dialog;
    EXPECT_FALSE(dialog.Create(IDD_ONLY_EXTENSION));
}

TEST_F(ExtensionTest, TheCurrentResourceModuleComesFirst) {
    EXPECT_EQ(AfxFindResourceHandle(MAKEINTRESOURCE(IDD_FORM), RT_DIALOG), ::GetModuleHandle(nullptr));
    EXPECT_EQ(loaded(IDS_SHARED), L"The program's text.");
    AfxSetResourceHandle(extension);
    EXPECT_EQ(AfxFindResourceHandle(MAKEINTRESOURCE(IDD_FORM), RT_DIALOG), extension);
    EXPECT_EQ(loaded(IDS_SHARED), L"The extension's text.");
}

TEST_F(ExtensionTest, AStringIsFoundInAnotherModuleThanTheRestOfItsBlock) {
    EXPECT_EQ(loaded(IDS_BLOCK_MATE), L"Only in the extension.");
}

TEST_F(ExtensionTest, TheLibraryItselfComesLast) {
    EXPECT_EQ(loaded(AFX_IDP_PARSE_INT), L"Please enter an integer.");
    EXPECT_EQ(AfxFindResourceHandle(MAKEINTRESOURCE(AFX_IDP_PARSE_INT / 16 + 1), RT_STRING),
              ::GetModuleHandle(L"kelmfc.dll"));
}

TEST_F(ExtensionTest, TheNewestIsAskedFirstAndSystemOnesAfterTheOthers) {
    // Any module may be put in the search, so the program stands in for a second extension here.
    unload();
    AfxSetResourceHandle(::GetModuleHandle(L"kelmfc.dll"));
    const HMODULE program = ::GetModuleHandle(nullptr);
    const HMODULE data = ::LoadLibraryEx(L"mfc_test_extension.dll", nullptr, LOAD_LIBRARY_AS_DATAFILE);
    ASSERT_TRUE(data);
    CDynLinkLibrary older(program, program);
    {
        CDynLinkLibrary newer(data, data);
        EXPECT_EQ(loaded(IDS_SHARED), L"The extension's text.");
        newer.m_bSystem = TRUE;
        EXPECT_EQ(loaded(IDS_SHARED), L"The program's text.");
        EXPECT_EQ(loaded(IDS_BLOCK_MATE), L"Only in the extension.");
    }
    EXPECT_EQ(loaded(IDS_BLOCK_MATE), L"");
    ::FreeLibrary(data);
}

TEST_F(ExtensionTest, ARecordIsFilledOnceAndEmptiedAtTheEnd) {
    AFX_EXTENSION_MODULE record{};
    EXPECT_FALSE(AfxInitExtensionModule(record, nullptr));
    EXPECT_TRUE(AfxInitExtensionModule(record, extension));
    EXPECT_EQ(record.hModule, extension);
    EXPECT_EQ(record.hResource, extension);
    record.hResource = nullptr;
    EXPECT_TRUE(AfxInitExtensionModule(record, extension));
    EXPECT_EQ(record.hResource, nullptr);
}

} // namespace
