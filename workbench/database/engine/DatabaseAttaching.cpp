// What attaching a reference changes. A file decides how much that is, so that it is done for all layers, styles or
// states at once: one pass through the drawing, however many they are. None of it can be undone.

#include "DatabaseImp.h"

namespace engine {

template <class Object>
void DatabaseImp::appendAll(std::vector<Object>& list, std::vector<Object> more, ObjectKind kind, const Parts& parts) {
    if (more.empty())
        return;
    zdr::makeRoom(list, more.size());
    m_objects.expect(kind, m_drawing.nextHandle, more.size());
    const Writing writing(m_lookups, parts); // nothing fails from here on
    for (Object& object : more) {
        object.handle = newHandle();
        m_objects.append(kind, object.handle);
        list.push_back(std::move(object));
    }
}

void DatabaseImp::appendLinetypes(std::vector<zdr::Linetype> linetypes) {
    appendAll(m_drawing.linetypes, std::move(linetypes), ObjectKind::Linetype, {.linetypes = true});
}

void DatabaseImp::appendPlotStyles(std::vector<zdr::PlotStyle> styles) {
    appendAll(m_drawing.plotStyles, std::move(styles), ObjectKind::PlotStyle, {.plotStyles = true});
}

void DatabaseImp::appendStates(std::vector<zdr::LayerState> states) {
    appendAll(m_drawing.states, std::move(states), ObjectKind::State, {.states = true});
}

void DatabaseImp::appendLayers(std::vector<WholeLayer> layers) {
    if (layers.empty())
        return;
    auto set = layerSet();
    for (const WholeLayer& whole : layers)
        set->names.push_back(whole.layer.name);
    zdr::makeRoom(m_drawing.layers, layers.size());
    makeRoomForValues(m_drawing.columns, layers.size());
    m_objects.expect(ObjectKind::Layer, m_drawing.nextHandle, layers.size());
    const Writing writing(m_lookups, {.layers = true}); // nothing fails from here on
    for (WholeLayer& whole : layers) {
        whole.layer.handle = newHandle();
        m_objects.append(ObjectKind::Layer, whole.layer.handle);
        m_drawing.layers.push_back(std::move(whole.layer));
        appendValues(m_drawing.columns, whole.values);
    }
    m_drawing.layerSet = std::move(set);
}

namespace {

/// Takes layers out of what viewports and entities say of them. Never fails.
class LayerRemoval {
  public:
    /// @param places what was each layer's index before becomes; of no meaning for one that goes
    LayerRemoval(const std::vector<bool>& gone, const std::vector<std::size_t>& places)
        : m_gone(gone), m_places(places) {}

    void from(std::vector<zdr::Entity>& entities) const {
        for (zdr::Entity& entity : entities)
            entity.layer = m_places[entity.layer];
    }
    void from(zdr::Viewport& viewport) const {
        zdr::eraseMarked(viewport.frozen, m_gone);
        std::erase_if(viewport.overrides, [this](const zdr::ViewportOverride& own) { return m_gone[own.layer]; });
        for (zdr::ViewportOverride& own : viewport.overrides)
            own.layer = m_places[own.layer];
    }

  private:
    const std::vector<bool>& m_gone;
    const std::vector<std::size_t>& m_places;
};

} // namespace

void DatabaseImp::removeLayers(const std::vector<bool>& gone) {
    auto set = layerSet();
    zdr::eraseMarked(set->names, gone);
    std::vector<std::size_t> places;
    places.reserve(gone.size());
    std::size_t kept = 0;
    for (const bool goes : gone)
        places.push_back(goes ? kept : kept++);
    makeRoomForValues(m_drawing.columns, 0);
    const Writing writing(m_lookups, {.layers = true}); // nothing fails from here on
    const LayerRemoval removal(gone, places);
    removal.from(m_drawing.entities);
    for (zdr::Layout& layout : m_drawing.layouts) {
        removal.from(layout.entities);
        for (zdr::Viewport& viewport : layout.viewports)
            removal.from(viewport);
    }
    if (m_drawing.currentLayer < places.size())
        m_drawing.currentLayer = places[m_drawing.currentLayer];
    zdr::eraseMarked(m_drawing.layers, gone);
    zdr::forEachColumn([&gone](auto& column) { column.eraseMarked(gone); }, m_drawing.columns);
    m_objects.removeMarked(ObjectKind::Layer, gone);
    m_drawing.layerSet = std::move(set);
}

void DatabaseImp::removeStates(const std::vector<bool>& gone) {
    const Writing writing(m_lookups, {.looks = true, .states = true});
    zdr::eraseMarked(m_drawing.states, gone);
    m_objects.removeMarked(ObjectKind::State, gone);
}

void DatabaseImp::followLayer(std::size_t index, std::wstring description, bool unresolvedInside) {
    const Writing writing(m_lookups, {});
    m_drawing.layers[index].description = std::move(description);
    m_drawing.layers[index].unresolvedInside = unresolvedInside;
}

void DatabaseImp::followLinetype(std::size_t index, zdr::Linetype theirs) {
    const Writing writing(m_lookups, {});
    m_drawing.linetypes[index].description = std::move(theirs.description);
    m_drawing.linetypes[index].pattern = std::move(theirs.pattern);
}

void DatabaseImp::setReferenceDrawing(std::size_t reference, std::shared_ptr<const zdr::Drawing> drawing) {
    const Writing writing(m_lookups, {});
    m_drawing.references[reference].unloaded = !drawing;
    m_drawing.references[reference].drawing = std::move(drawing);
}

} // namespace engine
