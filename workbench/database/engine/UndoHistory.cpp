// See UndoHistory.h.

#include "UndoHistory.h"

#include "ObjectDirectory.h"

#include <utility>

namespace engine {

namespace {

StepContent contentOf(const std::vector<Change>& changes) {
    StepContent content;
    for (const Change& change : changes) {
        content.states |= std::holds_alternative<StateChange>(change);
        content.plotStyles |= std::holds_alternative<PlotStyleChange>(change);
        content.layers |=
            std::holds_alternative<LayerChange>(change) || std::holds_alternative<LayerListChange>(change);
    }
    return content;
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

std::optional<StepContent> UndoHistory::undo(zdr::Drawing& drawing, ObjectDirectory& objects) {
    if (inGroup() || !canUndo())
        return std::nullopt;
    close();
    Step step = std::move(m_done.back());
    m_done.pop_back();
    for (auto change = step.changes.rbegin(); change != step.changes.rend(); ++change)
        std::visit([&](auto& side) { side.exchange(drawing, objects); }, *change);
    const StepContent content = contentOf(step.changes);
    m_undone.push_back(std::move(step));
    return content;
}

std::optional<StepContent> UndoHistory::redo(zdr::Drawing& drawing, ObjectDirectory& objects) {
    if (inGroup() || !canRedo())
        return std::nullopt;
    Step step = std::move(m_undone.back());
    m_undone.pop_back();
    for (Change& change : step.changes)
        std::visit([&](auto& side) { side.exchange(drawing, objects); }, change);
    const StepContent content = contentOf(step.changes);
    m_done.push_back(std::move(step));
    return content;
}

void UndoHistory::clear() {
    m_done.clear();
    m_undone.clear();
    m_open = {};
}

void UndoHistory::add(Change change) {
    m_undone.clear();
    m_open.changes.push_back(std::move(change));
}

void UndoHistory::beforeColumns(const zdr::Drawing& drawing) {
    if (!std::exchange(m_open.columns, true))
        add(ColumnsChange{drawing.columns});
}

void UndoHistory::beforeSettings(const zdr::Drawing& drawing) {
    if (!std::exchange(m_open.settings, true))
        add(SettingsChange{drawing.currentLayer, drawing.lastRestored, drawing.activeLayout, drawing.currentViewport});
}

void UndoHistory::beforeState(const zdr::Drawing& drawing, std::size_t index) {
    const zdr::LayerState& state = drawing.states[index];
    if (m_open.objects.insert(state.handle).second)
        add(StateChange{state.handle, index, state});
}

void UndoHistory::beforeViewport(const zdr::Viewport& viewport) {
    if (m_open.objects.insert(viewport.handle).second)
        add(ViewportChange{viewport.handle, viewport.frozen, viewport.overrides});
}

} // namespace engine
