#include "Model.h"

#include "LayerStateMask.h"
#include "VornStatus.h"
#include "model/LayerColumns.h"

#include <algorithm>

namespace model {
namespace {

constexpr std::uint32_t kOwnFlags = MaskOn | MaskFrozen | MaskLocked | MaskPlot | MaskNewViewportFrozen;

// The properties of a mask that mean something in the drawing.
std::uint32_t meaningful(const Drawing& drawing, std::uint32_t mask) {
    return mask & MaskAllProperties & ~(drawing.colorDependent ? MaskPlotStyle : 0u);
}

const StateLayer* find(const State& state, std::string_view layer) {
    const auto found =
        std::ranges::find_if(state.layers, [layer](const StateLayer& item) { return same(item.name, layer); });
    return found == state.layers.end() ? nullptr : &*found;
}

} // namespace

Look Model::shown(const Layer& layer, const Viewport* viewport) const {
    Look look = layer.look;
    if (!viewport)
        return look;
    if (viewport->frozen.contains(layer.id))
        look.flags |= zdr::kLayerViewportFrozen;
    const auto found = viewport->overrides.find(layer.id);
    if (found == viewport->overrides.end())
        return look;
    const auto& [mask, other] = found->second;
    if (mask & MaskColor)
        look.color = other.color;
    if (mask & MaskLinetype)
        look.linetype = other.linetype;
    if (mask & MaskLineWeight)
        look.weight = other.weight;
    if (mask & MaskPlotStyle)
        look.plotStyle = other.plotStyle;
    return look;
}

int Model::save(std::string_view name, std::uint32_t mask, const Viewport* viewport) {
    State* state = findState(name);
    if (state && state->dependent)
        return Vorn::eDependentRecord;
    if (!state) {
        if (const int status = checkName(name))
            return status;
        State fresh;
        fresh.name = name;
        insert(std::move(fresh));
        state = findState(name);
    }
    state->mask = mask;
    state->withViewport = viewport != nullptr;
    state->layers.clear();
    for (const Layer& layer : m_now.layers) {
        state->layers.push_back({layer.name, shown(layer, viewport)});
        if (layer.id == m_now.current)
            state->current = layer.name;
    }
    m_changed = true;
    return Vorn::eOk;
}

int Model::rename(State& state, std::string_view name) {
    if (const int status = checkName(name))
        return status;
    const State* bearer = findState(name);
    if (bearer && bearer != &state)
        return Vorn::eDuplicateRecordName;
    if (m_now.lastRestored && same(*m_now.lastRestored, state.name))
        m_now.lastRestored = std::string(name);
    state.name = name;
    m_changed = true;
    return Vorn::eOk;
}

void Model::remove(State& state) {
    if (m_now.lastRestored && same(*m_now.lastRestored, state.name))
        m_now.lastRestored.reset();
    m_now.states.erase(m_now.states.begin() + (&state - m_now.states.data()));
    m_changed = true;
}

bool Model::addLayers(State& state, std::uint32_t bits) {
    bool added = false;
    for (const std::string_view name : layerNames(bits))
        if (const Layer* layer = findLayer(name); layer && !find(state, name)) {
            state.layers.push_back({layer->name, layer->look});
            added = true;
        }
    return added;
}

bool Model::removeLayers(State& state, std::uint32_t bits) {
    bool removed = false;
    for (const std::string_view name : layerNames(bits))
        removed |= std::erase_if(state.layers, [name](const StateLayer& layer) { return same(layer.name, name); }) > 0;
    if (state.current && !find(state, *state.current))
        state.current.reset();
    return removed;
}

bool Model::updateLayer(State& state, const Arguments& arguments) {
    const std::string_view name = layerName(arguments[1]);
    auto* layer = const_cast<StateLayer*>(find(state, name));
    if (!layer)
        return false;
    Look look = lookOf(arguments[2]);
    look.flags |= layer->look.flags & zdr::kLayerViewportFrozen;
    if (!has(m_now.linetypes, look.linetype)) // there is no id to give
        look.linetype = layer->look.linetype;
    layer->look = look;
    if (arguments[3])
        state.current = std::string(name);
    return true;
}

std::string Model::askLayers(const State& state, bool others) const {
    std::string text = "0";
    if (others) {
        for (const Layer& layer : m_now.layers)
            if (!find(state, layer.name))
                text += ' ' + folded(layer.name);
    } else {
        for (const StateLayer& layer : state.layers)
            text += ' ' + folded(layer.name);
    }
    return text;
}

bool Model::matches(const State& state, const Viewport* viewport) const {
    const std::uint32_t mask = meaningful(m_now, state.mask);
    for (const StateLayer& held : state.layers) {
        const Layer* layer = findLayer(held.name);
        if (!layer)
            return false;
        const Look look = shown(*layer, viewport);
        std::uint32_t flags = mask & kOwnFlags;
        if ((mask & MaskViewportFrozen) && viewport && state.withViewport)
            flags |= zdr::kLayerViewportFrozen;
        if (((look.flags ^ held.look.flags) & flags) || ((mask & MaskColor) && look.color != held.look.color) ||
            ((mask & MaskLinetype) && !same(look.linetype, held.look.linetype)) ||
            ((mask & MaskLineWeight) && look.weight != held.look.weight) ||
            ((mask & MaskPlotStyle) && !same(look.plotStyle, held.look.plotStyle)))
            return false;
    }
    return true;
}

// Puts a state in after the drawing's own ones.
int Model::insert(State state) {
    if (findState(state.name))
        return Vorn::eDuplicateRecordName;
    state.id = m_nextId++;
    state.dependent = false;
    const auto place = std::ranges::find_if(m_now.states, &State::dependent);
    m_now.states.insert(place, std::move(state));
    m_changed = true;
    return Vorn::eOk;
}

std::string Model::import(std::uint32_t file) {
    const auto found = m_files.find(file);
    if (found == m_files.end())
        return std::to_string(Vorn::eFileNotFound) + " ";
    const State& state = found->second;
    int status = findState(state.name) ? int{Vorn::eDuplicateRecordName} : checkName(state.name);
    if (status == Vorn::eOk)
        status = insert(state);
    return std::to_string(status) + " " + state.name;
}

int Model::putBack(std::string_view name) {
    if (!m_clone || !m_cloneIsGood)
        return Vorn::eInvalidInput;
    State* bearer = findState(name);
    if (bearer && bearer->dependent)
        return Vorn::eDependentRecord;
    if (const int status = bearer ? 0 : checkName(name))
        return status;
    State state = std::move(*m_clone);
    m_clone.reset();
    state.name = name;
    if (!bearer)
        return insert(std::move(state));
    state.id = m_nextId++;
    *bearer = std::move(state);
    m_changed = true;
    return Vorn::eOk;
}

namespace {

/// One restore of the model: which properties go where, and what it came across.
struct Restore {
    const Drawing& drawing;   ///< for its styles
    std::uint32_t direct;     ///< properties of the layers themselves
    std::uint32_t overridden; ///< properties of the viewport's overrides
    bool styleMissing = false, unresolved = false;

