// CString without formatting: construction, access, comparison, searching and editing, with positions outside the text.
#include "Text.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

TEST(StringConstruction, OfNullIsEmpty) {
    EXPECT_TRUE(CString(static_cast<LPCTSTR>(nullptr)).IsEmpty());
    EXPECT_TRUE(CString(static_cast<LPCSTR>(nullptr)).IsEmpty());
    EXPECT_TRUE(CString(static_cast<LPCTSTR>(nullptr), 3).IsEmpty());
    EXPECT_TRUE(CString().IsEmpty());
}

TEST(StringConstruction, TakesPartOfATextAndRepeatsACharacter) {
    EXPECT_EQ(CString(L"drawing", 4), L"draw");
    EXPECT_EQ(CString(L'x', 3), L"xxx");
    EXPECT_EQ(CString(L'x', 0), L"");
    EXPECT_EQ(CString("narrow"), L"narrow");
    EXPECT_EQ(CString("narrow", 3), L"nar");
}

TEST(StringConstruction, KeepsNullsWithinTheLengthGiven) {
    const CString text(L"a\0b", 3);
    EXPECT_EQ(text.GetLength(), 3);
    EXPECT_EQ(whole(text), std::wstring(L"a\0b", 3));
}

TEST(StringConstruction, MovedFromIsEmpty) {
    CString from(L"long enough to be on the heap and not inside");
    const CString to(std::move(from));
    EXPECT_EQ(to, L"long enough to be on the heap and not inside");
    EXPECT_TRUE(from.IsEmpty()); // NOLINT: what a moved string holds is part of the contract
}

TEST(StringConstruction, CopiesDoNotFollowEachOther) {
    CString one(L"layer");
    CString two = one;
    two.SetAt(0, L'p');
    EXPECT_EQ(one, L"layer");
    EXPECT_EQ(two, L"payer");
}

TEST(StringAssignment, OfNullAndOfItselfAreHarmless) {
    CString text(L"layer");
    const CString& same = text;
    text = same;
    EXPECT_EQ(text, L"layer");
    text = text.GetString() + 2;
    EXPECT_EQ(text, L"yer");
    text = static_cast<LPCTSTR>(nullptr);
    EXPECT_TRUE(text.IsEmpty());
}

TEST(StringAppending, TakesWideNarrowAndSingleCharacters) {
    CString text(L"a");
    text += L"b";
    text += "c";
    text += L'd';
    text += CString(L"e");
    text.Append(L"fgh", 1);
    text.AppendChar(L'g');
    EXPECT_EQ(text, L"abcdefg");
    text += text;
    EXPECT_EQ(text, L"abcdefgabcdefg");
    EXPECT_EQ(L"<" + CString(L"x") + L'>' + CString(L"y") + L"z", L"<x>yz");
    EXPECT_EQ(L'(' + CString(L"x"), L"(x");
}

TEST(StringAccess, IndexAtTheLengthIsTheTerminatingNull) {
    const CString text(L"abc");
    EXPECT_EQ(text[0], L'a');
    EXPECT_EQ(text.GetAt(2), L'c');
    EXPECT_EQ(text[3], L'\0');
}

TEST(StringComparison, IsByCharacterCodeAndOptionallyWithoutCase) {
    EXPECT_LT(CString(L"B").Compare(L"a"), 0);
    EXPECT_GT(CString(L"B").CompareNoCase(L"a"), 0);
    EXPECT_EQ(CString(L"LAYER").CompareNoCase(L"layer"), 0);
    EXPECT_GT(CString(L"LAYERS").CompareNoCase(L"layer"), 0);
    EXPECT_LT(CString(L"Layer").CompareNoCase(L"LAYERS"), 0);
    EXPECT_LT(CString().CompareNoCase(L"a"), 0);
    EXPECT_EQ(CString().CompareNoCase(nullptr), 0);
    EXPECT_GT(CString(L"ab").Compare(L"a"), 0);
    EXPECT_EQ(CString(L"").Compare(static_cast<LPCTSTR>(nullptr)), 0);
}

TEST(StringComparison, OperatorsWorkWithTheTextOnEitherSide) {
    const CString a(L"a");
    const CString b(L"b");
    EXPECT_TRUE(a < b && a <= b && b > a && b >= a && a != b);
    EXPECT_TRUE(L"a" == a && L"b" > a && L"a" <= a && !(L"b" == a));
}

