// JSON as a library reads it: what the reader of layer states files, which has its own scanner, is compared with.
#pragma once

#include <string>
#include <string_view>

enum class JsonVerdict {
    Good,
    Bad,
    NotCompared, ///< the library ends a text at a zero, and refuses numbers beyond what a double holds
};

struct JsonReading {
    JsonVerdict verdict;
    std::string place = {}; ///< of a bad text: "line 3, column 5" of the byte that the library read last
};

JsonReading readByLibrary(std::string_view text);
