// The host's growable array.
#pragma once

#include <algorithm>
#include <utility>
#include <vector>

/// A growable array. It grows by at least its grow length, and in proportion to its size once it is larger than that,
/// so that appending stays cheap. Emptying keeps the memory.
template <class T> class KelArray {
  public:
    explicit KelArray(int physicalLength = 0, int growLength = 8) : m_growLength(growLength) {
        m_items.reserve(static_cast<std::size_t>(physicalLength));
    }

    /// The logical length, in elements.
    int length() const { return static_cast<int>(m_items.size()); }
    bool isEmpty() const { return m_items.empty(); }
    /// Elements that fit before memory is taken again.
    int physicalLength() const { return static_cast<int>(m_items.capacity()); }
    int growLength() const { return m_growLength; }
    void setGrowLength(int growLength) { m_growLength = growLength; }

    /// Appends a copy and answers its index.
    int append(const T& item) {
        T copy(item); // made first, because the item may be one of the array's own, which growing moves
        if (m_items.size() == m_items.capacity()) {
            const std::size_t atLeast = static_cast<std::size_t>(std::max(m_growLength, 1));
            m_items.reserve(m_items.size() + std::max(atLeast, m_items.size()));
        }
        m_items.push_back(std::move(copy));
        return length() - 1;
    }
    /// Sets the logical length; new elements are default values, memory is never given back.
    void setLogicalLength(int length) { m_items.resize(static_cast<std::size_t>(length)); }

    T& operator[](int index) { return m_items[static_cast<std::size_t>(index)]; }
    const T& operator[](int index) const { return m_items[static_cast<std::size_t>(index)]; }
    const T& at(int index) const { return m_items.at(static_cast<std::size_t>(index)); }

    auto begin() { return m_items.begin(); }
    auto end() { return m_items.end(); }
    auto begin() const { return m_items.begin(); }
    auto end() const { return m_items.end(); }

  private:
    std::vector<T> m_items;
    int m_growLength;
};
