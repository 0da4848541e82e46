// Scripts: the lines of a text file, and the lines that wait to be run.
#pragma once

#include "SessionWindow.h"
#include "TypedPaths.h"

#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace workbench {

/// The lines of a script. Empty ones and those that begin with ';' are left out. The text is UTF-8; a line that
/// isn't is taken byte by byte.
std::vector<std::wstring> scriptLines(const std::string& text);

/// The lines of a script file; none, with a sentence in `problem`, when it can't be read or isn't text.
std::vector<std::wstring> readScript(const SoughtFile& script, std::wstring& problem);

/// The lines that wait until the running line is done: those of scripts, and behind them what a person has typed
/// meanwhile. When a script runs another script, the other's lines go before the rest of its own.
class LineQueue {
  public:
    /// How many scripts deep scripts may run each other. Without a bound a script that runs itself would never end.
    static constexpr int kDeepest = 16;

    bool isEmpty() const { return m_scripts.empty() && m_typed.empty(); }
    /// Whether lines of a script are still to be run.
    bool isInScript() const { return !m_scripts.empty(); }
    /// Puts a line that a person has typed behind all that wait.
    void append(const std::wstring& line) { m_typed.push_back(line); }
    /// Puts the lines of a script that the running line has asked for before all that wait. False, and nothing changed,
    /// when the running line is kDeepest scripts deep already.
    bool enter(Script script);
    /// Takes the next line, which counts as the running one from then on.
    std::optional<std::wstring> next();
    /// To be called when the running line has been run. A script stops when its line couldn't be done, unless it keeps
    /// going, and so does the script that has run it; typed lines that have waited for a script that stops are dropped.
    /// @return what there is to be told of scripts that have ended; often nothing
    std::wstring end(bool done);
    /// What goes before a line that is put behind all that wait, as the beginning of a sentence.
    std::wstring whatGoesFirst() const;
    /// Drops everything, because a person wants it.
    /// @return what there is to be told; nothing when no line has waited
    std::wstring stop();
    /// Drops everything.
    void clear();

  private:
    struct Running {
        Script script;
        std::size_t next = 0; ///< of its lines
        std::size_t done = 0;
        std::size_t failed = 0;
    };
    std::wstring count(bool done);
    std::wstring dropTyped();
    /// Whether the lines of the program's start wait, which are a script without a path.
    bool isInStart() const { return isInScript() && m_scripts.front().script.path.empty(); }

    std::vector<Running> m_scripts; // each is run by a line of the one before it
    std::deque<std::wstring> m_typed;
    bool m_hasEntered = false; // the running line has entered a script, whose end is the line's
};

} // namespace workbench
