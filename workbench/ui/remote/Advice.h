// What a user can do about a transfer that failed.
#pragma once

#include "OrvUiInternet.h"

namespace remote {

/// A sentence, to stand behind the one that tells why; empty where nothing is to be done.
const wchar_t* adviceOn(CProxyInetStatus status);

} // namespace remote
