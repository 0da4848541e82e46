// Lets the user choose a linetype, each beside a sample with its own dashes.

#include "OrvUiPickers.h"

#include "KelDbPointers.h"
#include "base/OutOfMemory.h"
#include "base/Scaling.h"
#include "instruments/HostCalls.h"
#include "pickers/ListPicker.h"
#include "pickers/model/DashSample.h"
#include "pickers/model/NamedRows.h"
#include "pickers/PickerIds.h"
#include "values/ReservedWords.h"
#include "values/RuntimeStrings.h"

#include <algorithm>
#include <memory>

using instruments::HostCall;
using pickers::LinetypeRow;

namespace {

constexpr int kSampleColumn = 1;
constexpr double kMillimetresPerInch = 25.4;

constexpr const wchar_t* kNote = L"The samples are as on paper. Long patterns are drawn smaller.";
constexpr const wchar_t* kIncomplete = L"Some linetypes of the drawing can't be read, and aren't in the list.";
constexpr const wchar_t* kUnreadable = L"The linetypes of the drawing can't be read.";
constexpr const wchar_t* kNoDrawing = L"No drawing is open.";

struct ReadLinetypes {
    std::vector<LinetypeRow> rows;
    const wchar_t* note = kNote;
};

/// A row of the linetype at the iterator; none when it can't be read.
std::optional<LinetypeRow> readLinetype(const KelDbLinetypeTableIterator& iterator) {
    KelDbLinetypeTableRecord* opened = nullptr;
    if (iterator.getRecord(opened, KelDb::kForRead) != Vorn::eOk)
        return std::nullopt;
    KelDbObjectPointer<KelDbLinetypeTableRecord> record;
    record.acquire(opened);
    const wchar_t* name = nullptr;
    if (std::as_const(*opened).getName(name) != Vorn::eOk || !name)
        return std::nullopt;
    LinetypeRow row = {name, opened->objectId()};
    wchar_t* description = opened->description();
    row.description = description ? description : L"";
    kelutDelBuffer(description);
    for (int dash = 0; dash < opened->numDashes(); ++dash)
        row.pattern.push_back(opened->dashLengthAt(dash));
    return row;
}

ReadLinetypes readLinetypes() {
    KelDbDatabase* database = keldbHostApplicationServices()->workingDatabase();
    if (!database)
        return {{}, kNoDrawing};
    const KelDbSymbolTablePointer<KelDbLinetypeTable> table(database, KelDb::kForRead);
    KelDbLinetypeTableIterator* begun = nullptr;
    if (table.openStatus() != Vorn::eOk || table->newIterator(begun) != Vorn::eOk)
        return {{}, kUnreadable};
    ReadLinetypes read;
    for (const std::unique_ptr<KelDbLinetypeTableIterator> iterator(begun); !iterator->done(); iterator->step()) {
        if (auto row = readLinetype(*iterator))
            read.rows.push_back(std::move(*row));
        else
            read.note = kIncomplete;
    }
    return read;
}

void addReferences(std::vector<LinetypeRow>& rows) {
    for (const int word : {engine::kByLayerWord, engine::kByBlockWord})
        if (const std::wstring name = framework::hostWord(word); !name.empty())
            rows.push_back({name, {}, {}, {}, true});
}

void drawSample(const framework::SampleCell& cell, const LinetypeRow& row) {
    if (row.reference)
        return;
    const RECT& area = cell.area;
    const double pixelsPerMillimetre = cell.dpi / kMillimetresPerInch;
    const int thickness = std::max(1, cell.dpi / framework::kDesignDpi);
    const LONG top = (area.top + area.bottom - thickness) / 2;
    SetDCBrushColor(cell.dc, cell.color);
    for (const auto& [from, to] : pickers::dashesOf(row.pattern, area.right - area.left, pixelsPerMillimetre)) {
        const LONG end = std::max(to, from + thickness); // a dot is as long as the line is thick
        const RECT dash = {area.left + from, top, area.left + end, top + thickness};
        FillRect(cell.dc, &dash, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
    }
}

framework::PickerList shownList(const ReadLinetypes& read) {
    framework::PickerList list;
    list.templateId = IDD_PICK_LINETYPE;
    list.dialogName = L"Workbench:SelectLinetype";
    list.columns = {{L"Linetype", 75}, {L"Appearance", 110}, {L"Description", 100}};
    for (const LinetypeRow& row : read.rows)
        list.rows.push_back({row.name, L"", row.description});
    list.note = read.note;
    list.sampleColumn = kSampleColumn;
    list.drawSample = [&read](const framework::SampleCell& cell, int row) {
        drawSample(cell, read.rows[static_cast<std::size_t>(row)]);
    };
    return list;
}

} // namespace

bool keledLinetypeDialog(KelDbObjectId current, bool byReference, wchar_t*& name, KelDbObjectId& chosen) {
    return framework::answerOr(false, [&] {
        HostCall call("keledLinetypeDialog", current, byReference);
        name = nullptr;
        if (call.fault())
            return call.answer(false);
        ReadLinetypes read = readLinetypes();
        if (byReference)
            addReferences(read.rows);
        pickers::putInOrder(read.rows);
        framework::PickerList list = shownList(read);
        list.selected = pickers::rowOfLinetype(read.rows, current);
        const auto row = framework::pickFromList(list);
        if (row)
            name = engine::handOutText(read.rows[*row].name, "name of a picked linetype");
        if (!name)
            return call.answer(false);
        chosen = read.rows[*row].id;
        call.out("name", read.rows[*row].name);
        call.out("chosen", chosen);
        return call.answer(true);
    });
}
