// The names of a drawing, each kept once. Names are compared without regard to case, as everywhere in a drawing; the
// spelling kept is the one that came first.
#pragma once

#include "KelExport.h"

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

namespace zdr {

/// A name of one NameTable; equal ids mean equal names without regard to case. 0 is the empty name.
using NameId = std::uint32_t;
inline constexpr NameId kNoName = 0;

/// `text` folded for comparison: simple upper-case mapping, character by character, the same on every system.
KELDB_API std::wstring foldCase(std::wstring_view text);

class KELDB_API NameTable {
  public:
    NameTable();
    /// The id of a name, entered if it is new.
    NameId intern(std::wstring_view name);
    /// The id of a name, or kNoName when it has none.
    NameId find(std::wstring_view name) const;
    /// The spelling that came first. The reference stays good for the table's life.
    const std::wstring& text(NameId id) const { return m_names[id]; }
    std::size_t size() const { return m_names.size(); }

  private:
    std::deque<std::wstring> m_names;
    std::unordered_map<std::wstring, NameId> m_ids; // by folded name
};

} // namespace zdr
