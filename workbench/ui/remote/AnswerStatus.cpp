#include "AnswerStatus.h"

namespace remote {
namespace {

constexpr unsigned kOk = 200;
constexpr unsigned kCreated = 201;
constexpr unsigned kNoContent = 204;
constexpr unsigned kMultipleChoices = 300;
constexpr unsigned kMovedPermanently = 301;
constexpr unsigned kFound = 302;
constexpr unsigned kSeeOther = 303;
constexpr unsigned kTemporaryRedirect = 307;
constexpr unsigned kPermanentRedirect = 308;
constexpr unsigned kBadRequest = 400;
constexpr unsigned kUnauthorized = 401;
constexpr unsigned kNotFound = 404;
constexpr unsigned kMethodNotAllowed = 405;
constexpr unsigned kProxyUnauthorized = 407;
constexpr unsigned kConflict = 409;
constexpr unsigned kGone = 410;
constexpr unsigned kContentTooLarge = 413;
constexpr unsigned kServerError = 500;
constexpr unsigned kNotImplemented = 501;
constexpr unsigned kInsufficientStorage = 507;
constexpr unsigned kBehindErrors = 600;

struct Meaning {
    CProxyInetStatus status;
    const wchar_t* cause;
};

Meaning meaningOf(Request request, unsigned status) {
    const bool isAbsent = status == kNotFound || status == kGone;
    if (request == Request::Fetch && isAbsent)
        return {eInetTargetAbsent, L"doesn't exist"};
    if (request == Request::Upload && (isAbsent || status == kConflict))
        return {eInetFolderAbsent, L"can't be written: its folder doesn't exist on the server"};
    if (status == kUnauthorized || status == kProxyUnauthorized)
        return {eInetSignInNeeded, L"can't be reached without signing in, which the Workbench doesn't"};
    if (status == kContentTooLarge)
        return {eInetTooLarge, L"wasn't transferred: the file is larger than its server takes"};
    if (status == kInsufficientStorage)
        return {eInetServerFull, L"can't be written: there is no room on its server"};
    if (status >= kServerError && status < kBehindErrors)
        return {eInetServerFailed, L"wasn't transferred: its server failed"};
    if (status >= kBadRequest && status < kServerError)
        return {eInetRefused, L"wasn't transferred: its server refuses it"};
    if (status >= kMultipleChoices && status < kBadRequest)
        return {eInetBadRedirect, L"wasn't transferred: its server sends on to somewhere else"};
    return {eInetNotUnderstood, L"wasn't transferred: its server gives an answer that doesn't fit"};
}

} // namespace

std::optional<RemoteFailure> failureOfAnswer(Request request, unsigned status) {
    const bool isWell =
        request == Request::Fetch ? status == kOk : status == kOk || status == kCreated || status == kNoContent;
    if (isWell)
        return std::nullopt;
    const Meaning meaning = meaningOf(request, status);
    return RemoteFailure{meaning.status, meaning.cause + (L" (" + std::to_wstring(status)) + L")"};
}

bool isVerbUnknown(unsigned status) {
    return status == kMethodNotAllowed || status == kNotImplemented;
}

bool isRedirect(Request request, unsigned status) {
    if (status == kTemporaryRedirect || status == kPermanentRedirect)
        return true;
    // 301, 302 and 303 count for fetching only: clients repeat the request as a GET then, so that an upload would
    // become a fetch.
    return request == Request::Fetch && (status == kMovedPermanently || status == kFound || status == kSeeOther);
}

} // namespace remote
