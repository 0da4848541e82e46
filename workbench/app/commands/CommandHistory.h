// The lines that were run, for recall with the arrow keys.
#pragma once

#include <string>
#include <vector>

namespace workbench {

class CommandHistory {
  public:
    /// @param limit how many lines are kept; when there are more, the oldest are forgotten
    explicit CommandHistory(std::size_t limit = 200) : m_limit(limit) {}

    /// Adds a line that was run; the next recall starts from it. An empty line, and a repeat of the line before, is not
    /// added.
    void add(const std::wstring& line);
    /// The line before the one recalled; from the oldest line on, the oldest again. At the start of a recall `typed`,
    /// the line being typed, is kept for next() to answer. While the history is empty the answer is `typed`.
    std::wstring previous(const std::wstring& typed);
    /// The line after the one recalled; beyond the newest, what was being typed before the recall.
    std::wstring next(const std::wstring& typed);
    /// The line that was run last; empty when none was.
    std::wstring last() const { return m_lines.empty() ? std::wstring() : m_lines.back(); }
    /// Ends a recall without running anything.
    void rewind() { m_position = m_lines.size(); }

  private:
    std::vector<std::wstring> m_lines;
    std::wstring m_typed;
    std::size_t m_position = 0; // m_lines.size(): nothing recalled
    std::size_t m_limit;
};

} // namespace workbench
