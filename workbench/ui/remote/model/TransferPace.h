// Whether a transfer is so slow that it isn't worth waiting for.
#pragma once

#include <chrono>
#include <cstdint>

namespace remote {

/// The least that a transfer has to do.
struct LeastPace {
    std::uint64_t bytesPerSecond;
    std::chrono::milliseconds span; ///< in each of these it has to keep up
};

/// Counts what a transfer does, span after span.
class TransferPace {
  public:
    using Clock = std::chrono::steady_clock;
    TransferPace(const LeastPace& least, Clock::time_point start) : m_least(least), m_spanStart(start) {}

    /// @param done the bytes transferred so far
    /// @return false when too little of them came within a span that is over
    bool keepsUp(std::uint64_t done, Clock::time_point now);

  private:
    LeastPace m_least;
    Clock::time_point m_spanStart;
    std::uint64_t m_doneBefore = 0; ///< at the start of the span
};

} // namespace remote
