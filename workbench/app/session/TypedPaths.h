// Which file a person means who types a name or a path. One that isn't whole counts from the folder of the open
// drawing, and where that has no such file, from the folder in which the program was started.
#pragma once

#include <string>
#include <vector>

namespace workbench {

/// The ending of a drawing's name, which may be left out when it is typed.
inline constexpr const wchar_t* kDrawingEnding = L".zdr";

/// A file that is to be read.
struct SoughtFile {
    std::wstring path;        ///< in full: where it is, or else where it was looked for first
    std::wstring elsewhere;   ///< the other folder in which it was looked for and isn't; mostly empty
    std::wstring fromDrawing; ///< the path from the drawing's folder, when it was typed so and is there

    /// What says that the file at `path` isn't there, with the other folder put before its full stop.
    std::wstring completed(std::wstring sentence) const;
};

/// All places that a path can mean, in the order in which they are looked at: one or two.
/// @param drawing path of the open drawing; empty for one that was never saved
std::vector<std::wstring> placesOf(const std::wstring& path, const std::wstring& drawing);

SoughtFile soughtFile(const std::wstring& typed, const std::wstring& drawing);
/// The same for a drawing, whose ending may be missing.
SoughtFile soughtDrawing(const std::wstring& typed, const std::wstring& drawing);
/// The full path of a drawing that is to be written; its ending may be missing.
std::wstring drawingToWrite(const std::wstring& typed, const std::wstring& drawing);
/// Why no file can have the name at the end of a path, in a sentence; empty when one can.
std::wstring fileNameProblem(const std::wstring& path);

} // namespace workbench
