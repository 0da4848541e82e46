// One layer's row of the columns. What can fail is done for all columns first, so that a row is written whole or not at
// all.

#include "Changes.h"

namespace engine {

using zdr::forEachColumn;

LayerValues valuesAt(const zdr::LayerColumns& columns, std::size_t index) {
    LayerValues values;
    forEachColumn([index](const auto& column, auto& value) { value = column[index]; }, columns, values);
    return values;
}

void setValuesAt(zdr::LayerColumns& columns, std::size_t index, const LayerValues& values) {
    const auto makeOwn = [index](auto& column, const auto& value) {
        if (column[index] != value)
            column.makeRoom(0);
    };
    const auto write = [index](auto& column, const auto& value) {
        if (column[index] != value)
            column.set(index, value);
    };
    forEachColumn(makeOwn, columns, values);
    forEachColumn(write, columns, values);
}

void appendValues(zdr::LayerColumns& columns, const LayerValues& values) {
    insertValues(columns, columns.flags.size(), values);
}

void makeRoomForValues(zdr::LayerColumns& columns, std::size_t more) {
    forEachColumn([more](auto& column) { column.makeRoom(more); }, columns);
}

void insertValues(zdr::LayerColumns& columns, std::size_t index, const LayerValues& values) {
    makeRoomForValues(columns, 1);
    forEachColumn([index](auto& column, const auto& value) { column.insert(index, value); }, columns, values);
}

void eraseValues(zdr::LayerColumns& columns, std::size_t index) {
    makeRoomForValues(columns, 0);
    forEachColumn([index](auto& column) { column.erase(index); }, columns);
}

} // namespace engine
