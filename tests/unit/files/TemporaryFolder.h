// A folder of its own for a test, removed with everything in it.
#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <vector>

class TemporaryFolder {
  public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return m_path; }
    /// The path of a file in the folder, as programs pass it on.
    std::wstring file(const std::wstring& name) const;
    /// How many files and folders are in it.
    std::size_t entries() const;

  private:
    std::filesystem::path m_path;
};

std::vector<std::byte> bytesOf(const std::wstring& path);
void writeBytes(const std::wstring& path, std::span<const std::byte> bytes);
