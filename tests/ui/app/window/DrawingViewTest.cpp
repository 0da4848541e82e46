// What the drawing view shows, and how it is moved by mouse and tabs.

#include "HandmadeDrawing.h"
#include "LayerLook.h"
#include "WorkbenchFixture.h"
#include "WorkbenchIds.h"

#include "engine/DatabaseAccess.h"

#include <algorithm>
#include <map>

using ui::Script;
using ui::View;

namespace {

constexpr COLORREF kRed = RGB(255, 0, 0);

long count(const View& view, COLORREF color) {
    const auto pixels = view.pixels(IDC_DRAWING_VIEW);
    return std::count(pixels.begin(), pixels.end(), color);
}

RECT viewRect(const View& view) {
    return view.rect(IDC_DRAWING_VIEW);
}

class DrawingViewTest : public WorkbenchTest {
  protected:
    /// Writes a drawing with a red line over the whole width, on a layer of its own, and a sheet with two viewports,
    /// the second of which freezes that layer.
    void writeRedLine(bool on = true, const wchar_t* linetype = L"Continuous") {
        zdr::Drawing drawing = session().drawing();
        drawing.linetypes.push_back({drawing.names.intern(L"Dashed"), drawing.nextHandle++, L"", {6, -6}});
        const std::uint8_t flags = zdr::kLayerPlot | (on ? zdr::kLayerOn : 0);
        const std::size_t layer = handmade::addLayer(drawing, L"Red", {flags, 0xC2FF0000, linetype, 13});
        handmade::addLine(drawing, layer, 1000);
        zdr::Viewport& second = handmade::addSecondViewport(drawing);
        second.frozen = std::vector<bool>(layer + 1, false);
        second.frozen[layer] = true;
        number = second.number;
        layout = drawing.layouts[0].name;
        writeDrawing("red.zdr", drawing);
    }
    Script open() { return command(L"OPEN " + path("red.zdr")).then(said(L"Opened ")); }
    Script expectRed(std::string what, std::function<bool(long)> enough) {
        Script script;
        script.waitUntil(what, [enough](const View& view) { return enough(count(view, kRed)); });
        return script;
    }
    /// Double-clicks a point of the sheet, in millimetres.
    Script doubleClickPaper(zdr::Point paper) {
        Script script;
        script.step("double click the sheet", [paper](const View& view) -> ui::Obstacle {
            auto* shown =
                static_cast<workbench::DrawingView*>(CWnd::FromHandlePermanent(view.control(IDC_DRAWING_VIEW)));
            const zdr::Point pixel = shown->view().toScreen(paper);
            const RECT rect = viewRect(view);
            if (!ui::pointerRestsAt({rect.left + static_cast<LONG>(pixel.x), rect.top + static_cast<LONG>(pixel.y)}))
                return "the pointer is under way";
            ui::click(2);
            return std::nullopt;
        });
        return script;
    }

    int number = 0;
    std::wstring layout;
};

void sendMouse(DWORD flags) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    SendInput(1, &input, sizeof input);
}

/// Moves the pointer to a place so many pixels from the middle of the view, and sends these inputs there.
Script mouseAt(int right, int down, std::vector<DWORD> inputs) {
    Script script;
    script.step("use the mouse in the view", [=](const View& view) -> ui::Obstacle {
        const POINT middle = ui::middleOf(viewRect(view));
        if (!ui::pointerRestsAt({middle.x + right, middle.y + down}))
            return "the pointer is under way";
        for (const DWORD input : inputs)
            sendMouse(input);
        return std::nullopt;
    });
    return script;
}

} // namespace

