// The steps that can be undone and done again. A step is all that changed between the outermost start of a group and
// its end; what changes outside any group is gathered into one step that ends where the next group begins. A group that
// ends with the drawing as it was at its start is no step: there is nothing to undo, and what could be done again
// before it still can. What is looked at, the active space and the current viewport, belongs to no step.
#pragma once

#include "Changes.h"
#include "Lookups.h"

#include <deque>
#include <unordered_set>

namespace engine {

/// How many steps are kept; the oldest are forgotten.
inline constexpr std::size_t kMaxUndoSteps = 200;

/// A number for what the drawing holds: another one after each change, and the former one again once everything since
/// is taken back.
class ContentNumber {
  public:
    explicit ContentNumber(const Lookups& lookups) : m_lookups(lookups) {}
    std::uint64_t value() const { return m_lookups.changes() == m_reachedAt ? m_reached : m_lookups.changes(); }
    /// To be called when the changes so far have led to what the drawing held under that number.
    void reach(std::uint64_t number) {
        m_reached = number;
        m_reachedAt = m_lookups.changes();
    }

  private:
    const Lookups& m_lookups;
    std::uint64_t m_reached = 0, m_reachedAt = 0;
};

class UndoHistory {
  public:
    /// @param content the drawing's, which outlives the history
    explicit UndoHistory(const ContentNumber& content) : m_content(content) {}
    /// @param name of what makes the changes, for people; empty where it has none. The outermost group's counts.
    void beginGroup(std::wstring name);
    /// Ends the group, also when memory runs out: it may then be a step though it changed nothing, or be one step with
    /// what comes after it.
    /// @return the content's number when this ended the outermost group, and it left the drawing as it was
    std::optional<std::uint64_t> endGroup(const zdr::Drawing& drawing, const ObjectDirectory& objects) noexcept;
    /// Names the step that gathers what is changed outside of groups; does nothing while there is none.
    void nameGathered(std::wstring name) {
        if (!inGroup() && !m_open.changes.empty())
            m_open.name = std::move(name);
    }
    bool inGroup() const { return m_depth > 0; }
    bool canUndo() const { return !m_done.empty() || !m_open.changes.empty(); }
    bool canRedo() const { return !m_undone.empty() && m_open.changes.empty(); }
    /// The name of the step that undo() or redo() takes; empty where it has none, or there is nothing to take.
    std::wstring undoName() const;
    std::wstring redoName() const { return canRedo() ? m_undone.back().name : std::wstring(); }
    /// What the next undo() or redo() writes; none when there is nothing to take back, or within a group.
    std::optional<Parts> undoable() const;
    std::optional<Parts> redoable() const;
    /// Takes the last step back. When memory runs out on the way, the step is divided in two: what was taken back can
    /// be done again, the rest can still be taken back. When there is no memory for that either, nothing can be undone
    /// any more.
    /// @return the number of the content that this has brought back
    std::uint64_t undo(zdr::Drawing& drawing, ObjectDirectory& objects);
    std::uint64_t redo(zdr::Drawing& drawing, ObjectDirectory& objects);
    void clear();

    /// To be called before anything of that part changes. Once in a step is enough; further calls cost nothing.
    void beforeColumns(const zdr::Drawing& drawing);
    void beforeSettings(const zdr::Drawing& drawing);
    void beforeState(const zdr::Drawing& drawing, std::size_t index);
    void beforeViewport(const zdr::Viewport& viewport);
    /// Gives a viewport what the change holds; when that throws, nothing has happened.
    void exchangeViewport(ViewportChange&& change, zdr::Drawing& drawing, ObjectDirectory& objects);
    /// Gets ready for that many changes: recording them needs no memory then.
    void makeRoom(std::size_t changes);
    /// Does a change, by exchanging its sides; when that throws, nothing has happened.
    template <class Side> void perform(Side&& change, zdr::Drawing& drawing, ObjectDirectory& objects) {
        open();
        m_open.changes.emplace_back(std::forward<Side>(change));
        performLast(drawing, objects);
    }

  private:
    struct Step {
        std::wstring name;
        std::vector<Change> changes;
        std::uint64_t content = 0; ///< number of the content on the other side of the step
        bool columns = false, settings = false;
        std::unordered_set<zdr::Handle, zdr::HandleHash> objects; // states and viewports that are in `changes` already
    };
    void open();
    void add(Change change);
    void forgetUndone();
    void performLast(zdr::Drawing& drawing, ObjectDirectory& objects);
    void close();
    enum class Way { Back, Forth };
    std::uint64_t carry(std::deque<Step>& from, std::deque<Step>& to, Way way, zdr::Drawing& drawing,
                        ObjectDirectory& objects);
    void divide(std::deque<Step>& from, std::deque<Step>& to, Way way, std::size_t done) noexcept;

    const ContentNumber& m_content;
    std::deque<Step> m_done, m_undone;
    /// What could be done again before the open group, for as long as it isn't known whether that changes anything.
    std::deque<Step> m_undoneBefore;
    Step m_open;
    int m_depth = 0;
};

} // namespace engine
