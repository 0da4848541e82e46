// Reading a file in one go.
#pragma once

#include "Refusal.h"
#include "SystemFile.h"

#include <algorithm>

namespace zdr {

constexpr std::size_t kPieceSize = std::size_t{1} << 20; // what was just read is still in the cache when it is hashed

/// Reads a file of these facts into `room`, which has its size, and calls `take` with each piece. Refuses with
/// eFileUnreadable when the file changes meanwhile.
template <class Take> void readWhole(InputFile& file, const FileFacts& facts, std::span<std::byte> room, Take take) {
    std::size_t done = 0;
    while (const std::size_t count = file.read(room.subspan(done, std::min(kPieceSize, room.size() - done)))) {
        take(room.subspan(done, count));
        done += count;
    }
    if (done != room.size() || file.facts() != facts)
        throw Refusal{Vorn::eFileUnreadable, L"can't be read: it is being written by another program"};
}

} // namespace zdr
