// Who owns a file, and who may do what with it.
#pragma once

#include <windows.h>

#include <cstddef>
#include <string>
#include <vector>

namespace zdr {

class FileSecurity {
  public:
    /// Of the file at this path; none where there is no file, or where the file system knows no rights. Refuses when it
    /// can't be asked for.
    /// @param path as the system takes it
    explicit FileSecurity(const std::wstring& path);
    FileSecurity(const FileSecurity&) = delete;
    FileSecurity& operator=(const FileSecurity&) = delete;

    /// For a new file of the same owner that lets in the same people from its first moment on, whatever its folder
    /// says; null when there is none.
    SECURITY_ATTRIBUTES* forNewFile();
    /// Whether the same people may do the same. Whether the folder or the file itself says so doesn't matter.
    bool givesTheSameRightsAs(const FileSecurity& other) const;

  private:
    void* descriptor() const { return const_cast<std::byte*>(m_descriptor.data()); } // which nobody writes to
    ACL* accessList() const;
    std::vector<std::byte> rights() const;

    std::vector<std::byte> m_descriptor; // as the system hands it out
    SECURITY_DESCRIPTOR m_forNewFile{};
    SECURITY_ATTRIBUTES m_attributes{};
};

} // namespace zdr
