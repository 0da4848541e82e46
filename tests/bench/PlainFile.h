// The same bytes as a plain file: what reading and writing cost when nothing is understood, checked or kept safe.
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>

struct PlainBytes {
    std::unique_ptr<std::byte[]> bytes;
    std::size_t size = 0;
    std::span<const std::byte> span() const { return {bytes.get(), size}; }
};

/// Reads a whole file into fresh memory. Ends the program when it can't.
PlainBytes readPlainFile(const std::string& path);

/// Writes a whole file over the old one and waits until it is on the disk. Ends the program when it can't.
void writePlainFile(const std::string& path, std::span<const std::byte> bytes);
