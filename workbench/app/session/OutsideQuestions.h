// Whether to look for references outside this computer: what the user has answered, and else a question.
#pragma once

#include "SessionWindow.h"

#include "files/References.h"

namespace workbench {

/// The questions of one command. Each folder is asked about once and for all.
class OutsideQuestions {
  public:
    explicit OutsideQuestions(SessionWindow& window) : m_window(window) {}

    /// Why the file isn't to be looked for, as zdr::resolveReferences wants it; nothing when it may be.
    std::wstring whyNot(const zdr::OutsideReference& reference);

  private:
    SessionWindow& m_window;
    bool m_isCancelled = false;
};

} // namespace workbench
