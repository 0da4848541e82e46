// One layer's row of the columns. See Changes.h.

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
    forEachColumn(columns, [&](auto& column, auto member) {
        if (column[index] != values.*member)
            column.set(index, values.*member);
    });
}

void appendValues(zdr::LayerColumns& columns, const LayerValues& values) {
    insertValues(columns, columns.flags.size(), values);
}

void insertValues(zdr::LayerColumns& columns, std::size_t index, const LayerValues& values) {
    forEachColumn(columns, [&](auto& column, auto member) {
        auto& items = column.edit();
        items.insert(items.begin() + static_cast<std::ptrdiff_t>(index), values.*member);
        column.look();
    });
}

void eraseValues(zdr::LayerColumns& columns, std::size_t index) {
    forEachColumn(columns, [&](auto& column, auto) {
        auto& items = column.edit();
        items.erase(items.begin() + static_cast<std::ptrdiff_t>(index));
        column.look();
    });
}

} // namespace engine
