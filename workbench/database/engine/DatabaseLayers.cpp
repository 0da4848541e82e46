// The layer table's side of DatabaseImp: layers put in, taken out and renamed, and the styles that they use.

#include "DatabaseImp.h"
#include "LayerStates.h"

#include <algorithm>
#include <map>

namespace engine {

std::shared_ptr<zdr::LayerSet> DatabaseImp::layerSet() const {
    return std::make_shared<zdr::LayerSet>(*m_drawing.layerSet);
}

zdr::Handle DatabaseImp::appendLayer(zdr::Layer layer, std::wstring_view name, const LayerValues& values) {
    layer.name = intern(name);
    layer.handle = newHandle();
    const zdr::Handle handle = layer.handle;
    auto set = layerSet();
    set->names.push_back(layer.name);
    WholeLayer whole{std::move(layer), values, {}, {}, std::wstring(name)};
    perform(LayerListChange{m_drawing.layers.size(), std::move(whole), std::move(set)}, {.layers = true});
    return handle;
}

void DatabaseImp::removeLayer(std::size_t index) {
    auto set = layerSet();
    set->names.erase(set->names.begin() + static_cast<std::ptrdiff_t>(index));
    perform(LayerListChange{index, std::nullopt, std::move(set)}, {.layers = true});
}

namespace {

/// A set of layers in which a layer was renamed.
struct RenamedSet {
    std::shared_ptr<const zdr::LayerSet> set;
    std::size_t dropped = zdr::kNone; ///< former row of a layer of the new name
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

/// What the drawing's own states become when one of its layers gets another name. States that share a set of layers
/// share the renamed set, too. When a state already has a row under the new name, the row is of a layer that the
/// drawing no longer has: it is dropped, and the renamed layer's row stays.
class LayerRename {
  public:
    struct Changed {
        std::size_t index;
        std::shared_ptr<const zdr::LayerSet> layers;
        zdr::LayerColumns columns;
        zdr::NameId currentLayer;
    };
    LayerRename(const zdr::Drawing& drawing, zdr::NameId from, zdr::NameId to) : m_from(from), m_to(to) {
        layerSet = renamed(drawing.layerSet).set;
        for (std::size_t i = 0; i < drawing.states.size(); ++i)
            if (drawing.states[i].reference == zdr::kNone)
                follow(i, drawing.states[i]);
    }

    std::shared_ptr<const zdr::LayerSet> layerSet; ///< the drawing's
    std::vector<Changed> states;

  private:
    const RenamedSet& renamed(const std::shared_ptr<const zdr::LayerSet>& set) {
        const auto [entry, isNew] = m_renamed.try_emplace(set.get());
        if (isNew)
            entry->second = renameInSet(set, m_from, m_to);
        return entry->second;
    }
    void follow(std::size_t index, const zdr::LayerState& state) {
        const RenamedSet& after = renamed(state.layers);
        if (after.set == state.layers)
            return;
        zdr::LayerColumns columns = state.columns;
        if (after.dropped != zdr::kNone)
            eraseValues(columns, after.dropped);
        const zdr::NameId current = state.currentLayer == m_to     ? zdr::kNoName
                                    : state.currentLayer == m_from ? m_to
                                                                   : state.currentLayer;
        states.push_back({index, after.set, std::move(columns), current});
    }

    const zdr::NameId m_from, m_to;
    std::map<const zdr::LayerSet*, RenamedSet> m_renamed;
};

} // namespace

void DatabaseImp::renameLayer(std::size_t index, std::wstring_view name) {
    zdr::Layer layer = m_drawing.layers[index];
    const zdr::NameId from = layer.name;
    layer.name = intern(name);
    if (layer.name == from) {
        perform(LayerChange{layer.handle, layer, std::wstring(name), m_drawing.layerSet}, {.layers = true});
        return;
    }
    LayerRename rename(m_drawing, from, layer.name);
    const Writing writing(m_lookups, {.layers = true});
    for (const LayerRename::Changed& changed : rename.states)
        m_history.beforeState(m_drawing, changed.index);
    perform(LayerChange{layer.handle, layer, std::wstring(name), std::move(rename.layerSet)}, {.layers = true});
    for (LayerRename::Changed& changed : rename.states) {
        zdr::LayerState& state = m_drawing.states[changed.index];
        state.layers = std::move(changed.layers);
        state.columns = std::move(changed.columns);
        state.currentLayer = changed.currentLayer;
    }
}

void DatabaseImp::setLayerDescription(std::size_t index, std::wstring description) {
    zdr::Layer layer = m_drawing.layers[index];
    layer.description = std::move(description);
    perform(LayerChange{layer.handle, layer, m_drawing.names.text(layer.name), m_drawing.layerSet}, {});
}

void DatabaseImp::insertPlotStyle(std::size_t index, zdr::PlotStyle style) {
    style.handle = newHandle();
    perform(PlotStyleChange{style.handle, index, style}, {.plotStyles = true});
}

void DatabaseImp::removePlotStyle(std::size_t index) {
    perform(PlotStyleChange{m_drawing.plotStyles[index].handle, index, std::nullopt}, {.plotStyles = true});
}

void DatabaseImp::replacePlotStyle(std::size_t index) {
    m_history.makeRoom(2);
    insertPlotStyle(index, {m_drawing.plotStyles[index].name, 0});
    removePlotStyle(index + 1); // taking out can't fail, once there is room to record it
}

} // namespace engine
