#include "AddLayersTest.h"

#include "KelDbPointers.h"
#include "engine/DatabaseAccess.h"

using ui::Script;
using ui::TestDrawing;
using ui::View;

TestDrawing AddLayersTest::grown() {
    TestDrawing drawing;
    drawing.layer(L"Walls").state(L"Plan", MaskOn | MaskColor);
    return drawing.layer(L"Attic", 2).layer(L"Yard", 3).layer(L"Cellar", 4);
}

void AddLayersTest::describe(const wchar_t* layer, const wchar_t* description) {
    const std::size_t index = engine::layerIndex(database(), layer);
    KelDbObjectPointer<KelDbLayerTableRecord> record(engine::layerId(database(), index), KelDb::kForWrite);
    ASSERT_EQ(record.openStatus(), Vorn::eOk);
    ASSERT_EQ(record->setDescription(description), Vorn::eOk);
}

Script AddLayersTest::openDialog() {
    return countFromHere().click(IDC_ADD_LAYERS).waitUntil("the dialog", [](const View& view) {
        return view.has(grid) && !view.has(IDC_ADD_LAYERS);
    });
}

bool AddLayersTest::add(const Script& steps, std::function<void(const View&)> see) {
    return editPlan(openDialog()
                        .then(steps)
                        .waitForControl(IDC_ADD_LAYERS)
                        .look("the edit dialog", std::move(see))
                        .press(VK_ESCAPE));
}
