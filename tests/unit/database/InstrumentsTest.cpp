// The instruments at the boundary: what the operations write into the trace, and that each can be made to fail.

#include "EngineTest.h"
#include "KelDbPointers.h"
#include "instruments/CallObserver.h"

#include <functional>

using testing::ElementsAre;
using testing::IsEmpty;

using Instruments = EngineTest;

TEST_F(Instruments, TheTraceHasALineACallWithArgumentsAnswerAndWhatItHandedOut) {
    KelDbLayerStateManager& manager = states();
    instruments::clearTrace();
    manager.saveLayerState(L"Plan", 5);
    manager.restoreLayerState(L"Plan", {}, 5, nullptr);
    LayerStateMask mask = 0;
    manager.getLayerStateMask(L"PLAN", mask);
    KelArray<KelString> names;
    manager.getLayerStateNames(names, true, false);
    KelArray<KelString> layers;
    layers.append(L"Walls");
    layers.append(L"Doors");
    manager.removeLayerStateLayers(L"Plan", layers);
    manager.compareLayerStateToDb(L"Section", viewportId());
    EXPECT_THAT(instruments::trace(),
                ElementsAre("saveLayerState(\"Plan\", 5) = 0", "restoreLayerState(\"Plan\", null, 5, null) = 0",
                            "getLayerStateMask(\"PLAN\") = 0, mask=5",
                            "getLayerStateNames(true, false) = 0, names=[\"Plan\"]",
                            "removeLayerStateLayers(\"Plan\", [\"Walls\", \"Doors\"]) = 0",
                            "compareLayerStateToDb(\"Section\", " + instruments::describe(viewportId()) + ") = false"));
}

TEST_F(Instruments, TheInternalServiceIsToldApart) {
    KelDbImpLayerStateManager& manager = impStates();
    const LayerStateMask all = MaskAllProperties;
    KelDbLayerTableRecord record;
    instruments::clearTrace();
    manager.restoreLayerState(L"Plan", {}, 0, &all, false);
    manager.updateLayerStateLayer(L"Plan", &record, true);
    EXPECT_THAT(instruments::trace(), ElementsAre("imp.restoreLayerState(\"Plan\", null, 0, 1023, false) = 8",
                                                  "imp.updateLayerStateLayer(\"Plan\", object, true) = false"));
}

TEST_F(Instruments, AWalkOfTheLayersIsTraced) {
    use(makeDrawing());
    instruments::clearTrace();
    KelDbLayerTable* table = nullptr;
    m_database.getSymbolTable(table, KelDb::kForRead);
    KelDbLayerTableIterator* iterator = nullptr;
    table->newIterator(iterator, true, true);
    KelDbObjectId id;
    for (; !iterator->done(); iterator->step(true, true))
        iterator->getRecordId(id);
    delete iterator;
    table->close();
    EXPECT_THAT(instruments::trace(),
                ElementsAre("getLayerTable(0) = 0", "layerTable.newIterator(true, true) = 0", "iterator.done() = false",
                            "iterator.getRecordId() = 0, id=" + instruments::describe(id), "iterator.step(true, true)",
                            "iterator.done() = true", "iterator.delete()", "close(#layerTable) = 0"));
}

TEST_F(Instruments, ARecordsReadersAndWritersAreTraced) {
    const std::string id = instruments::describe(layerId(L"Walls"));
    KelDbObjectPointer<KelDbLayerTableRecord> record(layerId(L"Walls"), KelDb::kForWrite);
    instruments::clearTrace();
    record->isOff();
    record->setIsOff(true);
    record->setLineWeight(24);
    KelCmColor color;
    color.setRGB(1, 2, 3);
    record->setColor(color);
    record->color();
    EXPECT_THAT(instruments::trace(),
                ElementsAre("record.isOff(" + id + ") = false", "record.setIsOff(" + id + ", true)",
                            "record.setLineWeight(" + id + ", 24) = 3", "record.setColor(" + id + ", rgb 1,2,3)",
                            "record.color(" + id + ") = rgb 1,2,3"));
}

TEST_F(Instruments, WhatTheEngineDoesWithinACallIsNotTraced) {
    zdr::Drawing other = makeDrawing();
    KelDbLayerStateManager& manager = states();
    instruments::clearTrace();
    use(std::move(other));
    engine::setCurrentLayer(m_database, 0);
    manager.hasLayerState(L"Plan");
    EXPECT_THAT(instruments::trace(), ElementsAre("hasLayerState(\"Plan\") = false"));
}

