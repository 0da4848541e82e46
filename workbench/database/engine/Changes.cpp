#include "Changes.h"

#include "ObjectDirectory.h"
#include "model/SeededHash.h"

#include <algorithm>
#include <tuple>
#include <unordered_set>
#include <utility>

namespace engine {
namespace {

using Offset = std::ptrdiff_t;

bool sameLayer(const zdr::ViewportOverride& layer, std::size_t index) {
    return layer.layer == index;
}

// Shifts the drawing's layer indices by one, because a layer is put in at `index` or taken out there.
void shiftIndices(zdr::Drawing& drawing, std::size_t index, bool inserted) {
    const auto shift = [=](std::size_t& layer) {
        if (layer != zdr::kNone && (inserted ? layer >= index : layer > index))
            layer = inserted ? layer + 1 : layer - 1;
    };
    shift(drawing.currentLayer);
    for (zdr::Entity& entity : drawing.entities)
        shift(entity.layer);
    for (zdr::Layout& layout : drawing.layouts) {
        for (zdr::Entity& entity : layout.entities)
            shift(entity.layer);
        for (zdr::Viewport& viewport : layout.viewports)
            for (zdr::ViewportOverride& layer : viewport.overrides)
                shift(layer.layer);
    }
}

template <class Action> void forEachViewport(zdr::Drawing& drawing, Action action) {
    for (zdr::Layout& layout : drawing.layouts)
        for (zdr::Viewport& viewport : layout.viewports)
            action(viewport);
}

WholeLayer takeOut(zdr::Drawing& drawing, std::size_t index) {
    WholeLayer whole{{}, valuesAt(drawing.columns, index), {}, {}, drawing.names.text(drawing.layers[index].name)};
    makeRoomForValues(drawing.columns, 0);
    forEachViewport(drawing, [&](const zdr::Viewport& viewport) {
        if (index < viewport.frozen.size() && viewport.frozen[index])
            whole.frozenIn.push_back(viewport.handle);
        for (const zdr::ViewportOverride& layer : viewport.overrides)
            if (sameLayer(layer, index))
                whole.overrides.emplace_back(viewport.handle, layer);
    });
    // Nothing fails from here on.
    whole.layer = std::move(drawing.layers[index]);
    forEachViewport(drawing, [&](zdr::Viewport& viewport) {
        if (index < viewport.frozen.size())
            viewport.frozen.erase(viewport.frozen.begin() + static_cast<Offset>(index));
        std::erase_if(viewport.overrides,
                      [index](const zdr::ViewportOverride& layer) { return sameLayer(layer, index); });
    });
    // The step's SettingsChange, which is exchanged after this, says which layer is current then.
    whole.isCurrent = drawing.currentLayer == index;
    if (whole.isCurrent)
        drawing.currentLayer = zdr::kNone;
    drawing.layers.erase(drawing.layers.begin() + static_cast<Offset>(index));
    eraseValues(drawing.columns, index);
    shiftIndices(drawing, index, false);
    return whole;
}

/// Does all that can fail before putIn(): asks for its memory, and gives the layer's name its spelling back.
void makeRoomFor(zdr::Drawing& drawing, std::size_t index, const WholeLayer& whole) {
    zdr::makeRoom(drawing.layers, 1);
    makeRoomForValues(drawing.columns, 1);
    forEachViewport(drawing, [index](zdr::Viewport& viewport) {
        viewport.frozen.reserve(std::max(viewport.frozen.size(), index) + 1);
        zdr::makeRoom(viewport.overrides, 1);
    });
    if (!whole.spelling.empty())
        drawing.names.respell(whole.layer.name, whole.spelling);
}

void putIn(zdr::Drawing& drawing, std::size_t index, WholeLayer whole) {
    shiftIndices(drawing, index, true);
    drawing.layers.insert(drawing.layers.begin() + static_cast<Offset>(index), std::move(whole.layer));
    insertValues(drawing.columns, index, whole.values);
    if (whole.isCurrent)
        drawing.currentLayer = index;
    forEachViewport(drawing, [index](zdr::Viewport& viewport) {
        if (index < viewport.frozen.size())
            viewport.frozen.insert(viewport.frozen.begin() + static_cast<Offset>(index), false);
    });
    for (const zdr::Handle handle : whole.frozenIn)
        if (zdr::Viewport* viewport = findViewport(drawing, handle)) {
            viewport->frozen.resize(std::max(viewport->frozen.size(), index + 1));
            viewport->frozen[index] = true;
        }
    for (const auto& [handle, layer] : whole.overrides)
        if (zdr::Viewport* viewport = findViewport(drawing, handle)) {
            auto& overrides = viewport->overrides;
            overrides.insert(std::ranges::lower_bound(overrides, index, {}, &zdr::ViewportOverride::layer), layer);
        }
}

// The range of one object's data; the list is sorted by object.
auto extendedDataOf(std::vector<zdr::ExtendedData>& all, zdr::Handle object) {
    const auto first = std::ranges::lower_bound(all, object, {}, &zdr::ExtendedData::object);
    const auto behind = std::ranges::upper_bound(all, object, {}, &zdr::ExtendedData::object);
    return std::pair(first, behind);
}

bool sameColumns(const zdr::LayerColumns& a, const zdr::LayerColumns& b) {
    bool same = true;
    zdr::forEachColumn([&same](const auto& one, const auto& other) { same = same && one.equals(other); }, a, b);
    return same;
}

bool sameState(const zdr::LayerState& a, const zdr::LayerState& b) {
    return a.name == b.name && a.description == b.description && a.mask == b.mask &&
           (a.layers == b.layers || a.layers->names == b.layers->names) && sameColumns(a.columns, b.columns) &&
           a.currentLayer == b.currentLayer && a.hasViewportData == b.hasViewportData;
}

/// Layers beyond the end of a list aren't frozen.
bool sameFrozen(const std::vector<bool>& a, const std::vector<bool>& b) {
    const auto& [shorter, longer] = a.size() < b.size() ? std::tie(a, b) : std::tie(b, a);
    const auto rest = longer.begin() + static_cast<Offset>(shorter.size());
    return std::equal(shorter.begin(), shorter.end(), longer.begin()) &&
           std::find(rest, longer.end(), true) == longer.end();
}

/// Whether the part of the drawing that a change holds the other side of is as that side has it.
struct SameSides {
    const zdr::Drawing& drawing;
    const ObjectDirectory& objects;

