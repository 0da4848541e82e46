#include "ManagerTest.h"

#include <algorithm>

using ui::Script;
using ui::TestDrawing;
using ui::View;

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
