// Which texts name a server.

#include "HostName.h"

#include <gmock/gmock.h>

#include <ostream>

using remote::hostFault;
using remote::isIpv6Number;

namespace {

const std::wstring kLabel(63, L'a');
const std::wstring kLongestName = kLabel + L"." + kLabel + L"." + kLabel + L"." + std::wstring(61, L'a');

TEST(HostName, namesAndNumbersOfServersAreTaken) {
    for (const std::wstring& name :
         {std::wstring(L"localhost"), std::wstring(L"a"), std::wstring(L"plans.example"),
          std::wstring(L"PLANS-2.ex_ample"), std::wstring(L"127.0.0.1"), std::wstring(L"255.255.255.255"),
          std::wstring(L"1a.2b"), std::wstring(L"10.plans"), std::wstring(L"pl\u00e4ne.example"), kLabel, kLongestName})
        EXPECT_EQ(hostFault(name), std::nullopt) << testing::PrintToString(name);
}

TEST(HostName, everythingElseIsRefusedWithItsReason) {
    const std::pair<std::wstring, std::wstring> rows[] = {
        {L"", L"names no server"},
        {L".", L"point too many"},
        {L"a..b", L"point too many"},
        {L".a", L"point too many"},
        {L"a.", L"point too many"},
        {L"a b", L"can't have"},
        {L"a%20b", L"can't have"},
        {L"a,b", L"can't have"},
        {L"a*b", L"can't have"},
        {L"a[b", L"can't have"},
        {kLabel + L"a", L"more than 63 characters"},
        {kLongestName + L"a", L"more than 253 characters"},
        {std::wstring(100'000, L'a'), L"more than 253 characters"},
        {L"1.2.3", L"four numbers"},
        {L"1.2.3.4.5", L"four numbers"},
        {L"1.2.3.256", L"four numbers"},
        {L"1.2.3.04", L"four numbers"},
        {L"1.2.3.1000", L"four numbers"},
        {L"7", L"four numbers"},
        {L"plans.7", L"four numbers"},
    };
    for (const auto& [name, reason] : rows)
        EXPECT_THAT(hostFault(name), testing::Optional(testing::HasSubstr(reason)))
            << testing::PrintToString(name.substr(0, 80));
}

TEST(Ipv6Number, wholeShortenedAndMixedNumbersAreTaken) {
    for (const wchar_t* text :
         {L"::", L"::1", L"1::", L"1:2:3:4:5:6:7:8", L"2001:DB8::8a2e:370:7334", L"1:2:3:4:5:6:7::", L"::2:3:4:5:6:7:8",
          L"::ffff:192.0.2.1", L"1:2:3:4:5:6:192.0.2.1", L"fe80::0001"})
        EXPECT_TRUE(isIpv6Number(text)) << testing::PrintToString(std::wstring(text));
}

TEST(Ipv6Number, everythingElseIsRefused) {
    for (const wchar_t* text : {L"",
                                L":",
                                L"1",
                                L"1:2:3:4:5:6:7",
                                L"1:2:3:4:5:6:7:8:9",
                                L"1::2::3",
                                L":::",
                                L":1::2",
                                L"1::2:",
                                L"12345::",
                                L"g::",
                                L"::1%eth0",
                                L"::192.0.2",
                                L"::192.0.2.256",
                                L"192.0.2.1::",
                                L"1:2:3:4:5:6:7:192.0.2.1",
                                L"1:2:3:4::5:6:7:8",
                                L"::1]",
                                L" ::1",
                                L"192.0.2.1"})
        EXPECT_FALSE(isIpv6Number(text)) << testing::PrintToString(std::wstring(text));
}

} // namespace
