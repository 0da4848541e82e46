// The values of extended data, packed into two blocks of memory however many there are: a walk over many objects' data
// would otherwise wait for each of their texts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace zdr {

/// One value: a number or, as somebody else's, a text. A code tells which of them it ought to be.
struct ExtendedValue {
    std::int16_t code = 0;
    std::variant<std::int32_t, std::wstring_view> value;
    friend bool operator==(const ExtendedValue&, const ExtendedValue&) = default;
};

class ExtendedValues {
    struct Item {
        std::int16_t code;
        bool isText;
        std::uint32_t number; ///< of a text its length
        friend bool operator==(const Item&, const Item&) = default;
    };

  public:
    /// Goes forward over values, which refer to the texts kept.
    class Iterator {
      public:
        using value_type = ExtendedValue;
        using difference_type = std::ptrdiff_t;
        Iterator() = default;
        Iterator(const Item* item, const wchar_t* text) : m_item(item), m_text(text) {}
        ExtendedValue operator*() const {
            if (m_item->isText)
                return {m_item->code, std::wstring_view(m_text, m_item->number)};
            return {m_item->code, static_cast<std::int32_t>(m_item->number)};
        }
        Iterator& operator++() {
            if (m_item->isText)
                m_text += m_item->number;
            ++m_item;
            return *this;
        }
        Iterator operator++(int) {
            const Iterator before = *this;
            ++*this;
            return before;
        }
        bool operator==(const Iterator& other) const { return m_item == other.m_item; }

      private:
        const Item* m_item = nullptr;
        const wchar_t* m_text = nullptr;
    };

    ExtendedValues() = default;
    ExtendedValues(std::initializer_list<ExtendedValue> values) {
        for (const ExtendedValue& value : values)
            add(value);
    }
    std::size_t size() const { return m_items.size(); }
    bool empty() const { return m_items.empty(); }
    Iterator begin() const { return {m_items.data(), m_texts.data()}; }
    Iterator end() const { return {m_items.data() + m_items.size(), nullptr}; }
    /// Makes room for that many values, and that many characters in all their texts.
    void reserve(std::size_t values, std::size_t characters) {
        m_items.reserve(values);
        m_texts.reserve(characters);
    }
    void add(const ExtendedValue& value) {
        if (const auto* text = std::get_if<std::wstring_view>(&value.value)) {
            m_texts.append(*text);
            m_items.push_back({value.code, true, static_cast<std::uint32_t>(text->size())});
        } else {
            m_items.push_back({value.code, false, static_cast<std::uint32_t>(std::get<std::int32_t>(value.value))});
        }
    }
    friend bool operator==(const ExtendedValues&, const ExtendedValues&) = default;

  private:
    std::vector<Item> m_items;
    std::wstring m_texts; // one behind the other
};

} // namespace zdr
