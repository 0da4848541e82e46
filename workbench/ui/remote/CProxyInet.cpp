// The host's remote file service: what its operations answer. RemoteTransfer does the transfers.

#include "OrvUiInternet.h"

#include "Advice.h"
#include "CommandLineOutput.h"
#include "RemoteProblem.h"
#include "RemoteTransfer.h"
#include "TemporaryFiles.h"
#include "Timeouts.h"
#include "base/OutOfMemory.h"
#include "files/Refusal.h"
#include "instruments/HostCalls.h"

#include <new>

using instruments::HostCall;

namespace remote {
namespace {

constexpr const wchar_t* kNoMemory = L"There isn't enough memory for the transfer. Close what you don't need.";

std::wstring& problem() {
    static std::wstring sentence;
    return sentence;
}

Timeouts& chosenTimeouts() {
    static Timeouts chosen;
    return chosen;
}

TemporaryFiles& temporaryFiles() {
    static TemporaryFiles files;
    return files;
}

/// The text as an address. Throws a RemoteFailure when it isn't the address of a file on a server.
Address requireRemote(const wchar_t* url) {
    ParsedAddress parsed = parseAddress(url ? url : L"");
    switch (parsed.kind) {
    case AddressKind::Remote:
        return parsed.address;
    case AddressKind::Local:
        throw RemoteFailure{eInetNotRemote, parsed.cause};
    case AddressKind::UnknownScheme:
        throw RemoteFailure{eInetUnknownScheme, parsed.cause};
    case AddressKind::Malformed:
        break;
    }
    throw RemoteFailure{eInetBadAddress, parsed.cause};
}

/// Runs an operation and turns what it throws into a status, and into the sentence that problem() keeps.
template <class Action> int answerOf(const wchar_t* url, Action action) {
    try {
        action();
        return eInetOk;
    } catch (const RemoteFailure& failure) {
        problem() = sentencesAbout(url ? url : L"", failure.cause, adviceOn(failure.status));
        return failure.status;
    } catch (const std::bad_alloc&) {
        problem() = kNoMemory;
        return eInetNoMemory;
    }
}

/// Runs an operation that reads or writes a local file. When the local file fails, answers `failed`, and the sentence
/// in problem() is about `path`.
template <class Action> int withLocalFile(const wchar_t* url, const std::wstring& path, int failed, Action action) {
    int answer = eInetOk;
    const Vorn::ErrorStatus status =
        zdr::fileAnswer(path, Vorn::eOutOfMemory, problem(), [&] { answer = answerOf(url, action); });
    if (status == Vorn::eOutOfMemory)
        return eInetNoMemory;
    return status == Vorn::eOk ? answer : failed;
}

/// Hands a path out. A path keeps it to itself when there is no memory for its text, so that is looked at here.
void handOut(const std::wstring& path, OrvXREFString& localName) {
    localName = path.c_str();
    if (path != static_cast<const wchar_t*>(localName))
        throw std::bad_alloc();
}

// The transfers, with a window that shows how far they are.

constexpr const wchar_t* kWaiting = L"Waiting for the server...";

void requireThereShown(const wchar_t* url) {
    const Address address = requireRemote(url);
    framework::LongWork work(L"Asking Server", shownAddress(url), kWaiting);
    requireThere(work, address);
}

void fetchShown(const wchar_t* url, const std::wstring& path) {
    const Address address = requireRemote(url);
    framework::LongWork work(L"Fetching File", shownAddress(url), kWaiting);
    RemoteFile(work, address).saveAs(path);
}

void uploadShown(const wchar_t* url, const std::wstring& path) {
    const Address address = requireRemote(url);
    framework::LongWork work(L"Uploading File", shownAddress(url), kWaiting);
    uploadFile(work, address, path);
}

int fetch(const wchar_t* url, const OrvXREFString& localName) {
    const std::wstring path = static_cast<const wchar_t*>(localName);
    if (path.empty())
        return answerOf(url, [url] { requireThereShown(url); });
    return withLocalFile(url, path, eInetLocalUnwritable, [&] { fetchShown(url, path); });
}

int upload(const wchar_t* url, const OrvXREFString& localName) {
    const std::wstring path = static_cast<const wchar_t*>(localName);
    const int answer = withLocalFile(url, path, eInetLocalUnreadable, [&] { uploadShown(url, path); });
    temporaryFiles().discard(path);
    return answer;
}

int transfer(const wchar_t* url, const OrvXREFString& localName, int mode) {
    const CWaitCursor waiting;
    problem().clear();
    switch (mode) {
    case kInetFetch:
        return fetch(url, localName);
    case kInetUpload:
        return upload(url, localName);
    default:
        problem() = L"The transfer was asked for in the unknown mode " + std::to_wstring(mode) + L".";
        return eInetUnknownMode;
    }
}

int makeTemporaryFile(const wchar_t* url, OrvXREFString& localName) {
    problem().clear();
    std::wstring path;
    const int answer = answerOf(url, [&] {
        path = temporaryFiles().make(extensionOf(requireRemote(url)));
        handOut(path, localName);
    });
    if (answer != eInetOk)
        temporaryFiles().discard(path);
    return answer;
}

/// Tells the user of a failure, unless it is only that a file isn't there yet, or isn't on a server: that is what
/// callers ask to find out.
int told(int answer) {
    if (answer != eInetOk && answer != eInetTargetAbsent && answer != eInetNotRemote)
        framework::asFarAsMemoryLasts([] { runtime::print(lastRemoteProblem() + L"\n"); });
    return answer;
}

} // namespace

void discardTemporaryFile(const std::wstring& path) {
    temporaryFiles().discard(path);
}

const std::wstring& lastRemoteProblem() {
    return problem();
}

Timeouts timeouts() {
    return chosenTimeouts();
}

void setTimeouts(const Timeouts& timeouts) {
    chosenTimeouts() = timeouts;
}

} // namespace remote

CProxyInet* CProxyInet::GetProxyInet() {
    HostCall call("CProxyInet.GetProxyInet");
    static CProxyInet service;
    CProxyInet* const answer = call.fault() ? nullptr : &service;
    call.answer(static_cast<const void*>(answer));
    return answer;
}

int CProxyInet::TransferFile(const wchar_t* url, OrvXREFString& localName, int mode, int flags) {
    HostCall call("CProxyInet.TransferFile", url, static_cast<const wchar_t*>(localName), mode, flags);
    if (const auto fault = call.fault())
        return call.answer(static_cast<int>(*fault));
    const int answer = framework::answerOr<int>(eInetNoMemory, [&] { return remote::transfer(url, localName, mode); });
    call.out("localName", static_cast<const wchar_t*>(localName));
    return call.answer(remote::told(answer));
}

int CProxyInet::CreateInternetTempFile(const wchar_t* url, OrvXREFString& localName) {
    HostCall call("CProxyInet.CreateInternetTempFile", url);
    if (const auto fault = call.fault())
        return call.answer(static_cast<int>(*fault));
    const int answer =
        framework::answerOr<int>(eInetNoMemory, [&] { return remote::makeTemporaryFile(url, localName); });
    call.out("localName", static_cast<const wchar_t*>(localName));
    return call.answer(remote::told(answer));
}
