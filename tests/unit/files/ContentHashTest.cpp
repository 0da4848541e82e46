// The fingerprint of a file's bytes.
#include "files/ContentHash.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

namespace {

std::vector<std::byte> someBytes(std::size_t size) {
    std::vector<std::byte> bytes(size);
    for (std::size_t i = 0; i < size; ++i)
        bytes[i] = static_cast<std::byte>(i * 7 + i / 256);
    return bytes;
}

std::uint64_t hashOf(std::span<const std::byte> bytes) {
    zdr::ContentHash hash;
    hash.add(bytes);
    return hash.value();
}

} // namespace

TEST(ContentHash, doesNotDependOnHowTheBytesAreCut) {
    const std::vector<std::byte> bytes = someBytes(1000);
    const std::uint64_t whole = hashOf(bytes);
    for (std::size_t piece = 1; piece < 100; ++piece) {
        zdr::ContentHash hash;
        for (std::size_t at = 0; at < bytes.size(); at += piece)
            hash.add(std::span(bytes).subspan(at, std::min(piece, bytes.size() - at)));
        EXPECT_EQ(hash.value(), whole) << piece;
    }
}

TEST(ContentHash, everySingleBitCounts) {
    std::vector<std::byte> bytes = someBytes(100);
    std::set<std::uint64_t> seen{hashOf(bytes)};
    for (std::size_t bit = 0; bit < bytes.size() * 8; ++bit) {
        bytes[bit / 8] ^= std::byte{1} << (bit % 8);
        EXPECT_TRUE(seen.insert(hashOf(bytes)).second) << bit;
        bytes[bit / 8] ^= std::byte{1} << (bit % 8);
    }
}

TEST(ContentHash, theNumberOfZeroBytesCounts) {
    std::set<std::uint64_t> seen;
    for (std::size_t size = 0; size < 200; ++size)
        EXPECT_TRUE(seen.insert(hashOf(std::vector<std::byte>(size))).second) << size;
}
