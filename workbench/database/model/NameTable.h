// The names of a drawing, each kept once. Names are compared without regard to case, as everywhere in a drawing; the
// spelling kept is the one that came first, until the name is spelled anew.
#pragma once

#include "CaseFolding.h"

#include <cstdint>
#include <deque>
#include <vector>

namespace zdr {

/// A name of one NameTable; equal ids mean equal names without regard to case. 0 is the empty name.
using NameId = std::uint32_t;
inline constexpr NameId kNoName = 0;

/// One that was moved from can only be destroyed or be given another's content.
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
    /// A place of the hash table: no pointers, so that a table can be copied, and the names stand in one list alone.
    struct Slot {
        NameId id = kNoName; ///< kNoName: free
        std::uint32_t hash = 0;
    };
    /// The place in which a name stands, or would stand.
    std::size_t slotOf(std::wstring_view name, std::uint32_t hash) const;
    void makeRoom();

    std::deque<std::wstring> m_names;
    std::vector<Slot> m_slots; // a power of two, half of them free
};

} // namespace zdr
