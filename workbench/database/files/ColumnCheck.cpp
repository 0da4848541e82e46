// The ranges of the layer properties. A thousand states over ten thousand layers make fifty million values, so that
// each column is one pass without branches; the faulty value is looked for only when there is one.
#include "DrawingCheck.h"

#include <algorithm>

namespace zdr {
template <class T, class Valid>
void ColumnCheck::checkColumn(const Column<T>& column, std::size_t layerCount, const wchar_t* kind, const Place& place,
                              Valid valid) {
    if (column.size() != layerCount)
        refuse(place, L"has " + std::to_wstring(column.size()) + L" " + kind + L" for " + std::to_wstring(layerCount) +
                          L" layers");
    const std::span<const T> values = column.values();
    if (!m_checked.emplace(values.data(), values.size(), kind).second)
        return;
    std::uint32_t wrong = 0;
    for (const T value : values)
        wrong |= static_cast<std::uint32_t>(!valid(value));
    if (!wrong)
        return;
    const auto fault = std::find_if_not(values.begin(), values.end(), valid);
    refuse(place, L"has " + std::to_wstring(*fault) + L" among its " + kind + L", for its layer " +
                      std::to_wstring(fault - values.begin() + 1) + L", which isn't one of them");
}

void ColumnCheck::check(const LayerColumns& columns, std::size_t layerCount, ColumnsOf owner, const Place& place) {
    const auto& [flags, colors, linetypes, lineWeights, plotStyles] = columns; // a sixth doesn't compile
    if (owner == ColumnsOf::State)
        checkColumn(flags, layerCount, L"state flags", place,
                    [](std::uint8_t value) { return (value & ~kStateFlags) == 0; });
    else
        checkColumn(flags, layerCount, L"layer flags", place,
                    [](std::uint8_t value) { return (value & ~kDrawingFlags) == 0; });
    // Lambdas, because a pointer to a function would keep the loop from being unrolled.
    checkColumn(
        colors, layerCount, L"colours", place,
        [count = static_cast<std::uint32_t>(m_namedColorCount)](ColorId color) { return isColor(color, count); });
    checkColumn(lineWeights, layerCount, L"lineweights", place,
                [](std::int16_t weight) { return isLineWeight(weight); });
    const auto isStyle = [count = static_cast<std::uint32_t>(m_styleCount)](NameId style) { return style < count; };
    checkColumn(linetypes, layerCount, L"linetypes", place, isStyle);
    checkColumn(plotStyles, layerCount, L"plot styles", place, isStyle);
}

} // namespace zdr