    /// `own` is the style that a layer or viewport shows already: it doesn't miss that one.
    bool available(const std::vector<std::string>& styles, const std::string& style, std::string_view own) {
        const bool there = style.empty() || has(styles, style);
        styleMissing |= !there && !same(style, own);
        return there;
    }
    /// Writes the properties of the mask; answers the ones that it could write.
    std::uint32_t write(Look& look, const Look& held, std::uint32_t mask, const Look& own) {
        if ((mask & MaskLinetype) && !available(drawing.linetypes, held.linetype, own.linetype))
            mask &= ~MaskLinetype;
        if ((mask & MaskPlotStyle) && !available(drawing.plotStyles, held.plotStyle, own.plotStyle))
            mask &= ~MaskPlotStyle;
        look.flags = (look.flags & ~(mask & kOwnFlags)) | (held.flags & mask & kOwnFlags);
        look.color = mask & MaskColor ? held.color : look.color;
        look.linetype = mask & MaskLinetype ? held.linetype : look.linetype;
        look.weight = mask & MaskLineWeight ? held.weight : look.weight;
        look.plotStyle = mask & MaskPlotStyle ? held.plotStyle : look.plotStyle;
        return mask;
    }
    void writeLayer(Layer& layer, const Look& held, bool resolved) {
        Look look = layer.look;
        write(look, held, direct, layer.look);
        if (resolved)
            layer.look = look;
        else
            unresolved |= look != layer.look;
    }
    void writeOverride(Viewport& viewport, const Layer& of, const Look& held, bool resolved) {
        const int layer = of.id;
        const auto old = viewport.overrides.find(layer);
        const Override before = old == viewport.overrides.end() ? Override{} : old->second;
        Override after = before;
        Look own = of.look;
        if (before.mask & MaskLinetype)
            own.linetype = before.look.linetype;
        if (before.mask & MaskPlotStyle)
            own.plotStyle = before.look.plotStyle;
        after.mask |= write(after.look, held, overridden, own);
        if (!resolved)
            unresolved |= after.mask != before.mask || after.look != before.look;
        else if (after.mask)
            viewport.overrides[layer] = after;
    }
    void writeFreezing(Viewport& viewport, int layer, const Look& held, bool resolved) {
        const bool frozen = held.flags & zdr::kLayerViewportFrozen;
        if (!resolved)
            unresolved |= frozen != viewport.frozen.contains(layer);
        else if (frozen)
            viewport.frozen.insert(layer);
        else
            viewport.frozen.erase(layer);
    }
};

} // namespace

int Model::restore(const State& stored, Viewport* viewport, std::uint32_t flags, std::uint32_t mask, bool remember) {
    const State state = stored;
    const Drawing before = m_now;
    const std::uint32_t wanted = meaningful(m_now, mask);
    const std::uint32_t overridden = viewport && (flags & RestoreFlagAsOverrides) ? wanted & MaskOverridable : 0;
    Restore restore{before, wanted & ~overridden, overridden};
    for (Layer& layer : m_now.layers) {
        const StateLayer* held = find(state, layer.name);
        if (!held) {
            if (flags & RestoreFlagLayerNotFound)
                layer.look.flags &= ~std::uint32_t{zdr::kLayerOn};
            continue;
        }
        restore.writeLayer(layer, held->look, isResolved(layer));
        if (overridden)
            restore.writeOverride(*viewport, layer, held->look, isResolved(layer));
        if (viewport && state.withViewport && (restore.direct & MaskViewportFrozen))
            restore.writeFreezing(*viewport, layer.id, held->look, isResolved(layer));
    }
    if (wanted)
        chooseCurrent(state, before);
    const bool refused = thawCurrent(before);
    if (remember)
        m_now.lastRestored = state.name;
    m_changed = true;
    return refused                ? Vorn::eCannotFreezeCurrentLayer
           : restore.styleMissing ? Vorn::eStyleMissing
           : restore.unresolved   ? Vorn::eLayerUnresolved
                                  : Vorn::eOk;
}

namespace {

bool isFrozen(const Drawing& drawing, int layer) {
    return (std::ranges::find(drawing.layers, layer, &Layer::id)->look.flags & zdr::kLayerFrozen) != 0;
}

} // namespace

// The state's current layer, unless it is frozen and stays so.
void Model::chooseCurrent(const State& state, const Drawing& before) {
    const Layer* layer = state.current ? findLayer(*state.current) : nullptr;
    if (layer && !layer->dependent && !(isFrozen(before, layer->id) && isFrozen(m_now, layer->id)))
        m_now.current = layer->id;
}

// A restore doesn't freeze the current layer; answers whether it would have.
bool Model::thawCurrent(const Drawing& before) {
    if (isFrozen(before, m_now.current) || !isFrozen(m_now, m_now.current))
        return false;
    std::ranges::find(m_now.layers, m_now.current, &Layer::id)->look.flags &= ~std::uint32_t{zdr::kLayerFrozen};
    return true;
}

} // namespace model
