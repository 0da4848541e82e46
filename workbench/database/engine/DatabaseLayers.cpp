// The layer table's side of DatabaseImp: layers put in, taken out and renamed, and the styles that they use.

#include "DatabaseImp.h"
#include "LayerStates.h"

#include <algorithm>
#include <map>

namespace engine {

std::shared_ptr<const zdr::LayerSet> DatabaseImp::makeLayerSet() const {
    auto set = std::make_shared<zdr::LayerSet>();
    set->names.reserve(m_drawing.layers.size());
    for (const zdr::Layer& layer : m_drawing.layers)
        set->names.push_back(layer.name);
    return set;
}

void DatabaseImp::layersChanged() {
    m_layers.fill(m_drawing.layers);
    m_mappings.clear();
    m_comparisons.clear();
    ++m_changes;
}

zdr::Handle DatabaseImp::appendLayer(zdr::Layer layer, std::wstring_view name, const LayerValues& values) {
    layer.name = intern(name);
    layer.handle = newHandle();
    const zdr::Handle handle = layer.handle;
    WholeLayer whole{std::move(layer), values, {}, {}, std::wstring(name)};
    LayerListChange change{m_drawing.layers.size(), std::move(whole), nullptr};
    change.exchange(m_drawing, m_objects);
    m_drawing.layerSet = makeLayerSet();
    m_history.add(std::move(change));
    layersChanged();
    return handle;
}

void DatabaseImp::removeLayer(std::size_t index) {
    LayerListChange change{index, std::nullopt, nullptr};
    change.exchange(m_drawing, m_objects);
    m_drawing.layerSet = makeLayerSet();
    m_history.add(std::move(change));
    layersChanged();
}

void DatabaseImp::renameLayer(std::size_t index, std::wstring_view name) {
    zdr::Layer& layer = m_drawing.layers[index];
    const zdr::NameId from = layer.name;
    const zdr::NameId to = intern(name);
    m_history.add(LayerChange{layer.handle, layer, m_drawing.names.text(from), m_drawing.layerSet});
    m_drawing.names.respell(to, name);
    layer.name = to;
    if (from != to)
        followRename(from, to);
    layersChanged();
}

namespace {

/// A set of layers in which a layer was renamed.
struct RenamedSet {
    std::shared_ptr<const zdr::LayerSet> set;
    std::size_t dropped = zdr::kNone; ///< the row of a layer that is gone and bore the new name
};

RenamedSet renameInSet(const std::shared_ptr<const zdr::LayerSet>& set, zdr::NameId from, zdr::NameId to) {
    if (std::ranges::find(set->names, from) == set->names.end())
        return {set};
    auto copy = std::make_shared<zdr::LayerSet>(*set);
    RenamedSet renamed;
    if (const auto gone = std::ranges::find(copy->names, to); gone != copy->names.end()) {
        renamed.dropped = static_cast<std::size_t>(gone - copy->names.begin());
        copy->names.erase(gone);
    }
    std::ranges::replace(copy->names, from, to);
    renamed.set = std::move(copy);
    return renamed;
}

} // namespace

// States that share a set of layers go on sharing the renamed one. A state that holds a layer of the new name holds it
// for one that the drawing no longer has; the row of the renamed layer takes its place.
void DatabaseImp::followRename(zdr::NameId from, zdr::NameId to) {
    std::map<const zdr::LayerSet*, RenamedSet> renamed;
    const auto rename = [&](const std::shared_ptr<const zdr::LayerSet>& set) {
        const auto [entry, isNew] = renamed.try_emplace(set.get());
        if (isNew)
            entry->second = renameInSet(set, from, to);
        return entry->second;
    };
    m_drawing.layerSet = rename(m_drawing.layerSet).set;
    for (std::size_t i = 0; i < m_drawing.states.size(); ++i) {
        const zdr::LayerState& state = m_drawing.states[i];
        const RenamedSet after = state.reference == zdr::kNone ? rename(state.layers) : RenamedSet{state.layers};
        if (after.set == state.layers)
            continue;
        zdr::LayerState& changed = editState(i);
        changed.layers = after.set;
        if (after.dropped != zdr::kNone)
            eraseValues(changed.columns, after.dropped);
        if (changed.currentLayer == to)
            changed.currentLayer = zdr::kNoName;
        else if (changed.currentLayer == from)
            changed.currentLayer = to;
    }
}

void DatabaseImp::setLayerDescription(std::size_t index, std::wstring description) {
    zdr::Layer& layer = m_drawing.layers[index];
    m_history.add(LayerChange{layer.handle, layer, m_drawing.names.text(layer.name), m_drawing.layerSet});
    layer.description = std::move(description);
    ++m_changes;
}

zdr::LayerState DatabaseImp::translate(const zdr::LayerState& state, const zdr::NameTable& from) {
    return translateState(state, from, m_drawing.names);
}

void DatabaseImp::appendLayers(std::vector<WholeLayer> layers) {
    if (layers.empty())
        return;
    for (WholeLayer& whole : layers) {
        whole.layer.handle = newHandle();
        m_objects.insertLayer(m_drawing.layers.size(), whole.layer.handle);
        m_drawing.layers.push_back(std::move(whole.layer));
        appendValues(m_drawing.columns, whole.values);
    }
    m_drawing.layerSet = makeLayerSet();
    layersChanged();
}

void DatabaseImp::followLayer(std::size_t index, const std::wstring& description, bool unresolvedInside) {
    m_drawing.layers[index].description = description;
    m_drawing.layers[index].unresolvedInside = unresolvedInside;
    ++m_changes;
}

void DatabaseImp::followLinetype(std::size_t index, const zdr::Linetype& theirs) {
    m_drawing.linetypes[index].description = theirs.description;
    m_drawing.linetypes[index].pattern = theirs.pattern;
    ++m_changes;
}

void DatabaseImp::appendLinetype(zdr::Linetype linetype) {
    linetype.handle = newHandle();
    m_linetypes.put(linetype.name, m_drawing.linetypes.size());
    m_objects.appendLinetype(linetype.handle);
    m_drawing.linetypes.push_back(std::move(linetype));
    ++m_changes;
}

void DatabaseImp::appendPlotStyle(zdr::PlotStyle style) {
    style.handle = newHandle();
    m_plotStyles.put(style.name, m_drawing.plotStyles.size());
    m_objects.appendPlotStyle(style.handle);
    m_drawing.plotStyles.push_back(std::move(style));
    ++m_changes;
}

void DatabaseImp::insertPlotStyle(std::size_t index, zdr::PlotStyle style) {
    style.handle = newHandle();
    PlotStyleChange change{style.handle, index, style};
    change.exchange(m_drawing, m_objects);
    m_history.add(change);
    m_plotStyles.fill(m_drawing.plotStyles);
    ++m_changes;
}

void DatabaseImp::removePlotStyle(std::size_t index) {
    PlotStyleChange change{m_drawing.plotStyles[index].handle, index, std::nullopt};
    change.exchange(m_drawing, m_objects);
    m_history.add(change);
    m_plotStyles.fill(m_drawing.plotStyles);
    ++m_changes;
}

} // namespace engine
