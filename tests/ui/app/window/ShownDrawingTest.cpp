#include "ShownDrawingTest.h"

#include "HandmadeDrawing.h"

using ui::Script;
using ui::View;
using workbench::ViewTransform;

ShownDrawingTest::ShownDrawingTest() {
    zdr::Drawing drawing = session().drawing();
    const std::uint8_t flags = zdr::kLayerPlot | zdr::kLayerOn;
    handmade::addLine(drawing, handmade::addLayer(drawing, L"Red", {flags, 0xC2FF0000, L"Continuous", 13}), 1000);
    handmade::addLayer(drawing, L"Empty");
    writeDrawing("line.zdr", drawing);
}

Script ShownDrawingTest::note(ViewTransform& place) {
    Script script;
    script.look("what is on view", [this, &place](const View&) { place = view(); });
    return script;
}

Script ShownDrawingTest::isShown(const ViewTransform& place, const std::string& when) {
    Script script;
    script.look("what is on view " + when, [this, &place, when](const View&) { EXPECT_TRUE(view() == place) << when; });
    return script;
}

Script ShownDrawingTest::mouse(const std::string& what, POINT pixel, std::function<void()> act) {
    Script script;
    script.step(what, [pixel, act](const View& view) -> ui::Obstacle {
        const RECT rect = view.rect(IDC_DRAWING_VIEW);
        if (!ui::pointerRestsAt({rect.left + pixel.x, rect.top + pixel.y}))
            return "the pointer is under way";
        if (act)
            act();
        return std::nullopt;
    });
    return script;
}

Script ShownDrawingTest::pointAt(POINT pixel) {
    return mouse("point at the drawing", pixel, {});
}

Script ShownDrawingTest::click(POINT pixel) {
    return mouse("click the drawing", pixel, [] { ui::click(); });
}

Script ShownDrawingTest::press(POINT pixel) {
    return mouse("press the button over the drawing", pixel, [] { ui::pressButton(); });
}

Script ShownDrawingTest::release(POINT pixel) {
    return mouse("release the button over the drawing", pixel, [] { ui::releaseButton(); });
}

Script ShownDrawingTest::turnWheel(POINT pixel, int delta) {
    return mouse("turn the wheel over the drawing", pixel, [delta] { ui::turnWheel(delta); });
}

Script ShownDrawingTest::answered(const std::wstring& text) {
    Script script;
    script.waitUntil("the history ends with: " + ui::narrow(text), [text](const View& view) {
        return View(view.control(IDC_COMMAND_PANE)).text(IDC_COMMAND_HISTORY).ends_with(text);
    });
    return script;
}
