// Scripts: the lines of a text file, and the lines that wait to be run.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace workbench {

/// The lines of a script. Empty ones and those that begin with ';' are left out. The text is UTF-8; a line that
/// isn't is taken byte by byte.
std::vector<std::wstring> scriptLines(const std::string& text);

/// The lines of a script file; none, with a sentence in `problem`, when it can't be read.
std::vector<std::wstring> readScript(const std::wstring& path, std::wstring& problem);

/// The lines that wait for the one under way. A script that is run by a script goes in front of the other's rest.
class LineQueue {
  public:
    /// Scripts that wait for each other; a script that runs itself would never end.
    static constexpr int kDeepest = 16;

    bool isEmpty() const { return m_lines.empty(); }
    /// Puts lines behind all that wait.
    void append(const std::vector<std::wstring>& lines);
    /// Puts the lines of a script in front of all that wait, on behalf of the line that is under way. False, and
    /// nothing changed, when that line stands kDeepest scripts deep.
    bool enter(const std::vector<std::wstring>& lines);
    /// Takes the next line, which is under way from then on.
    std::optional<std::wstring> next();
    /// The line under way is one that a person gave.
    void interrupt() { m_depth = 0; }
    void clear();

  private:
    struct Line {
        std::wstring text;
        int depth = 0; ///< of scripts within scripts
    };
    std::deque<Line> m_lines;
    int m_depth = 0; ///< of the line under way
};

} // namespace workbench
