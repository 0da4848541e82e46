// Layer states files: one state a file, as JSON text with a stable order, so that people can read it and compare it line
// by line.
#pragma once

#include "DatabaseImp.h"

#include <filesystem>

namespace engine {

/// Reads a state into the drawing. `name` is the name that the file carries, as soon as it is known, also with
/// eDuplicateRecordName. eFileNotFound, eFileUnreadable, eInvalidInput for a file that isn't a layer states file or
/// contradicts itself, eNewerVersion.
Vorn::ErrorStatus readStateFile(DatabaseImp& database, const std::filesystem::path& file, std::wstring& name);
/// Writes beside the file and puts the result in its place. eFileWriteFailed leaves the file as it was.
Vorn::ErrorStatus writeStateFile(const DatabaseImp& database, std::size_t index, const std::filesystem::path& file);

} // namespace engine
