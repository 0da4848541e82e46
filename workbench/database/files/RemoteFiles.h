// Files on servers. The engine knows no network: the part of the host that does fetches what is to be read.
#pragma once

#include "KelExport.h"

#include <string>

namespace zdr {

/// How the file at an address comes onto this computer.
struct RemoteFetcher {
    /// Fetches it into a temporary file and answers the path. When it can't be fetched, tells the user, and answers an
    /// empty path and the reason in a sentence.
    std::wstring (*fetch)(const std::wstring& address, std::wstring& reason);
    /// Deletes such a temporary file.
    void (*discard)(const std::wstring& path);
};

/// Sets the one that is used from now on, which has to outlive its use; null for none.
KELDB_API void setRemoteFetcher(const RemoteFetcher* fetcher);

/// Whether it is the address of a file on a server, and not a path.
bool isAddress(const std::wstring& text);

/// The file of a path or an address, for reading, on this computer for as long as this lives.
class FileToRead {
  public:
    /// @param reason receives why the file at an address couldn't be fetched
    FileToRead(const wchar_t* pathOrAddress, std::wstring& reason);
    ~FileToRead();
    FileToRead(const FileToRead&) = delete;
    FileToRead& operator=(const FileToRead&) = delete;

    /// False for an address whose file couldn't be fetched.
    bool isHere() const { return m_isHere; }
    const std::wstring& path() const { return m_path; }
    /// Tells the user why it couldn't be read. Where the sentence names a temporary file it gets the address instead.
    void tell(std::wstring& reason) const;

  private:
    std::wstring m_name; ///< the path or address
    std::wstring m_path;
    bool m_isTemporary = false;
    bool m_isHere = true;
};

} // namespace zdr
