// Why a remote file can't be transferred.
#pragma once

#include "OrvUiInternet.h"

#include <string>

namespace remote {

/// Thrown inside this folder; the operations of CProxyInet turn it into a status and a sentence.
struct RemoteFailure {
    CProxyInetStatus status;
    std::wstring cause; ///< the end of a sentence that begins with the address: "can't be reached: ..."
};

/// The sentences for the user about the last transfer or temporary file, if it failed: which address or file, why, and
/// what to do where there is something to do. The service has printed them, unless they tell what callers expect. Empty
/// when it went well, or when there was no memory even for a sentence.
KELUI_API const std::wstring& lastRemoteProblem();

} // namespace remote
