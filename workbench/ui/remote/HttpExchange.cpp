#include "HttpExchange.h"

#include "HostName.h"
#include "RemoteProblem.h"
#include "Timeouts.h"

#include <algorithm>
#include <array>

namespace remote {
namespace {

constexpr const wchar_t* kAgent = L"KelWorkbench";
// The most characters that the header lines of an answer may have. A system's client that has a limit has the same.
constexpr DWORD kLargestHead = 64 * 1024;

struct ErrorMeaning {
    DWORD error;
    CProxyInetStatus status;
    const wchar_t* cause;
};

constexpr const wchar_t* kNotReached = L"can't be reached: there is no connection to its server";
constexpr const wchar_t* kTimedOut = L"can't be reached: its server doesn't answer in time";
constexpr const wchar_t* kCut = L"wasn't transferred: the line to its server was cut";
constexpr const wchar_t* kNotHttp = L"wasn't transferred: what its server answers isn't HTTP, or nothing";
constexpr const wchar_t* kNotSecure =
    L"wasn't transferred: there is no secure connection, because the certificate of its server isn't trusted, has "
    L"expired or is for another name, or because the server doesn't speak HTTPS";

constexpr ErrorMeaning kMeanings[] = {
    {ERROR_WINHTTP_NAME_NOT_RESOLVED, eInetHostNotFound, L"can't be reached: there is no server of that name"},
    {ERROR_WINHTTP_CANNOT_CONNECT, eInetNoConnection, kNotReached},
    {WSAECONNREFUSED, eInetNoConnection, kNotReached},
    {WSAENETUNREACH, eInetNoConnection, kNotReached},
    {WSAEHOSTUNREACH, eInetNoConnection, kNotReached},
    {ERROR_WINHTTP_TIMEOUT, eInetTimedOut, kTimedOut},
    {WSAETIMEDOUT, eInetTimedOut, kTimedOut},
    {ERROR_WINHTTP_CONNECTION_ERROR, eInetCutOff, kCut},
    {WSAECONNRESET, eInetCutOff, kCut},
    {WSAECONNABORTED, eInetCutOff, kCut},
    {ERROR_WINHTTP_INVALID_SERVER_RESPONSE, eInetNotUnderstood, kNotHttp},
    {ERROR_WINHTTP_HEADER_COUNT_EXCEEDED, eInetNotUnderstood, kNotHttp},
    {ERROR_WINHTTP_HEADER_SIZE_OVERFLOW, eInetNotUnderstood, kNotHttp},
    {ERROR_WINHTTP_SECURE_FAILURE, eInetNotSecure, kNotSecure},
    {ERROR_WINHTTP_SECURE_CHANNEL_ERROR, eInetNotSecure, kNotSecure},
    {ERROR_WINHTTP_SECURE_CERT_DATE_INVALID, eInetNotSecure, kNotSecure},
    {ERROR_WINHTTP_SECURE_CERT_CN_INVALID, eInetNotSecure, kNotSecure},
    {ERROR_WINHTTP_SECURE_INVALID_CA, eInetNotSecure, kNotSecure},
    {ERROR_WINHTTP_SECURE_CERT_REV_FAILED, eInetNotSecure, kNotSecure},
    {ERROR_WINHTTP_SECURE_CERT_REVOKED, eInetNotSecure, kNotSecure},
    {ERROR_WINHTTP_SECURE_INVALID_CERT, eInetNotSecure, kNotSecure},
    {ERROR_WINHTTP_SECURE_CERT_WRONG_USAGE, eInetNotSecure, kNotSecure},
    {ERROR_WINHTTP_CLIENT_AUTH_CERT_NEEDED, eInetNotSecure, kNotSecure},
    {ERROR_WINHTTP_INVALID_URL, eInetBadAddress, L"has a mistake in it"},
    {ERROR_NOT_ENOUGH_MEMORY, eInetNoMemory, L"wasn't transferred: there isn't enough memory"},
};

[[noreturn]] void throwError(DWORD error) {
    const auto* const meaning = std::find_if(std::begin(kMeanings), std::end(kMeanings),
                                             [error](const ErrorMeaning& row) { return row.error == error; });
    if (meaning != std::end(kMeanings))
        throw RemoteFailure{meaning->status, meaning->cause};
    throw RemoteFailure{eInetSystemFailed, L"wasn't transferred: the system answers error " + std::to_wstring(error)};
}

bool isCutLine(DWORD error) {
    return error == ERROR_WINHTTP_CONNECTION_ERROR || error == WSAECONNRESET || error == WSAECONNABORTED;
}

void require(BOOL succeeded) {
    if (!succeeded)
        throwError(GetLastError());
}

InternetHandle owned(HINTERNET handle) {
    require(handle != nullptr);
    return InternetHandle(handle);
}

/// The server's name in ASCII, as certificates and the name service know it.
std::wstring asciiHost(const std::wstring& host) {
    std::array<wchar_t, 256> ascii{};
    if (std::all_of(host.begin(), host.end(), [](wchar_t character) { return character < 0x80; }))
        return host;
    const int length = IdnToAscii(0, host.c_str(), static_cast<int>(host.size()), ascii.data(), ascii.size() - 1);
    const std::wstring name(ascii.data(), static_cast<std::size_t>(std::max(length, 0)));
    // The conversion turns some letters into slashes, colons and the like, which would make another address of it.
    if (hostFault(name))
        throw RemoteFailure{eInetBadAddress, L"has a name of a server that can't be written in ASCII"};
    return name;
}

void setNumber(HINTERNET handle, DWORD option, DWORD value) {
    require(WinHttpSetOption(handle, option, &value, sizeof value));
}

InternetHandle openSession() {
    InternetHandle session = owned(WinHttpOpen(kAgent, WINHTTP_ACCESS_TYPE_AUTOMATIC_PROXY, nullptr, nullptr, 0));
    const Timeouts bounds = timeouts();
    require(WinHttpSetTimeouts(session.get(), static_cast<int>(bounds.resolve.count()),
                               static_cast<int>(bounds.connect.count()), static_cast<int>(bounds.send.count()),
                               static_cast<int>(bounds.receive.count())));
    setNumber(session.get(), WINHTTP_OPTION_RECEIVE_RESPONSE_TIMEOUT, static_cast<DWORD>(bounds.receive.count()));
    return session;
}

/// Tells when a part of a transfer has taken so long that the user should see what came of it.
class PartClock {
  public:
    bool isOver() const { return std::chrono::steady_clock::now() - m_start >= kPart; }

