// Scenarios of what is opened and handed out.

#include "EngineTest.h"
#include "KelDbPointers.h"
#include "SweepScenarios.h"

#include <cstdlib>
#include <cwchar>

using Database = KelDbDatabase;
using Record = KelDbLayerTableRecord;

namespace {

// Everything that a grid shows of a layer.
bool readLayer(Record& record) {
    wchar_t* name = nullptr;
    if (record.getName(name) != Vorn::eOk)
        return false;
    kelutDelBuffer(name);
    const wchar_t* own = nullptr;
    record.getName(own);
    std::free(record.plotStyleName());
    wchar_t* description = record.description();
    kelutDelBuffer(description);
    record.isDependent();
    return record.linetypeObjectId().isValid() && record.plotStyleNameId().isValid();
}

void walk(Database& database) {
    KelDbSymbolTablePointer<KelDbLayerTable> table(&database, KelDb::kForRead);
    KelDbLayerTableIterator* iterator = nullptr;
    if (!table || table->newIterator(iterator, true, true) != Vorn::eOk)
        return;
    for (; !iterator->done(); iterator->step(true, true)) {
        KelDbObjectId id;
        Record* record = nullptr;
        if (iterator->getRecordId(id) != Vorn::eOk || iterator->getRecord(record, KelDb::kForRead, false) != Vorn::eOk)
            continue;
        readLayer(*record);
        record->close();
    }
    delete iterator;
}

void writeLayer(Record& record, KelDbObjectId linetype) {
    if (record.upgradeOpen() != Vorn::eOk)
        return;
    KelCmColor color;
    color.setRGB(1, 2, 3);
    record.setColor(color);
    record.setIsOff(true), record.setIsLocked(true), record.setVPDFLT(true);
    record.setLinetypeObjectId(linetype);
    const bool written = record.setIsFrozen(true) == Vorn::eOk && record.setIsPlottable(false) == Vorn::eOk &&
                         record.setLineWeight(70) == Vorn::eOk && record.setPlotStyleName(L"Fine") == Vorn::eOk &&
                         record.setName(L"Openings") == Vorn::eOk && record.setDescription(L"doors") == Vorn::eOk;
    if (written)
        record.downgradeOpen();
}

void writeThroughTable(Database& database) {
    KelDbSymbolTablePointer<KelDbLinetypeTable> linetypes(&database, KelDb::kForRead);
    KelDbSymbolTablePointer<KelDbLayerTable> table(&database, KelDb::kForRead);
    KelDbObjectId dashed;
    Record* record = nullptr;
    if (!linetypes || linetypes->getAt(L"Dashed", dashed, false) != Vorn::eOk || !table ||
        table->getAt(L"Doors", record, KelDb::kForRead, false) != Vorn::eOk)
        return;
    writeLayer(*record, dashed);
    record->close();
}

void addLayer(Database& database) {
    KelDbSymbolTablePointer<KelDbLayerTable> table(&database, KelDb::kForWrite);
    KelDbObjectPointer<Record> record;
    record.create();
    KelDbObjectId id;
    if (!table || record->setName(L"Notes") != Vorn::eOk || table->add(id, record) != Vorn::eOk)
        return;
    record->setLineWeight(50);
}

void makeCurrent(Database& database) {
    KelDbObjectId doors;
    if (database.getKelDbObjectId(doors, false, engine::layerId(database, 2).handle()) == Vorn::eOk)
        database.setClayer(doors);
    KelDbObjectPointer<Record> current(database.clayer(), KelDb::kForRead);
    if (current)
        readLayer(*current.object());
}

void lookUpPlotStyle(Database& database) {
    KelDbDictionaryWithDefault* dictionary = nullptr;
    if (database.plotStyleMode() || database.getPlotStyleNameDictionary(dictionary, KelDb::kForRead) != Vorn::eOk)
        return;
    KelDbObjectId id;
    const Vorn::ErrorStatus found = dictionary->getAt(L"Fine", id);
    dictionary->close();
    KelDbObjectPointer<Record> record(engine::layerId(database, 1), KelDb::kForWrite);
    if (record && found == Vorn::eOk)
        record->setPlotStyleName(id);
}

bool append(ResultBuffer**& end, int type, const wchar_t* text) {
    ResultBuffer* node = kelutNewRb(type);
    if (!node)
        return false;
    *end = node;
    end = &node->next;
    if (text) {
        node->value.string = static_cast<wchar_t*>(std::malloc((std::wcslen(text) + 1) * sizeof(wchar_t)));
        std::wcscpy(node->value.string, text);
    }
    return true;
}

ResultBuffer* makeChain(const wchar_t* application) {
    ResultBuffer* chain = nullptr;
    ResultBuffer** end = &chain;
    const bool whole = append(end, kExtendedAppName, application) && append(end, kExtendedString, L"{PLAN") &&
                       append(end, kExtendedHandle, L"1F") && append(end, kExtendedInt16, nullptr) &&
                       append(end, kExtendedInt32, nullptr);
    if (whole)
        return chain;
    kelutRelRb(chain);
    return nullptr;
}

// Data is stored for two applications, read back, and taken away again for one.
void extendedData(Database& database) {
    if (!keldbRegApp(L"OLD") || !keldbRegApp(L"NEW"))
        return;
    KelDbObjectPointer<Record> record(engine::layerId(database, 1), KelDb::kForWrite);
    if (!record)
        return;
    for (const wchar_t* application : {L"OLD", L"NEW"}) {
        ResultBuffer* chain = makeChain(application);
        record->setExtendedData(chain);
        kelutRelRb(chain);
    }
    ResultBuffer* stored = record->getExtendedData(L"OLD");
    if (!stored)
        return;
    ResultBuffer* rest = stored->next;
    stored->next = nullptr;
    record->setExtendedData(stored);
    kelutRelRb(stored);
    kelutRelRb(rest);
}

bool hasNewDataAlone(Database& database) {
    const auto& data = engine::drawingOf(database).extendedData;
    return data.size() == 1 && data[0].application == L"NEW" && data[0].values.size() == 4;
}

void copyRecord(Database& database) {
    KelDbObjectPointer<Record> record(engine::layerId(database, 1), KelDb::kForRead);
    KelDbObject* copy = record ? record->clone() : nullptr;
    KelDbImpLayerStateManager* states = database.impDatabase()->getImpLayerStateManager();
    if (copy && states)
        states->updateLayerStateLayer(L"Plan", static_cast<Record*>(copy), false);
    delete copy;
}

void checkNames(Database& database) {
    const KelDbSymbolNameServices& services = *KelDbSymbolUtilities::servicesPtr106();
    const bool extended = services.extendedNamesMode(&database);
    if (services.validateNameCharacters(L"Notes", true, false, extended) != Vorn::eOk ||
        services.validateSymbolName(L"Notes", false) != Vorn::eOk || services.isReservedLayerName(L"Notes"))
        return;
    const wchar_t* byLayer = keldbGetReservedString(0, true);
    if (KelDbLayerStateManager* states = byLayer ? database.getLayerStateManager() : nullptr)
        states->setLayerStateDescription(L"Plan", byLayer);
}

engine::LayerValues valuesOf(Database& database, const wchar_t* layer) {
    return engine::layerValues(database, engine::layerIndex(database, layer));
}

bool always(Database&) {
    return true;
}

} // namespace

