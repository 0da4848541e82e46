// Lets one allocation of this program fail, and measures what it has allocated. Only natively, where its operator new
// is also the engine's.
#pragma once

#include <cstddef>

class FailingAllocation {
  public:
    /// @param nth which allocation from now on: 1 for the next
    explicit FailingAllocation(int nth);
    ~FailingAllocation();
    FailingAllocation(const FailingAllocation&) = delete;
    FailingAllocation& operator=(const FailingAllocation&) = delete;
    bool hasStruck() const;
};

/// The most memory that was allocated at one moment, beyond what was when the measuring began. One at a time.
class PeakMemory {
  public:
    PeakMemory();
    ~PeakMemory();
    PeakMemory(const PeakMemory&) = delete;
    PeakMemory& operator=(const PeakMemory&) = delete;
    std::size_t bytes() const;
};

/// The bytes that all allocations so far have asked for, given back or not.
std::size_t allocatedBytes();
