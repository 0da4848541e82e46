// What a user can do about a transfer that failed.
#pragma once

#include "OrvUiInternet.h"

namespace remote {

/// A sentence to follow the one that tells why the transfer failed; empty when the user can do nothing.
const wchar_t* adviceOn(CProxyInetStatus status);

} // namespace remote
