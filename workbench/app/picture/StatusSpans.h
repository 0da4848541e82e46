// Where the fields of the status line stand: names from the left, the pointer's place and the references at the right
// end, and the message in what is left between them.
#pragma once

namespace workbench {

/// A stretch of the status line in pixels from its left end; empty for a field that has no room.
struct StatusSpan {
    int left = 0, right = 0;
    bool isEmpty() const { return right <= left; }
    friend bool operator==(const StatusSpan&, const StatusSpan&) = default;
};

struct StatusSpans {
    StatusSpan layer, space, message, place, references;
    friend bool operator==(const StatusSpans&, const StatusSpans&) = default;
};

/// What the fields need, in pixels with the room around their texts; 0 for a field that isn't there.
struct StatusWidths {
    int layer = 0, space = 0, place = 0, references = 0;
};

/// Lays the fields out in a line of that width. What stands at the right end is shown whole or, the place first, not at
/// all: a third of the line is left to the others. A name gets at most a quarter of the line and a third of what is
/// left, so that the message has room.
StatusSpans arrangeStatus(int line, const StatusWidths& widths);

} // namespace workbench
