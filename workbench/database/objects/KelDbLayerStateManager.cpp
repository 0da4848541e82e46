// The layer state service at the host's boundary: looks states up, keeps the ones of references from being changed, and
// hands on to the engine.

#include "KelDbLayerStateManager.h"

#include "instruments/HostCalls.h"
#include "ObjectState.h"
#include "files/FileProblems.h"
#include "files/RemoteFiles.h"
#include "statefile/StateFile.h"
#include "values/NameRules.h"
#include "values/RuntimeStrings.h"

using instruments::HostCall;

namespace {

engine::DatabaseImp& of(KelDbImpDatabase& database) {
    return engine::impOf(database);
}

// The place of a state, eKeyNotFound, or eDependentRecord when it is to be changed and belongs to a reference.
Vorn::ErrorStatus find(const engine::DatabaseImp& database, const wchar_t* name, bool toChange, std::size_t& index) {
    index = name ? database.findState(name) : zdr::kNone;
    if (index == zdr::kNone)
        return Vorn::eKeyNotFound;
    const bool dependent = database.drawing().states[index].reference != zdr::kNone;
    return toChange && dependent ? Vorn::eDependentRecord : Vorn::eOk;
}

const zdr::LayerState* findState(const engine::DatabaseImp& database, const wchar_t* name) {
    std::size_t index = zdr::kNone;
    return find(database, name, false, index) == Vorn::eOk ? &database.drawing().states[index] : nullptr;
}

// The viewport of an id, null for the null id; eInvalidInput for an id of anything else.
Vorn::ErrorStatus findViewport(const engine::DatabaseImp& database, KelDbObjectId id, const zdr::Viewport*& viewport) {
    viewport = database.viewport(id);
    return viewport || id.isNull() ? Vorn::eOk : Vorn::eInvalidInput;
}

// One call that looks at a state or changes it: asks for a planned fault, finds the state and runs `action` on its
// place.
template <class Action>
Vorn::ErrorStatus withState(HostCall& call, const engine::DatabaseImp& database, const wchar_t* name, bool toChange,
                            Action action) {
    return call.status([&] {
        std::size_t index = zdr::kNone;
        const Vorn::ErrorStatus status = find(database, name, toChange, index);
        return status == Vorn::eOk ? action(index) : status;
    });
}

Vorn::ErrorStatus save(HostCall& call, engine::DatabaseImp& database, const wchar_t* name, LayerStateMask mask,
                       KelDbObjectId viewportId) {
    return call.status([&] {
        const zdr::Viewport* viewport = nullptr;
        if (!name || findViewport(database, viewportId, viewport) != Vorn::eOk)
            return Vorn::eInvalidInput;
        return engine::saveState(database, name, mask, viewport);
    });
}

Vorn::ErrorStatus restore(HostCall& call, engine::DatabaseImp& database, const wchar_t* name,
                          const KelDbObjectId& viewportId, engine::RestoreRequest request, const LayerStateMask* mask) {
    return withState(call, database, name, false, [&](std::size_t index) {
        request.mask = mask ? *mask : database.drawing().states[index].mask;
        const Vorn::ErrorStatus status = findViewport(database, viewportId, request.viewport);
        return status == Vorn::eOk ? engine::restoreState(database, index, request) : status;
    });
}

} // namespace

Vorn::ErrorStatus KelDbLayerStateManager::getLayerStateNames(KelArray<KelString>& names, bool includeHidden,
                                                             bool includeDependent) {
    HostCall call("getLayerStateNames", includeHidden, includeDependent);
    return call.status([&] {
        KelArray<KelString> found(0, names.growLength());
        for (const zdr::LayerState& state : of(m_database).drawing().states) {
            const bool hidden = state.name.starts_with(engine::kHiddenMark);
            const bool dependent = state.reference != zdr::kNone;
            if ((includeHidden || !hidden) && (includeDependent || !dependent))
                found.append(state.name.c_str());
        }
        names = std::move(found);
        call.out("names", names);
        return Vorn::eOk;
    });
}

bool KelDbLayerStateManager::hasLayerState(const wchar_t* name) {
    HostCall call("hasLayerState", name);
    return call.valueOr(false, [&] { return findState(of(m_database), name) != nullptr; });
}

Vorn::ErrorStatus KelDbLayerStateManager::saveLayerState(const wchar_t* name, LayerStateMask mask) {
    HostCall call("saveLayerState", name, mask);
    return save(call, of(m_database), name, mask, {});
}

Vorn::ErrorStatus KelDbLayerStateManager::saveLayerState(const wchar_t* name, LayerStateMask mask,
                                                         const KelDbObjectId& viewport) {
    HostCall call("saveLayerState", name, mask, viewport);
    return save(call, of(m_database), name, mask, viewport);
}

