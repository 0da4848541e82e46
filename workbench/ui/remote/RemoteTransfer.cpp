#include "RemoteTransfer.h"

#include "AnswerStatus.h"
#include "Timeouts.h"
#include "files/SystemFile.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace remote {
namespace {

constexpr int kMostRedirects = 10;
// The system's client counts the bytes of a request in 32 bits.
constexpr std::uint64_t kLargestFile = std::numeric_limits<std::uint32_t>::max() - 1;

[[noreturn]] void throwTooLarge() {
    throw RemoteFailure{eInetTooLarge, L"wasn't transferred: the file has 4 GiB or more"};
}

[[noreturn]] void throwCutOff() {
    throw RemoteFailure{eInetCutOff, L"wasn't transferred: the line to its server was cut before the end of the file"};
}

Address redirected(const Address& from, Request request, const HttpExchange& exchange) {
    const auto location = exchange.header(WINHTTP_QUERY_LOCATION);
    if (!location)
        throw RemoteFailure{eInetBadRedirect, L"wasn't transferred: its server sends on without saying where"};
    const ParsedAddress target = resolveRedirect(from, *location);
    if (target.kind != AddressKind::Remote)
        throw RemoteFailure{eInetBadRedirect, L"wasn't transferred: its server sends on to \"" +
                                                  shownAddress(*location) + L"\", which " + target.cause};
    if (request == Request::Upload && !isSameServer(from, target.address))
        throw RemoteFailure{eInetBadRedirect, L"wasn't transferred: its server sends the file on to \"" +
                                                  shownAddress(*location) +
                                                  L"\", which is another server, port or scheme"};
    return target.address;
}

/// Sends the request, and again to each address that the server redirects it to, until the answer is no redirect.
/// @param send sends one request to an address and receives the answer
template <class Send>
HttpExchange exchangeWith(framework::LongWork& work, Address address, Request request, Send send) {
    for (int left = kMostRedirects; left >= 0; --left) {
        HttpExchange exchange = send(work, address);
        const unsigned status = exchange.status();
        if (!isRedirect(request, status)) {
            if (const auto failure = failureOfAnswer(request, status))
                throw RemoteFailure(*failure);
            return exchange;
        }
        address = redirected(address, request, exchange);
    }
    throw RemoteFailure{eInetBadRedirect, L"wasn't transferred: its server sends on again and again"};
}

/// Shows how much of a file is transferred, and ends a transfer that is too slow.
class Pace {
  public:
    Pace(framework::LongWork& work, std::uint64_t size)
        : m_work(work), m_size(size), m_pace(timeouts().leastPace, TransferPace::Clock::now()) {}

    void add(std::size_t count) {
        m_done += count;
        if (!m_work.advance(m_done, m_size))
            throwCancelled();
        if (!m_pace.keepsUp(m_done, TransferPace::Clock::now()))
            throw RemoteFailure{eInetTimedOut, L"wasn't transferred: the line to its server is too slow"};
    }
    std::uint64_t left() const { return m_size - m_done; }

  private:
    framework::LongWork& m_work;
    std::uint64_t m_size;
    std::uint64_t m_done = 0;
    TransferPace m_pace;
};

HttpExchange ask(framework::LongWork& work, const Address& address, const wchar_t* verb) {
    HttpExchange exchange(work, address, verb);
    exchange.begin(0);
    exchange.receiveAnswer();
    return exchange;
}

HttpExchange askFor(framework::LongWork& work, const Address& address) {
    return ask(work, address, L"GET");
}

/// Asks for the head of the answer that a fetch would get. A server that doesn't know that question is asked for the
/// file, which then isn't read.
HttpExchange askAbout(framework::LongWork& work, const Address& address) {
    {
        HttpExchange exchange = ask(work, address, L"HEAD");
        if (!isVerbUnknown(exchange.status()))
            return exchange;
    }
    return askFor(work, address);
}

/// How many bytes the body of an answer has. Throws when the answer doesn't announce that: not every system's client
/// can tell the end of such a body from a line that was cut.
std::uint64_t announcedSize(const HttpExchange& exchange) {
    const auto text = exchange.header(WINHTTP_QUERY_CONTENT_LENGTH);
    if (!text || text->empty() || exchange.header(WINHTTP_QUERY_TRANSFER_ENCODING))
        throw RemoteFailure{eInetNotUnderstood,
                            L"wasn't transferred: its server doesn't say beforehand how long the file is"};
    std::uint64_t size = 0;
    for (const wchar_t digit : *text) {
        if (digit < L'0' || digit > L'9')
            throw RemoteFailure{eInetNotUnderstood, L"wasn't transferred: its server names no length that is a number"};
        size = size * 10 + static_cast<std::uint64_t>(digit - L'0');
        if (size > kLargestFile)
            throwTooLarge();
    }
    return size;
}

void sendPiece(Pace& pace, HttpExchange& exchange, std::span<const std::byte> bytes) {
    while (!bytes.empty()) {
        const auto sent = exchange.sendBody(bytes);
        if (!sent) {
            // The server may have refused it in an answer that is worth more than the cut line.
            exchange.receiveAnswer();
            if (const auto failure = failureOfAnswer(Request::Upload, exchange.status()))
                throw RemoteFailure(*failure);
            throwCutOff();
        }
        bytes = bytes.subspan(*sent);
        pace.add(*sent);
    }
}

void sendFile(framework::LongWork& work, HttpExchange& exchange, zdr::InputFile& file, std::uint64_t size) {
    std::vector<std::byte> piece(HttpExchange::kPiece);
    for (Pace pace(work, size); pace.left() > 0;) {
        const std::size_t count = file.read(std::span(piece).first(std::min<std::uint64_t>(pace.left(), piece.size())));
        if (count == 0)
            throw RemoteFailure{eInetLocalUnreadable, L"wasn't transferred: the local file became shorter meanwhile"};
        sendPiece(pace, exchange, std::span(piece).first(count));
    }
}

} // namespace

void requireThere(framework::LongWork& work, const Address& address) {
    exchangeWith(work, address, Request::Fetch, askAbout);
}

RemoteFile::RemoteFile(framework::LongWork& work, const Address& address)
    : m_work(work), m_exchange(exchangeWith(work, address, Request::Fetch, askFor)), m_size(announcedSize(m_exchange)) {
}

void RemoteFile::saveAs(const std::wstring& path) {
    zdr::ReplacementFile file(path);
    for (Pace pace(m_work, m_size); pace.left() > 0;) {
        const std::span<const std::byte> piece = m_exchange.readBody(pace.left());
        if (piece.empty())
            throwCutOff();
        file.write(piece);
        pace.add(piece.size());
    }
    file.flush();
    file.replace();
}

void uploadFile(framework::LongWork& work, const Address& address, const std::wstring& path) {
    exchangeWith(work, address, Request::Upload, [&path](framework::LongWork& shown, const Address& target) {
        zdr::InputFile file(path);
        const std::uint64_t size = file.facts().size;
        if (size > kLargestFile)
            throwTooLarge();
        HttpExchange exchange(shown, target, L"PUT");
        exchange.begin(static_cast<std::uint32_t>(size));
        sendFile(shown, exchange, file, size);
        exchange.receiveAnswer();
        return exchange;
    });
}

} // namespace remote
