// Fetches files from servers and uploads them, and shows the user how far that is. All failures are thrown:
// RemoteFailure where the server or the line fails or the user cancels, and zdr::Refusal where the local file does.
#pragma once

#include "HttpExchange.h"
#include "RemoteAddress.h"

#include <cstdint>
#include <string>

namespace remote {

/// Asks a server whether it has a file, without fetching it; follows redirects. Throws when it doesn't have it.
void requireThere(framework::LongWork& work, const Address& address);

/// A file on a server, found and about to be fetched.
class RemoteFile {
  public:
    /// Asks for the file and follows redirects.
    RemoteFile(framework::LongWork& work, const Address& address);
    /// Fetches the content and replaces the local file by it, once all of it has come.
    void saveAs(const std::wstring& path);

  private:
    framework::LongWork& m_work;
    HttpExchange m_exchange;
    std::uint64_t m_size;
};

/// Puts a local file on the server of the address, and on no other one: redirects are followed on that server alone.
void uploadFile(framework::LongWork& work, const Address& address, const std::wstring& path);

} // namespace remote
