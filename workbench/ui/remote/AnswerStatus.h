// What the three figures of a server's answer mean.
#pragma once

#include "RemoteProblem.h"

#include <optional>

namespace remote {

enum class Request { Fetch, Upload };

/// What went wrong by an answer; none when it says that all is well.
std::optional<RemoteFailure> failureOfAnswer(Request request, unsigned status);
/// Whether an answer sends on to another address with the same request.
bool isRedirect(Request request, unsigned status);

} // namespace remote
