#include "SeededHash.h"

#include <random>

namespace zdr {
namespace {

std::uint64_t drawnSeed() {
    std::random_device device;
    constexpr std::uint64_t kLeast = std::uint64_t{1} << 60;
    const std::uint64_t drawn = std::uint64_t{device()} << 32 | device();
    return kLeast + drawn % (kLeast - 1);
}

} // namespace

std::uint64_t SeededHash::seed() noexcept {
    static const std::uint64_t drawn = drawnSeed();
    return drawn;
}

} // namespace zdr
