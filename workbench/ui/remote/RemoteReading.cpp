// What the engine is asked to read from a server is fetched by the host's remote files, for as long as it is read.

#include "CommandLineOutput.h"
#include "OrvUiInternet.h"
#include "RemoteProblem.h"
#include "TemporaryFiles.h"
#include "base/OutOfMemory.h"
#include "files/RemoteFiles.h"

namespace remote {
namespace {

constexpr int kTransferFlags = 1;

std::wstring fetched(const std::wstring& address, std::wstring& reason) {
    CProxyInet* service = CProxyInet::GetProxyInet();
    OrvXREFString path;
    int answer = service ? service->CreateInternetTempFile(address.c_str(), path) : int{eInetSystemFailed};
    if (answer == eInetOk)
        answer = service->TransferFile(address.c_str(), path, kInetFetch, kTransferFlags);
    if (answer == eInetOk)
        return static_cast<const wchar_t*>(path);
    discardTemporaryFile(static_cast<const wchar_t*>(path));
    reason = lastRemoteProblem();
    // The service leaves this one to its callers, who mostly ask to find out. Who wants to read wants the file.
    if (answer == eInetTargetAbsent)
        runtime::print(reason + L"\n");
    return {};
}

constexpr zdr::RemoteFetcher kFetcher = {
    [](const std::wstring& address, std::wstring& reason) {
        return framework::answerOr(std::wstring(), [&] { return fetched(address, reason); });
    },
    discardTemporaryFile,
};

/// Offers itself to the engine for as long as this library is loaded.
const struct Offer {
    Offer() { zdr::setRemoteFetcher(&kFetcher); }
    ~Offer() { zdr::setRemoteFetcher(nullptr); }
} offer;

} // namespace
} // namespace remote
