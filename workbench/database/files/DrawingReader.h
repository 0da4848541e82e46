// From the bytes of a drawing file to a drawing. The bytes aren't trusted: the verifier looks at every offset, and the
// tables are checked against each other.
#pragma once

#include "Refusal.h"

#include <memory>
#include <span>

namespace zdr {

/// The drawing in `bytes`, whose address must be a multiple of 8. Columns use the bytes in place and keep `owner`
/// alive. Throws a Refusal. References come without their drawings.
Drawing drawingFromBytes(std::span<const std::byte> bytes, std::shared_ptr<const void> owner);

} // namespace zdr
