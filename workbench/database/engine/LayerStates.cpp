// Saving, deleting, renaming and editing states.

#include "LayerStates.h"

#include "LayerStateMask.h"
#include "values/NameRules.h"

#include <algorithm>

namespace engine {
namespace {

zdr::NameId currentLayerName(const zdr::Drawing& drawing) {
    return drawing.currentLayer < drawing.layers.size() ? drawing.layers[drawing.currentLayer].name : zdr::kNoName;
}

bool isDependent(const zdr::LayerState& state) {
    return state.reference != zdr::kNone;
}

bool isLastRestored(const zdr::Drawing& drawing, std::size_t state) {
    return drawing.lastRestored && zdr::equalFolded(*drawing.lastRestored, drawing.states[state].name);
}

std::size_t placeInSet(const zdr::LayerSet& set, zdr::NameId name) {
    const auto found = std::ranges::find(set.names, name);
    return found == set.names.end() ? zdr::kNone : static_cast<std::size_t>(found - set.names.begin());
}

// Whether each name of a table is in the list.
std::vector<bool> membership(const std::vector<zdr::NameId>& list, std::size_t tableSize) {
    std::vector<bool> members(tableSize);
    for (const zdr::NameId name : list)
        members[name] = true;
    return members;
}

// Where a state of that name is to be written: in the place of the one that bears it, or kNone for a new one.
Vorn::ErrorStatus placeForName(const DatabaseImp& database, std::wstring_view name, std::size_t& index) {
    index = database.findState(name);
    if (index != zdr::kNone)
        return isDependent(database.drawing().states[index]) ? Vorn::eDependentRecord : Vorn::eOk;
    return checkName(name);
}

// Keeps of each column the rows that `kept` names.
template <class T> zdr::Column<T> pick(const zdr::Column<T>& column, const std::vector<std::size_t>& kept) {
    std::vector<T> values;
    values.reserve(kept.size());
    for (const std::size_t row : kept)
        values.push_back(column[row]);
    return zdr::Column<T>(std::move(values));
}

} // namespace

Vorn::ErrorStatus saveState(DatabaseImp& database, std::wstring_view name, std::uint32_t mask,
                            const zdr::Viewport* viewport) {
    std::size_t index = zdr::kNone;
    if (const Vorn::ErrorStatus status = placeForName(database, name, index); status != Vorn::eOk)
        return status;
    const zdr::LayerColumns& columns = database.lookups().shown(viewport);
    const auto record = [&](zdr::LayerState& state) {
        state.mask = mask;
        state.layers = database.drawing().layerSet;
        state.columns = columns;
        state.currentLayer = currentLayerName(database.drawing());
        state.hasViewportData = viewport != nullptr;
    };
    if (index != zdr::kNone) {
        record(*database.editState(index));
        return Vorn::eOk;
    }
    zdr::LayerState fresh;
    fresh.name = name;
    record(fresh);
    database.insertState(std::move(fresh));
    return Vorn::eOk;
}

Vorn::ErrorStatus putState(DatabaseImp& database, std::wstring_view name, zdr::LayerState state, std::size_t& place) {
    std::size_t index = zdr::kNone;
    if (const Vorn::ErrorStatus status = placeForName(database, name, index); status != Vorn::eOk)
        return status;
    state.name = name;
    state.reference = zdr::kNone;
    if (index == zdr::kNone)
        index = database.insertState(std::move(state));
    else
        database.replaceState(index, std::move(state));
    place = index;
    return Vorn::eOk;
}

void deleteState(DatabaseImp& database, std::size_t index) {
    const bool wasLastRestored = isLastRestored(database.drawing(), index);
    if (wasLastRestored)
        database.recordSettings();
    database.removeState(index);
    if (wasLastRestored)
        database.setLastRestored(std::nullopt);
}

Vorn::ErrorStatus renameState(DatabaseImp& database, std::size_t index, std::wstring_view name) {
    if (const Vorn::ErrorStatus status = checkName(name); status != Vorn::eOk)
        return status;
    const std::size_t bearer = database.findState(name);
    if (bearer != zdr::kNone && bearer != index)
        return Vorn::eDuplicateRecordName;
    std::optional<std::wstring> lastRestored;
    if (isLastRestored(database.drawing(), index)) {
        lastRestored = name;
        database.recordSettings();
    }
    database.renameState(index, std::wstring(name));
    if (lastRestored)
        database.setLastRestored(std::move(lastRestored));
    return Vorn::eOk;
}

void addLayersToState(DatabaseImp& database, std::size_t index, const std::vector<std::size_t>& layers) {
    const zdr::Drawing& drawing = database.drawing();
    auto set = std::make_shared<zdr::LayerSet>(*drawing.states[index].layers);
    zdr::LayerColumns columns = drawing.states[index].columns;
    std::vector<bool> held = membership(set->names, drawing.names.size());
    for (const std::size_t layer : layers) {
        const zdr::NameId name = drawing.layers[layer].name;
        if (held[name])
            continue;
        held[name] = true;
        set->names.push_back(name);
        appendValues(columns, valuesAt(drawing.columns, layer));
    }
    if (set->names.size() == drawing.states[index].layers->names.size())
        return;
    const Editor<zdr::LayerState> state = database.editState(index);
    state->layers = set->names == drawing.layerSet->names ? drawing.layerSet : std::move(set);
    state->columns = std::move(columns);
}

void removeLayersFromState(DatabaseImp& database, std::size_t index, const std::vector<zdr::NameId>& layers) {
    const zdr::LayerState& before = database.drawing().states[index];
    const std::vector<bool> gone = membership(layers, database.drawing().names.size());
    auto set = std::make_shared<zdr::LayerSet>();
    std::vector<std::size_t> kept;
    for (std::size_t row = 0; row < before.layers->names.size(); ++row) {
        if (gone[before.layers->names[row]])
            continue;
        kept.push_back(row);
        set->names.push_back(before.layers->names[row]);
    }
    if (kept.size() == before.layers->names.size())
        return;
    zdr::LayerColumns rest;
    zdr::forEachColumn([&kept](auto& to, const auto& from) { to = pick(from, kept); }, rest, before.columns);
    const Editor<zdr::LayerState> state = database.editState(index);
    state->columns = std::move(rest);
    state->layers = std::move(set);
    if (placeInSet(*state->layers, state->currentLayer) == zdr::kNone)
        state->currentLayer = zdr::kNoName;
}

std::vector<zdr::NameId> layersOfState(const DatabaseImp& database, std::size_t index, bool invert) {
    const zdr::Drawing& drawing = database.drawing();
    const std::vector<zdr::NameId>& names = drawing.states[index].layers->names;
    if (!invert)
        return names;
    const std::vector<bool> held = membership(names, drawing.names.size());
    std::vector<zdr::NameId> others;
    for (const zdr::Layer& layer : drawing.layers)
        if (!held[layer.name])
            others.push_back(layer.name);
    return others;
}

bool updateStateLayer(DatabaseImp& database, std::size_t index, const StateLayerUpdate& update) {
    const zdr::Drawing& drawing = database.drawing();
    const zdr::NameId name = drawing.names.find(update.layer);
    const std::size_t row = placeInSet(*drawing.states[index].layers, name);
    if (name == zdr::kNoName || row == zdr::kNone)
        return false;
    LayerValues values = valuesAt(drawing.states[index].columns, row);
    const int frozenInViewport = values.flags & zdr::kLayerViewportFrozen; // records in memory lack this flag
    values.flags = static_cast<std::uint8_t>((update.flags & ~zdr::kLayerViewportFrozen) | frozenInViewport);
    values.color = database.intern(update.color);
    values.lineWeight = update.lineWeight;
    if (update.linetype)
        values.linetype = database.intern(*update.linetype);
    if (update.plotStyle)
        values.plotStyle = database.intern(*update.plotStyle);
    const Editor<zdr::LayerState> state = database.editState(index);
    setValuesAt(state->columns, row, values);
    if (update.isCurrent)
        state->currentLayer = name;
    return true;
}

std::uint32_t effectiveMask(const zdr::Drawing& drawing, std::uint32_t mask) {
    mask &= MaskAllProperties;
    return drawing.colorDependentPlotStyles ? mask & ~MaskPlotStyle : mask;
}

} // namespace engine
