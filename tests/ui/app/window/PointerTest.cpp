// What the pointer over the drawing does without a button: it tells its place in the status line and the number of the
// viewport below it, and its wheel zooms in the current viewport.

#include "HandmadeDrawing.h"
#include "LinesOfScripts.h"
#include "SystemRegistry.h"
#include "UnitsText.h"
#include "WorkbenchFixture.h"
#include "WorkbenchIds.h"

#include "engine/DatabaseAccess.h"

#include <algorithm>
#include <fstream>

using ui::Script;
using ui::View;

namespace {

class PointerTest : public WorkbenchTest {
  protected:
    /// A drawing with a sheet of two viewports: 2 from (20, 20) to (120, 70), and 3 from (20, 100) to (120, 150).
    PointerTest() {
        zdr::Drawing drawing = session().drawing();
        handmade::addLine(drawing, 0, 1000);
        handmade::addSecondViewport(drawing);
        writeDrawing("plan.zdr", drawing);
    }
    Script open() { return command(L"OPEN " + path("plan.zdr")).then(said(L"Opened ")); }
    Script openSheet() { return open().then(command(L"LAYOUT Layout1")).then(said(L"is shown.")); }

    /// The point of the screen on which a point of the space on view lies.
    POINT pixelOf(zdr::Point point) const {
        const zdr::Point pixel = shown().view().toScreen(point);
        POINT screen{static_cast<LONG>(pixel.x), static_cast<LONG>(pixel.y)};
        ClientToScreen(shown().m_hWnd, &screen);
        return screen;
    }
    Script pointAt(zdr::Point point) {
        Script script;
        script.pointAt([this, point] { return pixelOf(point); });
        return script;
    }
    /// The point of the space on view that the pointer is on.
    zdr::Point pointed() const {
        POINT point{};
        GetCursorPos(&point);
        ScreenToClient(shown().m_hWnd, &point);
        return shown().view().toPlane({static_cast<double>(point.x), static_cast<double>(point.y)});
    }
    /// A step that waits until the status line tells the place that `place` answers.
    static Script tellsPlace(const std::string& where, std::function<std::wstring()> place) {
        Script script;
        script.waitUntil("the status line tells the place " + where, [place](const View& view) {
            return view.text(IDC_STATUS_LINE).find(L" | " + place() + L" | ") != std::wstring::npos;
        });
        return script;
    }
    const zdr::Viewport& viewport(std::size_t index) { return session().drawing().layouts[0].viewports[index]; }
    /// The point of model space that viewport 2 shows at a point of the paper.
    zdr::Point seenAt(zdr::Point paper) {
        const zdr::Viewport& seen = viewport(0);
        const zdr::Point middle{seen.corner.x + seen.width / 2, seen.corner.y + seen.height / 2};
        return {seen.viewCenter.x + (paper.x - middle.x) / seen.scale,
                seen.viewCenter.y + (paper.y - middle.y) / seen.scale};
    }
    static Script turnWheel(int steps) {
        Script script;
        script.step("turn the wheel", [steps](const View&) -> ui::Obstacle {
            ui::turnWheel(steps * WHEEL_DELTA);
            return std::nullopt;
        });
        return script;
    }
};

/// The smallest rectangle around the pixels of a colour in the drawing, in pixels of it; empty when there are none.
RECT boxOf(const View& view, COLORREF color) {
    const RECT rect = view.rect(IDC_DRAWING_VIEW);
    const LONG width = rect.right - rect.left;
    const std::vector<COLORREF> pixels = view.pixels(IDC_DRAWING_VIEW);
    RECT box{width, rect.bottom - rect.top, 0, 0};
    for (std::size_t i = 0; i < pixels.size(); ++i)
        if (pixels[i] == color) {
            const LONG x = static_cast<LONG>(i) % width;
            const LONG y = static_cast<LONG>(i) / width;
            box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x + 1),
                   std::max(box.bottom, y + 1)};
        }
    return box;
}

struct Sign {
    CSize size;
    std::vector<COLORREF> pixels; ///< row by row
};

