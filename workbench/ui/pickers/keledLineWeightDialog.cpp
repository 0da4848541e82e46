// Lets the user choose a lineweight, each beside a bar of its width.

#include "OrvUiPickers.h"

#include "KelEditor.h"
#include "base/OutOfMemory.h"
#include "base/Scaling.h"
#include "instruments/HostCalls.h"
#include "pickers/ListPicker.h"
#include "pickers/model/LineWeightRows.h"
#include "pickers/PickerIds.h"
#include "values/ReservedWords.h"

using framework::hostWord;
using instruments::HostCall;
using pickers::LineWeightRow;

namespace {

constexpr int kSampleColumn = 1;
// Room above and below the thickest bar, in dots at 96 an inch.
constexpr int kRoom = 4;

/// The drawing's default lineweight; -1 when it can't be read.
int drawingDefault() {
    ResultBuffer value = {};
    if (keledGetVar(L"LWDEFAULT", &value) != kResultNormal)
        return -1;
    return value.type == kVariableInt16 ? value.value.int16 : -1;
}

void drawBar(const framework::SampleCell& cell, const LineWeightRow& row) {
    if (!row.bar)
        return;
    const RECT& area = cell.area;
    const int room = static_cast<int>(area.bottom - area.top) - MulDiv(kRoom, cell.dpi, framework::kDesignDpi);
    const int thickness = pickers::barThickness(*row.bar, cell.dpi, room);
    const LONG top = area.top + (area.bottom - area.top - thickness) / 2;
    const RECT bar = {area.left, top, area.right, top + thickness};
    SetDCBrushColor(cell.dc, cell.color);
    FillRect(cell.dc, &bar, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

framework::PickerList shownList(const std::vector<LineWeightRow>& rows) {
    framework::PickerList list;
    list.templateId = IDD_PICK_LINEWEIGHT;
    list.dialogName = L"Workbench:SelectLineweight";
    list.columns = {{L"Lineweight", 60}, {L"Appearance", 105}};
    for (const LineWeightRow& row : rows)
        list.rows.push_back({row.text});
    list.note = L"The bars are as wide as the lines on paper.";
    list.sampleColumn = kSampleColumn;
    list.drawSample = [&rows](const framework::SampleCell& cell, int row) {
        drawBar(cell, rows[static_cast<std::size_t>(row)]);
    };
    return list;
}

} // namespace

bool keledLineWeightDialog(int current, bool byReference, int& chosen) {
    return framework::answerOr(false, [&] {
        HostCall call("keledLineWeightDialog", current, byReference);
        if (call.fault())
            return call.answer(false);
        const auto rows = pickers::lineWeightRows(
            {hostWord(engine::kByLayerWord), hostWord(engine::kByBlockWord), hostWord(engine::kDefaultWord)},
            byReference, drawingDefault());
        framework::PickerList list = shownList(rows);
        list.selected = pickers::rowOfWeight(rows, current);
        const auto row = framework::pickFromList(list);
        if (!row)
            return call.answer(false);
        chosen = rows[*row].weight;
        call.out("chosen", chosen);
        return call.answer(true);
    });
}
