// Texts between wide and UTF-8, the same on systems whose wchar_t has 16 bits and on those where it has 32.
#include "files/TextCoding.h"

#include <gtest/gtest.h>

using zdr::fromUtf8;
using zdr::toUtf8;

TEST(TextCoding, charactersOfEveryLengthGoBothWays) {
    const struct {
        std::wstring wide;
        std::string bytes;
    } cases[] = {{L"", ""},
                 {L"A-WALL", "A-WALL"},
                 {L"\x7F", "\x7F"},
                 {L"\x80", "\xC2\x80"},
                 {L"\x07FF", "\xDF\xBF"},
                 {L"\x0800", "\xE0\xA0\x80"},
                 {L"\xFFFF", "\xEF\xBF\xBF"},
                 {L"\U00010000", "\xF0\x90\x80\x80"},
                 {L"\U0010FFFF", "\xF4\x8F\xBF\xBF"},
                 {std::wstring(L"a\0b", 3), std::string("a\0b", 3)}};
    for (const auto& [wide, bytes] : cases) {
        EXPECT_EQ(toUtf8(wide), bytes);
        EXPECT_EQ(fromUtf8(bytes), wide) << bytes;
    }
}

TEST(TextCoding, anUnpairedSurrogateSurvivesWhereverItStands) {
    const wchar_t high = static_cast<wchar_t>(0xD83D), low = static_cast<wchar_t>(0xDE00);
    for (const std::wstring& text : {std::wstring{high}, std::wstring{low}, std::wstring{low, high},
                                     std::wstring{L'a', high, L'b'}, std::wstring{high, high}, std::wstring{L'a', low}})
        EXPECT_EQ(fromUtf8(toUtf8(text)), text);
    EXPECT_EQ(toUtf8(std::wstring{high}), "\xED\xA0\xBD");
}

TEST(TextCoding, aSurrogatePairBecomesOneCharacter) {
    const std::wstring pair{static_cast<wchar_t>(0xD83D), static_cast<wchar_t>(0xDE00)};
    EXPECT_EQ(toUtf8(pair), "\xF0\x9F\x98\x80");
    EXPECT_EQ(fromUtf8("\xF0\x9F\x98\x80"), std::wstring(L"\U0001F600"));
}

TEST(TextCoding, bytesThatAreNotUtf8AreRefused) {
    for (const char* bytes : {"\x80", "\xC2", "\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF", "\xE2\x82",
                              "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80", "\xFF", "a\xC2z",
                              // a pair in two sequences: a second spelling of one character
                              "\xED\xA0\xBD\xED\xB8\x80"})
        EXPECT_EQ(fromUtf8(bytes), std::nullopt) << bytes;
}

TEST(TextCoding, aCutTextHasWholeCharactersAlone) {
    const std::wstring text = *fromUtf8("a\xC3\x9F\xF0\x9F\x8F\xA0z"); // of 1, 1, 2 and 1 units
    const auto units = [&text](std::size_t most) { return zdr::lengthInUnits(zdr::cutToUnits(text, most)); };
    EXPECT_EQ(units(0), 0u);
    EXPECT_EQ(units(2), 2u);
    EXPECT_EQ(units(3), 2u);
    EXPECT_EQ(units(4), 4u);
    EXPECT_EQ(zdr::cutToUnits(text, 5), text);
    EXPECT_EQ(zdr::cutToUnits(text, 100), text);
    EXPECT_EQ(zdr::cutToUnits(L"", 3), L"");
}

TEST(TextCoding, aPathGoesToTheSystemAndBack) {
    const std::wstring name = L"H\x00E4user \x2014 \U0001F600.zdr";
    EXPECT_EQ(zdr::widePath(zdr::systemPath(name)), name);
}

TEST(TextCoding, aPathWrittenOnWindowsIsFoundEverywhere) {
    EXPECT_EQ(zdr::systemPath(L"plans\\ground.zdr").parent_path(), std::filesystem::path("plans"));
}