/// What a sign with this text looks like.
Sign signOf(HWND window, const std::wstring& text, COLORREF color) {
    workbench::WindowLook look;
    look.update(static_cast<int>(GetDpiForWindow(window)));
    CClientDC screen(CWnd::FromHandle(window));
    CDC dc;
    dc.CreateCompatibleDC(&screen);
    dc.SelectObject(&look.font());
    const CSize letters = dc.GetTextExtent(text.c_str(), static_cast<int>(text.size()));
    Sign sign{{letters.cx + 2 * look.px(4), letters.cy + 2 * look.px(4)}, {}};
    CBitmap bitmap;
    bitmap.CreateCompatibleBitmap(&screen, sign.size.cx, sign.size.cy);
    const int saved = dc.SaveDC();
    dc.SelectObject(&bitmap);
    CRect rect(CPoint(0, 0), sign.size);
    dc.FillSolidRect(rect, color);
    dc.SetBkMode(TRANSPARENT);
    dc.SetTextColor(workbench::colors::kPaper);
    dc.DrawText(text.c_str(), -1, rect, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOCLIP);
    for (int y = 0; y < sign.size.cy; ++y)
        for (int x = 0; x < sign.size.cx; ++x)
            sign.pixels.push_back(dc.GetPixel(x, y));
    dc.RestoreDC(saved);
    return sign;
}

/// Whether a sign with this text stands in the drawing, with this place as its upper left corner to the pixel next to
/// it.
bool isSignAt(const View& view, const std::wstring& text, COLORREF color, POINT corner) {
    const HWND window = view.control(IDC_DRAWING_VIEW);
    const Sign sign = signOf(window, text, color);
    const RECT rect = view.rect(IDC_DRAWING_VIEW);
    const LONG width = rect.right - rect.left;
    const std::vector<COLORREF> pixels = view.pixels(IDC_DRAWING_VIEW);
    ScreenToClient(window, &corner);
    const auto standsAt = [&](LONG left, LONG top) {
        for (LONG y = 0; y < sign.size.cy; ++y) {
            const auto* row = &sign.pixels[static_cast<std::size_t>(y * sign.size.cx)];
            if (!std::equal(row, row + sign.size.cx, &pixels[static_cast<std::size_t>((top + y) * width + left)]))
                return false;
        }
        return true;
    };
    for (LONG x = corner.x - 1; x <= corner.x + 1; ++x)
        for (LONG y = corner.y - 1; y <= corner.y + 1; ++y)
            if (x >= 0 && y >= 0 && x + sign.size.cx <= width && y + sign.size.cy <= rect.bottom - rect.top &&
                standsAt(x, y))
                return true;
    return false;
}

constexpr COLORREF kSign = workbench::colors::kBarTextDim;
constexpr COLORREF kCurrentSign = workbench::colors::kAccent;

} // namespace

TEST_F(PointerTest, TheStatusLineTellsThePlaceInModelSpaceAndFollowsPointerAndView) {
    const auto place = [this] { return workbench::placeText(pointed()) + L" mm"; };
    std::wstring first, second;
    Script script;
    script.then(open())
        .then(pointAt({250, 10}))
        .then(tellsPlace("in the drawing", place))
        .look("what it tells",
              [&](const View&) {
                  first = place();
                  EXPECT_NEAR(pointed().x, 250, 2);
                  EXPECT_NEAR(pointed().y, 10, 2);
              })
        .then(pointAt({750, -10}))
        .waitUntil("the pointer is elsewhere", [&](const View&) { return place() != first; })
        .then(tellsPlace("after a move", place))
        .look("what it tells", [&](const View&) { second = place(); });
    script.press(VK_LEFT, ui::holdAlt)
        .waitUntil("the drawing has moved", [&](const View&) { return place() != second; })
        .then(tellsPlace("after the drawing has moved below it", place))
        .then(command(L"ZOOM OUT"))
        .then(said(L"Zoomed out."))
        .then(tellsPlace("after a zoom", place))
        .pointAway()
        .then(tellsPlace("beside the drawing", [] { return std::wstring(L"mm"); }))
        .then(command(L"QUIT"));
    runWith(script);
}

