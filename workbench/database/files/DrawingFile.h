// Drawings and their files: reading, and saving without ever losing what was there.
#pragma once

#include "FileStamp.h"
#include "KelExport.h"
#include "VornStatus.h"
#include "model/Drawing.h"

#include <span>
#include <string>

namespace zdr {

enum class Overwrite {
    IfUnchanged, ///< only the file that the stamp was taken of
    Always,      ///< whatever is there
};

/// Reads a drawing file into `drawing`, and what the file was into `stamp` unless that is null. Answers eFileNotFound,
/// eFileUnreadable, eNotADrawing, eFileCutOff, eNewerVersion or eCancelled and leaves both as they were when it can't;
/// `reason` then says in a sentence for the user which file, where in it, and why. References come without their
/// drawings.
[[nodiscard]] KELDB_API Vorn::ErrorStatus readDrawingFile(const std::wstring& path, Drawing& drawing,
                                                          std::wstring& reason, FileStamp* stamp = nullptr);

/// The same for bytes that are in memory; `name` stands for the path in the reason.
[[nodiscard]] KELDB_API Vorn::ErrorStatus readDrawingBytes(std::span<const std::byte> bytes, const std::wstring& name,
                                                           Drawing& drawing, std::wstring& reason);

/// Saves a drawing: writes a new file beside the old one, waits until it is on the disk, and replaces the old one by
/// it, so that at every moment one of the two is whole. `stamp` is the one of the last reading or writing, and becomes
/// that of the new file; a stamp that was never filled says that there is no file yet. Answers eFileChangedOnDisk when
/// someone else wrote the file since, eFileWriteFailed, eCancelled, or eInvalidInput when the drawing's parts
/// contradict each other; `reason` says why, and the old file is as it was.
[[nodiscard]] KELDB_API Vorn::ErrorStatus writeDrawingFile(const std::wstring& path, const Drawing& drawing,
                                                           std::wstring& reason, FileStamp& stamp,
                                                           Overwrite overwrite = Overwrite::IfUnchanged);

/// The bytes that writeDrawingFile() would write. Answers eInvalidInput or eFileWriteFailed as it does.
[[nodiscard]] KELDB_API Vorn::ErrorStatus drawingBytes(const Drawing& drawing, std::vector<std::byte>& bytes,
                                                       std::wstring& reason);

/// Whether the file at `path` has been changed by someone else since `stamp` was taken. A file that is gone counts as
/// unchanged: there is nothing left to lose.
[[nodiscard]] KELDB_API bool isFileChanged(const std::wstring& path, const FileStamp& stamp);

} // namespace zdr
