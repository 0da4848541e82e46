// One layer's row of the columns. See Changes.h. What can fail is done for all columns first, so that a row is written
// whole or not at all.

#include "Changes.h"

namespace engine {
namespace {

// Calls `action` for each column together with the member of LayerValues that stands in it.
template <class Columns, class Action> void forEachColumn(Columns& columns, Action action) {
    action(columns.flags, &LayerValues::flags);
    action(columns.colors, &LayerValues::color);
    action(columns.linetypes, &LayerValues::linetype);
    action(columns.lineWeights, &LayerValues::lineWeight);
    action(columns.plotStyles, &LayerValues::plotStyle);
}

} // namespace

LayerValues valuesAt(const zdr::LayerColumns& columns, std::size_t index) {
    LayerValues values;
    forEachColumn(columns, [&](const auto& column, auto member) { values.*member = column[index]; });
    return values;
}

void setValuesAt(zdr::LayerColumns& columns, std::size_t index, const LayerValues& values) {
    const auto differs = [&](const auto& column, auto member) { return column[index] != values.*member; };
    forEachColumn(columns, [&](auto& column, auto member) {
        if (differs(column, member))
            column.makeRoom(0);
    });
    forEachColumn(columns, [&](auto& column, auto member) {
        if (differs(column, member))
            column.set(index, values.*member);
    });
}

void appendValues(zdr::LayerColumns& columns, const LayerValues& values) {
    insertValues(columns, columns.flags.size(), values);
}

void makeRoomForValues(zdr::LayerColumns& columns, std::size_t more) {
    forEachColumn(columns, [more](auto& column, auto) { column.makeRoom(more); });
}

void insertValues(zdr::LayerColumns& columns, std::size_t index, const LayerValues& values) {
    makeRoomForValues(columns, 1);
    forEachColumn(columns, [&](auto& column, auto member) { column.insert(index, values.*member); });
}

void eraseValues(zdr::LayerColumns& columns, std::size_t index) {
    makeRoomForValues(columns, 0);
    forEachColumn(columns, [&](auto& column, auto) { column.erase(index); });
}

} // namespace engine
