// Owner of a description that the host hands out.
#pragma once

#include "ResultBuffer.h"

#include <memory>

struct HostDescriptionDeleter {
    void operator()(wchar_t* text) const { keldbFree(text); }
};
/// A layer state's description, given back to the host at the end of its life.
using HostDescription = std::unique_ptr<wchar_t, HostDescriptionDeleter>;