TEST_F(Instruments, ACallCanBeObservedBeforeItDoesAnything) {
    KelDbLayerStateManager& manager = states();
    std::vector<std::string> calls;
    std::vector<std::size_t> statesBefore;
    instruments::observeCalls([&](const std::string& call) {
        calls.push_back(call);
        statesBefore.push_back(drawing().states.size());
    });
    manager.saveLayerState(L"Plan", 5);
    manager.deleteLayerState(L"Plan");
    instruments::observeCalls({});
    manager.hasLayerState(L"Plan");
    EXPECT_THAT(calls, ElementsAre("saveLayerState(\"Plan\", 5)", "deleteLayerState(\"Plan\")"));
    EXPECT_THAT(statesBefore, ElementsAre(0u, 1u));
}

TEST_F(Instruments, NothingIsKeptWhileTheyAreOff) {
    instruments::watch(false);
    states().saveLayerState(L"Plan", 5);
    KelDbObjectPointer<KelDbLayerTableRecord> record(layerId(L"Walls"), KelDb::kForRead);
    EXPECT_THAT(instruments::trace(), IsEmpty());
    EXPECT_THAT(instruments::ledger(), IsEmpty());
}

// Each operation that can fail, and whether it says so.
struct FallibleCall {
    const char* operation;
    std::function<bool(EngineTest&, KelDbDatabase&)> fails;
};
void PrintTo(const FallibleCall& call, std::ostream* out) {
    *out << call.operation;
}

