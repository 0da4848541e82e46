#include "UndoHistory.h"

#include "ObjectDirectory.h"

#include <iterator>
#include <utility>

namespace engine {

namespace {

Parts partsOf(const std::vector<Change>& changes) {
    Parts parts{.looks = true};
    for (const Change& change : changes) {
        parts.states |= std::holds_alternative<StateChange>(change);
        parts.plotStyles |= std::holds_alternative<PlotStyleChange>(change);
        parts.layers |= std::holds_alternative<LayerChange>(change) || std::holds_alternative<LayerListChange>(change);
    }
    return parts;
}

void exchange(Change& change, zdr::Drawing& drawing, ObjectDirectory& objects) {
    std::visit([&](auto& side) { side.exchange(drawing, objects); }, change);
}

} // namespace

void UndoHistory::beginGroup(std::wstring name) {
    if (m_depth == 0) {
        close();
        m_open.name = std::move(name);
    }
    ++m_depth;
}

std::optional<std::uint64_t> UndoHistory::endGroup(const zdr::Drawing& drawing,
                                                   const ObjectDirectory& objects) noexcept {
    if (m_depth == 0 || --m_depth > 0)
        return std::nullopt;
    std::optional<std::uint64_t> former;
    try {
        if (!m_open.changes.empty() && areUndone(m_open.changes, drawing, objects)) {
            former = m_open.content;
            m_open = {};
            m_undone = std::move(m_undoneBefore);
        } else {
            close();
        }
    } catch (const std::bad_alloc&) {
        former.reset(); // what the group has changed stays open, and is closed with what comes next
    }
    m_undoneBefore.clear();
    if (m_open.changes.empty())
        m_open.name.clear(); // a group without changes leaves its name to nothing
    return former;
}

void UndoHistory::forgetUndone() {
    if (inGroup() && !m_undone.empty())
        m_undoneBefore = std::move(m_undone);
    m_undone.clear();
}

void UndoHistory::close() {
    if (m_open.changes.empty())
        return;
    m_open.objects.clear();
    m_done.push_back(std::move(m_open));
    m_open = {};
    if (m_done.size() > kMaxUndoSteps)
        m_done.pop_front();
}

std::wstring UndoHistory::undoName() const {
    if (!m_open.changes.empty())
        return m_open.name;
    return m_done.empty() ? std::wstring() : m_done.back().name;
}

std::optional<Parts> UndoHistory::undoable() const {
    if (inGroup() || !canUndo())
        return std::nullopt;
    return partsOf(m_open.changes.empty() ? m_done.back().changes : m_open.changes);
}

std::optional<Parts> UndoHistory::redoable() const {
    if (inGroup() || !canRedo())
        return std::nullopt;
    return partsOf(m_undone.back().changes);
}

std::uint64_t UndoHistory::undo(zdr::Drawing& drawing, ObjectDirectory& objects) {
    close();
    return carry(m_done, m_undone, Way::Back, drawing, objects);
}

std::uint64_t UndoHistory::redo(zdr::Drawing& drawing, ObjectDirectory& objects) {
    return carry(m_undone, m_done, Way::Forth, drawing, objects);
}

std::uint64_t UndoHistory::carry(std::deque<Step>& from, std::deque<Step>& to, Way way, zdr::Drawing& drawing,
                                 ObjectDirectory& objects) {
    to.emplace_back();
    std::vector<Change>& changes = from.back().changes;
    std::size_t done = 0;
    try {
        for (; done < changes.size(); ++done)
            exchange(changes[way == Way::Back ? changes.size() - 1 - done : done], drawing, objects);
    } catch (...) {
        divide(from, to, way, done);
        throw;
    }
    to.back() = std::move(from.back());
    from.pop_back();
    return std::exchange(to.back().content, m_content.value());
}

// Moves the `done` changes of a step that were exchanged into the new step at the back of `to`.
void UndoHistory::divide(std::deque<Step>& from, std::deque<Step>& to, Way way, std::size_t done) noexcept {
    std::vector<Change>& changes = from.back().changes;
    const auto count = static_cast<std::ptrdiff_t>(done);
    const auto first = way == Way::Back ? changes.end() - count : changes.begin();
    try {
        to.back().name = from.back().name;
        to.back().changes.assign(std::move_iterator(first), std::move_iterator(first + count));
        changes.erase(first, first + count);
        to.back().content = m_content.value();
        if (done == 0)
            to.pop_back();
    } catch (const std::bad_alloc&) {
        clear();
    }
}

void UndoHistory::clear() {
    m_done.clear();
    m_undone.clear();
    m_undoneBefore.clear();
    m_open = {};
}

void UndoHistory::makeRoom(std::size_t changes) {
    zdr::makeRoom(m_open.changes, changes);
}

/// To be called before a change is put into the open step.
void UndoHistory::open() {
    if (m_open.changes.empty())
        m_open.content = m_content.value();
}

void UndoHistory::add(Change change) {
    open();
    m_open.changes.push_back(std::move(change));
    forgetUndone();
}

void UndoHistory::performLast(zdr::Drawing& drawing, ObjectDirectory& objects) {
    try {
        exchange(m_open.changes.back(), drawing, objects);
    } catch (...) {
        m_open.changes.pop_back();
        throw;
    }
    forgetUndone();
}

void UndoHistory::beforeColumns(const zdr::Drawing& drawing) {
    if (m_open.columns)
        return;
    add(ColumnsChange{drawing.columns});
    m_open.columns = true;
}

void UndoHistory::beforeSettings(const zdr::Drawing& drawing) {
    if (m_open.settings)
        return;
    add(SettingsChange{drawing.currentLayer, drawing.lastRestored, drawing.linetypeScale});
    m_open.settings = true;
}

// When marking the state fails after it was added, it is added once more later. That does no harm: undo goes backwards,
// so the first record is the last one written.
void UndoHistory::beforeState(const zdr::Drawing& drawing, std::size_t index) {
    const zdr::LayerState& state = drawing.states[index];
    if (m_open.objects.contains(state.handle))
        return;
    add(StateChange{state.handle, index, state});
    m_open.objects.insert(state.handle);
}

void UndoHistory::beforeViewport(const zdr::Viewport& viewport) {
    if (m_open.objects.contains(viewport.handle))
        return;
    add(ViewportChange{viewport.handle, viewport.frozen, viewport.overrides, viewport.viewCenter, viewport.scale});
    m_open.objects.insert(viewport.handle);
}

void UndoHistory::exchangeViewport(ViewportChange&& change, zdr::Drawing& drawing, ObjectDirectory& objects) {
    if (m_open.objects.contains(change.handle)) {
        change.exchange(drawing, objects);
        return;
    }
    makeRoom(1);
    m_open.objects.insert(change.handle);
    // Nothing fails from here on.
    perform(std::move(change), drawing, objects);
}

} // namespace engine
