// How long the remote file service waits for a server.
#pragma once

#include "KelExport.h"
#include "remote/model/TransferPace.h"

#include <chrono>

namespace remote {

/// Each bounds one wait, not a transfer as a whole: a large file on a slow line takes as long as it takes, as long as
/// it isn't slower than the least pace.
struct Timeouts {
    std::chrono::milliseconds resolve{10'000}; ///< for the number behind the server's name
    std::chrono::milliseconds connect{10'000}; ///< for each of the server's numbers
    std::chrono::milliseconds begin{60'000};   ///< for all of that, and for the head of the request to be taken
    std::chrono::milliseconds send{30'000};    ///< for the server to take the next bytes
    std::chrono::milliseconds receive{30'000}; ///< for the head of the answer, and for its next bytes
    LeastPace leastPace{1'000, std::chrono::milliseconds{30'000}}; ///< of the content, both ways
};

KELUI_API Timeouts timeouts();
/// Changes the waits of the transfers that follow, for tests; `Timeouts()` brings the usual ones back.
KELUI_API void setTimeouts(const Timeouts& timeouts);

} // namespace remote