namespace {

constexpr auto kPlanned = static_cast<Vorn::ErrorStatus>(4711);

KelDbLayerStateManager& statesOf(KelDbDatabase& database) {
    return *database.getLayerStateManager();
}

bool isPlanned(Vorn::ErrorStatus status) {
    return status == kPlanned;
}

// Runs `call` on a layer's record, open for write.
template <class Call> std::function<bool(EngineTest&, KelDbDatabase&)> onRecord(Call call) {
    return [call](EngineTest&, KelDbDatabase& database) {
        KelDbObjectPointer<KelDbLayerTableRecord> record(engine::layerId(database, 1), KelDb::kForWrite);
        return call(*record);
    };
}

template <class Call> std::function<bool(EngineTest&, KelDbDatabase&)> onStates(Call call) {
    return [call](EngineTest&, KelDbDatabase& database) { return call(statesOf(database)); };
}

KelArray<KelString> g_names;
KelArray<KelDbObjectId> g_ids;
KelString g_name;
KelDbObjectId g_id;
LayerStateMask g_mask = 1023;
wchar_t* g_text = nullptr;
const wchar_t* const P = L"Plan";

std::vector<FallibleCall> fallibleCalls() {
    using States = KelDbLayerStateManager;
    using Record = KelDbLayerTableRecord;
    return {
        {"getLayerStateNames",
         onStates([](States& s) { return isPlanned(s.getLayerStateNames(g_names, true, true)); })},
        {"hasLayerState", onStates([](States& s) { return !s.hasLayerState(P); })},
        {"saveLayerState", onStates([](States& s) { return isPlanned(s.saveLayerState(L"New", 1)); })},
        {"saveLayerState", onStates([](States& s) { return isPlanned(s.saveLayerState(L"New", 1, {})); })},
        {"restoreLayerState", onStates([](States& s) { return isPlanned(s.restoreLayerState(P, {}, 0, nullptr)); })},
        {"deleteLayerState", onStates([](States& s) { return isPlanned(s.deleteLayerState(P)); })},
        {"renameLayerState", onStates([](States& s) { return isPlanned(s.renameLayerState(P, L"x")); })},
        {"getLayerStateMask", onStates([](States& s) { return isPlanned(s.getLayerStateMask(P, g_mask)); })},
        {"setLayerStateMask", onStates([](States& s) { return isPlanned(s.setLayerStateMask(P, 1)); })},
        {"getLayerStateDescription",
         onStates([](States& s) { return isPlanned(s.getLayerStateDescription(P, g_text)) && !g_text; })},
        {"setLayerStateDescription",
         onStates([](States& s) { return isPlanned(s.setLayerStateDescription(P, L"x")); })},
        {"getLayerStateLayers",
         onStates([](States& s) { return isPlanned(s.getLayerStateLayers(g_names, P, false)); })},
        {"addLayerStateLayers", onStates([](States& s) { return isPlanned(s.addLayerStateLayers(P, g_ids)); })},
        {"removeLayerStateLayers", onStates([](States& s) { return isPlanned(s.removeLayerStateLayers(P, g_names)); })},
        {"compareLayerStateToDb", onStates([](States& s) { return !s.compareLayerStateToDb(P, {}); })},
        {"getLastRestoredLayerState",
         onStates([](States& s) { return isPlanned(s.getLastRestoredLayerState(g_name, g_id)); })},
        {"isDependentLayerState", onStates([](States& s) { return !s.isDependentLayerState(P); })},
        {"layerStateHasViewportData", onStates([](States& s) { return !s.layerStateHasViewportData(L"Seen"); })},
        {"importLayerState", onStates([](States& s) { return isPlanned(s.importLayerState(L"x.las", g_name)); })},
        {"exportLayerState", onStates([](States& s) { return isPlanned(s.exportLayerState(P, L"x.las")); })},
        {"importLayerStateFromDb", onStates([](States& s) { return isPlanned(s.importLayerStateFromDb(P, nullptr)); })},
        {"layerStatesDictionaryId", onStates([](States& s) { return s.layerStatesDictionaryId(true).isNull(); })},
        {"getLayerStateManager", [](auto&, KelDbDatabase& d) { return !d.getLayerStateManager(); }},
        {"getImpLayerStateManager",
         [](auto&, KelDbDatabase& d) { return !d.impDatabase()->getImpLayerStateManager(); }},
        {"imp.restoreLayerState",
         [](auto&, KelDbDatabase& d) {
             return isPlanned(d.impDatabase()->getImpLayerStateManager()->restoreLayerState(P, {}, 0, &g_mask, false));
         }},
        {"imp.updateLayerStateLayer",
         [](auto&, KelDbDatabase& d) {
             KelDbLayerTableRecord record;
             record.setName(L"Walls");
             return !d.impDatabase()->getImpLayerStateManager()->updateLayerStateLayer(P, &record, false);
         }},
        {"readZdrFile", [](auto&, KelDbDatabase& d) { return isPlanned(d.readZdrFile(L"x.zdr", 64, false, nullptr)); }},
        {"setClayer", [](auto&, KelDbDatabase& d) { return isPlanned(d.setClayer(engine::layerId(d, 1))); }},
        {"getLayerTable",
         [](auto&, KelDbDatabase& d) {
             KelDbLayerTable* table = nullptr;
             return isPlanned(d.getSymbolTable(table, KelDb::kForRead)) && !table;
         }},
        {"getLinetypeTable",
         [](auto&, KelDbDatabase& d) {
             KelDbLinetypeTable* table = nullptr;
             return isPlanned(d.getSymbolTable(table, KelDb::kForRead)) && !table;
         }},
        {"getPlotStyleNameDictionary",
         [](auto&, KelDbDatabase& d) {
             KelDbDictionaryWithDefault* dictionary = nullptr;
             return isPlanned(d.getPlotStyleNameDictionary(dictionary, KelDb::kForRead)) && !dictionary;
         }},
        {"getKelDbObjectId",
         [](auto&, KelDbDatabase& d) {
             KelDbObjectId id;
             return isPlanned(d.getKelDbObjectId(id, false, engine::layerId(d, 1).handle())) && id.isNull();
         }},
        {"openObject",
         [](auto&, KelDbDatabase& d) {
             KelDbObject* object = nullptr;
             return isPlanned(keldbOpenKelDbObject(object, engine::layerId(d, 1), KelDb::kForRead, false)) && !object;
         }},
        {"openObject",
         [](auto&, KelDbDatabase& d) {
             KelDbXrecord* object = nullptr;
             return isPlanned(keldbOpenObject(object, engine::layerId(d, 1), KelDb::kForRead)) && !object;
         }},
        {"upgradeOpen", onRecord([](Record& r) { return isPlanned(r.upgradeOpen()); })},
        {"downgradeOpen", onRecord([](Record& r) { return isPlanned(r.downgradeOpen()); })},
        {"clone", onRecord([](Record& r) { return !r.clone(); })},
        {"getExtendedData", onRecord([](Record& r) { return !r.getExtendedData(L"OLD"); })},
        {"setExtendedData", onRecord([](Record& r) { return isPlanned(r.setExtendedData(nullptr)); })},
        {"record.getName", onRecord([](Record& r) {
             const wchar_t* name = nullptr;
             return isPlanned(r.getName(name)) && !name;
         })},
        {"record.getName", onRecord([](Record& r) { return isPlanned(r.getName(g_text)) && !g_text; })},
        {"record.setName", onRecord([](Record& r) { return isPlanned(r.setName(L"x")); })},
        {"record.setIsFrozen", onRecord([](Record& r) { return isPlanned(r.setIsFrozen(true)); })},
        {"record.setIsPlottable", onRecord([](Record& r) { return isPlanned(r.setIsPlottable(true)); })},
        {"record.setLineWeight", onRecord([](Record& r) { return isPlanned(r.setLineWeight(25)); })},
        {"record.setPlotStyleName", onRecord([](Record& r) { return isPlanned(r.setPlotStyleName(L"Fine")); })},
        {"record.setPlotStyleName", onRecord([](Record& r) { return isPlanned(r.setPlotStyleName(g_id)); })},
        {"record.setDescription", onRecord([](Record& r) { return isPlanned(r.setDescription(L"x")); })},
        {"record.plotStyleName", onRecord([](Record& r) { return !r.plotStyleName(); })},
        {"keldbRegApp", [](auto&, KelDbDatabase&) { return !keldbRegApp(L"NEW"); }},
        {"kelutNewRb", [](auto&, KelDbDatabase&) { return !kelutNewRb(kExtendedInt16); }},
        {"keldbGetReservedString", [](auto&, KelDbDatabase&) { return !keldbGetReservedString(0, true); }},
        {"validateSymbolName",
         [](auto&, KelDbDatabase&) {
             return isPlanned(KelDbSymbolUtilities::servicesPtr106()->validateSymbolName(L"x", false));
         }},
        {"validateNameCharacters",
         [](auto&, KelDbDatabase&) {
             return isPlanned(KelDbSymbolUtilities::servicesPtr106()->validateNameCharacters(L"x", true, false, true));
         }},
        {"isReservedLayerName",
         [](auto&, KelDbDatabase&) {
             return !KelDbSymbolUtilities::servicesPtr106()->isReservedLayerName(L"ReferencePoints");
         }},
        {"extendedNamesMode",
         [](auto&, KelDbDatabase& d) { return !KelDbSymbolUtilities::servicesPtr106()->extendedNamesMode(&d); }},
    };
}

} // namespace

