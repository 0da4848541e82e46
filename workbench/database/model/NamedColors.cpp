#include "NamedColors.h"

#include "SeededHash.h"

#include <algorithm>
#include <string_view>

namespace zdr {

std::size_t NamedColors::Hash::operator()(const KelCmColor& color) const {
    SeededHash hash;
    hash.add(color.packed());
    for (const std::wstring_view name : {color.colorName(), color.bookName()}) {
        for (const wchar_t character : name)
            hash.add(static_cast<std::uint32_t>(character));
        hash.add(0);
    }
    return hash.value();
}

ColorId NamedColors::intern(const KelCmColor& color) {
    if (!color.hasColorName() && !color.hasBookName())
        return color.packed();
    if (const auto found = m_ids.find(color); found != m_ids.end())
        return found->second;
    const auto id = kFirstNamedColor + static_cast<ColorId>(m_colors.size());
    m_colors.push_back(color);
    try {
        m_ids.emplace(color, id);
    } catch (...) {
        m_colors.pop_back();
        throw;
    }
    return id;
}

Column<ColorId> NamedColors::take(const Column<ColorId>& column, const NamedColors& from) {
    if (from.size() == 0 || std::ranges::none_of(column.values(), isNamedColor))
        return column;
    std::vector<ColorId> colors;
    colors.reserve(column.size());
    for (const ColorId color : column.values())
        colors.push_back(take(color, from));
    return Column<ColorId>(std::move(colors));
}

} // namespace zdr
