// Everything that can be done to the layer states of a drawing, on plain values. Places of states are indices into the
// drawing's list; the callers have looked them up and checked that a state to be changed is the drawing's own.
#pragma once

#include "DatabaseImp.h"

namespace engine {

/// Records what the viewport (null: the drawing itself) shows of all layers, over the state of that name or as a new
/// one. eDependentRecord when a state of a reference bears the name; for the name the statuses of checkName().
Vorn::ErrorStatus saveState(DatabaseImp& database, std::wstring_view name, std::uint32_t mask,
                            const zdr::Viewport* viewport);
/// Enters a copy of a state under that name, with an id of its own; it replaces a state that bears the name. `place`
/// receives where it stands.
Vorn::ErrorStatus putState(DatabaseImp& database, std::wstring_view name, zdr::LayerState state, std::size_t& place);
void deleteState(DatabaseImp& database, std::size_t index);
Vorn::ErrorStatus renameState(DatabaseImp& database, std::size_t index, std::wstring_view name);
/// Adds layers of the drawing with their present values; a layer that the state holds already keeps its values.
void addLayersToState(DatabaseImp& database, std::size_t index, const std::vector<std::size_t>& layers);
/// Takes layers out; names that the state doesn't hold are passed over.
void removeLayersFromState(DatabaseImp& database, std::size_t index, const std::vector<zdr::NameId>& layers);
/// The layers that a state holds, or the ones of the drawing that it doesn't hold.
std::vector<zdr::NameId> layersOfState(const DatabaseImp& database, std::size_t index, bool invert);
/// One layer of a state. Without a linetype or plot style the state keeps what it has.
struct StateLayerUpdate {
    std::wstring layer;
    std::uint8_t flags = 0;
    KelCmColor color;
    std::optional<std::wstring> linetype;
    std::int16_t lineWeight = -3;
    std::optional<std::wstring> plotStyle;
    bool isCurrent = false;
};
/// False when the state doesn't hold the layer.
bool updateStateLayer(DatabaseImp& database, std::size_t index, const StateLayerUpdate& update);
/// Copies a state of another drawing. eKeyNotFound when that has no own state of the name, eDuplicateRecordName when
/// this drawing has a state of the name.
Vorn::ErrorStatus importState(DatabaseImp& database, std::wstring_view name, const DatabaseImp& source);
/// Enters a state whose names and colours are the drawing's. The state's own name must be valid and free.
void enterState(DatabaseImp& database, zdr::LayerState state);
/// The same for a state whose names and colours are of the tables `from`.
void enterForeignState(DatabaseImp& database, const zdr::LayerState& state, const zdr::ColumnTables& from);
/// A copy of a state whose names and colours are of the tables `from`, turned into those of `to`.
zdr::LayerState translateState(const zdr::LayerState& state, const zdr::ColumnTables& from, zdr::ColumnTables& to);

/// Whether what the viewport (null: the drawing itself) shows matches the state in the properties of its mask.
bool stateMatches(const DatabaseImp& database, std::size_t index, const zdr::Viewport* viewport);

struct RestoreRequest {
    const zdr::Viewport* viewport = nullptr;
    int flags = 0;
    std::uint32_t mask = 0;
    bool remember = true; ///< the state becomes the last restored one
};
/// eOk, or eCannotFreezeCurrentLayer, eStyleMissing, eLayerUnresolved (the first of these that applies) after doing the
/// rest.
Vorn::ErrorStatus restoreState(DatabaseImp& database, std::size_t index, const RestoreRequest& request);

/// The properties of a mask that mean something in the drawing: plot styles don't where they depend on colours.
std::uint32_t effectiveMask(const zdr::Drawing& drawing, std::uint32_t mask);

} // namespace engine