// The drawing changes without anybody telling the window, so that what it asks the drawing for is to be seen.
TEST_F(PointerTest, AMoveOfThePointerChangesThePlaceInTheStatusLineAndNothingElse) {
    const auto place = [this] { return workbench::placeText(pointed()) + L" mm"; };
    const auto tellsLayer = [](const std::wstring& name) {
        Script script;
        script.waitUntil("the layer " + ui::narrow(name), [name](const View& view) {
            return view.text(IDC_STATUS_LINE).starts_with(name + L" | Model | ");
        });
        return script;
    };
    Script script;
    script.then(open())
        .then(command(L"LAYER NEW Walls"))
        .then(said(L"1 layer is made."))
        .look("the current layer",
              [this](const View&) {
                  KelDbDatabase& database = session().database();
                  ASSERT_EQ(engine::setCurrentLayer(database, engine::layerIndex(database, L"Walls")), Vorn::eOk);
              })
        .then(pointAt({250, 10}))
        .then(tellsPlace("in the drawing", place))
        .then(tellsLayer(L"Base"))
        .then(command(L"UNITS"))
        .then(tellsLayer(L"Walls"))
        .then(tellsPlace("as before", place));
    runAndThrowAway(script);
}

TEST_F(PointerTest, OnASheetThePlaceIsThatOfThePaperAndInTheCurrentViewportThatOfModelSpace) {
    const auto onPaper = [this] { return workbench::placeText(pointed()) + L" mm on paper"; };
    const auto inModel = [this] { return workbench::placeText(seenAt(pointed())) + L" mm"; };
    Script script;
    script.then(openSheet())
        .pointAway()
        .then(tellsPlace("beside the drawing", [] { return std::wstring(L"mm on paper"); }))
        .then(pointAt({60, 50}))
        .then(tellsPlace("on the sheet", onPaper))
        .then(command(L"VPORT 2"))
        .then(said(L"Viewport 2 is current."))
        .then(tellsPlace("in the viewport that has become current", inModel))
        .look("it is in the drawing",
              [this](const View&) {
                  // A pixel is about ten millimeters there.
                  EXPECT_NEAR(seenAt(pointed()).x, 300, 20);
                  EXPECT_NEAR(seenAt(pointed()).y, 100, 20);
              })
        .then(pointAt({60, 120}))
        .then(tellsPlace("in the other viewport", onPaper))
        .then(pointAt({200, 200}))
        .then(tellsPlace("beside the viewports", onPaper))
        .pointAway()
        .then(tellsPlace("beside the drawing", [] { return std::wstring(L"mm"); }))
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(PointerTest, TheStatusLineTellsNoPlaceWhileThePointerIsOverAnotherPane) {
    const auto beside = tellsPlace("beside the drawing", [] { return std::wstring(L"mm"); });
    Script script;
    script.then(open());
    for (const int pane : {IDC_SPACE_TABS, IDC_COMMAND_PANE, IDC_STATUS_LINE})
        script.then(pointAt({500, 10}))
            .then(tellsPlace("in the drawing", [this] { return workbench::placeText(pointed()) + L" mm"; }))
            .hover(pane)
            .then(beside);
    script.then(command(L"QUIT"));
    runWith(script);
}

TEST_F(PointerTest, AViewportShowsItsNumberWhileThePointerIsOverIt) {
    const auto signIs = [this](const std::wstring& text, zdr::Point corner, COLORREF color = kSign) {
        Script script;
        script.waitUntil("the sign " + ui::narrow(text),
                         [=, this](const View& view) { return isSignAt(view, text, color, pixelOf(corner)); });
        return script;
    };
    const auto noSign = [](const std::string& when) {
        Script script;
        script.waitUntil("no number " + when, [](const View& view) { return boxOf(view, kSign).right == 0; });
        return script;
    };
    Script script;
    script.then(openSheet())
        .pointAway()
        .then(noSign("while the pointer is elsewhere"))
        .then(pointAt({60, 50}))
        .then(signIs(L"Viewport 2", {20, 70}))
        .then(pointAt({60, 120}))
        .then(signIs(L"Viewport 3", {20, 150}))
        .then(command(L"VPORT 3"))
        .then(noSign("in the color of the others"))
        .then(signIs(L"Viewport 3", {20, 150}, kCurrentSign))
        .then(command(L"VPORT none"))
        .then(signIs(L"Viewport 3", {20, 150}))
        .then(pointAt({200, 200}))
        .then(noSign("beside the viewports"))
        .then(pointAt({60, 50}))
        .then(signIs(L"Viewport 2", {20, 70}))
        .pointAway()
        .then(noSign("when the pointer has left"))
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(PointerTest, TheWheelZoomsInTheCurrentViewportAndOneUndoTakesItBack) {
    double sheet = 0;
    zdr::Point held;
    const auto scaleIs = [this](double scale) {
        Script script;
        script.waitUntil("the viewport's scale is " + std::to_string(scale),
                         [this, scale](const View&) { return std::abs(viewport(0).scale - scale) < 1e-12; });
        return script;
    };
    Script script;
    script.then(openSheet())
        .then(command(L"VPORT 2"))
        .then(said(L"Viewport 2 is current."))
        .then(pointAt({50, 60}))
        .look("what is there",
              [&](const View&) {
                  sheet = shown().view().scale();
                  held = seenAt(pointed());
              })
        .then(turnWheel(1))
        .then(scaleIs(0.05 * 1.25))
        .then(turnWheel(2))
        .then(scaleIs(0.05 * 1.25 * 1.25 * 1.25))
        .look("the sheet is as it was, and the same is under the pointer",
              [&](const View&) {
                  EXPECT_EQ(shown().view().scale(), sheet);
                  EXPECT_NEAR(seenAt(pointed()).x, held.x, 1e-6);
                  EXPECT_NEAR(seenAt(pointed()).y, held.y, 1e-6);
                  EXPECT_EQ(viewport(1).scale, 0.05);
              })
        .then(tellsPlace("that has stayed", [&] { return workbench::placeText(held) + L" mm"; }))
        .then(titleIs(L"plan.zdr*"))
        .then(command(L"U"))
        .then(scaleIs(0.05))
        .then(titleIs(L"plan.zdr"))
        .look("it shows what it has shown",
              [&](const View&) {
                  EXPECT_EQ(viewport(0).viewCenter, (zdr::Point{500, 0}));
              })
        .then(command(L"REDO"))
        .then(scaleIs(0.05 * 1.25 * 1.25 * 1.25))
        .then(command(L"U"))
        .then(titleIs(L"plan.zdr"))
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(PointerTest, TheWheelZoomsTheSheetWhereNoCurrentViewportIs) {
    double before = 0;
    const auto zoomsTheSheet = [&](zdr::Point paper) {
        Script script;
        script.then(pointAt(paper))
            .look("the scale of the sheet", [&](const View&) { before = shown().view().scale(); })
            .then(turnWheel(-1))
            .waitUntil("a smaller sheet", [&](const View&) { return shown().view().scale() < before; });
        return script;
    };
    Script script;
    script.then(openSheet())
        .then(zoomsTheSheet({60, 50}))
        .then(command(L"VPORT 2"))
        .then(said(L"Viewport 2 is current."))
        .then(zoomsTheSheet({60, 120}))
        .then(zoomsTheSheet({200, 200}))
        .look("the viewports are as they were",
              [this](const View&) {
                  EXPECT_EQ(viewport(0).scale, 0.05);
                  EXPECT_EQ(viewport(1).scale, 0.05);
              })
        .then(titleIs(L"plan.zdr"))
        .then(command(L"QUIT"));
    runWith(script);
}

// A command of the script plays the person, so that the wheel is turned while the script runs, and the ones behind it
// take so long that it is dealt with before the end.
TEST_F(PointerTest, AViewportStaysAsTheScriptHasMadeItWhileAScriptRuns) {
    runtime::commandStack().addCommand(L"TEST", L"TURN", L"TURN", 0, [] { ui::turnWheel(WHEEL_DELTA); });
    runtime::commandStack().addCommand(L"TEST", L"N", L"N", 0, letInputIn);
    std::ofstream lines(folder / "long.scr", std::ios::binary);
    lines << "TURN\n";
    for (int i = 0; i < 1000; ++i)
        lines << "N\n";
    lines.close();
    Script script;
    script.then(openSheet())
        .then(command(L"VPORT 2"))
        .then(said(L"Viewport 2 is current."))
        .then(pointAt({60, 50}))
        .then(command(L"SCRIPT " + path("long.scr")))
        .then(said(L"has ended: 1001 lines done."))
        .look("the viewport", [this](const View&) { EXPECT_EQ(viewport(0).scale, 0.05); })
        .then(turnWheel(1))
        .waitUntil("after the script the wheel zooms again", [this](const View&) { return viewport(0).scale > 0.06; })
        .then(command(L"U"))
        .then(titleIs(L"plan.zdr"))
        .then(command(L"QUIT"));
    runWith(script);
}
