// Four independent lanes of multiplications, so that the processor works on them at once.
#include "ContentHash.h"

#include <algorithm>
#include <cstring>

namespace zdr {
namespace {

constexpr std::uint64_t kMultiplier = 0x9E3779B97F4A7C15; // 2^64 divided by the golden ratio; odd

// The shift carries the highest bits down again: the product alone would leave them where they are, and a change of
// one could be undone by a change in the next word.
std::uint64_t mix(std::uint64_t lane, std::uint64_t word) {
    const std::uint64_t product = (lane ^ word) * kMultiplier;
    return product ^ product >> 29;
}

} // namespace

void ContentHash::addBlocks(const std::byte* bytes, std::size_t count) {
    std::array<std::uint64_t, 4> lanes = m_lanes;
    for (std::size_t block = 0; block < count; ++block, bytes += kBlock) {
        std::array<std::uint64_t, 4> words;
        std::memcpy(words.data(), bytes, kBlock);
        for (std::size_t i = 0; i < 4; ++i)
            lanes[i] = mix(lanes[i], words[i]);
    }
    m_lanes = lanes;
}

void ContentHash::add(std::span<const std::byte> bytes) {
    const std::size_t waiting = m_size % kBlock;
    m_size += bytes.size();
    if (waiting > 0) {
        const std::size_t taken = std::min(kBlock - waiting, bytes.size());
        std::copy_n(bytes.begin(), taken, m_rest.begin() + static_cast<std::ptrdiff_t>(waiting));
        bytes = bytes.subspan(taken);
        if (waiting + taken < kBlock)
            return;
        addBlocks(m_rest.data(), 1);
    }
    addBlocks(bytes.data(), bytes.size() / kBlock);
    const std::span<const std::byte> rest = bytes.last(bytes.size() % kBlock);
    std::copy(rest.begin(), rest.end(), m_rest.begin());
}

std::uint64_t ContentHash::value() const {
    ContentHash padded = *this;
    std::fill(padded.m_rest.begin() + static_cast<std::ptrdiff_t>(m_size % kBlock), padded.m_rest.end(), std::byte{0});
    padded.addBlocks(padded.m_rest.data(), 1);
    std::uint64_t hash = m_size;
    for (const std::uint64_t lane : padded.m_lanes)
        hash = mix(hash, lane);
    return hash;
}

} // namespace zdr
