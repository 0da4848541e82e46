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

bool isLayerUsed(const zdr::Drawing& drawing, std::size_t layer) {
    const auto onLayer = [layer](const zdr::Entity& entity) { return entity.layer == layer; };
    return std::ranges::any_of(drawing.entities, onLayer) ||
           std::ranges::any_of(drawing.layouts, [&](const zdr::Layout& layout) {
               return std::ranges::any_of(layout.entities, onLayer);
           });
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
    if (drawing.currentLayer == index || isLayerUsed(drawing, index))
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
