// The operations of layer states.

#include "EngineTest.h"
#include "HostMemory.h"
#include "SweepScenarios.h"
#include "TemporaryFolder.h"

namespace {

using Database = KelDbDatabase;
using States = KelDbLayerStateManager;

/// An operation on the states of the drawing.
template <class Call> HostOperation onStates(const char* name, Call call) {
    return {name, [call](Database& database) {
                States* states = database.getLayerStateManager();
                return [call, states, &database] { return answerOf(call(*states, database)); };
            }};
}

HostOperation layersOfState(const char* name, bool invert, int count) {
    return {name, [invert, count](Database& database) {
                States* states = database.getLayerStateManager();
                auto names = std::make_shared<KelArray<KelString>>();
                names->append(L"before");
                return [=] {
                    const Vorn::ErrorStatus status = states->getLayerStateLayers(*names, L"Plan", invert);
                    const bool whole = names->length() == (status == Vorn::eOk ? count : 1);
                    return whole ? answerOf(status) : Answer::Other;
                };
            }};
}

HostOperation restoreBy(const char* name, const wchar_t* state, int flags) {
    return {name, [state, flags](Database& database) {
                States* states = database.getLayerStateManager();
                const KelDbObjectId viewport = firstViewport(database);
                return [=] {
                    const LayerStateMask mask = MaskAllProperties;
                    return answerOf(states->restoreLayerState(state, viewport, flags, &mask));
                };
            }};
}

HostOperation quietRestore() {
    return {"imp.restoreLayerState", [](Database& database) {
                KelDbImpLayerStateManager* states = database.impDatabase()->getImpLayerStateManager();
                return [states] {
                    const LayerStateMask mask = MaskAllProperties;
                    return answerOf(states->restoreLayerState(L"Plan", {}, 0, &mask, false));
                };
            }};
}

HostOperation allNames() {
    return {"getLayerStateNames", [](Database& database) {
                States* states = database.getLayerStateManager();
                auto names = std::make_shared<KelArray<KelString>>();
                names->append(L"before");
                return [=] {
                    const Vorn::ErrorStatus status = states->getLayerStateNames(*names, true, true);
                    const bool whole = names->length() == (status == Vorn::eOk ? 4 : 1);
                    return whole ? answerOf(status) : Answer::Other;
                };
            }};
}

HostOperation addLayers() {
    return {"addLayerStateLayers", [](Database& database) {
                States* states = database.getLayerStateManager();
                auto layers = std::make_shared<KelArray<KelDbObjectId>>();
                layers->append(engine::layerId(database, engine::layerIndex(database, L"Furniture")));
                return [=] { return answerOf(states->addLayerStateLayers(L"Plan", *layers)); };
            }};
}

HostOperation removeLayers() {
    return {"removeLayerStateLayers", [](Database& database) {
                States* states = database.getLayerStateManager();
                auto layers = std::make_shared<KelArray<KelString>>();
                layers->append(L"Walls");
                return [=] { return answerOf(states->removeLayerStateLayers(L"Plan", *layers)); };
            }};
}

HostOperation updateLayer() {
    return {"imp.updateLayerStateLayer", [](Database& database) {
                KelDbImpLayerStateManager* states = database.impDatabase()->getImpLayerStateManager();
                auto record = std::make_shared<KelDbLayerTableRecord>();
                record->setName(L"Walls");
                KelCmColor color;
                color.setRGB(0, 60, 140);
                color.setNames(kLongName, nullptr);
                record->setColor(color);
                record->setPlotStyleName(L"A plot style of its own");
                return [=] { return answerOf(states->updateLayerStateLayer(L"Plan", record.get(), true)); };
            }};
}

HostOperation importFromDatabase() {
    return {"importLayerStateFromDb", [](Database& database) {
                auto source = std::make_shared<Database>(true, true);
                source->getLayerStateManager()->saveLayerState(kLongName, MaskColor);
                States* states = database.getLayerStateManager();
                return [=] { return answerOf(states->importLayerStateFromDb(kLongName, source.get())); };
            }};
}

/// A status of an operation on a file, which has one of its own for the lack of memory.
Answer answerOf(Vorn::ErrorStatus status, Vorn::ErrorStatus noMemory) {
    return status == noMemory ? Answer::Failed : ::answerOf(status);
}

HostOperation importFromFile() {
    return {"importLayerState", [](Database& database) {
                auto folder = std::make_shared<TemporaryFolder>();
                const std::wstring path = folder->file(L"state.las");
                States* states = database.getLayerStateManager();
                states->exportLayerState(L"Cut", path.c_str());
                states->renameLayerState(L"Cut", L"Cut before");
                auto name = std::make_shared<KelString>();
                return [=] {
                    static_cast<void>(folder); // held until the end
                    const Vorn::ErrorStatus status = states->importLayerState(path.c_str(), *name);
                    const bool told = status != Vorn::eOk || name->compare(L"Cut") == 0;
                    return told ? answerOf(status, Vorn::eFileUnreadable) : Answer::Other;
                };
            }};
}

HostOperation exportToFile() {
    return {"exportLayerState", [](Database& database) {
                auto folder = std::make_shared<TemporaryFolder>();
                const std::wstring path = folder->file(L"state.las");
                States* states = database.getLayerStateManager();
                return [=] {
                    static_cast<void>(folder); // held until the end
                    return answerOf(states->exportLayerState(L"Cut", path.c_str()), Vorn::eFileWriteFailed);
                };
            }};
}

} // namespace

