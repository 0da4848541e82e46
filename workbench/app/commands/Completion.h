// What Tab makes of the line being typed.
#pragma once

#include <string>
#include <vector>

namespace workbench {

class Session;

struct Completion {
    std::wstring line;                    ///< as far as it can be completed
    std::vector<std::wstring> candidates; ///< for the last word, when there are several; otherwise empty
};

/// Completes the last word of a line: a command, one of its options, a value, a name of the drawing, or a path.
Completion complete(const Session& session, const std::wstring& line);

} // namespace workbench