  private:
    static constexpr std::chrono::milliseconds kPart{100};
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
};

/// Sends bytes for as long as a part may take, and answers how many; none when the line is cut.
std::optional<std::size_t> sendPart(HINTERNET request, std::span<const std::byte> bytes) {
    // So few that even the slowest line that is waited for takes them within its time.
    constexpr std::size_t kStep = std::size_t{16} * 1024;
    std::size_t sent = 0;
    for (const PartClock clock; sent < bytes.size() && (sent == 0 || !clock.isOver());) {
        const auto next = bytes.subspan(sent, std::min(kStep, bytes.size() - sent));
        DWORD taken = 0;
        if (!WinHttpWriteData(request, next.data(), static_cast<DWORD>(next.size()), &taken)) {
            const DWORD error = GetLastError();
            if (!isCutLine(error))
                throwError(error);
            return std::nullopt;
        }
        sent += taken;
    }
    return sent;
}

/// Reads bytes for as long as a part may take, and answers how many; 0 at the end.
std::size_t readPart(HINTERNET request, std::span<std::byte> bytes) {
    std::size_t read = 0;
    for (const PartClock clock; read < bytes.size() && (read == 0 || !clock.isOver());) {
        // Asked for first, because a reading waits until it has all that it asks for.
        DWORD available = 0;
        require(WinHttpQueryDataAvailable(request, &available));
        if (available == 0)
            break;
        const auto wanted = static_cast<DWORD>(std::min<std::size_t>(available, bytes.size() - read));
        DWORD count = 0;
        require(WinHttpReadData(request, bytes.data() + read, wanted, &count));
        read += count;
    }
    return read;
}

} // namespace

void throwCancelled() {
    throw RemoteFailure{eInetCancelled, L"wasn't transferred: it was cancelled"};
}

void throwTimedOut() {
    throw RemoteFailure{eInetTimedOut, kTimedOut};
}

HttpExchange::HttpExchange(framework::LongWork& work, const Address& address, const wchar_t* verb) {
    m_line->session = openSession();
    m_line->connection = owned(WinHttpConnect(m_line->session.get(), asciiHost(address.host).c_str(), address.port, 0));
    // The target is encoded already, and a proxy must ask the server itself whether the file is there.
    constexpr DWORD kAsItIs = WINHTTP_FLAG_ESCAPE_DISABLE | WINHTTP_FLAG_ESCAPE_DISABLE_QUERY | WINHTTP_FLAG_REFRESH;
    m_line->request = owned(WinHttpOpenRequest(m_line->connection.get(), verb, address.target.c_str(), nullptr,
                                               WINHTTP_NO_REFERER, WINHTTP_DEFAULT_ACCEPT_TYPES,
                                               kAsItIs | (address.scheme == Scheme::Https ? WINHTTP_FLAG_SECURE : 0)));
    setNumber(request(), WINHTTP_OPTION_DISABLE_FEATURE,
              WINHTTP_DISABLE_COOKIES | WINHTTP_DISABLE_REDIRECTS | WINHTTP_DISABLE_AUTHENTICATION |
                  WINHTTP_DISABLE_KEEP_ALIVE);
    m_thread = std::make_unique<CallThread>(work);
}

template <class Call> void HttpExchange::run(Call call, std::chrono::milliseconds bound) {
    // The system's client, which knows its own bounds, is to be the first to give up. Not every one applies them to a
    // server that sends a byte now and then.
    constexpr std::chrono::milliseconds kLater{1'000};
    m_thread->run([line = m_line, call] { call(*line); }, bound + kLater);
}

void HttpExchange::begin(std::uint32_t bodySize) {
    run(
        [bodySize](const Line& line) {
            require(WinHttpSendRequest(line.request.get(), WINHTTP_NO_ADDITIONAL_HEADERS, 0, WINHTTP_NO_REQUEST_DATA, 0,
                                       bodySize, 0));
        },
        timeouts().begin);
}

std::optional<std::size_t> HttpExchange::sendBody(std::span<const std::byte> bytes) {
    const auto sent = std::make_shared<std::optional<std::size_t>>(0);
    m_line->piece.assign(bytes.begin(), bytes.end());
    run([sent](const Line& line) { *sent = sendPart(line.request.get(), line.piece); }, timeouts().send);
    return *sent;
}

void HttpExchange::receiveAnswer() {
    run([](const Line& line) { require(WinHttpReceiveResponse(line.request.get(), nullptr)); }, timeouts().receive);
    const auto heads = header(WINHTTP_QUERY_RAW_HEADERS_CRLF);
    if (!heads || heads->size() > kLargestHead)
        throw RemoteFailure{eInetNotUnderstood, kNotHttp};
}

unsigned HttpExchange::status() const {
    DWORD status = 0;
    DWORD size = sizeof status;
    require(WinHttpQueryHeaders(request(), WINHTTP_QUERY_STATUS_CODE | WINHTTP_QUERY_FLAG_NUMBER,
                                WINHTTP_HEADER_NAME_BY_INDEX, &status, &size, WINHTTP_NO_HEADER_INDEX));
    return status;
}

std::optional<std::wstring> HttpExchange::header(DWORD query) const {
    DWORD size = 0;
    WinHttpQueryHeaders(request(), query, WINHTTP_HEADER_NAME_BY_INDEX, WINHTTP_NO_OUTPUT_BUFFER, &size,
                        WINHTTP_NO_HEADER_INDEX);
    if (GetLastError() != ERROR_INSUFFICIENT_BUFFER)
        return std::nullopt;
    std::wstring text(size / sizeof(wchar_t), L'\0');
    if (!WinHttpQueryHeaders(request(), query, WINHTTP_HEADER_NAME_BY_INDEX, text.data(), &size,
                             WINHTTP_NO_HEADER_INDEX))
        return std::nullopt;
    text.resize(size / sizeof(wchar_t));
    return text;
}

std::span<const std::byte> HttpExchange::readBody(std::uint64_t atMost) {
    m_line->piece.resize(static_cast<std::size_t>(std::min<std::uint64_t>(atMost, kPiece)));
    run([](Line& line) { line.piece.resize(readPart(line.request.get(), line.piece)); }, timeouts().receive);
    return m_line->piece;
}

} // namespace remote
