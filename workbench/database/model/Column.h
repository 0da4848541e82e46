// A column of plain values that many holders share until one of them changes it. Saving a layer state shares the
// drawing's columns, undoing shares the old ones, and a drawing read from a file shares the file's bytes.
#pragma once

#include <cstddef>
#include <cstring>
#include <memory>
#include <span>
#include <type_traits>
#include <vector>

namespace zdr {

template <class T> class Column {
    static_assert(std::is_trivially_copyable_v<T>);

  public:
    Column() = default;
    explicit Column(std::vector<T> values) : m_own(std::make_shared<std::vector<T>>(std::move(values))) { look(); }
    /// A view of values that `owner` keeps alive, such as the bytes of a file.
    Column(std::shared_ptr<const void> owner, std::span<const T> values)
        : m_owner(std::move(owner)), m_values(values) {}

    std::size_t size() const { return m_values.size(); }
    const T& operator[](std::size_t index) const { return m_values[index]; }
    std::span<const T> values() const { return m_values; }

    /// Whether both hold the same values; at once when they share them.
    bool equals(const Column& other) const {
        if (size() != other.size())
            return false;
        return m_values.data() == other.m_values.data() || size() == 0 ||
               std::memcmp(m_values.data(), other.m_values.data(), m_values.size_bytes()) == 0;
    }

    /// The values to write to; copied first unless this is their only holder. Pointers from values() end their life.
    std::vector<T>& edit() {
        if (!m_own || m_own.use_count() != 1) {
            m_own = std::make_shared<std::vector<T>>(m_values.begin(), m_values.end());
            m_owner.reset();
        }
        return *m_own;
    }
    /// To be called after edit() changed the number of values.
    void look() { m_values = {m_own->data(), m_own->size()}; }
    /// Writes one value.
    void set(std::size_t index, T value) {
        edit()[index] = value;
        look();
    }

  private:
    std::shared_ptr<std::vector<T>> m_own;
    std::shared_ptr<const void> m_owner;
    std::span<const T> m_values;
};

} // namespace zdr
