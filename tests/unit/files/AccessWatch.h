// A path outside this computer, by its spelling, and whether the program has asked the system for anything about it.
#pragma once

#include <memory>
#include <string>

/// One at a time. On Windows it is a named pipe, which everything that opens the path connects to; under Wine, what
/// only asks for its attributes doesn't. Elsewhere this program's own functions of the names by which files are asked
/// for stand before the system's, and write their paths down.
class AccessWatch {
  public:
    AccessWatch();
    ~AccessWatch();
    AccessWatch(const AccessWatch&) = delete;
    AccessWatch& operator=(const AccessWatch&) = delete;

    /// Nothing that can be read is there.
    const std::wstring& path() const { return m_path; }
    bool isTouched() const;

  private:
    struct System;

    std::wstring m_path;
    std::unique_ptr<System> m_system;
};

/// A spelling of a full path by which the system finds the same file, but that counts as outside this computer.
inline std::wstring outsideSpelling(const std::wstring& path) {
#if defined(_WIN32)
    return L"\\\\.\\" + path;
#else
    return L"/" + path;
#endif
}
