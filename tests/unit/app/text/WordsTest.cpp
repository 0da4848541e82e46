// Words, lists, quotes and patterns of a typed line.

#include "CommandText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::IsEmpty;
using workbench::lastWordStart;
using workbench::matches;
using workbench::parseCommand;
using workbench::quotation;
using workbench::quotedWhereNeeded;
using workbench::splitList;
using workbench::splitWords;

TEST(Words, EndAtBlanksOutsideQuotes) {
    EXPECT_THAT(splitWords(L"off  a \"b c\",d\t"), ElementsAre(L"off", L"a", L"\"b c\",d"));
    EXPECT_THAT(splitWords(L"a \"b c"), ElementsAre(L"a", L"\"b c"));
    EXPECT_THAT(splitWords(L"  "), IsEmpty());
}

TEST(Words, OfACommandKeepTheirQuotes) {
    const auto command = parseCommand(L"LAYER rename \"a b\" \"c\"");
    EXPECT_THAT(command.words, ElementsAre(L"rename", L"\"a b\"", L"\"c\""));
    EXPECT_EQ(parseCommand(L"X \"a\" \"b\"").argument, L"\"a\" \"b\"") << "two words aren't one quoted whole";
}

TEST(Words, TheLastOneBeginsBehindTheLastBlankOutsideQuotes) {
    EXPECT_EQ(lastWordStart(L""), 0u);
    EXPECT_EQ(lastWordStart(L"lay"), 0u);
    EXPECT_EQ(lastWordStart(L"layer of"), 6u);
    EXPECT_EQ(lastWordStart(L"layer "), 6u);
    EXPECT_EQ(lastWordStart(L"layer off \"a b"), 10u);
}

TEST(Words, AListHasItsPartsBetweenCommasOutsideQuotes) {
    EXPECT_THAT(splitList(L"a,\"b c\",\"d,e\""), ElementsAre(L"a", L"b c", L"d,e"));
    EXPECT_THAT(splitList(L",,a,"), ElementsAre(L"a"));
    EXPECT_THAT(splitList(L"\"\""), IsEmpty());
}

TEST(Words, ANameIsQuotedWhenItWouldComeApart) {
    EXPECT_EQ(quotedWhereNeeded(L"Walls"), L"Walls");
    EXPECT_EQ(quotedWhereNeeded(L"Ground floor"), L"\"Ground floor\"");
    EXPECT_EQ(quotedWhereNeeded(L"a,b"), L"\"a,b\"");
}

TEST(Patterns, MatchWithoutRegardToCase) {
    EXPECT_TRUE(matches(L"Walls", L"walls"));
    EXPECT_TRUE(matches(L"Walls", L"W*"));
    EXPECT_TRUE(matches(L"Walls", L"*L*s"));
    EXPECT_TRUE(matches(L"Walls", L"?alls"));
    EXPECT_TRUE(matches(L"", L"*"));
    EXPECT_TRUE(matches(L"aXbXc", L"a*X*c**"));
    EXPECT_FALSE(matches(L"Walls", L"Wall"));
    EXPECT_FALSE(matches(L"Walls", L"Walls?"));
    EXPECT_FALSE(matches(L"Walls", L"*x*"));
    EXPECT_FALSE(matches(L"", L"?"));
}

TEST(Patterns, ManyStarsTakeNoLongTime) {
    std::wstring stars;
    for (int i = 0; i < 10000; ++i)
        stars += L"*a";
    EXPECT_FALSE(matches(std::wstring(255, L'a') + L'b', stars));
}

TEST(Quotations, AreCutWhereTheyAreTooLongAndStayOnOneLine) {
    EXPECT_EQ(quotation(L"short"), L"\"short\"");
    EXPECT_EQ(quotation(std::wstring(100, L'x')), L'"' + std::wstring(60, L'x') + L"...\"");
    EXPECT_EQ(quotation(L"a\nb"), L"\"a b\"");
}

TEST(Sentences, ListNoMoreThanCanBeRead) {
    EXPECT_EQ(workbench::listed({}), L"");
    EXPECT_EQ(workbench::listed({L"a", L"b"}), L"a, b");
    EXPECT_EQ(workbench::listed(std::vector<std::wstring>(13, L"a")), L"a, a, a, a, a, a, a, a, a, a, a, a and more");
    const std::wstring wide(200, L'w');
    EXPECT_EQ(workbench::listed({wide, wide, wide}), wide + L" and more");
    EXPECT_EQ(workbench::listed({std::wstring(400, L'w')}).size(), 400u) << "one at least";
}

TEST(Sentences, TakeAdviceBehindAColon) {
    EXPECT_EQ(workbench::advised(L"It isn't there.", L"look again"), L"It isn't there: look again.");
    EXPECT_EQ(workbench::advised(L"It isn't there", L"look again"), L"It isn't there: look again.");
}
