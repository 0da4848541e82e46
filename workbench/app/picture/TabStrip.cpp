#include "TabStrip.h"

#include <algorithm>

namespace workbench {

void TabStrip::arrange(const std::vector<int>& widths, const Sizes& sizes) {
    m_starts.assign(1, 0);
    for (const int width : widths)
        m_starts.push_back(m_starts.back() + width);
    m_sizes = sizes;
    m_first = std::min(m_first, lastFirst());
}

bool TabStrip::isTooNarrow() const {
    return count() > 0 && m_starts.back() > m_sizes.bar - 2 * m_sizes.margin;
}

TabStrip::Span TabStrip::room() const {
    const int buttons = isTooNarrow() ? 2 * m_sizes.button : 0;
    return {m_sizes.margin, std::max(m_sizes.margin, m_sizes.bar - m_sizes.margin - buttons)};
}

/// The first tab in sight when the strip is scrolled to its end.
std::size_t TabStrip::lastFirst() const {
    if (!isTooNarrow())
        return 0;
    const int space = room().right - room().left;
    std::size_t first = 0;
    while (first + 1 < count() && m_starts.back() - m_starts[first] > space)
        ++first;
    return first;
}

void TabStrip::reveal(std::size_t tab) {
    if (tab >= count())
        return;
    const int space = room().right - room().left;
    m_first = std::min(m_first, tab);
    while (m_first < tab && m_starts[tab + 1] - m_starts[m_first] > space)
        ++m_first;
    m_first = std::min(m_first, lastFirst());
}

bool TabStrip::scroll(int tabs) {
    const std::size_t before = m_first;
    const auto wanted = static_cast<std::ptrdiff_t>(m_first) + tabs;
    m_first = static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(wanted, 0, static_cast<std::ptrdiff_t>(lastFirst())));
    return m_first != before;
}

TabStrip::Span TabStrip::whole(std::size_t index) const {
    if (index >= count())
        return {};
    const int origin = m_sizes.margin - m_starts[m_first];
    return {origin + m_starts[index], origin + m_starts[index + 1]};
}

TabStrip::Span TabStrip::tab(std::size_t index) const {
    const Span all = whole(index);
    const Span seen{std::max(all.left, room().left), std::min(all.right, room().right)};
    return seen.isEmpty() ? Span{} : seen;
}

TabStrip::Span TabStrip::back() const {
    const int right = room().right;
    return isTooNarrow() ? Span{right, right + m_sizes.button} : Span{};
}

TabStrip::Span TabStrip::forward() const {
    const int left = back().right;
    return isTooNarrow() ? Span{left, left + m_sizes.button} : Span{};
}

} // namespace workbench
