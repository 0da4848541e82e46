// How wide each column's content is, in pixels by column, as the rows that have been drawn so far tell it. Other rows
// haven't been measured: a column may have no entry at all.
#pragma once

#include <map>

using ColumnWidths = std::map<int, int>;

/// Widens the column's entry to `needed` if that is more; entries only grow.
void noteWidth(ColumnWidths& widths, int column, int needed);
/// The name's entry follows the row that was drawn last, and not the widest one; kept on purpose.
void noteNameWidth(ColumnWidths& widths, int needed);
/// Forgets the rows that have been drawn, but not which columns they were drawn in.
void zeroWidths(ColumnWidths& widths);
/// Whether the column, with its present width, cuts its content off. Makes an entry of 0 where there is none.
bool isCutOff(ColumnWidths& widths, int column, int width);
