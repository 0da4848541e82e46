// A fuzzer's input, taken apart.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

/// Reads the input from its front; answers zeros past its end.
class Input {
  public:
    Input(const unsigned char* data, std::size_t size) : m_rest(data, size) {}
    bool isEmpty() const { return m_rest.empty(); }
    std::uint32_t number(int bytes) {
        std::uint32_t value = 0;
        for (int i = 0; i < bytes; ++i)
            value |= static_cast<std::uint32_t>(byte()) << (8 * i);
        return value;
    }
    std::string text() {
        const std::size_t length = std::min<std::size_t>(byte(), m_rest.size());
        std::string text(reinterpret_cast<const char*>(m_rest.data()), length);
        m_rest = m_rest.subspan(length);
        return text;
    }

  private:
    unsigned char byte() {
        if (m_rest.empty())
            return 0;
        const unsigned char first = m_rest.front();
        m_rest = m_rest.subspan(1);
        return first;
    }
    std::span<const unsigned char> m_rest;
};