    bool operator()(const ColumnsChange& side) const { return sameColumns(side.columns, drawing.columns); }
    bool operator()(const StateChange& side) const {
        const KelDbStub* stub = objects.find(side.handle);
        const bool present = stub && !stub->erased;
        return present == side.state.has_value() && (!present || sameState(*side.state, drawing.states[stub->index]));
    }
    bool operator()(const SettingsChange& side) const {
        return side.currentLayer == drawing.currentLayer && side.lastRestored == drawing.lastRestored &&
               side.linetypeScale == drawing.linetypeScale;
    }
    bool operator()(const ViewportChange& side) const {
        const zdr::Viewport* viewport = findViewport(drawing, side.handle);
        return viewport && sameFrozen(viewport->frozen, side.frozen) && viewport->overrides == side.overrides &&
               viewport->viewCenter == side.viewCenter && viewport->scale == side.scale;
    }
    /// Of the others it isn't looked at.
    template <class Other> bool operator()(const Other&) const { return false; }
};

} // namespace

bool areUndone(const std::vector<Change>& changes, const zdr::Drawing& drawing, const ObjectDirectory& objects) {
    // The first change of a state holds what it was before the others.
    std::unordered_set<zdr::Handle, zdr::HandleHash> seen;
    const SameSides same{drawing, objects};
    return std::ranges::all_of(changes, [&](const Change& change) {
        const auto* state = std::get_if<StateChange>(&change);
        if (state && seen.contains(state->handle))
            return true;
        if (!std::visit(same, change))
            return false;
        if (state)
            seen.insert(state->handle);
        return true;
    });
}

zdr::Viewport* findViewport(zdr::Drawing& drawing, zdr::Handle handle) {
    for (zdr::Layout& layout : drawing.layouts)
        for (zdr::Viewport& viewport : layout.viewports)
            if (viewport.handle == handle)
                return &viewport;
    return nullptr;
}

const zdr::Viewport* findViewport(const zdr::Drawing& drawing, zdr::Handle handle) {
    return findViewport(const_cast<zdr::Drawing&>(drawing), handle);
}

void ColumnsChange::exchange(zdr::Drawing& drawing, ObjectDirectory&) {
    std::swap(drawing.columns, columns);
}

void StateChange::exchange(zdr::Drawing& drawing, ObjectDirectory& objects) {
    KelDbStub* stub = objects.find(handle);
    const bool present = stub && !stub->erased;
    if (present && state) {
        std::swap(drawing.states[stub->index], *state);
    } else if (present) {
        position = stub->index;
        state = std::move(drawing.states[position]);
        drawing.states.erase(drawing.states.begin() + static_cast<Offset>(position));
        objects.removeState(position);
    } else if (state) {
        zdr::makeRoom(drawing.states, 1);
        objects.insertState(position, handle);
        drawing.states.insert(drawing.states.begin() + static_cast<Offset>(position), std::move(*state));
        state.reset();
    }
}

void PlotStyleChange::exchange(zdr::Drawing& drawing, ObjectDirectory& objects) {
    if (style) {
        zdr::makeRoom(drawing.plotStyles, 1);
        objects.insertPlotStyle(position, handle);
        drawing.plotStyles.insert(drawing.plotStyles.begin() + static_cast<Offset>(position), *style);
        style.reset();
    } else {
        const auto place = drawing.plotStyles.begin() + static_cast<Offset>(position);
        style = *place;
        drawing.plotStyles.erase(place);
        objects.removePlotStyle(position);
    }
}

void SettingsChange::exchange(zdr::Drawing& drawing, ObjectDirectory&) {
    std::swap(drawing.currentLayer, currentLayer);
    std::swap(drawing.lastRestored, lastRestored);
    std::swap(drawing.linetypeScale, linetypeScale);
}

void ViewportChange::exchange(zdr::Drawing& drawing, ObjectDirectory&) {
    if (zdr::Viewport* viewport = findViewport(drawing, handle)) {
        std::swap(viewport->frozen, frozen);
        std::swap(viewport->overrides, overrides);
        std::swap(viewport->viewCenter, viewCenter);
        std::swap(viewport->scale, scale);
    }
}

void LayerChange::exchange(zdr::Drawing& drawing, ObjectDirectory& objects) {
    zdr::Layer& present = drawing.layers[objects.find(handle)->index];
    std::wstring otherSpelling = drawing.names.text(present.name);
    drawing.names.respell(layer.name, spelling);
    std::swap(present, layer);
    std::swap(drawing.layerSet, layerSet);
    spelling = std::move(otherSpelling);
}

void LayerListChange::exchange(zdr::Drawing& drawing, ObjectDirectory& objects) {
    if (layer) {
        makeRoomFor(drawing, index, *layer);
        objects.insertLayer(index, layer->layer.handle);
        putIn(drawing, index, std::move(*layer));
        layer.reset();
    } else {
        layer = takeOut(drawing, index);
        objects.removeLayer(index);
    }
    std::swap(drawing.layerSet, layerSet);
}

void ExtendedDataChange::exchange(zdr::Drawing& drawing, ObjectDirectory&) {
    auto& all = drawing.extendedData;
    const auto [first, behind] = extendedDataOf(all, object);
    const auto found = std::find_if(first, behind, [this](const zdr::ExtendedData& data) {
        return zdr::equalFolded(data.application, application);
    });
    if (found == behind) {
        zdr::ExtendedData fresh{object, application, {}};
        const auto place = behind - all.begin();
        zdr::makeRoom(all, 1);
        std::swap(fresh.values, values);
        all.insert(all.begin() + place, std::move(fresh));
        return;
    }
    std::swap(found->values, values);
    if (found->values.empty())
        all.erase(found);
}

void ApplicationsChange::exchange(zdr::Drawing& drawing, ObjectDirectory&) {
    std::swap(drawing.applications, applications);
}

} // namespace engine
