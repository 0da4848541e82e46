// What comparisons of states with the drawing have answered, so that a list can ask again at each of its changes.
#pragma once

#include "model/Drawing.h"
#include "model/SeededHash.h"

#include <unordered_map>

namespace engine {

/// Keeps the last answer for each state.
class ComparisonCache {
  public:
    /// @param viewport 0 for the model tab
    std::optional<bool> find(zdr::Handle state, zdr::Handle viewport) const {
        const auto kept = m_answers.find(state);
        if (kept == m_answers.end() || kept->second.viewport != viewport)
            return std::nullopt;
        return kept->second.matches;
    }
    void keep(zdr::Handle state, zdr::Handle viewport, bool matches) { m_answers[state] = {viewport, matches}; }
    /// The state has changed.
    void forget(zdr::Handle state) { m_answers.erase(state); }
    /// The layers, or what a viewport shows of them, have changed.
    void clear() { m_answers.clear(); }

  private:
    struct Answer {
        zdr::Handle viewport = 0;
        bool matches = false;
    };
    std::unordered_map<zdr::Handle, Answer, zdr::HandleHash> m_answers;
};

} // namespace engine
