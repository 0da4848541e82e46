// The sort of a list of states: its order, also of rows with equal texts, and how much it reads and swaps on the way.
#include "ReferenceSort.h"
#include "RowSort.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Rows = std::vector<NumberedRow>;

/// Rows in memory, which note what the sort does to them.
class NotedRows {
  public:
    explicit NotedRows(Rows rows) : all(std::move(rows)) {}

    CString text(int row) {
        ++reads;
        return CString(all.at(static_cast<std::size_t>(row)).text.c_str());
    }
    void swap(int first, int second) {
        swaps.emplace_back(first, second);
        NumberedRow& one = all.at(static_cast<std::size_t>(first));
        NumberedRow& other = all.at(static_cast<std::size_t>(second));
        EXPECT_NE(one.text, other.text) << "equal rows were swapped";
        std::swap(one, other);
    }

    Rows all;
    int reads = 0;
    std::vector<std::pair<int, int>> swaps;
};

NotedRows sorted(const Rows& rows, bool ascending) {
    NotedRows noted(rows);
    sortRows(noted, ascending, 0, static_cast<int>(rows.size()) - 1);
    return noted;
}

Rows numbered(const std::vector<std::wstring>& texts) {
    Rows rows;
    for (const std::wstring& text : texts)
        rows.push_back({text, static_cast<int>(rows.size())});
    return rows;
}

std::vector<std::wstring> texts(const Rows& rows) {
    std::vector<std::wstring> found;
    for (const NumberedRow& row : rows)
        found.push_back(row.text);
    return found;
}

std::vector<int> numbers(const Rows& rows) {
    std::vector<int> found;
    for (const NumberedRow& row : rows)
        found.push_back(row.number);
    return found;
}

/// `count` different texts, ascending.
Rows ascendingRows(int count) {
    Rows rows;
    for (int i = 0; i < count; ++i)
        rows.push_back({std::wstring(1, static_cast<wchar_t>(0x4E00 + i)), i});
    return rows;
}

Rows reversedRows(int count) {
    Rows rows = ascendingRows(count);
    std::reverse(rows.begin(), rows.end());
    return rows;
}

Rows shuffledRows(int count, unsigned int seed) {
    Rows rows = ascendingRows(count);
    std::shuffle(rows.begin(), rows.end(), std::mt19937(seed));
    return rows;
}

/// Texts of a few letters, so that many are equal or begin alike; upper and lower case, digits, letters beyond ASCII.
Rows randomRows(std::mt19937& random, int count) {
    constexpr std::wstring_view letters = L"aAbBzZ019 ä€\uFFE5";
    const auto below = [&random](std::size_t range) { return static_cast<std::size_t>(random()) % range; };
    const std::size_t alphabet = 1 + below(letters.size());
    const std::size_t longest = 1 + below(4);
    Rows rows;
    for (int i = 0; i < count; ++i) {
        std::wstring text(below(longest + 1), L' ');
        for (wchar_t& letter : text)
            letter = letters[below(alphabet)];
        rows.push_back({std::move(text), i});
    }
    return rows;
}

TEST(RowSort, SortsByCharacterCodeWithCaseSignificant) {
    EXPECT_THAT(texts(sorted(numbered({L"alpha", L"Beta", L"beta"}), true).all),
                ElementsAre(L"Beta", L"alpha", L"beta"));
    EXPECT_THAT(texts(sorted(numbered({L"alpha", L"Beta", L"beta"}), false).all),
                ElementsAre(L"beta", L"alpha", L"Beta"));
    EXPECT_THAT(texts(sorted(numbered({L"a", L"Z", L"ä", L"", L"\uFFE5", L" a", L"€"}), true).all),
                ElementsAre(L"", L" a", L"Z", L"a", L"ä", L"€", L"\uFFE5"));
}

TEST(RowSort, SortsDigitsAsTextAndABeginningBeforeTheWhole) {
    EXPECT_THAT(texts(sorted(numbered({L"10", L"9", L"1", L"09", L"100"}), true).all),
                ElementsAre(L"09", L"1", L"10", L"100", L"9"));
}

TEST(RowSort, IsNotStable) {
    const Rows rows = numbered({L"b", L"a", L"b", L"a", L"b"});
    EXPECT_THAT(numbers(sorted(rows, true).all), ElementsAre(3, 1, 0, 2, 4));
    EXPECT_THAT(numbers(sorted(rows, false).all), ElementsAre(0, 2, 4, 3, 1));
}

TEST(RowSort, LeavesNoRowsAndOneRowUnread) {
    EXPECT_EQ(sorted({}, true).reads, 0);
    EXPECT_EQ(sorted(numbered({L"alone"}), true).reads, 0);
}

TEST(RowSort, TouchesOnlyTheRangeThatItIsGiven) {
    NotedRows noted(numbered({L"z", L"c", L"b", L"a", L"0"}));
    sortRows(noted, true, 1, 3);
    EXPECT_THAT(texts(noted.all), ElementsAre(L"z", L"a", L"b", L"c", L"0"));
    sortRows(noted, true, 3, 3);
    sortRows(noted, true, 4, 2);
    EXPECT_THAT(texts(noted.all), ElementsAre(L"z", L"a", L"b", L"c", L"0"));
}

