#include "LayerEditing.h"

#include "values/LineWeights.h"
#include "values/NameRules.h"

#include <algorithm>
#include <iterator>

namespace engine {
namespace {

bool isBaseLayer(const zdr::Drawing& drawing, std::size_t index) {
    return zdr::equalFolded(drawing.names.text(drawing.layers[index].name), kBaseLayerName);
}

} // namespace

std::vector<bool> usedLayers(const zdr::Drawing& drawing) {
    std::vector<bool> used(drawing.layers.size());
    const auto markAll = [&used](const std::vector<zdr::Entity>& entities) {
        for (const zdr::Entity& entity : entities)
            used[entity.layer] = true;
    };
    if (drawing.currentLayer < used.size()) // none is, while an undo that memory ended is half done
        used[drawing.currentLayer] = true;
    markAll(drawing.entities);
    for (const zdr::Layout& layout : drawing.layouts)
        markAll(layout.entities);
    return used;
}

Vorn::ErrorStatus addLayer(DatabaseImp& database, std::wstring_view name, std::wstring description,
                           const LayerValues& values) {
    if (const Vorn::ErrorStatus status = checkName(name); status != Vorn::eOk)
        return status;
    if (database.findLayer(name) != zdr::kNone)
        return Vorn::eDuplicateRecordName;
    database.appendLayer({zdr::kNoName, 0, std::move(description), zdr::kNone}, name, values);
    return Vorn::eOk;
}

Vorn::ErrorStatus renameLayer(DatabaseImp& database, std::size_t index, std::wstring_view name) {
    const zdr::Drawing& drawing = database.drawing();
    if (drawing.layers[index].reference != zdr::kNone)
        return Vorn::eDependentRecord;
    if (isBaseLayer(drawing, index))
        return Vorn::eReservedName;
    if (const Vorn::ErrorStatus status = checkName(name); status != Vorn::eOk)
        return status;
    const std::size_t bearer = database.findLayer(name);
    if (bearer != zdr::kNone && bearer != index)
        return Vorn::eDuplicateRecordName;
    if (drawing.names.text(drawing.layers[index].name) != name)
        database.renameLayer(index, name);
    return Vorn::eOk;
}

Vorn::ErrorStatus removeLayer(DatabaseImp& database, std::size_t index) {
    const zdr::Drawing& drawing = database.drawing();
    if (drawing.layers[index].reference != zdr::kNone)
        return Vorn::eDependentRecord;
    if (isBaseLayer(drawing, index))
        return Vorn::eReservedName;
    if (usedLayers(drawing)[index])
        return Vorn::eRecordInUse;
    database.removeLayer(index);
    return Vorn::eOk;
}

Vorn::ErrorStatus setCurrentLayer(DatabaseImp& database, std::size_t index) {
    const zdr::Drawing& drawing = database.drawing();
    if (drawing.layers[index].reference != zdr::kNone)
        return Vorn::eDependentRecord;
    if (drawing.columns.flags[index] & zdr::kLayerFrozen)
        return Vorn::eCannotFreezeCurrentLayer;
    if (drawing.currentLayer != index)
        database.setCurrentLayer(index);
    return Vorn::eOk;
}

Vorn::ErrorStatus setLayerValues(DatabaseImp& database, std::size_t index, const LayerValues& values) {
    const zdr::Drawing& drawing = database.drawing();
    const bool freezes = values.flags & ~drawing.columns.flags[index] & zdr::kLayerFrozen;
    if (freezes && drawing.currentLayer == index)
        return Vorn::eCannotFreezeCurrentLayer;
    setValuesAt(*database.editColumns(), index, values);
    return Vorn::eOk;
}

bool isLineWeight(int weight) {
    return (weight >= kLineWeightDefault && weight < 0) || std::ranges::binary_search(kLineWidths, weight);
}

} // namespace engine
