// Lets the user choose a plot style by name.

#include "OrvUiPickers.h"

#include "KelDbPointers.h"
#include "base/OutOfMemory.h"
#include "instruments/HostCalls.h"
#include "pickers/ListPicker.h"
#include "pickers/model/NamedRows.h"
#include "pickers/PickerIds.h"
#include "values/ReservedWords.h"
#include "values/RuntimeStrings.h"

#include <memory>

using instruments::HostCall;

namespace {

constexpr const wchar_t* kUnreadable = L"The plot styles of the drawing can't be read.";
constexpr const wchar_t* kByColor = L"In this drawing plot styles depend on color.";
constexpr const wchar_t* kNoDrawing = L"No drawing is open.";

struct ReadNames {
    std::vector<std::wstring> names;
    const wchar_t* note = L"";
};

ReadNames readDictionary(KelDbDatabase& database) {
    KelDbDictionaryWithDefault* opened = nullptr;
    if (database.getPlotStyleNameDictionary(opened, KelDb::kForRead) != Vorn::eOk)
        return {{}, kUnreadable};
    KelDbObjectPointer<KelDbDictionaryWithDefault> dictionary;
    dictionary.acquire(opened);
    KelDbDictionaryIterator* begun = nullptr;
    if (dictionary->newIterator(begun) != Vorn::eOk)
        return {{}, kUnreadable};
    ReadNames read;
    for (const std::unique_ptr<KelDbDictionaryIterator> iterator(begun); !iterator->done(); iterator->next())
        read.names.emplace_back(iterator->name());
    return read;
}

ReadNames readNames() {
    KelDbDatabase* database = keldbHostApplicationServices()->workingDatabase();
    if (!database)
        return {{}, kNoDrawing};
    return database->plotStyleMode() ? ReadNames{{}, kByColor} : readDictionary(*database);
}

void addReferences(std::vector<std::wstring>& names) {
    std::vector<std::wstring> words;
    for (const int word : {engine::kByLayerWord, engine::kByBlockWord})
        if (const std::wstring name = framework::hostWord(word); !name.empty())
            words.push_back(name);
    names.insert(names.begin(), words.begin(), words.end());
}

} // namespace

bool keledPlotstyleDialog(const wchar_t* current, bool byReference, wchar_t*& chosen) {
    return framework::answerOr(false, [&] {
        HostCall call("keledPlotstyleDialog", current, byReference);
        chosen = nullptr;
        if (call.fault())
            return call.answer(false);
        ReadNames read = readNames();
        pickers::putInOrder(read.names);
        if (byReference)
            addReferences(read.names);
        framework::PickerList list;
        list.templateId = IDD_PICK_PLOTSTYLE;
        list.dialogName = L"Workbench:SelectPlotStyle";
        list.columns = {{L"Plot style", 165}};
        for (const std::wstring& name : read.names)
            list.rows.push_back({name});
        list.note = read.note;
        list.selected = pickers::rowOfName(read.names, current ? current : L"");
        const auto row = framework::pickFromList(list);
        if (row)
            chosen = engine::handOutText(read.names[*row], "name of a picked plot style");
        if (!chosen)
            return call.answer(false);
        call.out("chosen", read.names[*row]);
        return call.answer(true);
    });
}
