// CString::Format: every conversion, flag, width, precision and size, with Microsoft's meaning in both tiers.
#include "Text.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdint>

namespace {

template <class... Arguments> CString formatted(LPCTSTR format, Arguments... arguments) {
    CString text;
    text.Format(format, arguments...);
    return text;
}

TEST(Format, SmallSIsWideAndCapitalSIsNarrow) {
    EXPECT_EQ(formatted(L"<%s>", L"wide"), L"<wide>");
    EXPECT_EQ(formatted(L"<%S>", "narrow"), L"<narrow>");
}

TEST(Format, ASizeDecidesOverTheCaseOfS) {
    EXPECT_EQ(formatted(L"%ls", L"wide"), L"wide");
    EXPECT_EQ(formatted(L"%lS", L"wide"), L"wide");
    EXPECT_EQ(formatted(L"%ws", L"wide"), L"wide");
    EXPECT_EQ(formatted(L"%hs", "narrow"), L"narrow");
    EXPECT_EQ(formatted(L"%hS", "narrow"), L"narrow");
}

TEST(Format, ANullStringPrintsAsSuch) {
    EXPECT_EQ(formatted(L"%s", static_cast<const wchar_t*>(nullptr)), L"(null)");
    EXPECT_EQ(formatted(L"%S", static_cast<const char*>(nullptr)), L"(null)");
}

TEST(Format, APrecisionBoundsAStringAndHowFarItIsRead) {
    EXPECT_EQ(formatted(L"%.2s", L"abc"), L"ab");
    EXPECT_EQ(formatted(L"%.0s", L"abc"), L"");
    EXPECT_EQ(formatted(L"%.*s", 1, L"abc"), L"a");
    const wchar_t unterminated[] = {L'x', L'y'};
    EXPECT_EQ(formatted(L"%.2s", unterminated), L"xy");
    const char narrow[] = {'x', 'y'};
    EXPECT_EQ(formatted(L"%.2S", narrow), L"xy");
}

TEST(Format, AWidthPadsOnTheLeftOrOnTheRight) {
    EXPECT_EQ(formatted(L"%5s|", L"ab"), L"   ab|");
    EXPECT_EQ(formatted(L"%-5s|", L"ab"), L"ab   |");
    EXPECT_EQ(formatted(L"%*s|", 4, L"ab"), L"  ab|");
    EXPECT_EQ(formatted(L"%*s|", -4, L"ab"), L"ab  |");
    EXPECT_EQ(formatted(L"%1s", L"abc"), L"abc");
    EXPECT_EQ(formatted(L"%3c|%-3c|", L'x', L'y'), L"  x|y  |");
}

TEST(Format, CharactersAreWideOrNarrowAsStringsAre) {
    EXPECT_EQ(formatted(L"%c", L'\u00e4'), L"\u00e4");
    EXPECT_EQ(formatted(L"%lc", L'\u20ac'), L"\u20ac");
    EXPECT_EQ(formatted(L"%C", 'a'), L"a");
    EXPECT_EQ(formatted(L"%hc", 'a'), L"a");
}

TEST(Format, DecimalIntegers) {
    EXPECT_EQ(formatted(L"%d %i", 42, -42), L"42 -42");
    EXPECT_EQ(formatted(L"%u", UINT_MAX), L"4294967295");
    EXPECT_EQ(formatted(L"%d", INT_MIN), L"-2147483648");
    EXPECT_EQ(formatted(L"%+d % d", 1, 1), L"+1  1");
    EXPECT_EQ(formatted(L"%05d", -42), L"-0042");
    EXPECT_EQ(formatted(L"%-5d|", 42), L"42   |");
    EXPECT_EQ(formatted(L"%.4d", 42), L"0042");
    EXPECT_EQ(formatted(L"%6.4d", 42), L"  0042");
}

TEST(Format, OctalAndHexadecimalIntegers) {
    EXPECT_EQ(formatted(L"%o", 8u), L"10");
    EXPECT_EQ(formatted(L"%x %X", 0xBEEFu, 0xBEEFu), L"beef BEEF");
    EXPECT_EQ(formatted(L"%#x %#o", 255u, 8u), L"0xff 010");
    EXPECT_EQ(formatted(L"%08X", 0xABCu), L"00000ABC");
}

TEST(Format, LongHas32Bits) {
    // Two arguments: a wrong size would read the second one from the wrong place or with foreign bits.
    EXPECT_EQ(formatted(L"%ld,%ld", std::int32_t{-1}, std::int32_t{7}), L"-1,7");
    EXPECT_EQ(formatted(L"%lu", std::uint32_t{0xFFFFFFFF}), L"4294967295");
    EXPECT_EQ(formatted(L"%lx", std::uint32_t{0xFFFFFFFF}), L"ffffffff");
    EXPECT_EQ(formatted(L"%I32d", std::int32_t{-5}), L"-5");
}

TEST(Format, SixtyFourBitsBySeveralNames) {
    const long long big = -1234567890123456789LL;
    EXPECT_EQ(formatted(L"%I64d", big), L"-1234567890123456789");
    EXPECT_EQ(formatted(L"%lld", big), L"-1234567890123456789");
    EXPECT_EQ(formatted(L"%jd", big), L"-1234567890123456789");
    EXPECT_EQ(formatted(L"%I64u %I64x", ~0ULL, ~0ULL), L"18446744073709551615 ffffffffffffffff");
    EXPECT_EQ(formatted(L"%Iu %zu %td", ~0ULL, ~0ULL, big),
              L"18446744073709551615 18446744073709551615 -1234567890123456789");
}

TEST(Format, ShortAndCharSizesCutTheValue) {
    EXPECT_EQ(formatted(L"%hd %hu", 0x1FFFF, 0x1FFFF), L"-1 65535");
    EXPECT_EQ(formatted(L"%hhd %hhu", 0x1FF, 0x1FF), L"-1 255");
}

TEST(Format, FloatingPoint) {
    EXPECT_EQ(formatted(L"%f", 1.5), L"1.500000");
    EXPECT_EQ(formatted(L"%.2f|%8.3f|%-8.1f|", 3.14159, 3.14159, 3.14159), L"3.14|   3.142|3.1     |");
    EXPECT_EQ(formatted(L"%e %E", 12345.678, 12345.678), L"1.234568e+04 1.234568E+04");
    EXPECT_EQ(formatted(L"%g %g %G", 0.0001, 1e10, 1e-10), L"0.0001 1e+10 1E-10");
    EXPECT_EQ(formatted(L"%.*g", 15, 0.1), L"0.1");
    EXPECT_EQ(formatted(L"%+.1f %08.2f", 2.0, -2.5), L"+2.0 -0002.50");
    EXPECT_EQ(formatted(L"%Lf", 2.0), L"2.000000"); // as wide as double here
    EXPECT_EQ(formatted(L"%a", 1.0).Left(3), L"0x1");
    EXPECT_EQ(formatted(L"%A", 1.0).Left(3), L"0X1");
}

TEST(Format, PointersAreSixteenCapitalDigits) {
    EXPECT_EQ(formatted(L"%p", reinterpret_cast<void*>(std::uintptr_t{0xABC})), L"0000000000000ABC");
    EXPECT_EQ(formatted(L"%18p|", static_cast<void*>(nullptr)), L"  0000000000000000|");
}

TEST(Format, PercentSignsAndUnknownLettersPrintThemselves) {
    EXPECT_EQ(formatted(L"100%%"), L"100%");
    EXPECT_EQ(formatted(L"%y"), L"y");
    EXPECT_EQ(formatted(L"end %"), L"end ");
    EXPECT_EQ(formatted(L""), L"");
}

TEST(Format, CountingConversionWritesNothingThrough) {
    int counted = 7;
    formatted(L"ab%n", &counted);
    EXPECT_EQ(counted, 7);
}

TEST(Format, MayUseTheStringsOwnTextAsAnArgument) {
    CString text(L"layer");
    text.Format(L"%s and %s", text.GetString(), text.GetString());
    EXPECT_EQ(text, L"layer and layer");
    text.AppendFormat(L" (%d)", 2);
    EXPECT_EQ(text, L"layer and layer (2)");
}

TEST(Format, OfALongTextIsWhole) {
    const CString part(L'x', 5000);
    EXPECT_EQ(formatted(L"%s-%s", part.GetString(), part.GetString()).GetLength(), 10001);
    EXPECT_EQ(formatted(L"%2000d", 1).GetLength(), 2000);
}

#ifndef _WIN32
TEST(Format, NarrowTextIsReadAsUtf8AndABadByteIsMarked) {
    EXPECT_EQ(formatted(L"%S", "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x93\x90"), L"\u00e4\u20ac\U0001F4D0");
    EXPECT_EQ(formatted(L"%S", "a\xFF"
                               "b"),
              L"a\uFFFDb");
    EXPECT_EQ(formatted(L"%S", "\xE2\x82"), L"\uFFFD");
    EXPECT_EQ(formatted(L"%S", "\xC0\x80"), L"\uFFFD\uFFFD");
}
#endif

} // namespace
