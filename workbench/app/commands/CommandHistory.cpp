#include "CommandHistory.h"

namespace workbench {

void CommandHistory::add(const std::wstring& line) {
    if (!line.empty() && (m_lines.empty() || m_lines.back() != line)) {
        m_lines.push_back(line);
        if (m_lines.size() > m_limit)
            m_lines.erase(m_lines.begin());
    }
    rewind();
}

std::wstring CommandHistory::previous(const std::wstring& typed) {
    if (m_lines.empty())
        return typed;
    if (m_position == m_lines.size())
        m_typed = typed;
    if (m_position > 0)
        --m_position;
    return m_lines[m_position];
}

std::wstring CommandHistory::next(const std::wstring& typed) {
    if (m_position == m_lines.size())
        return typed;
    ++m_position;
    return m_position == m_lines.size() ? m_typed : m_lines[m_position];
}

} // namespace workbench
