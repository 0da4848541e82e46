#include "DatabaseAccess.h"

#include "DatabaseImp.h"
#include "LayerEditing.h"
#include "NewDrawing.h"
#include "ReferenceAttachment.h"
#include "values/NameRules.h"

#include <algorithm>
#include <cmath>

namespace engine {

const zdr::Drawing& drawingOf(const KelDbDatabase& database) {
    return impOf(database).drawing();
}

void replaceDrawing(KelDbDatabase& database, zdr::Drawing drawing) {
    impOf(database).adopt(std::move(drawing));
    attachReferences(impOf(database));
}

zdr::Drawing makeNewDrawing() {
    return newDrawing();
}

std::uint64_t changeCount(const KelDbDatabase& database) {
    return impOf(database).changes();
}

std::uint64_t contentNumber(const KelDbDatabase& database) {
    return impOf(database).content().value();
}

KelDbObjectId objectId(const KelDbDatabase& database, zdr::Handle handle) {
    KelDbStub* stub = impOf(database).objects().find(handle);
    return stub && !stub->erased ? KelDbObjectId(stub) : KelDbObjectId();
}

KelDbObjectId layerId(const KelDbDatabase& database, std::size_t index) {
    return KelDbObjectId(impOf(database).objects().layer(index));
}

std::size_t layerIndex(const KelDbDatabase& database, std::wstring_view name) {
    return impOf(database).findLayer(name);
}

std::size_t layerIndex(const KelDbDatabase& database, KelDbObjectId id) {
    const KelDbStub* stub = id.stub();
    const bool isLayer = stub && stub->kind == ObjectKind::Layer && !stub->erased;
    return isLayer && stub->database == &impOf(database) ? stub->index : zdr::kNone;
}

const zdr::LayerColumns& shownColumns(const KelDbDatabase& database, const zdr::Viewport* viewport) {
    return impOf(database).lookups().shown(viewport);
}

Vorn::ErrorStatus setActiveLayout(KelDbDatabase& database, std::optional<std::size_t> layout) {
    DatabaseImp& imp = impOf(database);
    if (layout && *layout >= imp.drawing().layouts.size())
        return Vorn::eInvalidInput;
    imp.setActiveSpace(layout, std::nullopt);
    return Vorn::eOk;
}

Vorn::ErrorStatus setCurrentViewport(KelDbDatabase& database, std::optional<zdr::Handle> viewport) {
    DatabaseImp& imp = impOf(database);
    const zdr::Drawing& drawing = imp.drawing();
    if (viewport) {
        const KelDbStub* stub = imp.objects().find(*viewport);
        const bool there = stub && !stub->erased && stub->kind == ObjectKind::Viewport;
        if (!there || stub->layout != drawing.activeLayout || findViewport(drawing, *viewport)->number == -1)
            return Vorn::eInvalidInput;
    }
    imp.setActiveSpace(drawing.activeLayout, viewport);
    return Vorn::eOk;
}

KelDbObjectId currentViewportId(const KelDbDatabase& database) {
    const zdr::Drawing& drawing = drawingOf(database);
    return drawing.activeLayout && drawing.currentViewport ? objectId(database, *drawing.currentViewport)
                                                           : KelDbObjectId();
}

Vorn::ErrorStatus setLinetypeScale(KelDbDatabase& database, double scale) {
    if (!zdr::isLinetypeScale(scale))
        return Vorn::eInvalidInput;
    impOf(database).setLinetypeScale(scale);
    return Vorn::eOk;
}

// A new layer has the properties of a new drawing's layer.
Vorn::ErrorStatus addLayer(KelDbDatabase& database, std::wstring_view name) {
    DatabaseImp& imp = impOf(database);
    LayerValues values{.flags = zdr::kLayerOn | zdr::kLayerPlot};
    values.linetype = imp.drawing().names.find(kContinuousName);
    if (!imp.drawing().plotStyles.empty())
        values.plotStyle = imp.drawing().plotStyles.front().name;
    return addLayer(imp, name, {}, values);
}

Vorn::ErrorStatus renameLayer(KelDbDatabase& database, std::size_t layer, std::wstring_view name) {
    return renameLayer(impOf(database), layer, name);
}

Vorn::ErrorStatus removeLayer(KelDbDatabase& database, std::size_t layer) {
    return removeLayer(impOf(database), layer);
}

Vorn::ErrorStatus setCurrentLayer(KelDbDatabase& database, std::size_t layer) {
    return setCurrentLayer(impOf(database), layer);
}

zdr::ColorId colorId(KelDbDatabase& database, const KelCmColor& color) {
    return impOf(database).intern(color);
}

LayerValues layerValues(const KelDbDatabase& database, std::size_t layer) {
    return valuesAt(drawingOf(database).columns, layer);
}

Vorn::ErrorStatus setLayerValues(KelDbDatabase& database, std::size_t layer, const LayerValues& values) {
    return setLayerValues(impOf(database), layer, values);
}

void setFrozenInViewport(KelDbDatabase& database, zdr::Handle viewport, std::size_t layer, bool frozen) {
    DatabaseImp& imp = impOf(database);
    const zdr::Viewport* found = findViewport(imp.drawing(), viewport);
    if (!found)
        return;
    const Editor<zdr::Viewport> edited = imp.editViewport(*found);
    std::vector<bool>& list = edited->frozen;
    list.resize(std::max(list.size(), layer + 1));
    list[layer] = frozen;
}

void setOverride(KelDbDatabase& database, zdr::Handle viewport, const zdr::ViewportOverride& layer) {
    DatabaseImp& imp = impOf(database);
    const zdr::Viewport* found = findViewport(imp.drawing(), viewport);
    if (!found)
        return;
    const Editor<zdr::Viewport> edited = imp.editViewport(*found);
    std::vector<zdr::ViewportOverride>& overrides = edited->overrides;
    auto place = std::ranges::lower_bound(overrides, layer.layer, {}, &zdr::ViewportOverride::layer);
    if (place != overrides.end() && place->layer == layer.layer)
        place = overrides.erase(place);
    if (layer.mask)
        overrides.insert(place, layer);
}

Vorn::ErrorStatus setViewportView(KelDbDatabase& database, zdr::Handle viewport, zdr::Point center, double scale) {
    DatabaseImp& imp = impOf(database);
    const zdr::Viewport* found = findViewport(imp.drawing(), viewport);
    const bool shows = std::isfinite(center.x) && std::isfinite(center.y) && std::isfinite(scale) && scale > 0;
    if (!found || !shows)
        return Vorn::eInvalidInput;
    if (found->viewCenter == center && found->scale == scale)
        return Vorn::eOk;
    const Editor<zdr::Viewport> edited = imp.editViewport(*found);
    edited->viewCenter = center;
    edited->scale = scale;
    return Vorn::eOk;
}

void beginUndoGroup(KelDbDatabase& database, std::wstring name) {
    impOf(database).beginUndoGroup(std::move(name));
}

void nameGatheredChanges(KelDbDatabase& database, std::wstring name) {
    impOf(database).history().nameGathered(std::move(name));
}

void endUndoGroup(KelDbDatabase& database) {
    impOf(database).endUndoGroup();
}

bool undo(KelDbDatabase& database) {
    return impOf(database).undo();
}

bool redo(KelDbDatabase& database) {
    return impOf(database).redo();
}

std::wstring undoName(const KelDbDatabase& database) {
    return impOf(database).history().undoName();
}

std::wstring redoName(const KelDbDatabase& database) {
    return impOf(database).history().redoName();
}

bool canUndo(const KelDbDatabase& database) {
    return impOf(database).history().canUndo();
}

bool canRedo(const KelDbDatabase& database) {
    return impOf(database).history().canRedo();
}

void attachReference(KelDbDatabase& database, std::size_t reference, std::shared_ptr<const zdr::Drawing> drawing) {
    attachReference(impOf(database), reference, std::move(drawing));
}

const std::wstring& lastFileProblem(const KelDbDatabase& database) {
    return impOf(database).fileProblem;
}

} // namespace engine
