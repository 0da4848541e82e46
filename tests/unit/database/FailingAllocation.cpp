#include "FailingAllocation.h"

#include "../sweep/Tally.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <malloc.h>
#include <new>

namespace {

int g_allocationsLeft = 0; // counts down to the one that fails; 0: none is to
std::size_t g_allocatedBytes = 0;

bool g_measures = false;
std::int64_t g_allocated = 0; // bytes since the measuring began; what is older may go meanwhile
std::int64_t g_peak = 0;

Tally g_struck("allocations failed, each in a run of its own");

void* allocate(std::size_t size) {
    void* const memory = std::malloc(size == 0 ? 1 : size);
    if (g_measures && memory) {
        g_allocated += static_cast<std::int64_t>(malloc_usable_size(memory));
        g_peak = std::max(g_peak, g_allocated);
    }
    return memory;
}

void release(void* memory) {
    if (g_measures && memory)
        g_allocated -= static_cast<std::int64_t>(malloc_usable_size(memory));
    std::free(memory);
}

} // namespace

PeakMemory::PeakMemory() {
    g_allocated = g_peak = 0;
    g_measures = true;
}
PeakMemory::~PeakMemory() {
    g_measures = false;
}
std::size_t PeakMemory::bytes() const {
    return static_cast<std::size_t>(g_peak);
}

FailingAllocation::FailingAllocation(int nth) {
    g_allocationsLeft = nth;
}
FailingAllocation::~FailingAllocation() {
    g_struck.add(hasStruck());
    g_allocationsLeft = 0;
}
bool FailingAllocation::hasStruck() const {
    return g_allocationsLeft == 0;
}

std::size_t allocatedBytes() {
    return g_allocatedBytes;
}

// All forms but the aligned ones are replaced, so that no block comes from one allocator and goes back to another.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    if (g_allocationsLeft > 0 && --g_allocationsLeft == 0)
        return nullptr;
    g_allocatedBytes += size;
    return allocate(size);
}
void* operator new(std::size_t size) {
    if (void* memory = operator new(size, std::nothrow))
        return memory;
    throw std::bad_alloc();
}
void* operator new[](std::size_t size) {
    return operator new(size);
}
void* operator new[](std::size_t size, const std::nothrow_t& nothrow) noexcept {
    return operator new(size, nothrow);
}
void operator delete(void* memory) noexcept {
    release(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    release(memory);
}
void operator delete[](void* memory) noexcept {
    release(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    release(memory);
}
