// What is checked before a drawing file's tables are read: the mark, the version, the length, and that every offset
// leads to a place in the file.
#pragma once

#include <drawing_generated.h>

#include <cstddef>
#include <span>

namespace zdr {

/// The versions of the schema. A file bears the lowest one that can hold what is in it, so that older programs read
/// what they can.
inline constexpr std::uint32_t kFirstVersion = 1;
inline constexpr std::uint32_t kNamedColorsVersion = 2;
inline constexpr std::uint32_t kLinetypeScaleVersion = 3;
inline constexpr std::uint32_t kUnloadedVersion = 4;
/// The newest version that this program reads. It grows with every change of the schema.
inline constexpr std::uint32_t kFileVersion = kUnloadedVersion;

/// No drawing file is larger: offsets in it have 31 bits.
inline constexpr std::uint64_t kLargestFile = FLATBUFFERS_MAX_BUFFER_SIZE - 1;

/// The tables in a file's bytes, once they are safe to look at. Throws a Refusal that tells a file of another kind, a
/// shortened one, a newer one and a damaged one apart.
const file::Drawing& verifiedDrawing(std::span<const std::byte> bytes);

/// Throws a Refusal once tables being built can't become a file any more.
void checkSize(std::uint64_t bytes);

} // namespace zdr
