// Hashes for containers whose keys come from files. Their seed is drawn anew in each run, so that nobody can choose
// names or handles that all fall into one place of a table, where each would be compared with all the others.
#pragma once

#include "KelExport.h"

#include <cstddef>
#include <cstdint>

namespace zdr {

/// The hash of a sequence of numbers: they are the coefficients of a polynomial, which is evaluated at the seed modulo
/// the prime 2^61 - 1. So two sequences of n numbers, whoever chose them, are the same there with a probability of
/// about n / 2^60 at most.
class SeededHash {
  public:
    void add(std::uint32_t number) noexcept {
        const Wide sum = static_cast<Wide>(m_value) * m_seed + number;
        m_value = (static_cast<std::uint64_t>(sum) & kPrime) + static_cast<std::uint64_t>(sum >> 61);
        m_value = (m_value & kPrime) + (m_value >> 61);
    }
    std::size_t value() const noexcept {
        std::uint64_t mixed = m_value * (m_seed | 1); // tables use the lower bits alone
        mixed = (mixed ^ mixed >> 32) * 0x9E3779B97F4A7C15;
        return static_cast<std::size_t>(mixed ^ mixed >> 29);
    }

  private:
    __extension__ using Wide = unsigned __int128;
    static constexpr std::uint64_t kPrime = (std::uint64_t{1} << 61) - 1;
    /// At least 2^60 and below the prime; the same for the life of the program.
    KELDB_API static std::uint64_t seed() noexcept;

    std::uint64_t m_seed = seed();
    std::uint64_t m_value = 1; // so that zeros in front count
};

struct HandleHash {
    std::size_t operator()(std::uint64_t handle) const noexcept {
        SeededHash hash;
        hash.add(static_cast<std::uint32_t>(handle));
        hash.add(static_cast<std::uint32_t>(handle >> 32));
        return hash.value();
    }
};

} // namespace zdr