std::vector<NamedScenario> objectScenarios() {
    return {
        {"WalkAllLayers", {prepareStates, walk, always}},
        {"WriteALayer",
         {prepareStates, writeThroughTable,
          [](Database& d) {
              const std::size_t layer = engine::layerIndex(d, L"Openings");
              return layer == 2 && engine::layerValues(d, layer).lineWeight == 70;
          }}},
        {"AddALayer", {prepareStates, addLayer, [](Database& d) { return valuesOf(d, L"Notes").lineWeight == 50; }}},
        {"MakeALayerCurrent",
         {prepareStates, makeCurrent, [](Database& d) { return engine::drawingOf(d).currentLayer == 2; }}},
        {"LookUpAPlotStyle",
         {prepareStates, lookUpPlotStyle,
          [](Database& d) { return valuesOf(d, L"Walls").plotStyle == engine::drawingOf(d).names.find(L"Fine"); }}},
        {"ExtendedData", {prepareStates, extendedData, hasNewDataAlone}},
        {"CopyARecord",
         {prepareStates, copyRecord,
          [](Database& d) { return engine::drawingOf(d).states[0].columns.colors[1] == 3; }}},
        {"CheckNames",
         {prepareStates, checkNames,
          [](Database& d) { return engine::drawingOf(d).states[0].description != L"ground"; }}},
    };
}
