// A column of plain values that many holders share until one of them changes it. Saving a layer state shares the
// drawing's columns, undoing shares the old ones, and a drawing read from a file shares the file's bytes.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>
#include <span>
#include <type_traits>
#include <utility>
#include <vector>

namespace zdr {

/// Makes room for `more` elements, so that appending them can't fail; the room at least doubles, so that it takes no
/// longer in many small steps than in one.
template <class List> void makeRoom(List& list, std::size_t more) {
    if (list.capacity() - list.size() < more)
        list.reserve(std::max(list.size() + more, 2 * list.size()));
}

/// Takes the elements at all marked places out of a list, in one pass and without memory.
template <class List> void eraseMarked(List& list, const std::vector<bool>& gone) {
    std::size_t kept = 0;
    for (std::size_t i = 0; i < list.size(); ++i) {
        if (gone[i])
            continue;
        if (kept != i)
            list[kept] = std::move(list[i]);
        ++kept;
    }
    list.erase(list.begin() + static_cast<std::ptrdiff_t>(kept), list.end());
}

template <class T> class Column {
    static_assert(std::is_trivially_copyable_v<T>);

  public:
    Column() = default;
    explicit Column(std::vector<T> values)
        : m_own(std::make_shared<std::vector<T>>(std::move(values))), m_values(*m_own) {}
    /// A view of values that `owner` keeps alive, such as the bytes of a file.
    Column(std::shared_ptr<const void> owner, std::span<const T> values)
        : m_owner(std::move(owner)), m_values(values) {}

    std::size_t size() const { return m_values.size(); }
    const T& operator[](std::size_t index) const { return m_values[index]; }
    std::span<const T> values() const { return m_values; }

    /// Whether both hold the same values; doesn't look at values that they share.
    bool equals(const Column& other) const {
        if (size() != other.size())
            return false;
        return m_values.data() == other.m_values.data() || size() == 0 ||
               std::memcmp(m_values.data(), other.m_values.data(), m_values.size_bytes()) == 0;
    }

    /// The values to write to; copied first unless this is their only holder. A span that values() answered before
    /// isn't this column's any more, and the span answered here may not be written to once the column is shared again.
    std::span<T> write() {
        if (!isOnlyHolder())
            takeOver(std::make_shared<std::vector<T>>(m_values.begin(), m_values.end()));
        return *m_own;
    }
    /// Writes one value.
    void set(std::size_t index, T value) { write()[index] = value; }
    /// Makes room for `more` values: putting them in, writing and taking out then needs no memory and can't fail.
    void makeRoom(std::size_t more) {
        const std::size_t needed = size() + more;
        if (isOnlyHolder() && needed <= m_own->capacity())
            return;
        auto roomy = std::make_shared<std::vector<T>>();
        roomy->reserve(isOnlyHolder() ? std::max(needed, 2 * size()) : needed);
        roomy->assign(m_values.begin(), m_values.end());
        takeOver(std::move(roomy));
    }
    void insert(std::size_t index, T value) {
        makeRoom(1);
        m_own->insert(m_own->begin() + static_cast<std::ptrdiff_t>(index), value);
        m_values = *m_own;
    }
    void erase(std::size_t index) {
        makeRoom(0);
        m_own->erase(m_own->begin() + static_cast<std::ptrdiff_t>(index));
        m_values = *m_own;
    }

    /// Takes the values at all marked places out.
    void eraseMarked(const std::vector<bool>& gone) {
        makeRoom(0);
        zdr::eraseMarked(*m_own, gone);
        m_values = *m_own;
    }

  private:
    bool isOnlyHolder() const { return m_own && m_own.use_count() == 1; }
    void takeOver(std::shared_ptr<std::vector<T>> values) {
        m_own = std::move(values);
        m_owner.reset();
        m_values = *m_own;
    }

    std::shared_ptr<std::vector<T>> m_own;
    std::shared_ptr<const void> m_owner;
    std::span<const T> m_values; // of m_own or m_owner
};

} // namespace zdr
