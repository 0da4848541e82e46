// Fuzzer of the older tool's states: whatever a layer's chain holds, its names are found as a plain reading finds them,
// each state can be put on the layers, renamed, deleted and converted, what isn't a closed block of a deleted state
// stays, and nothing is open or lost afterwards but the chains that a walk keeps.
//
// The input is the values of one chain: code (a byte: 0 text, 1 handle, 2 number of 16 bits, otherwise of 32), and the
// text (a byte for the length, then ASCII) or the number (two bytes or four).
#include "CQSETList.h"
#include "FuzzInput.h"
#include "FuzzRules.h"
#include "KelEditor.h"
#include "LegacyStates.h"
#include "PlainReading.h"
#include "engine/DatabaseAccess.h"
#include "instruments/HostCalls.h"

namespace {

std::wstring textOf(Input& input) {
    std::wstring text;
    for (const char each : input.text())
        text.push_back(static_cast<wchar_t>(each >= ' ' && each <= '~' ? each : 'x'));
    return text;
}

plain::Nodes nodesOf(Input input) {
    plain::Nodes nodes;
    while (!input.isEmpty()) {
        switch (input.number(1)) {
        case 0:
            nodes.push_back({kExtendedString, textOf(input)});
            break;
        case 1:
            nodes.push_back({kExtendedHandle, textOf(input)});
            break;
        case 2:
            nodes.push_back({kExtendedInt16, std::int32_t{static_cast<std::int16_t>(input.number(2))}});
            break;
        default:
            nodes.push_back({kExtendedInt32, static_cast<std::int32_t>(input.number(4))});
        }
    }
    return nodes;
}

zdr::Drawing drawingWith(const plain::Nodes& nodes) {
    static const zdr::Drawing plainDrawing = engine::drawingOf(KelDbDatabase());
    zdr::Drawing drawing = plainDrawing;
    if (!nodes.empty())
        drawing.extendedData.push_back({drawing.layers.at(0).handle, L"ZVH", plain::valuesOf(nodes)});
    return drawing;
}

plain::Nodes nodesIn(const KelDbDatabase& database) {
    for (const zdr::ExtendedData& each : engine::drawingOf(database).extendedData)
        if (each.application == L"ZVH")
            return plain::nodesOf(each.values);
    return {};
}

std::vector<std::wstring> namesOf(KelDbDatabase& database) {
    CQSETList list(&database);
    std::vector<std::wstring> names;
    while (list.takeNextName())
        names.emplace_back(list.currentName().GetString());
    return names;
}

void apply(KelDbDatabase& database, CQSETList::Operation operation, const std::wstring& name) {
    stopUnless(CQSETList(&database).applyToLayers(operation, name.c_str()), "a walk stops");
    for (const void* head : instruments::keysOf("chain node of type 1001"))
        kelutRelRb(static_cast<ResultBuffer*>(const_cast<void*>(head)));
}

void checkEachState(KelDbDatabase& database, plain::Nodes nodes) {
    const std::vector<std::wstring> names = namesOf(database);
    stopUnless(names == plain::names(nodes), "names differ from a plain reading");
    for (const std::wstring& name : names) {
        apply(database, CQSETList::OpRestore, name);
        stopUnless(nodesIn(database) == nodes, "putting a state on the layers changes their chains");
        apply(database, CQSETList::OpDelete, name);
        nodes = plain::without(nodes, name);
        stopUnless(nodesIn(database) == nodes, "a deletion differs from a plain one");
        apply(database, CQSETList::OpRename, name);
        nodes = nodesIn(database);
    }
}

void checkConversion(KelDbDatabase& database) {
    const std::size_t names = namesOf(database).size();
    int count = 0;
    stopUnless(convertLegacyStates(count) == (names > 0), "a conversion doesn't end");
    for (const void* head : instruments::keysOf("chain node of type 1001"))
        kelutRelRb(static_cast<ResultBuffer*>(const_cast<void*>(head)));
    stopUnless(static_cast<std::size_t>(count) == names, "a state isn't converted");
    stopUnless(engine::drawingOf(database).states.size() == names, "there are other states than were counted");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const plain::Nodes nodes = nodesOf(Input(data, size));
    instruments::watch(true);
    {
        KelDbDatabase database(false, false);
        keldbHostApplicationServices()->setWorkingDatabase(&database);
        engine::replaceDrawing(database, drawingWith(nodes));
        checkEachState(database, nodes);
        engine::replaceDrawing(database, drawingWith(nodes));
        checkConversion(database);
        keldbHostApplicationServices()->setWorkingDatabase(nullptr);
    }
    stopUnless(instruments::ledger().empty(), "something wasn't given back");
    instruments::watch(false);
    return 0;
}
