// The order in which a list of states sorts its rows when a heading is clicked.
#pragma once

#include <afx.h>

/// Sorts the rows from `low` to `high`, both included, by one text each, by character code and with case significant.
/// Rows of equal text are never swapped with one another, but may change places with others around them: the sort isn't
/// stable.
/// @param rows offers `text(row)`, the text that a row is sorted by at that moment, and `swap(row, row)`
template <class Rows> void sortRows(Rows& rows, bool ascending, int low, int high) {
    if (high <= low)
        return;
    int lo = low;
    int hi = high;
    // A copy, since the row that it comes from may move.
    const CString pivot = rows.text((lo + hi) / 2);
    const auto order = [&](int row) {
        const int byCode = rows.text(row).Compare(pivot);
        return ascending ? byCode : -byCode;
    };
    while (lo <= hi) {
        while (lo < high && order(lo) < 0)
            ++lo;
        while (hi > low && order(hi) > 0)
            --hi;
        if (lo <= hi) {
            if (rows.text(lo).Compare(rows.text(hi)) != 0)
                rows.swap(lo, hi);
            ++lo;
            --hi;
        }
    }
    sortRows(rows, ascending, low, hi);
    sortRows(rows, ascending, lo, high);
}
