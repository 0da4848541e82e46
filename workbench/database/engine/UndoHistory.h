// The steps that can be undone and done again. A step is all that changed between the outermost start of a group and
// its end; what changes outside any group is gathered into one step that ends where the next group begins.
#pragma once

#include "Changes.h"

#include <deque>
#include <unordered_set>

namespace engine {

/// What a step changed, as far as finding things by name goes.
struct StepContent {
    bool layers = false, states = false, plotStyles = false;
};

class UndoHistory {
  public:
    void beginGroup();
    void endGroup();
    bool inGroup() const { return m_depth > 0; }
    bool canUndo() const { return !m_done.empty() || !m_open.changes.empty(); }
    bool canRedo() const { return !m_undone.empty() && m_open.changes.empty(); }
    /// Takes the last step back; none when there is nothing to take back, or within a group.
    std::optional<StepContent> undo(zdr::Drawing& drawing, ObjectDirectory& objects);
    std::optional<StepContent> redo(zdr::Drawing& drawing, ObjectDirectory& objects);
    void clear();

    /// Before anything of that part changes; once a step is enough, and more cost nothing.
    void beforeColumns(const zdr::Drawing& drawing);
    void beforeSettings(const zdr::Drawing& drawing);
    void beforeState(const zdr::Drawing& drawing, std::size_t index);
    void beforeViewport(const zdr::Viewport& viewport);
    /// A change that holds its other side already.
    void add(Change change);

  private:
    struct Step {
        std::vector<Change> changes;
        bool columns = false, settings = false;
        std::unordered_set<zdr::Handle> objects; // states and viewports that are in `changes` already
    };
    void close();

    static constexpr std::size_t kMaxSteps = 200;
    std::deque<Step> m_done, m_undone;
    Step m_open;
    int m_depth = 0;
};

} // namespace engine
