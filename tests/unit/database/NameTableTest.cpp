// Names of a drawing, and their comparison without regard to case.

#include "model/NameTable.h"
#include "model/SeededHash.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <unordered_set>

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

namespace {

/// The most elements in one bucket: those are compared one by one.
template <class Set> std::size_t fullestBucket(const Set& set) {
    std::size_t most = 0;
    for (std::size_t bucket = 0; bucket < set.bucket_count(); ++bucket)
        most = std::max(most, set.bucket_size(bucket));
    return most;
}

/// A hash that anybody can compute beforehand.
std::size_t knownHash(const std::wstring& text) {
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const wchar_t character : text)
        hash = (hash ^ static_cast<std::uint32_t>(character)) * 0x100000001B3;
    return static_cast<std::size_t>(hash);
}

} // namespace

TEST(SeededHash, KeepsHandlesApartThatWereChosenToFallIntoOneBucket) {
    constexpr std::size_t kCount = 2000;
    for (const int shift : {0, 32}) {
        std::unordered_set<std::uint64_t, HandleHash> handles(kCount);
        const std::uint64_t buckets = handles.bucket_count();
        for (std::uint64_t i = 1; i <= kCount; ++i)
            handles.insert((i * buckets) << shift);
        EXPECT_EQ(handles.bucket_count(), buckets);
        EXPECT_LT(fullestBucket(handles), 30u) << shift;
    }
}

TEST(SeededHash, KeepsNamesApartThatWereChosenToFallIntoOneBucket) {
    constexpr std::size_t kCount = 500;
    std::unordered_set<std::wstring, FoldedHash, FoldedEqual> names(kCount);
    const std::size_t buckets = names.bucket_count();
    for (int i = 0; names.size() < kCount; ++i)
        if (const std::wstring name = L"LAYER " + std::to_wstring(i); knownHash(name) % buckets == 0)
            names.insert(name);
    EXPECT_EQ(names.bucket_count(), buckets);
    EXPECT_LT(fullestBucket(names), 30u);
}

TEST(SeededHash, TellsLeadingZerosAndTheLastNumber) {
    EXPECT_NE(FoldedHash()(std::wstring_view(L"\0a", 2)), FoldedHash()(L"a"));
    EXPECT_NE(FoldedHash()(L"a"), FoldedHash()(L"b"));
    EXPECT_NE(HandleHash()(1), HandleHash()(std::uint64_t{1} << 32));
    EXPECT_EQ(FoldedHash()(L"wall"), FoldedHash()(L"WALL"));
}

TEST(NameTable, FindsEachOfManyNamesInACopyToo) {
    NameTable names;
    for (NameId i = 1; i < 3000; ++i)
        EXPECT_EQ(names.intern(L"Layer " + std::to_wstring(i)), i);
    const NameTable copy = names;
    names.intern(L"Another");
    for (NameId i = 1; i < 3000; ++i)
        EXPECT_EQ(copy.find(L"LAYER " + std::to_wstring(i)), i);
    EXPECT_EQ(copy.find(L"Another"), kNoName);
}
