// The temporary files that the remote file service has made and still answers for.
#pragma once

#include <string>
#include <vector>

namespace remote {

class TemporaryFiles {
  public:
    TemporaryFiles() = default;
    /// Deletes those that are left. Runs when the process ends or unloads this module.
    ~TemporaryFiles();
    TemporaryFiles(const TemporaryFiles&) = delete;
    TemporaryFiles& operator=(const TemporaryFiles&) = delete;

    /// Makes an empty file in the user's temporary folder. Throws a RemoteFailure when it can't be made.
    /// @param extension without the point; may be empty
    std::wstring make(const std::wstring& extension);
    /// Deletes a file if it is one of them. One that can't be deleted now stays one of them.
    void discard(const std::wstring& path);

  private:
    std::vector<std::wstring> m_paths;
};

/// Deletes a temporary file of the remote file service before the program ends.
void discardTemporaryFile(const std::wstring& path);

} // namespace remote
