// What belongs to a file beside its content: owner, group, rights, access list and further attributes.
#pragma once

#include <filesystem>

namespace zdr {

/// Gives an open file what belongs to `old`; nothing when that isn't there. Refuses where something can't be given or
/// doesn't last.
void keepBelongings(int handle, const std::filesystem::path& old);

} // namespace zdr
