// Comparison of names without regard to case, the same on every system and in every locale: Unicode's simple upper-case
// mapping, character by character. Letters outside ASCII never become ASCII ones, and what lies beyond the basic plane
// is compared as it stands, so that 16-bit and 32-bit characters agree.
#pragma once

#include "KelExport.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace zdr {

/// One character, folded.
KELDB_API wchar_t foldCharacter(wchar_t character);
/// `text` folded for comparison.
KELDB_API std::wstring foldCase(std::wstring_view text);
/// Negative, 0 or positive, by the folded characters.
KELDB_API int compareFolded(std::wstring_view a, std::wstring_view b);
inline bool equalFolded(std::wstring_view a, std::wstring_view b) {
    return a.size() == b.size() && compareFolded(a, b) == 0;
}

/// Hash and equality for containers keyed by name. They fold as they go, so that a look-up takes no memory; the hash is
/// seeded.
struct FoldedHash {
    using is_transparent = void;
    KELDB_API std::size_t operator()(std::wstring_view text) const;
};
struct FoldedEqual {
    using is_transparent = void;
    bool operator()(std::wstring_view a, std::wstring_view b) const { return equalFolded(a, b); }
};

} // namespace zdr
