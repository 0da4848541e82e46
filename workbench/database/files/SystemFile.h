// The system's files as drawing files and fetched files need them: read in one go, and replaced as a whole or not at
// all. One interface over Win32 and POSIX; which one is compiled is chosen by the build. Failures are thrown as
// Refusal.
#pragma once

#include "FileStamp.h"
#include "KelExport.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>

namespace zdr {

/// A file open for reading. Others may read, write and replace it meanwhile.
class KELDB_API InputFile {
  public:
    /// Refuses with eFileNotFound, or with eFileUnreadable when it isn't allowed or isn't a plain file.
    explicit InputFile(const std::wstring& path);
    ~InputFile();
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    FileFacts facts() const;
    /// Reads the next bytes; answers how many there were, 0 at the end.
    std::size_t read(std::span<std::byte> bytes);

  private:
    std::intptr_t m_handle;
};

/// New content for a file, written beside it under a name of its own. The file itself stays as it is until replace();
/// when that doesn't come, the new content is removed. Whose the file is, who may do what with it and whatever else
/// belongs to it stays; where that can't be, or the file may not be written, it is refused. Nobody can look into the
/// new content who couldn't look into the old.
class KELDB_API ReplacementFile {
  public:
    explicit ReplacementFile(const std::wstring& target);
    ~ReplacementFile();
    ReplacementFile(const ReplacementFile&) = delete;
    ReplacementFile& operator=(const ReplacementFile&) = delete;

    void write(std::span<const std::byte> bytes);
    /// Waits until the bytes are on the disk, and answers the facts of the new content. Nothing more can be written.
    FileFacts flush();
    /// Puts the new content in the place of the target, in one step that either happens or doesn't.
    void replace();

  private:
    struct Unopened {};
    ReplacementFile(std::wstring target, Unopened);
    void close();

    std::wstring m_target; // where a link at the given path leads
    std::wstring m_path;
    std::filesystem::path m_made; // m_path as the system takes it, while it is there; needed where there is no memory
    std::intptr_t m_handle;
};

/// What stands behind the name of a marked file in its mark's.
inline constexpr const wchar_t* kMarkEnding = L".lock";

/// Tells other programs that a file is open in this one, by a file beside it with `.lock` behind the name. Nobody else
/// can open that while this lives; the system takes it away with this object or with the program, however that ends.
/// One that is left after the power failed counts for nothing.
class KELDB_API OpenMark {
  public:
    OpenMark();
    /// Marks a file, unless another program has marked it or its folder can't be written to.
    explicit OpenMark(const std::wstring& path);
    ~OpenMark();
    OpenMark(OpenMark&& other) noexcept;
    OpenMark& operator=(OpenMark&& other) noexcept;

    /// Whether another program had marked the file already.
    bool isOthers() const { return m_isOthers; }

  private:
    std::wstring m_path; // of the mark
    std::intptr_t m_handle;
    bool m_isOthers = false;
};

/// The facts of a file; none when there isn't one.
std::optional<FileFacts> fileFacts(const std::wstring& path);

/// What the system has written down for the letter of a drive; empty for one that is free, and the system's own
/// beginning alone when it doesn't tell. This is looked up on this computer, wherever the drive leads.
KELDB_API std::wstring driveTarget(wchar_t letter);

/// Now, by the clock of FileFacts::modified.
std::int64_t fileClock();

} // namespace zdr
