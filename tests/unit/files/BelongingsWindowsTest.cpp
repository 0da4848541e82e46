// Saving on Windows follows links, keeps the owner and the rights of a file, and refuses what it may not replace.
#include "ReplacementTest.h"

#include <gmock/gmock.h>

#include <aclapi.h>
#include <sddl.h>

using namespace zdr;
using testing::HasSubstr;

namespace {

class SavingKeepsOnWindows : public ReplacementTest {
  protected:
    /// The owner and the access list of the file, in the text form of the system.
    std::wstring rights() const {
        PSECURITY_DESCRIPTOR descriptor = nullptr;
        constexpr SECURITY_INFORMATION kParts = OWNER_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION;
        wchar_t* text = nullptr;
        EXPECT_EQ(GetNamedSecurityInfoW(m_path.c_str(), SE_FILE_OBJECT, kParts, nullptr, nullptr, nullptr, nullptr,
                                        &descriptor),
                  DWORD{ERROR_SUCCESS});
        EXPECT_TRUE(
            ConvertSecurityDescriptorToStringSecurityDescriptorW(descriptor, SDDL_REVISION_1, kParts, &text, nullptr));
        const std::wstring result = text ? text : L"";
        LocalFree(text);
        LocalFree(descriptor);
        return result;
    }
};

} // namespace

TEST_F(SavingKeepsOnWindows, aLinkAndReplacesTheFileThatItLeadsTo) {
    const std::wstring link = m_path, real = m_folder.file(L"folder\\real.zdr");
    std::filesystem::create_directory(m_folder.path() / "folder");
    for (const auto form : {SystemCalls::PathForm::Letter, SystemCalls::PathForm::Disk}) {
        SCOPED_TRACE(static_cast<int>(form));
        m_calls.pathForm = form;
        write(real, "old");
        m_calls.links = {{link, real}};
        EXPECT_EQ(save(), "");
        EXPECT_EQ(contentOf(real), "new");
        EXPECT_EQ(contentOf(link), "old") << "the link has become a file";
        EXPECT_EQ(m_folder.entries(), 2u);
        EXPECT_EQ(m_calls.made().front(), "CreateFile(drawing.zdr, nothing)") << "rights to the link were asked for";
        m_calls.forget();
    }
}

TEST_F(SavingKeepsOnWindows, aLinkThatLeadsNowhereAndRefusesIt) {
    m_calls.links = {{m_path, L""}};
    EXPECT_THAT(save(), HasSubstr("can't be written: following the link failed, because of \""));
    expectOld();
}

TEST_F(SavingKeepsOnWindows, aLinkWhoseFileHasNoPathAndRefusesIt) {
    m_calls.links = {{m_path, m_folder.file(L"real.zdr")}};
    m_calls.pathForm = SystemCalls::PathForm::None;
    write(m_folder.file(L"real.zdr"), "real");
    EXPECT_THAT(save(), HasSubstr("can't be written: following the link failed, because of \""));
    EXPECT_EQ(contentOf(m_path), "old");
    EXPECT_EQ(contentOf(m_folder.file(L"real.zdr")), "real");
}

