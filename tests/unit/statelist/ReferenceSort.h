// The order that a sort of a list of states must give, found a second time: on plain vectors, and counting what it
// does.
#pragma once

#include <string>
#include <utility>
#include <vector>

/// A row as the sort sees it, and a number that tells it from other rows of the same text.
struct NumberedRow {
    std::wstring text;
    int number = 0;

    bool operator==(const NumberedRow&) const = default;
};

/// What a sort did on its way.
struct SortWork {
    int pivots = 0;
    /// Of a row's text with the pivot's.
    int comparisons = 0;
    /// Of the texts of two rows that are about to change places.
    int pairs = 0;
    std::vector<std::pair<int, int>> swaps;
};

/// Quicksort around the text in the middle. Both sides walk towards each other and stop at rows that are equal to that
/// text too; where they stop, rows of different texts change places.
inline void referenceSort(std::vector<NumberedRow>& rows, bool ascending, int low, int high, SortWork& work) {
    if (high <= low)
        return;
    const auto at = [&rows](int row) -> NumberedRow& { return rows[static_cast<std::size_t>(row)]; };
    const std::wstring pivot = at((low + high) / 2).text;
    ++work.pivots;
    const auto belongsBefore = [&](const std::wstring& left, const std::wstring& right) {
        ++work.comparisons;
        return ascending ? left < right : right < left;
    };
    int lo = low;
    int hi = high;
    while (lo <= hi) {
        while (lo < high && belongsBefore(at(lo).text, pivot))
            lo = lo + 1;
        while (hi > low && belongsBefore(pivot, at(hi).text))
            hi = hi - 1;
        if (lo > hi)
            break;
        ++work.pairs;
        if (at(lo).text != at(hi).text) {
            std::swap(at(lo), at(hi));
            work.swaps.emplace_back(lo, hi);
        }
        lo = lo + 1;
        hi = hi - 1;
    }
    if (low < hi)
        referenceSort(rows, ascending, low, hi, work);
    if (lo < high)
        referenceSort(rows, ascending, lo, high, work);
}

inline SortWork referenceSort(std::vector<NumberedRow>& rows, bool ascending) {
    SortWork work;
    referenceSort(rows, ascending, 0, static_cast<int>(rows.size()) - 1, work);
    return work;
}
