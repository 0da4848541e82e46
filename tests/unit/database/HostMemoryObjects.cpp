// The operations of databases, tables, records, dictionaries and values.

#include "EngineTest.h"
#include "HostMemory.h"
#include "KelDbPointers.h"
#include "TemporaryFolder.h"
#include "files/DrawingFile.h"

#include <cstdlib>

namespace {

using Database = KelDbDatabase;
using Layer = KelDbLayerTableRecord;

/// An operation on an object that is open in `mode`.
template <class Object, class Call>
HostOperation onObject(const char* name, KelDbObjectId (*idOf)(Database&), int mode, Call call) {
    return {name, [=](Database& database) {
                auto object = std::make_shared<KelDbObjectPointer<Object>>(idOf(database), mode);
                return [=, &database] { return answerOf(call(**object, database)); };
            }};
}

KelDbObjectId wallsId(Database& database) {
    return engine::layerId(database, 1);
}
KelDbObjectId plotStylesId(Database& database) {
    KelDbDictionaryWithDefault* styles = nullptr;
    database.getPlotStyleNameDictionary(styles, KelDb::kForRead);
    const KelDbObjectId id = styles->objectId();
    styles->close();
    return id;
}
KelDbObjectId statesId(Database& database) {
    return database.getLayerStateManager()->layerStatesDictionaryId(true);
}
KelDbObjectId planId(Database& database) {
    return engine::objectId(database, engine::drawingOf(database).states[0].handle);
}
KelDbObjectId layerTableId(Database& database) {
    return database.layerTableId();
}
KelDbObjectId linetypeTableId(Database& database) {
    return database.linetypeTableId();
}

template <class Call> HostOperation onWalls(const char* name, Call call) {
    return onObject<Layer>(name, wallsId, KelDb::kForWrite, call);
}
/// The same for an operation that answers nothing.
template <class Call> HostOperation silentlyOnWalls(const char* name, Call call) {
    HostOperation operation = onWalls(name, [call](Layer& layer, Database& database) {
        call(layer, database);
        return true;
    });
    operation.isSilent = true;
    return operation;
}

/// An operation that opens something; what it opened is closed at once.
template <class Object, class Open> HostOperation opening(const char* name, Open open) {
    return {name, [open](Database& database) {
                return [open, &database] {
                    Object* object = nullptr;
                    const Vorn::ErrorStatus status = open(database, object);
                    if (object)
                        object->close();
                    return (object != nullptr) == (status == Vorn::eOk) ? answerOf(status) : Answer::Other;
                };
            }};
}

template <class Iterator, class Table> HostOperation iterating(const char* name, KelDbObjectId (*idOf)(Database&)) {
    return onObject<Table>(name, idOf, KelDb::kForRead, [](Table& table, Database&) {
        Iterator* iterator = nullptr;
        const Vorn::ErrorStatus status = table.newIterator(iterator);
        delete iterator;
        return status;
    });
}

template <class Object> HostOperation cloning(const char* name, KelDbObjectId (*idOf)(Database&)) {
    return onObject<Object>(name, idOf, KelDb::kForRead, [](Object& object, Database&) {
        KelDbObject* copy = object.clone();
        delete copy;
        return copy != nullptr;
    });
}

HostOperation cloningInMemory() {
    return {"clone layer in memory", [](Database&) {
                auto record = std::make_shared<Layer>();
                record->setName(kLongName);
                record->setDescription(kLongName);
                return [record] {
                    KelDbObject* copy = record->clone();
                    delete copy;
                    return answerOf(copy != nullptr);
                };
            }};
}

HostOperation reading() {
    return {"readZdrFile", [](Database& database) {
                auto folder = std::make_shared<TemporaryFolder>();
                const std::wstring path = folder->file(L"plan.zdr");
                std::vector<std::byte> bytes;
                std::wstring reason;
                EXPECT_EQ(zdr::drawingBytes(makeDrawing({{L"Other"}}), bytes, reason), Vorn::eOk);
                writeBytes(path, bytes);
                return [folder, path, &database] {
                    const Vorn::ErrorStatus status = database.readZdrFile(path.c_str(), 64, false, nullptr);
                    return status == Vorn::eFileUnreadable ? Answer::Failed : answerOf(status);
                };
            }};
}

HostOperation addingLayer() {
    return {"layerTable.add", [](Database& database) {
                struct Open {
                    KelDbObjectPointer<KelDbLayerTable> table;
                    KelDbObjectPointer<Layer> record;
                };
                auto open = std::make_shared<Open>();
                open->table.open(database.layerTableId(), KelDb::kForWrite);
                open->record.create();
                open->record->setName(kLongName);
                open->record->setDescription(kLongName);
                return [open] {
                    KelDbObjectId id;
                    return answerOf(open->table->add(id, open->record));
                };
            }};
}

/// Enters an object in memory into a dictionary.
HostOperation entering(const char* name, KelDbObjectId (*idOf)(Database&), const wchar_t* key,
                       KelDbObject* (*make)(Database&)) {
    return {name, [=](Database& database) {
                struct Open {
                    KelDbObjectPointer<KelDbDictionary> dictionary;
                    KelDbObjectPointer<KelDbObject> object;
                };
                auto open = std::make_shared<Open>();
                open->object.acquire(make(database));
                open->dictionary.open(idOf(database), KelDb::kForWrite);
                return [open, key] {
                    KelDbObjectId id;
                    return answerOf(open->dictionary->setAt(key, open->object, id));
                };
            }};
}

KelDbObject* copyOfPlan(Database& database) {
    return KelDbObjectPointer<KelDbXrecord>(planId(database), KelDb::kForRead)->clone();
}
KelDbObject* newPlotStyle(Database&) {
    return new KelDbPlaceHolder;
}

HostOperation settingChain() {
    return {"setExtendedData", [](Database& database) {
                struct Open {
                    KelDbObjectPointer<Layer> layer;
                    ResultBuffer *application = kelutNewRb(kExtendedAppName), *text = kelutNewRb(kExtendedString);
                    ~Open() { kelutRelRb(application); }
                };
                keldbRegApp(kLongName);
                auto open = std::make_shared<Open>();
                open->layer.open(wallsId(database), KelDb::kForWrite);
                for (ResultBuffer* node : {open->application, open->text}) {
                    const std::size_t size = (std::wcslen(kLongName) + 1) * sizeof(wchar_t);
                    node->value.string = static_cast<wchar_t*>(std::malloc(size));
                    std::memcpy(node->value.string, kLongName, size);
                }
                open->application->next = open->text;
                return [open] { return answerOf(open->layer->setExtendedData(open->application)); };
            }};
}

HostOperation colorText() {
    return {"colorNameForDisplay", [](Database&) {
                auto color = std::make_shared<KelCmColor>();
                color->setRGB(0, 60, 140);
                color->setNames(L"A color that is too long for a short string", kLongName);
                return [color] {
                    const std::wstring_view text = color->colorNameForDisplay();
                    const std::wstring_view whole =
                        L"A color that is too long for a short string (A name that is too long for a short string)";
                    return text == whole ? Answer::Done : text.empty() ? Answer::Failed : Answer::Other;
                };
            }};
}

HostOperation colorNames() {
    return {"color.setNames", [](Database&) {
                auto color = std::make_shared<KelCmColor>();
                color->setRGB(0, 60, 140);
                return [color] { return answerOf(color->setNames(kLongName, kLongName)); };
            }};
}

KelCmColor namedColor() {
    KelCmColor color;
    color.setRGB(1, 2, 3);
    color.setNames(L"Blue", nullptr);
    return color;
}

} // namespace

