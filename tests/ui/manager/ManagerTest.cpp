#include "ManagerTest.h"

#include <algorithm>

using ui::Script;
using ui::TestDrawing;
using ui::View;

Calls joined(std::initializer_list<Calls> parts) {
    Calls all;
    for (const Calls& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

Calls callsOfService() {
    return {"keldbHostApplicationServices()", "workingDatabase() = object", "getLayerStateManager() = object"};
}

namespace {

std::string call(const char* operation, const std::string& name) {
    return std::string(operation) + "(\"" + name + "\")";
}

Calls callsOfMask(const std::string& name, LayerStateMask mask) {
    return {call("getLayerStateMask", name) + " = 0, mask=" + std::to_string(mask)};
}

Calls callsOfDescription(const std::string& name) {
    return {call("getLayerStateDescription", name) + " = 0, description=\"\"", "keldbFree(\"\")"};
}

} // namespace

Calls callsOfSelection(const std::string& name, LayerStateMask mask) {
    return joined({{"keledGetCurViewportObjectId() = null"},
                   callsOfService(),
                   {call("isDependentLayerState", name) + " = false"},
                   callsOfService(),
                   callsOfMask(name, mask),
                   callsOfDescription(name)});
}

Calls callsOfRow(const std::string& name, LayerStateMask mask) {
    return joined(
        {callsOfMask(name, mask),
         {"keledGetCurViewportObjectId() = null", // the row has changed, and no row is selected
          call("isDependentLayerState", name) + " = false", call("layerStateHasViewportData", name) + " = false",
          "keldbGetReservedString(10, true) = \"Model\"", "keledGetCurViewportObjectId() = null",
          "compareLayerStateToDb(\"" + name + "\", null) = true"},
         callsOfDescription(name)});
}

void ManagerTest::SetUp() {
    HostTest::SetUp();
    loadModule();
}

bool ManagerTest::manage(Script script) {
    return ui::perform(std::move(script), [this] { runCommand(L"LAYERSTATE"); });
}

void ManagerTest::lookAtOpening(std::function<void(const View&)> see) {
    manage(Script().look("the manager as it opened", std::move(see)).click(IDC_LSTATE_RES_CLOSE));
}

TestDrawing ManagerTest::house() {
    TestDrawing drawing;
    drawing.layer(L"Walls").layer(L"Doors", 3).layer(L"Pipes", 4);
    drawing.state(L"Ground floor", MaskAllProperties, L"All that is built");
    drawing.state(L"Plumbing plan", MaskOn | MaskColor | MaskLinetype, L"", [](zdr::LayerColumns& columns) {
        columns.flags.set(1, zdr::kLayerPlot);
        columns.colors.set(3, 5);
    });
    drawing.state(L"Bare", MaskOn | MaskFrozen | MaskLocked | MaskPlot | MaskNewViewportFrozen);
    return drawing;
}

TestDrawing ManagerTest::houseOnSite() {
    TestDrawing site;
    site.layer(L"Trees");
    site.state(L"Survey", MaskAllProperties).state(L"Trees", MaskOn);
    return house().reference(L"site", site);
}

LayerStateMask ManagerTest::shownMask(const View& view) {
    LayerStateMask mask = 0;
    for (const BoxBit& row : propertyBoxes)
        if (view.isTicked(row.box))
            mask |= row.bit;
    return mask;
}

std::vector<int> ManagerTest::enabledControls(const View& view) {
    std::vector<int> enabled;
    for (int control = IDC_LSTATE_RES_NEW; control <= IDC_LSTATE_RES_OVERRIDES; ++control) {
        const bool changes = control != IDC_LSTATE_RES_CLOSE && control != IDC_LSTATE_RES_HIDEXREFS;
        if (changes && view.has(control) && view.isEnabled(control))
            enabled.push_back(control);
    }
    return enabled;
}
