#include "FailingAllocation.h"

#include <cstdlib>
#include <new>

namespace {

int g_allocationsLeft = 0; // counts down to the one that fails; 0: none is to

} // namespace

FailingAllocation::FailingAllocation(int nth) {
    g_allocationsLeft = nth;
}
FailingAllocation::~FailingAllocation() {
    g_allocationsLeft = 0;
}
bool FailingAllocation::hasStruck() const {
    return g_allocationsLeft == 0;
}

// All forms but the aligned ones are replaced, so that no block comes from one allocator and goes back to another.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    if (g_allocationsLeft > 0 && --g_allocationsLeft == 0)
        return nullptr;
    return std::malloc(size == 0 ? 1 : size);
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
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}
