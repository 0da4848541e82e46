// How the service answers bad addresses: at once, and without sending anything to a server. What exactly is refused is
// tested with the parser of addresses; here all three operations of the service are called.

#include "ImportFaults.h"
#include "RemoteFixture.h"

#include "instruments/HostCalls.h"

#include <functional>

using testing::HasSubstr;

namespace {

class BadAddress : public RemoteTest {
  protected:
    void expectStatus(const wchar_t* url, int expected) {
        OrvXREFString name(local.c_str());
        const std::string shown = url ? printed(url) : "null";
        EXPECT_EQ(service.TransferFile(url, name, kInetFetch, 1), expected) << shown;
        EXPECT_FALSE(problem().empty());
        EXPECT_EQ(service.TransferFile(url, name, kInetUpload, 1), expected) << shown;
        EXPECT_EQ(service.CreateInternetTempFile(url, name), expected) << shown;
        EXPECT_STREQ(name, local.c_str()) << shown;
        EXPECT_EQ(bytesOf(local), "old") << shown;
    }
    BadAddress() { writeBytes(local, "old"); }

    /// Whatever `ask` does, the system's client isn't even opened.
    static void expectNothingSent(const std::function<void()>& ask) {
        const ImportFaults counter;
        ImportFaults::begin();
        ask();
        ImportFaults::end();
        EXPECT_EQ(ImportFaults::calls("WinHttpOpen"), 0);
    }
};

TEST_F(BadAddress, localPathsArentRemote) {
    expectNothingSent([this] {
        for (const std::wstring& path :
             {std::wstring(L"C:\\plans\\a.las"), std::wstring(L"c:/plans/a.las"), std::wstring(L"a.las"),
              std::wstring(L"\\\\server\\share\\a.las"), std::wstring(L"//server/share/a.las"),
              std::wstring(L"file:///C:/plans/a.las"), std::wstring(L"\\\\?\\C:\\a.las"), local.wstring(),
              std::wstring(100'000, L'a')})
            expectStatus(path.c_str(), eInetNotRemote);
    });
    EXPECT_THAT(printed(problem()), HasSubstr("The address \"aaaa"));
}

TEST_F(BadAddress, otherSchemesArentServed) {
    expectNothingSent([this] {
        for (const wchar_t* url :
             {L"ftp://127.0.0.1/a.las", L"javascript:alert(1)", L"mailto:a@b", L"localhost:8080/a.las"})
            expectStatus(url, eInetUnknownScheme);
    });
    EXPECT_THAT(printed(problem()), HasSubstr("is neither an http:// nor an https:// address."));
}

TEST_F(BadAddress, malformedOnesAreRefused) {
    expectNothingSent([this] {
        expectStatus(nullptr, eInetBadAddress);
        for (const std::wstring& url : {
                 std::wstring(),
                 std::wstring(L" "),
                 std::wstring(L"http:"),
                 std::wstring(L"http:/x"),
                 std::wstring(L"http://"),
                 std::wstring(L"http:///x"),
                 std::wstring(L"http://h:0/"),
                 std::wstring(L"http://h:65536/"),
                 std::wstring(L"http://h:-1/"),
                 std::wstring(L"http://h:abc/"),
                 std::wstring(L"http://[::1"),
                 std::wstring(L"http://[::1::]/"),
                 std::wstring(L"http://a b/"),
                 std::wstring(L"http://h/a\nHost: x"),
                 std::wstring(L"http://h/a%00.las"),
                 std::wstring(L"http://h/100%.las"),
                 std::wstring(L"http://h\\a"),
                 std::wstring(L"http://user:secret@h/a"),
                 L"http://h/" + std::wstring(1015, L'a'),
                 L"http://h/" + std::wstring(100'000, L'a'),
             })
            expectStatus(url.c_str(), eInetBadAddress);
    });
}

TEST_F(BadAddress, aNameThatCantBeWrittenInAsciiIsRefused) {
    OrvXREFString name(local.c_str());
    const std::wstring label(60, L'\u00e4'); // longer than 63 characters in ASCII
    EXPECT_EQ(service.TransferFile((L"http://" + label + L".example/a").c_str(), name, kInetFetch, 1), eInetBadAddress);
    EXPECT_THAT(printed(problem().substr(problem().find(L" has "))), HasSubstr("can't be written in ASCII"));
}

TEST_F(BadAddress, aNameThatBecomesAnotherAddressInAsciiIsRefused) {
    for (const wchar_t* host :
         {L"h\uff0fx", L"h\uff1a80", L"user\uff20h", L"h\uff05", L"h\uff1fq", L"h\uff03x", L"h\u3002\u3002x"}) {
        OrvXREFString name(local.c_str());
        const std::wstring url = L"http://" + std::wstring(host) + L".invalid/a";
        EXPECT_EQ(service.TransferFile(url.c_str(), name, kInetFetch, 1), eInetBadAddress) << printed(url);
    }
}

TEST_F(BadAddress, theLongestAddressIsSent) {
    OrvXREFString name(local.c_str());
    const std::wstring root = L"http://no-such-server.invalid/";
    EXPECT_EQ(service.TransferFile((root + std::wstring(1023 - root.size(), L'\u5e73')).c_str(), name, kInetFetch, 1),
              eInetHostNotFound);
}

TEST_F(BadAddress, aPasswordIsntRepeatedInTheSentence) {
    expectStatus(L"http://user:secret@h/a.las", eInetBadAddress);
    EXPECT_EQ(problem(),
              L"The address \"http://h/a.las\" has a user's name or password, which the Workbench doesn't send. "
              L"Correct it; an address is made up like https://server/folder/plan.las.");
    EXPECT_EQ(printedLines.find(L"secret"), std::wstring::npos);
}

TEST_F(BadAddress, anUnknownModeIsRefused) {
    for (const int mode : {0, 2, 3, 5, -1, 20000}) {
        OrvXREFString name(local.c_str());
        EXPECT_EQ(service.TransferFile(L"http://127.0.0.1:1/a", name, mode, 1), eInetUnknownMode) << mode;
    }
    EXPECT_THAT(printed(problem()), HasSubstr("unknown mode 20000"));
}

} // namespace
