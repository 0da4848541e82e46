// One request and its answer, over the system's client. All failures are thrown as RemoteFailure; so it is when the
// user cancels.
#pragma once

#include "CallThread.h"
#include "RemoteAddress.h"

#include <windows.h>

#include <winhttp.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace remote {

[[noreturn]] void throwCancelled();
[[noreturn]] void throwTimedOut();

struct CloseInternetHandle {
    void operator()(void* handle) const { WinHttpCloseHandle(handle); }
};
using InternetHandle = std::unique_ptr<void, CloseInternetHandle>;

/// A connection of its own for each exchange: nothing stays open afterwards. Redirects aren't followed, no cookies and
/// no passwords are sent, and certificates are checked as the system does it.
class HttpExchange {
  public:
    /// @param work shows how far it is; outlives the exchange
    HttpExchange(framework::LongWork& work, const Address& address, const wchar_t* verb);

    /// Sends the head of the request.
    /// @param bodySize how many bytes sendBody() will be given in all
    void begin(std::uint32_t bodySize);
    /// Sends the next bytes of the body, and answers how many of them have gone; on a slow line not all of them have.
    /// None when the server has cut the line, which it may do because it has answered already.
    std::optional<std::size_t> sendBody(std::span<const std::byte> bytes);
    /// Waits for the head of the answer.
    void receiveAnswer();

    /// Of the answer:
    unsigned status() const;
    /// A header line by its number of WINHTTP_QUERY_...; none when it is missing.
    std::optional<std::wstring> header(DWORD query) const;
    /// The next bytes of the body that have come, at most as many as kPiece; none at its end or where the line was cut.
    /// They stay until the next call.
    std::span<const std::byte> readBody(std::uint64_t atMost);

    /// The most bytes that go to or come from the thread of the calls at once.
    static constexpr std::size_t kPiece = std::size_t{256} * 1024;

  private:
    /// What the calls use. A call that was left behind keeps it.
    struct Line {
        InternetHandle session, connection, request; ///< closed in the opposite order
        std::vector<std::byte> piece = std::vector<std::byte>(kPiece);
    };
    /// Does a call that may block.
    template <class Call> void run(Call call, std::chrono::milliseconds bound);
    HINTERNET request() const { return m_line->request.get(); }

    std::shared_ptr<Line> m_line = std::make_shared<Line>();
    std::unique_ptr<CallThread> m_thread;
};

} // namespace remote
