// Running a sequence of operations on the model and on the engine, and making a sequence that shows a difference small.
#pragma once

#include "Operation.h"

#include <functional>

namespace model {

/// Where the two differ.
struct Divergence {
    std::size_t operation = 0; ///< after which
    std::string what;
};

/// Does the operations on both, beginning with a new drawing; none when they agree to the end and the engine's drawing
/// is whole then.
std::optional<Divergence> run(const std::vector<Operation>& operations);

/// A sequence of random operations; the same seed makes the same sequence on every system.
std::vector<Operation> randomSequence(std::uint32_t seed, std::size_t length);

/// A part of a sequence that still fails, as small and with as simple arguments as a quick search finds.
std::vector<Operation> shrink(std::vector<Operation> operations,
                              const std::function<bool(const std::vector<Operation>&)>& fails);

/// A test case to be kept: the operations, a line each, and what differs.
std::string report(const std::vector<Operation>& operations);

} // namespace model
