// Whether the parts of a drawing agree with each other. The same rules hold for a drawing that comes from a file and
// for one that goes into a file, so that nothing is ever written that could not be read.
#pragma once

#include "Refusal.h"

#include <set>
#include <tuple>

namespace zdr {

inline constexpr std::uint32_t kColorByLayer = 256;
/// Whether a packed colour is an index or a true colour.
constexpr bool isColor(std::uint32_t color) {
    return static_cast<bool>(static_cast<int>(color <= kColorByLayer) | static_cast<int>(color >> 24 == 0xC2));
}
/// The longest name of a layer or style of a reference: the names of the references that it is nested in and its own,
/// with "!" between them.
inline constexpr std::size_t kLongestReferenceName = 32 * 256;

/// Whether a lineweight lies in the range of the known ones.
constexpr bool isLineWeight(std::int16_t weight) {
    return static_cast<bool>(static_cast<int>(weight >= -3) & static_cast<int>(weight <= 211));
}

/// Whose columns are checked: only a state's flags may tell what was frozen in a viewport.
enum class ColumnsOf { Drawing, State };

/// Checks columns of layer properties; columns that several holders share are looked at once.
class ColumnCheck {
  public:
    /// `styleCount`: the numbers of linetypes and plot styles must be below it.
    explicit ColumnCheck(std::size_t styleCount) : m_styleCount(styleCount) {}
    /// Throws a Refusal unless all columns have `layerCount` values, each within its range.
    void check(const LayerColumns& columns, std::size_t layerCount, ColumnsOf owner, const Place& place);

  private:
    template <class T, class Valid>
    void checkColumn(const Column<T>& column, std::size_t layerCount, const wchar_t* kind, const Place& place,
                     Valid valid);

    std::size_t m_styleCount;
    std::set<std::tuple<const void*, std::size_t, const wchar_t*>> m_checked; // values, their number, their kind
};

/// Throws a Refusal unless everything in the drawing but its columns agrees: names, handles, indices, numbers.
void checkDrawing(const Drawing& drawing);

} // namespace zdr
