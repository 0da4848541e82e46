#include "LayerStatesTest.h"

#include "HandmadeDrawing.h"

#include "engine/DatabaseAccess.h"
#include "resources/resource.h"

LayerStatesTest::LayerStatesTest() {
    wchar_t path[1024];
    const std::filesystem::path program(std::wstring(path, GetModuleFileNameW(nullptr, path, 1024)));
    EXPECT_EQ(m_modules.load((program.parent_path() / "KelLayerApps.xmod").wstring()), L"");
    writeDrawingWithState();
}

LayerStatesTest::~LayerStatesTest() {
    m_modules.unloadAll();
}

void LayerStatesTest::writeDrawingWithState() const {
    KelDbDatabase database(true, true);
    zdr::Drawing drawing = engine::drawingOf(database);
    const std::size_t red = handmade::addLayer(drawing, L"Red", {zdr::kLayerPlot, 1});
    handmade::addLine(drawing, red, 1000);
    engine::replaceDrawing(database, std::move(drawing));
    for (const wchar_t* name : {L"Without red", L"Attic", L"Cellar"})
        EXPECT_EQ(database.getLayerStateManager()->saveLayerState(name, MaskAllProperties), Vorn::eOk);
    engine::LayerValues values = engine::layerValues(database, red);
    values.flags |= zdr::kLayerOn;
    EXPECT_EQ(engine::setLayerValues(database, red, values), Vorn::eOk);
    writeDrawing("states.zdr", engine::drawingOf(database));
}

ui::Script LayerStatesTest::openManager() const {
    ui::Script script;
    return script.then(command(L"OPEN " + path("states.zdr")))
        .then(said(L"states.zdr"))
        .then(command(L"LAYERSTATE"))
        .waitForControl(IDC_LSTATE_RES_LIST);
}