Vorn::ErrorStatus KelDbLayerStateManager::restoreLayerState(const wchar_t* name, const KelDbObjectId& viewport,
                                                            int flags, const LayerStateMask* mask) {
    HostCall call("restoreLayerState", name, viewport, flags, mask);
    return restore(call, of(m_database), name, viewport, {.flags = flags}, mask);
}

Vorn::ErrorStatus KelDbImpLayerStateManager::restoreLayerState(const wchar_t* name, const KelDbObjectId& viewport,
                                                               int flags, const LayerStateMask* mask, bool remember) {
    HostCall call("imp.restoreLayerState", name, viewport, flags, mask, remember);
    return restore(call, of(m_database), name, viewport, {.flags = flags, .remember = remember}, mask);
}

Vorn::ErrorStatus KelDbLayerStateManager::deleteLayerState(const wchar_t* name) {
    HostCall call("deleteLayerState", name);
    engine::DatabaseImp& database = of(m_database);
    return withState(call, database, name, true, [&](std::size_t index) {
        engine::deleteState(database, index);
        return Vorn::eOk;
    });
}

Vorn::ErrorStatus KelDbLayerStateManager::renameLayerState(const wchar_t* name, const wchar_t* newName) {
    HostCall call("renameLayerState", name, newName);
    engine::DatabaseImp& database = of(m_database);
    return withState(call, database, name, true, [&](std::size_t index) {
        return newName ? engine::renameState(database, index, newName) : Vorn::eInvalidInput;
    });
}

Vorn::ErrorStatus KelDbLayerStateManager::getLayerStateMask(const wchar_t* name, LayerStateMask& mask) {
    HostCall call("getLayerStateMask", name);
    return withState(call, of(m_database), name, false, [&](std::size_t index) {
        mask = of(m_database).drawing().states[index].mask;
        call.out("mask", mask);
        return Vorn::eOk;
    });
}

Vorn::ErrorStatus KelDbLayerStateManager::setLayerStateMask(const wchar_t* name, LayerStateMask mask) {
    HostCall call("setLayerStateMask", name, mask);
    engine::DatabaseImp& database = of(m_database);
    return withState(call, database, name, true, [&](std::size_t index) {
        if (database.drawing().states[index].mask != mask)
            database.editState(index)->mask = mask;
        return Vorn::eOk;
    });
}

Vorn::ErrorStatus KelDbLayerStateManager::getLayerStateDescription(const wchar_t* name, wchar_t*& description) {
    HostCall call("getLayerStateDescription", name);
    return withState(call, of(m_database), name, false, [&](std::size_t index) {
        const std::wstring& text = of(m_database).drawing().states[index].description;
        wchar_t* copy = engine::handOutText(text, "description of a state");
        if (!copy)
            return Vorn::eOutOfMemory;
        description = copy;
        call.out("description", text);
        return Vorn::eOk;
    });
}

Vorn::ErrorStatus KelDbLayerStateManager::setLayerStateDescription(const wchar_t* name, const wchar_t* description) {
    HostCall call("setLayerStateDescription", name, description);
    engine::DatabaseImp& database = of(m_database);
    return withState(call, database, name, true, [&](std::size_t index) {
        database.editState(index)->description = description ? description : L"";
        return Vorn::eOk;
    });
}

Vorn::ErrorStatus KelDbLayerStateManager::getLayerStateLayers(KelArray<KelString>& layers, const wchar_t* name,
                                                              bool invert) {
    HostCall call("getLayerStateLayers", name, invert);
    const engine::DatabaseImp& database = of(m_database);
    return withState(call, database, name, false, [&](std::size_t index) {
        const zdr::Drawing& drawing = database.drawing();
        KelArray<KelString> found(0, layers.growLength());
        for (const zdr::NameId layer : engine::layersOfState(database, index, invert))
            found.append(drawing.names.text(layer).c_str());
        layers = std::move(found);
        call.out("layers", layers);
        return Vorn::eOk;
    });
}

Vorn::ErrorStatus KelDbLayerStateManager::addLayerStateLayers(const wchar_t* name,
                                                              const KelArray<KelDbObjectId>& layers) {
    HostCall call("addLayerStateLayers", name, layers);
    engine::DatabaseImp& database = of(m_database);
    return withState(call, database, name, true, [&](std::size_t index) {
        std::vector<std::size_t> places;
        for (const KelDbObjectId id : layers) {
            const KelDbStub* stub = id.stub();
            if (!stub || stub->database != &database || stub->kind != engine::ObjectKind::Layer || stub->erased)
                return Vorn::eInvalidInput;
            places.push_back(stub->index);
        }
        engine::addLayersToState(database, index, places);
        return Vorn::eOk;
    });
}

Vorn::ErrorStatus KelDbLayerStateManager::removeLayerStateLayers(const wchar_t* name,
                                                                 const KelArray<KelString>& layers) {
    HostCall call("removeLayerStateLayers", name, layers);
    engine::DatabaseImp& database = of(m_database);
    return withState(call, database, name, true, [&](std::size_t index) {
        std::vector<zdr::NameId> names;
        for (const KelString& layer : layers)
            names.push_back(database.drawing().names.find(layer.kwszPtr()));
        engine::removeLayersFromState(database, index, names);
        return Vorn::eOk;
    });
}

