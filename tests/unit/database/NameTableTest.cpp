// Names of a drawing, and their comparison without regard to case.

#include "model/NameTable.h"

#include <gtest/gtest.h>

using namespace zdr;

TEST(CaseFolding, FoldsTheLettersOfManyScripts) {
    EXPECT_EQ(foldCase(L"walls 1"), L"WALLS 1");
    EXPECT_EQ(foldCase(L"t\u00fcr"), L"T\u00dcR");
    EXPECT_EQ(foldCase(L"\u0444\u03c9\u0151"), L"\u0424\u03a9\u0150");
}

TEST(CaseFolding, KeepsLettersApartThatOnlyLookAlikeInAscii) {
    EXPECT_FALSE(equalFolded(L"\u0131", L"I")); // dotless i
    EXPECT_FALSE(equalFolded(L"\u017f", L"S")); // long s
    EXPECT_FALSE(equalFolded(L"stra\u00dfe", L"STRASSE"));
}

TEST(CaseFolding, OrdersByFoldedCharacters) {
    EXPECT_LT(compareFolded(L"alpha", L"BETA"), 0);
    EXPECT_GT(compareFolded(L"beta", L"ALPHA"), 0);
    EXPECT_LT(compareFolded(L"wall", L"WALLS"), 0);
    EXPECT_EQ(compareFolded(L"Wall", L"wALL"), 0);
}

TEST(NameTable, HoldsTheEmptyNameAsNoName) {
    NameTable names;
    EXPECT_EQ(names.size(), 1u);
    EXPECT_EQ(names.intern(L""), kNoName);
    EXPECT_EQ(names.text(kNoName), L"");
}

TEST(NameTable, GivesEqualNamesOneIdAndKeepsTheFirstSpelling) {
    NameTable names;
    const NameId id = names.intern(L"Walls");
    EXPECT_EQ(names.intern(L"WALLS"), id);
    EXPECT_EQ(names.find(L"walls"), id);
    EXPECT_EQ(names.text(id), L"Walls");
    EXPECT_NE(names.intern(L"Doors"), id);
}

TEST(NameTable, FindsNothingForANameThatItLacks) {
    NameTable names;
    EXPECT_EQ(names.find(L"Walls"), kNoName);
    EXPECT_EQ(names.size(), 1u);
}

TEST(NameTable, SpellsAnewOnlyWhereCaseAloneDiffers) {
    NameTable names;
    const NameId id = names.intern(L"Walls");
    names.respell(id, L"WALLS");
    EXPECT_EQ(names.text(id), L"WALLS");
    names.respell(id, L"Doors");
    EXPECT_EQ(names.text(id), L"WALLS");
    EXPECT_EQ(names.find(L"walls"), id);
}