TEST(StringCase, UpperLowerAndReverseChangeInPlace) {
    CString text(L"Layer 1");
    EXPECT_EQ(text.MakeUpper(), L"LAYER 1");
    EXPECT_EQ(text.MakeLower(), L"layer 1");
    EXPECT_EQ(text.MakeReverse(), L"1 reyal");
    EXPECT_EQ(text, L"1 reyal");
}

TEST(StringParts, ArePositionsAndCountsCutToTheText) {
    const CString text(L"abcdef");
    EXPECT_EQ(text.Left(2), L"ab");
    EXPECT_EQ(text.Left(99), L"abcdef");
    EXPECT_EQ(text.Left(-1), L"");
    EXPECT_EQ(text.Right(2), L"ef");
    EXPECT_EQ(text.Right(99), L"abcdef");
    EXPECT_EQ(text.Right(0), L"");
    EXPECT_EQ(text.Mid(4), L"ef");
    EXPECT_EQ(text.Mid(1, 3), L"bcd");
    EXPECT_EQ(text.Mid(4, 99), L"ef");
    EXPECT_EQ(text.Mid(6), L"");
    EXPECT_EQ(text.Mid(7), L"");
    EXPECT_EQ(text.Mid(-2, 3), L"abc");
}

TEST(StringParts, SpanStopsAtTheFirstCharacterOutsideOrInsideTheSet) {
    EXPECT_EQ(CString(L"aab1b").SpanIncluding(L"ab"), L"aab");
    EXPECT_EQ(CString(L"aab1b").SpanExcluding(L"0123"), L"aab");
    EXPECT_EQ(CString(L"aab").SpanExcluding(L"xyz"), L"aab");
    EXPECT_EQ(CString(L"aab").SpanIncluding(L"xyz"), L"");
}

TEST(StringSearch, AnswersTheIndexOrMinusOne) {
    const CString text(L"state|layer|state");
    EXPECT_EQ(text.Find(L"state"), 0);
    EXPECT_EQ(text.Find(L"state", 1), 12);
    EXPECT_EQ(text.Find(L'|'), 5);
    EXPECT_EQ(text.Find(L'|', 6), 11);
    EXPECT_EQ(text.ReverseFind(L'|'), 11);
    EXPECT_EQ(text.FindOneOf(L"xyz|"), 5);
    EXPECT_EQ(text.Find(L"none"), -1);
    EXPECT_EQ(text.Find(L'!'), -1);
    EXPECT_EQ(text.FindOneOf(L"!"), -1);
    EXPECT_EQ(text.ReverseFind(L'!'), -1);
}

TEST(StringSearch, FromOutsideTheTextFindsNothing) {
    const CString text(L"abc");
    EXPECT_EQ(text.Find(L"a", 4), -1);
    EXPECT_EQ(text.Find(L"a", -1), -1);
    EXPECT_EQ(text.Find(L'a', 4), -1);
    EXPECT_EQ(text.Find(L'a', -1), -1);
    EXPECT_EQ(text.Find(L"", 3), 3);
}

TEST(StringTokens, SkipDelimitersAndEndWithMinusOne) {
    const CString text(L",,red,,green,");
    int at = 0;
    EXPECT_EQ(text.Tokenize(L",", at), L"red");
    EXPECT_EQ(text.Tokenize(L",", at), L"green");
    EXPECT_EQ(text.Tokenize(L",", at), L"");
    EXPECT_EQ(at, -1);
}

TEST(StringTokens, OfATextWithoutTokensEndAtOnce) {
    int at = 0;
    EXPECT_EQ(CString(L",,,").Tokenize(L",", at), L"");
    EXPECT_EQ(at, -1);
    at = 0;
    EXPECT_EQ(CString(L"whole").Tokenize(L",", at), L"whole");
    EXPECT_EQ(CString(L"whole").Tokenize(L",", at), L"");
    EXPECT_EQ(at, -1);
}

