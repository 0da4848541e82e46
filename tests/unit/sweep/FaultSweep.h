// Replays a scenario with each host call in it failing once, and with each allocation of what the host hands out
// failing once, and checks each time that everything was given back and that the drawing is whole.
#pragma once

#include "KelDbDatabase.h"

#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace sweep {

struct Scenario {
    /// What is done before, without faults.
    std::function<void(KelDbDatabase&)> prepare;
    /// What is replayed, on a new database that is the working one. It may stop at any failure, but has to close and
    /// free what it holds.
    std::function<void(KelDbDatabase&)> run;
    /// Whether the scenario has done what it is for; asked after the run in which nothing fails.
    std::function<bool(KelDbDatabase&)> isDone;
    /// Whether what the scenario left behind may be so; asked after every run. May be empty.
    std::function<bool(KelDbDatabase&)> isFit = {};
};

struct Result {
    int failures = 0;                  ///< how many calls or allocations were made to fail, each in a run of its own
    std::vector<std::string> problems; ///< what was wrong afterwards, with what had failed; empty when all is well
};
void PrintTo(const Result& result, std::ostream* out);

/// Each host call that can fail, in the order in which the scenario makes them, with statusOf() its operation.
Result failEachCall(const Scenario& scenario);
/// Each allocation of a text or a chain that the host hands out.
Result failEachAllocation(const Scenario& scenario);

/// A status with which an operation may well fail.
Vorn::ErrorStatus statusOf(std::string_view operation);

} // namespace sweep
