// Whether the parts of a drawing agree with each other. The same rules hold for a drawing that comes from a file and
// for one that goes into a file, so that nothing is ever written that could not be read.
#pragma once

#include "Refusal.h"
#include "values/LineWeights.h"
#include "values/NameRules.h"

#include <optional>
#include <set>
#include <tuple>

namespace zdr {

inline constexpr ColorId kColorByLayer = 256;
/// Whether a colour is an index, a true colour, or one of so many named ones.
constexpr bool isColor(ColorId color, std::uint32_t namedColors) {
    return static_cast<bool>(static_cast<int>(color <= kColorByLayer) | static_cast<int>(color >> 24 == 0xC2) |
                             static_cast<int>(color - kFirstNamedColor < namedColors));
}

/// Whether a lineweight lies in the range of the known ones.
constexpr bool isLineWeight(std::int16_t weight) {
    return static_cast<bool>(static_cast<int>(weight >= engine::kLineWeightDefault) &
                             static_cast<int>(weight <= engine::kWidestLine));
}

/// The names of a reference, of those nested in it, and of the layer or style itself, with "!" between them.
inline constexpr std::size_t kLongestReferenceName = 32 * (engine::kMaxNameLength + 1);
/// What keeps a text from being a name of at most `longest` 16-bit characters, as the end of a sentence; none when it
/// is one.
std::optional<std::wstring> nameFault(std::wstring_view name, std::size_t longest);

/// Whose columns are checked: only a state's flags may tell what was frozen in a viewport.
enum class ColumnsOf { Drawing, State };

/// Checks columns of layer properties; a column that several holders share is looked at only once.
class ColumnCheck {
  public:
    /// `styleCount`: the numbers of linetypes and plot styles must be below it.
    ColumnCheck(std::size_t styleCount, std::size_t namedColorCount)
        : m_styleCount(styleCount), m_namedColorCount(namedColorCount) {}
    /// Throws a Refusal unless all columns have `layerCount` values, each within its range.
    void check(const LayerColumns& columns, std::size_t layerCount, ColumnsOf owner, const Place& place);

  private:
    template <class T, class Valid>
    void checkColumn(const Column<T>& column, std::size_t layerCount, const wchar_t* kind, const Place& place,
                     Valid valid);

    std::size_t m_styleCount, m_namedColorCount;
    std::set<std::tuple<const void*, std::size_t, const wchar_t*>> m_checked; // values, their number, their kind
};

/// Throws a Refusal unless everything in the drawing but its columns agrees: names, handles, indices, numbers.
void checkDrawing(const Drawing& drawing);

} // namespace zdr
