// Which operation does what, undo, and finding things.

#include "Model.h"

#include "KelDbDatabase.h"
#include "engine/UndoHistory.h"

#include <algorithm>

namespace model {

namespace {

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 'a' - 'A') : c;
}

} // namespace

bool same(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, {}, lower, lower);
}

std::string folded(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), lower);
    return result;
}

int checkName(std::string_view name) {
    return name.find_first_of("*!") == std::string_view::npos ? Vorn::eOk : Vorn::eInvalidInput;
}

bool has(const std::vector<std::string>& names, std::string_view name) {
    return std::ranges::any_of(names, [name](const std::string& other) { return same(name, other); });
}

State* Model::findState(std::string_view name) {
    const auto found = std::ranges::find_if(m_now.states, [name](const State& s) { return same(s.name, name); });
    return found == m_now.states.end() ? nullptr : &*found;
}

const Layer* Model::findLayer(std::string_view name) const {
    const auto found = std::ranges::find_if(m_now.layers, [name](const Layer& l) { return same(l.name, name); });
    return found == m_now.layers.end() ? nullptr : &*found;
}

// All bits, but for those of a style that the drawing lacks.
std::uint32_t Model::availableStyles(const Look& look) const {
    return ~std::uint32_t{0} & ~(has(m_now.linetypes, look.linetype) ? 0 : MaskLinetype) &
           ~(has(m_now.plotStyles, look.plotStyle) ? 0 : MaskPlotStyle);
}

Layer* Model::findLayer(std::string_view name) {
    return const_cast<Layer*>(static_cast<const Model*>(this)->findLayer(name));
}

std::string Model::apply(const Operation& operation) {
    std::optional<Drawing> before;
    if (!m_open)
        before = m_now;
    m_changed = false;
    std::string answer;
    if (operation.kind <= Kind::Compare)
        answer = applyToState(operation);
    else if (operation.kind <= Kind::SetCurrent)
        answer = applyToLayer(operation);
    else
        answer = applyToDrawing(operation);
    if (m_changed) {
        if (m_depth > 0 && !m_undone.empty())
            m_undoneBefore = std::move(m_undone);
        m_undone.clear();
        if (!m_open)
            m_open = std::move(before);
        m_openHasMore = m_openHasMore || operation.kind == Kind::DescribeLayer || operation.kind == Kind::AddLayer ||
                        operation.kind == Kind::RenameLayer || operation.kind == Kind::EraseLayer ||
                        operation.kind == Kind::RegisterApplication || operation.kind == Kind::SetData;
    }
    return answer;
}

std::string Model::applyToState(const Operation& operation) {
    const Arguments& a = operation.arguments;
    const std::string_view name = stateName(a[0]);
    if (operation.kind == Kind::Save)
        return std::to_string(save(name, a[1], nullptr));
    if (operation.kind == Kind::SaveWithViewport)
        return std::to_string(save(name, a[1], viewportOf(a[2])));
    State* state = findState(name);
    if (operation.kind == Kind::Compare)
        return state && matches(*state, viewportOf(a[1])) ? "true" : "false";
    const bool update = operation.kind == Kind::UpdateStateLayer;
    if (!state)
        return update ? "false" : std::to_string(Vorn::eKeyNotFound);
    const auto ownOr = [state](std::uint32_t mask) { return mask == kOwnMask ? state->mask : mask; };
    switch (operation.kind) {
    case Kind::Restore:
        return std::to_string(restore(*state, viewportOf(a[1]), a[2], ownOr(a[3]), true));
    case Kind::RestoreQuietly:
        return std::to_string(restore(*state, viewportOf(a[1]), a[2], ownOr(a[3]), a[4] != 0));
    case Kind::AskLayers:
        return askLayers(*state, a[1] != 0);
    default:
        break;
    }
    if (state->dependent)
        return update ? "false" : std::to_string(Vorn::eDependentRecord);
    switch (operation.kind) {
    case Kind::Rename:
        return std::to_string(rename(*state, stateName(a[1])));
    case Kind::Delete:
        remove(*state);
        break;
    case Kind::SetMask:
        m_changed = state->mask != a[1];
        state->mask = a[1];
        break;
    case Kind::Describe:
        state->description = "text " + std::to_string(a[1]);
        m_changed = true;
        break;
    case Kind::AddLayersToState:
        m_changed = addLayers(*state, a[1]);
        break;
    case Kind::RemoveLayersFromState:
        m_changed = removeLayers(*state, a[1]);
        break;
    default:
        m_changed = updateLayer(*state, a);
        return m_changed ? "true" : "false";
    }
    return "0";
}

std::string Model::applyToLayer(const Operation& operation) {
    const Arguments& a = operation.arguments;
    const std::string_view name = layerName(a[0]);
    Layer* layer = findLayer(name);
    if (operation.kind == Kind::AddLayer)
        return std::to_string(addLayer(name, lookOf(a[1])));
    if (operation.kind == Kind::SetCurrent)
        return std::to_string(setCurrent(layer));
    if (!layer)
        return "no layer";
    switch (operation.kind) {
    case Kind::SetLayer:
        return std::to_string(setLayer(*layer, a[1], lookOf(a[2])));
    case Kind::DescribeLayer:
        layer->description = "text " + std::to_string(a[1]);
        m_changed = true;
        return "0";
    case Kind::RenameLayer:
        return std::to_string(renameLayer(*layer, layerName(a[1])));
    default:
        return std::to_string(eraseLayer(*layer));
    }
}