TEST_F(DrawingViewTest, ShowsAllOfTheDrawingAfterOpening) {
    writeRedLine();
    Script script;
    script.then(open())
        .then(expectRed("a red line over nearly the whole width", [](long red) { return red > 500; }))
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(DrawingViewTest, LeavesOutALayerThatIsOff) {
    writeRedLine(false);
    Script script;
    script.then(open())
        .look("no red", [](const View& view) { EXPECT_EQ(count(view, kRed), 0); })
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(DrawingViewTest, BreaksADashedLine) {
    writeRedLine(true, L"Dashed");
    Script script;
    script.then(open())
        .then(expectRed("half of the line", [](long red) { return red > 300 && red < 800; }))
        .then(command(L"SETVAR LTSCALE 1000"))
        .then(expectRed("a dash as long as the line", [](long red) { return red > 800; }))
        .then(command(L"SETVAR LTSCALE 1"))
        .then(expectRed("half of the line again", [](long red) { return red > 300 && red < 800; }))
        .then(command(L"U"))
        .then(expectRed("the long dash, as before", [](long red) { return red > 800; }))
        .then(command(L"U"))
        .then(expectRed("half of the line as at first", [](long red) { return red > 300 && red < 800; }))
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(DrawingViewTest, ZoomsWithTheWheelAndBackToTheExtents) {
    writeRedLine();
    long before = 0;
    Script script;
    script.then(open())
        .look("the line at first", [&before](const View& view) { before = count(view, kRed); })
        .step("turn the wheel towards the user over the drawing",
              [](const View& view) -> ui::Obstacle {
                  if (!ui::pointerRestsAt(ui::middleOf(viewRect(view))))
                      return "the pointer is under way";
                  ui::turnWheel(-3 * WHEEL_DELTA);
                  return std::nullopt;
              })
        .waitUntil("a shorter line", [&before](const View& view) {
            const long now = count(view, kRed);
            return now > 0 && now < before * 2 / 3;
        });
    script.then(command(L"ZOOM e"))
        .waitUntil("the line as before", [&before](const View& view) { return count(view, kRed) == before; })
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(DrawingViewTest, AViewportHidesWhatItFreezes) {
    writeRedLine();
    Script script;
    script.then(open())
        .then(command(L"LAYOUT " + layout))
        .then(expectRed("the line in one viewport only", [](long red) { return red > 50; }))
        .look("only in the first one",
              [](const View& view) {
                  // The red pixels of a thin line are all in a few rows.
                  const RECT rect = viewRect(view);
                  const auto pixels = view.pixels(IDC_DRAWING_VIEW);
                  std::map<std::size_t, int> rows;
                  for (std::size_t i = 0; i < pixels.size(); ++i)
                      if (pixels[i] == kRed)
                          ++rows[i / static_cast<std::size_t>(rect.right - rect.left)];
                  EXPECT_LE(rows.size(), 2u);
              })
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(DrawingViewTest, ADoubleClickMakesAViewportCurrent) {
    writeRedLine();
    Script script;
    script.then(open())
        .then(command(L"LAYOUT " + layout))
        .then(doubleClickPaper({70, 125}))
        .then(said(L"VPORT "))
        .look("the second viewport is current",
              [this](const View& view) {
                  EXPECT_EQ(view.text(IDC_STATUS_LINE).find(layout + L", viewport " + std::to_wstring(number)), 7u)
                      << ui::narrow(view.text(IDC_STATUS_LINE));
              })
        .then(doubleClickPaper({5, 5}))
        .then(said(L"VPORT none"))
        .look("none is current", [this](const View&) { EXPECT_EQ(session().drawing().currentViewport, std::nullopt); })
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(DrawingViewTest, AClickOnATabShowsItsSpace) {
    writeRedLine();
    const auto clickTab = [](std::size_t tab) {
        Script script;
        script.step("click tab " + std::to_string(tab), [tab](const View& view) -> ui::Obstacle {
            auto* tabs = static_cast<workbench::SpaceTabs*>(CWnd::FromHandlePermanent(view.control(IDC_SPACE_TABS)));
            CRect rect = tabs->tabRect(tab);
            tabs->ClientToScreen(rect);
            if (!ui::pointerRestsAt(ui::middleOf(rect)))
                return "the pointer is under way";
            ui::click();
            return std::nullopt;
        });
        return script;
    };
    Script script;
    script.then(open())
        .then(clickTab(1))
        .waitUntil("the sheet is shown", [this](const View&) { return session().drawing().activeLayout == 0u; })
        .then(clickTab(0))
        .waitUntil("the model tab is shown", [this](const View&) { return !session().drawing().activeLayout; })
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(DrawingViewTest, TheMiddleButtonDragsTheDrawingAlong) {
    writeRedLine();
    zdr::Point before;
    Script script;
    script.then(open())
        .look("where the origin is",
              [&](const View&) {
                  before = shown().view().toScreen({0, 0});
              })
        .then(mouseAt(0, 0, {MOUSEEVENTF_MIDDLEDOWN}))
        .then(mouseAt(60, 30, {}))
        .waitUntil("the drawing has followed",
                   [&](const View&) {
                       const zdr::Point now = shown().view().toScreen({0, 0});
                       return now.x - before.x == 60 && now.y - before.y == 30;
                   })
        .then(mouseAt(60, 30, {MOUSEEVENTF_MIDDLEUP}))
        .then(mouseAt(0, 0, {}))
        .look("it stays when the button is up",
              [&](const View&) {
                  EXPECT_EQ(shown().view().toScreen({0, 0}).x, before.x + 60);
              })
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(DrawingViewTest, ADoubleClickOfTheMiddleButtonShowsAllOfIt) {
    writeRedLine();
    double before = 0;
    Script script;
    script.then(open())
        .look("the scale at first", [&](const View&) { before = shown().view().scale(); })
        .then(command(L"ZOOM IN"))
        .then(said(L"Zoomed in."))
        .then(
            mouseAt(0, 0, {MOUSEEVENTF_MIDDLEDOWN, MOUSEEVENTF_MIDDLEUP, MOUSEEVENTF_MIDDLEDOWN, MOUSEEVENTF_MIDDLEUP}))
        .waitUntil("the scale of the beginning", [&](const View&) { return shown().view().scale() == before; })
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(DrawingViewTest, TheWheelKeepsWhatIsUnderThePointer) {
    writeRedLine();
    zdr::Point held;
    double scale = 0;
    const auto pointer = [this] {
        POINT point{};
        GetCursorPos(&point);
        ScreenToClient(shown().m_hWnd, &point);
        return shown().view().toPlane({static_cast<double>(point.x), static_cast<double>(point.y)});
    };
    Script script;
    script.then(open())
        .then(mouseAt(100, 50, {}))
        .look("what is there",
              [&](const View&) {
                  held = pointer();
                  scale = shown().view().scale();
              })
        .step("turn the wheel",
              [](const View&) -> ui::Obstacle {
                  ui::turnWheel(2 * WHEEL_DELTA);
                  return std::nullopt;
              })
        .waitUntil("the same is there, larger", [&](const View&) { return shown().view().scale() > 1.5 * scale; })
        .look("it is the same",
              [&](const View&) {
                  EXPECT_NEAR(pointer().x, held.x, 1e-6);
                  EXPECT_NEAR(pointer().y, held.y, 1e-6);
              })
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(DrawingViewTest, KeysMoveTheDrawingAndTurnThePages) {
    writeRedLine();
    zdr::Point before;
    const auto moved = [&] {
        const zdr::Point now = shown().view().toScreen({0, 0});
        return std::pair(now.x - before.x, now.y - before.y);
    };
    Script script;
    script.then(open()).look("where the origin is", [&](const View&) { before = shown().view().toScreen({0, 0}); });
    script.press(VK_LEFT, ui::holdAlt).waitUntil("to the right", [=](const View&) { return moved().first > 20; });
    script.press(VK_UP, ui::holdAlt).waitUntil("down", [=](const View&) { return moved().second > 20; });
    script.press(VK_RIGHT, ui::holdAlt).press(VK_DOWN, ui::holdAlt).waitUntil("and back", [=](const View&) {
        return std::abs(moved().first) < 1 && std::abs(moved().second) < 1;
    });
    script.press(VK_NEXT, ui::holdControl).waitUntil("the sheet", [this](const View&) {
        return session().drawing().activeLayout == 0u;
    });
    script.press(VK_NEXT, ui::holdControl).waitUntil("the model tab again", [this](const View&) {
        return !session().drawing().activeLayout;
    });
    script.press(VK_PRIOR, ui::holdControl).waitUntil("the sheet from the other side", [this](const View&) {
        return session().drawing().activeLayout == 0u;
    });
    script.then(command(L"QUIT"));
    runWith(script);
}

TEST_F(DrawingViewTest, TheTabOfTheSpaceOnViewIsAlwaysInSight) {
    zdr::Drawing drawing = session().drawing();
    for (int i = 2; i <= 60; ++i)
        drawing.layouts.push_back({L"Layout" + std::to_wstring(i), 420, 297, {}, {}});
    session().rebuild(drawing);
    const auto tabRect = [](const View& view, std::size_t tab) {
        CRect rect =
            static_cast<workbench::SpaceTabs*>(CWnd::FromHandlePermanent(view.control(IDC_SPACE_TABS)))->tabRect(tab);
        return std::pair(static_cast<int>(rect.left), static_cast<int>(rect.right));
    };
    Script script;
    script.waitUntil("the tabs are drawn", [=](const View& view) { return tabRect(view, 1).first > 0; });
    script.press(VK_PRIOR, ui::holdControl).waitUntil("the last tab has come into sight", [=](const View& view) {
        const RECT bar = view.rect(IDC_SPACE_TABS);
        const auto [left, right] = tabRect(view, 60);
        return left > 0 && right <= bar.right - bar.left;
    });
    script.then(command(L"QUIT")).then(answerBox(L"Save the changes", IDNO));
    runWith(script);
}

TEST_F(DrawingViewTest, AViewportShowsItsOverrides) {
    writeRedLine();
    Script script;
    script.then(open())
        .then(command(L"LAYOUT " + layout))
        .then(expectRed("the line is red", [](long red) { return red > 50; }))
        .then(command(L"VPLAYER COLOUR 0,255,0 Red IN all"))
        .then(expectRed("it isn't red any more", [](long red) { return red == 0; }))
        .look("but green", [](const View& view) { EXPECT_GT(count(view, RGB(0, 255, 0)), 50); })
        .then(command(L"MODEL"))
        .then(expectRed("in model space it is red", [](long red) { return red > 50; }))
        .then(command(L"QUIT"))
        .then(answerBox(L"Save the changes", IDNO));
    runWith(script);
}

TEST_F(DrawingViewTest, ShowsEveryChangeAtOnce) {
    writeRedLine();
    const auto gone = [](long red) { return red == 0; };
    const auto there = [](long red) { return red > 500; };
    Script script;
    script.then(open())
        .then(command(L"LAYER OFF Red"))
        .then(expectRed("the line is gone", gone))
        .then(command(L"UNDO"))
        .then(expectRed("the line is back", there))
        .then(command(L"REDO"))
        .then(expectRed("the line is gone again", gone))
        .then(command(L"LAYER ON Red"))
        .then(expectRed("the line is on", there))
        .then(command(L"QUIT"))
        .then(answerBox(L"Save the changes", IDNO));
    runWith(script);
}

TEST_F(DrawingViewTest, F5DrawsAnewWhatHasChangedUntold) {
    writeRedLine();
    Script script;
    script.then(open())
        .then(expectRed("a red line", [](long red) { return red > 500; }))
        .look("the layer goes off behind the window's back",
              [this](const View&) {
                  KelDbDatabase& database = session().database();
                  const std::size_t layer = engine::layerIndex(database, L"Red");
                  engine::LayerValues values = engine::layerValues(database, layer);
                  values.flags &= static_cast<std::uint8_t>(~zdr::kLayerOn);
                  EXPECT_EQ(engine::setLayerValues(database, layer, values), Vorn::eOk);
              })
        .look("it is still on view", [](const View& view) { EXPECT_GT(count(view, kRed), 500); })
        .press(VK_F5)
        .then(expectRed("nothing red", [](long red) { return red == 0; }))
        .then(command(L"QUIT"))
        .then(answerBox(L"Save the changes", IDNO));
    runWith(script);
}
