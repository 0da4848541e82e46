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

} // namespace

HttpExchange::HttpExchange(const Address& address, const wchar_t* verb) : m_session(openSession()) {
    m_connection = owned(WinHttpConnect(m_session.get(), asciiHost(address.host).c_str(), address.port, 0));
    // The target is encoded already, and a proxy must ask the server itself whether the file is there.
    constexpr DWORD kAsItIs = WINHTTP_FLAG_ESCAPE_DISABLE | WINHTTP_FLAG_ESCAPE_DISABLE_QUERY | WINHTTP_FLAG_REFRESH;
    m_request = owned(WinHttpOpenRequest(m_connection.get(), verb, address.target.c_str(), nullptr, WINHTTP_NO_REFERER,
                                         WINHTTP_DEFAULT_ACCEPT_TYPES,
                                         kAsItIs | (address.scheme == Scheme::Https ? WINHTTP_FLAG_SECURE : 0)));
    setNumber(m_request.get(), WINHTTP_OPTION_DISABLE_FEATURE,
              WINHTTP_DISABLE_COOKIES | WINHTTP_DISABLE_REDIRECTS | WINHTTP_DISABLE_AUTHENTICATION |
                  WINHTTP_DISABLE_KEEP_ALIVE);
}

void HttpExchange::begin(std::uint32_t bodySize) {
    require(
        WinHttpSendRequest(m_request.get(), WINHTTP_NO_ADDITIONAL_HEADERS, 0, WINHTTP_NO_REQUEST_DATA, 0, bodySize, 0));
}

bool HttpExchange::sendBody(std::span<const std::byte> bytes) {
    while (!bytes.empty()) {
        DWORD taken = 0;
        if (!WinHttpWriteData(m_request.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &taken)) {
            const DWORD error = GetLastError();
            if (!isCutLine(error))
                throwError(error);
            return false;
        }
        bytes = bytes.subspan(taken);
    }
    return true;
}

void HttpExchange::receiveAnswer() {
    require(WinHttpReceiveResponse(m_request.get(), nullptr));
    const auto heads = header(WINHTTP_QUERY_RAW_HEADERS_CRLF);
    if (!heads || heads->size() > kLargestHead)
        throw RemoteFailure{eInetNotUnderstood, kNotHttp};
}

unsigned HttpExchange::status() const {
    DWORD status = 0;
    DWORD size = sizeof status;
    require(WinHttpQueryHeaders(m_request.get(), WINHTTP_QUERY_STATUS_CODE | WINHTTP_QUERY_FLAG_NUMBER,
                                WINHTTP_HEADER_NAME_BY_INDEX, &status, &size, WINHTTP_NO_HEADER_INDEX));
    return status;
}

std::optional<std::wstring> HttpExchange::header(DWORD query) const {
    DWORD size = 0;
    WinHttpQueryHeaders(m_request.get(), query, WINHTTP_HEADER_NAME_BY_INDEX, WINHTTP_NO_OUTPUT_BUFFER, &size,
                        WINHTTP_NO_HEADER_INDEX);
    if (GetLastError() != ERROR_INSUFFICIENT_BUFFER)
        return std::nullopt;
    std::wstring text(size / sizeof(wchar_t), L'\0');
    if (!WinHttpQueryHeaders(m_request.get(), query, WINHTTP_HEADER_NAME_BY_INDEX, text.data(), &size,
                             WINHTTP_NO_HEADER_INDEX))
        return std::nullopt;
    text.resize(size / sizeof(wchar_t));
    return text;
}

std::size_t HttpExchange::readBody(std::span<std::byte> bytes) {
    DWORD count = 0;
    require(WinHttpReadData(m_request.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &count));
    return count;
}

} // namespace remote
