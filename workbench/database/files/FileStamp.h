// What a file was when this program last read or wrote it, so that a change by someone else is noticed.
#pragma once

#include <cstdint>

namespace zdr {

/// What the system knows of a file: cheap to ask for, and nearly always different after a change.
struct FileFacts {
    std::uint64_t size = 0;
    std::int64_t modified = 0;  ///< nanoseconds, by the system's clock
    std::uint64_t identity = 0; ///< the file behind the name; another one after a replacement
    friend bool operator==(const FileFacts&, const FileFacts&) = default;
};

/// Kept beside a drawing between reading and saving. One that was never filled says that there was no file.
struct FileStamp {
    bool known = false;
    FileFacts facts;
    std::uint64_t content = 0; ///< ContentHash of the bytes
    std::int64_t taken = 0;    ///< when the facts were asked for, by the clock of `modified`
};

} // namespace zdr