TEST(StringTrimming, TakesBlanksOrTheGivenCharactersFromTheEnds) {
    EXPECT_EQ(CString(L" \t a b \r\n").Trim(), L"a b");
    EXPECT_EQ(CString(L"  a ").TrimLeft(), L"a ");
    EXPECT_EQ(CString(L"  a ").TrimRight(), L"  a");
    EXPECT_EQ(CString(L"xxaxx").Trim(L'x'), L"a");
    EXPECT_EQ(CString(L"xyaxy").Trim(L"yx"), L"a");
    EXPECT_EQ(CString(L"xxaxx").TrimLeft(L'x'), L"axx");
    EXPECT_EQ(CString(L"xyaxy").TrimRight(L"yx"), L"xya");
    EXPECT_EQ(CString(L"   ").Trim(), L"");
    EXPECT_EQ(CString(L"xx").TrimLeft(L'x'), L"");
    EXPECT_EQ(CString(L"xx").TrimRight(L"x"), L"");
}

TEST(StringReplacing, AnswersHowManyWereReplaced) {
    CString text(L"a.b.c");
    EXPECT_EQ(text.Replace(L'.', L'-'), 2);
    EXPECT_EQ(text, L"a-b-c");
    EXPECT_EQ(text.Replace(L"-", L"--"), 2);
    EXPECT_EQ(text, L"a--b--c");
    EXPECT_EQ(text.Replace(L"--", L""), 2);
    EXPECT_EQ(text, L"abc");
    EXPECT_EQ(text.Replace(L"x", L"y"), 0);
    EXPECT_EQ(text.Replace(L"", L"y"), 0);
    EXPECT_EQ(text.Replace(L'a', L'a'), 0);
    EXPECT_EQ(text, L"abc");
}

TEST(StringReplacing, DoesNotReplaceWithinWhatItPutIn) {
    CString text(L"aaa");
    EXPECT_EQ(text.Replace(L"a", L"aa"), 3);
    EXPECT_EQ(text, L"aaaaaa");
}

TEST(StringEditing, RemovesInsertsAndDeletes) {
    CString text(L"a-b-c");
    EXPECT_EQ(text.Remove(L'-'), 2);
    EXPECT_EQ(text, L"abc");
    EXPECT_EQ(text.Insert(1, L'x'), 4);
    EXPECT_EQ(text.Insert(0, L"<<"), 6);
    EXPECT_EQ(text, L"<<axbc");
    EXPECT_EQ(text.Insert(99, L">"), 7);
    EXPECT_EQ(text, L"<<axbc>");
    EXPECT_EQ(text.Delete(0, 2), 5);
    EXPECT_EQ(text.Delete(1), 4);
    EXPECT_EQ(text, L"abc>");
    EXPECT_EQ(text.Delete(3, 99), 3);
    EXPECT_EQ(text.Delete(99, 1), 3);
    EXPECT_EQ(text, L"abc");
}

TEST(StringBuffer, IsCutAtTheFirstNullUnlessALengthIsGiven) {
    CString text(L"ab");
    LPTSTR buffer = text.GetBuffer(8);
    buffer[2] = L'c';
    buffer[3] = 0;
    text.ReleaseBuffer();
    EXPECT_EQ(text, L"abc");

    buffer = text.GetBuffer(8);
    buffer[0] = 0;
    text.ReleaseBuffer(3);
    EXPECT_EQ(text.GetLength(), 3);
    EXPECT_EQ(whole(text), std::wstring(L"\0bc", 3));

    buffer = text.GetBufferSetLength(2);
    buffer[0] = L'x';
    buffer[1] = L'y';
    text.ReleaseBuffer();
    EXPECT_EQ(text, L"xy");
}

TEST(StringBuffer, OfTheShortestLengthHasRoomForTheNull) {
    CString text;
    text.GetBuffer(3)[3] = 0;
    text.ReleaseBuffer();
    EXPECT_TRUE(text.IsEmpty());
}

TEST(StringLength, EmptyAndTruncateShortenIt) {
    CString text(L"abc");
    text.Truncate(2);
    EXPECT_EQ(text, L"ab");
    text.Truncate(5);
    EXPECT_EQ(text, L"ab");
    text.Preallocate(100);
    EXPECT_GE(text.GetAllocLength(), 100);
    text.Empty();
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_EQ(text.GetLength(), 0);
}

} // namespace
