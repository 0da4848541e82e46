// Calls with arguments that no honest caller has.
#include "Attack.h"

#include "KelDbPointers.h"

namespace {

using Call = std::function<Vorn::ErrorStatus(const Target&)>;

Attack call(std::string name, Vorn::ErrorStatus status, const Call& action) {
    return {std::move(name), [action](const Target& target) { return Outcome{action(target)}; }, status};
}

const std::wstring kLong(256, L'x');

std::vector<Attack> names() {
    const auto save = [](const wchar_t* name) {
        return [name](const Target& t) { return t.states().saveLayerState(name, MaskAllProperties); };
    };
    const auto rename = [](const wchar_t* name) {
        return [name](const Target& t) { return t.states().renameLayerState(L"Plan", name); };
    };
    return {
        call("saveNull", Vorn::eInvalidInput, save(nullptr)),
        call("saveEmpty", Vorn::eInvalidInput, save(L"")),
        call("saveControlCharacter", Vorn::eInvalidInput, save(L"a\x01")),
        call("saveDelete", Vorn::eInvalidInput, save(L"a\x7F")),
        call("saveReferenceName", Vorn::eInvalidInput, save(L"plan!a")),
        call("savePath", Vorn::eInvalidInput, save(L"C:\\a")),
        call("saveLong", Vorn::eNameTooLong, save(kLong.c_str())),
        call("renameToNull", Vorn::eInvalidInput, rename(nullptr)),
        call("renameToTaken", Vorn::eDuplicateRecordName, rename(L"SECTION")),
        call("renameToControlCharacter", Vorn::eInvalidInput, rename(L"\n")),
        call("renameToLong", Vorn::eNameTooLong, rename(kLong.c_str())),
        call("renameNothing", Vorn::eKeyNotFound,
             [](const Target& t) { return t.states().renameLayerState(nullptr, L"a"); }),
        call("layerOfATakenName", Vorn::eDuplicateRecordName,
             [](const Target& t) { return engine::addLayer(t.database, L"BASE"); }),
        call("layerWithAControlCharacter", Vorn::eInvalidInput,
             [](const Target& t) { return engine::addLayer(t.database, L"a\tb"); }),
    };
}

std::vector<Attack> unknownStates() {
    return {
        call("restoreNull", Vorn::eKeyNotFound,
             [](const Target& t) { return t.states().restoreLayerState(nullptr, {}, 0, nullptr); }),
        call("restoreUnknown", Vorn::eKeyNotFound,
             [](const Target& t) { return t.states().restoreLayerState(L"Roof", {}, 0, nullptr); }),
        call("deleteUnknown", Vorn::eKeyNotFound, [](const Target& t) { return t.states().deleteLayerState(L"Roof"); }),
        call("maskOfUnknown", Vorn::eKeyNotFound,
             [](const Target& t) { return t.states().setLayerStateMask(L"", ~0u); }),
        call("exportUnknown", Vorn::eKeyNotFound,
             [](const Target& t) { return t.states().exportLayerState(L"Roof", t.folder.file(L"a.las").c_str()); }),
        call("importFromNoDatabase", Vorn::eNoDatabase,
             [](const Target& t) { return t.states().importLayerStateFromDb(L"Plan", nullptr); }),
        call("importOfNull", Vorn::eKeyNotFound,
             [](const Target& t) { return t.states().importLayerStateFromDb(nullptr, &t.other); }),
        call("importOfUnknown", Vorn::eKeyNotFound,
             [](const Target& t) { return t.states().importLayerStateFromDb(L"Roof", &t.other); }),
        call("importOfTaken", Vorn::eDuplicateRecordName,
             [](const Target& t) { return t.states().importLayerStateFromDb(L"plan", &t.other); }),
        call("importFromItself", Vorn::eDuplicateRecordName,
             [](const Target& t) { return t.states().importLayerStateFromDb(L"Plan", &t.database); }),
    };
}

std::vector<Attack> strangeIds() {
    const auto layer = [](KelDbDatabase& database) { return engine::layerId(database, 1); };
    return {
        call("layerAsViewport", Vorn::eInvalidInput,
             [layer](const Target& t) { return t.states().restoreLayerState(L"Plan", layer(t.database), 0, nullptr); }),
        call("savedWithTheViewportOfAnother", Vorn::eInvalidInput,
             [](const Target& t) {
                 const auto& viewport = engine::drawingOf(t.other).layouts.at(0).viewports.at(0);
                 return t.states().saveLayerState(L"New", MaskOn, engine::objectId(t.other, viewport.handle));
             }),
        call("layerOfAnotherDrawing", Vorn::eInvalidInput,
             [layer](const Target& t) {
                 KelArray<KelDbObjectId> layers;
                 layers.append(layer(t.other));
                 return t.states().addLayerStateLayers(L"Plan", layers);
             }),
        call("currentLayerOfAnotherDrawing", Vorn::eInvalidInput,
             [layer](const Target& t) { return t.database.setClayer(layer(t.other)); }),
        call("noCurrentLayer", Vorn::eInvalidInput, [](const Target& t) { return t.database.setClayer({}); }),
        call("openNothing", Vorn::eNullObjectId,
             [](const Target&) {
                 KelDbObject* object = nullptr;
                 return keldbOpenKelDbObject(object, {}, KelDb::kForRead);
             }),
        call("layerAsViewportObject", Vorn::eNotThatKindOfClass,
             [layer](const Target& t) {
                 KelDbViewport* viewport = nullptr;
                 return keldbOpenObject(viewport, layer(t.database), KelDb::kForRead);
             }),
        call("handleOfNothing", Vorn::eKeyNotFound,
             [](const Target& t) {
                 KelDbObjectId id;
                 return t.database.getKelDbObjectId(id, false, KelDbHandle(0x7777), 0);
             }),
        call("noChain", Vorn::eInvalidInput,
             [layer](const Target& t) {
                 KelDbObjectPointer<KelDbLayerTableRecord> record(layer(t.database), KelDb::kForWrite);
                 return record->setExtendedData(nullptr);
             }),
        call("chainWithoutAText", Vorn::eInvalidInput,
             [layer](const Target& t) {
                 KelDbObjectPointer<KelDbLayerTableRecord> record(layer(t.database), KelDb::kForWrite);
                 ResultBuffer* chain = kelutNewRb(kExtendedAppName);
                 const Vorn::ErrorStatus status = record->setExtendedData(chain);
                 kelutRelRb(chain);
                 return status;
             }),
    };
}

} // namespace

std::vector<Attack> callAttacks() {
    std::vector<Attack> all = names();
    for (std::vector<Attack>& more : std::vector<std::vector<Attack>>{unknownStates(), strangeIds()})
        all.insert(all.end(), more.begin(), more.end());
    return all;
}
