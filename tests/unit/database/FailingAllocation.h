// Lets one allocation of this program fail. Only natively, where its operator new is also the engine's.
#pragma once

class FailingAllocation {
  public:
    /// @param nth which allocation from now on: 1 for the next
    explicit FailingAllocation(int nth);
    ~FailingAllocation();
    FailingAllocation(const FailingAllocation&) = delete;
    FailingAllocation& operator=(const FailingAllocation&) = delete;
    bool hasStruck() const;
};
