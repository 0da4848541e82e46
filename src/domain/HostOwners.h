// Owners of what the host hands out and wants back, one for each way of giving it back.
#pragma once

#include "ResultBuffer.h"

#include <cstdlib>
#include <cwchar>
#include <memory>

struct GiveBackDescription {
    void operator()(wchar_t* text) const { keldbFree(text); }
};
struct GiveBackText {
    void operator()(wchar_t* text) const { kelutDelBuffer(text); }
};
struct FreeRuntimeText {
    void operator()(wchar_t* text) const { std::free(text); }
};
struct ReleaseChain {
    void operator()(ResultBuffer* first) const { kelutRelRb(first); }
};

/// A layer state's description.
using HostDescription = std::unique_ptr<wchar_t, GiveBackDescription>;
/// The copy of a name, a layer's or linetype's description, what a picker has picked.
using HostText = std::unique_ptr<wchar_t, GiveBackText>;
/// A text that the host leaves to the runtime library: the name of a layer's plot style.
using RuntimeText = std::unique_ptr<wchar_t, FreeRuntimeText>;
/// A copy on the runtime library's heap, for who frees it there; null when there is no memory for it.
inline RuntimeText runtimeCopy(const wchar_t* text) {
    const std::size_t length = std::wcslen(text) + 1;
    RuntimeText copy(static_cast<wchar_t*>(std::malloc(length * sizeof(wchar_t))));
    if (copy)
        std::wmemcpy(copy.get(), text, length);
    return copy;
}
/// Extended data, and the answer of the file dialog: the chain with its strings.
using HostChain = std::unique_ptr<ResultBuffer, ReleaseChain>;
