// The layer states command in the Workbench: from the typed line to the changed drawing, and back by UNDO.

#include "HandmadeDrawing.h"
#include "KelEditor.h"
#include "ModuleLoader.h"
#include "WorkbenchFixture.h"
#include "WorkbenchIds.h"

#include "engine/DatabaseAccess.h"
#include "files/DrawingFile.h"
#include "resources/resource.h"

#include <algorithm>

using ui::Script;
using ui::View;

namespace {

class LayerStatesTest : public WorkbenchTest {
  protected:
    LayerStatesTest() {
        wchar_t path[1024];
        const std::filesystem::path program(std::wstring(path, GetModuleFileNameW(nullptr, path, 1024)));
        EXPECT_EQ(modules.load((program.parent_path() / "KelLayerApps.xmod").wstring()), L"");
        writeDrawingWithState();
    }
    ~LayerStatesTest() override { modules.unloadAll(); }

    /// Layer "Red" is on; in the state "Without red" it is off.
    void writeDrawingWithState() {
        KelDbDatabase database(true, true);
        zdr::Drawing drawing = engine::drawingOf(database);
        const std::size_t red = handmade::addLayer(drawing, L"Red", {zdr::kLayerPlot, 1});
        handmade::addLine(drawing, red, 1000);
        engine::replaceDrawing(database, std::move(drawing));
        EXPECT_EQ(database.getLayerStateManager()->saveLayerState(L"Without red", MaskAllProperties), Vorn::eOk);
        engine::LayerValues values = engine::layerValues(database, red);
        values.flags |= zdr::kLayerOn;
        EXPECT_EQ(engine::setLayerValues(database, red, values), Vorn::eOk);
        zdr::FileStamp stamp;
        std::wstring reason;
        EXPECT_EQ(zdr::writeDrawingFile(path("states.zdr"), engine::drawingOf(database), reason, stamp), Vorn::eOk);
    }
    static Script expectRed(bool shown) {
        Script script;
        script.waitUntil(shown ? "the red line is shown" : "the red line is hidden", [shown](const View& view) {
            const auto pixels = view.pixels(IDC_DRAWING_VIEW);
            return !pixels.empty() && (std::count(pixels.begin(), pixels.end(), RGB(255, 0, 0)) > 100) == shown;
        });
        return script;
    }

    runtime::ModuleLoader modules;
};

} // namespace

TEST_F(LayerStatesTest, ARestoreChangesTheDrawingAndUndoTakesItBack) {
    Script script;
    script.then(command(L"OPEN " + path("states.zdr")))
        .then(expectRed(true))
        .then(command(L"layerstate"))
        .waitForControl(IDC_LSTATE_RES_RESTORE)
        .clickCell(IDC_LSTATE_RES_LIST, 0, 0)
        .click(IDC_LSTATE_RES_RESTORE)
        .then(expectRed(false))
        .look("the title shows the change",
              [](const View& view) { EXPECT_EQ(view.title(), L"states.zdr* - Kel Workbench"); })
        .then(command(L"UNDO"))
        .then(expectRed(true))
        .then(command(L"REDO"))
        .then(expectRed(false))
        .then(command(L"QUIT"))
        .then(answerBox(L"Save the changes to states.zdr?", IDNO));
    runWith(script);
}

TEST_F(LayerStatesTest, TheKeyAndTheMenuRunTheCommandToo) {
    Script script;
    script.press('L', ui::holdControl)
        .waitForControl(IDC_LSTATE_RES_CLOSE)
        .click(IDC_LSTATE_RES_CLOSE)
        .then(said(L"Command: LAYERSTATE"))
        .pressAlt(L'o')
        .press('L')
        .waitForControl(IDC_LSTATE_RES_CLOSE)
        .click(IDC_LSTATE_RES_CLOSE)
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(LayerStatesTest, KeysOfTheCommandLineDoNothingBehindTheDialog) {
    Script script;
    script.then(command(L"LAYERSTATE"))
        .waitForControl(IDC_LSTATE_RES_CLOSE)
        .press('E', ui::holdControl)
        .press('S', ui::holdControl)
        .look("the dialog is still in front", [](const View& view) { EXPECT_TRUE(view.has(IDC_LSTATE_RES_CLOSE)); })
        .click(IDC_LSTATE_RES_CLOSE)
        .then(command(L"QUIT"));
    runWith(script);
    EXPECT_EQ(session().path(), L"") << "nothing was saved";
}
