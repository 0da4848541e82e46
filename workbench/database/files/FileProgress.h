// How far the reading or writing of a file is. The engine knows no windows: the part of the host that does shows it,
// and tells when the user cancels.
#pragma once

#include "KelExport.h"

#include <cstdint>
#include <string>

namespace zdr {

enum class FileWork { Reading, Writing };

/// How it is shown. All of it is called by the thread that reads or writes.
struct ProgressShower {
    /// Work begins; answers what the other two are given, or null when it can't be shown.
    void* (*begin)(FileWork kind, const std::wstring& path);
    /// So many bytes are done, of so many. False when the user has cancelled.
    bool (*advance)(void* work, std::uint64_t done, std::uint64_t total);
    void (*end)(void* work);
};

/// Sets the one that is used from now on, which has to outlive its use; null for none.
KELDB_API void setProgressShower(const ProgressShower* shower);

/// One file that is read or written, shown for as long as this lives.
class KELDB_API FileProgress {
  public:
    FileProgress(FileWork kind, const std::wstring& path);
    ~FileProgress();
    FileProgress(const FileProgress&) = delete;
    FileProgress& operator=(const FileProgress&) = delete;

    /// Refuses with eCancelled when the user has cancelled.
    void advance(std::uint64_t done, std::uint64_t total);

  private:
    FileWork m_kind;
    void* m_work; ///< null when it isn't shown
};

} // namespace zdr
