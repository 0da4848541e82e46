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
    auto identity = std::make_shared<int>();
    m_objects.fill(drawing);
    const Writing writing(m_lookups, Parts::all());
    m_drawing = std::move(drawing);
    m_history.clear();
    m_identity = std::move(identity);
    m_stateDictionaryMade = false;
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

const zdr::Viewport* DatabaseImp::viewport(KelDbObjectId id) const {
    const KelDbStub* stub = id.stub();
    if (!stub || stub->database != this || stub->erased || stub->kind != ObjectKind::Viewport)
        return nullptr;
    return &m_drawing.layouts[stub->layout].viewports[stub->index];
}

Editor<zdr::LayerColumns> DatabaseImp::editColumns() {
    m_history.beforeColumns(m_drawing);
    return {m_drawing.columns, m_lookups, {.looks = true}};
}

Editor<zdr::LayerState> DatabaseImp::editState(std::size_t index) {
    m_history.beforeState(m_drawing, index);
    zdr::LayerState& state = m_drawing.states[index];
    return {state, m_lookups, {.state = &state}};
}

Editor<zdr::Viewport> DatabaseImp::editViewport(const zdr::Viewport& viewport) {
    m_history.beforeViewport(viewport);
    return {const_cast<zdr::Viewport&>(viewport), m_lookups, {.looks = true}};
}

void DatabaseImp::setViewportLayers(const zdr::Viewport& viewport, std::vector<bool> frozen,
                                    std::vector<zdr::ViewportOverride> overrides) {
    const Writing writing(m_lookups, {.looks = true});
    m_history.exchangeViewport(
        {viewport.handle, std::move(frozen), std::move(overrides), viewport.viewCenter, viewport.scale}, m_drawing,
        m_objects);
}

void DatabaseImp::setCurrentLayer(std::size_t index) {
    m_history.beforeSettings(m_drawing);
    const Writing writing(m_lookups, {});
    m_drawing.currentLayer = index;
}

void DatabaseImp::setLastRestored(std::optional<std::wstring> name) {
    m_history.beforeSettings(m_drawing);
    const Writing writing(m_lookups, {});
    m_drawing.lastRestored = std::move(name);
}

void DatabaseImp::setLinetypeScale(double scale) {
    m_history.beforeSettings(m_drawing);
    const Writing writing(m_lookups, {});
    m_drawing.linetypeScale = scale;
}

// Nothing that is looked up rests on it.
void DatabaseImp::setActiveSpace(std::optional<std::size_t> layout, std::optional<zdr::Handle> viewport) {
    m_drawing.activeLayout = layout;
    m_drawing.currentViewport = viewport;
}

std::size_t DatabaseImp::insertState(zdr::LayerState&& state) {
    std::size_t index = m_drawing.states.size();
    while (index > 0 && m_drawing.states[index - 1].reference != zdr::kNone)
        --index;
    putInState(index, std::move(state));
    m_lookups.stateInserted(index);
    return index;
}

void DatabaseImp::putInState(std::size_t index, zdr::LayerState&& state) {
    state.handle = newHandle();
    const zdr::Handle handle = state.handle;
    perform(StateChange{handle, index, std::move(state)}, {});
}

void DatabaseImp::replaceState(std::size_t index, zdr::LayerState&& state) {
    m_history.makeRoom(2);
    putInState(index, std::move(state));
    // Nothing fails from here on. The index of states knows the name already, and at this place.
    perform(StateChange{m_drawing.states[index + 1].handle, index + 1, std::nullopt}, {});
}

void DatabaseImp::removeState(std::size_t index) {
    const std::wstring name = m_drawing.states[index].name;
    perform(StateChange{m_drawing.states[index].handle, index, std::nullopt}, {});
    m_lookups.stateRemoved(name, index);
}

void DatabaseImp::renameState(std::size_t index, std::wstring name) {
    const Editor<zdr::LayerState> state = editState(index);
    state->name.swap(name);
    m_lookups.stateRenamed(name, index);
}

void DatabaseImp::registerApplication(std::wstring name) {
    std::vector<std::wstring> applications = m_drawing.applications;
    applications.push_back(std::move(name));
    perform(ApplicationsChange{std::move(applications)}, {});
}

void DatabaseImp::setExtendedData(zdr::Handle object, std::wstring application, zdr::ExtendedValues values) {
    perform(ExtendedDataChange{object, std::move(application), std::move(values)}, {});
}

void DatabaseImp::beginUndoGroup(std::wstring name) {
    m_history.beginGroup(std::move(name));
}

void DatabaseImp::endUndoGroup() {
    if (const auto former = m_history.endGroup(m_drawing, m_objects))
        m_content.reach(*former);
}

bool DatabaseImp::undo() {
    return carry(m_history.undoable(), &UndoHistory::undo);
}

bool DatabaseImp::redo() {
    return carry(m_history.redoable(), &UndoHistory::redo);
}

bool DatabaseImp::carry(const std::optional<Parts>& parts,
                        std::uint64_t (UndoHistory::*way)(zdr::Drawing&, ObjectDirectory&)) {
    if (!parts)
        return false;
    std::uint64_t former = 0;
    {
        const Writing writing(m_lookups, *parts);
        former = (m_history.*way)(m_drawing, m_objects);
    }
    m_content.reach(former);
    return true;
}

bool DatabaseImp::hasStateDictionary() const {
    return m_stateDictionaryMade || std::ranges::any_of(m_drawing.states, [](const zdr::LayerState& state) {
               return state.reference == zdr::kNone;
           });
}

} // namespace engine
