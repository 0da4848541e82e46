// The drawings that were used last, as the File menu lists them. Only their paths are looked at, never the files: one
// may be on a server that doesn't answer.
#pragma once

#include <string>
#include <vector>

namespace workbench {

class RecentFiles {
  public:
    static constexpr std::size_t kMost = 9;

    RecentFiles() = default;
    /// Takes what was kept, the latest first. What can't be the path of a drawing is passed over.
    explicit RecentFiles(const std::vector<std::wstring>& kept);

    /// The latest first.
    const std::vector<std::wstring>& paths() const { return m_paths; }
    /// Puts a path first; one more than fit is forgotten.
    void add(const std::wstring& path);
    /// Answers whether it was there.
    bool remove(const std::wstring& path);

  private:
    std::vector<std::wstring> m_paths;
};

/// The path with "..." in place of the folders in its middle when it has more than `most` characters, which are at
/// least
/// 20. The drive or server at its start stays, and so does the file's name, unless that alone is too long.
std::wstring shortenedPath(const std::wstring& path, std::size_t most);

/// The text of the menu item with that number, from 1, which is its access key.
std::wstring recentFileText(std::size_t number, const std::wstring& path);

} // namespace workbench