TEST_F(SavingKeepsOnWindows, theRightsThatItHasHereAndNow) {
    const HANDLE file = CreateFileW(m_path.c_str(), WRITE_DAC, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    PSECURITY_DESCRIPTOR ownerAlone = nullptr;
    const std::wstring before = rights();
    const std::wstring owner = before.substr(2, before.find(L"D:") - 2);
    ASSERT_TRUE(ConvertStringSecurityDescriptorToSecurityDescriptorW((L"D:P(A;;FA;;;" + owner + L")").c_str(),
                                                                     SDDL_REVISION_1, &ownerAlone, nullptr));
    EXPECT_TRUE(SetKernelObjectSecurity(file, DACL_SECURITY_INFORMATION, ownerAlone));
    LocalFree(ownerAlone);
    CloseHandle(file);
    const std::wstring narrow = rights();
    ASSERT_NE(narrow, before);
    EXPECT_EQ(save(), "");
    EXPECT_EQ(rights(), narrow);
    expectNew();
}

TEST_F(SavingKeepsOnWindows, theRightsFromTheFirstMomentOnWhateverTheFolderGives) {
    m_calls.security = [](const std::wstring&) { return L"O:BAD:AI(A;ID;FA;;;WD)(A;;FR;;;S-1-5-21-1-2-3-1001)"; };
    EXPECT_EQ(save(), "");
    EXPECT_EQ(m_calls.newSecurity, L"O:BAD:P(A;ID;FA;;;WD)(A;;FR;;;S-1-5-21-1-2-3-1001)");
}

TEST_F(SavingKeepsOnWindows, rightsThatAreThereAlsoWhereTheyCantBeSet) {
    struct Other {
        const wchar_t* rights;
        bool same;
    };
    const Other others[] = {
        {L"O:BAD:P(A;;FA;;;WD)(A;;FR;;;BU)", true},       // told by the file rather than by its folder
        {L"O:BAD:AI(A;ID;FA;;;WD)(A;;FW;;;BU)", false},   // to do something else
        {L"O:BAD:AI(A;ID;FA;;;WD)(A;;FR;;;SY)", false},   // for somebody else
        {L"O:BAD:AI(A;ID;FA;;;WD)(D;;FR;;;BU)", false},   // denied
        {L"O:BAD:AI(A;ID;FA;;;WD)", false},               // not told at all
        {L"O:BAD:AI(A;OIID;FA;;;WD)(A;;FR;;;BU)", false}, // with another mark than the one for its folder
        {L"O:BA", false},                                 // everything for everybody
    };
    for (const Other& other : others) {
        SCOPED_TRACE(toUtf8(other.rights));
        m_calls.security = [this, &other](const std::wstring& path) {
            return path == m_path ? L"O:BAD:AI(A;ID;FA;;;WD)(A;;FR;;;BU)" : other.rights;
        };
        EXPECT_EQ(save(), "");
        const std::vector<std::string> calls = m_calls.made();
        const auto replaced = std::find_if(calls.rbegin(), calls.rend(),
                                           [](const std::string& call) { return call.starts_with("ReplaceFile"); });
        ASSERT_NE(replaced, calls.rend());
        EXPECT_EQ(replaced->ends_with(", rights are there)"), other.same) << *replaced;
    }
}

TEST_F(SavingKeepsOnWindows, theOwnerOrRefuses) {
    m_calls.error = [](const std::string& call) -> DWORD {
        return call == "CreateFile(#1, new)" ? ERROR_INVALID_OWNER : 0;
    };
    EXPECT_THAT(save(), HasSubstr("can't be written: keeping its owner failed, because of \""));
    expectOld();
}

TEST_F(SavingKeepsOnWindows, aFileWhoseRightsCantBeAskedFor) {
    for (const DWORD error : {ERROR_ACCESS_DENIED, ERROR_INSUFFICIENT_BUFFER}) {
        SCOPED_TRACE(error);
        failCallsOf("GetFileSecurity", error);
        EXPECT_THAT(save(), HasSubstr("can't be written: asking for its rights failed, because of \""));
        expectOld();
    }
}

TEST_F(SavingKeepsOnWindows, nothingOfRightsThatCouldOnlyBeAskedForTheirLength) {
    m_calls.error = [calls = 0](const std::string& call) mutable -> DWORD {
        return call == "GetFileSecurity(drawing.zdr)" && ++calls == 2 ? ERROR_NOT_SUPPORTED : 0;
    };
    EXPECT_EQ(save(), "");
    EXPECT_EQ(m_calls.newSecurity, L"none");
}

TEST_F(SavingKeepsOnWindows, nothingWhereTheFileSystemKnowsNoRights) {
    for (const DWORD error : {ERROR_NOT_SUPPORTED, ERROR_INVALID_FUNCTION, ERROR_CALL_NOT_IMPLEMENTED}) {
        SCOPED_TRACE(error);
        failCallsOf("GetFileSecurity", error);
        EXPECT_EQ(save(), "");
        expectNew();
        EXPECT_EQ(m_calls.newSecurity, L"none");
    }
}

TEST_F(SavingKeepsOnWindows, aFileWhoseRightsDenyWhatReplacingTakes) {
    m_calls.error = [](const std::string& call) -> DWORD {
        return call == "CreateFile(drawing.zdr, rwd)" ? ERROR_ACCESS_DENIED : 0;
    };
    EXPECT_THAT(save(), HasSubstr("can't be written: opening the file failed, because of \""));
    EXPECT_EQ(m_calls.made().size(), 1u) << "something was done before the rights were known";
    expectOld();
}

TEST_F(SavingKeepsOnWindows, noDistanceToAFileThatIsOnlyReadByOthersInTheBeginning) {
    m_calls.error = [](const std::string& call) -> DWORD {
        return call == "CreateFile(drawing.zdr, rwd)" ? ERROR_SHARING_VIOLATION : 0;
    };
    EXPECT_EQ(save(), "");
    expectNew();
}

TEST_F(SavingKeepsOnWindows, aDeviceAsItIs) {
    m_path = L"NUL";
    EXPECT_THAT(save(), HasSubstr("can't be written: it isn't a file"));
    EXPECT_EQ(m_calls.made().size(), 1u);
}

TEST_F(SavingKeepsOnWindows, theAttributesThatNewContentNeedsFromTheStart) {
    constexpr DWORD kKept = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ENCRYPTED;
    m_calls.attributes = [this](const std::wstring& path) {
        return path == m_path ? kKept | FILE_ATTRIBUTE_OFFLINE | FILE_ATTRIBUTE_COMPRESSED : 0;
    };
    EXPECT_EQ(save(), "");
    EXPECT_EQ(m_calls.newAttributes, kKept | FILE_ATTRIBUTE_ARCHIVE);
}

TEST_F(SavingKeepsOnWindows, aHiddenFileHidden) {
    SetFileAttributesW(m_path.c_str(), FILE_ATTRIBUTE_HIDDEN);
    EXPECT_EQ(save(), "");
    EXPECT_TRUE(GetFileAttributesW(m_path.c_str()) & FILE_ATTRIBUTE_HIDDEN);
    expectNew();
}