std::string Model::applyToDrawing(const Operation& operation) {
    const Arguments& a = operation.arguments;
    const auto truth = [](bool value) { return value ? "true" : "false"; };
    switch (operation.kind) {
    case Kind::SetLayout:
        if (a[0] > 2)
            return std::to_string(Vorn::eInvalidInput);
        m_sight = {a[0] == 0 ? std::nullopt : std::optional<std::size_t>(a[0] - 1), std::nullopt};
        return "0";
    case Kind::SetViewport: {
        // The third is off, the fourth is on the second layout.
        const bool there = a[0] == 0 || (a[0] != 3 && m_sight.layout == (a[0] == 4 ? 1u : 0u));
        if (!there)
            return std::to_string(Vorn::eInvalidInput);
        m_sight.viewport = a[0] == 0 ? std::nullopt : std::optional<std::size_t>(a[0] - 1);
        return "0";
    }
    case Kind::FreezeInViewport:
    case Kind::Override: {
        Viewport* viewport = viewportOf(a[0]);
        const Layer* layer = findLayer(layerName(a[1]));
        if (!viewport || !layer)
            return "nothing";
        m_changed = true;
        const std::uint32_t mask = a[2] & MaskOverridable & availableStyles(lookOf(a[3]));
        if (operation.kind == Kind::FreezeInViewport && a[2])
            viewport->frozen.insert(layer->id);
        else if (operation.kind == Kind::FreezeInViewport)
            viewport->frozen.erase(layer->id);
        else if (mask)
            viewport->overrides[layer->id] = {mask, lookOf(a[3])};
        else
            viewport->overrides.erase(layer->id);
        return "";
    }
    case Kind::Attach:
        attach(site(a[0]));
        return "";
    case Kind::Detach:
        dropDependentStates();
        m_now.resolved = false;
        forgetSteps();
        return "";
    case Kind::Begin:
        if (m_depth++ == 0)
            closeStep();
        return "";
    case Kind::End:
        if (m_depth > 0 && --m_depth == 0)
            closeGroup();
        return "";
    case Kind::Undo:
        return truth(undo());
    case Kind::Redo:
        return truth(redo());
    case Kind::Reload:
        reload();
        return "0";
    case Kind::Shelve:
        m_shelf = m_now.states;
        std::erase_if(m_shelf, [](const State& state) { return state.dependent; });
        return "";
    case Kind::ImportFromShelf: {
        const auto found =
            std::ranges::find_if(m_shelf, [&](const State& state) { return same(state.name, stateName(a[0])); });
        if (found == m_shelf.end())
            return std::to_string(Vorn::eKeyNotFound);
        return std::to_string(insert(*found));
    }
    case Kind::Export: {
        const State* state = findState(stateName(a[0]));
        if (!state)
            return std::to_string(Vorn::eKeyNotFound);
        m_files[a[1]] = *state;
        return "0";
    }
    case Kind::Import:
        return import(a[0]);
    case Kind::Clone: {
        const State* state = findState(stateName(a[0]));
        if (!state || state->dependent)
            return std::to_string(Vorn::eKeyNotFound);
        m_clone = *state;
        m_cloneIsGood = true;
        return "0";
    }
    case Kind::PutBack:
        return std::to_string(putBack(stateName(a[0])));
    case Kind::RegisterApplication:
        m_changed = !has(m_now.applications, applicationName(a[0]));
        if (m_changed)
            m_now.applications.emplace_back(applicationName(a[0]));
        return truth(m_changed);
    case Kind::SetData: {
        const Layer* layer = findLayer(layerName(a[0]));
        return layer ? std::to_string(setData(*layer, applicationName(a[1]), a[2])) : "no layer";
    }
    default:
        m_now = start(a[0] % 2 != 0);
        m_sight = {};
        forgetSteps();
        m_cloneIsGood = false;
        return "";
    }
}

bool Model::undo() {
    if (m_depth > 0 || !canUndo())
        return false;
    closeStep();
    m_undone.push_back(std::move(m_now));
    m_now = std::move(m_done.back());
    m_done.pop_back();
    return true;
}

bool Model::redo() {
    if (m_depth > 0 || !canRedo())
        return false;
    m_done.push_back(std::move(m_now));
    m_now = std::move(m_undone.back());
    m_undone.pop_back();
    return true;
}

// A group that leaves the drawing as it found it is no step, unless it changed more than what layers and states look
// like.
void Model::closeGroup() {
    if (m_open && *m_open == m_now && !m_openHasMore) {
        m_open.reset();
        m_undone = std::move(m_undoneBefore);
    }
    m_undoneBefore.clear();
    closeStep();
}

void Model::closeStep() {
    m_openHasMore = false;
    if (!m_open)
        return;
    m_done.push_back(std::move(*m_open));
    m_open.reset();
    if (m_done.size() > engine::kMaxUndoSteps)
        m_done.pop_front();
}

void Model::forgetSteps() {
    m_done.clear();
    m_undone.clear();
    m_undoneBefore.clear();
    m_open.reset();
    m_openHasMore = false;
}

// What comes from the reference isn't in the drawing's file, and reading that file doesn't read the reference's.
void Model::reload() {
    dropDependentStates();
    listStylesOfLayers();
    m_now.resolved = false;
    m_cloneIsGood = false;
    forgetSteps();
}

} // namespace model
