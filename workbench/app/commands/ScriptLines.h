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

/// The lines that wait until the running line is done. When a script runs another script, the other's lines go before
/// the rest of its own.
class LineQueue {
  public:
    /// How many scripts deep scripts may run each other. Without a bound a script that runs itself would never end.
    static constexpr int kDeepest = 16;

    bool isEmpty() const { return m_lines.empty(); }
    /// Puts lines after all that wait.
    void append(const std::vector<std::wstring>& lines);
    /// Puts the lines of a script that the running line has asked for before all that wait. False, and nothing changed,
    /// when the running line is kDeepest scripts deep already.
    bool enter(const std::vector<std::wstring>& lines);
    /// Takes the next line, which counts as the running one from then on.
    std::optional<std::wstring> next();
    /// Tells the queue that the running line is one that a person gave: it is in no script.
    void interrupt() { m_depth = 0; }
    void clear();

  private:
    struct Line {
        std::wstring text;
        int depth = 0; ///< how many scripts within scripts it is in
    };
    std::deque<Line> m_lines;
    int m_depth = 0; ///< of the running line
};

} // namespace workbench