std::vector<HostOperation> stateOperations() {
    return {
        allNames(),
        onStates("hasLayerState", [](States& s, Database&) { return s.hasLayerState(L"Plan"); }),
        onStates("saveLayerState", [](States& s, Database&) { return s.saveLayerState(kLongName, 5); }),
        onStates("saveLayerState over", [](States& s, Database&) { return s.saveLayerState(L"Plan", 5); }),
        onStates("saveLayerState viewport",
                 [](States& s, Database& d) { return s.saveLayerState(kLongName, 5, firstViewport(d)); }),
        restoreBy("restoreLayerState", L"Less", RestoreFlagLayerNotFound),
        restoreBy("restoreLayerState with viewport data", L"Cut", 0),
        restoreBy("restoreLayerState as overrides", L"Cut", RestoreFlagAsOverrides),
        quietRestore(),
        onStates("deleteLayerState", [](States& s, Database&) { return s.deleteLayerState(L"Cut"); }),
        onStates("deleteLayerState last restored", [](States& s, Database&) { return s.deleteLayerState(L"Plan"); }),
        onStates("renameLayerState", [](States& s, Database&) { return s.renameLayerState(L"Cut", kLongName); }),
        onStates("renameLayerState last restored",
                 [](States& s, Database&) { return s.renameLayerState(L"Plan", kLongName); }),
        onStates("getLayerStateMask",
                 [](States& s, Database&) {
                     LayerStateMask mask = 0;
                     return s.getLayerStateMask(L"Plan", mask);
                 }),
        onStates("setLayerStateMask", [](States& s, Database&) { return s.setLayerStateMask(L"Plan", 7); }),
        onStates("getLayerStateDescription",
                 [](States& s, Database&) {
                     wchar_t* description = nullptr;
                     const Vorn::ErrorStatus status = s.getLayerStateDescription(L"Plan", description);
                     keldbFree(description);
                     return status;
                 }),
        onStates("setLayerStateDescription",
                 [](States& s, Database&) { return s.setLayerStateDescription(L"Plan", kLongName); }),
        layersOfState("getLayerStateLayers", false, 3),
        layersOfState("getLayerStateLayers inverted", true, 1),
        addLayers(),
        removeLayers(),
        onStates("compareLayerStateToDb",
                 [](States& s, Database& d) { return s.compareLayerStateToDb(L"Same", firstViewport(d)); }),
        onStates("isDependentLayerState", [](States& s, Database&) { return !s.isDependentLayerState(L"Plan"); }),
        onStates("layerStateHasViewportData",
                 [](States& s, Database&) { return s.layerStateHasViewportData(L"Same"); }),
        importFromDatabase(),
        importFromFile(),
        exportToFile(),
        onStates("layerStatesDictionaryId",
                 [](States& s, Database&) { return !s.layerStatesDictionaryId(true).isNull(); }),
        updateLayer(),
    };
}
