// Scenarios of states.

#include "EngineTest.h"
#include "KelDbPointers.h"
#include "SweepScenarios.h"
#include "TemporaryFolder.h"
#include "files/DrawingFile.h"

using Database = KelDbDatabase;
using States = KelDbLayerStateManager;

namespace {

constexpr LayerStateMask kAll = MaskAllProperties;

bool has(Database& database, const wchar_t* name) {
    return database.getLayerStateManager()->hasLayerState(name);
}

std::uint32_t colorOf(const Database& database, const wchar_t* layer) {
    return engine::layerValues(database, engine::layerIndex(database, layer)).color;
}

KelDbImpLayerStateManager* impStates(Database& database) {
    return database.impDatabase()->getImpLayerStateManager();
}

void save(Database& database) {
    States* states = database.getLayerStateManager();
    if (!states || states->saveLayerState(L"New", kAll) != Vorn::eOk)
        return;
    states->saveLayerState(L"Seen", kAll, firstViewport(database));
}

// As the manager restores: the mask is kept in the state, and everything is one step back.
void restoreWith(Database& database, int flags) {
    States* states = database.getLayerStateManager();
    if (!states)
        return;
    engine::beginUndoGroup(database);
    if (states->setLayerStateMask(L"Plan", kAll) == Vorn::eOk)
        states->restoreLayerState(L"Plan", firstViewport(database), flags, nullptr);
    engine::endUndoGroup(database);
    states->compareLayerStateToDb(L"Plan", firstViewport(database));
    KelString last;
    KelDbObjectId id;
    states->getLastRestoredLayerState(last, id);
}

// As the module looks at a state: it saves the layers as another state, restores the one, and then the other.
void lookAtState(Database& database) {
    States* states = database.getLayerStateManager();
    if (!states || states->saveLayerState(L"Before", kAll) != Vorn::eOk)
        return;
    KelDbImpLayerStateManager* imp = impStates(database);
    if (imp)
        imp->restoreLayerState(L"Plan", {}, 0, &kAll, false);
    imp = impStates(database);
    if (!imp || imp->restoreLayerState(L"Before", {}, 0, &kAll, false) != Vorn::eOk)
        return;
    states->deleteLayerState(L"Before");
}

void renamePlan(Database& database) {
    States* states = database.getLayerStateManager();
    if (states && !states->isDependentLayerState(L"Plan") && !states->hasLayerState(L"Ground"))
        states->renameLayerState(L"Plan", L"Ground");
}

void describe(Database& database) {
    States* states = database.getLayerStateManager();
    wchar_t* description = nullptr;
    if (!states || states->getLayerStateDescription(L"Plan", description) != Vorn::eOk)
        return;
    const std::wstring longer = std::wstring(description) + L" floor";
    keldbFree(description);
    states->setLayerStateDescription(L"Plan", longer.c_str());
}

void deleteAll(Database& database) {
    States* states = database.getLayerStateManager();
    KelArray<KelString> names;
    if (!states || states->getLayerStateNames(names, true, true) != Vorn::eOk)
        return;
    for (const KelString& name : names)
        states->deleteLayerState(name.kwszPtr());
}

void editLayers(Database& database) {
    States* states = database.getLayerStateManager();
    KelArray<KelString> names;
    if (!states || states->getLayerStateLayers(names, L"Plan", false) != Vorn::eOk)
        return;
    names.setLogicalLength(2);
    KelArray<KelDbObjectId> ids;
    ids.append(engine::layerId(database, 0));
    if (states->removeLayerStateLayers(L"Plan", names) == Vorn::eOk)
        states->addLayerStateLayers(L"Plan", ids);
}

void updateLayer(Database& database) {
    KelDbObjectPointer<KelDbLayerTableRecord> record;
    record.create();
    KelDbImpLayerStateManager* imp = impStates(database);
    if (!imp || record->setName(L"Walls") != Vorn::eOk || record->setLineWeight(50) != Vorn::eOk)
        return;
    imp->updateLayerStateLayer(L"Plan", record, true);
}

// The bytes of a drawing with the states "Plan" and "Foreign"; made once, before anything fails.
const std::vector<std::byte>& foreignBytes() {
    static const std::vector<std::byte> bytes = [] {
        Database database(true, false);
        prepareStates(database);
        database.getLayerStateManager()->saveLayerState(L"Foreign", kAll);
        std::vector<std::byte> result;
        std::wstring reason;
        EXPECT_EQ(zdr::drawingBytes(engine::drawingOf(database), result, reason), Vorn::eOk);
        return result;
    }();
    return bytes;
}

void prepareForeign(Database& database) {
    foreignBytes();
    prepareStates(database);
}

std::wstring foreignDrawing(const TemporaryFolder& folder) {
    const std::wstring path = folder.file(L"foreign.zdr");
    writeBytes(path, foreignBytes());
    return path;
}

void importFromDrawing(Database& database) {
    const TemporaryFolder folder;
    const std::wstring path = foreignDrawing(folder);
    Database side(false, true);
    if (side.readZdrFile(path.c_str(), 64, false, nullptr) != Vorn::eOk)
        return;
    States *from = side.getLayerStateManager(), *to = database.getLayerStateManager();
    KelArray<KelString> names;
    if (!from || !to || from->getLayerStateNames(names, true, false) != Vorn::eOk)
        return;
    for (const KelString& name : names)
        to->importLayerStateFromDb(name.kwszPtr(), &side);
}

KelDbObject* cloneOfRecord(States& states, const wchar_t* name) {
    KelDbObjectPointer<KelDbDictionary> dictionary(states.layerStatesDictionaryId(true), KelDb::kForRead);
    KelDbObjectId id;
    if (!dictionary || dictionary->getAt(name, id) != Vorn::eOk)
        return nullptr;
    KelDbObjectPointer<KelDbXrecord> record(id, KelDb::kForRead);
    return record ? record->clone() : nullptr;
}

void putBack(States& states, const wchar_t* name, KelDbObject* clone) {
    KelDbObjectPointer<KelDbDictionary> dictionary(states.layerStatesDictionaryId(true), KelDb::kForWrite);
    KelDbObjectId id;
    if (dictionary && dictionary->setAt(name, clone, id) == Vorn::eOk)
        clone->close();
    else
        delete clone;
}

// A state is replaced by the one in a file; when that can't be read, the old one is put back.
void replaceByImport(Database& database) {
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"plan.las");
    States* states = database.getLayerStateManager();
    if (!states || states->exportLayerState(L"Plan", path.c_str()) != Vorn::eOk)
        return;
    KelDbObject* clone = cloneOfRecord(*states, L"Plan");
    if (!clone)
        return;
    KelString name;
    if (states->deleteLayerState(L"Plan") == Vorn::eOk && states->importLayerState(path.c_str(), name) != Vorn::eOk)
        putBack(*states, L"Plan", clone);
    else
        delete clone;
}

