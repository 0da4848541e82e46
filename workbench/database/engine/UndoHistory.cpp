// See UndoHistory.h.

#include "UndoHistory.h"

#include "ObjectDirectory.h"

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

void UndoHistory::beginGroup() {
    if (m_depth++ == 0)
        close();
}

void UndoHistory::endGroup() {
    if (m_depth > 0 && --m_depth == 0)
        close();
}

void UndoHistory::close() {
    if (m_open.changes.empty())
        return;
    m_open.objects.clear();
    m_done.push_back(std::move(m_open));
    m_open = {};
    if (m_done.size() > kMaxSteps)
        m_done.pop_front();
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

void UndoHistory::undo(zdr::Drawing& drawing, ObjectDirectory& objects) {
    close();
    carry(m_done, m_undone, drawing, objects);
}

void UndoHistory::redo(zdr::Drawing& drawing, ObjectDirectory& objects) {
    carry(m_undone, m_done, drawing, objects);
}

void UndoHistory::carry(std::deque<Step>& from, std::deque<Step>& to, zdr::Drawing& drawing, ObjectDirectory& objects) {
    std::vector<Change>& source = from.back().changes;
    std::vector<Change>& target = to.emplace_back().changes;
    try {
        target.reserve(source.size());
        while (!source.empty()) {
            exchange(source.back(), drawing, objects);
            target.push_back(std::move(source.back()));
            source.pop_back();
        }
    } catch (...) {
        if (target.empty())
            to.pop_back();
        throw;
    }
    from.pop_back();
}

void UndoHistory::clear() {
    m_done.clear();
    m_undone.clear();
    m_open = {};
}

void UndoHistory::add(Change change) {
    m_open.changes.push_back(std::move(change));
    m_undone.clear();
}

void UndoHistory::perform(Change change, zdr::Drawing& drawing, ObjectDirectory& objects) {
    m_open.changes.push_back(std::move(change));
    try {
        exchange(m_open.changes.back(), drawing, objects);
    } catch (...) {
        m_open.changes.pop_back();
        throw;
    }
    m_undone.clear();
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
    add(SettingsChange{drawing.currentLayer, drawing.lastRestored, drawing.activeLayout, drawing.currentViewport});
    m_open.settings = true;
}

// A part that is added but not marked is added once more later, which does no harm: what is undone last is the first.
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
    add(ViewportChange{viewport.handle, viewport.frozen, viewport.overrides});
    m_open.objects.insert(viewport.handle);
}

} // namespace engine
