// See DatabaseImp.h.

#include "DatabaseImp.h"

#include "instruments/HostCalls.h"
#include "NewDrawing.h"

#include <algorithm>

namespace engine {

DatabaseImp::DatabaseImp(KelDbDatabase& owner)
    : m_owner(owner), m_stateManager(*this), m_impStateManager(*this), m_objects(*this) {
    adopt({});
}

DatabaseImp::~DatabaseImp() {
    m_objects.deleteOpenObjects();
}

KelDbImpLayerStateManager* DatabaseImp::getImpLayerStateManager() {
    instruments::HostCall call("getImpLayerStateManager");
    return call.answer(call.fault() ? nullptr : &m_impStateManager);
}

void DatabaseImp::adopt(zdr::Drawing drawing) {
    completeDrawing(drawing);
    m_drawing = std::move(drawing);
    m_objects.fill(m_drawing);
    m_history.clear();
    m_identity = std::make_shared<int>();
    m_stateDictionaryMade = false;
    refreshIndexes();
    ++m_changes;
}

void DatabaseImp::refreshIndexes() {
    m_layers.fill(m_drawing.layers);
    m_linetypes.fill(m_drawing.linetypes);
    m_plotStyles.fill(m_drawing.plotStyles);
    m_states.fill(m_drawing.states);
    m_mappings.clear();
    m_comparisons.clear();
}

bool isResolved(const zdr::Drawing& drawing, const zdr::Layer& layer) {
    if (layer.reference == zdr::kNone)
        return true;
    return layer.reference < drawing.references.size() && drawing.references[layer.reference].drawing &&
           !layer.unresolvedInside;
}

bool DatabaseImp::hasUnresolvedLayers() const {
    const auto missing = [](const zdr::Reference& reference) { return reference.drawing == nullptr; };
    return std::ranges::any_of(m_drawing.references, missing) ||
           (!m_drawing.references.empty() && std::ranges::any_of(m_drawing.layers, &zdr::Layer::unresolvedInside));
}

const LayerMapping& DatabaseImp::mapping(const zdr::LayerState& state) const {
    return m_mappings.mapping(state.layers, m_layers, m_drawing.layers.size());
}

const zdr::LayerColumns& DatabaseImp::shown(const zdr::Viewport* viewport) const {
    return m_shown.columns(m_drawing, viewport, m_changes);
}

const zdr::Viewport* DatabaseImp::viewport(KelDbObjectId id) const {
    const KelDbStub* stub = id.stub();
    if (!stub || stub->database != this || stub->erased || stub->kind != ObjectKind::Viewport)
        return nullptr;
    return &m_drawing.layouts[stub->layout].viewports[stub->index];
}

zdr::LayerColumns& DatabaseImp::editColumns() {
    m_history.beforeColumns(m_drawing);
    m_comparisons.clear();
    ++m_changes;
    return m_drawing.columns;
}

zdr::LayerState& DatabaseImp::editState(std::size_t index) {
    m_history.beforeState(m_drawing, index);
    m_comparisons.forget(m_drawing.states[index].handle);
    ++m_changes;
    return m_drawing.states[index];
}

zdr::Viewport& DatabaseImp::editViewport(const zdr::Viewport& viewport) {
    m_history.beforeViewport(viewport);
    m_comparisons.clear();
    ++m_changes;
    return const_cast<zdr::Viewport&>(viewport);
}

void DatabaseImp::setCurrentLayer(std::size_t index) {
    m_history.beforeSettings(m_drawing);
    ++m_changes;
    m_drawing.currentLayer = index;
}

void DatabaseImp::setLastRestored(std::optional<std::wstring> name) {
    m_history.beforeSettings(m_drawing);
    ++m_changes;
    m_drawing.lastRestored = std::move(name);
}

void DatabaseImp::setActiveSpace(std::optional<std::size_t> layout, std::optional<zdr::Handle> viewport) {
    m_history.beforeSettings(m_drawing);
    ++m_changes;
    m_drawing.activeLayout = layout;
    m_drawing.currentViewport = viewport;
}

void DatabaseImp::insertState(zdr::LayerState state, std::optional<std::size_t> position) {
    std::size_t behindOwn = m_drawing.states.size();
    while (behindOwn > 0 && m_drawing.states[behindOwn - 1].reference != zdr::kNone)
        --behindOwn;
    const std::size_t index = position.value_or(behindOwn);
    state.handle = newHandle();
    m_history.add(StateChange{state.handle, index, std::nullopt});
    m_states.inserted(state.name, index, m_drawing.states.size());
    m_objects.insertState(index, state.handle);
    m_drawing.states.insert(m_drawing.states.begin() + static_cast<std::ptrdiff_t>(index), std::move(state));
    ++m_changes;
}

void DatabaseImp::removeState(std::size_t index) {
    const auto place = m_drawing.states.begin() + static_cast<std::ptrdiff_t>(index);
    m_states.removed(place->name, index, m_drawing.states.size());
    m_objects.removeState(index);
    const zdr::Handle handle = place->handle;
    m_history.add(StateChange{handle, index, std::move(*place)});
    m_drawing.states.erase(place);
    ++m_changes;
}

void DatabaseImp::renameState(std::size_t index, std::wstring name) {
    zdr::LayerState& state = editState(index);
    m_states.renamed(state.name, name, index);
    state.name = std::move(name);
}

void DatabaseImp::registerApplication(std::wstring name) {
    m_history.add(ApplicationsChange{m_drawing.applications});
    m_drawing.applications.push_back(std::move(name));
    ++m_changes;
}

void DatabaseImp::setExtendedData(zdr::Handle object, std::wstring application,
                                  std::vector<zdr::ExtendedValue> values) {
    ExtendedDataChange change{object, std::move(application), std::move(values)};
    change.exchange(m_drawing, m_objects);
    m_history.add(std::move(change));
    ++m_changes;
}

void DatabaseImp::setReferenceDrawing(std::size_t reference, std::shared_ptr<const zdr::Drawing> drawing) {
    m_drawing.references[reference].drawing = std::move(drawing);
    ++m_changes;
}

// Finding things by name is what an exchange may have put out of date.
bool DatabaseImp::afterExchange(std::optional<StepContent> exchanged) {
    if (!exchanged)
        return false;
    if (exchanged->layers) {
        m_layers.fill(m_drawing.layers);
        m_mappings.clear();
    }
    m_comparisons.clear();
    if (exchanged->states)
        m_states.fill(m_drawing.states);
    if (exchanged->plotStyles)
        m_plotStyles.fill(m_drawing.plotStyles);
    ++m_changes;
    return true;
}

bool DatabaseImp::undo() {
    return afterExchange(m_history.undo(m_drawing, m_objects));
}

bool DatabaseImp::redo() {
    return afterExchange(m_history.redo(m_drawing, m_objects));
}

bool DatabaseImp::hasStateDictionary() const {
    return m_stateDictionaryMade || std::ranges::any_of(m_drawing.states, [](const zdr::LayerState& state) {
               return state.reference == zdr::kNone;
           });
}

} // namespace engine
