// Counts this process's entries in the list of all handles of the system, which Windows and Wine both give. Wine's
// GetProcessHandleCount answers 0.

#include "HandleCount.h"

#include <windows.h>

#include <winternl.h>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace {

constexpr auto kHandleInformation = static_cast<SYSTEM_INFORMATION_CLASS>(16);
constexpr NTSTATUS kLengthMismatch = static_cast<NTSTATUS>(0xC0000004);

struct HandleEntry {
    USHORT process, trace;
    UCHAR type, attributes;
    USHORT handle;
    void* object;
    ULONG access;
};

struct HandleList {
    ULONG count;
    HandleEntry entries[1];
};

} // namespace

std::optional<unsigned> countHandles() {
    std::vector<std::byte> buffer(1u << 16);
    NTSTATUS status = kLengthMismatch;
    while ((status = NtQuerySystemInformation(kHandleInformation, buffer.data(), static_cast<ULONG>(buffer.size()),
                                              nullptr)) == kLengthMismatch)
        buffer.resize(buffer.size() * 2);
    if (status < 0)
        return std::nullopt;
    const auto* list = reinterpret_cast<const HandleList*>(buffer.data());
    return static_cast<unsigned>(
        std::count_if(list->entries, list->entries + list->count, [](const HandleEntry& entry) {
            return entry.process == static_cast<USHORT>(GetCurrentProcessId());
        }));
}