// Deletes a state and puts a copy of its record back, which replaceByImport() does only after a failure.
void takeOutAndPutBack(Database& database) {
    States* states = database.getLayerStateManager();
    if (!states)
        return;
    KelDbObject* clone = cloneOfRecord(*states, L"Plan");
    if (!clone)
        return;
    if (states->deleteLayerState(L"Plan") == Vorn::eOk)
        putBack(*states, L"Plan", clone);
    else
        delete clone;
}

void undoAndRedo(Database& database) {
    restoreWith(database, RestoreFlagLayerNotFound);
    deleteAll(database);
    while (engine::undo(database)) {
    }
    while (engine::redo(database)) {
    }
}

// What the reference shows; made once, before anything fails.
std::shared_ptr<const zdr::Drawing> site() {
    static const auto shown = [] {
        Database database(true, false);
        prepareStates(database);
        return std::make_shared<const zdr::Drawing>(engine::drawingOf(database));
    }();
    return shown;
}

void prepareReference(Database& database) {
    zdr::Drawing drawing = makeDrawing({{L"Walls"}});
    drawing.references.push_back({.name = L"site", .path = L"site.zdr", .insertion = {}, .drawing = site()});
    engine::replaceDrawing(database, std::move(drawing));
}

void restoreReference(Database& database) {
    States* states = database.getLayerStateManager();
    if (!states || !states->isDependentLayerState(L"site!Plan"))
        return;
    states->restoreLayerState(L"site!Plan", {}, 0, nullptr);
    states->deleteLayerState(L"site!Plan"); // which is refused
    states->saveLayerState(L"With site", kAll);
    engine::attachReference(database, 0, nullptr);
    states->restoreLayerState(L"With site", {}, 0, nullptr);
    engine::attachReference(database, 0, site());
}