bool KelDbLayerStateManager::compareLayerStateToDb(const wchar_t* name, const KelDbObjectId& viewport) {
    HostCall call("compareLayerStateToDb", name, viewport);
    const engine::DatabaseImp& database = of(m_database);
    return call.valueOr(false, [&] {
        std::size_t index = zdr::kNone;
        const zdr::Viewport* shown = nullptr;
        return find(database, name, false, index) == Vorn::eOk &&
               findViewport(database, viewport, shown) == Vorn::eOk && engine::stateMatches(database, index, shown);
    });
}

Vorn::ErrorStatus KelDbLayerStateManager::getLastRestoredLayerState(KelString& name, KelDbObjectId& restoredId) {
    HostCall call("getLastRestoredLayerState");
    return call.status([&] {
        const engine::DatabaseImp& database = of(m_database);
        const auto& last = database.drawing().lastRestored;
        const std::size_t index = last ? database.findState(*last) : zdr::kNone;
        if (index == zdr::kNone)
            return Vorn::eKeyNotFound;
        name.assign(database.drawing().states[index].name.c_str());
        restoredId = KelDbObjectId(database.objects().state(index));
        call.out("name", name);
        call.out("id", restoredId);
        return Vorn::eOk;
    });
}

bool KelDbLayerStateManager::isDependentLayerState(const wchar_t* name) {
    HostCall call("isDependentLayerState", name);
    return call.valueOr(false, [&] {
        const zdr::LayerState* state = findState(of(m_database), name);
        return state && state->reference != zdr::kNone;
    });
}

bool KelDbLayerStateManager::layerStateHasViewportData(const wchar_t* name) {
    HostCall call("layerStateHasViewportData", name);
    return call.valueOr(false, [&] {
        const zdr::LayerState* state = findState(of(m_database), name);
        return state && state->hasViewportData;
    });
}

Vorn::ErrorStatus KelDbLayerStateManager::importLayerStateFromDb(const wchar_t* name, KelDbDatabase* source) {
    HostCall call("importLayerStateFromDb", name, source);
    return call.status([&] {
        if (!source)
            return Vorn::eNoDatabase;
        return name ? engine::importState(of(m_database), name, engine::impOf(*source)) : Vorn::eKeyNotFound;
    });
}

Vorn::ErrorStatus KelDbLayerStateManager::importLayerState(const wchar_t* fileName, KelString& name) {
    HostCall call("importLayerState", fileName);
    return call.status([&] {
        if (!fileName)
            return Vorn::eFileNotFound;
        const zdr::FileToRead file(fileName, of(m_database).fileProblem);
        std::wstring found;
        Vorn::ErrorStatus status = Vorn::eFileUnreadable;
        if (file.isHere()) {
            status = engine::readStateFile(of(m_database), file.path(), found);
            // About a taken name the caller speaks with the user.
            if (status != Vorn::eOk && status != Vorn::eDuplicateRecordName)
                file.tell(of(m_database).fileProblem);
        }
        name = KelString(std::move(found));
        call.out("name", name);
        return status;
    });
}

Vorn::ErrorStatus KelDbLayerStateManager::exportLayerState(const wchar_t* name, const wchar_t* fileName) {
    HostCall call("exportLayerState", name, fileName);
    engine::DatabaseImp& database = of(m_database);
    return withState(call, database, name, false, [&](std::size_t index) {
        if (!fileName)
            return Vorn::eInvalidInput;
        const Vorn::ErrorStatus status = engine::writeStateFile(database, index, fileName);
        if (status != Vorn::eOk)
            zdr::tellProblem(database.fileProblem);
        return status;
    });
}

KelDbObjectId KelDbLayerStateManager::layerStatesDictionaryId(bool createIfMissing) {
    HostCall call("layerStatesDictionaryId", createIfMissing);
    engine::DatabaseImp& database = of(m_database);
    if (call.fault() || (!createIfMissing && !database.hasStateDictionary()))
        return call.answer(KelDbObjectId());
    database.makeStateDictionary();
    return call.answer(KelDbObjectId(database.objects().fixed(engine::ObjectKind::StateDictionary)));
}

bool KelDbImpLayerStateManager::updateLayerStateLayer(const wchar_t* name, const KelDbLayerTableRecord* record,
                                                      bool isCurrent) {
    HostCall call("imp.updateLayerStateLayer", name, record, isCurrent);
    engine::DatabaseImp& database = of(m_database);
    return call.valueOr(false, [&] {
        std::size_t index = zdr::kNone;
        return record && find(database, name, true, index) == Vorn::eOk &&
               engine::updateStateLayer(database, index, engine::stateLayerUpdate(*record, isCurrent));
    });
}