class EachCall : public EngineTest, public testing::WithParamInterface<FallibleCall> {};

INSTANTIATE_TEST_SUITE_P(ThatCanFail, EachCall, testing::ValuesIn(fallibleCalls()));

TEST_P(EachCall, FailsWhenAFaultIsPlannedAndChangesNothing) {
    states().saveLayerState(L"Plan", 1);
    states().saveLayerState(L"Seen", 1, viewportId());
    const std::uint64_t before = engine::changeCount(m_database);
    instruments::failCall(GetParam().operation, 1, kPlanned);
    EXPECT_TRUE(GetParam().fails(*this, m_database));
    EXPECT_TRUE(instruments::faultStruck());
    EXPECT_EQ(engine::changeCount(m_database), before);
    EXPECT_THAT(instruments::ledger(), IsEmpty());
}

TEST_F(Instruments, ATableAndItsIteratorCanFail) {
    KelDbSymbolTablePointer<KelDbLayerTable> table(&m_database, KelDb::kForWrite);
    KelDbObjectId id;
    KelDbLayerTableIterator* iterator = nullptr;
    KelDbLayerTableRecord* opened = nullptr;
    KelDbLayerTableRecord record;
    for (const char* operation : {"table.getAt", "table.has", "layerTable.getAt", "layerTable.newIterator",
                                  "layerTable.add", "iterator.getRecordId", "iterator.getRecord"})
        instruments::failCall(operation, 1, kPlanned);
    EXPECT_EQ(table->getAt(L"Walls", id), kPlanned);
    EXPECT_FALSE(table->has(L"Walls"));
    EXPECT_EQ(table->getAt(L"Walls", opened, KelDb::kForRead), kPlanned);
    EXPECT_EQ(table->newIterator(iterator), kPlanned);
    EXPECT_EQ(iterator, nullptr);
    EXPECT_EQ(table->add(id, &record), kPlanned);
    ASSERT_EQ(table->newIterator(iterator), Vorn::eOk);
    EXPECT_EQ(iterator->getRecordId(id), kPlanned);
    EXPECT_EQ(iterator->getRecord(opened, KelDb::kForRead), kPlanned);
    EXPECT_TRUE(id.isNull());
    EXPECT_EQ(opened, nullptr);
    delete iterator;
}

TEST_F(Instruments, ADictionaryCanFail) {
    states().saveLayerState(L"Plan", 1);
    KelDbObjectPointer<KelDbDictionary> dictionary(states().layerStatesDictionaryId(true), KelDb::kForWrite);
    KelDbXrecord record;
    KelDbObjectId id;
    instruments::failCall("dictionary.getAt", 1, kPlanned);
    instruments::failCall("dictionary.setAt", 1, kPlanned);
    EXPECT_EQ(dictionary->getAt(L"Plan", id), kPlanned);
    EXPECT_EQ(dictionary->setAt(L"Plan", &record, id), kPlanned);
    EXPECT_TRUE(id.isNull());
}
