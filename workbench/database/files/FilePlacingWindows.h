// The last step of saving: the new file takes the place of the old one.
#pragma once

#include <filesystem>
#include <string>

namespace zdr {

/// Gives `made` the name `target`, and what belongs to the file that has this name, if there is one: attributes, access
/// list, named streams, the time of its making. Refuses when that can't be, and then the old file is what and where it
/// was.
/// @param made as the system takes it; afterwards the path of what is to be removed, empty for nothing
void placeFile(std::filesystem::path& made, const std::wstring& target);

} // namespace zdr
