#include "NameTable.h"

namespace zdr {

NameTable::NameTable() {
    intern({});
}

NameId NameTable::intern(std::wstring_view name) {
    if (const auto found = m_ids.find(name); found != m_ids.end())
        return found->second;
    const auto id = static_cast<NameId>(m_names.size());
    m_names.emplace_back(name);
    try {
        m_ids.emplace(name, id);
    } catch (...) {
        m_names.pop_back();
        throw;
    }
    return id;
}

NameId NameTable::find(std::wstring_view name) const {
    const auto found = m_ids.find(name);
    return found == m_ids.end() ? kNoName : found->second;
}

void NameTable::respell(NameId id, std::wstring_view name) {
    if (equalFolded(m_names[id], name))
        m_names[id] = name;
}

} // namespace zdr
