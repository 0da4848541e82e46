// The engine as the Workbench and the tests see it, beside the host's interface: the drawing as plain values, what the
// application itself does to it, and undo. Nothing here is traced.
#pragma once

#include "KelDbDatabase.h"
#include "engine/Changes.h"
#include "model/Drawing.h"

namespace engine {

/// The drawing of a database. The reference stays good for the database's life; what it holds changes.
KELDB_API const zdr::Drawing& drawingOf(const KelDbDatabase& database);
/// Replaces the database's drawing. References that hold a drawing are attached. Ids of the old drawing name erased
/// objects from then on, and nothing can be undone.
KELDB_API void replaceDrawing(KelDbDatabase& database, zdr::Drawing drawing);
/// A drawing as New makes one.
KELDB_API zdr::Drawing makeNewDrawing();
/// Grows with every change of the database, undo included.
KELDB_API std::uint64_t changeCount(const KelDbDatabase& database);
/// A number for what the drawing holds: another one after each change, and the former one again once everything since
/// is taken back, by undo or by the undo group itself. It tells whether there is something to save. What is looked at,
/// the active layout and the current viewport, doesn't count.
KELDB_API std::uint64_t contentNumber(const KelDbDatabase& database);
/// The id of a handle; null when no object has it.
KELDB_API KelDbObjectId objectId(const KelDbDatabase& database, zdr::Handle handle);
KELDB_API KelDbObjectId layerId(const KelDbDatabase& database, std::size_t index);
/// Index of a layer of the drawing by name, without regard to case; zdr::kNone when there is none.
KELDB_API std::size_t layerIndex(const KelDbDatabase& database, std::wstring_view name);
/// Index of the layer that an id names; zdr::kNone for the id of anything else.
KELDB_API std::size_t layerIndex(const KelDbDatabase& database, KelDbObjectId id);

/// What a viewport shows of all layers: the drawing's columns with its overrides, and its freezing as
/// zdr::kLayerViewportFrozen. Null asks for the drawing's own. Good until the next change.
KELDB_API const zdr::LayerColumns& shownColumns(const KelDbDatabase& database, const zdr::Viewport* viewport);

/// Makes a layout the active one, or the model tab; no viewport is current then. eInvalidInput for one that isn't
/// there.
KELDB_API Vorn::ErrorStatus setActiveLayout(KelDbDatabase& database, std::optional<std::size_t> layout);
/// Makes a viewport of the active layout the current one, or none. eInvalidInput for one that isn't there or isn't on.
KELDB_API Vorn::ErrorStatus setCurrentViewport(KelDbDatabase& database, std::optional<zdr::Handle> viewport);
/// The current viewport's id; null on the model tab and in paper space itself.
KELDB_API KelDbObjectId currentViewportId(const KelDbDatabase& database);

/// Multiplies the lengths of all dashes. eInvalidInput for what isn't a linetype scale.
KELDB_API Vorn::ErrorStatus setLinetypeScale(KelDbDatabase& database, double scale);

/// Changes of layers; the statuses are those of engine/LayerEditing.h. Layers are given by index.
KELDB_API Vorn::ErrorStatus addLayer(KelDbDatabase& database, std::wstring_view name);
KELDB_API Vorn::ErrorStatus renameLayer(KelDbDatabase& database, std::size_t layer, std::wstring_view name);
KELDB_API Vorn::ErrorStatus removeLayer(KelDbDatabase& database, std::size_t layer);
KELDB_API Vorn::ErrorStatus setCurrentLayer(KelDbDatabase& database, std::size_t layer);
/// The number of a colour in values that are written here; a named one is entered in the drawing's table.
KELDB_API zdr::ColorId colorId(KelDbDatabase& database, const KelCmColor& color);
KELDB_API LayerValues layerValues(const KelDbDatabase& database, std::size_t layer);
KELDB_API Vorn::ErrorStatus setLayerValues(KelDbDatabase& database, std::size_t layer, const LayerValues& values);
/// Freezes a layer in one viewport or thaws it there.
KELDB_API void setFrozenInViewport(KelDbDatabase& database, zdr::Handle viewport, std::size_t layer, bool frozen);
/// Gives a layer an override in one viewport, which replaces the one it had; a mask of 0 takes it away.
KELDB_API void setOverride(KelDbDatabase& database, zdr::Handle viewport, const zdr::ViewportOverride& layer);

/// Sets what a viewport shows of model space: the point in its middle, and how many millimetres of paper a unit takes.
/// eInvalidInput for a viewport that isn't there, and for numbers that a drawing can't keep or show.
KELDB_API Vorn::ErrorStatus setViewportView(KelDbDatabase& database, zdr::Handle viewport, zdr::Point center,
                                            double scale);

/// Brackets changes that are undone together. Groups nest; the outermost counts, and its name, by which people are told
/// what is taken back.
KELDB_API void beginUndoGroup(KelDbDatabase& database, std::wstring name = {});
KELDB_API void endUndoGroup(KelDbDatabase& database);
/// Names the step that gathers what is changed outside of groups; does nothing while there is none.
KELDB_API void nameGatheredChanges(KelDbDatabase& database, std::wstring name);
/// Undoes the last group, or all changes that were made outside groups after it. False when there is nothing to undo,
/// or while a group is open.
KELDB_API bool undo(KelDbDatabase& database);
KELDB_API bool redo(KelDbDatabase& database);
/// The name of the group that undo() or redo() takes; empty where it has none, or there is nothing to take.
KELDB_API std::wstring undoName(const KelDbDatabase& database);
KELDB_API std::wstring redoName(const KelDbDatabase& database);
KELDB_API bool canUndo(const KelDbDatabase& database);
KELDB_API bool canRedo(const KelDbDatabase& database);

/// Gives one of the drawing's references the drawing to show: its layers are then among the drawing's as "name!layer",
/// its own states as "name!state". Null unloads the reference: its layers stay, its states go, and the drawing's file
/// says so. This can't be undone, nor can anything before it.
KELDB_API void attachReference(KelDbDatabase& database, std::size_t reference,
                               std::shared_ptr<const zdr::Drawing> drawing);

/// The sentence for the user about the last file that couldn't be read into this database, or written from it, by a
/// host call: which file, where in it, and why.
KELDB_API const std::wstring& lastFileProblem(const KelDbDatabase& database);

} // namespace engine
