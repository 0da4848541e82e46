// The layer state service of a database.
#pragma once

#include "KelArray.h"
#include "KelDbObjectId.h"
#include "KelString.h"
#include "LayerStateMask.h"
#include "VornStatus.h"

class KelDbDatabase;
class KelDbImpDatabase;
class KelDbLayerTableRecord;

/// The layer states of one database. Belongs to the database. All names are state names, compared without regard to
/// case; eKeyNotFound is the answer for a name that no state bears, eDependentRecord for an attempt to change a state
/// of an attached reference.
class KELDB_API KelDbLayerStateManager {
  public:
    /// Fills `names` in the order in which the states stand in the drawing.
    /// @param includeHidden also names with a leading '*', which the host keeps to itself
    /// @param includeDependent also the states of attached references
    Vorn::ErrorStatus getLayerStateNames(KelArray<KelString>& names, bool includeHidden, bool includeDependent);
    bool hasLayerState(const wchar_t* name);
    /// Records the present properties of all layers, with that mask, over a state of that name if there is one.
    Vorn::ErrorStatus saveLayerState(const wchar_t* name, LayerStateMask mask);
    /// The same with the data of a viewport; with the null id the same as without.
    Vorn::ErrorStatus saveLayerState(const wchar_t* name, LayerStateMask mask, const KelDbObjectId& viewport);
    /// Writes the state back to the layers. A null `mask` means the state's own. 162, 173 and 384 have done the rest.
    Vorn::ErrorStatus restoreLayerState(const wchar_t* name, const KelDbObjectId& viewport, int flags,
                                        const LayerStateMask* mask);
    Vorn::ErrorStatus deleteLayerState(const wchar_t* name);
    /// eDuplicateRecordName when another state bears the new name; a change of case alone is fine.
    Vorn::ErrorStatus renameLayerState(const wchar_t* name, const wchar_t* newName);
    Vorn::ErrorStatus getLayerStateMask(const wchar_t* name, LayerStateMask& mask);
    Vorn::ErrorStatus setLayerStateMask(const wchar_t* name, LayerStateMask mask);
    /// On success `description` is a buffer that the caller frees with keldbFree. eOutOfMemory leaves it as it was.
    Vorn::ErrorStatus getLayerStateDescription(const wchar_t* name, wchar_t*& description);
    Vorn::ErrorStatus setLayerStateDescription(const wchar_t* name, const wchar_t* description);
    /// The layers that the state holds; `invert` asks for the layers of the drawing that it doesn't hold.
    Vorn::ErrorStatus getLayerStateLayers(KelArray<KelString>& layers, const wchar_t* name, bool invert);
    Vorn::ErrorStatus addLayerStateLayers(const wchar_t* name, const KelArray<KelDbObjectId>& layers);
    Vorn::ErrorStatus removeLayerStateLayers(const wchar_t* name, const KelArray<KelString>& layers);
    /// Whether the layers of the drawing, as that viewport shows them, match the state in the properties of its mask.
    bool compareLayerStateToDb(const wchar_t* name, const KelDbObjectId& viewport);
    /// The state that was restored last, and its record. eKeyNotFound when there is none.
    Vorn::ErrorStatus getLastRestoredLayerState(KelString& name, KelDbObjectId& restoredId);
    bool isDependentLayerState(const wchar_t* name);
    /// Whether the state was saved with a viewport.
    bool layerStateHasViewportData(const wchar_t* name);
    /// Reads a state from a layer states file. On return `name` is the name in the file, also with 23. Without memory
    /// for the file the answer is eFileUnreadable, or eFileWriteFailed from exportLayerState().
    Vorn::ErrorStatus importLayerState(const wchar_t* fileName, KelString& name);
    Vorn::ErrorStatus importLayerStateFromDb(const wchar_t* name, KelDbDatabase* source);
    Vorn::ErrorStatus exportLayerState(const wchar_t* name, const wchar_t* fileName);
    /// The dictionary of the states' records; `createIfMissing` makes it. Null when missing and not made.
    KelDbObjectId layerStatesDictionaryId(bool createIfMissing);

    explicit KelDbLayerStateManager(KelDbImpDatabase& database) : m_database(database) {}
    KelDbLayerStateManager(const KelDbLayerStateManager&) = delete;
    KelDbLayerStateManager& operator=(const KelDbLayerStateManager&) = delete;

  private:
    KelDbImpDatabase& m_database;
};

/// The internal side of the service.
class KELDB_API KelDbImpLayerStateManager {
  public:
    /// The quiet restore: with the mask given, whatever the state's own; works without a current viewport.
    /// @param remember whether the state becomes the last restored one
    Vorn::ErrorStatus restoreLayerState(const wchar_t* name, const KelDbObjectId& viewport, int flags,
                                        const LayerStateMask* mask, bool remember);
    /// Writes the values of a record in memory over the layer of the same name in the state.
    /// @param isCurrent whether this layer becomes the state's current layer
    bool updateLayerStateLayer(const wchar_t* name, const KelDbLayerTableRecord* record, bool isCurrent);

    explicit KelDbImpLayerStateManager(KelDbImpDatabase& database) : m_database(database) {}
    KelDbImpLayerStateManager(const KelDbImpLayerStateManager&) = delete;
    KelDbImpLayerStateManager& operator=(const KelDbImpLayerStateManager&) = delete;

  private:
    KelDbImpDatabase& m_database;
};