void readFile(Database& database) {
    const TemporaryFolder folder;
    database.readZdrFile(foreignDrawing(folder).c_str(), 64, false, nullptr);
}

bool stateIsThere(Database& database) {
    return has(database, L"Plan");
}

bool isRestored(Database& database) {
    return engine::drawingOf(database).lastRestored == L"Plan" && colorOf(database, L"Walls") == 1;
}

bool isOverridden(Database& database) {
    const zdr::Viewport& viewport = engine::drawingOf(database).layouts[0].viewports[0];
    return viewport.overrides.size() == 4 && colorOf(database, L"Walls") == 3;
}

} // namespace

void prepareStates(Database& database) {
    engine::replaceDrawing(database, makeDrawing({{.name = L"Walls", .color = 1}, {L"Doors"}, {L"Furniture"}}));
    States& states = *database.getLayerStateManager();
    states.saveLayerState(L"Plan", MaskColor);
    states.setLayerStateDescription(L"Plan", L"ground");
    states.saveLayerState(L"Cut", kAll, firstViewport(database));
    engine::LayerValues green = engine::layerValues(database, 1);
    green.color = 3;
    EXPECT_EQ(engine::setLayerValues(database, 1, green), Vorn::eOk);
}

KelDbObjectId firstViewport(const Database& database) {
    return engine::objectId(database, engine::drawingOf(database).layouts[0].viewports[0].handle);
}

std::vector<NamedScenario> stateScenarios() {
    return {
        {"Save", {prepareStates, save, [](Database& d) { return has(d, L"New") && has(d, L"Seen"); }}},
        {"Restore", {prepareStates, [](Database& d) { restoreWith(d, RestoreFlagLayerNotFound); }, isRestored}},
        {"RestoreAsOverrides",
         {prepareStates, [](Database& d) { restoreWith(d, RestoreFlagAsOverrides); }, isOverridden}},
        {"LookAtAState",
         {prepareStates, lookAtState, [](Database& d) { return !has(d, L"Before") && colorOf(d, L"Walls") == 3; }}},
        {"Rename", {prepareStates, renamePlan, [](Database& d) { return has(d, L"Ground"); }}},
        {"Describe",
         {prepareStates, describe,
          [](Database& d) { return engine::drawingOf(d).states[0].description == L"ground floor"; }}},
        {"DeleteAll", {prepareStates, deleteAll, [](Database& d) { return engine::drawingOf(d).states.empty(); }}},
        {"EditLayersOfAState",
         {prepareStates, editLayers,
          [](Database& d) { return engine::drawingOf(d).states[0].layers->names.size() == 3; }}},
        {"UpdateALayerOfAState",
         {prepareStates, updateLayer,
          [](Database& d) { return engine::drawingOf(d).states[0].columns.lineWeights[1] == 50; }}},
        {"ImportFromADrawing", {prepareForeign, importFromDrawing, [](Database& d) { return has(d, L"Foreign"); }}},
        {"ReplaceByImport", {prepareStates, replaceByImport, stateIsThere, stateIsThere}},
        {"TakeOutAndPutBack", {prepareStates, takeOutAndPutBack, stateIsThere}},
        {"UndoAndRedo", {prepareStates, undoAndRedo, [](Database& d) { return engine::drawingOf(d).states.empty(); }}},
        {"References", {prepareReference, restoreReference, [](Database& d) { return has(d, L"With site"); }}},
        {"ReadADrawing", {prepareForeign, readFile, [](Database& d) { return has(d, L"Foreign"); }}},
    };
}
