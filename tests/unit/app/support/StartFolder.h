// Makes a folder the one in which the program was started, for as long as it lives.
#pragma once

#include <filesystem>

class StartFolder {
  public:
    explicit StartFolder(const std::filesystem::path& folder) : m_former(std::filesystem::current_path()) {
        std::filesystem::create_directories(folder);
        std::filesystem::current_path(folder);
    }
    ~StartFolder() { std::filesystem::current_path(m_former); }
    StartFolder(const StartFolder&) = delete;
    StartFolder& operator=(const StartFolder&) = delete;

  private:
    std::filesystem::path m_former;
};
