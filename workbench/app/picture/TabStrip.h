// Where tabs stand in a bar that may be too narrow for all of them.
#pragma once

#include <cstddef>
#include <vector>

namespace workbench {

class TabStrip {
  public:
    /// A stretch of the bar in pixels from its left end.
    struct Span {
        int left = 0, right = 0;
        bool isEmpty() const { return right <= left; }
        bool contains(int x) const { return x >= left && x < right; }
    };
    /// Widths in pixels: of the bar, of what stays free at each of its ends, and of one scroll button.
    struct Sizes {
        int bar = 0, margin = 0, button = 0;
    };

    /// Lays out tabs of these widths. The tab that stood first stays first, unless there is room for one before it.
    void arrange(const std::vector<int>& widths, const Sizes& sizes);
    /// Brings a tab into sight, scrolling no further than needed.
    void reveal(std::size_t tab);
    /// Scrolls by that many tabs, forward when positive. Answers whether anything has moved.
    bool scroll(int tabs);

    /// The part of a tab that is in sight; empty when none is, or there is no such tab.
    Span tab(std::size_t index) const;
    /// The whole of a tab, which may reach beyond what is in sight.
    Span whole(std::size_t index) const;
    /// The part of the bar in which tabs are shown.
    Span room() const;
    /// The scroll buttons at the right end; empty when all tabs have room.
    Span back() const;
    Span forward() const;
    bool canGoBack() const { return m_first > 0; }
    bool canGoForward() const { return m_first < lastFirst(); }

  private:
    std::size_t count() const { return m_starts.empty() ? 0 : m_starts.size() - 1; }
    bool isTooNarrow() const;
    std::size_t lastFirst() const;

    std::vector<int> m_starts; // where each tab starts, from the start of the first one; at the end the width of all
    Sizes m_sizes;
    std::size_t m_first = 0; // the first tab in sight
};

} // namespace workbench
