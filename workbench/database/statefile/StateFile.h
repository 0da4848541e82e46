// Layer states files: one state a file, as JSON text with a stable order and a layer a line, so that people can read
// them and compare them line by line.
#pragma once

#include "engine/DatabaseImp.h"

namespace engine {

/// Reads a state into the drawing. `name` is the name that the file carries as soon as it is known, also with
/// eDuplicateRecordName; it stays empty where the file has a text far longer than any name. eFileNotFound,
/// eFileUnreadable, eInvalidInput for a file that isn't a layer states file or contradicts itself, eNameTooLong,
/// eNewerVersion. The database's file problem then says in a sentence which file, where in it, and why; the drawing is
/// as it was.
Vorn::ErrorStatus readStateFile(DatabaseImp& database, const std::wstring& path, std::wstring& name);
/// Writes beside the file and puts the result in its place. eFileWriteFailed leaves the file as it was; eInvalidInput
/// is the answer for names that no text can hold. The database's file problem says why.
Vorn::ErrorStatus writeStateFile(DatabaseImp& database, std::size_t index, const std::wstring& path);

/// The text of a state, and the state of a text, whose names and named colours are entered in `tables`. `cause` says
/// why there is none, as the end of a sentence that begins with the file.
std::string stateText(const zdr::LayerState& state, const zdr::ColumnTables& tables);
Vorn::ErrorStatus parseState(std::string_view text, zdr::ColumnTables& tables, zdr::LayerState& state,
                             std::wstring& cause);

} // namespace engine
