#include "NameTable.h"

namespace zdr {
namespace {

std::uint32_t hashOf(std::wstring_view name) {
    return static_cast<std::uint32_t>(FoldedHash()(name));
}

} // namespace

NameTable::NameTable() : m_names(1), m_slots(16) {}

std::size_t NameTable::slotOf(std::wstring_view name, std::uint32_t hash) const {
    const std::size_t mask = m_slots.size() - 1;
    std::size_t slot = hash & mask;
    while (m_slots[slot].id != kNoName && (m_slots[slot].hash != hash || !equalFolded(m_names[m_slots[slot].id], name)))
        slot = (slot + 1) & mask;
    return slot;
}

void NameTable::makeRoom() {
    if (2 * m_names.size() < m_slots.size())
        return;
    std::vector<Slot> larger(2 * m_slots.size());
    const std::size_t mask = larger.size() - 1;
    for (const Slot& known : m_slots) {
        if (known.id == kNoName)
            continue;
        std::size_t slot = known.hash & mask;
        while (larger[slot].id != kNoName)
            slot = (slot + 1) & mask;
        larger[slot] = known;
    }
    m_slots = std::move(larger);
}

NameId NameTable::intern(std::wstring_view name) {
    if (name.empty())
        return kNoName;
    makeRoom();
    const std::uint32_t hash = hashOf(name);
    Slot& slot = m_slots[slotOf(name, hash)];
    if (slot.id == kNoName) {
        const auto id = static_cast<NameId>(m_names.size());
        m_names.emplace_back(name);
        slot = {id, hash};
    }
    return slot.id;
}

NameId NameTable::find(std::wstring_view name) const {
    return name.empty() ? kNoName : m_slots[slotOf(name, hashOf(name))].id;
}

void NameTable::respell(NameId id, std::wstring_view name) {
    if (equalFolded(m_names[id], name))
        m_names[id] = name;
}

} // namespace zdr
