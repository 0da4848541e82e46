// Addresses of remote files: what is taken, what is sent for it, and what is refused with which reason.

#include "RemoteAddress.h"

#include <gmock/gmock.h>

#include <ostream>

using remote::Address;
using remote::AddressKind;
using remote::parseAddress;
using remote::ParsedAddress;
using remote::Scheme;
using testing::HasSubstr;
using namespace std::string_literals;

namespace {

std::string printed(const std::wstring& text) {
    return testing::PrintToString(text.substr(0, 80));
}

std::wstring target(const std::wstring& address) {
    const ParsedAddress parsed = parseAddress(address);
    EXPECT_EQ(parsed.kind, AddressKind::Remote) << printed(address) << " " << printed(parsed.cause);
    return parsed.address.target;
}

TEST(RemoteAddress, schemeServerPortAndTargetAreToldApart) {
    const std::pair<std::wstring, Address> rows[] = {
        {L"http://plans.example/a.las", {Scheme::Http, L"plans.example", 80, L"/a.las"}},
        {L"https://plans.example/a.las", {Scheme::Https, L"plans.example", 443, L"/a.las"}},
        {L"HTTP://Plans.Example/A.las", {Scheme::Http, L"Plans.Example", 80, L"/A.las"}},
        {L"hTTpS://h", {Scheme::Https, L"h", 443, L"/"}},
        {L"http://h:8080/a", {Scheme::Http, L"h", 8080, L"/a"}},
        {L"http://h:1", {Scheme::Http, L"h", 1, L"/"}},
        {L"http://h:65535/", {Scheme::Http, L"h", 65535, L"/"}},
        {L"http://h:00080/", {Scheme::Http, L"h", 80, L"/"}},
        {L"http://h:/a", {Scheme::Http, L"h", 80, L"/a"}},
        {L"http://[::1]/a", {Scheme::Http, L"[::1]", 80, L"/a"}},
        {L"https://[2001:db8::1]:444/a", {Scheme::Https, L"[2001:db8::1]", 444, L"/a"}},
        {L"  http://h/a  ", {Scheme::Http, L"h", 80, L"/a"}},
        {L"http://pl\u00e4ne.example/a", {Scheme::Http, L"pl\u00e4ne.example", 80, L"/a"}},
    };
    for (const auto& [text, address] : rows) {
        const ParsedAddress parsed = parseAddress(text);
        EXPECT_EQ(parsed.kind, AddressKind::Remote) << printed(text) << " " << printed(parsed.cause);
        EXPECT_EQ(parsed.address, address) << printed(text) << " " << printed(parsed.address.target);
    }
}

TEST(RemoteAddress, whatAnAddressCantHoldIsEncodedAsUtf8) {
    EXPECT_EQ(target(L"http://h/ground floor.las"), L"/ground%20floor.las");
    EXPECT_EQ(target(L"http://h/Gr\u00fcn.las"), L"/Gr%C3%BCn.las");
    EXPECT_EQ(target(L"http://h/\u5e73\u9762\u56f3.las"), L"/%E5%B9%B3%E9%9D%A2%E5%9B%B3.las");
    EXPECT_EQ(target(L"http://h/\U0001F3E0.las"), L"/%F0%9F%8F%A0.las");
    EXPECT_EQ(target(L"http://h/\"<>[]^`{|}"), L"/%22%3C%3E%5B%5D%5E%60%7B%7C%7D");
    EXPECT_EQ(target(L"http://h/-._~!$&'()*+,;=:@"), L"/-._~!$&'()*+,;=:@");
}

TEST(RemoteAddress, whatIsEncodedAlreadyStays) {
    EXPECT_EQ(target(L"http://h/a%20b%c3%a4%2F%25"), L"/a%20b%c3%a4%2F%25");
}

TEST(RemoteAddress, theQueryIsSentAndTheFragmentIsNot) {
    EXPECT_EQ(target(L"http://h/a?b=1&c=d e?/../x#part"), L"/a?b=1&c=d%20e?/../x");
    EXPECT_EQ(target(L"http://h?b"), L"/?b");
    EXPECT_EQ(target(L"http://h#part?no"), L"/");
    EXPECT_EQ(target(L"http://h/a#b\\%"), L"/a");
}

TEST(RemoteAddress, dotSegmentsAreWalkedAndLeadNowhereAboveTheRoot) {
    EXPECT_EQ(target(L"http://h/a/./b/../c.las"), L"/a/c.las");
    EXPECT_EQ(target(L"http://h/../../a"), L"/a");
    EXPECT_EQ(target(L"http://h/a/b/.."), L"/a/");
    EXPECT_EQ(target(L"http://h/a/."), L"/a/");
    EXPECT_EQ(target(L"http://h/a/%2e%2E/b/%2e/c"), L"/b/c");
    EXPECT_EQ(target(L"http://h/a//b/"), L"/a//b/");
    EXPECT_EQ(target(L"http://h/.../..a/a.."), L"/.../..a/a..");
}

TEST(RemoteAddress, pathsOfThisComputerAndItsNetworkAreLocal) {
    for (const wchar_t* text :
         {L"C:\\plans\\a.las", L"c:/plans/a.las", L"c:", L"a.las", L"..\\a.las", L"\\\\server\\share\\a.las",
          L"//server/share/a.las", L"file:///C:/a.las", L"FILE://server/a.las", L"http", L"/http://h",
          L"C:\\http://h/a", L"://h", L":", L"1http://h/", L"\u00e4http://h/"})
        EXPECT_EQ(parseAddress(text).kind, AddressKind::Local) << printed(text);
    EXPECT_EQ(parseAddress(std::wstring(100'000, L'a')).kind, AddressKind::Local);
}

TEST(RemoteAddress, addressesOfSomethingElseAreTold) {
    for (const wchar_t* text : {L"ftp://h/a.las", L"javascript:alert(1)", L"mailto:a@b", L"localhost:8080/a.las",
                                L"httpx://h/", L"view-source:http://h/", L"data:text/plain,a", L"about:blank", L"ab:"})
        EXPECT_EQ(parseAddress(text).kind, AddressKind::UnknownScheme) << printed(text);
}

TEST(RemoteAddress, malformedOnesAreRefusedWithTheirReason) {
    const std::pair<std::wstring, std::wstring> rows[] = {
        {L"", L"is empty"},
        {L"   ", L"is empty"},
        {L"http:", L"two slashes"},
        {L"http:x", L"two slashes"},
        {L"http:/x", L"two slashes"},
        {L"http:\\\\h\\a", L"two slashes"},
        {L"http://", L"names no server"},
        {L"http:///x", L"names no server"},
        {L"http://?a", L"names no server"},
        {L"http://#a", L"names no server"},
        {L"http://:80/x", L"names no server"},
        {L"http:// /x", L"can't have"},
        {L"http://a b/x", L"can't have"},
        {L"http://a%41/x", L"can't have"},
        {L"http://h:0/", L"port"},
        {L"http://h:65536/", L"port"},
        {L"http://h:99999/", L"port"},
        {L"http://h:100000/", L"port"},
        {L"http://h:-1/", L"port"},
        {L"http://h:+80/", L"port"},
        {L"http://h:80a/", L"port"},
        {L"http://h:http/", L"port"},
        {L"http://h: 80/", L"port"},
        {L"http://h:80:80/", L"port"},
        {L"http://::1/", L"port"},
        {L"http://[::1]:x/", L"port"},
        {L"http://[::1/", L"IPv6"},
        {L"http://[]/", L"IPv6"},
        {L"http://[", L"IPv6"},
        {L"http://[::1]x/", L"IPv6"},
        {L"http://[::1%25eth0]/", L"IPv6"},
        {L"http://[1.2.3.4]/", L"IPv6"},
        {L"http://1.2.3.999/", L"four numbers"},
        {L"http://user@h/", L"user's name or password"},
        {L"http://user:secret@h/", L"user's name or password"},
        {L"http://@h/", L"user's name or password"},
        {L"http://h\\a", L"backslash"},
        {L"http://h/a\\b", L"backslash"},
        {L"http://h/a\nb", L"control character"},
        {L"http://h\t/a", L"control character"},
        {L"http://h/a\0b"s, L"control character"},
        {L"http://h/a\u0085", L"control character"},
        {L"\nhttp://h/a", L"control character"},
        {L"http://h/a%00b", L"encoded control character"},
        {L"http://h/a%0d%0aHost: x", L"encoded control character"},
        {L"http://h/a?%7f", L"encoded control character"},
        {L"http://h/100%", L"percent sign"},
        {L"http://h/100%.las", L"percent sign"},
        {L"http://h/a%2", L"percent sign"},
        {L"http://h/a%zz", L"percent sign"},
        {L"http://h/a?100%", L"percent sign"},
        {L"http://h/"s + wchar_t(0xD800), L"half a character"},
        {L"http://h/"s + wchar_t(0xD800) + L"a", L"half a character"},
        {L"http://h/"s + wchar_t(0xDC00), L"half a character"},
        {L"http://h/" + std::wstring(1015, L'a'), L"longer than 1023 characters"},
        {L"http://h/" + std::wstring(100'000, L'a'), L"longer than 1023 characters"},
    };
    for (const auto& [text, reason] : rows) {
        const ParsedAddress parsed = parseAddress(text);
        EXPECT_EQ(parsed.kind, AddressKind::Malformed) << printed(text);
        EXPECT_THAT(parsed.cause, HasSubstr(reason)) << printed(text);
    }
}

TEST(RemoteAddress, theLongestIsTaken) {
    EXPECT_EQ(target(L"http://h/" + std::wstring(1014, L'a')).size(), 1015u);
}

TEST(Redirect, isReadFromTheAddressBefore) {
    const Address from{Scheme::Http, L"h", 8080, L"/a/b.las?q=1"};
    const std::pair<std::wstring, Address> rows[] = {
        {L"http://other/x", {Scheme::Http, L"other", 80, L"/x"}},
        {L"https://other/x y", {Scheme::Https, L"other", 443, L"/x%20y"}},
        {L"//other:81/x", {Scheme::Http, L"other", 81, L"/x"}},
        {L"/x/y", {Scheme::Http, L"h", 8080, L"/x/y"}},
        {L"y.las", {Scheme::Http, L"h", 8080, L"/a/y.las"}},
        {L"../y.las", {Scheme::Http, L"h", 8080, L"/y.las"}},
        {L"?r=2", {Scheme::Http, L"h", 8080, L"/a/b.las?r=2"}},
        {L"", {Scheme::Http, L"h", 8080, L"/a/b.las?q=1"}},
        {L"#part", {Scheme::Http, L"h", 8080, L"/a/b.las?q=1"}},
    };
    for (const auto& [location, address] : rows) {
        const ParsedAddress parsed = remote::resolveRedirect(from, location);
        EXPECT_EQ(parsed.kind, AddressKind::Remote) << printed(location);
        EXPECT_EQ(parsed.address, address) << printed(location) << printed(parsed.address.target);
    }
}

TEST(Redirect, staysWithinHttpAndNeverLeavesHttpsForHttp) {
    const Address plain{Scheme::Http, L"h", 80, L"/a"};
    const Address safe{Scheme::Https, L"h", 443, L"/a"};
    for (const wchar_t* location : {L"ftp://h/a", L"file:///C:/a.las", L"javascript:x", L"C:\\a.las", L"http:/x",
                                    L"http://", L"http://user@h/", L"/a\nb", L"/a%00"})
        EXPECT_NE(remote::resolveRedirect(plain, location).kind, AddressKind::Remote) << printed(location);
    EXPECT_NE(remote::resolveRedirect(safe, L"http://h/a").kind, AddressKind::Remote);
    EXPECT_NE(remote::resolveRedirect(safe, L"HTTP://h/a").kind, AddressKind::Remote);
    EXPECT_EQ(remote::resolveRedirect(safe, L"//h/b").address, (Address{Scheme::Https, L"h", 443, L"/b"}));
    EXPECT_EQ(remote::resolveRedirect(safe, L"https://i/b").address, (Address{Scheme::Https, L"i", 443, L"/b"}));
    EXPECT_EQ(remote::resolveRedirect(plain, L"https://i/b").address, (Address{Scheme::Https, L"i", 443, L"/b"}));
}

TEST(RemoteAddress, theExtensionIsTheFilesOwn) {
    const std::pair<std::wstring, std::wstring> rows[] = {
        {L"http://h/a/b.las", L"las"},
        {L"http://h/b.zdr.LAS", L"LAS"},
        {L"http://h/b.las?x=y.zdr", L"las"},
        {L"http://h/b%2Elas", L"las"},
        {L"http://h/a.b/c", L""},
        {L"http://h/b.", L""},
        {L"http://h/", L""},
        {L"http://plans.las", L""},
        {L"http://h/.las", L"las"},
        {L"http://h/b.l\u00e4s", L""},
        {L"http://h/b.l%2Fs", L""},
        {L"http://h/b.l s", L""},
        {L"http://h/b." + std::wstring(16, L'x'), std::wstring(16, L'x')},
        {L"http://h/b." + std::wstring(17, L'x'), L""},
    };
    for (const auto& [text, extension] : rows)
        EXPECT_EQ(remote::extensionOf(parseAddress(text).address), extension) << printed(text);
}

TEST(RemoteAddress, aPasswordIsNeverShown) {
    EXPECT_EQ(remote::shownAddress(L"http://user:secret@h/a@b"), L"http://h/a@b");
    EXPECT_EQ(remote::shownAddress(L"http://a@b@h/"), L"http://h/");
    EXPECT_EQ(remote::shownAddress(L"http://h/a@b"), L"http://h/a@b");
    EXPECT_EQ(remote::shownAddress(L"C:\\a@b"), L"C:\\a@b");
}

TEST(RemoteAddress, isShownInOneShortLineOfWhatCanBeSeen) {
    EXPECT_EQ(remote::shownAddress(L"http://h/a\nb\tc\x7F\u0085"), L"http://h/a\uFFFDb\uFFFDc\uFFFD\uFFFD");
    // Marks that turn the direction of a text, join it, or break its line.
    for (const wchar_t* invisible : {L"\u00AD", L"\u061C", L"\u200B", L"\u200F", L"\u2028", L"\u202E", L"\u2060",
                                     L"\u2066", L"\u206F", L"\uFEFF", L"\uFFF9"})
        EXPECT_EQ(remote::shownAddress(std::wstring(L"a") + invisible + L"b"), L"a\uFFFDb");
    EXPECT_EQ(remote::shownAddress(L"http://h/\u00e4 \u5e73\u200A\u2010\u202F"),
              L"http://h/\u00e4 \u5e73\u200A\u2010\u202F");
    EXPECT_EQ(remote::shownAddress(std::wstring(300, L'x')), std::wstring(300, L'x'));
    EXPECT_EQ(remote::shownAddress(std::wstring(100'000, L'x')), std::wstring(300, L'x') + L"...");
    const std::wstring firstHalf(1, static_cast<wchar_t>(0xD83C));
    EXPECT_EQ(remote::shownAddress(std::wstring(299, L'x') + firstHalf + L"yy"), std::wstring(299, L'x') + L"...");
}

TEST(RemoteAddress, twoAreOnOneServerWhereSchemeNameAndPortAreTheSame) {
    const auto addressOf = [](const wchar_t* text) { return parseAddress(text).address; };
    const Address typed = addressOf(L"http://plans.example/a.las");
    for (const wchar_t* same : {L"http://plans.example/b/c", L"HTTP://Plans.EXAMPLE:80/a.las"})
        EXPECT_TRUE(remote::isSameServer(typed, addressOf(same))) << printed(same);
    for (const wchar_t* other : {L"https://plans.example/a.las", L"http://plans.example:81/a.las",
                                 L"http://plan.example/a.las", L"https://plans.example:80/a.las"})
        EXPECT_FALSE(remote::isSameServer(typed, addressOf(other))) << printed(other);
}

TEST(RemoteAddress, whatIsToldOfOneSaysWhyAndWhatToDo) {
    EXPECT_EQ(remote::sentencesAbout(L"http://user:secret@h/", L"is wrong", L"Mend it."),
              L"The address \"http://h/\" is wrong. Mend it.");
    EXPECT_EQ(remote::sentencesAbout(L"x", L"is wrong", L""), L"The address \"x\" is wrong.");
    EXPECT_EQ(remote::sentencesAbout(L"http://" + std::wstring(293, L'h'), L"is wrong", L""),
              L"The address \"http://" + std::wstring(293, L'h') + L"\" is wrong.");
    EXPECT_EQ(remote::sentencesAbout(L"http://" + std::wstring(294, L'h'), L"is wrong", L""),
              L"The address \"http://" + std::wstring(293, L'h') + L"...\" is wrong.");
}

TEST(RemoteAddress, thereIsAdviceOnEveryTextThatCantBeOne) {
    EXPECT_STREQ(remote::adviceOn(AddressKind::UnknownScheme),
                 L"Give one that begins with http:// or https://, or the path of a file.");
    EXPECT_STREQ(remote::adviceOn(AddressKind::Malformed),
                 L"Correct it; an address is made up like https://server/folder/plan.las.");
    EXPECT_STREQ(remote::adviceOn(AddressKind::Local), L"");
    EXPECT_STREQ(remote::adviceOn(AddressKind::Remote), L"");
}

} // namespace