std::vector<HostOperation> objectOperations() {
    const KelCmColor named = namedColor();
    return {
        reading(),
        {"setClayer",
         [](Database& d) {
             const KelDbObjectId walls = wallsId(d);
             return [&d, walls] { return answerOf(d.setClayer(walls)); };
         }},
        opening<KelDbDictionaryWithDefault>(
            "getPlotStyleNameDictionary",
            [](Database& d, KelDbDictionaryWithDefault*& o) { return d.getPlotStyleNameDictionary(o, 0); }),
        opening<KelDbLayerTable>("getLayerTable",
                                 [](Database& d, KelDbLayerTable*& o) { return d.getSymbolTable(o, 0); }),
        opening<KelDbLinetypeTable>("getLinetypeTable",
                                    [](Database& d, KelDbLinetypeTable*& o) { return d.getSymbolTable(o, 0); }),
        opening<KelDbObject>("openObject",
                             [](Database& d, KelDbObject*& o) { return keldbOpenKelDbObject(o, wallsId(d), 1); }),
        opening<Layer>("openObject of a class",
                       [](Database& d, Layer*& o) { return keldbOpenObject(o, wallsId(d), 1); }),
        onObject<KelDbLayerTable>("table.getAt", layerTableId, KelDb::kForRead,
                                  [](KelDbLayerTable& table, Database&) {
                                      KelDbObjectId id;
                                      return table.getAt(L"Doors", id);
                                  }),
        onObject<KelDbLinetypeTable>("linetypeTable.getAt", linetypeTableId, KelDb::kForRead,
                                     [](KelDbLinetypeTable& table, Database&) {
                                         KelDbObjectId id;
                                         return table.getAt(L"Dashed", id);
                                     }),
        onObject<KelDbLayerTable>("table.has", layerTableId, KelDb::kForRead,
                                  [](KelDbLayerTable& table, Database&) { return table.has(L"Doors"); }),
        onObject<KelDbLayerTable>("layerTable.getAt", layerTableId, KelDb::kForRead,
                                  [](KelDbLayerTable& table, Database&) {
                                      Layer* layer = nullptr;
                                      const Vorn::ErrorStatus status = table.getAt(L"Doors", layer, KelDb::kForRead);
                                      if (layer)
                                          layer->close();
                                      return status;
                                  }),
        iterating<KelDbLayerTableIterator, KelDbLayerTable>("layerTable.newIterator", layerTableId),
        iterating<KelDbLinetypeTableIterator, KelDbLinetypeTable>("linetypeTable.newIterator", linetypeTableId),
        iterating<KelDbDictionaryIterator, KelDbDictionary>("dictionary.newIterator", statesId),
        addingLayer(),
        cloning<Layer>("clone layer", wallsId),
        cloning<KelDbXrecord>("clone record", planId),
        cloningInMemory(),
        onWalls("setName", [](Layer& layer, Database&) { return layer.setName(kLongName); }),
        onWalls("setIsFrozen", [](Layer& layer, Database&) { return layer.setIsFrozen(true); }),
        onWalls("setIsPlottable", [](Layer& layer, Database&) { return layer.setIsPlottable(false); }),
        onWalls("setLineWeight", [](Layer& layer, Database&) { return layer.setLineWeight(50); }),
        onWalls("setPlotStyleName", [](Layer& layer, Database&) { return layer.setPlotStyleName(L"Fine"); }),
        onWalls("setDescription", [](Layer& layer, Database&) { return layer.setDescription(kLongName); }),
        silentlyOnWalls("setIsOff", [](Layer& layer, Database&) { layer.setIsOff(true); }),
        silentlyOnWalls("setIsLocked", [](Layer& layer, Database&) { layer.setIsLocked(true); }),
        silentlyOnWalls("setVPDFLT", [](Layer& layer, Database&) { layer.setVPDFLT(true); }),
        silentlyOnWalls("setColor", [named](Layer& layer, Database&) { layer.setColor(named); }),
        silentlyOnWalls("setLinetypeObjectId",
                        [](Layer& layer, Database& database) {
                            const zdr::Handle dashed = engine::drawingOf(database).linetypes[1].handle;
                            layer.setLinetypeObjectId(engine::objectId(database, dashed));
                        }),
        onWalls("linetypeObjectId", [](Layer& layer, Database&) { return !layer.linetypeObjectId().isNull(); }),
        onWalls("plotStyleNameId", [](Layer& layer, Database&) { return !layer.plotStyleNameId().isNull(); }),
        onWalls("plotStyleName",
                [](Layer& layer, Database&) {
                    wchar_t* const name = layer.plotStyleName();
                    std::free(name);
                    return name != nullptr;
                }),
        onObject<KelDbDictionary>("dictionary.getAt state", statesId, KelDb::kForRead,
                                  [](KelDbDictionary& dictionary, Database&) {
                                      KelDbObjectId id;
                                      return dictionary.getAt(L"Plan", id);
                                  }),
        onObject<KelDbDictionary>("dictionary.getAt plot style", plotStylesId, KelDb::kForRead,
                                  [](KelDbDictionary& dictionary, Database&) {
                                      KelDbObjectId id;
                                      return dictionary.getAt(L"Fine", id);
                                  }),
        entering("dictionary.setAt state", statesId, kLongName, copyOfPlan),
        entering("dictionary.setAt state again", statesId, L"CUT", copyOfPlan),
        entering("dictionary.setAt plot style", plotStylesId, kLongName, newPlotStyle),
        entering("dictionary.setAt plot style again", plotStylesId, L"Fine", newPlotStyle),
        settingChain(),
        onWalls("getExtendedData",
                [](Layer& layer, Database&) {
                    ResultBuffer* const chain = layer.getExtendedData(L"A remembered application");
                    kelutRelRb(chain);
                    return chain != nullptr;
                }),
        colorText(),
        colorNames(),
    };
}
