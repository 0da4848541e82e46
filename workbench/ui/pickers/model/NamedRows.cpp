#include "NamedRows.h"

#include "model/CaseFolding.h"

#include <algorithm>

namespace pickers {
namespace {

template <class Rows, class Predicate> std::optional<std::size_t> rowWhere(const Rows& rows, Predicate predicate) {
    const auto found = std::find_if(rows.begin(), rows.end(), predicate);
    return found == rows.end() ? std::nullopt : std::optional<std::size_t>(found - rows.begin());
}

/// The group of a row among those of the linetypes.
int groupOf(const LinetypeRow& row) {
    if (row.reference)
        return 0;
    return row.pattern.empty() ? 1 : 2;
}

} // namespace

void putInOrder(std::vector<LinetypeRow>& rows) {
    std::stable_sort(rows.begin(), rows.end(), [](const LinetypeRow& a, const LinetypeRow& b) {
        if (groupOf(a) != groupOf(b))
            return groupOf(a) < groupOf(b);
        return groupOf(a) != 0 && zdr::compareFolded(a.name, b.name) < 0;
    });
}

std::optional<std::size_t> rowOfLinetype(const std::vector<LinetypeRow>& rows, KelDbObjectId linetype) {
    return rowWhere(rows, [linetype](const LinetypeRow& row) { return !linetype.isNull() && row.id == linetype; });
}

void putInOrder(std::vector<std::wstring>& names) {
    std::stable_sort(names.begin(), names.end(),
                     [](const std::wstring& a, const std::wstring& b) { return zdr::compareFolded(a, b) < 0; });
}

std::optional<std::size_t> rowOfName(const std::vector<std::wstring>& names, std::wstring_view name) {
    return rowWhere(names, [name](const std::wstring& candidate) { return zdr::equalFolded(candidate, name); });
}

} // namespace pickers
