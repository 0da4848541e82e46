// The names of a drawing, each kept once. Names are compared without regard to case, as everywhere in a drawing; the
// spelling kept is the one that came first, until the name is spelled anew.
#pragma once

#include "CaseFolding.h"

#include <cstdint>
#include <deque>
#include <unordered_map>

namespace zdr {

/// A name of one NameTable; equal ids mean equal names without regard to case. 0 is the empty name.
using NameId = std::uint32_t;
inline constexpr NameId kNoName = 0;

class KELDB_API NameTable {
  public:
    NameTable();
    /// The id of a name, entered if it is new.
    NameId intern(std::wstring_view name);
    /// The id of a name, or kNoName when it has none.
    NameId find(std::wstring_view name) const;
    /// The spelling kept. The reference stays good for the table's life.
    const std::wstring& text(NameId id) const { return m_names[id]; }
    /// Replaces the spelling by one that differs in case alone.
    void respell(NameId id, std::wstring_view name);
    std::size_t size() const { return m_names.size(); }

  private:
    std::deque<std::wstring> m_names;
    std::unordered_map<std::wstring, NameId, FoldedHash, FoldedEqual> m_ids;
};

} // namespace zdr
