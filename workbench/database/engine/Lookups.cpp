#include "Lookups.h"

namespace engine {

std::optional<bool> Lookups::comparison(zdr::Handle state, zdr::Handle viewport) const {
    return m_writings > 0 ? std::nullopt : m_comparisons.find(state, viewport);
}

void Lookups::keepComparison(zdr::Handle state, zdr::Handle viewport, bool matches) {
    if (m_writings == 0)
        m_comparisons.keep(state, viewport, matches);
}

const zdr::LayerColumns& Lookups::shown(const zdr::Viewport* viewport) {
    if (m_writings > 0)
        m_shown.forget();
    return m_shown.columns(m_drawing, viewport, m_changes);
}

void Lookups::stateInserted(std::size_t index) noexcept {
    m_states.follow(
        [&](StateIndex& states) { states.inserted(m_drawing.states[index].name, index, m_drawing.states.size() - 1); });
}

void Lookups::stateRemoved(const std::wstring& name, std::size_t index) noexcept {
    m_states.follow([&](StateIndex& states) { states.removed(name, index, m_drawing.states.size() + 1); });
}

void Lookups::stateRenamed(const std::wstring& from, std::size_t index) noexcept {
    m_states.follow([&](StateIndex& states) { states.renamed(from, m_drawing.states[index].name, index); });
}

void Lookups::stateWritten(const zdr::LayerState& state) noexcept {
    m_comparisons.forget(state.handle);
    const auto index = static_cast<std::size_t>(&state - m_drawing.states.data());
    if (const StateIndex* states = m_states.filled(); states && states->find(state.name) != index)
        m_states.outdate();
}

void Lookups::outdate(const Parts& parts) noexcept {
    ++m_changes;
    if (parts.looks || parts.layers)
        m_comparisons.clear();
    if (parts.layers) {
        m_layers.outdate();
        m_mappings.clear();
    }
    if (parts.linetypes)
        m_linetypes.outdate();
    if (parts.plotStyles)
        m_plotStyles.outdate();
    if (parts.states)
        m_states.outdate();
    if (parts.state)
        stateWritten(*parts.state);
}

} // namespace engine
