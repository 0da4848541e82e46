// One request and its answer, over the system's client. All failures are thrown as RemoteFailure.
#pragma once

#include "RemoteAddress.h"

#include <windows.h>

#include <winhttp.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>

namespace remote {

struct CloseInternetHandle {
    void operator()(void* handle) const { WinHttpCloseHandle(handle); }
};
using InternetHandle = std::unique_ptr<void, CloseInternetHandle>;

/// A connection of its own for each exchange: nothing stays open afterwards. Redirects aren't followed, no cookies and
/// no passwords are sent, and certificates are checked as the system does it.
class HttpExchange {
  public:
    HttpExchange(const Address& address, const wchar_t* verb);

    /// Sends the head of the request.
    /// @param bodySize how many bytes sendBody() will be given in all
    void begin(std::uint32_t bodySize);
    /// Sends the next bytes of the body. False when the server has cut the line, which it may do because it has
    /// answered already.
    bool sendBody(std::span<const std::byte> bytes);
    /// Waits for the head of the answer.
    void receiveAnswer();

    /// Of the answer:
    unsigned status() const;
    /// A header line by its number of WINHTTP_QUERY_...; none when it is missing.
    std::optional<std::wstring> header(DWORD query) const;
    /// The next bytes of the body; answers how many there were, 0 at its end or where the line was cut.
    std::size_t readBody(std::span<std::byte> bytes);

  private:
    InternetHandle m_session, m_connection, m_request;
};

} // namespace remote
