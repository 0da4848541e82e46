// What the status code of a server's answer means: three digits, such as 200 or 404.
#pragma once

#include "RemoteProblem.h"

#include <optional>

namespace remote {

enum class Request { Fetch, Upload };

/// The failure that a status code stands for; none when it says that all is well.
std::optional<RemoteFailure> failureOfAnswer(Request request, unsigned status);
/// Whether the server doesn't know the verb of a request, or not for that file.
bool isVerbUnknown(unsigned status);
/// Whether an answer sends on to another address with the same request.
bool isRedirect(Request request, unsigned status);

} // namespace remote
