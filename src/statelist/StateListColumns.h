// The columns of a list of layer states.
#pragma once

/// The columns by number. A list that isn't compared with the drawing lacks `sameColumn`: its description stands there.
enum StateListColumn : int { nameColumn, spaceColumn, sameColumn, descriptionColumn };

/// One column as it is inserted: its heading, and its share of the list's width.
struct ListColumn {
    unsigned int headingId;
    double fraction;
};

/// A column's width in pixels, cut towards zero, in a list of that width.
constexpr int columnWidth(int listWidth, double fraction) {
    return static_cast<int>(static_cast<double>(listWidth) * fraction);
}