TEST(RowSort, AgreesWithTheSimpleSortStepByStepOverRandomRows) {
    std::mt19937 random(20);
    for (int count = 0; count <= 300; ++count) {
        const Rows rows = randomRows(random, count);
        for (const bool ascending : {true, false}) {
            SCOPED_TRACE(testing::Message() << count << " rows, " << (ascending ? "ascending" : "descending"));
            Rows expected = rows;
            const SortWork work = referenceSort(expected, ascending);
            const NotedRows noted = sorted(rows, ascending);
            ASSERT_EQ(numbers(noted.all), numbers(expected));
            ASSERT_EQ(noted.swaps, work.swaps);
            ASSERT_EQ(noted.reads, work.pivots + work.comparisons + 2 * work.pairs);
        }
    }
}

TEST(RowSort, LeavesAllRowsThereInOrder) {
    std::mt19937 random(21);
    for (int count = 0; count <= 300; count += 7) {
        const Rows rows = randomRows(random, count);
        const Rows up = sorted(rows, true).all;
        const Rows down = sorted(rows, false).all;
        const auto before = [](const NumberedRow& one, const NumberedRow& other) { return one.text < other.text; };
        EXPECT_TRUE(std::is_sorted(up.begin(), up.end(), before)) << count;
        EXPECT_TRUE(std::is_sorted(down.rbegin(), down.rend(), before)) << count;
        EXPECT_TRUE(std::is_permutation(up.begin(), up.end(), rows.begin(), rows.end())) << count;
        EXPECT_TRUE(std::is_permutation(down.begin(), down.end(), rows.begin(), rows.end())) << count;
    }
}

// Each pass of the sort reads the pivot once, a row once for each comparison with the pivot, and two rows where both
// sides stop. With sorted, reversed and equal rows it halves the range, so the number of all reads follows.

/// How much is read for sorted rows, by their number. Both sides walk to the middle and read it too; where the middle
/// is the first row, the right side ends there without reading it.
std::vector<int> readsOfSortedRows(int most) {
    std::vector<int> reads = {0, 0};
    for (int n = 2; n <= most; ++n) {
        const auto left = static_cast<std::size_t>((n - 1) / 2);
        const std::size_t right = static_cast<std::size_t>(n) - 1 - left;
        reads.push_back(1 + n + (left > 0 ? 1 : 0) + 2 + reads[left] + reads[right]);
    }
    return reads;
}

/// What one pass reads when both sides stop at each row: reversed rows, which all change places, and equal ones.
int readsOfStoppingPass(int n) {
    const int stops = (n + 1) / 2;
    return 1 + 4 * stops;
}

constexpr int mostRows = 300;

TEST(RowSort, OnlyReadsSortedRows) {
    const std::vector<int> reads = readsOfSortedRows(mostRows);
    for (int n = 0; n <= mostRows; ++n) {
        const NotedRows noted = sorted(ascendingRows(n), true);
        EXPECT_EQ(noted.reads, reads[static_cast<std::size_t>(n)]) << n;
        EXPECT_THAT(noted.swaps, IsEmpty()) << n;
        const NotedRows downwards = sorted(reversedRows(n), false);
        EXPECT_EQ(downwards.reads, reads[static_cast<std::size_t>(n)]) << n;
        EXPECT_THAT(downwards.swaps, IsEmpty()) << n;
    }
}

TEST(RowSort, SwapsReversedRowsInItsFirstPassAndThenOnlyReads) {
    const std::vector<int> readsOfSorted = readsOfSortedRows(mostRows);
    for (int n = 2; n <= mostRows; ++n) {
        const NotedRows noted = sorted(reversedRows(n), true);
        EXPECT_EQ(noted.reads, readsOfStoppingPass(n) + 2 * readsOfSorted[static_cast<std::size_t>(n / 2)]) << n;
        std::vector<std::pair<int, int>> swaps;
        for (int row = 0; row < n / 2; ++row)
            swaps.emplace_back(row, n - 1 - row);
        EXPECT_EQ(noted.swaps, swaps) << n;
    }
}

TEST(RowSort, KeepsTheOrderOfRowsThatAreAllEqual) {
    std::vector<int> reads = {0, 0};
    for (int n = 2; n <= mostRows; ++n) {
        reads.push_back(readsOfStoppingPass(n) + 2 * reads[static_cast<std::size_t>(n / 2)]);
        const Rows rows = numbered(std::vector<std::wstring>(static_cast<std::size_t>(n), L"same"));
        for (const bool ascending : {true, false}) {
            const NotedRows noted = sorted(rows, ascending);
            EXPECT_EQ(noted.reads, reads.back()) << n;
            EXPECT_THAT(noted.swaps, IsEmpty()) << n;
            EXPECT_EQ(noted.all, rows) << n;
        }
    }
}

TEST(RowSort, StaysNearTheHalvingOfItsRangeOnRandomRows) {
    // Twice what halving would take: n rows read in each of log2(n) passes. Two rows change places at a time, so half
    // as many swaps.
    for (const int n : {10, 30, 100, 300}) {
        const double halving = n * std::log2(n);
        for (unsigned int seed = 0; seed < 20; ++seed) {
            const NotedRows noted = sorted(shuffledRows(n, seed), true);
            EXPECT_LT(noted.reads, 4 * halving) << n << " rows, seed " << seed;
            EXPECT_LT(static_cast<double>(noted.swaps.size()), halving / 2) << n << " rows, seed " << seed;
        }
    }
}

} // namespace
