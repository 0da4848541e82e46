// A 64-bit fingerprint of a file's bytes, fast enough to be taken of every file that is read or written. It tells a
// changed file from an unchanged one; it is no protection against someone who wants two files to look alike.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace zdr {

class ContentHash {
  public:
    /// Adds the next bytes; how a file is cut into calls doesn't matter.
    void add(std::span<const std::byte> bytes);
    /// The fingerprint of all bytes so far.
    std::uint64_t value() const;

  private:
    static constexpr std::size_t kBlock = 32;
    void addBlocks(const std::byte* bytes, std::size_t count);

    std::array<std::uint64_t, 4> m_lanes{1, 2, 3, 4};
    std::array<std::byte, kBlock> m_rest{}; // bytes that don't fill a block yet
    std::uint64_t m_size = 0;
};

} // namespace zdr
