#include "ReferenceEditing.h"

#include "model/SeededHash.h"
#include "values/NameRules.h"

#include <algorithm>
#include <unordered_set>

namespace workbench {

namespace {

/// Removes the layers of one reference, and renumbers everything that refers to a layer by its index.
class LayerRemoval {
  public:
    LayerRemoval(zdr::Drawing& drawing, std::size_t reference) : m_drawing(drawing) {
        for (std::size_t layer = 0; layer < drawing.layers.size(); ++layer) {
            const bool stays = drawing.layers[layer].reference != reference;
            m_places.push_back(stays ? m_kept.size() : zdr::kNone);
            if (stays)
                m_kept.push_back(layer);
            else
                m_gone.insert(drawing.layers[layer].handle);
        }
    }

    void run() {
        const std::size_t current = m_places[m_drawing.currentLayer];
        removeFrom(m_drawing.entities, current);
        for (zdr::Layout& layout : m_drawing.layouts) {
            removeFrom(layout.entities, current);
            for (zdr::Viewport& viewport : layout.viewports)
                removeFrom(viewport);
        }
        m_drawing.currentLayer = current;
        m_drawing.layers = kept(m_drawing.layers);
        removeFrom(m_drawing.columns);
        std::erase_if(m_drawing.extendedData,
                      [this](const zdr::ExtendedData& data) { return m_gone.contains(data.object); });
        // It lists the names of the layers before the removal; the engine makes a new one.
        m_drawing.layerSet = nullptr;
    }

  private:
    template <class T> std::vector<T> kept(const std::vector<T>& values) const {
        std::vector<T> out;
        for (const std::size_t layer : m_kept)
            out.push_back(values[layer]);
        return out;
    }

    template <class T> void removeFrom(zdr::Column<T>& column) const {
        const std::vector<T> values(column.values().begin(), column.values().end());
        column = zdr::Column<T>(kept(values));
    }

    void removeFrom(zdr::LayerColumns& columns) const {
        zdr::forEachColumn([this](auto& column) { removeFrom(column); }, columns);
    }

    void removeFrom(std::vector<zdr::Entity>& entities, std::size_t otherwise) const {
        for (zdr::Entity& entity : entities)
            entity.layer = m_places[entity.layer] == zdr::kNone ? otherwise : m_places[entity.layer];
    }

    void removeFrom(zdr::Viewport& viewport) const {
        viewport.frozen.resize(m_places.size());
        viewport.frozen = kept(viewport.frozen);
        std::erase_if(viewport.overrides,
                      [this](const zdr::ViewportOverride& own) { return m_places[own.layer] == zdr::kNone; });
        for (zdr::ViewportOverride& own : viewport.overrides)
            own.layer = m_places[own.layer];
    }

    zdr::Drawing& m_drawing;
    std::vector<std::size_t> m_places; // the new index of a layer; kNone for one that goes
    std::vector<std::size_t> m_kept;
    std::unordered_set<zdr::Handle, zdr::HandleHash> m_gone;
};

void removeStates(zdr::Drawing& drawing, std::size_t reference) {
    std::erase_if(drawing.states, [&](const zdr::LayerState& state) {
        const bool goes = state.reference == reference;
        if (goes && drawing.lastRestored && zdr::equalFolded(*drawing.lastRestored, state.name))
            drawing.lastRestored.reset();
        return goes;
    });
}

std::unordered_set<zdr::NameId> usedStyles(const zdr::Drawing& drawing) {
    std::unordered_set<zdr::NameId> used;
    const auto use = [&used](const zdr::Column<zdr::NameId>& column) {
        used.insert(column.values().begin(), column.values().end());
    };
    const auto useAll = [&](const std::vector<zdr::Entity>& entities) {
        for (const zdr::Entity& entity : entities)
            used.insert(entity.linetype);
    };
    use(drawing.columns.linetypes);
    use(drawing.columns.plotStyles);
    useAll(drawing.entities);
    for (const zdr::LayerState& state : drawing.states) {
        use(state.columns.linetypes);
        use(state.columns.plotStyles);
    }
    for (const zdr::Layout& layout : drawing.layouts) {
        useAll(layout.entities);
        for (const zdr::Viewport& viewport : layout.viewports)
            for (const zdr::ViewportOverride& own : viewport.overrides)
                used.insert({own.linetype, own.plotStyle});
    }
    return used;
}

void removeUnusedStyles(zdr::Drawing& drawing, const std::wstring& reference) {
    const std::wstring prefix = zdr::foldCase(reference + engine::kReferenceSeparator);
    const std::unordered_set<zdr::NameId> used = usedStyles(drawing);
    const auto isUnused = [&](const auto& style) {
        return !used.contains(style.name) && zdr::foldCase(drawing.names.text(style.name)).starts_with(prefix);
    };
    std::erase_if(drawing.linetypes, isUnused);
    std::erase_if(drawing.plotStyles, isUnused);
}

} // namespace

zdr::Drawing withoutReference(zdr::Drawing drawing, std::size_t reference) {
    const std::wstring name = drawing.references[reference].name;
    LayerRemoval(drawing, reference).run();
    removeStates(drawing, reference);
    removeUnusedStyles(drawing, name);
    drawing.references.erase(drawing.references.begin() + static_cast<std::ptrdiff_t>(reference));
    const auto moveUp = [reference](std::size_t& index) {
        if (index != zdr::kNone && index > reference)
            --index;
    };
    for (zdr::Layer& layer : drawing.layers)
        moveUp(layer.reference);
    for (zdr::LayerState& state : drawing.states)
        moveUp(state.reference);
    return drawing;
}

} // namespace workbench
