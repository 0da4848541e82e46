// The alphabet that names go by once the program has started: the user's.

#include "WorkbenchFixture.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <clocale>

using testing::ElementsAre;

namespace {

/// A program starts in the locale "C", whatever an earlier test has left.
struct AtTheStart {
    AtTheStart() { std::setlocale(LC_ALL, "C"); }
};

class LettersTest : AtTheStart, public WorkbenchTest {};

TEST_F(LettersTest, NamesAreOrderedAsTheUsersAlphabetHasThem) {
    std::vector<std::wstring> names{L"Zebra", L"apple", L"\u00C4pfel", L"Box"};
    std::ranges::sort(
        names, [](const std::wstring& a, const std::wstring& b) { return CString(a.c_str()).Collate(b.c_str()) < 0; });
    EXPECT_THAT(names, ElementsAre(L"\u00C4pfel", L"apple", L"Box", L"Zebra"));
}

TEST_F(LettersTest, CapitalsBeyondAsciiArePairedWithTheirSmallLetters) {
    EXPECT_EQ(
        CString(L"\u00DCBERSICHT \u041F\u041B\u0410\u041D").CompareNoCase(L"\u00FCbersicht \u043F\u043B\u0430\u043D"),
        0);
    EXPECT_STREQ(CString(L"\u00FCber").MakeUpper(), L"\u00DCBER");
}

TEST_F(LettersTest, NumbersKeepTheirPoint) {
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
    EXPECT_EQ(std::to_wstring(0.5), L"0.500000");
}

} // namespace
