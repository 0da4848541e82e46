// From the bytes of a drawing file to a drawing. Nothing of the bytes is believed: the verifier looks at every offset,
// and what the tables say is checked against each other.
#pragma once

#include "Refusal.h"

#include <memory>
#include <span>

namespace zdr {

/// The drawing in `bytes`, whose address is a multiple of 8; columns of states look at them and keep `owner`. Throws a
/// Refusal. References come without their drawings.
Drawing drawingFromBytes(std::span<const std::byte> bytes, std::shared_ptr<const void> owner);

} // namespace zdr
